// Colours: the numbered ones of drawings, and the palette of the screen made of those that a drawing uses.
#ifndef ATELIER_COULEURS_H
#define ATELIER_COULEURS_H

#include <vector>

#include "dessin.h"

namespace atelier {

// Colour 1..255 of a drawing as it is shown on the dark sheet; 7 and every other number are the foreground.
Rgb couleur_numero(int numero);

// 0xRRGGBB
Rgb couleur_vraie(int rgb);

// The colour itself, or a lighter one when it would not be seen on the sheet.
Rgb lisible(Rgb couleur);

// For each of the colours its place among the first nb of them: its own, or the most similar one.
std::vector<int> places(const std::vector<Rgb>& couleurs, std::size_t nb);

// The colour that most objects of a layer have, as an index into those of the drawing; -1 for an empty layer.
int couleur_du_calque(const Dessin& dessin, int calque);

} // namespace atelier

#endif
