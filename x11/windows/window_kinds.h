// The work widget of each kind of window.
#pragma once

#include <X11/Intrinsic.h>

#include "windows/window_build.h"

namespace grx {

bool make_work_widget(WindowBuild& b, Widget container);

} // namespace grx
