// X protocol errors of the process, counted before whatever handler the code under test installed sees them.
#pragma once

#include <X11/Xlib.h>

#include <string>

namespace grxtest {

// Number of errors so far. With a connection it is first brought up to date, so that errors of requests already made
// are in.
int x_error_count(Display* display = nullptr);

// "BadWindow (invalid Window parameter), request 4.0", or nothing.
std::string last_x_error();

void forget_x_errors();

// Errors of this connection are neither counted nor shown to anybody: it is the test's own.
void ignore_x_errors_of(const Display* display);

} // namespace grxtest
