// Tips, for what ends them besides the pointer.
#pragma once

namespace grx {

/// A key was pressed: the tip goes, and does not come again before the pointer has left its control.
void end_tip();

} // namespace grx
