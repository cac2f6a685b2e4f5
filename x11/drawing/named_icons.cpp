// A list of icons that the application keeps in memory and finds by name.
#include "pure/axis.h"
#include "system/inventory.h"
#include "xt_gfx_f.h"
#include "xt_loc_f.h"

namespace {

SICON* tab_icon_mem = nullptr;
SICON** tab_icon_end = &tab_icon_mem; // at the end of the list, or shortly before it
ENRICON icon_courante{};

bool named(const ENRICON& icon, const char* name) {
    return strncmp(icon.nom_icon, name, sizeof icon.nom_icon) == 0;
}

SICON* new_entry(const ENRICON& icon) {
    auto* const entry = reinterpret_cast<SICON*>(grx_malloc(sizeof(SICON)));
    if (entry == nullptr) return nullptr;
    *entry = icon;
    entry->nom_icon[sizeof entry->nom_icon - 1] = '\0';
    entry->suiv = nullptr;
    return entry;
}

void free_entry(SICON* entry) {
    if (entry->tab_pix != nullptr) grx_free(reinterpret_cast<char*>(entry->tab_pix), entry->taille_buffer);
    grx_free(reinterpret_cast<char*>(entry), sizeof(SICON));
}

void count_icons(GRX_INVENTAIRE& into) {
    for (const SICON* icon = tab_icon_mem; icon != nullptr; icon = icon->suiv) ++into.nb_icones;
}

void list_icons(grx::InventoryList& list) {
    INT number = 0;
    for (const SICON* icon = tab_icon_mem; icon != nullptr; icon = icon->suiv)
        list.line(0, "icon %d: \"%.39s\", %u bytes", ++number, icon->nom_icon, icon->taille_buffer);
}

constexpr grx::AliveKind kIcons{"icons", count_icons, list_icons};

} // namespace

extern "C" {

INT init_tab_icon(void) {
    tab_icon_mem = nullptr;
    tab_icon_end = &tab_icon_mem;
    icon_courante.nom_icon[0] = '\0';
    return 0;
}

INT append_icon(ENRICON enr_icon) {
    SICON* const entry = new_entry(enr_icon);
    if (entry == nullptr) return 1;
    while (*tab_icon_end != nullptr) tab_icon_end = &(*tab_icon_end)->suiv;
    *tab_icon_end = entry;
    grx::tell_of(&kIcons);
    return 0;
}

INT cherche_icon(char* nom_icon, ENRICON** enr_icon) {
    if (nom_icon == nullptr || enr_icon == nullptr) return 0;
    if (icon_courante.nom_icon[0] != '\0' && named(icon_courante, nom_icon)) {
        *enr_icon = &icon_courante;
        return 1;
    }
    SICON* entry = tab_icon_mem;
    while (entry != nullptr && !named(*entry, nom_icon)) entry = entry->suiv;
    if (entry == nullptr) return 0;
    *enr_icon = entry;
    icon_courante = *entry;
    return 1;
}

INT desalloue_tab_icon(void) {
    while (tab_icon_mem != nullptr) {
        SICON* const entry = tab_icon_mem;
        tab_icon_mem = entry->suiv;
        free_entry(entry);
    }
    return init_tab_icon();
}

INT pixel_size_image(INT largeur, INT hauteur) {
    const int64_t size = int64_t{largeur} * hauteur;
    return grx::saturated(size);
}
}
