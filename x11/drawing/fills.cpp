// Fills triangles and polygons row by row, for the shaded views of the application.
#include <algorithm>
#include <array>

#include "pure/triangle.h"
#include "drawing/attributes.h"
#include "drawing/batch.h"
#include "drawing/receiver.h"
#include "drawing/target.h"
#include "xt_fen_f.h"
#include "xt_gfx_f.h"
#include "xt_ini_f.h"

namespace {

grx::EdgeTable short_edges{};
grx::EdgeTable long_edge{};

INT active_window_height() {
    INT width = 0, height = 0;
    grx_recup_taille_fenetre(grx_recup_nofen_active(), &width, &height);
    return height;
}

std::array<grx::GridPoint, 3> triangle_of(GRX_POINT_POLY p0, GRX_POINT_POLY p1, GRX_POINT_POLY p2) {
    return {{{p0.x, p0.y}, {p1.x, p1.y}, {p2.x, p2.y}}};
}

// A picture that the application owns: one byte a pixel, top row first.
struct PixelArray {
    uchar* pixels;
    int width, height;

    bool usable() const { return pixels != nullptr && width > 0 && height > 0; }
    uchar& at(int x, int y) const {
        return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)];
    }
    void plot(int x, int y, uchar colour) const {
        if (x >= 0 && x < width && y >= 0 && y < height) at(x, y) = colour;
    }
    void fill_row(int y, int x1, int x2, uchar colour) const {
        const int first = std::max(std::min(x1, x2), 0);
        const int last = std::min(std::max(x1, x2), width - 1);
        for (int x = first; x <= last; ++x) at(x, y) = colour;
    }
};

} // namespace

extern "C" {

int remplit_tableau_polygone(GRX_POINT_POLY* p, int nbelt, uchar coul) {
    if (p == nullptr || nbelt < 2 || grx::received_outline(&GRX_RECEPTEUR::polyline, p, nbelt, coul)) return 0;
    if (g_c == nullptr || grx::win_bidon == None) return 0;
    grx_affecte_gc(grx::plain_attributes(grx_recup_couleur_fond(), coul));
    grx::prepare_last_target();
    for (int k = 0; k + 1 < nbelt; ++k)
        grx::draw_line(grx::win_bidon, grx::Line{p[k].x, p[k].y, p[k + 1].x, p[k + 1].y});
    return 0;
}

int remplit_tableau_triangles(GRX_POINT_POLY p0, GRX_POINT_POLY p1, GRX_POINT_POLY p2, uchar coul) {
    std::array<GRX_POINT_POLY, 3> corners{p0, p1, p2};
    if (grx::received_outline(&GRX_RECEPTEUR::polygone, corners.data(), corners.size(), coul)) return 0;
    if (g_c == nullptr || grx::win_bidon == None) return 0;
    grx_affecte_gc(grx::plain_attributes(grx_recup_couleur_fond(), coul));
    grx::prepare_last_target();
    const auto spans = grx::step_triangle(short_edges, long_edge, active_window_height(), triangle_of(p0, p1, p2));
    for (int y = spans.first_row; y <= spans.last_row; ++y) {
        const auto row = static_cast<std::size_t>(y);
        grx::draw_line(grx::win_bidon, grx::Line{short_edges[row], y, long_edge[row], y});
    }
    return 0;
}

int remplit_tableau_triangles_reel(
    uchar* tab, int lar, int hau, GRX_POINT_POLY p0, GRX_POINT_POLY p1, GRX_POINT_POLY p2, uchar coul) {
    const PixelArray picture{tab, lar, hau};
    if (!picture.usable()) return 0;
    const auto spans = grx::step_triangle(short_edges, long_edge, hau, triangle_of(p0, p1, p2));
    for (int y = spans.first_row; y <= spans.last_row; ++y) {
        const auto row = static_cast<std::size_t>(y);
        picture.fill_row(y, short_edges[row], long_edge[row], coul);
    }
    return 0;
}

int remplit_tableau_polygone_reel(uchar* tab, int lar, int hau, GRX_POINT_POLY* p, int nbelt, uchar coul) {
    const PixelArray picture{tab, lar, hau};
    if (!picture.usable() || p == nullptr) return 0;
    const auto plot = [&picture, coul](int x, int y) { picture.plot(x, y, coul); };
    for (int k = 0; k + 1 < nbelt; ++k) grx::step_line({p[k].x, p[k].y}, {p[k + 1].x, p[k + 1].y}, plot);
    return 0;
}
}
