// Turns key presses into the key codes of the application, for the handlers of windows and controls.
#pragma once

#include <X11/Xlib.h>

#include "host_t.h"

namespace grx {

/// The key code of a press, 0 when it has none. Locks and layout group make no difference.
INT code_of_key(const XKeyEvent& key);

} // namespace grx
