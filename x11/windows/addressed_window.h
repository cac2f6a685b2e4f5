// The window that a number of an addition names, with the answer for a number that is of no use.
#pragma once

#include <X11/Intrinsic.h>

#include "host_t.h"

namespace grx {

/// Finds the shell of a window that has one of its own; 1, or the code of why not.
INT find_own_shell(INT nofen, Widget& shell);

} // namespace grx
