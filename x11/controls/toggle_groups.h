// Exclusive groups of toggles, for those who make them, read them and choose in them.
#pragma once

#include <X11/Intrinsic.h>

#include "host_t.h"

namespace grx {

/// The toolkit's box around an exclusive group, by the group's widget or that of one of its toggles; null for others.
Widget radio_box_of(Widget w);

/// The pressed toggle, from 0; GRX_AUCUN when there is none.
INT chosen_toggle(Widget box);

/// Presses one toggle, from 0, and releases the others; GRX_AUCUN releases all. False for one that is not there.
bool choose_toggle(Widget box, INT choice);

/// Gives a toggle the text that its description was too short for, and the size for it.
void show_long_text(Widget toggle, const char* text);

} // namespace grx
