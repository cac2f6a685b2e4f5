// Lists of dialogs, for those who change their entries.
#pragma once

#include <X11/Intrinsic.h>

#include "host_t.h"

namespace grx {

/// The list in a slot, null when there is none.
Widget dialog_list(INT ind);

/// Room for what may be selected of so many entries; none is made once the application has freed the slot. False when
/// memory is short.
bool make_room_in_dialog_list(INT ind, int count);

/// Notes which entries are selected.
void note_dialog_list(INT ind);

} // namespace grx
