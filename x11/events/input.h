// Where the pointer and the keys are, and the codes that the application knows keys by.
#pragma once

#include <X11/Xlib.h>

#include "host_t.h"

namespace grx {

INT code_of_key(const XKeyEvent& key); // whatever locks and layout group are on; 0: none

} // namespace grx
