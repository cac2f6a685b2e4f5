// Line types and line weights of drawings in the terms of grx.
#ifndef ATELIER_TRAITS_H
#define ATELIER_TRAITS_H

#include <string>
#include <string_view>
#include <vector>

namespace atelier {

// GRX_TRAIT_... of a line type: by its name in capitals when it is a usual one, else by its dashes (drawn lengths
// positive, gaps negative, dots 0).
int type_trait(std::string_view nom, const std::vector<double>& motif);

// Line-width index of a weight in hundredths of a millimetre.
int epaisseur(int poids);

// Length in pixels after which the pattern of a GRX_TRAIT_... repeats; 0 for a solid line.
int periode(int type_trait);

// In capitals, as drawings compare names.
std::string majuscules(std::string_view nom);

} // namespace atelier

#endif
