// Where the toolkit believes a shell to be, and how large. A window's shell asks for the news of its children, and the
// toolkit takes a child's new place and size, inside the shell, for the shell's own. Its controls would then answer no
// press, for they seem to be elsewhere; menus would open in the corner of the screen; and of two resizes shortly after
// each other, each would undo the other for ever.
#pragma once

#include <X11/IntrinsicP.h>
#include <X11/ShellP.h>
#include <X11/StringDefs.h>

#include <cstring>

namespace grx {

/// Lets the toolkit ask the server for the place of a shell when it is next needed.
inline void forget_place(Widget shell) {
    if (shell == nullptr || !XtIsWMShell(shell) || shell->core.window == None) return;
    auto& known = reinterpret_cast<ShellWidget>(shell)->shell.client_specified;
    known = static_cast<Boolean>(known & ~_XtShellPositionValid);
}

/// News of a child that the toolkit reads as the shell's own.
inline bool is_news_of_a_child(const XEvent& event) {
    return event.type == ConfigureNotify && event.xconfigure.window != event.xconfigure.event;
}

/// Comes before the toolkit's own handler, and gives it nothing new to read.
inline void blunt_news_of_a_child(Widget shell, XtPointer, XEvent* event, Boolean*) {
    if (!is_news_of_a_child(*event)) return;
    XConfigureEvent& news = event->xconfigure;
    news.x = shell->core.x;
    news.y = shell->core.y;
    news.width = shell->core.width;
    news.height = shell->core.height;
    news.border_width = shell->core.border_width;
}

/// A shell resized through the toolkit waits for the news of it, and may catch its child's.
inline void after_geometry_request(Widget, XtPointer, XtPointer call) {
    const auto& request = *static_cast<XtGeometryHookDataRec*>(call);
    if (std::strcmp(request.type, XtHpostGeometry) == 0) forget_place(request.widget);
}

inline void watch_places_of_shells(Display* display) {
    XtAddCallback(XtHooksOfDisplay(display), XtNgeometryHook, after_geometry_request, nullptr);
}

} // namespace grx
