#include "ordre.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <span>

namespace atelier {

namespace {

constexpr int kSansCouleur = -1; // nothing there yet, or colours that differ

int rang(const Objet& o) {
    if (o.genre == Genre::Plein) return 0;
    if (o.genre == Genre::Trait) return o.trait != 0 ? 1 : 2;
    return 3;
}

// The last that was put somewhere: objects of a later layer are drawn after it.
struct Dernier {
    int etage = 0;
    int couleur = kSansCouleur;

    // The layer of an object put on top.
    int suivant(int couleur_posee) const {
        return couleur == kSansCouleur || couleur != couleur_posee ? etage + 1 : etage;
    }
};

// A net over the drawing that knows what lies on top of each of its meshes.
class Filet {
  public:
    Filet(const Boite& boite, std::size_t nombre) : origine_(boite.vide() ? Point{} : boite.min) {
        constexpr double kParObjet = 4, kCoteMax = 2048;
        cote_ = static_cast<int>(std::clamp(std::sqrt(kParObjet * static_cast<double>(nombre)), 1.0, kCoteMax));
        const double etendue = std::max({boite.largeur(), boite.hauteur(), 1e-300});
        par_unite_ = cote_ / etendue;
        mailles_.resize(static_cast<std::size_t>(cote_) * static_cast<std::size_t>(cote_));
    }

    // The layer of the next object of the drawing: above all that it may touch.
    int pose(const Boite& boite, int couleur) {
        const int x1 = maille(boite.min.x - origine_.x), x2 = maille(boite.max.x - origine_.x);
        const int y1 = maille(boite.min.y - origine_.y), y2 = maille(boite.max.y - origine_.y);
        constexpr long kMaillesMax = 512; // what takes more is put above everything, and everything later above it
        if ((x2 - x1 + 1L) * (y2 - y1 + 1L) > kMaillesMax) return pose_sur_tout(couleur);
        int etage = fond_.suivant(couleur);
        const auto chacune = [&](auto&& fait) {
            for (int y = y1; y <= y2; ++y)
                for (int x = x1; x <= x2; ++x)
                    fait(mailles_[static_cast<std::size_t>(y) * static_cast<std::size_t>(cote_)
                                  + static_cast<std::size_t>(x)]);
        };
        chacune([&](const Dernier& d) { etage = std::max(etage, d.suivant(couleur)); });
        chacune([&](Dernier& d) { d = {etage, couleur}; });
        plus_haut_ = std::max(plus_haut_, etage);
        return etage;
    }

  private:
    int pose_sur_tout(int couleur) {
        const bool le_meme = fond_.etage == plus_haut_ && fond_.suivant(couleur) == plus_haut_;
        plus_haut_ += le_meme ? 0 : 1;
        fond_ = {plus_haut_, couleur};
        return plus_haut_;
    }

    int maille(double distance) const {
        return static_cast<int>(std::clamp(distance * par_unite_, 0.0, static_cast<double>(cote_ - 1)));
    }

    Point origine_;
    double par_unite_ = 1;
    int cote_ = 1;
    int plus_haut_ = 0;
    Dernier fond_; // below every mesh
    std::vector<Dernier> mailles_;
};

// Position along a line that winds through a square and leaves no place far from its neighbours (Hilbert's).
std::uint32_t le_long(std::uint32_t x, std::uint32_t y) {
    std::uint32_t d = 0;
    for (std::uint32_t s = 1U << 15; s > 0; s /= 2) {
        const std::uint32_t rx = (x & s) != 0 ? 1 : 0, ry = (y & s) != 0 ? 1 : 0;
        d += s * s * ((3 * rx) ^ ry);
        if (ry == 0) {
            if (rx == 1) {
                x = ~x;
                y = ~y;
            }
            std::swap(x, y);
        }
    }
    return d;
}

std::uint32_t place(const Boite& boite, const Boite& tout) {
    const double etendue = std::max({tout.largeur(), tout.hauteur(), 1e-300});
    const auto seizieme = [&](double d) {
        return static_cast<std::uint32_t>(std::clamp(d / etendue * UINT16_MAX, 0.0, static_cast<double>(UINT16_MAX)));
    };
    const Point c = boite.centre() - tout.min;
    return le_long(seizieme(c.x), seizieme(c.y));
}

struct Cle {
    std::uint32_t etage = 0, allure = 0, place = 0, objet = 0;
    auto operator<=>(const Cle&) const = default;
};

std::uint32_t allure(const Objet& o) {
    constexpr std::uint32_t kParCouleur = 64, kParEpaisseur = 8; // styles and widths are below 8
    return static_cast<std::uint32_t>(o.couleur) * kParCouleur + o.epaisseur * kParEpaisseur + o.trait;
}

// The keys of all objects of one rank.
std::vector<Cle> cles(std::span<const Objet> objets, const Boite& boite) {
    std::vector<Cle> r;
    r.reserve(objets.size());
    Filet filet(boite, objets.size());
    for (const Objet& o : objets) {
        const int couleur = o.trait == 0 ? o.couleur : kSansCouleur;
        r.push_back({static_cast<std::uint32_t>(filet.pose(boite_au_plus(o), couleur)), allure(o),
            place(o.boite, boite), static_cast<std::uint32_t>(r.size())});
    }
    return r;
}

void ordonne_rang(std::span<Objet> objets, const Boite& boite) {
    std::vector<Cle> ordre = cles(objets, boite);
    std::ranges::sort(ordre);
    std::vector<Objet> ranges;
    ranges.reserve(objets.size());
    for (const Cle& c : ordre) ranges.push_back(objets[c.objet]);
    std::ranges::copy(ranges, objets.begin());
}

} // namespace

Boite agrandie(const Boite& boite, double k) {
    if (boite.vide()) return boite;
    const Point milieu = boite.centre();
    return Boite::entre(milieu + k * (boite.min - milieu), milieu + k * (boite.max - milieu));
}

Boite boite_au_plus(const Objet& o) {
    return o.genre == Genre::Texte ? agrandie(o.boite, kTextesMax) : o.boite;
}

void ordonne(std::vector<Objet>& objets, const Boite& boite) {
    std::ranges::stable_sort(objets, {}, rang);
    for (std::span<Objet> reste = objets; !reste.empty();) {
        const int ce_rang = rang(reste.front());
        const auto fin = std::ranges::find_if(reste, [&](const Objet& o) { return rang(o) != ce_rang; });
        const auto nombre = static_cast<std::size_t>(fin - reste.begin());
        ordonne_rang(reste.first(nombre), boite);
        reste = reste.subspan(nombre);
    }
}

} // namespace atelier
