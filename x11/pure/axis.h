// The two vertical axes of the interface, for everything that places windows or reads the pointer. Applications count y
// upwards from a lower edge, the X server counts it downwards from an upper edge. Every conversion goes through here.
#pragma once

#include <algorithm>
#include <cstdint>

namespace grx {

/// The value itself, or the nearest one that 32 bits hold.
constexpr int32_t saturated(int64_t v) {
    return static_cast<int32_t>(std::clamp<int64_t>(v, INT32_MIN, INT32_MAX));
}

/// Turns y counted from the upper edge of something `height` high into y counted from its lower edge, and back.
constexpr int32_t turn_over_y(int32_t height, int32_t y) {
    return saturated(int64_t{height} - y);
}

/// y from the top of the upper edge of a box: it is `box_height` high, and its lower edge lies `y` above the lower edge
/// of its container.
constexpr int32_t top_of_box(int32_t container_height, int32_t y, int32_t box_height) {
    return saturated(int64_t{container_height} - y - box_height);
}

/// The nearest position that the toolkit can hold: it has signed 16 bits.
constexpr int16_t as_position(int64_t v) {
    return static_cast<int16_t>(std::clamp<int64_t>(v, INT16_MIN, INT16_MAX));
}

/// The nearest width or height that X accepts for a window or a pixmap.
constexpr uint16_t as_size(int64_t v) {
    return static_cast<uint16_t>(std::clamp<int64_t>(v, 1, INT16_MAX));
}

} // namespace grx
