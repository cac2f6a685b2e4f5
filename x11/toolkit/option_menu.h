// Drop-down choices: the menu that holds the choices, and the box that shows the current one.
#pragma once

#include <X11/Intrinsic.h>
#include <X11/StringDefs.h>
#include <Xm/RowColumn.h>
#include <Xm/Xm.h>

#include "toolkit/args.h"
#include "toolkit/look.h"
#include "toolkit/compound_string.h"

namespace grx {

inline bool can_hold_children(Widget w) {
    return w != nullptr && XtIsComposite(w);
}

inline bool is_pulldown(Widget w) {
    return w != nullptr && XmIsRowColumn(w) && resource<unsigned char>(w, XmNrowColumnType) == XmMENU_PULLDOWN;
}

/// What menus have in common: the application's colour, and a visual that their own shells need.
inline void set_menu_look(Args& args) {
    if (const auto pixel = application_pixel()) args.set(XmNbackground, *pixel);
    set_screen(args);
}

/// The same of dialogs, whose children take the application's font from them.
inline void set_dialog_look(Args& args) {
    args.set(XmNlabelFontList, fontlist).set(XmNbuttonFontList, fontlist).set(XmNtextFontList, fontlist);
    set_menu_look(args);
}

/// A menu that is not on show; null when it cannot be made.
inline Widget make_pulldown(Widget parent, const char* name) {
    if (!can_hold_children(parent)) return nullptr;
    Args args;
    set_menu_look(args);
    return XmCreatePulldownMenu(parent, const_cast<char*>(name), args.list(), args.count());
}

/// The box of a menu, managed, in the place that `args` gives; `shown` is the choice shown at first, null for the
/// toolkit's own. A menu that is no pulldown, or a choice that is not in it, breaks the toolkit: it is left out.
/// Once chosen in, the box has the keyboard: `on_key` gets what is typed.
inline Widget make_option_menu(Widget parent, const char* name, const char* title, Widget menu, Widget shown,
    XtEventHandler on_key, Args args = {}) {
    if (!can_hold_children(parent)) return nullptr;
    const CompoundString label(title);
    args.set(XmNlabelString, label.get());
    if (is_pulldown(menu)) args.set(XmNsubMenuId, menu);
    if (is_pulldown(menu) && shown != nullptr && XtParent(shown) == menu) args.set(XmNmenuHistory, shown);
    set_menu_look(args);
    Widget box = XmCreateOptionMenu(parent, const_cast<char*>(name), args.list(), args.count());
    if (box == nullptr) return nullptr;
    set_resource(XmOptionLabelGadget(box), XmNfontList, fontlist); // it does not come down from the box
    XtAddEventHandler(box, KeyPressMask, False, on_key, nullptr);
    XtManageChild(box);
    return box;
}

} // namespace grx
