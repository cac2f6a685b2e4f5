// Bitmaps compiled into the library.
#pragma once

#include <X11/Xlib.h>

#include <array>

#include "kit/screen.h"

namespace grx {

template <std::size_t N>
Pixmap make_bitmap(const std::array<uchar, N>& bits, unsigned int side) {
    return XCreateBitmapFromData(x11_disp, root_window(), reinterpret_cast<const char*>(bits.data()), side, side);
}

} // namespace grx
