// Drop-down choices: the menu that holds the choices, and the box that shows the current one.
#pragma once

#include <X11/Intrinsic.h>

#include "toolkit/args.h"

namespace grx {

bool can_hold_children(Widget w);

bool is_pulldown(Widget w);

/// What menus have in common: the application's colour, and a visual that their own shells need.
void set_menu_look(Args& args);

/// What dialogs have in common: the same, and the application's fonts, which their children take from them.
void set_dialog_look(Args& args);

/// A menu that is not on show; null when it cannot be made.
Widget make_pulldown(Widget parent, const char* name);

/// The box of a menu, managed, in the place that `args` gives; `shown` is the choice shown at first, null for the
/// toolkit's own. A menu that is no pulldown, or a choice that is not in it, breaks the toolkit: it is left out.
/// Once chosen in, the box has the keyboard: `on_key` gets what is typed.
Widget make_option_menu(Widget parent, const char* name, const char* title, Widget menu, Widget shown,
    XtEventHandler on_key, Args args = {});

} // namespace grx
