// Controls of windows: their records, and what they hold.
#ifndef ATELIER_CONTROLES_H
#define ATELIER_CONTROLES_H

#include <cstdio>
#include <string>
#include <string_view>

#include "host_t.h"
#include "xt_bou_t.h"

namespace atelier {

// A control of window fenetre, still to be created; and its creation, which gives its number, -1 when it fails.
GRX_BOUTON bouton(INT fenetre, INT type, int x, int y, int largeur, int hauteur);
INT cree_bouton(GRX_BOUTON& b);

// What a field holds.
std::string texte_de(INT nobou);

// As much of a text as fits.
template <std::size_t N>
void copie(char (&champ)[N], std::string_view texte) {
    std::snprintf(champ, N, "%.*s", static_cast<int>(texte.size()), texte.data());
}

} // namespace atelier

#endif
