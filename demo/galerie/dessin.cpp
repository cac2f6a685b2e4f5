#include "galerie.h"

#include <vector>

namespace galerie {

namespace {

constexpr INT kFond = 1; // reserved colour: black
constexpr INT kBlanc = GRX_NB_COULEURS_RESERVE + 15;

INT couleur(INT trace) {
    return GRX_NB_COULEURS_RESERVE + trace;
}

void carre(INT fenetre, INT x, INT y, INT index) {
    GRX_RECTANGLE r{};
    r.nofen = fenetre;
    r.x1 = x;
    r.y1 = y;
    r.x2 = x + 13;
    r.y2 = y + 13;
    r.attrib = {kFond, index, 0, 0, 0, 0};
    grx_remplit_rectangle(r);
}

// Reserved colours in the first row, drawing colours below.
void palette(INT fenetre) {
    for (INT i = 0; i < GRX_NB_COULEURS_RESERVE; ++i) carre(fenetre, 16 + 16 * i, 12, i);
    const INT nombre = grx_recup_max_couleur_trace();
    for (INT i = 0; i < nombre; ++i) carre(fenetre, 16 + i % 16 * 16, 34 + i / 16 * 16, couleur(i));
}

void segment(INT fenetre, INT x, INT y, INT largeur, const GRX_ATTRIBUTS_TRACER& attrib) {
    GRX_SEGMENT s{};
    s.nofen = fenetre;
    s.x1 = x;
    s.x2 = x + largeur;
    s.y1 = s.y2 = y;
    s.attrib = attrib;
    grx_trace_segment(s);
}

void traits(INT fenetre) {
    for (INT i = 0; i < 8; ++i) {
        segment(fenetre, 300, 18 + 16 * i, 120, {kFond, kBlanc, 0, 0, i, 0});
        segment(fenetre, 440, 18 + 16 * i, 110, {kFond, couleur(10), 0, 0, 0, i});
    }
}

void formes(INT fenetre) {
    GRX_ARC arc{};
    arc.nofen = fenetre;
    arc.x = 20;
    arc.y = 170;
    arc.lar = 90;
    arc.hau = 70;
    arc.angle_arr = 270;
    arc.attrib = {kFond, couleur(11), 0, 0, 0, 1};
    grx_trace_arc(arc);
    arc.x = 130;
    arc.attrib.coul_trace = couleur(14);
    grx_remplit_arc(arc);
    GRX_POINT_POLY points[] = {{250, 240}, {280, 170}, {320, 210}, {360, 172}, {380, 240}};
    GRX_POLY poly{};
    poly.nofen = fenetre;
    poly.points = points;
    poly.npoints = 5;
    poly.attrib = {kFond, couleur(9), 0, 0, 0, 0};
    grx_remplit_polygone(poly);
    poly.attrib.coul_trace = kBlanc;
    grx_trace_polyline(poly);
    grx_remplit_triangle(poly = [&poly] {
        static GRX_POINT_POLY triangle[] = {{420, 240}, {470, 170}, {520, 240}};
        GRX_POLY t = poly;
        t.points = triangle;
        t.npoints = 3;
        t.attrib.coul_trace = couleur(12);
        return t;
    }());
}

// A picture of its own in both forms: three bytes a pixel, or colour indices.
void image(INT fenetre) {
    constexpr INT largeur = 160, hauteur = 120;
    std::vector<uchar> profonde, indices;
    for (INT y = 0; y < hauteur; ++y) {
        for (INT x = 0; x < largeur; ++x) {
            profonde.push_back(static_cast<uchar>(120));
            profonde.push_back(static_cast<uchar>(y * 2));
            profonde.push_back(static_cast<uchar>(x * 3 / 2));
            indices.push_back(static_cast<uchar>(couleur((x / 10 + y / 10) % 16)));
        }
    }
    grx_trace_image_reel_xy(GRX_CIBLE_FENETRE, fenetre, profonde.data(), indices.data(), largeur, hauteur, 20, 265);
    grx_stretch_image(
        GRX_CIBLE_FENETRE, fenetre, profonde.data(), indices.data(), largeur, hauteur, 200, 265, 340, 120);
}

} // namespace

void dessine(INT graphique) {
    grx_affecte_nofen_active(graphique);
    grx_alloue_image(graphique);
    palette(graphique);
    traits(graphique);
    formes(graphique);
    grx_desalloue_image();
    image(graphique);
    grx_affiche_bitmap_backingstore(graphique);
}

} // namespace galerie
