// The digitizing loop, and double clicks.
#include "xt_prive.h"

#include <X11/Intrinsic.h>
#include <sys/time.h>

#include "session/nested_loop.h"
#include "events/record.h"
#include "events/queue.h"
#include "toolkit/look.h"
#include "pure/axis.h"
#include "pure/double_click.h"
#include "xt_bou_f.h"
#include "xt_ent_f.h"
#include "xt_fen_f.h"
#include "xt_ini_f.h"
#include "xt_uti_f.h"

namespace grx {

XEvent Memo_event{};

} // namespace grx

namespace {

constexpr unsigned long kMicrosecondsPerUnit = 1000;
constexpr INT kReach = 10;            // pixels that the pointer may move between two clicks
constexpr int kPollRest = 1;          // milliseconds
constexpr DOUBLE kCreationWait = 1.0; // seconds

INT Dep_double_click_x = 0;
INT Dep_double_click_y = 0;
unsigned long TEMPO_CLIC = 200 * kMicrosecondsPerUnit;

INT deliver(GRX_EVENEMENT* evt) {
    if (evt != nullptr) *evt = evt_global;
    return evt_global.type_evenement != GRX_EVT_AUCUN ? 1 : 0;
}

INT deliver_nothing(GRX_EVENEMENT* evt) {
    if (evt != nullptr) evt->type_evenement = GRX_EVT_AUCUN;
    return 0;
}

// A window drawn by a 3-D renderer is closed by its own code: the application is told, the toolkit is not.
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

// Nothing waits in the queue: a timer may still have posted something.
INT poll_timers(GRX_EVENEMENT* evt) {
    grx::run_due_timers();
    return evt_global.type_evenement != GRX_EVT_AUCUN ? deliver(evt) : deliver_nothing(evt);
}

// The end of a window that came while a dialog had the loop.
bool post_untold_end() {
    const INT nofen = grx::take_untold_end();
    if (nofen == 0) return false;
    grx::post(evt_global.destruction, GRX_EVT_DESTRUCTION, nofen);
    return true;
}

INT digitise(GRX_EVENEMENT* evt, INT attente, Handling handling) {
    if (x11_disp == nullptr) return deliver_nothing(evt);
    grx::lay_out_pending();
    grx_init_evenement(&evt_global);
    if (post_untold_end()) return deliver(evt);
    if (attente == 0 && grx::queue_empty()) return poll_timers(evt);
    XEvent event;
    XtAppNextEvent(contexte, &event);
    if (event.type == KeyPress && !grx::was_forwarded(event.xkey)) grx::Memo_event = event;
    return handling(event, evt);
}

uint64_t microseconds_now() {
    timeval now{};
    gettimeofday(&now, nullptr);
    constexpr uint64_t million = 1000000;
    return static_cast<uint64_t>(now.tv_sec) * million + static_cast<uint64_t>(now.tv_usec);
}

grx::ClickInput input_kind(INT type) {
    switch (type) {
    case GRX_EVT_SOURIS_BOUGE: return grx::ClickInput::Motion;
    case GRX_EVT_BOUTON_APPUI: return grx::ClickInput::Press;
    case GRX_EVT_BOUTON_RELACHE: return grx::ClickInput::Release;
    case GRX_EVT_EXEC_FONCTION: return grx::ClickInput::Activation;
    default: return grx::ClickInput::Other;
    }
}

grx::SecondClick second_click(const GRX_EVENEMENT& evt, uint64_t start) {
    const uint64_t now = microseconds_now();
    const GRX_DIGIT& pointer = evt.souris_bouge;
    return {input_kind(evt.type_evenement), pointer.x, pointer.y, pointer.bouton, now > start ? now - start : 0};
}

} // namespace

extern "C" {

INT grx_digitaliseur(GRX_EVENEMENT* evt, INT attente) {
    return digitise(evt, attente, handle_any);
}

INT grx_digitaliseur_fenetre(GRX_EVENEMENT* evt, INT attente) {
    return digitise(evt, attente, handle_restricted);
}

INT grx_init_double_clic(void) {
    INT width = 0, height = 0;
    grx_recup_taille_ecran(&width, &height);
    Dep_double_click_x = kReach;
    Dep_double_click_y = height > 0 ? static_cast<INT>(kReach * (static_cast<DOUBLE>(width) / height)) : kReach;
    return grx_reinit_double_clic();
}

INT grx_reinit_double_clic(void) {
    const INT constant = grx_recup_cst_dc();
    TEMPO_CLIC = constant > 0 ? static_cast<unsigned long>(constant) * kMicrosecondsPerUnit : 0;
    return 0;
}

INT grx_double_clic(INT mode, INT x, INT y, INT bouton) {
    const grx::FirstClick first{mode, x, y, bouton, Dep_double_click_x, Dep_double_click_y, TEMPO_CLIC};
    const uint64_t start = microseconds_now();
    if (x11_disp == nullptr) return static_cast<INT>(grx::ClickOutcome::TimeOut);
    for (;;) {
        GRX_EVENEMENT evt{};
        const bool found = grx_digitaliseur(&evt, 0) != 0;
        const auto outcome = grx::judge_click(first, second_click(evt, start));
        if (outcome) return static_cast<INT>(*outcome);
        if (!found && grx::queue_empty()) grx::rest_until_input(kPollRest);
    }
}

INT grx_recup_position_absolue_souris(INT* x, INT* y) {
    const INT height = grx_recup_hau_ecran();
    if (x11_disp == nullptr) return height;
    Window root = None, child = None;
    int root_x = 0, root_y = 0, own_x = 0, own_y = 0;
    unsigned int state = 0;
    XQueryPointer(x11_disp, grx::root_window(), &root, &child, &root_x, &root_y, &own_x, &own_y, &state);
    if (x != nullptr) *x = root_x;
    if (y != nullptr) *y = grx::turn_over_y(height, root_y);
    return height;
}

INT grx_attend_creation_fenetre(INT nofen) {
    if (x11_disp == nullptr) return 0;
    const bool existed = grx_recup_objet_fen(nofen) != nullptr;
    DOUBLE top = 0.0;
    chrono_top(&top);
    while (chrono_delai(top, kCreationWait) == 0) {
        GRX_EVENEMENT evt{};
        const bool found = grx_digitaliseur(&evt, 0) != 0;
        if (found && evt.type_evenement == GRX_EVT_AFFICHAGE && evt.affichage.nofen == nofen) break;
        if (existed && grx_recup_objet_fen(nofen) == nullptr) break; // closed, or destroyed by another client
        if (!found && grx::queue_empty()) grx::rest_until_input(kPollRest);
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
}
