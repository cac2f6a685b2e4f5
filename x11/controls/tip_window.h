// The window of a tip: over all others, without frame and focus.
#pragma once

namespace grx {

/// Shows a text below a place of the screen, or above it where there is no room, whole on the screen.
void show_tip_window(const char* text, int x, int y);

void hide_tip_window();

} // namespace grx
