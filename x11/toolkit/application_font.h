// Loads the font of the application for start-up, and lets it go.
#pragma once

namespace grx {

/// Gives `fontlist` and `fontstruct` the font of the settings; does nothing when they have it already.
void load_application_font();

/// Frees it, when no widget is left.
void forget_application_font();

} // namespace grx
