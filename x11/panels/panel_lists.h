// Lists in panels: what those need who put one there.
#pragma once

#include <X11/Intrinsic.h>

#include "host_t.h"

namespace grx {

/// Entries that the application has for a list; 0 for an unknown key.
INT host_list_length(INT clef);

/// The list in a slot of Tab_liste, null when there is none.
Widget panel_list(INT slot);

/// Notes in Tab_liste how many entries a list has, and which are selected: none when memory is short for that.
void note_panel_list(INT slot);

} // namespace grx
