#include "elastique.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "grx_plus_calques.h"
#include "palette.h"
#include "rendu.h"
#include "texte.h"
#include "xt_gfx_f.h"

namespace atelier {

namespace {

constexpr INT kCalque = 0;
constexpr double kHauteurCote = 9, kEcartCote = 12; // pixels

template <class Trait>
Trait entre(INT nofen, Point p, Point q) {
    Trait t{};
    t.nofen = nofen;
    t.x1 = static_cast<INT>(p.x);
    t.y1 = static_cast<INT>(p.y);
    t.x2 = static_cast<INT>(q.x);
    t.y2 = static_cast<INT>(q.y);
    t.attrib.coul_fond = kCoulFond;
    t.attrib.coul_trace = kCoulElastique;
    return t;
}

} // namespace

void Elastique::trace(const std::string& cote) const {
    const auto [fixe, mobile] = *coins_;
    if (grx_commence_calque(nofen_, kCalque) != 1) return;
    if (forme_ == Forme::Cadre)
        grx_trace_rectangle(entre<GRX_RECTANGLE>(nofen_, fixe, mobile));
    else
        grx_trace_segment(entre<GRX_SEGMENT>(nofen_, fixe, mobile));
    Plume plume{nofen_, {}};
    plume.attrib.coul_trace = kCoulElastique;
    ecrit_texte(plume, en_unicode(cote), mobile + Point{kEcartCote, -kEcartCote}, kHauteurCote);
    grx_termine_calque();
}

void Elastique::debut(INT nofen, Point p, Forme forme) {
    efface();
    nofen_ = nofen;
    forme_ = forme;
    coins_ = Coins{p, p};
    trace("");
}

void Elastique::tend(Point p, const std::string& cote) {
    coins_->mobile = p;
    trace(cote);
}

std::optional<Boite> Elastique::fin() {
    constexpr double kMin = 4; // pixels
    const auto [fixe, mobile] = *std::exchange(coins_, {});
    const Point d = mobile - fixe;
    const bool clic = std::max(std::abs(d.x), std::abs(d.y)) < kMin;
    if (clic || forme_ == Forme::Cadre) efface();
    if (clic) return std::nullopt;
    return Boite::entre(fixe, mobile);
}

void Elastique::efface() {
    coins_.reset();
    grx_efface_calque(nofen_, kCalque);
}

} // namespace atelier
