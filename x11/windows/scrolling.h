// Scrolled windows around the work widget of a window that is being made.
#pragma once

#include <X11/Intrinsic.h>

#include "windows/window_build.h"

namespace grx {

bool make_scrolling(WindowBuild& b, Widget container);

void finish_scrolled(const WindowBuild& b, INT* number);

} // namespace grx
