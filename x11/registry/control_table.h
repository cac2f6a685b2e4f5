// The table of controls: widget and record of each number, and which is the active one, for all rooms that work on
// controls.
#pragma once

#include <X11/Intrinsic.h>

#include "xt_mot_t.h"

namespace grx {

/// Allocates the two tables with every number free. False when memory is short.
bool allocate_control_table();
void free_control_table();
bool has_control_table();

/// The number of entries: GRX_NB_BOUTONS once the table was allocated, 0 before.
INT control_table_size();

/// True when a number is left.
bool has_free_control();

/// The entry of a number, null when the table has none. The table owns it.
STRUCTURE_BOUTON* control_record(INT nobou);

/// The widget of a number, null when it has none any more. The trace does not tell.
Widget control_widget_if_any(INT nobou);

/// True while the number is not free, also when its widget is gone.
bool control_number_taken(INT nobou);

/// The rank of the control in the order of making; 0 when the number is free.
INT control_rank(INT nobou);

/// Clears an entry of the table and frees its number. The table must exist and have the number.
void clear_control_entry(INT nobou);

/// Notes that the widget of a number died. True when the number must be freed with it; else it stays taken until the
/// application frees it.
bool control_widget_died(INT nobou, Widget w);

/// Marks a number that the application does not know: it is freed when its widget dies.
void free_with_widget(INT nobou);

/// The entry that the data of a callback points at, null when it points at none.
STRUCTURE_BOUTON* control_record_at(XtPointer data);

} // namespace grx
