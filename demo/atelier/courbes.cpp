#include "courbes.h"

#include <algorithm>

namespace atelier {

namespace {

constexpr double kTour = 2 * std::numbers::pi;
constexpr int kDegreMax = 15;
constexpr std::size_t kPolesMax = 100'000;
constexpr int kCoupesParIntervalle = 8;

// The end angle reached from the start counter-clockwise: a whole turn when they are the same.
double fin_apres(double debut, double fin) {
    const double reste = std::fmod(fin - debut, kTour);
    return debut + (reste > 1e-9 ? reste : reste + kTour);
}

void ajoute_fleche(Chemin& chemin, Point p, Point q, double fleche) {
    const double angle = 4 * std::atan(fleche);
    const Point corde = q - p;
    if (std::abs(angle) < 1e-6 || norme(corde) == 0) return chemin.ligne(q);
    // The centre lies on the bisector of the chord.
    const double k = 1 / std::tan(angle / 2) / 2;
    const Point centre = 0.5 * (p + q) + k * Point{-corde.y, corde.x};
    const Point u = p - centre;
    chemin.arc(centre, u, {-u.y, u.x}, 0, angle);
}

struct Homogene {
    double x = 0, y = 0, w = 1;
};

Homogene melange(double t, const Homogene& p, const Homogene& q) {
    const double s = 1 - t;
    return {s * p.x + t * q.x, s * p.y + t * q.y, s * p.w + t * q.w};
}

struct Valeur {
    Point p;
    Point derivee;
};

// De Boor's triangle on the interval of knots [k, k+1].
Valeur evalue(const Nurbs& c, std::size_t k, double t) {
    const auto n = static_cast<std::size_t>(c.degre);
    std::vector<Homogene> d(n + 1);
    for (std::size_t i = 0; i <= n; ++i) {
        const std::size_t pole = k - n + i;
        const double w = c.poids.empty() ? 1 : c.poids[pole];
        d[i] = {w * c.poles[pole].x, w * c.poles[pole].y, w};
    }
    Homogene pente;
    for (std::size_t r = 1; r <= n; ++r) {
        if (r == n) {
            const double v = static_cast<double>(n) / (c.noeuds[k + 1] - c.noeuds[k]);
            pente = {v * (d[n].x - d[n - 1].x), v * (d[n].y - d[n - 1].y), v * (d[n].w - d[n - 1].w)};
        }
        for (std::size_t i = n; i >= r; --i) {
            const double a = c.noeuds[k - n + i], b = c.noeuds[k + 1 + i - r];
            d[i] = melange(b > a ? (t - a) / (b - a) : 0, d[i - 1], d[i]);
        }
    }
    const Homogene& h = d[n];
    const Point p{h.x / h.w, h.y / h.w};
    return {p, (1 / h.w) * (Point{pente.x, pente.y} - pente.w * p)};
}

bool noeuds_valables(const Nurbs& c) {
    return c.noeuds.size() == c.poles.size() + static_cast<std::size_t>(c.degre) + 1 && std::ranges::is_sorted(c.noeuds)
           && std::ranges::all_of(c.noeuds, [](double t) { return std::isfinite(t); });
}

std::vector<double> noeuds_uniformes(std::size_t poles, std::size_t degre) {
    std::vector<double> noeuds(poles + degre + 1);
    for (std::size_t i = 0; i < noeuds.size(); ++i)
        noeuds[i] = static_cast<double>(std::clamp(i, degre, poles)) - static_cast<double>(degre);
    return noeuds;
}

bool poids_valables(const Nurbs& c) {
    return c.poids.size() == c.poles.size() && std::ranges::all_of(c.poids, [](double w) { return w > 0 && w < 1e12; });
}

void ajoute_intervalle(Chemin& chemin, const Nurbs& c, std::size_t k) {
    const double pas = (c.noeuds[k + 1] - c.noeuds[k]) / kCoupesParIntervalle;
    Valeur debut = evalue(c, k, c.noeuds[k]);
    if (chemin.empty()) chemin.aller(debut.p);
    for (int i = 1; i <= kCoupesParIntervalle; ++i) {
        const Valeur fin = evalue(c, k, c.noeuds[k] + i * pas);
        chemin.courbe(debut.p + pas / 3 * debut.derivee, fin.p - pas / 3 * fin.derivee, fin.p);
        debut = fin;
    }
}

} // namespace

Chemin cercle(Point centre, double rayon) {
    return arc_de_cercle(centre, rayon, 0, kTour);
}

Chemin arc_de_cercle(Point centre, double rayon, double debut, double fin) {
    return ellipse(centre, {rayon, 0}, 1, debut, fin);
}

Chemin ellipse(Point centre, Point axe, double ratio, double debut, double fin) {
    Chemin chemin;
    chemin.arc(centre, axe, ratio * Point{-axe.y, axe.x}, debut, fin_apres(debut, fin));
    return chemin;
}

Chemin polyligne(const std::vector<Sommet>& sommets, bool fermee) {
    Chemin chemin;
    if (sommets.empty()) return chemin;
    chemin.aller(sommets.front().p);
    for (std::size_t i = 0; i + 1 < sommets.size(); ++i)
        ajoute_fleche(chemin, sommets[i].p, sommets[i + 1].p, sommets[i].fleche);
    if (fermee) ajoute_fleche(chemin, sommets.back().p, sommets.front().p, sommets.back().fleche);
    return chemin;
}

Chemin nurbs(Nurbs c) {
    Chemin chemin;
    if (c.degre < 1 || c.degre > kDegreMax || c.poles.size() > kPolesMax) return chemin;
    const auto degre = static_cast<std::size_t>(c.degre);
    if (c.poles.size() <= degre) return chemin;
    if (!noeuds_valables(c)) c.noeuds = noeuds_uniformes(c.poles.size(), degre);
    if (!poids_valables(c)) c.poids.clear();
    for (std::size_t k = degre; k < c.poles.size(); ++k)
        if (c.noeuds[k + 1] > c.noeuds[k]) ajoute_intervalle(chemin, c, k);
    return chemin;
}

Chemin courbe_par(const std::vector<Point>& points) {
    Chemin chemin;
    if (points.empty()) return chemin;
    chemin.aller(points.front());
    const auto pente = [&](std::size_t i) {
        const std::size_t avant = i > 0 ? i - 1 : i, apres = std::min(i + 1, points.size() - 1);
        return (1.0 / static_cast<double>(std::max<std::size_t>(1, apres - avant))) * (points[apres] - points[avant]);
    };
    for (std::size_t i = 0; i + 1 < points.size(); ++i)
        chemin.courbe(points[i] + 1.0 / 3 * pente(i), points[i + 1] - 1.0 / 3 * pente(i + 1), points[i + 1]);
    return chemin;
}

} // namespace atelier
