// Titles of windows in UTF-8, for window managers of desktops.
#pragma once

#include <X11/Intrinsic.h>

namespace grx {

/// Tells the titles of a shell in UTF-8, beside those that the toolkit tells. Two requests; no round trip.
void set_net_titles(Widget shell);

/// True when one of these arguments changes a title.
bool changes_title(const Arg* args, Cardinal count);

} // namespace grx
