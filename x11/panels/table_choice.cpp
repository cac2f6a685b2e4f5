// The choice control of the application's tables: a drop-down choice above the table.
#include <Xm/Xm.h>

#include <algorithm>
#include <array>
#include <cstring>

#include "pure/axis.h"
#include "pure/text.h"
#include "system/block.h"
#include "system/table.h"
#include "system/shut_down.h"
#include "display/lost_connection.h"
#include "toolkit/args.h"
#include "toolkit/option_menu.h"
#include "windows/window_events.h"
#include "host_g.h"
#include "xt_bou_f.h"
#include "xt_f.h"
#include "xt_fen_f.h"
#include "xt_ini_f.h"
#include "xt_tbl_t.h"

namespace {

// The toolkit's margins around the box of an option menu: the box itself begins at the place given.
constexpr INT kMarginLeft = 6;
constexpr INT kMarginTop = 2;
constexpr INT kHeightLess = 4; // than a field

std::array<Widget, GRX_NB_TABLES> Tab_option{};

void hide_boxes() {
    Tab_option.fill(nullptr);
}
std::array<std::size_t, GRX_NB_TABLES> allocated{}; // entries of each table's tbou_choix

struct Choices {
    INT nofo;
    INT count;
    char** texts;
    INT shown; // from 1

    const char* text(INT i) const { return texts[i] != nullptr ? texts[i] : ""; }
};

bool known_table(INT ind) {
    return ind >= 0 && ind < GRX_NB_TABLES;
}

// -- the numbers of the choices, in the table's record

void forget_tables() {
    Tab_option.fill(nullptr);
    allocated.fill(0);
}

bool allocate_numbers(INT ind, INT count) {
    grx::at_shut_down(forget_tables);
    TBL_TABLEUR_AFF& table = Taffiche[ind];
    table.nb_choix = std::max<INT>(count, 0);
    grx::Block<INT> numbers(grx::room_for(count));
    allocated[grx::as_index(ind)] = numbers.size();
    table.tbou_choix = numbers.release();
    if (table.tbou_choix == nullptr) table.nb_choix = 0;
    return table.tbou_choix != nullptr;
}

void release_numbers(INT ind, INT (*release)(INT nobou)) {
    TBL_TABLEUR_AFF& table = Taffiche[ind];
    auto numbers = grx::Block<INT>::adopt(table.tbou_choix, allocated[grx::as_index(ind)]);
    for (const INT nobou :
        numbers.span().first(std::min(numbers.size(), grx::as_index(std::max<INT>(table.nb_choix, 0)))))
        release(nobou);
    table.tbou_choix = nullptr;
    table.nb_choix = 0;
}

// -- the choices

INT longest_text(const Choices& choices) {
    std::size_t longest = 0;
    for (INT i = 0; i < choices.count; ++i) longest = std::max(longest, std::strlen(choices.text(i)));
    return static_cast<INT>(std::min<std::size_t>(longest, GRX_TITRE_MAX - 1));
}

GRX_BOUTON choice_in(Widget menu, INT nofen, INT pox, INT poy) {
    GRX_BOUTON choice;
    grx_init_bouton(&choice);
    choice.type = GRX_BOU_SIMPLE;
    choice.attrib = GRX_BOU_ATT_ACTIF;
    choice.ref_fen_mere = menu;
    choice.fen_mere = nofen;
    choice.x = pox;
    choice.y = poy;
    choice.hauteur = std::max<INT>(grx_recup_hau_carac_alpha() - kHeightLess, 1);
    return choice;
}

// Fills the menu and the table's numbers; gives the choice to be shown at first, null when there is none.
Widget add_choices(INT* numbers, GRX_BOUTON choice, const Choices& choices) {
    Widget shown = nullptr;
    choice.no_fo = choices.nofo;
    choice.largeur = grx_calc_larg_saisie(longest_text(choices));
    for (INT i = 0; i < choices.count; ++i) {
        grx::copy_text(choice.titre, choices.text(i));
        choice.tabi[GRX_BOU_TABI_VALEUR] = i + 1;
        numbers[i] = grx_cree_bouton(&choice) == 0 ? choice.nobou : GRX_AUCUN;
        if (i + 1 == choices.shown) shown = grx_recup_objet_bout(numbers[i]);
    }
    return shown;
}

// The control went with its window.
void on_death(Widget box, XtPointer, XtPointer) {
    for (INT ind = 0; ind < GRX_NB_TABLES; ++ind) {
        if (Tab_option[grx::as_index(ind)] != box) continue;
        Tab_option[grx::as_index(ind)] = nullptr;
        release_numbers(ind, grx_libere_indice_objet_bout);
    }
}

Widget make_box(Widget parent, Widget menu, Widget shown, INT pox, INT poy) {
    grx::Args args;
    args.set(XmNx, grx::as_position(grx::as_position(pox) - kMarginLeft));
    args.set(XmNy, grx::as_position(grx::as_position(poy) - kMarginTop));
    Widget box = grx::make_option_menu(parent, "OptionMenu", "", menu, shown, grx::key_over_part, args);
    if (box != nullptr) XtAddCallback(box, XmNdestroyCallback, on_death, nullptr);
    return box;
}

} // namespace

extern "C" {

INT grx_tbl_init_boutons_choix(void) {
    Tab_option.fill(nullptr);
    return 0;
}

INT grx_tbl_init_bouton_choix(INT ind) {
    if (known_table(ind)) Tab_option[grx::as_index(ind)] = nullptr;
    return 0;
}

INT grx_tbl_cree_boutons_choix(INT nofen, INT pox, INT poy, INT nofo, INT nb, char** tab, INT idef) {
    Widget parent = grx_recup_objet_fen(nofen);
    if (!known_table(Itbl) || !grx::can_hold_children(parent) || (tab == nullptr && nb > 0)) return 0;
    grx_tbl_detruit_boutons_choix();
    Widget menu = grx::make_pulldown(parent, "PullMenu");
    if (menu == nullptr) return 0;
    if (!allocate_numbers(Itbl, nb)) {
        XtDestroyWidget(menu);
        return 0;
    }
    const GRX_BOUTON choice = choice_in(menu, nofen, pox, poy);
    Widget shown = add_choices(Taffiche[Itbl].tbou_choix, choice, {nofo, nb, tab, idef});
    grx::at_lost_connection(hide_boxes);
    Tab_option[grx::as_index(Itbl)] = make_box(parent, menu, shown, pox, poy);
    return 0;
}

INT grx_tbl_detruit_boutons_choix(void) {
    Widget box = known_table(Itbl) ? Tab_option[grx::as_index(Itbl)] : nullptr;
    if (box == nullptr) return 0;
    Widget menu = grx::resource<Widget>(box, XmNsubMenuId);
    release_numbers(Itbl, grx_detruit_bouton);
    Tab_option[grx::as_index(Itbl)] = nullptr;
    XtDestroyWidget(box);
    if (menu != nullptr) XtDestroyWidget(menu);
    return 0;
}

INT grx_tbl_change_boutons_choix(INT nofen, INT pox, INT poy, INT nofo, INT nb, char** tab, INT idef) {
    grx_tbl_detruit_boutons_choix();
    return grx_tbl_cree_boutons_choix(nofen, pox, poy, nofo, nb, tab, idef);
}
}
