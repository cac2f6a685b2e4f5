// Check boxes in windows and as items of panels, and what is chosen in the items that offer a choice.
#include <Xm/RowColumn.h>
#include <Xm/ToggleB.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <span>

#include "pure/sized_record.h"
#include "pure/text.h"
#include "system/trace.h"
#include "toolkit/args.h"
#include "toolkit/option_menu.h"
#include "toolkit/widgets.h"
#include "registry/control_table.h"
#include "controls/toggle_groups.h"
#include "panels/item_buttons.h"
#include "grx_plus_boutons.h"
#include "grx_plus_erreurs.h"
#include "xt_bou_f.h"
#include "xt_ent_t.h"
#include "xt_fen_f.h"
#include "xt_ini_t.h"
#include "xt_pan_f.h"

namespace {

// -- making check boxes

bool is_item(const GRX_CASE& box) {
    return box.ipan != GRX_AUCUN || box.item != GRX_AUCUN;
}

// 1, or why the item cannot have one more button.
INT code_for_item(const GRX_CASE& box) {
    if (!is_item(box)) return 1;
    const BOUTONS_PANEL* const item = grx::item_record(box.ipan, box.item);
    if (item == nullptr) return grx::refused(GRX_ECHEC_NUMERO, "item", box.item);
    return item->nb_bout < grx::kMostButtons ? 1 : grx::refused(GRX_ECHEC_PLEIN, "item", box.item);
}

// 1, or why the box cannot be made.
INT code_for(const GRX_CASE& box) {
    if (x11_disp == nullptr) return grx::refused(GRX_ECHEC_AFFICHAGE, "boite");
    Widget parent = grx_recup_objet_fen(box.nofen);
    if (parent == nullptr) return grx::refused(GRX_ECHEC_NUMERO, "nofen", box.nofen);
    if (!grx::can_hold_children(parent)) return grx::refused(GRX_ECHEC_GENRE, "nofen", box.nofen);
    if (const INT code = code_for_item(box); code != 1) return code;
    return grx::has_free_control() ? 1 : grx::refused(GRX_ECHEC_PLEIN, "boite");
}

// Comes behind what makes the record of a toggle, and gives it the state.
void on_tick(Widget toggle, XtPointer client, XtPointer) {
    STRUCTURE_BOUTON* const record = grx::control_record_at(client);
    if (record == nullptr) return;
    record->valeur = XmToggleButtonGetState(toggle) != False ? 1 : 0;
    evt_global.exec_fonction.valeur = record->valeur;
}

GRX_BOUTON toggle_for(const GRX_CASE& box) {
    GRX_BOUTON toggle;
    grx_init_bouton(&toggle);
    toggle.type = GRX_BOU_BASCULE;
    toggle.fen_mere = box.nofen;
    toggle.x = box.x;
    toggle.y = box.y;
    toggle.no_fo = box.no_fo;
    toggle.attrib = box.sensible != 0 ? GRX_BOU_ATT_ACTIF : GRX_BOU_ATT_VISIBLE;
    toggle.tabi[GRX_BOU_TABI_VALEUR] = box.etat != 0 ? 1 : 0;
    return toggle;
}

INT make_box(const GRX_CASE& box) {
    GRX_BOUTON toggle = toggle_for(box);
    const bool fits = grx::copy_text(toggle.titre, grx::view(box.texte));
    if (grx_cree_bouton(&toggle) != 0) return grx::refused(GRX_ECHEC_GENRE, "nofen", box.nofen);
    Widget w = grx_recup_objet_bout(toggle.nobou);
    if (!fits) grx::show_long_text(w, box.texte);
    XtAddCallback(w, XmNvalueChangedCallback, on_tick, grx::control_record(toggle.nobou));
    XmToggleButtonSetState(w, box.etat != 0 ? True : False, False);
    if (!is_item(box) || grx_memorise_bouton_item(box.ipan, box.item, grx::kItemChoice, toggle.nobou) == 0)
        return toggle.nobou;
    grx_detruit_bouton(toggle.nobou);
    return GRX_ECHEC_MEMOIRE;
}

// -- choices of items

// The buttons of an item, with what they are to it.
struct ItemButtons {
    std::span<const INT> numbers;
    const char* roles = nullptr;

    INT first(char role) const {
        const auto* const found = std::find(roles, roles + numbers.size(), role);
        const auto at = static_cast<std::size_t>(found - roles);
        return at < numbers.size() ? numbers[at] : GRX_AUCUN;
    }
    bool has_choice(INT choice) const {
        return choice >= 0 && choice < std::count(roles, roles + numbers.size(), grx::kItemChoice);
    }
    INT choice_at(INT wanted) const;
    INT index_of(Widget choice) const;
};

INT ItemButtons::choice_at(INT wanted) const {
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        if (roles[i] != grx::kItemLabel && wanted-- == 0) return numbers[i];
    }
    return GRX_AUCUN;
}

INT ItemButtons::index_of(Widget choice) const {
    INT index = 0;
    for (; has_choice(index); ++index) {
        if (grx_recup_objet_bout(choice_at(index)) == choice) return index;
    }
    return GRX_ECHEC_ABSENT;
}

ItemButtons buttons_of(INT ipan, INT item) {
    const BOUTONS_PANEL* const record = grx::item_record(ipan, item);
    if (record == nullptr || record->nb_bout == 0) return {};
    return {{record->tab_bout, record->nb_bout}, record->valide};
}

// The drop-down choice of an item: it stands beside its title and shows the menu in which the choices are.
Widget drop_down_of(const ItemButtons& buttons, Widget choice) {
    Widget title = grx_recup_objet_bout(buttons.first(grx::kItemLabel));
    if (title == nullptr || !XmIsRowColumn(XtParent(choice))) return nullptr;
    for (Widget w : grx::children_of(XtParent(title))) {
        if (XmIsRowColumn(w) && grx::resource<Widget>(w, XmNsubMenuId) == XtParent(choice)) return w;
    }
    return nullptr;
}

enum class ItemKind { Missing, Other, Group, Box, DropDown };

// An item that offers a choice, with the widget that knows it.
struct ItemChoice {
    ItemButtons buttons;
    ItemKind kind = ItemKind::Missing;
    Widget widget = nullptr;
};

ItemChoice choice_of(INT ipan, INT item) {
    ItemChoice found{buttons_of(ipan, item)};
    Widget choice = grx_recup_objet_bout(found.buttons.first(grx::kItemChoice));
    if (choice == nullptr) {
        found.kind = found.buttons.numbers.empty() ? ItemKind::Missing : ItemKind::Other;
    } else if (Widget box = grx::radio_box_of(choice)) {
        found.kind = ItemKind::Group;
        found.widget = box;
    } else if (XmIsToggleButton(choice)) {
        found.kind = ItemKind::Box;
        found.widget = choice;
    } else {
        found.widget = drop_down_of(found.buttons, choice);
        found.kind = found.widget != nullptr ? ItemKind::DropDown : ItemKind::Other;
    }
    return found;
}

// Why an item has no choice.
INT no_choice_in(ItemKind kind, INT item) {
    if (x11_disp == nullptr) return grx::refused(GRX_ECHEC_AFFICHAGE, "item", item);
    return grx::refused(kind == ItemKind::Missing ? GRX_ECHEC_NUMERO : GRX_ECHEC_GENRE, "item", item);
}

INT choose(const ItemChoice& item, INT number, INT choix) {
    switch (item.kind) {
    case ItemKind::Missing:
    case ItemKind::Other: return no_choice_in(item.kind, number);
    case ItemKind::Group:
        return grx::choose_toggle(item.widget, choix) ? 1 : grx::refused(GRX_ECHEC_PARAMETRE, "choix", choix);
    case ItemKind::Box:
        if (choix != 0 && choix != 1) return grx::refused(GRX_ECHEC_PARAMETRE, "choix", choix);
        return grx_affecte_etat_bascule(item.buttons.first(grx::kItemChoice), choix);
    case ItemKind::DropDown: break;
    }
    Widget choice = grx_recup_objet_bout(item.buttons.choice_at(choix));
    if (!item.buttons.has_choice(choix) || choice == nullptr) return grx::refused(GRX_ECHEC_PARAMETRE, "choix", choix);
    grx::set_resource(item.widget, XmNmenuHistory, choice);
    return 1;
}

INT chosen_in(const ItemChoice& item, INT number) {
    switch (item.kind) {
    case ItemKind::Missing:
    case ItemKind::Other: return no_choice_in(item.kind, number);
    case ItemKind::Box: return XmToggleButtonGetState(item.widget) != False ? 1 : 0;
    case ItemKind::DropDown: return item.buttons.index_of(grx::resource<Widget>(item.widget, XmNmenuHistory));
    case ItemKind::Group: break;
    }
    const INT choice = grx::chosen_toggle(item.widget);
    return choice >= 0 ? choice : GRX_ECHEC_ABSENT;
}

} // namespace

extern "C" {

INT grx_init_case(GRX_CASE* boite) {
    if (boite == nullptr) return grx::refused(GRX_ECHEC_PARAMETRE, "boite");
    *boite = GRX_CASE{};
    boite->taille = static_cast<INT>(sizeof *boite);
    boite->no_fo = boite->ipan = boite->item = GRX_AUCUN;
    boite->sensible = 1;
    return 1;
}

INT grx_cree_case(const GRX_CASE* boite) {
    GRX_CASE box;
    grx_init_case(&box);
    if (!grx::read_sized(boite, box)) return grx::refused(GRX_ECHEC_PARAMETRE, "boite");
    const INT code = code_for(box);
    return code == 1 ? make_box(box) : code;
}

INT grx_recup_choix_item(INT ipan, INT item) {
    return chosen_in(choice_of(ipan, item), item);
}

INT grx_affecte_choix_item(INT ipan, INT item, INT choix) {
    return choose(choice_of(ipan, item), item, choix);
}
}
