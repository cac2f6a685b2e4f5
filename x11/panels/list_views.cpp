// Lists as the application reads them: texts, what is selected, what is in view, modes and columns.
#include <Xm/List.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <span>

#include "pure/out.h"
#include "pure/text.h"
#include "system/trace.h"
#include "toolkit/args.h"
#include "toolkit/compound_string.h"
#include "toolkit/list_columns.h"
#include "toolkit/list_entries.h"
#include "toolkit/lists.h"
#include "panels/list_numbers.h"
#include "grx_plus_erreurs.h"
#include "grx_plus_listes.h"
#include "xt_ini_f.h"
#include "xt_pan_t.h"

namespace {

static_assert(GRX_LISTE_UNE == GRX_LISTE_SIMPLE && GRX_LISTE_PLUSIEURS == GRX_LISTE_MULTIPLE);
static_assert(GRX_COLONNES_MAX == grx::kMostColumns);

// The list behind a number, with an entry at a position; else `code` says why not.
grx::ListNumber find_entry(INT liste, INT position) {
    grx::ListNumber found = grx::find_list(liste);
    if (found.list == nullptr || grx::are_positions(found, 1, &position)) return found;
    found.list = nullptr;
    found.code = grx::refused(GRX_ECHEC_PARAMETRE, "position", position);
    return found;
}

INT select(INT liste, INT nb, const INT* positions, bool selected) {
    const grx::ListNumber found = grx::find_list(liste);
    if (found.list == nullptr) return found.code;
    if (!grx::are_positions(found, nb, positions)) return grx::refused(GRX_ECHEC_PARAMETRE, "positions");
    grx::select_entries(found.list, {positions, static_cast<std::size_t>(nb)}, selected);
    grx::note_change(found);
    return 1;
}

// -- modes

unsigned char policy_for(const grx::ListNumber& found, INT mode) {
    switch (mode) {
    case GRX_LISTE_PLUSIEURS: return XmMULTIPLE_SELECT;
    case GRX_LISTE_ETENDUE: return XmEXTENDED_SELECT;
    default: return found.kind == grx::ListKind::Control ? XmBROWSE_SELECT : XmSINGLE_SELECT;
    }
}

INT mode_of(Widget list) {
    switch (grx::resource<unsigned char>(list, XmNselectionPolicy)) {
    case XmMULTIPLE_SELECT: return GRX_LISTE_PLUSIEURS;
    case XmEXTENDED_SELECT: return GRX_LISTE_ETENDUE;
    default: return GRX_LISTE_UNE;
    }
}

// -- columns

using Stops = std::array<INT, grx::kMostColumns>;

// False when they do not grow, or are too many.
bool read_stops(INT nb, const INT* arrets, INT unit, Stops& stops) {
    if (nb < 0 || nb >= GRX_COLONNES_MAX || (nb > 0 && arrets == nullptr)) return false;
    INT least = 1;
    for (std::size_t i = 0; i < static_cast<std::size_t>(nb); ++i) {
        if (arrets[i] < least || arrets[i] > INT16_MAX) return false;
        least = arrets[i] + 1;
        stops[i] = arrets[i] * unit;
    }
    return true;
}

} // namespace

extern "C" {

INT grx_recup_texte_element_liste(INT liste, INT position, char* texte, INT taille) {
    const grx::ListNumber found = find_entry(liste, position);
    if (found.list == nullptr) return found.code;
    const grx::PlainText text(grx::resource<XmStringTable>(found.list, XmNitems)[position - 1]);
    if (texte != nullptr && taille > 0) grx::copy_text(texte, static_cast<std::size_t>(taille), text.c_str());
    return static_cast<INT>(std::strlen(text.c_str()));
}

INT grx_selectionne_elements_liste(INT liste, INT nb, const INT* positions) {
    return select(liste, nb, positions, true);
}

INT grx_deselectionne_elements_liste(INT liste, INT nb, const INT* positions) {
    return select(liste, nb, positions, false);
}

INT grx_deselectionne_tout_liste(INT liste) {
    const grx::ListNumber found = grx::find_list(liste);
    if (found.list == nullptr) return found.code;
    grx::deselect_all(found.list);
    grx::note_change(found);
    return 1;
}

INT grx_recup_selection_liste(INT liste, INT nb_max, INT* positions) {
    const grx::ListNumber found = grx::find_list(liste);
    if (found.list == nullptr) return found.code;
    const int count = grx::resource<int>(found.list, XmNselectedPositionCount);
    if (count > 0 && nb_max > 0 && positions != nullptr)
        std::copy_n(grx::resource<int*>(found.list, XmNselectedPositions), std::min(count, nb_max), positions);
    return count;
}

INT grx_is_element_selectionne(INT liste, INT position) {
    const grx::ListNumber found = find_entry(liste, position);
    if (found.list == nullptr) return found.code;
    return grx::is_selected(found.list, position) ? 1 : 0;
}

INT grx_affecte_mode_liste(INT liste, INT mode) {
    const grx::ListNumber found = grx::find_list(liste);
    if (found.list == nullptr) return found.code;
    if (mode < GRX_LISTE_UNE || mode > GRX_LISTE_ETENDUE) return grx::refused(GRX_ECHEC_PARAMETRE, "mode", mode);
    grx::tell_several(found);
    grx::set_selection_policy(found.list, policy_for(found, mode));
    grx::note_change(found);
    return 1;
}

INT grx_recup_mode_liste(INT liste) {
    const grx::ListNumber found = grx::find_list(liste);
    return found.list != nullptr ? mode_of(found.list) : found.code;
}

INT grx_montre_element_liste(INT liste, INT position) {
    const grx::ListNumber found = find_entry(liste, position);
    if (found.list == nullptr) return found.code;
    grx::show_entry(found.list, position);
    return 1;
}

INT grx_recup_position_point_liste(INT liste, INT x, INT y) {
    const grx::ListNumber found = grx::find_list(liste);
    return found.list != nullptr ? grx::entry_at(found.list, x, y) : found.code;
}

INT grx_recup_cadre_element_liste(INT liste, INT position, INT* x, INT* y, INT* largeur, INT* hauteur) {
    const grx::ListNumber found = find_entry(liste, position);
    if (found.list == nullptr) return found.code;
    grx::EntryBox box;
    if (!grx::find_entry_box(found.list, position, box)) return GRX_ECHEC_ABSENT;
    grx::give(x, box.x);
    grx::give(y, box.y);
    grx::give(largeur, box.width);
    grx::give(hauteur, box.height);
    return 1;
}

INT grx_recup_vue_liste(INT liste, INT* position, INT* nb) {
    const grx::ListNumber found = grx::find_list(liste);
    if (found.list == nullptr) return found.code;
    const int first = grx::entry_count(found.list) > 0 ? grx::resource<int>(found.list, XmNtopItemPosition) : 0;
    int next = first;
    grx::EntryBox box;
    while (next > 0 && next <= grx::entry_count(found.list) && grx::find_entry_box(found.list, next, box)) ++next;
    grx::give(position, first);
    grx::give(nb, next - first);
    return 1;
}

INT grx_affecte_colonnes_liste(INT liste, INT nb, const INT* arrets, INT unite) {
    const grx::ListNumber found = grx::find_list(liste);
    if (found.list == nullptr) return found.code;
    if (unite != GRX_COLONNE_PIXELS && unite != GRX_COLONNE_CARACTERES)
        return grx::refused(GRX_ECHEC_PARAMETRE, "unite", unite);
    Stops stops{};
    const INT unit = unite == GRX_COLONNE_PIXELS ? 1 : grx_recup_lar_carac_alpha();
    if (!read_stops(nb, arrets, unit, stops)) return grx::refused(GRX_ECHEC_PARAMETRE, "arrets");
    const bool done = grx::set_column_stops(found.list, std::span(stops).first(static_cast<std::size_t>(nb)));
    return done ? 1 : GRX_ECHEC_MEMOIRE;
}
}
