// What the user settles about coordinates, grid and texts, and what follows from it.
#ifndef ATELIER_REGLAGES_H
#define ATELIER_REGLAGES_H

#include <string>
#include <vector>

#include "geometrie.h"

namespace atelier {

// The choices for units: that of the drawing, then mm, cm, m.
constexpr int kUniteDuPlan = 0, kNbUnites = 4;

struct Reglages {
    int unite = kUniteDuPlan;
    double pas = 1; // of the grid, in units of the drawing
    bool grille = false;
    bool accroche = false;
    int trait = 0;   // choice among the line styles of the grid
    int plume = 0;   // choice among the pens
    int textes = 50; // 0..100, in the middle as the drawing says
    bool operator==(const Reglages&) const = default;
};

// The unit shown, as files number them.
int unite_montree(const Reglages& r, int unites_du_plan);
// How many of the units shown one unit of the drawing is.
double facteur(const Reglages& r, int unites_du_plan);

// The nearest crossing of the grid, where coordinates keep to it; else the point itself.
Point accroche(const Reglages& r, Point p);

// How much larger than in the drawing texts are shown: half to twice.
double agrandissement_textes(int valeur);

// GRX_TRAIT_... of a choice among the line styles of the grid.
int trait_grille(int choix);

// A round step for a drawing of this size.
double pas_pour(const Boite& boite);

// Where the lines of the grid are from min to max, the one before and the one behind included: every tenth or hundredth
// ... when all would be less than ecart apart.
std::vector<double> lignes_grille(double pas, double ecart, double min, double max);

} // namespace atelier

#endif
