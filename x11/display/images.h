// Pictures as the server takes them.
#pragma once

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <cstddef>

#include "host_t.h"

namespace grx {

struct ImageSize {
    int width, height;
};

/// Bytes a pixel of the deep screen's images takes: 4, or 3 where the server packs them.
int bytes_per_pixel();

/// An image on pixels that somebody else owns; before it is destroyed its data must be taken away.
XImage* make_image(char* data, ImageSize size, int depth, int pad, int row_bytes);

void drop_image(XImage* image);

/// This machine's byte order, in which pixels are stored as plain integers.
int native_byte_order();

void store_pixel(uchar* out, UNSIGNED_INT4 pixel, std::size_t bytes);

} // namespace grx
