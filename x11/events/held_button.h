// The mouse button that was pressed in a window and not released there yet: windows tell it with motions, and menus that
// take the release take it as well.
#pragma once

#include "host_t.h"

namespace grx {

inline INT held_in_window = 0; // 0 when none is

} // namespace grx
