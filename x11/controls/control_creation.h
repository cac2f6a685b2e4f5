// What the two files that make controls, with and without numbers, have in common.
#pragma once

#include "host_t.h"

namespace grx {

inline constexpr INT kNoParent = -1; // the answer when no control can be made where the application wants it

} // namespace grx
