// Controls whose widget is not all there is to them.
#pragma once

#include <Xm/List.h>
#include <Xm/Text.h>
#include <Xm/TextF.h>
#include <Xm/Xm.h>

#include "toolkit/locale_text.h"
#include "toolkit/widgets.h"

namespace grx {

/// A scrolled list or text stands in a scrolled window of its own: that is what is placed, shown and hidden.
inline Widget with_scroll_bars(Widget w) {
    const bool scrolls = w != nullptr && (XmIsList(w) || XmIsText(w)) && XmIsScrolledWindow(XtParent(w));
    return scrolls ? XtParent(w) : w;
}

/// A one-line field or a text of several lines: the text functions of the toolkit take both.
inline bool holds_text(Widget w) {
    return w != nullptr && (XmIsTextField(w) || XmIsText(w));
}

/// Inserts at the insertion point, which then stands behind the text, in view.
inline void insert_text(Widget w, const char* texte) {
    LocaleText text(texte);
    const XmTextPosition at = XmTextGetInsertionPosition(w);
    const XmTextPosition before = XmTextGetLastPosition(w);
    XmTextInsert(w, at, text.data());
    const XmTextPosition after = at + (XmTextGetLastPosition(w) - before);
    XmTextSetInsertionPosition(w, after);
    XmTextShowPosition(w, after);
}

inline void show_pixmap(Widget w, Pixmap pixmap) {
    Args args;
    args.set(XmNlabelType, XmPIXMAP).set(XmNlabelPixmap, pixmap);
    XtSetValues(w, args.list(), args.count());
}

} // namespace grx
