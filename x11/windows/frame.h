// Where a window stands on the screen: the place of the window manager's frame.
#pragma once

#include <X11/Intrinsic.h>

#include "host_t.h"

namespace grx {

void request_geometry(Widget shell, XtGeometryMask what, Position x, Position y);

/// The toolkit's idea of a shell's place can be wrong, and it asks for no move to where it believes the shell to be.
void move_for_certain(Widget shell, Position x, Position y, XtGeometryMask besides);

bool in_frame(Widget shell); // a window manager put it into a frame of its own
void frame_place(
    Widget shell, INT& x, INT& y);           // root coordinates of the window manager's frame, or of the window itself
void move_shell(Widget shell, INT x, INT y); // as grx_deplace_fenetre does, without raising it

} // namespace grx
