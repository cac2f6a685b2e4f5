// Decides what the release of a button means that was pressed before the menu was there: the toolkit only knows menus
// that it opens at the press.
#include "menus/first_release.h"

#include <Xm/Label.h>
#include <Xm/Separator.h>
#include <Xm/Xm.h>

#include <cstdlib>

#include "display/screen.h"
#include "menus/posted_menu.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

constexpr int kNear = 5; // pixels that a hand may slip

struct Awaited {
    Widget menu = nullptr; // null when no release is awaited
    int x = 0;
    int y = 0;
    Time since = 0;
};
Awaited awaited;

XtEventDispatchProc dispatch_release = nullptr; // the toolkit's own

bool is_near(const XButtonEvent& event) {
    return std::abs(event.x_root - awaited.x) <= kNear && std::abs(event.y_root - awaited.y) <= kNear;
}

bool is_over_entry(const XButtonEvent& event) {
    Widget const under = XtWindowToWidget(event.display, event.window);
    return under != nullptr && XmIsLabel(under);
}

bool leaves_menu_open(const XButtonEvent& event) {
    if (is_near(event)) return true;
    const auto passed = event.time - awaited.since;
    return !is_over_entry(event) && passed < static_cast<Time>(XtGetMultiClickTime(event.display));
}

Boolean on_release(XEvent* event) {
    const bool stays = awaited.menu != nullptr && leaves_menu_open(event->xbutton);
    Widget const menu = awaited.menu;
    awaited.menu = nullptr;
    if (!stays) return dispatch_release(event);
    XAllowEvents(event->xbutton.display, SyncPointer, CurrentTime); // the toolkit's grab has stopped the pointer
    follow_keys(menu);
    return True;
}

void watch_releases() {
    const XtEventDispatchProc before = XtSetEventDispatcher(x11_disp, ButtonRelease, on_release);
    if (before != on_release) dispatch_release = before;
}

// Says yes to the first event of a button that waits, when it is a release.
struct Search {
    bool seen_press = false;
};

Bool is_waiting_release(Display*, XEvent* event, XPointer data) {
    auto& search = *reinterpret_cast<Search*>(data);
    search.seen_press = search.seen_press || event->type == ButtonPress;
    return !search.seen_press && event->type == ButtonRelease ? True : False;
}

// Nobody holds a button any more, but the application has not been told yet: it would close the menu.
void drop_waiting_release() {
    Search search;
    XEvent event;
    XCheckIfEvent(x11_disp, &event, is_waiting_release, reinterpret_cast<XPointer>(&search));
}

} // namespace

void await_first_release(Widget menu) {
    constexpr unsigned int buttons = Button1Mask | Button2Mask | Button3Mask | Button4Mask | Button5Mask;
    Window root = None, child = None;
    int x = 0, y = 0, own_x = 0, own_y = 0;
    unsigned int state = 0;
    XQueryPointer(x11_disp, root_window(), &root, &child, &x, &y, &own_x, &own_y, &state);
    if ((state & buttons) == 0) {
        drop_waiting_release();
        follow_keys(menu);
        return;
    }
    watch_releases();
    awaited = {menu, x, y, XtLastTimestampProcessed(x11_disp)};
}

void forget_first_release() {
    awaited.menu = nullptr;
}

} // namespace grx
