// What the shells of an application that says who it is tell the window manager, for the start of the library and for
// the making of windows.
#pragma once

#include <X11/Intrinsic.h>

#include "host_t.h"

namespace grx {

/// Has every shell told to the window manager from now on, before it is shown, when the application has said who it is
/// or has an icon. Does nothing else, and nothing twice.
void begin_manners();

/// Notes what shells are told besides, by a file that keeps it: called for each shell that is realised from now on.
void tell_shells(void (*tell)(Widget shell));

/// True for a shell that a window manager sees.
bool is_managed_shell(Widget w);

/// The number of the window that has a shell of its own, GRX_AUCUN for the shells of dialogs.
INT number_of_shell(Widget shell);

/// Tells the kind of a window (GRX_GENRE_...).
void tell_kind(Window window, INT kind);

} // namespace grx
