// Lists in panels: what those need who put one there.
#pragma once

#include "host_t.h"

namespace grx {

/// Entries that the application has for a list; 0 for an unknown key.
INT host_list_length(INT clef);

} // namespace grx
