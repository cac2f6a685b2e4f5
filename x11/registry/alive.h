// Windows, controls and their pictures, for the list of what is alive.
#pragma once

namespace grx {

/// Tells of windows and controls from now on.
void tell_of_windows_and_controls();

} // namespace grx
