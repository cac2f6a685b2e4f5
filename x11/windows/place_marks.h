// Marks in the hints of windows that say who chose their place, for window managers.
#pragma once

#include <X11/Intrinsic.h>

#include "host_t.h"

namespace grx {

/// Marks the place of a shell as nobody's, the program's or the user's (GRX_PLACE_...). One request; none when the mark
/// is there already.
void mark_place(Widget shell, INT mark);

} // namespace grx
