// Drop-down choices and the menus behind them, as every room makes them.
#include "toolkit/option_menu.h"

#include <Xm/RowColumn.h>

#include "toolkit/compound_string.h"
#include "toolkit/look.h"
#include "xt_ini_t.h"

namespace grx {

bool can_hold_children(Widget w) {
    return w != nullptr && XtIsComposite(w);
}

bool is_pulldown(Widget w) {
    return w != nullptr && XmIsRowColumn(w) && resource<unsigned char>(w, XmNrowColumnType) == XmMENU_PULLDOWN;
}

void set_menu_look(Args& args) {
    if (const auto pixel = application_pixel()) args.set(XmNbackground, *pixel);
    set_screen(args);
}

void set_dialog_look(Args& args) {
    args.set(XmNlabelFontList, fontlist).set(XmNbuttonFontList, fontlist).set(XmNtextFontList, fontlist);
    set_menu_look(args);
}

Widget make_pulldown(Widget parent, const char* name) {
    if (!can_hold_children(parent)) return nullptr;
    Args args;
    set_menu_look(args);
    return XmCreatePulldownMenu(parent, const_cast<char*>(name), args.list(), args.count());
}

Widget make_option_menu(
    Widget parent, const char* name, const char* title, Widget menu, Widget shown, XtEventHandler on_key, Args args) {
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
