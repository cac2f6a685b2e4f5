// Where a box goes: centred on another, and inside another as far as it fits. For places of windows, y counted from the
// top.
#pragma once

#include <algorithm>
#include <cstdint>

namespace grx {

struct Box {
    int32_t x = 0;
    int32_t y = 0;
    int32_t width = 0;
    int32_t height = 0;
    bool operator==(const Box&) const = default;
};

/// The place along one axis that keeps `length` within what begins at `first` and is `room` long; what is longer begins
/// where the room does.
constexpr int32_t kept_within(int32_t place, int32_t length, int32_t first, int32_t room) {
    const int64_t last = int64_t{first} + room - length;
    return static_cast<int32_t>(std::max<int64_t>(std::min<int64_t>(place, last), first));
}

/// The box moved into `area`; when it does not fit, its upper left corner is.
constexpr Box kept_within(Box box, const Box& area) {
    box.x = kept_within(box.x, box.width, area.x, area.width);
    box.y = kept_within(box.y, box.height, area.y, area.height);
    return box;
}

/// The box with its centre on that of `on`.
constexpr Box centred(Box box, const Box& on) {
    box.x = static_cast<int32_t>(on.x + (int64_t{on.width} - box.width) / 2);
    box.y = static_cast<int32_t>(on.y + (int64_t{on.height} - box.height) / 2);
    return box;
}

} // namespace grx
