// The size of a window, a widget or a picture, in pixels.
#pragma once

#include <cstdint>

namespace grx {

struct Size {
    int32_t width = 0;
    int32_t height = 0;
    bool operator==(const Size&) const = default;
};

} // namespace grx
