// Menus that are open: the menu bar asks before it takes them down, its keys before they look for a letter.
#include "menus/posted_menu.h"

#include <X11/IntrinsicP.h>
#include <X11/ShellP.h>
#include <Xm/MenuT.h>
#include <Xm/TraitP.h>
#include <Xm/Xm.h>

namespace grx {

namespace {

Widget context_menu = nullptr;

const XmMenuSystemTraitRec* menu_system(Widget menu) {
    if (menu == nullptr) return nullptr;
    return static_cast<const XmMenuSystemTraitRec*>(
        XmeTraitGet(reinterpret_cast<XtPointer>(XtClass(menu)), XmQTmenuSystem));
}

} // namespace

bool has_open_menu(Widget bar) {
    const auto* const system = menu_system(bar);
    return system != nullptr && system->getPopupPosted(bar) != nullptr;
}

void close_menus(Widget bar) {
    if (has_open_menu(bar)) menu_system(bar)->popdown(bar, nullptr);
}

bool is_posted_popup(Widget menu) {
    return XtIsManaged(menu) && reinterpret_cast<ShellWidget>(XtParent(menu))->shell.popped_up != False;
}

void close_popup(Widget menu) {
    if (is_posted_popup(menu)) menu_system(menu)->popdown(menu, nullptr);
}

Widget open_context_menu() {
    return context_menu;
}

void set_open_context_menu(Widget menu) {
    context_menu = menu;
}

} // namespace grx
