// The sizes of the paper formats.
#include <array>

#include "grx_plus_erreurs.h"
#include "grx_plus_papier.h"

namespace {

struct Millimetres {
    DOUBLE width, height;
};

constexpr std::array<Millimetres, 5> kFormats{{{841, 1189}, {594, 841}, {420, 594}, {297, 420}, {210, 297}}};

} // namespace

extern "C" {

INT grx_recup_taille_papier(INT format, DOUBLE* largeur, DOUBLE* hauteur) {
    if (format < GRX_PAPIER_A0 || format > GRX_PAPIER_A4) return GRX_ECHEC_PARAMETRE;
    const Millimetres& size = kFormats[static_cast<std::size_t>(format)];
    if (largeur != nullptr) *largeur = size.width;
    if (hauteur != nullptr) *hauteur = size.height;
    return 1;
}
}
