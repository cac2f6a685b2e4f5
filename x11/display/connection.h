// Opens the connection to the X server and handles its errors, for the start of the library and its teardown.
#pragma once

namespace grx {

/// Where to connect to, and as whom.
struct Opening {
    const char* display;           // null: the one of the environment
    const char* name;              // of the application, in resources
    const char* application_class; // null: none
};

/// Connects to the display; false when there is none.
bool open_display(const Opening& how);

/// Closes the display and ends the toolkit's application context with all that stands in it. The globals of the connection are
/// what they were before it was opened, and the application's error handlers are in force again.
void close_display();

/// True once the server is gone: the process ends when the application's handler has returned.
bool connection_lost();

/// Installs the library's handlers of protocol errors and of the end of the connection. They call the application's.
void install_error_handlers();

/// Installs that of the end of the connection alone, which may be done before it is open.
void install_end_handler();

} // namespace grx
