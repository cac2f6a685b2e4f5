// The connection to the X server: the globals that describe it, and what becomes of its errors.
#pragma once

#include "host_t.h"

namespace grx {

/// Connects to the display of the environment; false when there is none.
bool open_display();

/// The library's handlers of protocol errors and of the end of the connection; they call the application's.
void install_error_handlers();

const char* last_x_error_text(); // text of the last protocol error, "" = none yet
INT x_error_count();

} // namespace grx
