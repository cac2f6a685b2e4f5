// Makes images in the form that the server takes, for pictures of windows and controls.
#pragma once

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <cstddef>

#include "host_t.h"

namespace grx {

struct ImageSize {
    int width, height;
};

/// Bytes that one pixel takes in images of a deep screen: 4, or 3 where the server packs them.
int bytes_per_pixel();

/// An image of pixels that the caller owns; drop_image frees it. Null when memory is short.
XImage* make_image(char* data, ImageSize size, int depth, int pad, int row_bytes);

/// Frees an image but not its pixels.
void drop_image(XImage* image);

/// The byte order of this machine, as X names it.
int native_byte_order();

/// Writes a pixel as 4 or 3 bytes in the byte order of this machine.
void store_pixel(uchar* out, UNSIGNED_INT4 pixel, std::size_t bytes);

} // namespace grx
