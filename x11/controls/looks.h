// Colours, icons and the pressed look of controls.
#pragma once

#include "host_t.h"

namespace grx {

void forget_look(INT nobou); // a number given out again is not shown pressed

} // namespace grx
