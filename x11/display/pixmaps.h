// Pixmaps as the library makes and releases them.
#pragma once

#include <X11/IntrinsicP.h>

#include "pure/size.h"

namespace grx {

/// The X window of a widget that has one by now, else None. Read from the widget: drawing asks for every primitive.
inline Window window_of(Widget w) {
    return w != nullptr ? w->core.window : None;
}

Pixmap make_pixmap(Drawable on, Size size);

/// Asks the server; nothing for a pixmap that is gone.
Size pixmap_size(Pixmap pixmap);

void free_pixmap(Pixmap pixmap);

/// Whether the server keeps what a window shows; nothing for None.
void set_backing_store(Window window, int mode);

void fill_drawable(Drawable target, GC context, Size size);

void copy_drawable(Drawable from, Drawable to, GC context, Size size);

} // namespace grx
