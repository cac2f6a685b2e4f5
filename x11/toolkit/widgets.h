// Finding one's way in a widget tree, and reading what every widget has.
#pragma once

#include <X11/Intrinsic.h>
#include <X11/IntrinsicP.h>

#include <span>

#include "pure/size.h"
#include "toolkit/late_layout.h"

namespace grx {

/// The nearest widget of a class among `w` and its ancestors; null when there is none.
inline Widget nearest_of_class(Widget w, WidgetClass widget_class) {
    while (w != nullptr && !XtIsSubclass(w, widget_class)) w = XtParent(w);
    return w;
}

Widget nearest_shell(Widget w);

/// The children of a widget; a widget that is no composite has none.
std::span<const Widget> children_of(Widget w);

/// True when `wanted` is `root` or stands somewhere inside it. `wanted` is only compared: it may be gone.
bool holds_widget(Widget root, Widget wanted);

/// Manages a widget that could be made; gives it back.
Widget managed(Widget w);

/// One toolkit call for neighbours that have the same parent: others in the same call would be passed over.
void by_parent(std::span<Widget> widgets, void (*call)(WidgetList, Cardinal));

/// True for a widget whose destruction has begun. Inside a callback its callbacks come only when that callback returns:
/// a loop that runs there and waits for them would not end.
inline bool is_dying(Widget w) {
    return w->core.being_destroyed != False;
}

/// Destroys a shell whose window another client has destroyed.
void end_with_its_window(Widget shell);

/// Asks for the exposure of a widget and of everything in it.
void redraw(Widget w);

/// The size of a widget as it stands.
inline Size given_size(Widget w) {
    return {w->core.width, w->core.height};
}

/// The size of a widget when everything is laid out.
inline Size size_of(Widget w) {
    lay_out_pending();
    return given_size(w);
}

struct Point {
    Position x = 0;
    Position y = 0;
};

/// The position of a widget in its parent when everything is laid out.
inline Point position_of(Widget w) {
    lay_out_pending();
    return {w->core.x, w->core.y};
}

/// The size that a widget would like to have.
Size wanted_size(Widget w);

void set_size(Widget w, Size size);

/// Gives a widget that has no size yet the one it wants: some learn theirs when they are managed, and are then refused
/// it in a window that keeps its own.
void give_wanted_size(Widget w);

/// A scroll bar of the scrolled window around (or at) a widget; null when there is none.
Widget scroll_bar(Widget scrolled, bool vertical);

Widget nearest_scrolled_window(Widget w);

} // namespace grx
