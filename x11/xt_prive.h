// What the library's sources share among themselves. Nothing here is exported; the tests reach it through the
// static library.
#pragma once

#include <X11/Intrinsic.h>

#include "toolkit/widgets.h"
#include "display/connection.h"
#include "menus/menu_keys.h"
#include "menus/menu_keys_state.h"
#include "xt_bou_t.h"
#include "xt_ent_t.h"
#include "xt_fen_t.h"
#include "xt_gfx_t.h"
#include "xt_ini_t.h"
#include "xt_mot_t.h"

namespace grx {

// -- colours (xt_ini03)
extern INT system_pix[GRX_NB_COULEURS]; // pixel of each system position: icon, reserved, drawing, rendering colours
extern INT icone_pix[GRX_NB_COULEURS];  // pixel of each icon colour
extern INT pal_pix[GRX_NB_COULEURS];    // system position of each pixel, 8 planes only

// -- start-up (xt_ini01)
void give_context(Widget shell); // grx_init_gc for a window of the library's: its drawing context goes with it

// -- window base (xt_fen01)
extern Widget* Tableau_objet_fen; // widget of each window number

/// The widget of a window number, null when it names none. Drawing asks for every primitive.
inline Widget window_widget(INT nofen) {
    return nofen >= 1 && nofen < MAXOBJETFEN && Tableau_objet_fen != nullptr ? Tableau_objet_fen[nofen] : nullptr;
}

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

// -- window events (xt_fen02)
bool in_frame(Widget shell); // a window manager put it into a frame of its own
void frame_place(
    Widget shell, INT& x, INT& y);           // root coordinates of the window manager's frame, or of the window itself
void move_shell(Widget shell, INT x, INT y); // as grx_deplace_fenetre does, without raising it

void key_over_part(Widget part, XtPointer, XEvent* event,
    Boolean* go_on); // event handler: keys over a widget without a number are keys over the window around it

// -- events (xt_ent01, xt_ent02)
INT code_of_key(const XKeyEvent& key); // whatever locks and layout group are on; 0: none
extern XEvent Memo_event;              // last key press

// -- drawing (xt_gfx01)
extern GRX_ATTRIBUTS_TRACER memo_attrib; // attributes last applied to g_c
extern INT grx_trace_memoire, grx_trace_memoire_bouton;
extern Pixmap *image_redess, *image_redess_bouton;
extern Drawable win_bidon, win_bidon_bouton;
void context_changed(); // g_c was changed outside grx_affecte_gc: send everything with the next drawing
void colours_changed(); // pixels of colour indices changed: send the colours again
void forget_drawing_target(const Pixmap* image);

// -- buttons (xt_bou01)
extern INT Premier_bouton;
STRUCTURE_BOUTON* button_record_at(XtPointer data); // the entry that callback data points at; null when it is none

void free_with_widget(INT nobou);                // a number that the application does not know
void forget_look(INT nobou);                     // a number given out again is not shown pressed
void note_encoding(INT nobou, const char* text); // the text that a field was given last

// -- pictures of controls (xt_gfx02)
extern Pixmap Mypixmap;                     // picture of the last label made without a number
void share_picture(INT nobou);              // its release takes it off every label that shows it
void give_pixmap(INT nobou, Pixmap pixmap); // to the record; labels that showed the former one show it, which is freed
Pixmap pixmap_of_bitmap(char* nom_fic, Drawable like); // picture of a bitmap file, the caller's; None when unreadable

} // namespace grx
