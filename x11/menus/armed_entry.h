// Which entry of a menu is highlighted, for the texts that tell what it does.
#pragma once

#include <X11/Intrinsic.h>

#include "host_t.h"

namespace grx {

/// From now on it is known which entry is highlighted, until the library shuts down. Before, entries have no callbacks for it.
void follow_armed_entries();

/// The function number of the entry that is highlighted, GRX_AUCUN when none is or entries are not followed.
INT armed_entry();

/// Has `changed` told the number when another entry is highlighted, GRX_AUCUN when none is any more; null for nobody. Follows
/// the entries for that.
void watch_armed_entry(void (*changed)(INT no_fo));

/// Of an entry that was made.
void note_armed(Widget entry, INT no_fo);

} // namespace grx
