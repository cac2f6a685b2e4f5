// Makes pixmaps of the bitmaps that are compiled into the library, for cursors, icons and warnings. The bitmaps have
// one bit a pixel, lowest bit leftmost, rows padded to bytes.
#pragma once

#include <X11/Xutil.h>

#include <array>

#include "display/requests.h"
#include "xt_ini_t.h"

namespace grx {

template <std::size_t N>

/// A square pixmap one plane deep, `side` pixels wide, which the caller frees.
Pixmap make_bitmap(const std::array<uchar, N>& bits, unsigned int side) {
    const Pixmap bitmap = new_bitmap(side, side);
    XImage image{};
    image.width = image.height = static_cast<int>(side);
    image.format = XYPixmap;
    image.data = const_cast<char*>(reinterpret_cast<const char*>(bits.data()));
    image.byte_order = image.bitmap_bit_order = LSBFirst;
    image.bitmap_unit = image.bitmap_pad = 8;
    image.depth = 1;
    image.bytes_per_line = static_cast<int>(N / side);
    XInitImage(&image);
    XGCValues values{};
    values.foreground = 1;
    GC context = XCreateGC(x11_disp, bitmap, GCForeground, &values);
    XPutImage(x11_disp, bitmap, context, &image, 0, 0, 0, 0, side, side);
    XFreeGC(x11_disp, context);
    return bitmap;
}

} // namespace grx
