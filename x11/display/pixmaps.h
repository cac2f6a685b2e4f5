// Makes, copies and frees pixmaps, for backing pictures and the pictures of controls.
#pragma once

#include <X11/IntrinsicP.h>

#include "pure/size.h"

namespace grx {

/// The X window of a widget, None when it has none yet. It is read from the widget itself because drawing asks for
/// every primitive.
inline Window window_of(Widget w) {
    return w != nullptr ? w->core.window : None;
}

/// A pixmap of the screen's depth, which the caller frees.
Pixmap make_pixmap(Drawable on, Size size);

/// The size that the server tells; 0 x 0 for a pixmap that is gone.
Size pixmap_size(Pixmap pixmap);

/// Frees a pixmap; does nothing for None.
void free_pixmap(Pixmap pixmap);

/// Tells the server whether to keep what a window shows: `mode` is one of X. Does nothing for None.
void set_backing_store(Window window, int mode);

void fill_drawable(Drawable target, GC context, Size size);

void copy_drawable(Drawable from, Drawable to, GC context, Size size);

} // namespace grx
