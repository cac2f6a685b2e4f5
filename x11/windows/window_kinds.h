// Makes the work widget of a window, for the steps of its creation.
#pragma once

#include <X11/Intrinsic.h>

#include "windows/window_build.h"

namespace grx {

/// Makes the widget that the kind of the window wants. False when it could not be made.
bool make_work_widget(WindowBuild& b, Widget container);

} // namespace grx
