// Makes, copies and frees pixmaps, for backing pictures and the pictures of controls.
#include "display/pixmaps.h"

#include <X11/IntrinsicP.h>

#include "pure/axis.h"
#include "pure/size.h"
#include "display/render.h"
#include "xt_ini_f.h"
#include "xt_ini_t.h"

namespace grx {

Pixmap make_pixmap(Drawable on, Size size) {
    const auto depth = static_cast<unsigned int>(grx_recup_profondeur_ecran());
    return XCreatePixmap(x11_disp, on, as_size(size.width), as_size(size.height), depth);
}

Size pixmap_size(Pixmap pixmap) {
    Window root = None;
    int x = 0, y = 0;
    unsigned int width = 0, height = 0, border = 0, depth = 0;
    if (XGetGeometry(x11_disp, pixmap, &root, &x, &y, &width, &height, &border, &depth) == 0) return {};
    return {static_cast<int32_t>(width), static_cast<int32_t>(height)};
}

void free_pixmap(Pixmap pixmap) {
    if (x11_disp == nullptr || pixmap == None) return;
    forget_target_picture(pixmap);
    XFreePixmap(x11_disp, pixmap);
}

void set_backing_store(Window window, int mode) {
    if (window == None) return;
    XSetWindowAttributes attributes{};
    attributes.backing_store = mode;
    XChangeWindowAttributes(x11_disp, window, CWBackingStore, &attributes);
}

void fill_drawable(Drawable target, GC context, Size size) {
    XFillRectangle(x11_disp, target, context, 0, 0, as_size(size.width), as_size(size.height));
}

void copy_drawable(Drawable from, Drawable to, GC context, Size size) {
    XCopyArea(x11_disp, from, to, context, 0, 0, as_size(size.width), as_size(size.height), 0, 0);
}

} // namespace grx
