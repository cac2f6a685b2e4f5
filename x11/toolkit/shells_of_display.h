// All shells of the display, for the end of the library's work, and whether the toolkit is at work itself.
#pragma once

namespace grx {

/// True while the toolkit dispatches an event, destroys a widget or calls what those entail: widgets cannot be destroyed at once
/// then.
bool toolkit_is_busy();

/// Destroys every shell of the display, also those of the application, and the toolkit's own objects.
void destroy_shells();

} // namespace grx
