// Makes the scrolled window around the work widget of a window that is being made, for the steps of its creation.
#pragma once

#include <X11/Intrinsic.h>

#include "windows/window_build.h"

namespace grx {

/// Makes the scrolled window when the window wants one. False when it could not be made.
bool make_scrolling(WindowBuild& b, Widget container);

/// Installs the callbacks of the scroll bars, which get `number`, and colours the scrolled window.
void finish_scrolled(const WindowBuild& b, INT* number);

} // namespace grx
