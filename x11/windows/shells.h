// The shell and the main window of a window that is being made.
#pragma once

#include <X11/Intrinsic.h>

#include "windows/window_build.h"

namespace grx {

void make_shell(WindowBuild& b);

void make_main_window(WindowBuild& b, Widget container);

} // namespace grx
