#include "rendu.h"

#include <algorithm>
#include <cmath>

#include "decoupe.h"
#include "grx_plus_textes.h"
#include "ordre.h"
#include "pinceau.h"
#include "police.h"
#include "reglages.h"
#include "texte.h"

namespace atelier {

namespace {

constexpr double kTolerance = 0.2;   // pixels by which curves may be off
constexpr double kDebord = 64;       // pixels that a wide line, or a cross, may show beyond its box, at most
constexpr double kDebordFin = 1;     // and a thin line
constexpr double kTexteMin = 2.5;    // height in pixels below which a text is a smudge
constexpr double kParEpaisseur = 20; // height in pixels of a text for each width that its strokes gain
constexpr int kEpaisseurTexteMax = 4;
constexpr int kDemiCroix = 3;

void trace_sur(Pinceau& pinceau, const Trace& chemin, const Matrice& m, const Boite& limites) {
    chemin.aplatit(m, kTolerance, [&](const std::vector<Point>& ligne) {
        if (ligne.size() == 1) return;
        decoupe_ligne(ligne, limites, pinceau.motif(), [&](const std::vector<Point>& part) { pinceau.ligne(part); });
    });
}

Boite elargie(const Boite& b, double bord) {
    return {b.min - Point{bord, bord}, b.max + Point{bord, bord}};
}

bool contient(const Boite& grande, const Boite& petite) {
    return grande.min.x <= petite.min.x && grande.min.y <= petite.min.y && petite.max.x <= grande.max.x
           && petite.max.y <= grande.max.y;
}

// Whether all of a box is one pixel, near enough that its number exists.
bool un_pixel(const Boite& b) {
    return b.max.x - b.min.x < 1 && b.max.y - b.min.y < 1 && pixel(b.min) == pixel(b.max);
}

// Draws the objects that show within a part of the screen.
class Rendu {
  public:
    Rendu(const Scene& scene, const Vue& vue, const Boite& partie)
        : scene_(scene), m_(vue.vers_feuille()), portee_(vue.portee()), echelle_(vue.echelle()),
          pinceau_(Plume{scene.nofen, {}}, vue.decalage()) {
        const Point coin{1.0 * vue.decalage().x, 1.0 * vue.decalage().y};
        partie_ = {partie.min - coin, partie.max - coin};
        for (const CalqueVu& calque : scene.dessin.calques) visibles_.push_back(calque.visible ? 1 : 0);
        const Boite large = elargie(partie, kDebord);
        cherchee_ = Boite::entre(vue.vers_dessin(large.min), vue.vers_dessin(large.max));
    }

    void tout() {
        scene_.dessin.index.cherche(cherchee_, [&](std::size_t debut, std::size_t fin) {
            for (std::size_t i = debut; i < fin; ++i) objet(scene_.dessin.objets[i]);
        });
    }

  private:
    void objet(const Objet& o) {
        if (visibles_[static_cast<std::size_t>(o.calque)] == 0) return;
        if (o.genre == Genre::Texte) return texte(o);
        const Boite b = sur_feuille(o.boite);
        if (!elargie(b, o.epaisseur == 0 && o.genre != Genre::Point ? kDebordFin : kDebord).touche(partie_)) return;
        prend(o, o.epaisseur);
        if (o.genre == Genre::Point) return croix(m_.applique(o.chemin.points().front()));
        if (o.chemin.nb_points() > 1 && un_pixel(b)) return pinceau_.point(pixel(b.min));
        if (o.genre == Genre::Plein) return remplit(o);
        trait(o, b);
    }

    Boite sur_feuille(const Boite& b) const {
        const Point p = m_.applique(b.min), q = m_.applique(b.max); // y turns round
        return {{p.x, q.y}, {q.x, p.y}};
    }

    void prend(const Objet& o, int epaisseur) {
        pinceau_.prend(scene_.indices[static_cast<std::size_t>(o.couleur)], o.trait, epaisseur);
    }

    void trait(const Objet& o, const Boite& b) {
        if (!contient(portee_, b)) return trace_sur(pinceau_, o.chemin, m_, portee_);
        if (pinceau_.fine() && plate(echelle_ * o.courbure, kTolerance)) return lignes(o.chemin);
        const auto ligne = [&](const std::vector<Point>& points) {
            if (points.size() > 1) pinceau_.ligne(points);
        };
        o.chemin.aplatit(m_, kTolerance, ligne, points_);
    }

    // Thin, solid and within reach; curves are so flat that their ends are enough.
    void lignes(const Trace& chemin) {
        const Point* point = chemin.points().data();
        Pixel ici;
        bool immobile = false, trace = false; // the stroke at hand: came back to its pixel, left it
        const auto finit = [&] {
            if (immobile && !trace) pinceau_.point(ici);
            immobile = trace = false;
        };
        for (const Pas pas : chemin.pas()) {
            if (pas == Pas::Aller) finit();
            point += pas == Pas::Courbe ? 2 : 0;
            const Pixel la = pixel(m_.applique(*point++));
            if (pas != Pas::Aller) (la == ici ? immobile : trace) = true;
            if (pas != Pas::Aller && la != ici) pinceau_.segment(ici, la);
            ici = la;
        }
        finit();
    }

    void texte(const Objet& o) {
        const double hauteur = o.hauteur * echelle_ * scene_.textes;
        if (hauteur < kTexteMin) return;
        if (!elargie(sur_feuille(agrandie(o.boite, scene_.textes)), kDebord).touche(partie_)) return;
        prend(o, static_cast<int>(std::min<double>(hauteur / kParEpaisseur, kEpaisseurTexteMax)));
        trace_sur(pinceau_, o.chemin, m_ * agrandissement(o.boite.centre()), portee_);
    }

    // About the middle, so that texts stay where they are.
    Matrice agrandissement(Point milieu) const {
        return Matrice::translation(milieu) * Matrice::echelle(scene_.textes, scene_.textes)
               * Matrice::translation(-1 * milieu);
    }

    void croix(Point centre) {
        const Pixel c = pixel(centre);
        pinceau_.segment({c.x - kDemiCroix, c.y}, {c.x + kDemiCroix, c.y});
        pinceau_.segment({c.x, c.y - kDemiCroix}, {c.x, c.y + kDemiCroix});
    }

    void remplit(const Objet& o) {
        o.chemin.aplatit(m_, kTolerance,
            [&](const std::vector<Point>& contour) { pinceau_.surface(decoupe_surface(contour, portee_)); });
    }

    const Scene& scene_;
    Matrice m_;
    Boite portee_;
    std::vector<char> visibles_; // of the layers
    Boite partie_;               // on the sheet
    Boite cherchee_;             // in the drawing
    double echelle_;
    Pinceau pinceau_;
    std::vector<Point> points_; // of the curve at hand
};

// A part of the sheet, in the drawing.
Boite du_dessin(const Vue& vue, const Boite& feuille) {
    const Matrice m = vue.vers_feuille();
    const auto inverse = [&](Point p) { return Point{(p.x - m.e) / m.a, (p.y - m.f) / m.d}; };
    return Boite::entre(inverse(feuille.min), inverse(feuille.max));
}

} // namespace

void trace_chemin(const Plume& plume, const Trace& chemin, const Matrice& m, const Boite& limites) {
    Pinceau pinceau(plume, {});
    trace_sur(pinceau, chemin, m, limites);
}

void trace_dessin(const Scene& scene, const Vue& vue, const Boite& partie) {
    Rendu(scene, vue, partie).tout();
}

// Every line begins and ends at a crossing of the grid on the sheet: its dashes stay where they are when the view moves.
void trace_grille(const Plume& plume, const Vue& vue, double pas) {
    constexpr double kEcartMin = 6; // pixels
    const Boite visible = vue.visible(), tout = du_dessin(vue, vue.portee());
    const double ecart = kEcartMin / vue.echelle();
    const auto xs = lignes_grille(pas, ecart, visible.min.x, visible.max.x);
    const auto ys = lignes_grille(pas, ecart, visible.min.y, visible.max.y);
    const auto bouts_x = lignes_grille(pas, ecart, tout.min.x, tout.max.x);
    const auto bouts_y = lignes_grille(pas, ecart, tout.min.y, tout.max.y);
    if (xs.empty() || ys.empty()) return;
    Pinceau pinceau(plume, vue.decalage());
    const auto trace = [&](Point p, Point q) {
        Chemin c;
        c.aller(p);
        c.ligne(q);
        trace_sur(pinceau, c, vue.vers_feuille(), vue.portee());
    };
    for (const double x : xs) trace({x, bouts_y.front()}, {x, bouts_y.back()});
    for (const double y : ys) trace({bouts_x.front(), y}, {bouts_x.back(), y});
}

double ecrit_texte(const Plume& plume, std::u32string_view texte, Point debut, double hauteur) {
    police::morceaux(texte, hauteur, [&](GRX_TEXTE& t, double x) {
        t.nofen = plume.nofen;
        t.x = static_cast<INT>(std::lround(debut.x + x));
        t.y = static_cast<INT>(std::lround(debut.y));
        t.attrib = plume.attrib;
        grx_trace_texte_dessin(&t);
    });
    return debut.x + police::largeur(texte) * hauteur / police::kHauteur;
}

// On whole pixels of the sheet, so that a moved picture is the one drawn anew.
void trace_notes(const Plume& plume, const std::vector<Note>& notes, const Vue& vue) {
    constexpr double kHauteur = 9;
    const Matrice m = vue.vers_feuille();
    const Boite portee = vue.portee();
    for (const Note& note : notes) {
        const Point p = m.applique(note.place);
        if (!portee.touche(Boite::entre(p, p))) continue;
        const double x = std::round(p.x) + vue.decalage().x, y = std::round(p.y) + vue.decalage().y;
        const double suite = ecrit_texte(plume, U"+ ", {x - kHauteur / 3, y + kHauteur / 2}, kHauteur);
        ecrit_texte(plume, en_unicode(note.texte), {suite, y + kHauteur / 2}, kHauteur);
    }
}

} // namespace atelier
