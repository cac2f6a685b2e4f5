// Lists changed by the application: filled, added to, replaced and taken away.
#include <algorithm>
#include <span>

#include "system/block.h"
#include "system/trace.h"
#include "toolkit/list_columns.h"
#include "toolkit/list_entries.h"
#include "toolkit/lists.h"
#include "panels/list_numbers.h"
#include "panels/panel_lists.h"
#include "grx_plus_erreurs.h"
#include "grx_plus_listes.h"
#include "xt_pan_f.h"

namespace {

// Texts of the application on their way into a list.
struct Texts {
    grx::EntryTable entries;
    grx::ColumnWidths widths;
};

bool readable(INT nb, const char* const* textes) {
    return nb == 0 || (nb > 0 && textes != nullptr);
}

bool read_texts(INT nb, const char* const* textes, Texts& texts) {
    const std::span given(textes, static_cast<std::size_t>(nb));
    texts.entries = grx::EntryTable(given.size());
    if (!texts.entries) return false;
    for (std::size_t i = 0; i < given.size(); ++i) {
        texts.entries.set_in_columns(i, given[i]);
        texts.widths.add(given[i]);
    }
    return true;
}

// One change of a list by texts: checked, read, and done when there is room for `count` entries.
template <class Change>
INT change_by_texts(const grx::ListNumber& found, INT nb, const char* const* textes, int64_t count, Change change) {
    if (!readable(nb, textes)) return grx::refused(GRX_ECHEC_PARAMETRE, "nb, textes", nb);
    Texts texts;
    if (count > INT32_MAX || !read_texts(nb, textes, texts)) return GRX_ECHEC_MEMOIRE;
    if (!grx::make_room(found, static_cast<int>(count)) || !change(texts)) return GRX_ECHEC_MEMOIRE;
    grx::note_change(found);
    return 1;
}

INT fill(const grx::ListNumber& found, INT nb, const char* const* textes) {
    return change_by_texts(found, nb, textes, nb, [&](Texts& texts) {
        if (!grx::line_up_columns(found.list, texts.widths, true)) return false;
        grx::fill_list(found.list, texts.entries);
        return true;
    });
}

INT insert(const grx::ListNumber& found, INT position, INT nb, const char* const* textes) {
    const int64_t count = grx::entry_count(found.list);
    if (position < 1 || position > count + 1) return grx::refused(GRX_ECHEC_PARAMETRE, "position", position);
    return change_by_texts(found, nb, textes, count + nb, [&](Texts& texts) {
        if (!grx::line_up_columns(found.list, texts.widths, count == 0)) return false;
        grx::insert_entries(found.list, position, texts.entries);
        return true;
    });
}

bool has_entries(Widget list, INT position, INT nb) {
    return position >= 1 && nb >= 0 && int64_t{position} + nb <= int64_t{grx::entry_count(list)} + 1;
}

INT replace(const grx::ListNumber& found, INT position, INT nb, const char* const* textes) {
    if (!has_entries(found.list, position, nb)) return grx::refused(GRX_ECHEC_PARAMETRE, "position", position);
    return change_by_texts(found, nb, textes, grx::entry_count(found.list), [&](Texts& texts) {
        return grx::line_up_columns(found.list, texts.widths, false)
               && grx::replace_entries(found.list, position, texts.entries);
    });
}

INT take_away(const grx::ListNumber& found, std::span<const INT> positions) {
    grx::Block<INT> sorted(positions.size());
    if (!sorted) return GRX_ECHEC_MEMOIRE;
    std::copy(positions.begin(), positions.end(), sorted.begin());
    std::sort(sorted.begin(), sorted.end());
    INT* const end = std::unique(sorted.begin(), sorted.end());
    grx::delete_positions(found.list, {sorted.begin(), end});
    grx::note_change(found);
    return 1;
}

} // namespace

extern "C" {

INT grx_recup_liste_panneau(INT ipan, INT clef) {
    if (grx_recup_objet_item_liste(ipan, clef) == nullptr) return grx::refused(GRX_ECHEC_NUMERO, "clef", clef);
    return GRX_LISTE_PANNEAU + test_liste_deja_affichee(ipan, clef + GRX_BASE_CLEF_LISTE);
}

INT grx_remplit_liste(INT liste, INT nb, const char* const* textes) {
    const grx::ListNumber found = grx::find_list(liste);
    return found.list != nullptr ? fill(found, nb, textes) : found.code;
}

INT grx_vide_liste(INT liste) {
    return grx_remplit_liste(liste, 0, nullptr);
}

INT grx_ajoute_elements_liste(INT liste, INT nb, const char* const* textes) {
    const grx::ListNumber found = grx::find_list(liste);
    if (found.list == nullptr) return found.code;
    return insert(found, grx::entry_count(found.list) + 1, nb, textes);
}

INT grx_insere_elements_liste(INT liste, INT position, INT nb, const char* const* textes) {
    const grx::ListNumber found = grx::find_list(liste);
    return found.list != nullptr ? insert(found, position, nb, textes) : found.code;
}

INT grx_remplace_elements_liste(INT liste, INT position, INT nb, const char* const* textes) {
    const grx::ListNumber found = grx::find_list(liste);
    return found.list != nullptr ? replace(found, position, nb, textes) : found.code;
}

INT grx_supprime_elements_liste(INT liste, INT position, INT nb) {
    const grx::ListNumber found = grx::find_list(liste);
    if (found.list == nullptr) return found.code;
    if (!has_entries(found.list, position, nb)) return grx::refused(GRX_ECHEC_PARAMETRE, "position", position);
    grx::delete_entries(found.list, position, nb);
    grx::note_change(found);
    return 1;
}

INT grx_supprime_positions_liste(INT liste, INT nb, const INT* positions) {
    const grx::ListNumber found = grx::find_list(liste);
    if (found.list == nullptr) return found.code;
    if (!grx::are_positions(found, nb, positions)) return grx::refused(GRX_ECHEC_PARAMETRE, "positions");
    return nb > 0 ? take_away(found, {positions, static_cast<std::size_t>(nb)}) : 1;
}

INT grx_recup_nombre_elements_liste(INT liste) {
    const grx::ListNumber found = grx::find_list(liste);
    return found.list != nullptr ? grx::entry_count(found.list) : found.code;
}
}
