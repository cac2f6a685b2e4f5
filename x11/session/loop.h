// The digitizing loop: one event of the toolkit handled, one record given to the application.
#pragma once

#include <X11/Xlib.h>

namespace grx {

extern XEvent Memo_event; // last key press

} // namespace grx
