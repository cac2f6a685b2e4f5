#include "hpgl.h"

#include <algorithm>
#include <array>

#include "decoupe.h"

namespace atelier {

namespace {

constexpr double kTolerance = 1; // plotter units by which curves may be off

std::string place(Point p) {
    return std::to_string(std::lround(p.x)) + "," + std::to_string(std::lround(p.y));
}

// Up to the first point, down to the others.
std::string trait(const std::vector<Point>& points) {
    std::string r = "PU" + place(points.front()) + ";PD";
    for (std::size_t i = 1; i < points.size(); ++i) r += (i > 1 ? "," : "") + place(points[i]);
    return r + ";\n";
}

Matrice vers_feuille(const Boite& cadre) {
    const double k = std::min(kLargeurTrace / cadre.largeur(), kHauteurTrace / cadre.hauteur());
    return Matrice::echelle(k, k) * Matrice::translation(-1 * cadre.min);
}

std::string traits_de(const Objet& o, const Matrice& m, const Boite& feuille) {
    std::string r;
    o.chemin.aplatit(m, kTolerance, [&](std::vector<Point>& ligne) {
        if (o.genre == Genre::Plein) ligne.push_back(Point(ligne.front()));
        if (ligne.size() < 2) ligne.push_back(Point(ligne.front()));
        decoupe_ligne(ligne, feuille, 0, [&](const std::vector<Point>& part) {
            if (part.size() > 1) r += trait(part);
        });
    });
    return r;
}

bool utilisable(const Boite& cadre) {
    return cadre.largeur() > 0 && cadre.hauteur() > 0 && std::isfinite(cadre.largeur())
           && std::isfinite(cadre.hauteur());
}

} // namespace

std::string hpgl(const Dessin& dessin, const Boite& cadre) {
    std::array<std::string, kNbPlumesTraceur> plumes;
    const Matrice m = utilisable(cadre) ? vers_feuille(cadre) : Matrice();
    const Boite feuille = Boite::entre({}, m.applique(cadre.max));
    for (const Objet& o : dessin.objets) {
        if (!utilisable(cadre) || !dessin.calques[static_cast<std::size_t>(o.calque)].visible) continue;
        plumes[static_cast<std::size_t>(o.couleur % kNbPlumesTraceur)] += traits_de(o, m, feuille);
    }
    std::string r = "IN;PA;\n";
    for (std::size_t i = 0; i < plumes.size(); ++i)
        if (!plumes[i].empty()) r += "SP" + std::to_string(i + 1) + ";\n" + plumes[i];
    return r + "PU;SP0;\n";
}

} // namespace atelier
