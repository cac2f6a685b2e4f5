// The table of windows: widget, record and sizes of each number, for all rooms that work on windows.
#pragma once

#include <X11/Intrinsic.h>

#include <span>

#include "pure/size.h"
#include "system/trace.h"
#include "xt_fen_t.h"
#include "xt_mot_t.h"

namespace grx {

extern Widget* Tableau_objet_fen; // widget of each window number

/// The widget of a window number, null when it has none. It is inline because drawing asks for every primitive.
inline Widget window_widget(INT nofen) {
    Widget w = nofen >= 1 && nofen < MAXOBJETFEN && Tableau_objet_fen != nullptr ? Tableau_objet_fen[nofen] : nullptr;
    if (w == nullptr) note_unknown("window", nofen);
    return w;
}

/// The same where the number may be none, or free: the trace does not tell.
Widget window_widget_if_any(INT nofen);

/// Enters a new window under its number. `outer` is the outermost widget of a nested window, null for any other.
void occupy(INT nofen, INT kind, Widget work, Widget outer);

/// The entry of a number, null when the table has none. The table owns it.
STRUCTURE_FENETRE* window_record(INT nofen);

/// The entry that the data of a callback points at, null when it points at none.
STRUCTURE_FENETRE* window_record_at(XtPointer data);

/// The saved picture of a number, null when the table has no such entry.
GRX_SAUVE_ZONE* save_slot(INT nofen);

/// The size that the window had at its last event (old_lar, old_hau).
Size known_size(INT nofen);
void set_known_size(INT nofen, Size size);

/// True when the backing picture was freed while its id is still stored.
bool holds_dead_pixmap(INT nofen);
void mark_dead_pixmap(INT nofen, bool dead);

/// The rank of the window in the order of making; 0 when the number is free.
INT window_rank(INT nofen);

/// The outermost widget of a nested window, null for any other.
Widget outer_widget(INT nofen);

/// The scrolled window that was made for the window, null when it has none.
Widget own_scrolled_window(INT nofen);

/// Room for the place of a window's shell as text. It lives as long as the library, because the toolkit keeps its
/// address.
std::span<char> geometry_text(INT nofen);

/// The shell of a window, null when the number has none.
Widget shell_of(INT nofen);

/// The outermost widget of a nested window, with its scroll bars; the work widget of any other window.
Widget whole_of(INT nofen);

INT height_of(Widget w);

} // namespace grx
