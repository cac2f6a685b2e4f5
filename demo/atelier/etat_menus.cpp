#include "etat_menus.h"

#include "grx_plus_menus.h"

namespace atelier {

namespace {

constexpr INT kGarde = 1; // in the menus of another module as well

bool change(std::map<INT, bool>& etats, INT fonction, bool etat) {
    const auto [place, neuf] = etats.try_emplace(fonction, etat);
    const bool autre = neuf || place->second != etat;
    place->second = etat;
    return autre;
}

} // namespace

void EtatMenus::permet(INT fonction, bool possible) {
    if (change(possibles_, fonction, possible)) grx_desactive_entree_menu(fonction, possible ? 0 : 1, kGarde);
}

void EtatMenus::coche(INT fonction, bool marquee) {
    if (change(marquees_, fonction, marquee)) grx_coche_entree_menu(fonction, marquee ? 1 : 0, kGarde);
}

} // namespace atelier
