// Bitmap files of any kind that pictures are read from, and of those that they are written as: headers and rows.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "host_t.h"

namespace grx {

/// Colours by their places: blue, green, red, alpha.
using PicturePalette = std::array<std::array<uchar, 4>, 256>;

/// What a picture is like: 1 (places in the palette), 3 or 4 bytes a pixel.
struct PictureForm {
    int64_t width = 0, height = 0;
    int bytes = 0;
    int colours = 0; // entries of the palette
    int64_t per_metre = 0;
    PicturePalette palette{};

    std::size_t row_bytes() const { return static_cast<std::size_t>(width) * static_cast<std::size_t>(bytes); }
};

/// The rows of a file: where they begin, how long they are, in which order they stand, where a pixel has its channels.
struct BmpLayout {
    uint64_t data_at = 0;
    uint64_t row_bytes = 0;
    int bits = 0;
    bool from_top = false;
    std::array<uchar, 4> channels{0, 1, 2, 3}; // of 32 bits: the bytes of blue, green, red, alpha

    uint64_t row_at(int64_t y, int64_t height) const {
        return data_at + row_bytes * static_cast<uint64_t>(from_top ? y : height - 1 - y);
    }
};

struct BmpFile {
    PictureForm form;
    BmpLayout layout;
};

/// Bytes at the beginning of a file that hold all of its headers and its palette, if it is one that can be read.
inline constexpr std::size_t kBmpHeadMost = 14 + 124 + 4 * 256;

bool is_bmp(std::span<const uchar> head);

/// Reads the headers; nothing for a file that is of another kind, or shorter than it says.
std::optional<BmpFile> read_bmp_head(std::span<const uchar> head, uint64_t file_size);

/// Turns a row of the file into one of the picture.
void unpack_bmp_row(const BmpFile& file, const uchar* in, uchar* out);

/// The headers of a file that is written, from below; nothing when the file would be too large for them.
struct BmpHead {
    std::array<uchar, kBmpHeadMost> bytes{};
    std::size_t size = 0;
    BmpLayout layout;
};
std::optional<BmpHead> make_bmp_head(const PictureForm& form);

} // namespace grx
