// What the functions that show pictures and those that read the screen have in common.
#pragma once

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <cstddef>

#include "host_t.h"

namespace grx {

/// The row of an image at y, counted from the top.
template <class T>
T* image_row(const XImage* image, int y) {
    return reinterpret_cast<T*>(image->data + static_cast<std::ptrdiff_t>(y) * image->bytes_per_line);
}

/// False for a null pointer and for sizes that are not positive.
bool usable_picture(const uchar* pixels, INT width, INT height);

} // namespace grx
