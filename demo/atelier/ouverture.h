// Opening a drawing file, and what is said of it.
#ifndef ATELIER_OUVERTURE_H
#define ATELIER_OUVERTURE_H

#include <optional>
#include <string>

#include "dessin.h"
#include "suivi.h"

namespace atelier {

struct Ouverture {
    std::optional<Dessin> dessin;
    std::string raison; // why there is none; else what of it is not drawn, "" when all of it is
};

// Tells what is remarkable of the drawing on standard output. What suivi gives up is a reason as well.
Ouverture ouvre_fichier(const std::string& chemin, Suivi suivi = {});

} // namespace atelier

#endif
