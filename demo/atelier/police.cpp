#include "police.h"

#include <algorithm>
#include <cstdio>
#include <span>

#include "grx_plus_textes.h"
#include "texte.h"

namespace atelier::police {

namespace {

constexpr double kEspacement = 2;       // units between letters
constexpr double kFin = 100;            // pixels of a unit, where outlines are asked for
constexpr double kTolerance = 4;        // of these pixels
constexpr std::size_t kCaracteres = 60; // of a record: of four bytes each at most

double longueur(const GRX_TEXTE& t) {
    GRX_BOITE_TEXTE boite;
    grx_init_boite_texte(&boite);
    return grx_recup_boite_texte(&t, &boite) > 0 ? boite.longueur : 0;
}

void ajoute_traits(Chemin& chemin, const GRX_TEXTE& t, double x) {
    GRX_CONTOURS_TEXTE c;
    grx_init_contours_texte(&c);
    if (grx_recup_contours_texte(&t, kTolerance, &c) <= 0) return;
    for (INT i = 0; i < c.nb_contours; ++i) {
        for (INT k = c.debuts[i]; k < c.debuts[i + 1]; ++k) {
            const Point p{x + c.points[k].x / kFin, -c.points[k].y / kFin};
            k == c.debuts[i] ? chemin.aller(p) : chemin.ligne(p);
        }
    }
}

} // namespace

void morceaux(std::u32string_view texte, double hauteur, const std::function<void(GRX_TEXTE&, double)>& prend) {
    double x = 0;
    for (; !texte.empty(); texte.remove_prefix(std::min(kCaracteres, texte.size()))) {
        GRX_TEXTE t;
        grx_init_texte_dessin(&t);
        std::snprintf(t.fontlabel, sizeof t.fontlabel, "%s", GRX_FONTE_TRAIT);
        std::snprintf(t.chaine, sizeof t.chaine, "%s", en_utf8(texte.substr(0, kCaracteres)).c_str());
        t.hauteurlabel = hauteur;
        prend(t, x);
        t.x = t.y = 0;
        x += longueur(t);
    }
}

double largeur(std::u32string_view texte) {
    double r = 0;
    morceaux(texte, kHauteur, [&](const GRX_TEXTE& t, double) { r += longueur(t); });
    return texte.empty() ? 0 : r - kEspacement;
}

Chemin ecrit(std::u32string_view texte) {
    Chemin chemin;
    morceaux(texte, kHauteur * kFin, [&](const GRX_TEXTE& t, double x) { ajoute_traits(chemin, t, x / kFin); });
    return chemin;
}

} // namespace atelier::police
