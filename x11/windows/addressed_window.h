// The window that a number of an addition names, with the answer for a number that is of no use.
#pragma once

#include <X11/Intrinsic.h>

#include "host_t.h"

namespace grx {

/// The shell of a window that has one of its own, else null; says nothing in the trace.
Widget own_shell(INT nofen);

/// Finds the shell of a window that has one of its own; 1, or the code of why not, told to the trace.
INT find_own_shell(INT nofen, Widget& shell, const char* argument = "nofen");

} // namespace grx
