// Finds and moves windows on the screen, for windows and panels. The place that counts is that of the frame that the
// window manager puts around a window.
#pragma once

#include <X11/Intrinsic.h>

#include "host_t.h"

namespace grx {

/// Asks the toolkit to move a shell to a place in root coordinates, to raise it, or both, as the mask says.
void request_geometry(Widget shell, XtGeometryMask what, Position x, Position y);

/// Moves a shell to a place in root coordinates even when the toolkit believes it to be there. The toolkit may be
/// wrong, and it asks for no move to the place that it believes in. `besides` is added to the mask of the request.
void move_for_certain(Widget shell, Position x, Position y, XtGeometryMask besides);

/// True when a window manager has put the shell into a frame.
bool in_frame(Widget shell);

/// Gives the root coordinates of the frame, or of the window itself when it has no frame. Without a window they are
/// left as they are.
void frame_place(Widget shell, INT& x, INT& y);

/// Moves a shell as grx_deplace_fenetre does, with y counted upwards, but does not raise it.
void move_shell(Widget shell, INT x, INT y);

} // namespace grx
