// The server's RENDER extension, for letters and pictures with soft edges: whether it can be used on this screen, and the
// pictures by which it knows targets and colours.
#pragma once

#include <X11/IntrinsicP.h>
#include <X11/extensions/Xrender.h>

namespace grx {

/// True when the server has it and pixels of this screen are colours. The server is asked at the first call.
bool has_render();

/// The picture of a target; `owner` is the widget of a window, null for a pixmap. It is kept until the target goes.
Picture target_picture(Drawable target, Widget owner);

/// Holds what is drawn on a target's picture to a rectangle; null: no longer.
void hold_target_picture(Picture target, const XRectangle* rectangle);

/// A picture that is one colour everywhere, that of a pixel.
Picture colour_picture(unsigned long pixel);

/// To be called before a pixmap is freed.
void forget_target_picture(Drawable target);

} // namespace grx
