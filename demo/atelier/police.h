// Texts in the single-stroke font of the library, in units of which a capital has ten.
#ifndef ATELIER_POLICE_H
#define ATELIER_POLICE_H

#include <functional>
#include <string>
#include <string_view>

#include "geometrie.h"
#include "xt_gfx_t.h"

namespace atelier::police {

constexpr double kHauteur = 10;    // of a capital
constexpr double kBas = -3;        // of a descender
constexpr double kInterligne = 16; // from one baseline to the next

// Length from the first ink to the last, in units.
double largeur(std::u32string_view texte);

// The strokes of a text whose baseline starts at the origin, in units.
Chemin ecrit(std::u32string_view texte);

// The records that draw a text with capitals of hauteur pixels, one after the other: a record holds so many characters.
// x: where each begins, from the start of the text. Place, number and attributes are the caller's.
void morceaux(std::u32string_view texte, double hauteur, const std::function<void(GRX_TEXTE& texte, double x)>& prend);

} // namespace atelier::police

#endif
