// Where something that pops up stands on the screen, along one axis.
#pragma once

#include <algorithm>
#include <cstdint>

#include "pure/axis.h"

namespace grx {

/// Where `length` pixels begin that are asked for at `wanted`: there; before it where the screen ends too early behind; at
/// the end of the screen where neither has room; at its beginning when they are longer than the screen.
constexpr int16_t popup_start(int64_t wanted, int32_t length, int32_t screen) {
    const int64_t last = int64_t{screen} - length;
    const int64_t on_screen = std::clamp<int64_t>(wanted, 0, screen);
    if (on_screen <= last) return as_position(on_screen);
    const int64_t before = on_screen - length;
    return as_position(before >= 0 ? before : std::max<int64_t>(0, last));
}

} // namespace grx
