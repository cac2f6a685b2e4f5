// Finding one's way in a widget tree, and asking widgets for what every widget has.
#include "toolkit/widgets.h"

#include <X11/Shell.h>
#include <X11/StringDefs.h>
#include <Xm/ScrollBar.h>
#include <Xm/ScrolledW.h>

#include <algorithm>
#include <cstddef>

#include "display/pixmaps.h"
#include "toolkit/args.h"

namespace grx {

Widget nearest_shell(Widget w) {
    return nearest_of_class(w, shellWidgetClass);
}

std::span<const Widget> children_of(Widget w) {
    if (w == nullptr || !XtIsComposite(w)) return {};
    return {resource<WidgetList>(w, XtNchildren), resource<Cardinal>(w, XtNnumChildren)};
}

bool holds_widget(Widget root, Widget wanted) {
    if (root == nullptr || wanted == nullptr) return false;
    if (root == wanted) return true;
    const auto children = children_of(root);
    return std::any_of(children.begin(), children.end(), [wanted](Widget w) { return holds_widget(w, wanted); });
}

Widget managed(Widget w) {
    if (w != nullptr) XtManageChild(w);
    return w;
}

void by_parent(std::span<Widget> widgets, void (*call)(WidgetList, Cardinal)) {
    while (!widgets.empty()) {
        Widget const parent = XtParent(widgets.front());
        const auto next =
            std::find_if(widgets.begin(), widgets.end(), [parent](Widget w) { return XtParent(w) != parent; });
        const auto run = static_cast<std::size_t>(next - widgets.begin());
        call(widgets.data(), static_cast<Cardinal>(run));
        widgets = widgets.subspan(run);
    }
}

namespace {

void end_of_its_window(Widget shell, XtPointer, XEvent* event, Boolean*) {
    const bool own = event->type == DestroyNotify && event->xdestroywindow.window == window_of(shell);
    if (own && !is_dying(shell)) XtDestroyWidget(shell);
}

} // namespace

void end_with_its_window(Widget shell) {
    if (shell != nullptr && XtIsShell(shell))
        XtAddEventHandler(shell, StructureNotifyMask, False, end_of_its_window, nullptr);
}

void redraw(Widget w) {
    if (window_of(w) == None) return;
    XClearArea(XtDisplay(w), window_of(w), 0, 0, 0, 0, True);
    for (Widget child : children_of(w)) {
        if (XtIsWidget(child)) redraw(child);
    }
}

Size wanted_size(Widget w) {
    XtWidgetGeometry wanted{};
    XtQueryGeometry(w, nullptr, &wanted);
    return {wanted.width, wanted.height};
}

void set_size(Widget w, Size size) {
    Args args;
    args.set(XtNwidth, size.width).set(XtNheight, size.height);
    XtSetValues(w, args.list(), args.count());
}

void give_wanted_size(Widget w) {
    const Size size = given_size(w), wanted = wanted_size(w);
    set_size(w, {size.width > 1 ? size.width : wanted.width, size.height > 1 ? size.height : wanted.height});
}

Widget scroll_bar(Widget scrolled, bool vertical) {
    if (scrolled == nullptr) return nullptr;
    Widget bar = resource<Widget>(scrolled, vertical ? XmNverticalScrollBar : XmNhorizontalScrollBar);
    return bar != nullptr && XmIsScrollBar(bar) ? bar : nullptr;
}

Widget nearest_scrolled_window(Widget w) {
    return nearest_of_class(w, xmScrolledWindowWidgetClass);
}

} // namespace grx
