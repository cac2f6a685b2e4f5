// Which entry of a menu is highlighted, for the texts that tell what it does.
#pragma once

#include <X11/Intrinsic.h>

#include "host_t.h"

namespace grx {

/// The function number of the entry that is highlighted, GRX_AUCUN when none is.
INT armed_entry();

/// Has `changed` told the number when another entry is highlighted, GRX_AUCUN when none is any more; null for nobody.
void watch_armed_entry(void (*changed)(INT no_fo));

/// Follows an entry that was made.
void follow_armed(Widget entry, INT no_fo);

} // namespace grx
