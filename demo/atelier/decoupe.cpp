#include "decoupe.h"

#include <algorithm>
#include <array>
#include <utility>

namespace atelier {

namespace {

struct Partie {
    double debut = 0, fin = 1; // of the segment, from 0 to 1
    bool vide() const { return !(debut <= fin); }
};

void borne(Partie& partie, double position, double vitesse, double min, double max) {
    if (vitesse == 0) {
        if (position < min || position > max) partie = {1, 0};
        return;
    }
    double a = (min - position) / vitesse, b = (max - position) / vitesse;
    if (a > b) std::swap(a, b);
    partie.debut = std::max(partie.debut, a);
    partie.fin = std::min(partie.fin, b);
}

Partie dans(Point p, Point q, const Boite& boite) {
    Partie partie;
    borne(partie, p.x, q.x - p.x, boite.min.x, boite.max.x);
    borne(partie, p.y, q.y - p.y, boite.min.y, boite.max.y);
    return partie;
}

// Moves the start of a part back to where a pattern begins that started with the line.
double debut_de_motif(double debut, double avant, double longueur, int periode) {
    if (periode == 0 || debut == 0 || longueur <= 0) return debut;
    const double ici = avant + debut * longueur;
    return std::max(0.0, (std::floor(ici / periode) * periode - avant) / longueur);
}

// One side of a box: how far inside a point lies.
struct Bord {
    double x, y, reste;
    double dedans(Point p) const { return x * p.x + y * p.y + reste; }
};

std::vector<Point> coupe_bord(const std::vector<Point>& contour, const Bord& bord) {
    std::vector<Point> r;
    for (std::size_t i = 0; i < contour.size(); ++i) {
        const Point p = contour[i], q = contour[(i + 1) % contour.size()];
        const double dp = bord.dedans(p), dq = bord.dedans(q);
        if (dp >= 0) r.push_back(p);
        if ((dp >= 0) != (dq >= 0)) r.push_back(p + dp / (dp - dq) * (q - p));
    }
    return r;
}

} // namespace

void decoupe_ligne(const std::vector<Point>& ligne, const Boite& boite, int periode,
    const std::function<void(const std::vector<Point>&)>& recoit) {
    std::vector<Point> part;
    double avant = 0;
    const auto rend = [&] {
        if (part.size() > 1) recoit(part);
        part.clear();
    };
    for (std::size_t i = 0; i + 1 < ligne.size(); ++i) {
        const Point p = ligne[i], q = ligne[i + 1];
        const double longueur = norme(q - p);
        const Partie partie = dans(p, q, boite);
        if (!partie.vide()) {
            if (part.empty()) part.push_back(p + debut_de_motif(partie.debut, avant, longueur, periode) * (q - p));
            part.push_back(partie.fin < 1 ? p + partie.fin * (q - p) : q);
        }
        if (partie.vide() || partie.fin < 1) rend();
        avant += longueur;
    }
    rend();
}

std::vector<Point> decoupe_surface(std::vector<Point> contour, const Boite& boite) {
    const std::array<Bord, 4> bords{
        {{1, 0, -boite.min.x}, {-1, 0, boite.max.x}, {0, 1, -boite.min.y}, {0, -1, boite.max.y}}};
    for (const Bord& bord : bords) contour = coupe_bord(contour, bord);
    return contour;
}

} // namespace atelier
