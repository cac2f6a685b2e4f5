// The palettes: which colours there are before the server is asked for any.
#pragma once

#include "host_t.h"

namespace grx {

/// Counts as set by the application, inside what any screen could give.
INT drawing_colours();

INT rendering_colours();

} // namespace grx
