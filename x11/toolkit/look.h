// What every window and widget shares: visual, depth, colormap and the application's colour.
#pragma once

#include <X11/Intrinsic.h>

#include <optional>

#include "toolkit/args.h"
#include "host_t.h"

namespace grx {

/// Shells, menus and popups need all three, or the server refuses their window on a visual other than its default.
void set_screen(Args& args);

/// The application's colour as a pixel: a valid colour index stands for its pixel, a larger value is a pixel itself.
std::optional<Pixel> application_pixel();

/// Background of a window or control: its own colour index, else the application's colour, else the toolkit's.
void set_background(Args& args, INT colour_index);

void set_foreground(Args& args, INT colour_index);

} // namespace grx
