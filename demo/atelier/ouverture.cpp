#include "ouverture.h"

#include <malloc.h>

#include <cstdio>
#include <exception>
#include <utility>

#include "dxf_lecture.h"

namespace atelier {

Ouverture ouvre_fichier(const std::string& chemin, Suivi suivi) try {
    Ouverture r{lit_dessin(chemin, std::move(suivi)), {}};
    for (const std::string& remarque : r.dessin->remarques) std::printf("%s\n", remarque.c_str());
    r.raison = bilan(r.dessin->non_dessinees);
    if (!r.raison.empty()) std::printf("%s\n", r.raison.c_str());
    std::fflush(stdout);
    malloc_trim(0); // reading takes several times what the drawing takes in the end
    return r;
} catch (const Suivi::Abandon&) {
    return {std::nullopt, "lecture abandonn\u00e9e"};
} catch (const std::exception& e) {
    return {std::nullopt, e.what()};
}

} // namespace atelier
