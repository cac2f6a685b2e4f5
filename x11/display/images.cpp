// Makes images in the form that the server takes, for pictures of windows and controls.
#include "display/images.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include "xt_ini_t.h"

namespace grx {

int bytes_per_pixel() {
    int count = 0;
    int bytes = 4;
    XPixmapFormatValues* const formats = XListPixmapFormats(x11_disp, &count);
    for (int i = 0; i < count; ++i) {
        if (formats[i].depth == profondeur_ecran) bytes = formats[i].bits_per_pixel / 8;
    }
    if (formats != nullptr) XFree(formats);
    return bytes;
}

XImage* make_image(char* data, ImageSize size, int depth, int pad, int row_bytes) {
    XImage* const image = XCreateImage(x11_disp, x11_vis, static_cast<unsigned int>(depth), ZPixmap, 0, data,
        static_cast<unsigned int>(size.width), static_cast<unsigned int>(size.height), pad, row_bytes);
    return image;
}

void drop_image(XImage* image) {
    if (image == nullptr) return;
    image->data = nullptr;
    XDestroyImage(image);
}

} // namespace grx
