// What is set for function numbers, on the entries that carry them: for those who make and end entries, and for their
// keys.
#pragma once

#include <X11/Intrinsic.h>

#include "host_t.h"

namespace grx {

/// Notes an entry that was made by its number, and shows on it what is set for that. Before anything was set or asked for,
/// nothing is noted: entries are looked for then. False when memory is short.
bool note_menu_entry(INT number, Widget entry);

/// Forgets what is not to outlive the bar.
void forget_unkept_states();

/// True for an entry whose number was made insensitive.
bool is_switched_off(Widget entry);

} // namespace grx
