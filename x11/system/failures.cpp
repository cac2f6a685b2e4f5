// Gives the texts of the codes that additions answer with, to the application.
#include <cstdio>

#include "grx_plus_erreurs.h"
#include "pure/failure_texts.h"

extern "C" {

INT grx_recup_texte_erreur(INT code, char* texte, INT taille) {
    const bool room = texte != nullptr && taille > 0;
    return std::snprintf(
        room ? texte : nullptr, room ? static_cast<std::size_t>(taille) : 0, "%s", grx::failure_text(code));
}
}
