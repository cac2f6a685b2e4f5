// The headers of bitmap files, for the functions that read and write such files.
#pragma once

#include <cstdio>
#include <span>

#include "system/block.h"
#include "host_f.h"
#include "xt_gfx_t.h"

namespace grx {

/// Reads little-endian fields one after the other. A field beyond the end of the bytes must not be asked for.
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

/// Reads bytes from the file; they are zero where the file is too short. Empty when memory is short.
Block<uchar> read_block(FILE* file, std::size_t count);

int64_t file_size(FILE* file);

} // namespace grx
