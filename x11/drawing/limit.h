// The rectangle that the drawing into one window is held to, for everything that draws there. The drawing context gets it
// when something is drawn into that window, and loses it when anything else is.
#pragma once

#include <X11/Xlib.h>

#include "pure/area.h"
#include "host_t.h"

namespace grx {

/// True while there is a limit.
extern bool limit_set;

/// More than any window.
inline constexpr Area kEverywhere{INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX};

/// Gives the drawing context the limit when it is this window's, takes it off otherwise.
void change_limit(Window window);

inline void hold_to_limit(Window window) {
    if (limit_set) change_limit(window);
}

/// The same as a rectangle of the server's. False when there is none for this window.
bool limit_rectangle(Window window, XRectangle& rectangle);

/// What the drawing into this window is held to.
Area limit_of(Window window);

} // namespace grx
