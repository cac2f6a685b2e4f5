// Pixels in bulk: no function call, no division and no search for each.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "host_t.h"
#include "pure/palette.h"

namespace grx {

/// Rows of three bytes a pixel (blue, green, red) into rows of one 32-bit value a pixel.
class DeepPacker {
  public:
    explicit DeepPacker(const Shifts& shifts);
    void row(uint32_t* out, const uchar* in, std::size_t count) const;

  private:
    bool plain_; // blue lowest, red highest: a pixel is its three bytes
    std::array<uint32_t, 256> red_, green_, blue_;
};

/// How many columns (or rows) become how many, and the first of those that are wanted.
struct Scaling {
    int64_t source, destination, first;
};

/// For each destination column (or row) i from the first on the source one: source x i / destination, truncated.
void scale_map(std::span<int32_t> map, const Scaling& scaling);

/// Four neighbouring pixels of an enlarged row: where their sources begin, and how those four are shuffled.
struct SpreadStep {
    std::array<uchar, 16> shuffle;
    int32_t base;
};

/// Readable pixels that a source row must have behind its end.
inline constexpr std::size_t kSpreadSlack = 4;

/// Steps for a map of columns that never skips more than three; false when it does (a reduction).
bool make_spread_steps(std::span<SpreadStep> steps, std::span<const int32_t> columns);

/// A row enlarged or reduced: each pixel from the column that the map names. Steps may be empty.
void spread_row(uint32_t* out, const uint32_t* in, std::span<const int32_t> columns, std::span<const SpreadStep> steps);

/// Colour indices of pixels: the index of the first equal entry of a table, 0 for a pixel that it does not hold.
class IndexFinder {
  public:
    IndexFinder(const INT* pixels, std::size_t count, uint32_t mask);
    uchar find(uint32_t pixel) const;
    void row(uchar* out, const uint32_t* in, std::size_t count) const;

  private:
    static constexpr std::size_t kSlots = 1024;
    static std::size_t first_place(uint32_t pixel) { return (pixel * 2654435761U) >> 22; }

    struct Slot {
        uint32_t pixel;
        bool used;
        uchar index;
    };
    uint32_t mask_;
    std::array<Slot, kSlots> slots_{};
};

} // namespace grx
