#include "glissement.h"

#include <array>
#include <span>

#include "grx_plus_calques.h"

namespace atelier {

std::optional<std::vector<Boite>> glisse_image(INT nofen, Ecart ecart) {
    std::array<GRX_ZONE, 2> zones{};
    INT nombre = 0;
    if (grx_defile_fenetre(nofen, ecart.x, ecart.y, zones.data(), &nombre) != 1) return std::nullopt;
    std::vector<Boite> r;
    for (const GRX_ZONE& z : std::span(zones).first(static_cast<std::size_t>(nombre)))
        r.push_back({{1.0 * z.x, 1.0 * z.y}, {1.0 * z.x + z.lar, 1.0 * z.y + z.hau}});
    return r;
}

Decoupe::Decoupe(INT nofen, const Boite& partie) {
    grx_limite_trace(nofen, static_cast<INT>(partie.min.x), static_cast<INT>(partie.min.y),
        static_cast<INT>(partie.largeur()), static_cast<INT>(partie.hauteur()));
}

Decoupe::~Decoupe() {
    grx_libere_limite_trace();
}

} // namespace atelier
