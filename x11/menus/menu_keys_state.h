// What the tests look into of the menu keys.
#pragma once

#include <X11/Xlib.h>

namespace grx {

extern XEvent evt_menu; // last key event that no control took

} // namespace grx
