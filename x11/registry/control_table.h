// The table of controls: widget and record of each number.
#pragma once

#include <X11/Intrinsic.h>

#include "xt_mot_t.h"

namespace grx {

/// The two tables, every number free. False when memory is short.
bool allocate_control_table();
void free_control_table();
bool has_control_table();
INT control_table_size(); // numbers in the table, GRX_NB_BOUTONS once it was allocated, 0 before

STRUCTURE_BOUTON* control_record(INT nobou); // null when the table has no such entry
void clear_control_entry(INT nobou);         // its number is free again

/// The widget of a number died. True when the number goes with it, else it stays taken until somebody frees it.
bool control_widget_died(INT nobou, Widget w);

void free_with_widget(INT nobou);                   // a number that the application does not know
STRUCTURE_BOUTON* button_record_at(XtPointer data); // the entry that callback data points at; null when it is none

} // namespace grx
