// Sorts the queue of events while the application computes.
#include "dialogs/progress_events.h"

#include <X11/keysym.h>
#include <Xm/Xm.h>

#include "drawing/attributes.h"
#include "drawing/backing.h"
#include "drawing/layers.h"
#include "display/identity.h"
#include "display/pixmaps.h"
#include "toolkit/widgets.h"
#include "registry/window_table.h"
#include "windows/net_atoms.h"
#include "xt_bou_f.h"
#include "xt_ent_t.h"
#include "xt_fen_f.h"

namespace grx {

namespace {

constexpr unsigned int kButtonMasks = Button1Mask | Button2Mask | Button3Mask | Button4Mask | Button5Mask;

// The window whose picture an exposure can be redrawn from; GRX_AUCUN when the application must draw.
INT redrawable_window(Widget w) {
    const INT nofen = grx_recup_indice_fen(w);
    if (nofen == MAXOBJETFEN) return GRX_AUCUN;
    const Backing backing = backing_of(nofen);
    const STRUCTURE_FENETRE* const record = window_record(nofen);
    const bool has_picture = backing && *backing.holder != None && backing.record->backingstorable != 0;
    const bool drawn_before = record != nullptr && record->type == GRX_FEN_GRAPHIQUE && record->affiche != 0;
    return has_picture && drawn_before && backing.window == window_of(w) ? nofen : GRX_AUCUN;
}

bool is_window(Widget w) {
    return grx_recup_indice_fen(w) != MAXOBJETFEN;
}

// Controls redraw themselves, or are redrawn by the library; where the application is called it draws when the loop goes
// on.
bool redraws_itself(Widget w) {
    return !is_window(w) && XtHasCallbacks(w, XmNexposeCallback) != XtCallbackHasSome;
}

bool is_escape(const XEvent& event) {
    if (event.type != KeyPress) return false;
    XKeyEvent key = event.xkey;
    return XLookupKeysym(&key, 0) == XK_Escape;
}

bool is_input(const XEvent& event) {
    return event.type >= KeyPress && event.type <= MotionNotify;
}

// The window manager asks whether the application lives. The atom is known by then: windows that may be asked have told.
bool is_question_for_life(const XEvent& event) {
    if (event.type != ClientMessage || event.xclient.format != 32 || !identity_declared()) return false;
    return static_cast<Atom>(event.xclient.data.l[0]) == net_atom(NetAtom::ping);
}

// Keys, buttons and movements have their time at the same place.
Time time_of(const XEvent& event) {
    return event.xkey.time;
}

unsigned int bit_of(unsigned int button) {
    return button < 32 ? 1U << button : 0U;
}

void copy_picture(INT nofen) {
    const Backing backing = backing_of(nofen);
    if (!backing) return;
    apply_background();
    copy_drawable(*backing.holder, backing.window, g_c, window_size(nofen));
    picture_shown(backing.window, *backing.holder, kEverywhere);
}

void dispatch_quietly(XEvent& event) {
    const GRX_EVENEMENT pending = evt_global;
    XtDispatchEvent(&event);
    evt_global = pending;
}

} // namespace

Bool ProgressEvents::note_input(Display*, XEvent* event, XPointer self) {
    auto& events = *reinterpret_cast<ProgressEvents*>(self);
    if (is_input(*event)) {
        events.had_input_ = true;
        events.last_input_ = time_of(*event);
    }
    return False;
}

void ProgressEvents::begin(Widget shell) {
    *this = ProgressEvents{};
    shell_ = shell;
    XSync(x11_disp, False);
    XEvent event;
    XCheckIfEvent(x11_disp, &event, note_input, reinterpret_cast<XPointer>(this));
}

bool ProgressEvents::is_new(Time time) const {
    return !had_input_ || static_cast<int32_t>(static_cast<uint32_t>(time) - static_cast<uint32_t>(last_input_)) > 0;
}

ProgressEvents::Fate ProgressEvents::fate_of_input(const XEvent& event) const {
    bool dropped = is_new(time_of(event));
    if (event.type == KeyRelease) dropped = dropped_keys_[event.xkey.keycode & 0xFFU];
    if (event.type == ButtonRelease) dropped = (dropped_buttons_ & bit_of(event.xbutton.button)) != 0;
    if (event.type == MotionNotify) {
        const bool dragging = (event.xmotion.state & kButtonMasks) != 0 && dropped_buttons_ == 0;
        dropped = dropped && !dragging;
    }
    return dropped ? Fate::Dropped : Fate::Stays;
}

ProgressEvents::Fate ProgressEvents::fate_of(const XEvent& event) const {
    Widget w = XtWindowToWidget(x11_disp, event.xany.window);
    if (w == nullptr || is_dying(w)) return Fate::Stays;
    if (is_escape(event) && is_new(time_of(event))) return Fate::Escape;
    if (nearest_shell(w) == shell_ || is_question_for_life(event)) return Fate::Handled;
    if (is_input(event)) return fate_of_input(event);
    if (event.type != Expose) return Fate::Stays;
    if (redrawable_window(w) != GRX_AUCUN) return Fate::Redrawn;
    return redraws_itself(w) ? Fate::Handled : Fate::Stays;
}

Bool ProgressEvents::goes(Display*, XEvent* event, XPointer self) {
    const auto& events = *reinterpret_cast<const ProgressEvents*>(self);
    return events.fate_of(*event) != Fate::Stays ? True : False;
}

void ProgressEvents::drop(const XEvent& event) {
    if (event.type == KeyPress || event.type == KeyRelease)
        dropped_keys_[event.xkey.keycode & 0xFFU] = event.type == KeyPress;
    if (event.type == ButtonPress) dropped_buttons_ |= bit_of(event.xbutton.button);
    if (event.type == ButtonRelease) dropped_buttons_ &= ~bit_of(event.xbutton.button);
}

// The whole window at once: the other exposures of it are met with.
void ProgressEvents::redraw(const XEvent& event) {
    XEvent other;
    while (XCheckTypedWindowEvent(x11_disp, event.xexpose.window, Expose, &other) != 0) continue;
    copy_picture(redrawable_window(XtWindowToWidget(x11_disp, event.xexpose.window)));
}

bool ProgressEvents::serve(Widget shell) {
    shell_ = shell;
    bool escape = false;
    XEvent event;
    while (XCheckIfEvent(x11_disp, &event, goes, reinterpret_cast<XPointer>(this)) != 0) {
        switch (fate_of(event)) {
        case Fate::Handled: dispatch_quietly(event); break;
        case Fate::Redrawn: redraw(event); break;
        case Fate::Dropped: drop(event); break;
        case Fate::Escape:
            escape = true;
            drop(event);
            break;
        case Fate::Stays: break;
        }
    }
    return escape;
}

} // namespace grx
