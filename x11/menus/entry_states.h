// What is set for function numbers, on the entries that carry them: for those who make and end entries, and for their
// keys.
#pragma once

#include <X11/Intrinsic.h>

#include "host_t.h"

namespace grx {

/// Notes an entry by its number, and shows on it what is set for that. Its place for forget_menu_entry, negative when memory
/// is short.
int note_menu_entry(INT number, Widget entry);

/// Of an entry that is destroyed.
void forget_menu_entry(int place);

/// Forgets what is not to outlive the bar.
void forget_unkept_states();

/// True for an entry whose number was made insensitive.
bool is_switched_off(Widget entry);

} // namespace grx
