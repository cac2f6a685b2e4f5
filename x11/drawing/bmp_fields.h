// Bitmap files through the application's files and byte order.
#pragma once

#include <cstdio>
#include <span>

#include "system/block.h"
#include "host_f.h"
#include "xt_gfx_t.h"

namespace grx {

/// Little-endian fields one after the other in a block of bytes.
class FieldReader {
  public:
    explicit FieldReader(std::span<const uchar> bytes) : bytes_(bytes) {}
    UNSIGNED_INT2 two() { return pc2uxint2(next<UNSIGNED_INT2>()); }
    UNSIGNED_INT4 four() { return pc2uxint4(next<UNSIGNED_INT4>()); }

  private:
    template <class T>
    T next();
    std::span<const uchar> bytes_;
};

class FieldWriter {
  public:
    explicit FieldWriter(std::span<uchar> bytes) : bytes_(bytes) {}
    void two(UNSIGNED_INT2 value) { put(ux2pcint2(value)); }
    void four(UNSIGNED_INT4 value) { put(ux2pcint4(value)); }

  private:
    template <class T>
    void put(T value);
    std::span<uchar> bytes_;
};

XTBITMAPINFOHEADER read_file_header(std::span<const uchar> bytes);

XTBITMAPINFO read_info_header(std::span<const uchar> bytes);

void write_headers(std::span<uchar> bytes, const XTBITMAPINFOHEADER& f, const XTBITMAPINFO& h);

/// Bytes from the file, zero where it is too short.
Block<uchar> read_block(FILE* file, std::size_t count);

int64_t file_size(FILE* file);

} // namespace grx
