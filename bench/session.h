// What each measured program does first: the library's start, and a window.
#pragma once

#include "xt_f.h"

namespace grxbench {

inline bool start_library() {
    grx_alloue_base_fenetres();
    grx_alloue_base_boutons();
    return grx_init_application() != 0;
}

/// Its number, or -1.
inline INT make_window(INT type, INT width, INT height, INT further_attributes = 0) {
    GRX_FENETRE fenetre;
    grx_init_fenetre(&fenetre);
    fenetre.type = type;
    fenetre.attrib |= further_attributes;
    fenetre.droite = width;
    fenetre.haut = height;
    return grx_cree_fenetre(&fenetre) == 0 ? fenetre.nofen : GRX_AUCUN;
}

/// The library started with one graphic window, shown and active. Its number, or -1.
inline INT start_with_plan(INT width, INT height) {
    if (!start_library()) return GRX_AUCUN;
    const INT nofen = make_window(GRX_FEN_GRAPHIQUE, width, height);
    if (nofen == GRX_AUCUN) return GRX_AUCUN;
    grx_affecte_nofen_active(nofen);
    grx_attend_creation_fenetre(nofen);
    return nofen;
}

} // namespace grxbench
