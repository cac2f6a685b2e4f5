// What the files that make controls, with and without numbers, have in common.
#pragma once

#include <X11/Intrinsic.h>

#include "host_t.h"

namespace grx {

inline constexpr INT kNoParent = -1; // the answer when no control can be made where the application wants it

/// Gives a widget a number of the base, which says when it dies; GRX_AUCUN, with a line printed, when all are taken.
INT register_control_widget(Widget w, INT type, INT no_fo, INT nofen);

} // namespace grx
