// Whether a modal dialog keeps the user from a widget.
#pragma once

#include <X11/Intrinsic.h>

namespace grx {

/// False while a modal dialog is open in which the widget does not stand.
bool is_within_reach(Widget w);

} // namespace grx
