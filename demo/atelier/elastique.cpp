#include "elastique.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "palette.h"
#include "xt_gfx_f.h"

namespace atelier {

void Elastique::trace() const {
    GRX_RECTANGLE r{};
    r.nofen = nofen_;
    r.x1 = static_cast<INT>(coins_->fixe.x);
    r.y1 = static_cast<INT>(coins_->fixe.y);
    r.x2 = static_cast<INT>(coins_->mobile.x);
    r.y2 = static_cast<INT>(coins_->mobile.y);
    r.attrib.coul_fond = kCoulFond;
    r.attrib.coul_trace = kCoulElastique;
    r.attrib.mode = GRX_MODE_XOR;
    grx_trace_rectangle(r);
}

void Elastique::debut(INT nofen, Point p) {
    nofen_ = nofen;
    coins_ = Coins{p, p};
    trace();
}

void Elastique::tend(Point p) {
    trace();
    coins_->mobile = p;
    trace();
}

std::optional<Boite> Elastique::fin() {
    constexpr double kMin = 4; // pixels
    trace();
    const auto [fixe, mobile] = *std::exchange(coins_, {});
    const Point d = mobile - fixe;
    if (std::max(std::abs(d.x), std::abs(d.y)) < kMin) return std::nullopt;
    return Boite::entre(fixe, mobile);
}

} // namespace atelier
