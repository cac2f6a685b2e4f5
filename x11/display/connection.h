// Opens the connection to the X server and handles its errors, for the start of the library and its teardown.
#pragma once

#include "host_t.h"

namespace grx {

/// Connects to the display of the environment; false when there is none.
bool open_display();

/// Closes the display and ends the toolkit's application context with all that stands in it. The globals of the connection are
/// what they were before it was opened, and the application's error handlers are in force again.
void close_display();

/// True once the server is gone: the process ends when the application's handler has returned.
bool connection_lost();

/// Installs the library's handlers of protocol errors and of the end of the connection. They call the application's.
void install_error_handlers();

/// The text of the last protocol error, empty when there was none. The library keeps it.
const char* last_x_error_text();

/// The number of protocol errors since the process began.
INT x_error_count();

} // namespace grx
