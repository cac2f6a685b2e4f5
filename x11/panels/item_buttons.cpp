// Panels: the buttons that make up each item, in tables by panel and item.
#include "panels/item_buttons.h"

#include <Xm/DrawnB.h>
#include <Xm/Form.h>
#include <Xm/PushB.h>
#include <Xm/RowColumn.h>
#include <Xm/Scale.h>
#include <Xm/TextF.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <utility>

#include "pure/axis.h"
#include "pure/out.h"
#include "pure/size.h"
#include "system/block.h"
#include "system/shut_down.h"
#include "toolkit/widgets.h"
#include "xt_bou_f.h"
#include "xt_ini_t.h"
#include "xt_pan_f.h"

PANEL* Tab_pan = nullptr;
INT Nb_pan = 0;
BOUTONS_PANEL** Liste_btn = nullptr;
INT* Nb_item = nullptr;

namespace {

PANEL* given_panels = nullptr; // Tab_pan was set here, not by the application
INT table_size = 0;            // of Liste_btn and Nb_item, whatever the application makes of Nb_pan

template <class T>
bool allocate(T*& table, INT count) {
    table = grx::Block<T>(grx::room_for(count)).release();
    return table != nullptr;
}

template <class T>
void release(T*& table, INT count) {
    grx::Block<T>::adopt(table, grx::room_for(count)).reset();
    table = nullptr;
}

bool in_tables(INT ipan) {
    return Liste_btn != nullptr && Nb_item != nullptr && ipan >= 0 && ipan < table_size;
}

bool known_panel(INT ipan) {
    return in_tables(ipan) && ipan < Nb_pan;
}

} // namespace

namespace grx {

BOUTONS_PANEL* item_record(INT ipan, INT item) {
    if (!known_panel(ipan) || item < 0 || item >= Nb_item[ipan] || Liste_btn[ipan] == nullptr) return nullptr;
    return &Liste_btn[ipan][item];
}

} // namespace grx

namespace {

bool allocate_items(INT ipan, INT count) {
    if (count == 0) return true;
    if (!allocate(Liste_btn[ipan], count)) return false;
    Nb_item[ipan] = count;
    return true;
}

bool allocate_panels(INT nb_pan, const PANEL* tab) {
    if (!allocate(Liste_btn, nb_pan) || !allocate(Nb_item, nb_pan)) return false;
    for (INT i = 0; i < nb_pan && tab != nullptr; ++i) {
        if (!allocate_items(i, tab[i].nb_items)) return false;
    }
    return true;
}

// A longer copy of `old` with one more entry at its end.
template <class T>
grx::Block<T> with_one_more(const T* old, std::size_t count, T value) {
    auto longer = grx::Block<T>::raw(count + 1);
    if (!longer) return longer;
    std::copy_n(old, count, longer.data());
    longer[count] = value;
    return longer;
}

void replace(BOUTONS_PANEL& record, grx::Block<char> flags, grx::Block<INT> numbers) {
    const std::size_t old = record.nb_bout;
    record.nb_bout = static_cast<uchar>(numbers.size());
    grx::Block<char>::adopt(record.valide, old).reset();
    grx::Block<INT>::adopt(record.tab_bout, old).reset();
    record.valide = flags.release();
    record.tab_bout = numbers.release();
}

void forget_buttons(BOUTONS_PANEL& record) {
    for (std::size_t i = 0; i < record.nb_bout; ++i) grx_libere_indice_objet_bout(record.tab_bout[i]);
    replace(record, {}, {});
    record.objet_defaut = nullptr;
}

// The button that carries an item's text: its first label, or its first button when it has none.
INT label_button(INT ipan, INT item) {
    const BOUTONS_PANEL* const record = grx::item_record(ipan, item);
    if (record == nullptr || record->nb_bout == 0) return GRX_AUCUN;
    const char* const flags = record->valide;
    const char* const end = flags + record->nb_bout;
    const char* const label = std::find(flags, end, grx::kItemLabel);
    return record->tab_bout[label != end ? label - flags : 0];
}

// -- place and size

struct Box {
    INT x = GRX_AUCUN;
    INT y = GRX_AUCUN;
    grx::Size size;
};

Box box_of(Widget w) {
    const grx::Point where = grx::position_of(w);
    return {where.x, where.y, grx::size_of(w)};
}

// A composite item is as large as the form around its choices.
bool find_form_box(const BOUTONS_PANEL* record, Box& box) {
    if (record == nullptr || record->nb_bout < 2) return false;
    Widget form = grx::nearest_of_class(grx_recup_objet_bout(record->tab_bout[1]), xmFormWidgetClass);
    if (form == nullptr) return false;
    box = box_of(form);
    return true;
}

// The buttons of any other item stand side by side.
bool find_row_box(const BOUTONS_PANEL* record, Box& box) {
    if (record == nullptr) return false;
    for (std::size_t i = 0; i < record->nb_bout; ++i) {
        const INT nobou = record->tab_bout[i];
        if (grx_recup_objet_bout(nobou) == nullptr) return false;
        grx::Size size;
        grx_recup_taille_bouton(nobou, &size.width, &size.height);
        if (i == 0) {
            grx_recup_position_bouton(nobou, &box.x, &box.y);
            box.size.height = size.height;
        }
        box.size.width += size.width;
    }
    return true;
}

void forget_panels() {
    grx_desalloue_base_items_panels();
    Tab_pan = nullptr;
}

} // namespace

extern "C" {

INT grx_alloue_base_items_panels(INT nb_pan, PANEL* tab) {
    grx::at_shut_down(forget_panels);
    if (Liste_btn != nullptr || Nb_item != nullptr) grx_desalloue_base_items_panels();
    Nb_pan = table_size = std::max<INT>(nb_pan, 0);
    if (Tab_pan == nullptr) Tab_pan = given_panels = tab;
    if (!allocate_panels(Nb_pan, tab)) return GRX_ERR_ALLOC_PANNEAUX;
    return grx_alloue_base_liste_panels() == 0 ? 0 : GRX_ERR_ALLOC_PANNEAUX;
}

INT grx_desalloue_base_items_panels(void) {
    for (INT i = 0; in_tables(i); ++i) {
        if (Nb_item[i] > 0) release(Liste_btn[i], Nb_item[i]);
    }
    release(Nb_item, table_size);
    release(Liste_btn, table_size);
    Nb_pan = table_size = 0;
    if (Tab_pan == given_panels) Tab_pan = nullptr;
    given_panels = nullptr;
    return grx_desalloue_base_liste_panels();
}

INT grx_memorise_bouton_item(INT ipan, INT item, INT valide, INT nobou) {
    BOUTONS_PANEL* const record = grx::item_record(ipan, item);
    if (record == nullptr || record->nb_bout == grx::kMostButtons) return GRX_ERR_ALLOC_PANNEAUX;
    auto flags = with_one_more<char>(record->valide, record->nb_bout, valide != 0 ? grx::kItemChoice : grx::kItemLabel);
    auto numbers = with_one_more<INT>(record->tab_bout, record->nb_bout, nobou);
    if (!flags || !numbers) return GRX_ERR_ALLOC_PANNEAUX;
    replace(*record, std::move(flags), std::move(numbers));
    return 0;
}

INT recup_boutons_item(INT ipan, INT item, INT* nb, INT* tab) {
    if (nb == nullptr) return 0;
    const BOUTONS_PANEL* const record = grx::item_record(ipan, item);
    // KEEP: the capacity cuts before labels are passed over
    const INT looked_at = record != nullptr && tab != nullptr ? std::min<INT>(*nb, record->nb_bout) : 0;
    *nb = 0;
    for (INT i = 0; i < looked_at; ++i) {
        if (record->valide[i] != grx::kItemLabel) tab[(*nb)++] = record->tab_bout[i];
    }
    return 0;
}

INT grx_supprime_items(INT ipan) {
    for (INT item = 0; BOUTONS_PANEL* const record = grx::item_record(ipan, item); ++item) forget_buttons(*record);
    return 0;
}

INT grx_recup_type_bstate(INT nobou) {
    Widget w = grx_recup_objet_bout(nobou);
    if (w == nullptr) return GRX_BSTATE_BASCULE;
    if (XmIsPushButton(w) || XmIsDrawnButton(w)) return GRX_BSTATE_POUSSOIR;
    return XmIsRowColumn(XtParent(w)) ? GRX_BSTATE_GROUPE : GRX_BSTATE_BASCULE;
}

INT grx_recup_type_istate(INT nobou) {
    Widget w = grx_recup_objet_bout(nobou);
    if (w == nullptr) return GRX_ISTATE_CHOIX;
    if (XmIsTextField(w)) return GRX_ISTATE_TEXTE;
    return XmIsScale(w) ? GRX_ISTATE_ECHELLE : GRX_ISTATE_CHOIX;
}

INT grx_change_titre_item(INT ipan, INT item, char* titre) {
    grx_change_texte(label_button(ipan, item), titre);
    return 0;
}

INT grx_change_attribut_item(INT cas, INT ipan, INT item, INT ival, char* cval) {
    const INT nobou = label_button(ipan, item);
    switch (cas) {
    case GRX_CHANGE_ICONE: grx_change_icone_bouton(nobou, cval); break;
    case GRX_CHANGE_COULEUR: grx_change_couleur_bouton(nobou, ival); break;
    case GRX_CHANGE_TEXTE: grx_change_texte(nobou, cval); break;
    case GRX_CHANGE_ETAT:
        if (ival != 0)
            grx_enfonce_bouton(nobou);
        else
            grx_relache_bouton(nobou);
        break;
    default: break;
    }
    return 0;
}

INT grx_change_icone_item(INT ipan, INT item, char* icone) {
    return grx_change_attribut_item(GRX_CHANGE_ICONE, ipan, item, 0, icone);
}

INT grx_change_couleur_item(INT ipan, INT item, INT couleur) {
    return grx_change_attribut_item(GRX_CHANGE_COULEUR, ipan, item, couleur, nullptr);
}

INT grx_change_champ_label(INT ipan, INT item, char* texte) {
    return grx_change_attribut_item(GRX_CHANGE_TEXTE, ipan, item, 0, texte);
}

INT grx_change_etat_fonction(INT ipan, INT item, INT etat) {
    return grx_change_attribut_item(GRX_CHANGE_ETAT, ipan, item, etat, nullptr);
}

INT grx_recup_position_taille_item(INT ipan, INT item, INT type, INT* x, INT* y, INT* lar, INT* hau) {
    const BOUTONS_PANEL* const record = grx::item_record(ipan, item);
    Box box;
    const bool found = grx::is_composite_kind(type) ? find_form_box(record, box) : find_row_box(record, box);
    if (!found) return 0;
    grx::give(x, box.x);
    grx::give(y, box.y);
    grx::give(lar, box.size.width);
    grx::give(hau, box.size.height);
    return 1;
}

void grx_demande_taille_optimale_panel(INT* lar, INT* hau) {
    constexpr INT margin = 2; // a pixel on each side
    for (INT* const size : {lar, hau}) {
        if (size != nullptr) *size = grx::saturated(int64_t{*size} + margin);
    }
}
}
