// List controls in which several entries can be selected, for the function that says so.
#pragma once

#include "host_t.h"

namespace grx {

/// Has each choice in a list control told, also when several can be selected.
void tell_several_choices(INT nobou);

} // namespace grx
