// The two vertical axes of the interface. Applications place windows and read the pointer with y counted
// upwards from a lower edge; the X server counts downwards from an upper edge. Every turn-over goes through here.
#pragma once

#include <algorithm>
#include <cstdint>

namespace grx {

/// What the application gets of a sum that 32 bits may not hold.
constexpr int32_t saturated(int64_t v) {
    return static_cast<int32_t>(std::clamp<int64_t>(v, INT32_MIN, INT32_MAX));
}

/// y counted from the upper edge <-> y counted from the lower edge of something `height` high. Its own inverse.
constexpr int32_t turn_over_y(int32_t height, int32_t y) {
    return saturated(int64_t{height} - y);
}

/// Upper edge, from the top, of a box `box_height` high whose lower edge lies `y` above the lower edge of its container.
constexpr int32_t top_of_box(int32_t container_height, int32_t y, int32_t box_height) {
    return saturated(int64_t{container_height} - y - box_height);
}

/// What the toolkit can hold as a position (signed 16 bits).
constexpr int16_t as_position(int64_t v) {
    return static_cast<int16_t>(std::clamp<int64_t>(v, INT16_MIN, INT16_MAX));
}

/// What X accepts as a width or height of a window or pixmap.
constexpr uint16_t as_size(int64_t v) {
    return static_cast<uint16_t>(std::clamp<int64_t>(v, 1, INT16_MAX));
}

} // namespace grx
