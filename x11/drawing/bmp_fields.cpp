// Reads and writes the headers of bitmap files with the file and byte-order functions of the host.
#include "drawing/bmp_fields.h"

#include <cstdio>
#include <cstring>
#include <span>

#include "system/block.h"
#include "xt_gfx_t.h"

namespace grx {

template <class T>
T FieldReader::next() {
    T value{};
    std::memcpy(&value, bytes_.data(), sizeof value);
    bytes_ = bytes_.subspan(sizeof value);
    return value;
}

template <class T>
void FieldWriter::put(T value) {
    std::memcpy(bytes_.data(), &value, sizeof value);
    bytes_ = bytes_.subspan(sizeof value);
}

XTBITMAPINFOHEADER read_file_header(std::span<const uchar> bytes) {
    FieldReader in(bytes);
    XTBITMAPINFOHEADER h{};
    h.bftype = in.two();
    h.bfsize = in.four();
    h.bfreserved1 = in.two();
    h.bfreserved2 = in.two();
    h.bfoffbits = in.four();
    return h;
}

XTBITMAPINFO read_info_header(std::span<const uchar> bytes) {
    FieldReader in(bytes);
    XTBITMAPINFO h{};
    h.bisize = in.four();
    h.biwidth = in.four();
    h.biheight = in.four();
    h.biplanes = in.two();
    h.bibitcount = in.two();
    h.bicompression = in.four();
    h.bisizeimage = in.four();
    h.bixpelspermeter = in.four();
    h.biypelspermeter = in.four();
    h.biclrused = in.four();
    h.biclrimportant = in.four();
    return h;
}

void write_headers(std::span<uchar> bytes, const XTBITMAPINFOHEADER& f, const XTBITMAPINFO& h) {
    FieldWriter out(bytes);
    out.two(f.bftype);
    out.four(f.bfsize);
    out.two(f.bfreserved1);
    out.two(f.bfreserved2);
    out.four(f.bfoffbits);
    out.four(h.bisize);
    out.four(h.biwidth);
    out.four(h.biheight);
    out.two(h.biplanes);
    out.two(h.bibitcount);
    for (const UNSIGNED_INT4 field :
        {h.bicompression, h.bisizeimage, h.bixpelspermeter, h.biypelspermeter, h.biclrused, h.biclrimportant})
        out.four(field);
}

Block<uchar> read_block(FILE* file, std::size_t count) {
    Block<uchar> block(count);
    if (!block) return block;
    const std::size_t got = std::fread(block.data(), 1, count, file);
    std::memset(block.data() + got, 0, count - got);
    return block;
}

int64_t file_size(FILE* file) {
    const long at = std::ftell(file);
    if (at < 0 || std::fseek(file, 0, SEEK_END) != 0) return 0;
    const long size = std::ftell(file);
    std::fseek(file, at, SEEK_SET);
    return size;
}

} // namespace grx
