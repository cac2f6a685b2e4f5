#include "apercu.h"

#include <algorithm>
#include <array>

namespace atelier {

namespace {

constexpr int kPartDessinee = 14; // one point in so many makes a small point drawn

// From which to which point the small one stands for, of taille in all.
struct Tranche {
    int debut, fin;
};
Tranche tranche(int place, int nombre, int taille) {
    const int debut = place * taille / nombre;
    return {debut, std::max(debut + 1, (place + 1) * taille / nombre)};
}

// The colour that most of the drawn points have.
uchar couleur_de(const Image& image, Tranche x, Tranche y, uchar fond) {
    std::array<int, 256> comptes{};
    for (int j = y.debut; j < y.fin; ++j) {
        const uchar* const rangee =
            image.points.data() + static_cast<std::size_t>(j) * static_cast<std::size_t>(image.largeur);
        for (int i = x.debut; i < x.fin; ++i) ++comptes[rangee[i]];
    }
    const int points = (x.fin - x.debut) * (y.fin - y.debut);
    if ((points - comptes[fond]) * kPartDessinee < points) return fond;
    comptes[fond] = 0;
    return static_cast<uchar>(std::ranges::max_element(comptes) - comptes.begin());
}

} // namespace

Image reduite(const Image& image, int cote, uchar fond) {
    const int grand = std::max(image.largeur, image.hauteur);
    if (grand <= cote || std::min(image.largeur, image.hauteur) <= 0) return image;
    const auto taille = [&](int t) { return std::max(1, static_cast<int>(static_cast<long>(t) * cote / grand)); };
    Image r{taille(image.largeur), taille(image.hauteur), {}};
    for (int y = 0; y < r.hauteur; ++y)
        for (int x = 0; x < r.largeur; ++x)
            r.points.push_back(
                couleur_de(image, tranche(x, r.largeur, image.largeur), tranche(y, r.hauteur, image.hauteur), fond));
    return r;
}

} // namespace atelier
