// The fonts that texts can be drawn in, for an application that shows a choice.
#include <cstring>

#include "fonts/font.h"
#include "fonts/font_files.h"
#include "pure/text_out.h"
#include "system/never_destroyed.h"
#include "system/shut_down.h"
#include "system/trace.h"
#include "grx_plus_erreurs.h"
#include "grx_plus_textes.h"

namespace {

// The families that were found last, one name after the other, each ended by a zero.
struct Families {
    grx::Block<char> names;
    std::size_t count = 0;
    std::size_t rank = 0, at = 0; // the name asked for last
    bool listed = false;
};
grx::NeverDestroyed<Families> families;

void forget_families() {
    families.value = {};
}

bool list_fonts() {
    Families& f = families.value;
    grx::at_shut_down(forget_families);
    f.rank = f.at = 0;
    f.listed = grx::list_families(f.names, f.count);
    return f.listed;
}

// Applications ask for one after the other.
const char* family(std::size_t rank) {
    Families& f = families.value;
    if (rank < f.rank) f.rank = f.at = 0;
    for (; f.rank < rank; ++f.rank) f.at += std::strlen(f.names.data() + f.at) + 1;
    return f.names.data() + f.at;
}

} // namespace

extern "C" {

INT grx_verifie_fonte_texte(const char* nom) {
    if (nom == nullptr || strnlen(nom, sizeof(CH80)) == sizeof(CH80)) return grx::refused(GRX_ECHEC_PARAMETRE, "nom");
    return grx::look_for_font(nom);
}

INT grx_recup_nombre_fontes_texte(void) {
    if (!list_fonts()) return GRX_ECHEC_MEMOIRE;
    return static_cast<INT>(families.value.count) + 1;
}

INT grx_recup_nom_fonte_texte(INT rang, char* nom, INT taille) {
    if (rang == 0) return grx::give_text(GRX_FONTE_TRAIT, nom, taille);
    if (rang < 0) return grx::refused(GRX_ECHEC_PARAMETRE, "rang", rang);
    if (!families.value.listed && !list_fonts()) return GRX_ECHEC_MEMOIRE;
    const auto rank = static_cast<std::size_t>(rang) - 1;
    if (rank >= families.value.count) return grx::refused(GRX_ECHEC_PARAMETRE, "rang", rang);
    return grx::give_text(family(rank), nom, taille);
}
}
