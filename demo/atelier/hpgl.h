// The visible lines of a drawing as a file for pen plotters.
#ifndef ATELIER_HPGL_H
#define ATELIER_HPGL_H

#include <string>

#include "dessin.h"

namespace atelier {

constexpr int kParMillimetre = 40; // plotter units
constexpr int kNbPlumesTraceur = 8;
// The sheet, A3 landscape, without its margin.
constexpr int kLargeurTrace = 400 * kParMillimetre, kHauteurTrace = 277 * kParMillimetre;

// What of the visible layers lies in cadre, a box of the drawing, as large as fits the sheet, from its lower left
// corner. Pens 1 to 8 stand for the colours in turn, each taken once; filled areas are drawn as outlines.
std::string hpgl(const Dessin& dessin, const Boite& cadre);

} // namespace atelier

#endif
