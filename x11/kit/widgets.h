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

#include "kit/args.h"

namespace grx {

/// The nearest widget of a class among `w` and its ancestors; null when there is none.
inline Widget nearest_of_class(Widget w, WidgetClass widget_class) {
    while (w != nullptr && !XtIsSubclass(w, widget_class)) w = XtParent(w);
    return w;
}

inline Widget nearest_shell(Widget w) {
    return nearest_of_class(w, shellWidgetClass);
}

/// The X window of a widget that has one by now, else None. Read from the widget: drawing asks for every primitive.
inline Window window_of(Widget w) {
    return w != nullptr ? w->core.window : None;
}

struct Size {
    int32_t width = 0;
    int32_t height = 0;
    bool operator==(const Size&) const = default;
};

inline Size size_of(Widget w) {
    return {resource<Dimension>(w, XtNwidth), resource<Dimension>(w, XtNheight)};
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
