// How many colours the palettes have, for the colormap and the colours.
#pragma once

#include "host_t.h"

namespace grx {

/// The numbers of colours that the application set, limited to what a screen could give.
INT drawing_colours();

INT rendering_colours();

} // namespace grx
