// Makes the shell and the main window of a window, for the steps of its creation.
#pragma once

#include <X11/Intrinsic.h>

#include "windows/window_build.h"

namespace grx {

/// The icon of windows that have no other. It lives as long as the library.
Pixmap minimised_icon();

/// Makes the shell: a transient one when the window has a parent, else a top-level one.
void make_shell(WindowBuild& b);

/// Makes the main window, which arranges the menu bar and the work widget.
void make_main_window(WindowBuild& b, Widget container);

} // namespace grx
