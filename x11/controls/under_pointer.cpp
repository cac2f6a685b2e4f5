// Finds what of the application is under the pointer: asks the server, for the toolkit tells nothing of insensitive
// widgets.
#include "controls/under_pointer.h"

#include "display/screen.h"
#include "toolkit/control_parts.h"
#include "xt_bou_f.h"
#include "xt_fen_f.h"

namespace grx {

namespace {

// The child of `window` that the pointer is in.
Window child_under_pointer(Window window, UnderPointer& at) {
    Window root = None, child = None;
    int x = 0, y = 0;
    if (!XQueryPointer(x11_disp, window, &root, &child, &at.x, &at.y, &x, &y, &at.state)) return None;
    return child;
}

// Stops at the shell: a dialog of the library belongs to no window, whatever its shell hangs on.
template <class Number>
INT nearest_number(Widget w, Number number_of) {
    for (; w != nullptr; w = XtIsShell(w) ? nullptr : XtParent(w)) {
        const INT number = number_of(w);
        if (number != GRX_AUCUN) return number;
    }
    return GRX_AUCUN;
}

} // namespace

INT window_of_widget(Widget w) {
    return nearest_number(w, [](Widget part) {
        const INT nofen = grx_recup_indice_fen(part);
        return nofen != MAXOBJETFEN ? nofen : GRX_AUCUN;
    });
}

INT control_of_widget(Widget w) {
    const INT nobou = nearest_number(w, grx_recup_indice_bout);
    if (nobou != GRX_AUCUN || w == nullptr) return nobou;
    // The scroll bars of a list stand beside it in its scrolled window.
    Widget around = XtIsShell(w) ? nullptr : XtParent(w);
    for (INT number = 0; around != nullptr && number < GRX_NB_BOUTONS; ++number) {
        Widget control = grx_recup_objet_bout(number);
        if (control == nullptr || with_scroll_bars(control) == control) continue;
        if (with_scroll_bars(control) == w || with_scroll_bars(control) == around) return number;
    }
    return GRX_AUCUN;
}

UnderPointer pointer_alone() {
    UnderPointer at;
    if (x11_disp != nullptr) child_under_pointer(root_window(), at);
    return at;
}

UnderPointer under_pointer() {
    UnderPointer at;
    if (x11_disp == nullptr) return at;
    for (Window window = child_under_pointer(root_window(), at); window != None;
         window = child_under_pointer(window, at)) {
        if (Widget w = XtWindowToWidget(x11_disp, window)) at.widget = w;
    }
    at.nofen = window_of_widget(at.widget);
    at.nobou = control_of_widget(at.widget);
    return at;
}

} // namespace grx
