#include "palette.h"

#include <algorithm>
#include <array>

#include "couleurs.h"
#include "xt_ini_f.h"

namespace atelier {

namespace {

constexpr std::array<Rgb, 8> kReserve{{
    kFond,
    {255, 255, 255},
    {38, 45, 56},
    {224, 229, 235},
    {255, 196, 64},
    {70, 82, 99},
    {140, 152, 168},
    {192, 192, 192},
}};

std::vector<INT> triplets(const Rgb* debut, std::size_t nombre) {
    std::vector<INT> r;
    for (const Rgb* c = debut; c != debut + nombre; ++c) r.insert(r.end(), {c->rouge, c->vert, c->bleu});
    return r;
}

} // namespace

void pose_reserve() {
    std::vector<INT> t = triplets(kReserve.data(), kReserve.size());
    grx_affecte_palette_reserve(t.data(), static_cast<INT>(kReserve.size()));
    grx_affecte_couleur_fond(kCoulFond);
}

std::vector<int> pose_couleurs(const std::vector<Rgb>& couleurs) {
    // An 8-plane screen may have granted fewer colours than the settings ask for.
    const auto nb = std::min(couleurs.size(), static_cast<std::size_t>(grx_recup_max_couleur_trace()));
    std::vector<INT> t = triplets(couleurs.data(), nb);
    grx_affecte_palette_trace(t.data(), static_cast<INT>(nb));
    grx_maj_palette_trace();
    std::vector<int> indices = places(couleurs, nb);
    for (int& i : indices) i += grx_recup_max_couleur_reserve();
    return indices;
}

} // namespace atelier
