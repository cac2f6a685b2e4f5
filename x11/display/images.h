// Makes images in the form that the server takes, for pictures of windows and controls.
#pragma once

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <cstddef>
#include <cstring>

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
inline int native_byte_order() {
    const UNSIGNED_INT4 one = 1;
    uchar first = 0;
    std::memcpy(&first, &one, 1);
    return first == 1 ? LSBFirst : MSBFirst;
}

/// Writes a pixel as 4 or 3 bytes in the byte order of this machine.
inline void store_pixel(uchar* out, UNSIGNED_INT4 pixel, std::size_t bytes) {
    if (bytes == sizeof pixel) {
        std::memcpy(out, &pixel, sizeof pixel);
        return;
    }
    const bool low_first = native_byte_order() == LSBFirst;
    for (std::size_t i = 0; i < bytes; ++i) {
        const std::size_t at = low_first ? i : bytes - 1 - i;
        out[i] = static_cast<uchar>(pixel >> (8 * at));
    }
}

/// Row `y` of an image, as pixels of type T.
template <class T>
T* image_row(const XImage* image, int y) {
    return reinterpret_cast<T*>(image->data + static_cast<std::ptrdiff_t>(y) * image->bytes_per_line);
}

} // namespace grx
