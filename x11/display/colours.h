// From a colour index to a pixel and back; the application changes and reads colours here.
#pragma once

#include <X11/Xlib.h>

#include "pure/palette.h"
#include "xt_ini_t.h"

namespace grx {

extern INT system_pix[GRX_NB_COULEURS]; // pixel of each system position: icon, reserved, drawing, rendering colours
extern INT icone_pix[GRX_NB_COULEURS];  // pixel of each icon colour
extern INT pal_pix[GRX_NB_COULEURS];    // system position of each pixel, 8 planes only

inline constexpr INT kNoColour = -1;

bool in_colour_table(INT index);

/// Where the rendering colours begin and end among the system positions.
void set_rendering_bounds(INT first, INT last);

Shifts component_shifts();

XColor x_colour(INT pixel, const INT* rgb);

} // namespace grx
