// The part of the drawing that is seen, on paper: a file for pen plotters, or a PDF.
#ifndef ATELIER_PAPIER_H
#define ATELIER_PAPIER_H

#include <filesystem>
#include <string>

#include "plan.h"

namespace atelier {

enum class Papier { Traceur, Pdf };

// Draws what of the visible layers lies in cadre, a box of the drawing, as large as an A3 sheet takes, texts as large as
// on the screen says the plan. Returns why not, nothing when the file is there.
std::string met_sur_papier(const Plan& plan, const Boite& cadre, Papier genre, const std::filesystem::path& fichier);

} // namespace atelier

#endif
