// Keeps the place and the size right that the toolkit remembers for the shells of windows. The header tells why that is
// needed.
#include "windows/shell_place.h"

#include <X11/IntrinsicP.h>
#include <X11/ShellP.h>
#include <X11/StringDefs.h>

#include <cstring>

namespace grx {

void forget_place(Widget shell) {
    if (shell == nullptr || !XtIsWMShell(shell) || shell->core.window == None) return;
    auto& known = reinterpret_cast<ShellWidget>(shell)->shell.client_specified;
    known = static_cast<Boolean>(known & ~_XtShellPositionValid);
}

bool is_news_of_a_child(const XEvent& event) {
    return event.type == ConfigureNotify && event.xconfigure.window != event.xconfigure.event;
}

void blunt_news_of_a_child(Widget shell, XtPointer, XEvent* event, Boolean*) {
    if (!is_news_of_a_child(*event)) return;
    XConfigureEvent& news = event->xconfigure;
    news.x = shell->core.x;
    news.y = shell->core.y;
    news.width = shell->core.width;
    news.height = shell->core.height;
    news.border_width = shell->core.border_width;
}

void after_geometry_request(Widget, XtPointer, XtPointer call) {
    const auto& request = *static_cast<XtGeometryHookDataRec*>(call);
    if (std::strcmp(request.type, XtHpostGeometry) == 0) forget_place(request.widget);
}

void watch_places_of_shells(Display* display) {
    XtAddCallback(XtHooksOfDisplay(display), XtNgeometryHook, after_geometry_request, nullptr);
}

} // namespace grx
