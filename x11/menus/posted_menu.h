// Menus that are open.
#pragma once

#include <Xm/MenuT.h>
#include <Xm/TraitP.h>
#include <Xm/Xm.h>

namespace grx {

inline const XmMenuSystemTraitRec* menu_system(Widget menu) {
    if (menu == nullptr) return nullptr;
    return static_cast<const XmMenuSystemTraitRec*>(
        XmeTraitGet(reinterpret_cast<XtPointer>(XtClass(menu)), XmQTmenuSystem));
}

/// True while a menu of a menu bar is open.
inline bool has_open_menu(Widget bar) {
    const auto* const system = menu_system(bar);
    return system != nullptr && system->getPopupPosted(bar) != nullptr;
}

/// Closes the menus of a menu bar and gives keyboard and pointer back.
inline void close_menus(Widget bar) {
    if (has_open_menu(bar)) menu_system(bar)->popdown(bar, nullptr);
}

} // namespace grx
