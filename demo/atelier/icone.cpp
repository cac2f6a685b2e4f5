#include "icone.h"

#include <vector>

#include "grx_plus_application.h"
#include "xt_ini_t.h"

namespace atelier {

namespace {

constexpr UNSIGNED_INT kFeuille = 0xFF161B22, kMur = 0xFFECEEF0, kCote = 0xFFE0A030, kVide = 0x00000000;

// The plan of a room with a door on a dark sheet, and a dimension below it; coordinates are of a picture of 16 by 16.
UNSIGNED_INT couleur_en(INT x, INT y) {
    const bool coin = (x == 0 || x == 15) && (y == 0 || y == 15);
    if (coin) return kVide;
    const bool porte = y == 10 && x >= 6 && x <= 8;
    const bool horizontal = (y == 3 || y == 10) && x >= 3 && x <= 12 && !porte;
    const bool vertical = (x == 3 || x == 12) && y >= 3 && y <= 10;
    if (horizontal || vertical) return kMur;
    const bool cote = (y == 13 && x >= 3 && x <= 12) || ((x == 3 || x == 12) && y == 12);
    return cote ? kCote : kFeuille;
}

} // namespace

void pose_icone() {
    constexpr INT kUnites = 16;
    for (const INT cote : {16, 32, 48, 64}) {
        std::vector<UNSIGNED_INT> pixels;
        for (INT y = 0; y < cote; ++y)
            for (INT x = 0; x < cote; ++x) pixels.push_back(couleur_en(x * kUnites / cote, y * kUnites / cote));
        grx_ajoute_icone_fenetre(GRX_AUCUN, cote, cote, pixels.data());
    }
}

} // namespace atelier
