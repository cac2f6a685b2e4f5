// The part of the screen that panels of the desktop leave free, for all that places or centres windows.
#pragma once

#include "pure/placement.h"
#include "pure/size.h"

namespace grx {

/// The work area as the window manager tells it, y counted from the top; the whole screen when it tells none. It asks
/// the server: one round trip, and one more when several desktops have areas of their own.
Box work_area();

/// Moves the place of a frame of this size, for a new window, into the work area; does nothing unless the application
/// wants its windows there.
void keep_in_work_area(int32_t& x, int32_t& y, Size frame);

} // namespace grx
