// The marks of ticked menu entries, and the column left of the texts that they stand in.
#pragma once

#include <X11/Intrinsic.h>

namespace grx {

/// Gives the menu of an entry a column for marks, unless it has one.
void make_mark_column(Widget entry);

/// Shows a mark beside an entry whose menu has the column, or takes it away.
void show_mark(Widget entry, bool ticked);

} // namespace grx
