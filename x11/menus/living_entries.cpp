// Finds the menu entries that are alive, so that nothing is kept of them before somebody asks.
#include "menus/living_entries.h"

#include <X11/IntrinsicP.h>
#include <Xm/PushB.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <array>
#include <cstring>

#include "system/shut_down.h"
#include "toolkit/args.h"
#include "toolkit/widgets.h"
#include "menus/menu_widgets.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

using Call = void (*)(Widget entry, INT no_fo);

// The first of a list that is wanted, null when none is.
template <class Wanted>
const XtCallbackRec* callback_of(Widget w, const char* name, Wanted wanted) {
    const auto* list = resource<XtCallbackList>(w, name, nullptr);
    for (; list != nullptr && list->callback != nullptr; ++list) {
        if (wanted(list->callback)) return list;
    }
    return nullptr;
}

std::array<XtCallbackProc, 2> choosers{}; // of the bar and of context menus

bool is_chooser(XtCallbackProc callback) {
    return std::find(choosers.begin(), choosers.end(), callback) != choosers.end();
}

void forget_choosers() {
    choosers = {};
}

// Push buttons of the application have other names, or call something else.
void call_if_entry(Widget w, Call call) {
    if (w == nullptr || !XmIsPushButton(w) || is_dying(w) || std::strcmp(XtName(w), "atome") != 0) return;
    const XtCallbackRec* const chosen = callback_of(w, XmNactivateCallback, is_chooser);
    if (chosen != nullptr) call(w, number_in(chosen->closure));
}

void call_inside(Widget w, Call call) {
    call_if_entry(w, call);
    for (Widget child : children_of(w)) call_inside(child, call);
    for (Cardinal i = 0; XtIsWidget(w) && i < w->core.num_popups; ++i) call_inside(w->core.popup_list[i], call);
}

} // namespace

void for_each_living_entry(void (*call)(Widget entry, INT no_fo)) {
    for (Widget entry : menu_entries()) call_if_entry(entry, call);
    if (x11_disp == nullptr) return;
    WidgetList shells = nullptr;
    Cardinal count = 0;
    Args args;
    args.set(XtNshells, &shells).set(XtNnumShells, &count);
    XtGetValues(XtHooksOfDisplay(x11_disp), args.list(), args.count());
    for (Cardinal i = 0; i < count; ++i) call_inside(shells[i], call);
}

void note_chooser(XtCallbackProc chosen) {
    if (is_chooser(chosen)) return;
    at_shut_down(forget_choosers);
    auto* const free = std::find(choosers.begin(), choosers.end(), nullptr);
    if (free != choosers.end()) *free = chosen;
}

bool has_callback(Widget w, const char* name, XtCallbackProc callback) {
    return callback_of(w, name, [callback](XtCallbackProc one) { return one == callback; }) != nullptr;
}

} // namespace grx
