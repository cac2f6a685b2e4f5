// The menus of the bar, for the list of what is alive.
#pragma once

namespace grx {

/// Tells of the menus from now on.
void tell_of_menus();

} // namespace grx
