#include "controles.h"

#include <array>

#include "xt_bou_f.h"
#include "xt_ini_f.h"

namespace atelier {

GRX_BOUTON bouton(INT fenetre, INT type, int x, int y, int largeur, int hauteur) {
    GRX_BOUTON b;
    grx_init_bouton(&b);
    b.fen_mere = fenetre;
    b.type = type;
    b.attrib = GRX_BOU_ATT_ACTIF;
    b.x = x;
    b.y = y;
    b.largeur = largeur;
    b.hauteur = hauteur;
    return b;
}

INT cree_bouton(GRX_BOUTON& b) {
    return grx_cree_bouton(&b) == 0 ? b.nobou : -1;
}

std::string texte_de(INT nobou) {
    std::array<char, 4096> tampon{};
    grx_recup_texte_bouton(nobou, tampon.data());
    return tampon.data();
}

} // namespace atelier
