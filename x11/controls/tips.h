// Tips of controls, for those who put something else before the user.
#pragma once

namespace grx {

/// Takes a tip off the screen; it does not come again before the pointer has left its control.
void end_tip();

} // namespace grx
