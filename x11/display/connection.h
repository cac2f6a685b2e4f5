// Opens the connection to the X server and handles its errors, for the start of the library and its teardown.
#pragma once

#include "host_t.h"

namespace grx {

/// Connects to the display of the environment; false when there is none.
bool open_display();

/// Installs the library's handlers of protocol errors and of the end of the connection. They call the application's.
void install_error_handlers();

/// The text of the last protocol error, empty when there was none. The library keeps it.
const char* last_x_error_text();

/// The number of protocol errors since the process began.
INT x_error_count();

} // namespace grx
