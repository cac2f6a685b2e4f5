#include "traits.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "xt_gfx_t.h"
#include "xt_ini_t.h"

namespace atelier {

namespace {

struct Nom {
    std::string_view debut;
    int normal, grand, petit;
};

// Half and double sizes end in "2" and "X2".
constexpr std::array<Nom, 9> kNoms{{
    {"CONTINUOUS", GRX_TRAIT_CONTINU, GRX_TRAIT_CONTINU, GRX_TRAIT_CONTINU},
    {"DASHED", GRX_TRAIT_POINTILLE, GRX_TRAIT_POINTILLE_LONG, GRX_TRAIT_POINTILLE_COURT},
    {"HIDDEN", GRX_TRAIT_POINTILLE_COURT, GRX_TRAIT_POINTILLE, GRX_TRAIT_POINTILLE_COURT},
    {"CENTER", GRX_TRAIT_MIXTE, GRX_TRAIT_MIXTE, GRX_TRAIT_MIXTE},
    {"DASHDOT", GRX_TRAIT_MIXTE_1_POINT, GRX_TRAIT_MIXTE_1_POINT, GRX_TRAIT_MIXTE_1_POINT},
    {"DIVIDE", GRX_TRAIT_MIXTE_2_POINTS, GRX_TRAIT_MIXTE_2_POINTS, GRX_TRAIT_MIXTE_2_POINTS},
    {"BORDER", GRX_TRAIT_MIXTE_2_POINTS, GRX_TRAIT_MIXTE_2_POINTS, GRX_TRAIT_MIXTE_2_POINTS},
    {"PHANTOM", GRX_TRAIT_MIXTE_2_TIRETS, GRX_TRAIT_MIXTE_2_TIRETS, GRX_TRAIT_MIXTE_2_TIRETS},
    {"DOT", GRX_TRAIT_POINTILLE_COURT, GRX_TRAIT_POINTILLE_COURT, GRX_TRAIT_POINTILLE_COURT},
}};

constexpr double kTiretCourt = 0.6; // of the longest dash

int par_motif(const std::vector<double>& motif) {
    const double long_tiret = motif.empty() ? 0 : *std::ranges::max_element(motif);
    const auto points = std::ranges::count(motif, 0.0);
    if (motif.size() < 2) return GRX_TRAIT_CONTINU;
    if (long_tiret <= 0) return GRX_TRAIT_POINTILLE_COURT;
    if (points > 0) return points == 1 ? GRX_TRAIT_MIXTE_1_POINT : GRX_TRAIT_MIXTE_2_POINTS;
    const auto courts = std::ranges::count_if(motif, [&](double t) { return t > 0 && t < kTiretCourt * long_tiret; });
    if (courts == 0) return GRX_TRAIT_POINTILLE;
    return courts == 1 ? GRX_TRAIT_MIXTE : GRX_TRAIT_MIXTE_2_TIRETS;
}

} // namespace

int type_trait(std::string_view nom, const std::vector<double>& motif) {
    for (const Nom& connu : kNoms) {
        if (!nom.starts_with(connu.debut)) continue;
        const std::string_view reste = nom.substr(connu.debut.size());
        if (reste.empty()) return connu.normal;
        if (reste == "X2") return connu.grand;
        if (reste == "2") return connu.petit;
    }
    return par_motif(motif);
}

int epaisseur(int poids) {
    constexpr std::array<int, 7> kLimites{35, 65, 90, 115, 145, 175, 205};
    return static_cast<int>(std::ranges::upper_bound(kLimites, poids - 1) - kLimites.begin());
}

int periode(int type_trait) {
    constexpr std::array<int, 8> kPeriodes{0, 34, 16, 8, 32, 25, 30, 48};
    return type_trait > 0 && type_trait < 8 ? kPeriodes[static_cast<std::size_t>(type_trait)] : 0;
}

std::string majuscules(std::string_view nom) {
    std::string r(nom);
    std::ranges::transform(r, r.begin(), [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; });
    return r;
}

} // namespace atelier
