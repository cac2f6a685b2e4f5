#include "reglages.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "unites.h"
#include "xt_gfx_t.h"

namespace atelier {

namespace {

constexpr std::array<int, kNbUnites> kUnitesDeFichier{0, 4, 5, 6};
constexpr std::array<int, 4> kTraitsGrille{
    GRX_TRAIT_CONTINU, GRX_TRAIT_POINTILLE_LONG, GRX_TRAIT_POINTILLE_COURT, GRX_TRAIT_MIXTE_1_POINT};

} // namespace

int unite_montree(const Reglages& r, int unites_du_plan) {
    const bool connue = millimetres(unites_du_plan) > 0 && r.unite > kUniteDuPlan && r.unite < kNbUnites;
    return connue ? kUnitesDeFichier[static_cast<std::size_t>(r.unite)] : unites_du_plan;
}

double facteur(const Reglages& r, int unites_du_plan) {
    const int montree = unite_montree(r, unites_du_plan);
    return montree == unites_du_plan ? 1 : millimetres(unites_du_plan) / millimetres(montree);
}

Point accroche(const Reglages& r, Point p) {
    if (!r.accroche || !(r.pas > 0)) return p;
    return {r.pas * std::round(p.x / r.pas), r.pas * std::round(p.y / r.pas)};
}

double agrandissement_textes(int valeur) {
    constexpr double kMilieu = 50;
    return std::exp2((std::clamp(valeur, 0, 100) - kMilieu) / kMilieu);
}

int trait_grille(int choix) {
    return kTraitsGrille[static_cast<std::size_t>(std::clamp<int>(choix, 0, kTraitsGrille.size() - 1))];
}

double pas_pour(const Boite& boite) {
    constexpr double kLignes = 20;
    const double grand = std::max(boite.largeur(), boite.hauteur());
    return grand > 0 && std::isfinite(grand) ? std::pow(10, std::round(std::log10(grand / kLignes))) : 1;
}

std::vector<double> lignes_grille(double pas, double ecart, double min, double max) {
    constexpr double kTrop = 4000;
    std::vector<double> r;
    if (!(pas > 0) || !(max >= min) || !std::isfinite(max - min)) return r;
    while (pas < ecart || (max - min) / pas > kTrop) pas *= 10;
    const double premiere = std::floor(min / pas), nombre = std::ceil(max / pas) - premiere;
    for (double i = 0; i <= nombre; ++i) r.push_back((premiere + i) * pas);
    return r;
}

} // namespace atelier
