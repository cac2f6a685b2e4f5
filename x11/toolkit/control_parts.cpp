// Controls whose widget is not all there is to them: what is placed and shown of them, and where texts go.
#include "toolkit/control_parts.h"

#include <Xm/List.h>
#include <Xm/ScrolledW.h>
#include <Xm/Text.h>
#include <Xm/TextF.h>

#include "toolkit/args.h"
#include "toolkit/locale_text.h"

namespace grx {

Widget with_scroll_bars(Widget w) {
    const bool scrolls = w != nullptr && (XmIsList(w) || XmIsText(w)) && XmIsScrolledWindow(XtParent(w));
    return scrolls ? XtParent(w) : w;
}

bool holds_text(Widget w) {
    return w != nullptr && (XmIsTextField(w) || XmIsText(w));
}

void insert_text(Widget w, const char* texte) {
    LocaleText text(texte);
    const XmTextPosition at = XmTextGetInsertionPosition(w);
    const XmTextPosition before = XmTextGetLastPosition(w);
    XmTextInsert(w, at, text.data());
    const XmTextPosition after = at + (XmTextGetLastPosition(w) - before);
    XmTextSetInsertionPosition(w, after);
    XmTextShowPosition(w, after);
}

void show_pixmap(Widget w, Pixmap pixmap) {
    Args args;
    args.set(XmNlabelType, XmPIXMAP).set(XmNlabelPixmap, pixmap);
    XtSetValues(w, args.list(), args.count());
}

} // namespace grx
