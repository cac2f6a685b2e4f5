// Tells window managers, for every shell of the application before it is shown, who the application is and what kind of
// window the shell is, and answers them whether the application still lives.
#include "windows/manners.h"

#include <X11/IntrinsicP.h>
#include <X11/Shell.h>
#include <X11/ShellP.h>
#include <X11/StringDefs.h>
#include <X11/Xatom.h>
#include <X11/Xutil.h>
#include <Xm/Protocols.h>
#include <Xm/Xm.h>
#include <unistd.h>

#include <array>
#include <cstring>

#include "system/shut_down.h"
#include "display/identity.h"
#include "display/pixmaps.h"
#include "display/properties.h"
#include "display/screen.h"
#include "registry/window_table.h"
#include "windows/asked_geometry.h"
#include "windows/net_atoms.h"
#include "windows/net_titles.h"
#include "windows/place_marks.h"
#include "grx_plus_application.h"
#include "xt_ini_t.h"

namespace {

bool watching = false;
void (*icon_teller)(Widget) = nullptr;

void forget_manners() {
    watching = false; // the hook goes with the display
}

// The manager asks whether the application still lives: the question goes back to it.
void answer_ping(Widget, XtPointer, XtPointer call) {
    const auto* const told = static_cast<XmAnyCallbackStruct*>(call);
    if (told == nullptr || told->event == nullptr || told->event->type != ClientMessage) return;
    XEvent answer = *told->event;
    answer.xclient.window = grx::root_window();
    XSendEvent(x11_disp, answer.xclient.window, False, SubstructureRedirectMask | SubstructureNotifyMask, &answer);
    XFlush(x11_disp);
}

void tell_class(Window window) {
    XClassHint hint{const_cast<char*>(grx::application_name()), const_cast<char*>(grx::application_class())};
    XSetClassHint(x11_disp, window, &hint);
}

INT kind_of(Widget shell) {
    const STRUCTURE_FENETRE* const record = grx::window_record(grx::number_of_shell(shell));
    const INT type = record != nullptr ? record->type : GRX_FEN_MESSAGE;
    if (type == GRX_FEN_MESSAGE) return GRX_GENRE_DIALOGUE;
    if (!XtIsTransientShell(shell)) return GRX_GENRE_NORMALE;
    return type == GRX_FEN_MENU ? GRX_GENRE_UTILITAIRE : GRX_GENRE_DIALOGUE;
}

void mark_programs_place(Widget shell) {
    const auto& hints = reinterpret_cast<WMShellWidget>(shell)->wm.size_hints;
    const bool users = grx::stands_where_user_wants(grx::number_of_shell(shell));
    if (!users && (hints.flags & USPosition) != 0) grx::mark_place(shell, GRX_PLACE_PROGRAMME);
}

void tell_all(Widget shell) {
    const Window window = grx::window_of(shell);
    tell_class(window);
    const std::array<long, 1> process{static_cast<long>(getpid())};
    grx::set_property(window, grx::net_atom(grx::NetAtom::pid), XA_CARDINAL, process);
    grx::set_net_titles(shell);
    grx::tell_kind(window, kind_of(shell));
    mark_programs_place(shell);
    XmAddWMProtocolCallback(shell, grx::net_atom(grx::NetAtom::ping), answer_ping, nullptr);
}

void after_realizing(Widget shell) {
    if (!grx::is_managed_shell(shell)) return;
    if (grx::identity_declared()) tell_all(shell);
    if (icon_teller != nullptr) icon_teller(shell);
}

void after_setting(const XtChangeHookDataRec& change) {
    if (!grx::identity_declared() || !grx::is_managed_shell(change.widget) || !XtIsRealized(change.widget)) return;
    const auto& set = *static_cast<XtChangeHookSetValuesDataRec*>(change.event_data);
    if (grx::changes_title(set.args, set.num_args)) grx::set_net_titles(change.widget);
}

void after_change(Widget, XtPointer, XtPointer call) {
    const auto& change = *static_cast<XtChangeHookDataRec*>(call);
    if (std::strcmp(change.type, XtHrealizeWidget) == 0) after_realizing(change.widget);
    if (std::strcmp(change.type, XtHsetValues) == 0) after_setting(change);
}

void watch() {
    if (watching || x11_disp == nullptr) return;
    watching = true;
    grx::at_shut_down(forget_manners);
    XtAddCallback(XtHooksOfDisplay(x11_disp), XtNchangeHook, after_change, nullptr);
}

} // namespace

namespace grx {

void begin_manners() {
    if (identity_declared() || icon_teller != nullptr) watch();
}

void tell_shells(void (*tell)(Widget shell)) {
    icon_teller = tell;
    if (tell != nullptr) watch();
}

bool is_managed_shell(Widget w) {
    return XtIsWMShell(w) && !reinterpret_cast<ShellWidget>(w)->shell.override_redirect;
}

INT number_of_shell(Widget shell) {
    for (INT nofen = 1; nofen < MAXOBJETFEN; ++nofen)
        if (window_widget(nofen) != nullptr && outer_widget(nofen) == nullptr && shell_of(nofen) == shell) return nofen;
    return GRX_AUCUN;
}

void tell_kind(Window window, INT kind) {
    const auto first = static_cast<INT>(NetAtom::type_normal);
    const auto atom = static_cast<NetAtom>(first + kind - GRX_GENRE_NORMALE);
    const std::array<long, 1> value{static_cast<long>(net_atom(atom))};
    set_property(window, net_atom(NetAtom::window_type), XA_ATOM, value);
}

} // namespace grx
