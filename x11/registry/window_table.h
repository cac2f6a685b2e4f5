// The table of windows: widget, record and sizes of each number, and which are the main and the active one.
#pragma once

#include <X11/Intrinsic.h>

#include <span>

#include "pure/size.h"
#include "xt_fen_t.h"
#include "xt_mot_t.h"

namespace grx {

extern Widget* Tableau_objet_fen; // widget of each window number

/// The widget of a window number, null when it names none. Drawing asks for every primitive.
inline Widget window_widget(INT nofen) {
    return nofen >= 1 && nofen < MAXOBJETFEN && Tableau_objet_fen != nullptr ? Tableau_objet_fen[nofen] : nullptr;
}

/// Gives a number to a window that was made. `outer` is the outermost widget of a nested one, else null.
void occupy(INT nofen, INT kind, Widget work, Widget outer);

STRUCTURE_FENETRE* window_record(INT nofen);         // null when the base has no such entry
STRUCTURE_FENETRE* window_record_at(XtPointer data); // the entry that callback data points at; null when it is none
GRX_SAUVE_ZONE* save_slot(INT nofen);                // null when the base has no such entry
Size known_size(INT nofen);                          // last size seen of a window (old_lar, old_hau)
void set_known_size(INT nofen, Size size);
bool holds_dead_pixmap(INT nofen); // the backing picture was released, its id is still stored
void mark_dead_pixmap(INT nofen, bool dead);
Widget outer_widget(INT nofen);        // outermost widget made for a nested window, else null
Widget own_scrolled_window(INT nofen); // that the window was made in, null when there is none
INT* stored_width(INT nofen);          // largeur_fen, hauteur_fen: null out of range
INT* stored_height(INT nofen);

/// Room for the place of a window's shell as text: the toolkit keeps its address.
std::span<char> geometry_text(INT nofen);

Widget shell_of(INT nofen);

/// A nested window with its scroll bars; the work widget of any other.
Widget whole_of(INT nofen);

INT height_of(Widget w);

} // namespace grx
