// Menus that are open.
#pragma once

#include <X11/Intrinsic.h>

namespace grx {

/// True while a menu of a menu bar is open.
bool has_open_menu(Widget bar);

/// Closes the menus of a menu bar and gives keyboard and pointer back.
void close_menus(Widget bar);

} // namespace grx
