// A single-stroke font drawn for this program, after the proportions of technical lettering: capitals 10 units high,
// small letters 7, descenders 3, strokes that a pen could follow. It covers ASCII and the letters of French.
#ifndef ATELIER_POLICE_H
#define ATELIER_POLICE_H

#include <string>
#include <string_view>

#include "geometrie.h"

namespace atelier::police {

constexpr double kHauteur = 10;    // of a capital
constexpr double kBas = -3;        // of a descender
constexpr double kInterligne = 16; // from one baseline to the next

struct Glyphe {
    double largeur = 0; // of the ink
    double avance = 0;  // to the start of the next letter
    Chemin chemin;
};

// The letter of a Unicode character; a box for one that the font does not hold.
const Glyphe& glyphe(char32_t caractere);
bool connait(char32_t caractere);

// Length from the first ink to the last, in units.
double largeur(std::u32string_view texte);

// The strokes of a text whose baseline starts at the origin, in units.
Chemin ecrit(std::u32string_view texte);

} // namespace atelier::police

#endif
