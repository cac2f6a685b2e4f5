// What the making of controls needs of their looks.
#pragma once

#include "host_t.h"

namespace grx {

/// Forgets that a control is shown pressed, because its number may be given out again.
void forget_look(INT nobou);

} // namespace grx
