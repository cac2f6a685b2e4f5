// Turns what happens to windows into event records for the application.
#include "windows/window_events.h"

#include <X11/Intrinsic.h>
#include <X11/StringDefs.h>
#include <Xm/Command.h>
#include <Xm/ScrollBar.h>
#include <Xm/Xm.h>

#include "pure/axis.h"
#include "pure/size.h"
#include "pure/text.h"
#include "display/pixmaps.h"
#include "toolkit/args.h"
#include "toolkit/compound_string.h"
#include "toolkit/late_layout.h"
#include "toolkit/widgets.h"
#include "events/held_button.h"
#include "events/record.h"
#include "registry/window_table.h"
#include "drawing/backing.h"
#include "drawing/layers.h"
#include "menus/menu_keys.h"
#include "windows/shell_place.h"
#include "windows/forget_windows.h"
#include "xt_ent_f.h"
#include "xt_fen_f.h"
#include "xt_gfx_f.h"
#include "xt_ini_t.h"
#include "xt_mot_t.h"

namespace {

void absorb_exposures(Window window) {
    XEvent event;
    while (XCheckWindowEvent(x11_disp, window, ExposureMask, &event)) XtDispatchEvent(&event);
}

INT height_of_work(const STRUCTURE_FENETRE& window) {
    return grx::height_of(grx_recup_objet_fen(window.nofen));
}

template <class Record>
void fill_size(Record& record) {
    grx_recup_taille_fenetre(record.nofen, &record.largeur, &record.hauteur);
}

// The records of exposure, move and resize all have position and size.
template <class Record>
void post_placed(Record& member, INT type, INT nofen) {
    Record& record = grx::post(member, type, nofen);
    grx_recup_position_fenetre(nofen, &record.x, &record.y);
    fill_size(record);
}

void post_crossing(INT type, INT nofen) {
    GRX_SORTIE& record = grx::post(evt_global.sortie, type, nofen);
    record.nobou = record.no_fo = GRX_AUCUN;
}

GRX_DIGIT& post_pointer(INT type, INT nofen, INT x, INT y) {
    GRX_DIGIT& record = grx::post(evt_global.souris_bouge, type, nofen);
    record.nobou = record.no_fo = record.carac = GRX_AUCUN;
    record.x = x;
    record.y = y;
    return record;
}

void on_expose(STRUCTURE_FENETRE& window) {
    const INT nofen = window.nofen;
    grx_supprime_tous_evenement_pour_fenetre(GRX_EVT_AFFICHAGE, nofen);
    const bool first = window.affiche == 0;
    window.affiche = 1;
    const bool host_draws = first || window.type != GRX_FEN_GRAPHIQUE || grx::show_whole_backing(nofen) != 0;
    if (!host_draws) return;
    grx::take_layers_off(nofen);
    post_placed(evt_global.affichage, GRX_EVT_AFFICHAGE, nofen);
}

// A nested window has its own size, any other has that of its shell.
grx::Size current_size(INT nofen) {
    Widget outer = grx::outer_widget(nofen);
    return grx::size_of(outer != nullptr ? outer : grx::shell_of(nofen));
}

void on_configure(STRUCTURE_FENETRE& window) {
    const INT nofen = window.nofen;
    const grx::Size size = current_size(nofen);
    if (size == grx::known_size(nofen)) {
        post_placed(evt_global.deplacement, GRX_EVT_DEPLACEMENT, nofen);
        return;
    }
    grx::set_known_size(nofen, size);
    grx_supprime_tous_evenement_pour_fenetre(GRX_EVT_AFFICHAGE, nofen);
    if (window.type == GRX_FEN_GRAPHIQUE) grx_recree_bitmap_backingstore(nofen);
    post_placed(evt_global.chgt_taille, GRX_EVT_CHGT_TAILLE, nofen);
}

void on_button(const STRUCTURE_FENETRE& window, const XButtonEvent& event, INT type) {
    const INT y = grx::turn_over_y(height_of_work(window), event.y);
    GRX_DIGIT& record = post_pointer(type, window.nofen, event.x, y);
    record.bouton = static_cast<INT>(event.button);
    record.etat = grx::modifier_bits(event.state);
    grx::held_in_window = type == GRX_EVT_BOUTON_APPUI ? record.bouton : 0;
}

void on_motion(const STRUCTURE_FENETRE& window, const XMotionEvent& event) {
    const INT y = grx::turn_over_y(height_of_work(window), event.y);
    post_pointer(GRX_EVT_SOURIS_BOUGE, window.nofen, event.x, y).bouton = grx::held_in_window;
}

void on_key(const STRUCTURE_FENETRE& window, const XEvent& event, Boolean* go_on) {
    const INT key = grx::key_for_application(event, go_on);
    if (key == 0) return;
    // KEEP: y of a key counts from the top, that of the pointer from the bottom.
    GRX_DIGIT& record = post_pointer(GRX_EVT_CARAC_APPUI, window.nofen, event.xkey.x, event.xkey.y);
    record.bouton = 0;
    record.carac = key;
}

// Another client has destroyed the window. Its widgets are destroyed too, and that tells the application.
void on_destroy(const STRUCTURE_FENETRE& window, const XDestroyWindowEvent& event) {
    Widget outer = grx::whole_of(window.nofen);
    Widget doomed = grx::outer_widget(window.nofen) != nullptr ? outer : grx::shell_of(window.nofen);
    const bool own = event.window == grx::window_of(grx_recup_objet_fen(window.nofen));
    if (own && doomed != nullptr && !grx::is_dying(doomed)) XtDestroyWidget(doomed);
}

void dispatch(STRUCTURE_FENETRE& window, XEvent& event, Boolean* go_on) {
    switch (event.type) {
    case Expose: on_expose(window); break;
    case ConfigureNotify: on_configure(window); break;
    case UnmapNotify: grx::post(evt_global.iconification, GRX_EVT_ICONIFICATION, window.nofen); break;
    case MapNotify: grx::post(evt_global.desiconification, GRX_EVT_DESICONIF, window.nofen); break;
    case DestroyNotify: on_destroy(window, event.xdestroywindow); break;
    case EnterNotify: post_crossing(GRX_EVT_ENTREE, window.nofen); break;
    case LeaveNotify: post_crossing(GRX_EVT_SORTIE, window.nofen); break;
    case ButtonPress: on_button(window, event.xbutton, GRX_EVT_BOUTON_APPUI); break;
    case ButtonRelease: on_button(window, event.xbutton, GRX_EVT_BOUTON_RELACHE); break;
    case MotionNotify: on_motion(window, event.xmotion); break;
    case KeyPress: on_key(window, event, go_on); break;
    default: break;
    }
}

// The record of a widget's window, null when the number is free by now or another window's.
STRUCTURE_FENETRE* live_window(Widget w, XtPointer client) {
    STRUCTURE_FENETRE* const window = grx::window_record_at(client);
    if (window == nullptr) return nullptr;
    Widget own = grx_recup_objet_fen(window->nofen);
    return own != nullptr && (own == w || grx_recherche_shell(own) == w) ? window : nullptr;
}

// The window around a widget, GRX_AUCUN for a widget in a dialog of the library.
INT window_around(Widget part) {
    for (Widget w = XtParent(part); w != nullptr && !XtIsShell(w); w = XtParent(w)) {
        const INT nofen = grx_recup_indice_fen(w);
        if (nofen != MAXOBJETFEN) return nofen;
    }
    return GRX_AUCUN;
}

} // namespace

namespace grx {

void key_over_part(Widget part, XtPointer, XEvent* event, Boolean* go_on) {
    const INT nofen = window_around(part);
    if (nofen == GRX_AUCUN) return;
    Widget work = grx_recup_objet_fen(nofen);
    // The pointer may be over another widget than the one that has the keyboard.
    Widget under = XtWindowToWidget(x11_disp, event->xkey.window);
    Position x = 0, y = 0, work_x = 0, work_y = 0;
    XtTranslateCoords(under != nullptr ? under : part, 0, 0, &x, &y);
    XtTranslateCoords(work, 0, 0, &work_x, &work_y);
    XEvent key = *event;
    key.xkey.window = window_of(work);
    key.xkey.x += x - work_x;
    key.xkey.y += y - work_y;
    on_key(*window_record(nofen), key, go_on);
}

void forget_held_button() {
    held_in_window = 0;
}

} // namespace grx

extern "C" {

INT grx_supprime_tous_evenement_pour_fenetre(INT type, INT nofen) {
    Widget w = grx_recup_objet_fen(nofen);
    if (x11_disp == nullptr || w == nullptr) return 0;
    grx::lay_out_pending();
    supprime_gestion_expose_pour_fenetre(nofen);
    XSync(x11_disp, False);
    const Window window = grx::window_of(w);
    const bool pending = XEventsQueued(x11_disp, QueuedAlready) != 0;
    if (type == GRX_EVT_AFFICHAGE && pending && window != None) absorb_exposures(window);
    ajoute_gestion_expose_pour_fenetre(nofen);
    return 0;
}

void grx_gere_evenement_scroll_menu(Widget, XtPointer, XtPointer) {}

void grx_gere_evenements_fenetre(Widget w, XtPointer client, XEvent* ev, Boolean* cont) {
    if (w != nullptr && ev != nullptr && grx::is_news_of_a_child(*ev)) grx::forget_place(w);
    STRUCTURE_FENETRE* const window = live_window(w, client);
    if (window != nullptr && ev != nullptr) dispatch(*window, *ev, cont);
}

void grx_scroll_change(Widget w, XtPointer client, XtPointer call) {
    if (w == nullptr || client == nullptr || call == nullptr) return;
    const INT nofen = *static_cast<INT*>(client);
    GRX_EXEC_FONCTION& record = grx::post(evt_global.exec_fonction, GRX_EVT_ECHELLE, nofen);
    record.valeur = static_cast<XmScrollBarCallbackStruct*>(call)->value;
    const auto orientation = grx::resource<unsigned char>(w, XmNorientation, XmVERTICAL);
    record.nobou = orientation == XmHORIZONTAL ? GRX_SCROLL_HORIZONTAL : GRX_SCROLL_VERTICAL;
}

void grx_shell_est_detruit(Widget w, XtPointer client, XtPointer) {
    if (w == nullptr || client == nullptr) return;
    const INT nofen = *static_cast<INT*>(client);
    grx::post(evt_global.destruction, GRX_EVT_DESTRUCTION, nofen);
    // The number may be another window's by now.
    if (grx_recup_objet_fen(nofen) == w) grx_libere_indice_objet_fen(nofen);
}

void grx_reponse_a_message(Widget, XtPointer client, XtPointer call) {
    if (client == nullptr || call == nullptr) return;
    GRX_REPONSE_QUESTION& record = grx::post(evt_global.reponse_question, GRX_EVT_REPONSE, *static_cast<INT*>(client));
    const int reason = static_cast<XmAnyCallbackStruct*>(call)->reason;
    if (reason == XmCR_OK) record.reponse = 1;
    if (reason == XmCR_CANCEL) record.reponse = 2;
}

void grx_commande_entree(Widget, XtPointer client, XtPointer call) {
    if (client == nullptr || call == nullptr) return;
    const grx::PlainText text(static_cast<XmCommandCallbackStruct*>(call)->value);
    GRX_COMMANDE_ENTREE& record = grx::post(evt_global.commande_entree, GRX_EVT_COMMANDE, *static_cast<INT*>(client));
    grx::copy_text(record.chaine, text.c_str());
}

INT supprime_gestion_expose_pour_fenetre(INT nofen) {
    Widget w = grx_recup_objet_fen(nofen);
    if (w == nullptr) return 0;
    XtRemoveEventHandler(w, ExposureMask, False, grx_gere_evenements_fenetre, grx::window_record(nofen));
    return 0;
}

INT ajoute_gestion_expose_pour_fenetre(INT nofen) {
    Widget w = grx_recup_objet_fen(nofen);
    if (w == nullptr) return 0;
    XtAddEventHandler(w, ExposureMask, False, grx_gere_evenements_fenetre, grx::window_record(nofen));
    return 0;
}
}
