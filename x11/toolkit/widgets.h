// Finding one's way in a widget tree, and reading what every widget has.
#pragma once

#include <X11/Intrinsic.h>
#include <X11/Shell.h>
#include <X11/StringDefs.h>
#include <X11/IntrinsicP.h>
#include <X11/CoreP.h>
#include <Xm/Form.h>
#include <Xm/ScrolledW.h>
#include <Xm/ScrollBar.h>

#include <algorithm>
#include <cstddef>
#include <span>

#include "toolkit/args.h"
#include "toolkit/late_layout.h"

namespace grx {

/// The nearest widget of a class among `w` and its ancestors; null when there is none.
inline Widget nearest_of_class(Widget w, WidgetClass widget_class) {
    while (w != nullptr && !XtIsSubclass(w, widget_class)) w = XtParent(w);
    return w;
}

inline Widget nearest_shell(Widget w) {
    return nearest_of_class(w, shellWidgetClass);
}

/// The children of a widget; a widget that is no composite has none.
inline std::span<const Widget> children_of(Widget w) {
    if (w == nullptr || !XtIsComposite(w)) return {};
    return {resource<WidgetList>(w, XtNchildren), resource<Cardinal>(w, XtNnumChildren)};
}

/// True when `wanted` is `root` or stands somewhere inside it. `wanted` is only compared: it may be gone.
inline bool holds_widget(Widget root, Widget wanted) {
    if (root == nullptr || wanted == nullptr) return false;
    if (root == wanted) return true;
    const auto children = children_of(root);
    return std::any_of(children.begin(), children.end(), [wanted](Widget w) { return holds_widget(w, wanted); });
}

/// One toolkit call for neighbours that have the same parent: others in the same call would be passed over.
inline void by_parent(std::span<Widget> widgets, void (*call)(WidgetList, Cardinal)) {
    while (!widgets.empty()) {
        Widget const parent = XtParent(widgets.front());
        const auto next =
            std::find_if(widgets.begin(), widgets.end(), [parent](Widget w) { return XtParent(w) != parent; });
        const auto run = static_cast<std::size_t>(next - widgets.begin());
        call(widgets.data(), static_cast<Cardinal>(run));
        widgets = widgets.subspan(run);
    }
}

/// The X window of a widget that has one by now, else None. Read from the widget: drawing asks for every primitive.
inline Window window_of(Widget w) {
    return w != nullptr ? w->core.window : None;
}

/// True for a widget whose destruction has begun. Inside a callback its callbacks come only when that callback returns:
/// a loop that runs there and waits for them would not end.
inline bool is_dying(Widget w) {
    return w->core.being_destroyed != False;
}

inline void end_of_its_window(Widget shell, XtPointer, XEvent* event, Boolean*) {
    const bool own = event->type == DestroyNotify && event->xdestroywindow.window == window_of(shell);
    if (own && !is_dying(shell)) XtDestroyWidget(shell);
}

/// Destroys a shell whose window another client has destroyed.
inline void end_with_its_window(Widget shell) {
    if (shell != nullptr && XtIsShell(shell))
        XtAddEventHandler(shell, StructureNotifyMask, False, end_of_its_window, nullptr);
}

/// Asks for the exposure of a widget and of everything in it.
inline void redraw(Widget w) {
    if (window_of(w) == None) return;
    XClearArea(XtDisplay(w), window_of(w), 0, 0, 0, 0, True);
    for (Widget child : children_of(w)) {
        if (XtIsWidget(child)) redraw(child);
    }
}

struct Size {
    int32_t width = 0;
    int32_t height = 0;
    bool operator==(const Size&) const = default;
};

/// The size of a widget as it stands.
inline Size given_size(Widget w) {
    return {w->core.width, w->core.height};
}

/// The size of a widget when everything is laid out.
inline Size size_of(Widget w) {
    lay_out_pending();
    return given_size(w);
}

struct Place {
    Position x = 0;
    Position y = 0;
};

/// The place of a widget in its parent when everything is laid out.
inline Place place_of(Widget w) {
    lay_out_pending();
    return {w->core.x, w->core.y};
}

/// The size that a widget would like to have.
inline Size wanted_size(Widget w) {
    XtWidgetGeometry wanted{};
    XtQueryGeometry(w, nullptr, &wanted);
    return {wanted.width, wanted.height};
}

inline void set_size(Widget w, Size size) {
    Args args;
    args.set(XtNwidth, size.width).set(XtNheight, size.height);
    XtSetValues(w, args.list(), args.count());
}

/// Gives a widget that has no size yet the one it wants: some learn theirs when they are managed, and are then refused
/// it in a window that keeps its own.
inline void give_wanted_size(Widget w) {
    const Size size = given_size(w), wanted = wanted_size(w);
    set_size(w, {size.width > 1 ? size.width : wanted.width, size.height > 1 ? size.height : wanted.height});
}

/// A scroll bar of the scrolled window around (or at) a widget; null when there is none.
inline Widget scroll_bar(Widget scrolled, bool vertical) {
    if (scrolled == nullptr) return nullptr;
    Widget bar = resource<Widget>(scrolled, vertical ? XmNverticalScrollBar : XmNhorizontalScrollBar);
    return bar != nullptr && XmIsScrollBar(bar) ? bar : nullptr;
}

inline Widget nearest_scrolled_window(Widget w) {
    return nearest_of_class(w, xmScrolledWindowWidgetClass);
}

} // namespace grx
