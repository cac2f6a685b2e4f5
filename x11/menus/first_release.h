// The release of a button that is held while a context menu opens under it.
#pragma once

#include <X11/Intrinsic.h>

namespace grx {

/// To be called when the menu has come to the screen and nobody else has the pointer: a button that was held chooses where
/// it is released, unless it is released where it was or at once; the menu then stays.
void await_first_release(Widget menu);

/// The menu is gone.
void forget_first_release();

} // namespace grx
