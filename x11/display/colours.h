// Turns colour indices into pixels and back, for all drawing. A system position counts all colours of the library:
// icon, reserved, drawing, rendering.
#pragma once

#include <X11/Xlib.h>

#include "pure/palette.h"
#include "xt_ini_t.h"

namespace grx {

extern INT system_pix[GRX_NB_COULEURS]; // pixel of each system position
extern INT pal_pix[GRX_NB_COULEURS];    // system position of each pixel, 8 planes only

/// Stands in the tables where there is no pixel or no position.
inline constexpr INT kNoColour = -1;

bool in_colour_table(INT index);

/// Sets the first and the last system position of the rendering colours.
void set_rendering_bounds(INT first, INT last);

/// The places of red, green and blue in the pixels of a deep screen.
Shifts component_shifts();

/// A cell and its colour as the server takes them. The components of `rgb` are in 0..255.
XColor x_colour(INT pixel, const INT* rgb);

} // namespace grx
