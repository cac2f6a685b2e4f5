// Units of drawings, numbers and scales as texts.
#ifndef ATELIER_UNITES_H
#define ATELIER_UNITES_H

#include <optional>
#include <string>

namespace atelier {

// Length of a drawing's unit in millimetres, by its number in the file; 0 for a drawing without unit.
double millimetres(int unites);

// " mm", or "" without unit.
std::string symbole(int unites);

// With a decimal point, and blanks between groups of three figures.
std::string nombre(double valeur, int decimales);

// A number as people write it here: with a comma or a point, and blanks between thousands. Nothing for other texts.
std::optional<double> lit_nombre(std::string texte);

// As many decimals as one pixel tells apart.
int decimales_pour(double pixels_par_unite);

// "1:50", "20:1"; without a paper scale (0) the size of a pixel.
std::string texte_echelle(double papier, double pixels_par_unite);

} // namespace atelier

#endif
