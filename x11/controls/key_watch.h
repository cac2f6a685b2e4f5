// Key presses anywhere in the application, before anybody has them: they end tips and may ask for help.
#pragma once

#include <X11/Xlib.h>

namespace grx {

/// Sees each press, and whether it is the key of a menu entry; takes what it returns true for.
using KeyWatcher = bool (*)(const XKeyEvent& event, bool of_entry);

/// From now on; again changes nothing. Two watch at most, the first one first.
void watch_key_presses(KeyWatcher watcher);

} // namespace grx
