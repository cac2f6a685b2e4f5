// What the library must know of the screen.
#pragma once

#include <X11/Xlib.h>

namespace grx {

/// True for more than 8 planes, where a pixel is its colour and no cells are asked for.
bool deep_screen();

Window root_window();

} // namespace grx
