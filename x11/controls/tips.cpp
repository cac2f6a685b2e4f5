// Tips of controls: when the pointer rests on one, sensitive or not, its text is shown. The toolkit gives insensitive
// widgets no event, so crossings are seen before it dispatches them.
#include "controls/tips.h"

#include <X11/Intrinsic.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <utility>

#include "controls/key_watch.h"
#include "controls/own_text.h"
#include "controls/tip_window.h"
#include "controls/under_pointer.h"
#include "display/pixmaps.h"
#include "grx_plus_aide.h"
#include "grx_plus_erreurs.h"
#include "menus/menu_widgets.h"
#include "menus/posted_menu.h"
#include "pure/text.h"
#include "system/never_destroyed.h"
#include "system/shut_down.h"
#include "system/table.h"
#include "system/trace.h"
#include "toolkit/args.h"
#include "toolkit/control_parts.h"
#include "toolkit/modality.h"
#include "xt_bou_f.h"
#include "xt_ini_t.h"

namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

struct Tip {
    grx::OwnText text;
    Widget widget; // of the control, null when it has no tip
};

// The control that the pointer is in, when it has a tip.
struct Hover {
    INT nobou = GRX_AUCUN;
    INT shown = 0;
    int x = 0; // where the pointer was seen last
    int y = 0;
    Clock::time_point since{}; // it rests there, or the tip is shown
    INT delay = 0;
    INT filler = 0; // no gap: one that was forgotten is that of a fresh process, byte by byte
    XtIntervalId timer = 0;
};

constexpr milliseconds kSoon{400}; // after a tip has gone, that of a neighbour comes at once
constexpr INT kNeighbourDelay = 60;
constexpr unsigned long kShortestLook = 20, kLongestLook = 150, kShownLook = 400;
constexpr unsigned int kMouseButtons = Button1Mask | Button2Mask | Button3Mask | Button4Mask | Button5Mask;
constexpr EventMask kCrossings = EnterWindowMask | LeaveWindowMask;

grx::NeverDestroyed<grx::Block<Tip>> lasting_tips;
grx::Block<Tip>& tips = lasting_tips.value; // by control number
Hover hover;
Clock::time_point gone_at{};
bool tips_on = true;
INT delay_before = GRX_BULLE_APPARITION;
INT time_shown = GRX_BULLE_DUREE;

XtEventDispatchProc dispatch_enter = nullptr;
XtEventDispatchProc dispatch_leave = nullptr;
XtEventDispatchProc dispatch_press = nullptr;

Tip* tip_of(INT nobou) {
    if (nobou < 0 || grx::as_index(nobou) >= tips.size()) return nullptr;
    Tip& tip = tips[grx::as_index(nobou)];
    return tip.widget != nullptr ? &tip : nullptr;
}

// -- showing

void stop_looking() {
    if (hover.timer != 0) XtRemoveTimeOut(hover.timer);
    hover.timer = 0;
}

void hide() {
    if (std::exchange(hover.shown, 0) == 0) return;
    grx::hide_tip_window();
    gone_at = Clock::now();
}

void leave() {
    stop_looking();
    hide();
    hover.nobou = GRX_AUCUN;
}

// Whether the user can do something with the control that the tip is of.
bool is_out_of_reach() {
    if (grx::open_context_menu() != nullptr || grx::has_open_menu(grx::menu_bar())) return true;
    return !grx::is_within_reach(tip_of(hover.nobou)->widget);
}

void show(const grx::UnderPointer& at) {
    hover.shown = 1;
    hover.since = Clock::now();
    grx::show_tip_window(tip_of(hover.nobou)->text.c_str(), at.x, at.y);
}

bool passed(INT ms) {
    return Clock::now() - hover.since >= milliseconds(ms);
}

// Looks whether the pointer rests; false when there is nothing more to look for.
bool look_before() {
    const grx::UnderPointer at = grx::pointer_alone();
    if ((at.state & kMouseButtons) != 0 || is_out_of_reach()) return false;
    if (at.x != hover.x || at.y != hover.y) {
        hover.x = at.x;
        hover.y = at.y;
        hover.since = Clock::now();
        if (hover.delay > 0) return true;
    }
    if (!passed(hover.delay)) return true;
    if (grx::under_pointer().nobou != hover.nobou) return false;
    show(at);
    return true;
}

// Leaving may pass unseen, as when the window goes or another comes over it.
bool look_after() {
    const bool over = (time_shown > 0 && passed(time_shown)) || is_out_of_reach();
    if (!over && grx::under_pointer().nobou == hover.nobou) return true;
    hide();
    return false;
}

void look(XtPointer, XtIntervalId*);

void look_again() {
    const auto quarter = static_cast<unsigned long>(hover.delay) / 4;
    const unsigned long pause = hover.shown ? kShownLook : std::clamp(quarter, kShortestLook, kLongestLook);
    hover.timer = XtAppAddTimeOut(contexte, pause, look, nullptr);
}

void look(XtPointer, XtIntervalId*) {
    hover.timer = 0;
    if (x11_disp == nullptr || tip_of(hover.nobou) == nullptr) return;
    if (hover.shown ? look_after() : look_before()) look_again();
}

void enter(INT nobou, const XCrossingEvent& event) {
    if (hover.nobou == nobou && hover.shown) return;
    leave();
    if (!tips_on) return;
    const bool soon = Clock::now() - gone_at < kSoon;
    hover.nobou = nobou;
    hover.x = event.x_root;
    hover.y = event.y_root;
    hover.since = Clock::now();
    hover.delay = soon ? std::min(delay_before, kNeighbourDelay) : delay_before;
    look_again();
}

// -- crossings and presses, before the toolkit has them

INT tip_in(Window window) {
    for (std::size_t nobou = 0; nobou < tips.size(); ++nobou) {
        Widget w = tips[nobou].widget;
        if (w != nullptr && grx::window_of(grx::with_scroll_bars(w)) == window) return static_cast<INT>(nobou);
    }
    return GRX_AUCUN;
}

// Parts of a control are inside it; a grab that begins moves nothing.
bool is_crossing(const XCrossingEvent& event) {
    return event.detail != NotifyInferior && event.mode != NotifyGrab;
}

Boolean on_enter(XEvent* event) {
    if (is_crossing(event->xcrossing)) {
        const INT nobou = tip_in(event->xcrossing.window);
        if (nobou != GRX_AUCUN) enter(nobou, event->xcrossing);
    }
    return dispatch_enter(event);
}

Boolean on_leave(XEvent* event) {
    const bool left = event->xcrossing.detail != NotifyInferior;
    if (left && hover.nobou != GRX_AUCUN && tip_in(event->xcrossing.window) == hover.nobou) leave();
    return dispatch_leave(event);
}

bool on_key(const XKeyEvent&, bool) {
    grx::end_tip();
    return false;
}

Boolean on_press(XEvent* event) {
    grx::end_tip();
    return dispatch_press(event);
}

void watch_pointer() {
    if (dispatch_enter != nullptr) return;
    dispatch_enter = XtSetEventDispatcher(x11_disp, EnterNotify, on_enter);
    dispatch_leave = XtSetEventDispatcher(x11_disp, LeaveNotify, on_leave);
    dispatch_press = XtSetEventDispatcher(x11_disp, ButtonPress, on_press);
    grx::watch_key_presses(on_key);
}

// -- the texts

void on_crossing(Widget, XtPointer, XEvent*, Boolean*) {} // so that the server sends them

void forget_tip(Tip& tip) {
    tip.text.free();
    tip.widget = nullptr;
}

void on_death(Widget w, XtPointer client, XtPointer) {
    const INT nobou = grx::number_in(client);
    Tip* const tip = tip_of(nobou);
    if (tip == nullptr || tip->widget != w) return;
    if (hover.nobou == nobou) leave();
    forget_tip(*tip);
}

// A widget that has lost its number may live on.
void take_away(INT nobou, Tip& tip) {
    if (hover.nobou == nobou) leave();
    Widget const w = tip.widget;
    XtRemoveEventHandler(grx::with_scroll_bars(w), kCrossings, False, on_crossing, nullptr);
    XtRemoveCallback(w, XmNdestroyCallback, on_death, grx::as_client_data(nobou));
    forget_tip(tip);
}

void watch(INT nobou, Widget w) {
    XtAddEventHandler(grx::with_scroll_bars(w), kCrossings, False, on_crossing, nullptr);
    XtAddCallback(w, XmNdestroyCallback, on_death, grx::as_client_data(nobou));
}

void forget_tips() {
    leave();
    hover = Hover{};
    for (Tip& tip : tips.span()) forget_tip(tip);
    tips.reset();
    gone_at = {};
    dispatch_enter = dispatch_leave = dispatch_press = nullptr;
    tips_on = true;
    delay_before = GRX_BULLE_APPARITION;
    time_shown = GRX_BULLE_DUREE;
}

INT set_tip(INT nobou, Widget w, const char* text) {
    grx::at_shut_down(forget_tips);
    if (!tips && !(tips = grx::Block<Tip>(GRX_NB_BOUTONS))) return GRX_ECHEC_MEMOIRE;
    Tip& tip = tips[grx::as_index(nobou)];
    if (tip.widget != nullptr && tip.widget != w) take_away(nobou, tip);
    if (!tip.text.set(text)) return GRX_ECHEC_MEMOIRE;
    if (tip.widget == nullptr) watch(nobou, w);
    tip.widget = w;
    watch_pointer();
    if (hover.shown && hover.nobou == nobou) grx::show_tip_window(text, hover.x, hover.y);
    return 1;
}

INT or_default(INT ms, INT at_first) {
    return ms >= 0 ? ms : at_first;
}

} // namespace

namespace grx {

void end_tip() {
    stop_looking();
    hide();
}

} // namespace grx

extern "C" {

INT grx_affecte_bulle(INT nobou, const char* texte) {
    if (x11_disp == nullptr) return grx::refused(GRX_ECHEC_AFFICHAGE, "nobou", nobou);
    Widget w = grx_recup_objet_bout(nobou);
    if (w == nullptr) return grx::refused(GRX_ECHEC_NUMERO, "nobou", nobou);
    if (!grx::view(texte).empty()) return set_tip(nobou, w, texte);
    if (Tip* const tip = tip_of(nobou)) take_away(nobou, *tip);
    return 1;
}

INT grx_recup_bulle(INT nobou, char* texte, INT taille) {
    const bool room = texte != nullptr && taille > 0;
    const Tip* const tip = grx_recup_objet_bout(nobou) != nullptr ? tip_of(nobou) : nullptr;
    const char* const text = tip != nullptr ? tip->text.c_str() : "";
    if (room) grx::copy_text(texte, static_cast<std::size_t>(taille), text);
    return tip != nullptr ? static_cast<INT>(std::strlen(text)) : GRX_ECHEC_ABSENT;
}

INT grx_affecte_etat_bulles(INT actives) {
    grx::at_shut_down(forget_tips);
    tips_on = actives != 0;
    if (!tips_on) leave();
    return 1;
}

INT grx_recup_etat_bulles(void) {
    return tips_on ? 1 : 0;
}

INT grx_affecte_delais_bulles(INT apparition, INT duree) {
    grx::at_shut_down(forget_tips);
    delay_before = or_default(apparition, GRX_BULLE_APPARITION);
    time_shown = or_default(duree, GRX_BULLE_DUREE);
    return 1;
}
}
