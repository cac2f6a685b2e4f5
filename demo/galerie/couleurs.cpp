// The page of colours: the reserved ones and the standard drawing colours, by their indices.
#include "galerie.h"

#include <array>

namespace galerie {

namespace {

constexpr INT kMarge = 12, kBas = 20; // pixels; height of the number below

void pastille(INT fenetre, INT couleur, const Boite& place, const char* nom) {
    GRX_BOUTON b = decrit(fenetre, GRX_BOU_COULEUR, GRX_BOU_ATT_ACTIF, place);
    b.coul_fond = couleur;
    grx_cree_bouton(&b);
    const std::string texte = std::to_string(couleur) + (*nom != '\0' ? " " : "") + nom;
    bouton(fenetre, GRX_BOU_LABEL, GRX_BOU_ATT_ACTIF, {place.x, place.y + place.hauteur + 2, -1, -1}, texte, -1);
}

} // namespace

void cree_couleurs(INT fenetre) {
    constexpr INT cote = 68, petit = 30, par_rangee = 16;
    constexpr std::array<const char*, GRX_NB_COULEURS_RESERVE> noms{
        "olive", "noir", "noir", "paille", "brun", "blanc", "jaune", "gris"};
    for (INT i = 0; i < GRX_NB_COULEURS_RESERVE; ++i)
        pastille(fenetre, i, {kMarge + i * (cote + 2 * kMarge / 3), kMarge, cote, cote / 2},
            noms[static_cast<std::size_t>(i)]);
    for (INT i = 0; i < 2 * par_rangee; ++i) {
        const INT x = kMarge + i % par_rangee * (petit + kMarge * 2 / 3);
        const INT y = 2 * kMarge + cote / 2 + kBas + i / par_rangee * (petit + kBas);
        pastille(fenetre, GRX_NB_COULEURS_RESERVE + i, {x, y, petit, petit}, "");
    }
}

} // namespace galerie
