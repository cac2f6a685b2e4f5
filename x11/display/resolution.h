// The resolution of the screen, for fonts.
#pragma once

namespace grx {

/// Dots per inch, by the resources of the display, else by the size of the screen. There must be a display.
int screen_resolution();

} // namespace grx
