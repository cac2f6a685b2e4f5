// Packs and unpacks the rows of bitmap files of 1, 4 and 8 bits a pixel, for the functions that read and write them.
#include "pure/bmp.h"

#include <algorithm>

namespace grx {

namespace {

constexpr unsigned int kNibble = 0xF;

uchar mapped(unsigned int index) {
    return tab_win[index & kNibble];
}

uchar pair_of(std::span<const uchar> row, std::size_t pair) {
    const std::size_t left = 2 * pair;
    const unsigned int high = mapped(row[left]);
    const unsigned int low = left + 1 < row.size() ? mapped(row[left + 1]) : 0U;
    return static_cast<uchar>(high * 16 + low);
}

// A pixel is white when its low four bits are 0. The leftmost pixel is the highest bit.
uchar eight_of(std::span<const uchar> row, std::size_t byte) {
    unsigned int bits = 0;
    for (std::size_t i = 0; i < 8; ++i) {
        const bool white = (row[byte * 8 + i] & kNibble) == 0;
        bits = bits * 2 + (white ? 1U : 0U);
    }
    return static_cast<uchar>(bits);
}

} // namespace

void unpack_rows_4(const BmpPicture& to, std::span<const uchar> data, std::size_t row_bytes) {
    for (std::size_t r = 0; r < to.height; ++r) {
        const auto row = to.row_of_file(r);
        const auto source = data.subspan(r * row_bytes, row_bytes);
        for (std::size_t i = 0; i < to.width / 2; ++i) {
            row[2 * i] = mapped(source[i] / 16U);
            row[2 * i + 1] = mapped(source[i]);
        }
    }
}

void unpack_rows_8(const BmpPicture& to, std::span<const uchar> data, std::size_t row_bytes) {
    for (std::size_t r = 0; r < to.height; ++r)
        std::copy_n(data.begin() + static_cast<std::ptrdiff_t>(r * row_bytes), to.width, to.row_of_file(r).begin());
}

void pack_rows_4(std::span<uchar> data, std::size_t row_bytes, const BmpPicture& from) {
    for (std::size_t r = 0; r < from.height; ++r) {
        const auto row = from.row_of_file(r);
        for (std::size_t pair = 0; 2 * pair < from.width; ++pair) data[r * row_bytes + pair] = pair_of(row, pair);
    }
}

void pack_rows_8(std::span<uchar> data, std::size_t row_bytes, const BmpPicture& from) {
    for (std::size_t r = 0; r < from.height; ++r) {
        const auto row = from.row_of_file(r);
        std::copy(row.begin(), row.end(), data.begin() + static_cast<std::ptrdiff_t>(r * row_bytes));
    }
}

void pack_rows_1(std::span<uchar> data, std::size_t row_bytes, const BmpPicture& from) {
    for (std::size_t r = 0; r < from.height; ++r) {
        const auto row = from.row_of_file(r);
        for (std::size_t byte = 0; byte < row_bytes; ++byte) data[r * row_bytes + byte] = eight_of(row, byte);
    }
}

} // namespace grx
