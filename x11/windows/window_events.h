// What happens to windows becomes event records.
#pragma once

#include <X11/Intrinsic.h>

namespace grx {

/// Event handler: keys over a widget without a number are keys over the window around it.
void key_over_part(Widget part, XtPointer, XEvent* event, Boolean* go_on);

} // namespace grx
