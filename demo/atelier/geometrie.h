// Points, affine maps, boxes and paths of lines and curves.
#ifndef ATELIER_GEOMETRIE_H
#define ATELIER_GEOMETRIE_H

#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <numbers>
#include <span>
#include <vector>

namespace atelier {

struct Point {
    double x = 0;
    double y = 0;
    bool operator==(const Point&) const = default;
};

inline Point operator+(Point p, Point q) {
    return {p.x + q.x, p.y + q.y};
}
inline Point operator-(Point p, Point q) {
    return {p.x - q.x, p.y - q.y};
}
inline Point operator*(double k, Point p) {
    return {k * p.x, k * p.y};
}
inline double norme(Point p) {
    return std::hypot(p.x, p.y);
}
inline double radians(double degres) {
    return degres * std::numbers::pi / 180;
}

// x' = a x + c y + e, y' = b x + d y + f
struct Matrice {
    double a = 1, b = 0, c = 0, d = 1, e = 0, f = 0;

    Point applique(Point p) const { return {a * p.x + c * p.y + e, b * p.x + d * p.y + f}; }
    Point direction(Point p) const { return {a * p.x + c * p.y, b * p.x + d * p.y}; }
    // Mean magnification.
    double grandeur() const { return std::sqrt(std::abs(a * d - b * c)); }

    static Matrice translation(Point p) { return {1, 0, 0, 1, p.x, p.y}; }
    static Matrice echelle(double sx, double sy) { return {sx, 0, 0, sy, 0, 0}; }
    static Matrice rotation(double angle) {
        return {std::cos(angle), std::sin(angle), -std::sin(angle), std::cos(angle), 0, 0};
    }
};

// The map that does n first, then m.
inline Matrice operator*(const Matrice& m, const Matrice& n) {
    const Point i = m.direction({n.a, n.b}), j = m.direction({n.c, n.d}), o = m.applique({n.e, n.f});
    return {i.x, i.y, j.x, j.y, o.x, o.y};
}

struct Boite {
    Point min{std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity()};
    Point max{-std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};

    static Boite entre(Point p, Point q) {
        Boite b;
        b.ajoute(p);
        b.ajoute(q);
        return b;
    }

    bool vide() const { return !(min.x <= max.x && min.y <= max.y); }
    double largeur() const { return vide() ? 0 : max.x - min.x; }
    double hauteur() const { return vide() ? 0 : max.y - min.y; }
    Point centre() const { return vide() ? Point{} : 0.5 * (min + max); }
    bool touche(const Boite& b) const {
        return min.x <= b.max.x && b.min.x <= max.x && min.y <= b.max.y && b.min.y <= max.y;
    }
    void ajoute(Point p) {
        min = {std::fmin(min.x, p.x), std::fmin(min.y, p.y)};
        max = {std::fmax(max.x, p.x), std::fmax(max.y, p.y)};
    }
    void ajoute(const Boite& b) {
        if (b.vide()) return;
        ajoute(b.min);
        ajoute(b.max);
    }
};

// Whether curves of this much bend, seen as large as tolerance is, leave the lines between their ends by it at most.
constexpr bool plate(double courbure, double tolerance) {
    return 0.75 * courbure <= tolerance;
}

// One step of a path: to a point without drawing, by a line, or by a cubic curve that two more points guide.
enum class Pas : std::uint8_t { Aller, Ligne, Courbe };

// A path that somebody else holds: lines and cubic curves, what any affine map turns into the same kind of thing again.
class Trace {
  public:
    Trace() = default;
    Trace(std::span<const Pas> pas, std::span<const Point> points)
        : pas_(pas.data()), points_(points.data()), nb_pas_(static_cast<std::uint32_t>(pas.size())),
          nb_points_(static_cast<std::uint32_t>(points.size())) {}

    bool empty() const { return nb_pas_ == 0; }
    std::size_t nb_points() const { return nb_points_; }
    // One for Aller and Ligne, three for Courbe.
    std::span<const Point> points() const { return {points_, nb_points_}; }
    std::span<const Pas> pas() const { return {pas_, nb_pas_}; }
    bool courbe() const { return nb_points_ != nb_pas_; }
    // Around all points, those that guide the curves included.
    Boite boite() const;
    bool fini() const;
    // Of the curve that bends most: a length, 0 without curves.
    double courbure() const;

    // Gives each stroke, seen through m and cut into lines that leave the curves by tolerance at most, to
    // recoit(std::vector<Point>&).
    template <class Recoit>
    void aplatit(const Matrice& m, double tolerance, Recoit recoit) const {
        std::vector<Point> trait;
        aplatit(m, tolerance, recoit, trait);
    }
    // The same with room for the points that lasts: for who does it often.
    template <class Recoit>
    void aplatit(const Matrice& m, double tolerance, Recoit recoit, std::vector<Point>& trait) const;

  private:
    const Pas* pas_ = nullptr;
    const Point* points_ = nullptr;
    std::uint32_t nb_pas_ = 0, nb_points_ = 0;
};

// A path as it is made.
class Chemin {
  public:
    void aller(Point p) { ajoute(Pas::Aller, p); }
    void ligne(Point p) { ajoute(empty() ? Pas::Aller : Pas::Ligne, p); }
    void courbe(Point p, Point q, Point fin);
    // Arc centre + u cos t + v sin t from t0 to t1, joined to what is there.
    void arc(Point centre, Point u, Point v, double t0, double t1);
    // Back to where the last stroke began.
    void ferme();
    void ajoute(const Trace& autre, const Matrice& m);

    operator Trace() const { return {pas_, points_}; }
    bool empty() const { return pas_.empty(); }
    const std::vector<Point>& points() const { return points_; }
    Boite boite() const { return Trace(*this).boite(); }
    std::size_t nb_points() const { return points_.size(); }
    bool fini() const { return Trace(*this).fini(); }
    template <class Recoit>
    void aplatit(const Matrice& m, double tolerance, Recoit recoit) const {
        Trace(*this).aplatit(m, tolerance, recoit);
    }

  private:
    void ajoute(Pas pas, Point p) {
        pas_.push_back(pas);
        points_.push_back(p);
    }

    std::vector<Pas> pas_;
    std::vector<Point> points_;
};

// Holds many paths close together, in the order in which they came; they stay where they are when it is moved.
class Classeur {
  public:
    Trace garde(const Trace& trace, const Matrice& m = {});

  private:
    template <class T>
    struct Blocs {
        std::vector<std::unique_ptr<T[]>> blocs;
        std::size_t pris = 0, taille = 0; // of the last one
        T* prend(std::size_t nombre);
    };
    Blocs<Pas> pas_;
    Blocs<Point> points_;
};

// The points after the last one of trait that a curve goes through, fin included.
void courbe_en_lignes(std::vector<Point>& trait, Point p, Point q, Point fin, double tolerance);

template <class Recoit>
void Trace::aplatit(const Matrice& m, double tolerance, Recoit recoit, std::vector<Point>& trait) const {
    trait.clear();
    const Point* point = points_;
    for (const Pas pas : this->pas()) {
        if (pas == Pas::Courbe) {
            courbe_en_lignes(trait, m.applique(point[0]), m.applique(point[1]), m.applique(point[2]), tolerance);
            point += 3;
            continue;
        }
        if (pas == Pas::Aller && !trait.empty()) {
            recoit(trait);
            trait.clear();
        }
        trait.push_back(m.applique(*point++));
    }
    if (!trait.empty()) recoit(trait);
}

} // namespace atelier

#endif
