// What of the application is under the pointer, for tips and the help key.
#pragma once

#include <X11/Intrinsic.h>

#include "host_t.h"
#include "xt_ini_t.h"

namespace grx {

struct UnderPointer {
    int x = 0; // on the screen
    int y = 0;
    unsigned int state = 0;  // modifiers and mouse buttons held
    Widget widget = nullptr; // the innermost; null when the pointer is over nothing of this application
    INT nofen = GRX_AUCUN;   // of the nearest window around it
    INT nobou = GRX_AUCUN;   // of the control that it is, or is a part of
};

/// Asks the server, level by level: an insensitive widget is found like any other.
UnderPointer under_pointer();

/// The place and the state of the pointer alone, in one answer of the server.
UnderPointer pointer_alone();

/// The nearest window around a widget, GRX_AUCUN when there is none.
INT window_of_widget(Widget w);

/// The control that a widget is, or is a part of, GRX_AUCUN when there is none.
INT control_of_widget(Widget w);

} // namespace grx
