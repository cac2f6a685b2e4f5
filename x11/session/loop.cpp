// The digitizing loop, which the application calls again and again, and its other ways of waiting for events: each call
// handles events of the toolkit and gives one record.
#include <X11/Intrinsic.h>

#include "display/pixmaps.h"
#include "system/trace.h"
#include "toolkit/late_layout.h"
#include "events/added_records.h"
#include "events/queue.h"
#include "events/record.h"
#include "registry/window_table.h"
#include "menus/menu_keys.h"
#include "session/loop_state.h"
#include "session/loop.h"
#include "session/nested_loop.h"
#include "session/forget_session.h"
#include "session/source_records.h"
#include "session/sources.h"
#include "session/wake_up.h"
#include "grx_plus_boucle.h"
#include "grx_plus_erreurs.h"
#include "xt_bou_f.h"
#include "xt_ent_f.h"
#include "xt_fen_f.h"
#include "xt_ini_f.h"
#include "xt_mot_t.h"
#include "xt_uti_f.h"

namespace {

INT fenetre_a_digitaliser = GRX_AUCUN;
unsigned int idle_turn = 0; // of idle work and the toolkit's work procedures

constexpr DOUBLE kCreationWait = 1.0; // seconds

INT deliver_nothing(GRX_EVENEMENT* evt) {
    if (evt != nullptr) evt->type_evenement = GRX_EVT_AUCUN;
    return 0;
}

// The first of the additions' records. The pending record of the contract stays empty.
INT deliver_added(GRX_EVENEMENT* evt) {
    GRX_EVENEMENT record;
    if (!grx::take_added(record)) return deliver_nothing(evt);
    grx::deliver_source(record);
    if (evt != nullptr) *evt = record;
    return 1;
}

// Whether the caller gets the additions' records, or leaves them waiting because it loses what it reads.
enum class Added : unsigned char { Taken, Left };

bool added_ready(Added added) {
    return added == Added::Taken && grx::added_waiting();
}

INT deliver(GRX_EVENEMENT* evt, Added added) {
    if (evt_global.type_evenement == GRX_EVT_AUCUN && added_ready(added)) return deliver_added(evt);
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

// False when the caller gets nothing, whatever was posted.
using Handling = bool (*)(XEvent&);

bool handle_any(XEvent& event) {
    const INT closing = grx::is_close_request(event) ? renderer_window_closing(event) : GRX_AUCUN;
    if (closing == GRX_AUCUN)
        XtDispatchEvent(&event);
    else
        grx::post(evt_global.destruction, GRX_EVT_DESTRUCTION, closing);
    return true;
}

Window restricted_to() {
    return grx::window_of(grx_recherche_shell(grx::window_widget_if_any(grx_recup_fenetre_a_digitaliser())));
}

bool handle_restricted(XEvent& event) {
    const Window only = restricted_to();
    const bool foreign = grx::is_close_request(event) && only != None && event.xclient.window != only;
    if (foreign)
        grx_bipbip(0, 0);
    else
        XtDispatchEvent(&event);
    return !foreign;
}

// For an empty queue: a timer that is due may still post something. What the toolkit has noted of the library's own
// descriptor is taken as well, or it would say for ever that something is pending.
INT poll_timers(GRX_EVENEMENT* evt, Added added) {
    if (grx::watched_set() >= 0)
        grx::run_due_sources();
    else
        grx::run_due_timers();
    return evt_global.type_evenement != GRX_EVT_AUCUN || added_ready(added) ? deliver(evt, added)
                                                                            : deliver_nothing(evt);
}

// Posts the end of a window that happened while a dialog had the loop. False when there is none.
bool post_untold_end() {
    const INT nofen = grx::take_untold_end();
    if (nofen == 0) return false;
    grx::post(evt_global.destruction, GRX_EVT_DESTRUCTION, nofen);
    return true;
}

bool something_posted() {
    return evt_global.type_evenement != GRX_EVT_AUCUN || grx::added_waiting();
}

// The toolkit runs work procedures of the application only when it is about to wait: every eighth time it does so for a
// moment, instead of idle work.
bool turn_of_work_procedures(INT attente) {
    constexpr unsigned int turns = 8;
    constexpr int64_t moment = grx::kMillisecond / 5;
    if (attente == 0 || ++idle_turn % turns != 0) return false;
    grx::set_alarm(grx::Alarm::Limit, grx::moment_now() + moment);
    return true;
}

// For an empty queue: idle work, when the toolkit has nothing to do either.
INT deliver_idle(GRX_EVENEMENT* evt, INT attente) {
    if (!grx::has_idle_work()) return 0;
    grx::run_due_sources();
    if (something_posted()) return deliver(evt, Added::Taken);
    if (!grx::queue_empty() || turn_of_work_procedures(attente)) return 0;
    if (evt != nullptr) *evt = grx::source_record(GRX_EVT_OISIF, grx::next_idle_work());
    return 1;
}

// Timers, descriptors and idle work, once no event of the display waits. 0 when there is nothing of them.
INT deliver_from_sources(GRX_EVENEMENT* evt, INT attente) {
    if (!grx::has_sources() || !grx::queue_empty()) return 0;
    grx::resume_sources();
    grx::serve_sources();
    return grx::added_waiting() ? deliver_added(evt) : deliver_idle(evt, attente);
}

INT take_event(GRX_EVENEMENT* evt, Handling handling, Added added) {
    XEvent event;
    XtAppNextEvent(contexte, &event);
    if (event.type == KeyPress && !grx::was_forwarded(event.xkey)) grx::Memo_event = event;
    const bool told = handling(event);
    grx::resume_sources(); // an event of the display has had its turn
    return told ? deliver(evt, added) : deliver_nothing(evt);
}

INT digitise(GRX_EVENEMENT* evt, INT attente, Handling handling, Added added = Added::Taken) {
    if (x11_disp == nullptr) return deliver_nothing(evt);
    const grx::InLoop inside;
    grx::lay_out_pending();
    grx_init_evenement(&evt_global);
    grx::forget_delivered_detail();
    if (post_untold_end()) return deliver(evt, added);
    if (added_ready(added)) return deliver_added(evt);
    if (added == Added::Taken && deliver_from_sources(evt, attente) != 0) return 1;
    if (attente == 0 && grx::queue_empty()) return poll_timers(evt, added);
    return take_event(evt, handling, added);
}

// Handles what waits now, at most: what comes meanwhile has time until the next call.
INT digitise_waiting(GRX_EVENEMENT* evt, Handling handling) {
    for (int left = XEventsQueued(x11_disp, QueuedAfterFlush); left >= 0; --left) {
        if (digitise(evt, 0, handling) != 0) return 1;
    }
    return 0;
}

// The limit is set again after each event, for what handles one may wait as well.
INT digitise_until(GRX_EVENEMENT* evt, int64_t end, Handling handling) {
    INT result = 0;
    do {
        grx::set_alarm(grx::Alarm::Limit, end);
        result = digitise(evt, 1, handling);
    } while (result == 0 && grx::moment_now() < end && x11_disp != nullptr);
    return result;
}

INT digitise_for(GRX_EVENEMENT* evt, INT delai, Handling handling) {
    deliver_nothing(evt);
    if (x11_disp == nullptr) return grx::refused(GRX_ECHEC_AFFICHAGE, "delai", delai);
    if (delai == 0) return digitise_waiting(evt, handling);
    if (!grx::start_wake_up()) return GRX_ECHEC_MEMOIRE;
    const int64_t end = delai > 0 ? grx::moment_now() + delai * grx::kMillisecond : grx::kNever;
    const int64_t outer = grx::set_alarm(grx::Alarm::Limit, grx::kNever);
    const INT result = digitise_until(evt, end, handling);
    grx::set_alarm(grx::Alarm::Limit, outer);
    return result;
}

} // namespace

namespace grx {

XEvent Memo_event{};

bool poll_event(GRX_EVENEMENT& evt) {
    return digitise(&evt, 0, handle_any, Added::Left) != 0;
}

void forget_digitized() {
    fenetre_a_digitaliser = GRX_AUCUN;
    idle_turn = 0;
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

INT grx_digitaliseur_delai(GRX_EVENEMENT* evt, INT delai) {
    return digitise_for(evt, delai, handle_any);
}

INT grx_digitaliseur_fenetre_delai(GRX_EVENEMENT* evt, INT delai) {
    return digitise_for(evt, delai, handle_restricted);
}

INT grx_attend_creation_fenetre(INT nofen) {
    if (x11_disp == nullptr) return 0;
    const bool existed = grx_recup_objet_fen(nofen) != nullptr;
    DOUBLE top = 0.0;
    chrono_top(&top);
    while (chrono_delai(top, kCreationWait) == 0) {
        GRX_EVENEMENT evt{};
        const bool found = grx::poll_event(evt);
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
