// The digitizing loop, which the application calls again and again, and its other ways of waiting for events: each call
// handles events of the toolkit and gives one record.
#include <X11/Intrinsic.h>

#include "display/pixmaps.h"
#include "toolkit/late_layout.h"
#include "events/added_records.h"
#include "events/queue.h"
#include "events/record.h"
#include "registry/window_table.h"
#include "menus/menu_keys.h"
#include "session/loop_state.h"
#include "session/nested_loop.h"
#include "session/forget_session.h"
#include "xt_bou_f.h"
#include "xt_ent_f.h"
#include "xt_fen_f.h"
#include "xt_ini_f.h"
#include "xt_mot_t.h"
#include "xt_uti_f.h"

namespace {

INT fenetre_a_digitaliser = GRX_AUCUN;

bool leaving_added = false;

constexpr DOUBLE kCreationWait = 1.0; // seconds

bool added_due() {
    return !leaving_added && grx::added_waiting();
}

INT deliver_nothing(GRX_EVENEMENT* evt) {
    if (evt != nullptr) evt->type_evenement = GRX_EVT_AUCUN;
    return 0;
}

// The first of the additions' records. The pending record of the contract stays empty.
INT deliver_added(GRX_EVENEMENT* evt) {
    GRX_EVENEMENT record;
    if (!grx::take_added(record)) return deliver_nothing(evt);
    if (evt != nullptr) *evt = record;
    return 1;
}

INT deliver(GRX_EVENEMENT* evt) {
    if (evt_global.type_evenement == GRX_EVT_AUCUN && added_due()) return deliver_added(evt);
    if (evt != nullptr) *evt = evt_global;
    return evt_global.type_evenement != GRX_EVT_AUCUN ? 1 : 0;
}

// The number of the 3-D renderer's window that this request closes, GRX_AUCUN for other windows. The application closes
// such a window with the renderer's code, so it is told and the toolkit is not.
INT renderer_window_closing(const XEvent& event) {
    Widget shell = grx_recherche_shell(XtWindowToWidget(x11_disp, event.xclient.window));
    const STRUCTURE_FENETRE* const window = grx::window_record(grx_recup_indice_fen(shell));
    return window != nullptr && window->fen_opengl != 0 ? window->nofen : GRX_AUCUN;
}

INT dispatch(XEvent& event, GRX_EVENEMENT* evt) {
    XtDispatchEvent(&event);
    return deliver(evt);
}

INT handle_any(XEvent& event, GRX_EVENEMENT* evt) {
    const INT closing = grx::is_close_request(event) ? renderer_window_closing(event) : GRX_AUCUN;
    if (closing == GRX_AUCUN) return dispatch(event, evt);
    evt_global.destruction.type_evenement = GRX_EVT_DESTRUCTION;
    evt_global.destruction.nofen = closing;
    return deliver(evt);
}

Window restricted_to() {
    return grx::window_of(grx_recherche_shell(grx_recup_objet_fen(grx_recup_fenetre_a_digitaliser())));
}

INT handle_restricted(XEvent& event, GRX_EVENEMENT* evt) {
    const Window only = restricted_to();
    const bool foreign = grx::is_close_request(event) && only != None && event.xclient.window != only;
    if (!foreign) return dispatch(event, evt);
    grx_bipbip(0, 0);
    return deliver_nothing(evt);
}

using Handling = INT (*)(XEvent&, GRX_EVENEMENT*);

// For an empty queue: a timer that is due may still post something.
INT poll_timers(GRX_EVENEMENT* evt) {
    grx::run_due_timers();
    return evt_global.type_evenement != GRX_EVT_AUCUN || added_due() ? deliver(evt) : deliver_nothing(evt);
}

// Posts the end of a window that happened while a dialog had the loop. False when there is none.
bool post_untold_end() {
    const INT nofen = grx::take_untold_end();
    if (nofen == 0) return false;
    grx::post(evt_global.destruction, GRX_EVT_DESTRUCTION, nofen);
    return true;
}

INT digitise(GRX_EVENEMENT* evt, INT attente, Handling handling) {
    if (x11_disp == nullptr) return deliver_nothing(evt);
    const grx::InLoop inside;
    grx::lay_out_pending();
    grx_init_evenement(&evt_global);
    grx::forget_delivered_detail();
    if (post_untold_end()) return deliver(evt);
    if (added_due()) return deliver_added(evt);
    if (attente == 0 && grx::queue_empty()) return poll_timers(evt);
    XEvent event;
    XtAppNextEvent(contexte, &event);
    if (event.type == KeyPress && !grx::was_forwarded(event.xkey)) grx::Memo_event = event;
    return handling(event, evt);
}

} // namespace

namespace grx {

XEvent Memo_event{};

bool digitise_leaving_added(GRX_EVENEMENT& evt) {
    leaving_added = true;
    const bool found = grx_digitaliseur(&evt, 0) != 0;
    leaving_added = false;
    return found;
}

void forget_digitized() {
    fenetre_a_digitaliser = GRX_AUCUN;
    Memo_event = XEvent{};
}

} // namespace grx

extern "C" {

INT grx_affecte_fenetre_a_digitaliser(INT nofen) {
    fenetre_a_digitaliser = nofen;
    return 0;
}

INT grx_recup_fenetre_a_digitaliser(void) {
    return fenetre_a_digitaliser;
}

INT grx_digitaliseur(GRX_EVENEMENT* evt, INT attente) {
    return digitise(evt, attente, handle_any);
}

INT grx_digitaliseur_fenetre(GRX_EVENEMENT* evt, INT attente) {
    return digitise(evt, attente, handle_restricted);
}

INT grx_attend_creation_fenetre(INT nofen) {
    if (x11_disp == nullptr) return 0;
    const bool existed = grx_recup_objet_fen(nofen) != nullptr;
    DOUBLE top = 0.0;
    chrono_top(&top);
    while (chrono_delai(top, kCreationWait) == 0) {
        GRX_EVENEMENT evt{};
        const bool found = grx::digitise_leaving_added(evt);
        if (found && evt.type_evenement == GRX_EVT_AFFICHAGE && evt.affichage.nofen == nofen) break;
        if (existed && grx_recup_objet_fen(nofen) == nullptr) break; // the user or another client has ended the window
        if (!found && grx::queue_empty()) grx::rest_until_input(grx::kPollRest);
    }
    return 0;
}

INT grx_envoie_dernier_evenement_a_bouton(INT nobou) {
    const Window window = grx::window_of(grx_recup_objet_bout(nobou));
    if (window == None || grx::Memo_event.xkey.window == window) return 0;
    grx::Memo_event.xkey.window = window;
    grx_force_focus_sur_bouton(nobou);
    XSendEvent(x11_disp, window, False, KeyPressMask, &grx::Memo_event);
    return 0;
}

INT grx_gere_application(void) {
    const grx::InLoop inside;
    if (contexte != nullptr && x11_disp != nullptr) XtAppMainLoop(contexte);
    return 0;
}
}
