// DXF files as text: read whole, checked, and reduced to what is drawn before dxflib interprets them. Counts that a
// file states about itself are replaced by true ones, so that a wrong or hostile file is merely a strange drawing.
#ifndef ATELIER_DXF_TEXTE_H
#define ATELIER_DXF_TEXTE_H

#include <stdexcept>
#include <string>
#include <string_view>

#include "dessin.h"
#include "suivi.h"

namespace atelier {

// A drawing that cannot be read; what() says why, for the user.
struct ErreurLecture : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Throws ErreurLecture.
std::string lit_fichier(const std::string& chemin);

struct DxfReduit {
    std::string texte;
    Compte non_dessinees;
    int unites = 0;
    std::vector<std::string> remarques;
};

// Throws ErreurLecture when the text is no DXF drawing. suivi is told how far it is.
DxfReduit reduit(std::string_view texte, Suivi& suivi);

} // namespace atelier

#endif
