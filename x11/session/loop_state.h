// What the tests look into of the digitizing loop.
#pragma once

#include <X11/Xlib.h>

namespace grx {

extern XEvent Memo_event; // the last key press

} // namespace grx
