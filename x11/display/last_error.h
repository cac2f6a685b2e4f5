// Remembers the last error of the display, for the application and the trace.
#pragma once

#include <X11/Xlib.h>

#include "host_t.h"

namespace grx {

/// Counts an error and remembers it.
void note_x_error(Display* display, const XErrorEvent& error);

/// The text of the last protocol error, empty when there was none. The library keeps it.
const char* last_x_error_text();

/// The number of protocol errors since the library was started.
INT x_error_count();

} // namespace grx
