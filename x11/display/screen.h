// Size and depth of the screen.
#pragma once

#include <X11/Xlib.h>

namespace grx {

/// More than 8 planes: pixels say their colours themselves.
bool deep_screen();

Window root_window();

} // namespace grx
