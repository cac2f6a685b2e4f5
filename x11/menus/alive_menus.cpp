// The menus of the bar, for the list of what is alive: in the order in which they were made.
#include "menus/alive_menus.h"

#include <Xm/CascadeBP.h>
#include <Xm/Xm.h>

#include "system/inventory.h"
#include "toolkit/label_memory.h"
#include "menus/menu_widgets.h"

namespace grx {

namespace {

// The number of the menu that an entry or a menu stands in, from 1; 0 for the bar.
int menu_around(Widget inner) {
    int number = 0;
    for (Widget cascade : menu_cascades()) {
        ++number;
        if (CB_Submenu(cascade) == XtParent(inner)) return number;
    }
    return 0;
}

void list_menus(InventoryList& list) {
    int number = 0;
    for (Widget cascade : menu_cascades())
        list.line(0, "menu %d: in menu %d%s", ++number, menu_around(cascade), quoted_label(cascade).data());
    number = 0;
    for (Widget entry : menu_entries()) {
        ++number;
        if (entry != nullptr)
            list.line(0, "menu entry %d: in menu %d%s", number, menu_around(entry), quoted_label(entry).data());
    }
}

void count_menus(GRX_INVENTAIRE& into) {
    into.nb_menus += static_cast<INT>(menu_cascades().size());
    for (Widget entry : menu_entries()) into.nb_entrees += entry != nullptr ? 1 : 0;
}

constexpr AliveKind kMenus{"menus", count_menus, list_menus};

} // namespace

void tell_of_menus() {
    tell_of(&kMenus);
}

} // namespace grx
