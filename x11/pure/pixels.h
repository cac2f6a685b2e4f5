// Converts pixels in rows, for pictures that are shown or read back. The time a pixel takes decides here: none costs a
// function call, a division or a search of its own.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "host_t.h"
#include "pure/palette.h"

namespace grx {

/// Turns rows of three bytes a pixel (blue, green, red) into rows of one 32-bit value a pixel.
class DeepPacker {
  public:
    explicit DeepPacker(const Shifts& shifts);
    void row(uint32_t* out, const uchar* in, std::size_t count) const;

  private:
    bool plain_; // blue is the lowest byte, red the highest: no table is needed
    std::array<uint32_t, 256> red_, green_, blue_;
};

/// `source` columns (or rows) become `destination` ones. Of these, the ones from `first` on are wanted.
struct Scaling {
    int64_t source, destination, first;
};

/// Fills the map with the source column (or row) of each destination one i, from `first` on: source x i / destination,
/// truncated.
void scale_map(std::span<int32_t> map, const Scaling& scaling);

/// Makes four neighbouring pixels of an enlarged row: `base` is the column of their first source pixel, `shuffle` picks
/// each of them from the four source pixels there.
struct SpreadStep {
    std::array<uchar, 16> shuffle;
    int32_t base;
};

/// Pixels that must be readable after the end of a source row.
inline constexpr std::size_t kSpreadSlack = 4;

/// Makes the steps for a map of columns. False when the four sources of a step do not lie close together, as in a
/// reduction.
bool make_spread_steps(std::span<SpreadStep> steps, std::span<const int32_t> columns);

/// Enlarges or reduces a row: each pixel comes from the column that the map names. Without steps this goes pixel by
/// pixel.
void spread_row(uint32_t* out, const uint32_t* in, std::span<const int32_t> columns, std::span<const SpreadStep> steps);

/// Finds the colour index of a pixel: that of the first equal entry of a table, 0 when the table has none.
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
