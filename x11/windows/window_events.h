// Handlers that turn what happens to windows into event records.
#pragma once

#include <X11/Intrinsic.h>

namespace grx {

/// Event handler for widgets without a number, as in panels: a key over one counts as a key over the window around it.
void key_over_part(Widget part, XtPointer, XEvent* event, Boolean* go_on);

} // namespace grx
