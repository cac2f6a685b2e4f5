// Opens the connection to the X server and handles its errors, for the start of the library and its teardown.
#pragma once

namespace grx {

/// Connects to the display of the environment; false when there is none.
bool open_display();

/// Installs the library's handlers of protocol errors and of the end of the connection. They call the application's.
void install_error_handlers();

/// Installs that of the end of the connection alone, which may be done before it is open.
void install_end_handler();

} // namespace grx
