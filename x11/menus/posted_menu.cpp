// Menus that are open: the menu bar asks before it takes them down, its keys before they look for a letter.
#include "menus/posted_menu.h"

#include <Xm/MenuT.h>
#include <Xm/TraitP.h>
#include <Xm/Xm.h>

namespace grx {

namespace {

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

} // namespace grx
