#include "geometrie.h"

#include <algorithm>

namespace atelier {

namespace {

constexpr double kPasArc = std::numbers::pi / 8; // a cubic leaves such an arc by less than 1e-7 of its radius
constexpr double kTourMax = 100 * std::numbers::pi;
constexpr int kCoupesMax = 256;

double courbure_de(Point debut, Point p, Point q, Point fin) {
    const auto carre = [](Point v) { return v.x * v.x + v.y * v.y; };
    return std::sqrt(std::max(carre(debut - 2 * p + q), carre(p - 2 * q + fin)));
}

} // namespace

void Chemin::courbe(Point p, Point q, Point fin) {
    if (empty()) aller(p);
    pas_.push_back(Pas::Courbe);
    points_.insert(points_.end(), {p, q, fin});
}

void Chemin::arc(Point centre, Point u, Point v, double t0, double t1) {
    const auto en = [&](double t) { return centre + std::cos(t) * u + std::sin(t) * v; };
    const auto tangente = [&](double t) { return std::cos(t) * v - std::sin(t) * u; };
    if (!std::isfinite(t0) || !(std::abs(t1 - t0) <= kTourMax)) return;
    const Point debut = en(t0);
    if (empty() || points_.back() != debut) ligne(debut);
    const int n = std::max(1, static_cast<int>(std::ceil(std::abs(t1 - t0) / kPasArc - 1e-9)));
    const double pas = (t1 - t0) / n;
    const double bras = 4.0 / 3.0 * std::tan(pas / 4);
    for (int i = 0; i < n; ++i) {
        const double a = t0 + i * pas, b = a + pas;
        courbe(en(a) + bras * tangente(a), en(b) - bras * tangente(b), en(b));
    }
}

void Chemin::ferme() {
    auto point = points_.size();
    for (auto pas = pas_.rbegin(); pas != pas_.rend(); ++pas) {
        point -= *pas == Pas::Courbe ? 3 : 1;
        if (*pas != Pas::Aller) continue;
        if (points_[point] != points_.back()) ligne(Point(points_[point]));
        return;
    }
}

void Chemin::ajoute(const Trace& autre, const Matrice& m) {
    pas_.insert(pas_.end(), autre.pas().begin(), autre.pas().end());
    points_.reserve(points_.size() + autre.nb_points());
    for (const Point p : autre.points()) points_.push_back(m.applique(p));
}

Boite Trace::boite() const {
    Boite boite;
    for (const Point p : points()) boite.ajoute(p);
    return boite;
}

double Trace::courbure() const {
    double r = 0;
    const Point* point = points_;
    for (const Pas pas : this->pas()) {
        if (pas == Pas::Courbe) r = std::max(r, courbure_de(point[-1], point[0], point[1], point[2]));
        point += pas == Pas::Courbe ? 3 : 1;
    }
    return r;
}

bool Trace::fini() const {
    constexpr double kLoin = 1e12; // beyond this, doubles no longer tell tenths apart
    return std::ranges::all_of(points(), [](Point p) { return std::abs(p.x) <= kLoin && std::abs(p.y) <= kLoin; });
}

template <class T>
T* Classeur::Blocs<T>::prend(std::size_t nombre) {
    constexpr std::size_t kBloc = 1U << 16;
    if (pris + nombre > taille) {
        taille = std::max(kBloc, nombre);
        pris = 0;
        blocs.push_back(std::make_unique_for_overwrite<T[]>(taille));
    }
    pris += nombre;
    return blocs.back().get() + (pris - nombre);
}

Trace Classeur::garde(const Trace& trace, const Matrice& m) {
    if (trace.empty()) return {};
    Pas* const pas = pas_.prend(trace.pas().size());
    Point* const points = points_.prend(trace.nb_points());
    std::ranges::copy(trace.pas(), pas);
    std::ranges::transform(trace.points(), points, [&](Point p) { return m.applique(p); });
    return {{pas, trace.pas().size()}, {points, trace.nb_points()}};
}

void courbe_en_lignes(std::vector<Point>& trait, Point p, Point q, Point fin, double tolerance) {
    const Point debut = trait.back();
    const double courbure = courbure_de(debut, p, q, fin);
    const double voulu = plate(courbure, tolerance) ? 1 : std::ceil(std::sqrt(0.75 * courbure / tolerance));
    const int n = voulu < kCoupesMax ? std::max(1, static_cast<int>(voulu)) : kCoupesMax;
    for (int i = 1; i < n; ++i) {
        const double t = static_cast<double>(i) / n, s = 1 - t;
        trait.push_back(s * s * s * debut + 3 * s * s * t * p + 3 * s * t * t * q + t * t * t * fin);
    }
    trait.push_back(fin);
}

} // namespace atelier
