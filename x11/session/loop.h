// What the digitizing loop remembers of the keyboard.
#pragma once

#include <X11/Xlib.h>

namespace grx {

extern XEvent Memo_event; // the last key press

} // namespace grx
