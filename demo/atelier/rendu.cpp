#include "rendu.h"

#include <algorithm>

#include "decoupe.h"
#include "police.h"
#include "reglages.h"
#include "traits.h"
#include "xt_gfx_f.h"

namespace atelier {

namespace {

constexpr double kTolerance = 0.2;       // pixels by which curves may be off
constexpr double kDebord = 64;           // pixels drawn beyond the window: wider than any line
constexpr double kTexteMin = 2.5;        // height in pixels below which a text is a smudge
constexpr std::size_t kPointsMax = 2000; // of one request
constexpr double kParEpaisseur = 20;     // height in pixels of a text for each width that its strokes gain
constexpr int kEpaisseurTexteMax = 4;
constexpr int kDemiCroix = 3;

GRX_POINT_POLY pixel(Point p) {
    return {static_cast<short>(std::lround(p.x)), static_cast<short>(std::lround(p.y))};
}

bool meme(GRX_POINT_POLY a, GRX_POINT_POLY b) {
    return a.x == b.x && a.y == b.y;
}

std::vector<GRX_POINT_POLY> pixels(const std::vector<Point>& points) {
    std::vector<GRX_POINT_POLY> r;
    r.reserve(points.size());
    for (const Point p : points)
        if (const GRX_POINT_POLY q = pixel(p); r.empty() || !meme(r.back(), q)) r.push_back(q);
    return r;
}

GRX_POLY poly(const Plume& plume, GRX_POINT_POLY* points, std::size_t nombre) {
    GRX_POLY p{};
    p.nofen = plume.nofen;
    p.points = points;
    p.npoints = static_cast<INT>(nombre);
    p.attrib = plume.attrib;
    return p;
}

void trace_point(const Plume& plume, GRX_POINT_POLY p) {
    GRX_POINT point{};
    point.nofen = plume.nofen;
    point.x = p.x;
    point.y = p.y;
    point.attrib = plume.attrib;
    grx_trace_point(point);
}

// Requests have a largest size: long lines go in several, each beginning where the last one ended.
void trace_ligne(const Plume& plume, const std::vector<Point>& ligne) {
    std::vector<GRX_POINT_POLY> p = pixels(ligne);
    if (p.size() == 1) return trace_point(plume, p[0]);
    for (std::size_t i = 0; i + 1 < p.size(); i += kPointsMax - 1)
        grx_trace_polyline(poly(plume, p.data() + i, std::min(kPointsMax, p.size() - i)));
}

void trace_croix(const Plume& plume, Point centre) {
    const GRX_POINT_POLY c = pixel(centre);
    const auto decale = [c](int dx, int dy) {
        return GRX_POINT_POLY{static_cast<short>(c.x + dx), static_cast<short>(c.y + dy)};
    };
    GRX_POINT_POLY h[2]{decale(-kDemiCroix, 0), decale(kDemiCroix, 0)};
    GRX_POINT_POLY v[2]{decale(0, -kDemiCroix), decale(0, kDemiCroix)};
    grx_trace_polyline(poly(plume, h, 2));
    grx_trace_polyline(poly(plume, v, 2));
}

void remplit(const Plume& plume, const Chemin& chemin, const Matrice& m, const Boite& limites) {
    chemin.aplatit(m, kTolerance, [&](const std::vector<Point>& contour) {
        std::vector<GRX_POINT_POLY> p = pixels(decoupe_surface(contour, limites));
        if (p.size() > 2) grx_remplit_polygone(poly(plume, p.data(), p.size()));
        // Thin surfaces keep an outline when they have less than a pixel of inside.
        if (!p.empty()) {
            p.push_back(p.front());
            grx_trace_polyline(poly(plume, p.data(), p.size()));
        }
    });
}

Boite ecran(int largeur, int hauteur) {
    return Boite::entre({-kDebord, -kDebord}, {largeur + kDebord, hauteur + kDebord});
}

// About the middle, so that texts stay where they are.
Matrice agrandie(const Boite& boite, double k) {
    const Point milieu = boite.centre();
    return Matrice::translation(milieu) * Matrice::echelle(k, k) * Matrice::translation(-1 * milieu);
}

Boite boite_montree(const Objet& o, double textes) {
    if (o.genre != Genre::Texte || o.boite.vide()) return o.boite;
    const Matrice m = agrandie(o.boite, textes);
    return Boite::entre(m.applique(o.boite.min), m.applique(o.boite.max));
}

void trace_lettres(Plume plume, const Objet& o, const Vue& vue, const Boite& limites, double textes) {
    const double hauteur = o.hauteur * vue.echelle() * textes;
    if (hauteur < kTexteMin) return;
    plume.attrib.epaisseur = static_cast<INT>(std::min<double>(hauteur / kParEpaisseur, kEpaisseurTexteMax));
    trace_chemin(plume, o.chemin, vue.vers_ecran() * agrandie(o.boite, textes), limites);
}

void trace_objet(const Plume& plume, const Objet& o, const Vue& vue, const Boite& limites, double textes) {
    const Matrice m = vue.vers_ecran();
    switch (o.genre) {
    case Genre::Plein: return remplit(plume, o.chemin, m, limites);
    case Genre::Point: return trace_croix(plume, m.applique(o.chemin.points().front()));
    case Genre::Texte: return trace_lettres(plume, o, vue, limites, textes);
    case Genre::Trait: return trace_chemin(plume, o.chemin, m, limites);
    }
}

} // namespace

void trace_chemin(const Plume& plume, const Chemin& chemin, const Matrice& m, const Boite& limites) {
    const int motif = periode(plume.attrib.type_trait);
    chemin.aplatit(m, kTolerance, [&](const std::vector<Point>& ligne) {
        if (ligne.size() == 1) return;
        decoupe_ligne(ligne, limites, motif, [&](const std::vector<Point>& part) { trace_ligne(plume, part); });
    });
}

void trace_dessin(INT nofen, const Dessin& dessin, const Vue& vue, const std::vector<int>& indices, double textes) {
    const Boite limites = ecran(vue.largeur(), vue.hauteur());
    const Boite visible = vue.visible();
    Plume plume{nofen, {}};
    for (const Objet& o : dessin.objets) {
        if (!dessin.calques[static_cast<std::size_t>(o.calque)].visible || !boite_montree(o, textes).touche(visible))
            continue;
        plume.attrib.coul_trace = indices[static_cast<std::size_t>(o.couleur)];
        plume.attrib.type_trait = o.trait;
        plume.attrib.epaisseur = o.epaisseur;
        trace_objet(plume, o, vue, limites, textes);
    }
}

// Every line begins and ends at a crossing of the grid: its dashes stay where they are when the view moves.
void trace_grille(const Plume& plume, const Vue& vue, double pas) {
    constexpr double kEcartMin = 6; // pixels
    const Boite visible = vue.visible(), limites = ecran(vue.largeur(), vue.hauteur());
    const double ecart = kEcartMin / vue.echelle();
    const auto xs = lignes_grille(pas, ecart, visible.min.x, visible.max.x);
    const auto ys = lignes_grille(pas, ecart, visible.min.y, visible.max.y);
    if (xs.empty() || ys.empty()) return;
    const auto trace = [&](Point p, Point q) {
        Chemin c;
        c.aller(p);
        c.ligne(q);
        trace_chemin(plume, c, vue.vers_ecran(), limites);
    };
    for (const double x : xs) trace({x, ys.front()}, {x, ys.back()});
    for (const double y : ys) trace({xs.front(), y}, {xs.back(), y});
}

double ecrit_texte(const Plume& plume, std::u32string_view texte, Point debut, double hauteur) {
    const double k = hauteur / police::kHauteur;
    const Matrice m = Matrice::translation(debut) * Matrice::echelle(k, -k);
    const Point fin{debut.x + k * police::largeur(texte), debut.y};
    const Point marge{kDebord, kDebord};
    trace_chemin(plume, police::ecrit(texte), m, Boite::entre(debut - marge, fin + marge));
    return fin.x;
}

} // namespace atelier
