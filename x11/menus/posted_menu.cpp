// Menus that are open: the menu bar asks before it takes them down, its keys before they look for a letter.
#include "menus/posted_menu.h"

#include <X11/IntrinsicP.h>
#include <X11/ShellP.h>
#include <X11/Xatom.h>
#include <Xm/MenuT.h>
#include <Xm/TraitP.h>
#include <Xm/Xm.h>

#include "display/screen.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

Widget context_menu = nullptr;

// Has the toolkit learn the server's time: it grabs with that of the last event, which may be older than the last grab
// of another client and is then refused.
void learn_time() {
    Window const own = XCreateWindow(x11_disp, root_window(), 0, 0, 1, 1, 0, 0, InputOnly, CopyFromParent, 0, nullptr);
    XSelectInput(x11_disp, own, PropertyChangeMask);
    XChangeProperty(x11_disp, own, XA_WM_NAME, XA_STRING, 8, PropModeAppend, nullptr, 0);
    XEvent event;
    XWindowEvent(x11_disp, own, PropertyChangeMask, &event);
    XtDispatchEvent(&event);
    XDestroyWindow(x11_disp, own);
}

const XmMenuSystemTraitRec* menu_system(Widget menu) {
    if (menu == nullptr) return nullptr;
    return static_cast<const XmMenuSystemTraitRec*>(
        XmeTraitGet(reinterpret_cast<XtPointer>(XtClass(menu)), XmQTmenuSystem));
}

} // namespace

bool has_open_menu(Widget bar) {
    const auto* const system = menu_system(bar);
    return system != nullptr && system->getPopupPosted(bar) != nullptr;
}

void close_menus(Widget bar) {
    if (has_open_menu(bar)) menu_system(bar)->popdown(bar, nullptr);
}

bool can_grab_input(Widget shown) {
    learn_time();
    const Time time = XtLastTimestampProcessed(x11_disp);
    constexpr unsigned int wanted = ButtonPressMask | ButtonReleaseMask;
    const Window window = XtWindow(shown);
    if (XGrabPointer(x11_disp, window, True, wanted, GrabModeAsync, GrabModeAsync, None, None, time) != GrabSuccess)
        return false;
    if (XGrabKeyboard(x11_disp, window, True, GrabModeAsync, GrabModeAsync, time) == GrabSuccess) return true;
    XUngrabPointer(x11_disp, time);
    return false;
}

bool is_posted_popup(Widget menu) {
    return XtIsManaged(menu) && reinterpret_cast<ShellWidget>(XtParent(menu))->shell.popped_up != False;
}

void follow_keys(Widget menu) {
    menu_system(menu)->controlTraversal(menu, True);
}

void close_popup(Widget menu) {
    if (is_posted_popup(menu)) menu_system(menu)->popdown(menu, nullptr);
}

Widget open_context_menu() {
    return context_menu;
}

void set_open_context_menu(Widget menu) {
    context_menu = menu;
}

} // namespace grx
