// Rows, sizes and palettes of bitmap files, for the functions that read and write them. A file has its bottom row first
// and pads rows to multiples of 4 bytes. A picture in memory has one byte a pixel and its top row first.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "host_t.h"

namespace grx {

inline constexpr std::size_t kFileHeader = 14;
inline constexpr std::size_t kInfoHeader = 40;
inline constexpr std::size_t kPaletteAt = kFileHeader + kInfoHeader;

/// The standard 16 colours, each as blue, green, red, 0.
inline constexpr std::array<std::array<uchar, 4>, 16> palette_win{
    {{0, 0, 0, 0}, {0, 0, 191, 0}, {0, 191, 0, 0}, {0, 191, 191, 0}, {191, 0, 0, 0}, {191, 0, 191, 0}, {191, 191, 0, 0},
        {192, 192, 192, 0}, {128, 128, 128, 0}, {0, 0, 255, 0}, {0, 255, 0, 0}, {0, 255, 255, 0}, {255, 0, 0, 0},
        {255, 0, 255, 0}, {255, 255, 0, 0}, {255, 255, 255, 0}}};

/// Turns a colour index of the library into one of the standard palette, and back: red and blue change places.
inline constexpr std::array<uchar, 16> tab_win{0, 4, 2, 6, 1, 5, 3, 7, 8, 12, 10, 14, 9, 13, 11, 15};

inline constexpr std::array<std::array<uchar, 4>, 2> palette_win_mono{{{0, 0, 0, 0}, {255, 255, 255, 0}}};

constexpr int64_t rounded_up(int64_t value, int64_t step) {
    return (value + step - 1) / step * step;
}

/// Bytes that a picture needs: for one row of the file, for all its rows, and in memory.
struct BmpSizes {
    int64_t row = 0;
    int64_t data = 0;
    int64_t picture = 0;
};

/// Sizes of a picture with 1, 4 or 8 bits a pixel. Nothing when width or height is not positive, or when a size does
/// not fit the 32 bits that a file has for it.
constexpr std::optional<BmpSizes> bmp_sizes(int64_t width, int64_t height, int bits) {
    constexpr int64_t most = INT32_MAX;
    if (width <= 0 || height <= 0 || width > most || height > most) return std::nullopt;
    BmpSizes sizes;
    if (bits == 4) sizes.row = rounded_up(width, 8) / 2;
    if (bits == 8) sizes.row = rounded_up(width, 4);
    if (bits == 1) sizes.row = width / 8;
    sizes.data = bits == 1 ? width * height / 8 : sizes.row * height;
    sizes.picture = width * height;
    if (sizes.data > most || sizes.picture > most) return std::nullopt;
    return sizes;
}

struct BmpPicture {
    uchar* pixels;
    std::size_t width, height;

    std::span<uchar> row(std::size_t y) const { return {pixels + y * width, width}; }
    std::span<uchar> row_of_file(std::size_t r) const { return row(height - 1 - r); }
};

/// Fills a picture from the rows of a file. KEEP: the last pixel of an odd 4-bit row is left as it is.
void unpack_rows_4(const BmpPicture& to, std::span<const uchar> data, std::size_t row_bytes);
void unpack_rows_8(const BmpPicture& to, std::span<const uchar> data, std::size_t row_bytes);

/// Fills the rows of a file from a picture. The caller sets `data` to zero before.
void pack_rows_4(std::span<uchar> data, std::size_t row_bytes, const BmpPicture& from);
void pack_rows_8(std::span<uchar> data, std::size_t row_bytes, const BmpPicture& from);
void pack_rows_1(std::span<uchar> data, std::size_t row_bytes, const BmpPicture& from);

} // namespace grx
