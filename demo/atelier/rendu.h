// From a drawing and a view to the primitives of grx.
#ifndef ATELIER_RENDU_H
#define ATELIER_RENDU_H

#include <string_view>
#include <vector>

#include "dessin.h"
#include "notes.h"
#include "vue.h"
#include "xt_gfx_t.h"

namespace atelier {

// How and where primitives are drawn: the window and the attributes that they share.
struct Plume {
    INT nofen = 0;
    GRX_ATTRIBUTS_TRACER attrib{}; // all zero: sheet colour on sheet colour, plain, solid, thin
};

// What is drawn where. indices: colour index of each colour of the drawing; textes: how many times larger than in the
// drawing texts are shown, kTextesMax at most.
struct Scene {
    INT nofen = 0;
    const Dessin& dessin;
    const std::vector<int>& indices;
    double textes = 1;
};

// Draws all that shows within a part of the screen, and more around it. The same view, or one that it was moved from,
// gives the same pixels whatever the part.
void trace_dessin(const Scene& scene, const Vue& vue, const Boite& partie);
inline Boite tout_l_ecran(const Vue& vue) {
    return Boite::entre({}, {1.0 * vue.largeur(), 1.0 * vue.hauteur()});
}

// Draws a grid of this step over all of the window, in units of the drawing; lines that would lie too close are left
// out.
void trace_grille(const Plume& plume, const Vue& vue, double pas);

// Strokes of a path through m; limites: what is seen of the target.
void trace_chemin(const Plume& plume, const Trace& chemin, const Matrice& m, const Boite& limites);

// Notes: a cross at each place, and its text beside it.
void trace_notes(const Plume& plume, const std::vector<Note>& notes, const Vue& vue);

// Text in the single-stroke font: capitals of hauteur pixels, the baseline starting at x, y. Returns where it ends.
double ecrit_texte(const Plume& plume, std::u32string_view texte, Point debut, double hauteur);

} // namespace atelier

#endif
