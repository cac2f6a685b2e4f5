#include "couleurs.h"

#include <dxflib/dl_codes.h>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace atelier {

namespace {

constexpr int kNumeroAvantPlan = 7;
constexpr double kContrasteMin = 2.6;

double lineaire(int c) {
    return std::pow(c / 255.0, 2.2);
}

double luminance(Rgb c) {
    return 0.2126 * lineaire(c.rouge) + 0.7152 * lineaire(c.vert) + 0.0722 * lineaire(c.bleu);
}

double contraste(Rgb c) {
    const double a = luminance(c) + 0.05, b = luminance(kFond) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

Rgb vers_avant_plan(Rgb c, double part) {
    const auto entre = [part](int a, int b) { return static_cast<int>(std::lround(a + part * (b - a))); };
    return {entre(c.rouge, kAvantPlan.rouge), entre(c.vert, kAvantPlan.vert), entre(c.bleu, kAvantPlan.bleu)};
}

int distance(Rgb a, Rgb b) {
    const auto carre = [](int v) { return v * v; };
    return 2 * carre(a.rouge - b.rouge) + 4 * carre(a.vert - b.vert) + 3 * carre(a.bleu - b.bleu);
}

} // namespace

Rgb couleur_numero(int numero) {
    if (numero == kNumeroAvantPlan || numero < 1 || numero >= static_cast<int>(std::size(dxfColors))) return kAvantPlan;
    const auto& c = dxfColors[numero];
    const auto octet = [](double v) { return static_cast<int>(std::lround(v * 255)); };
    return lisible({octet(c[0]), octet(c[1]), octet(c[2])});
}

Rgb couleur_vraie(int rgb) {
    return lisible({(rgb >> 16) & 255, (rgb >> 8) & 255, rgb & 255});
}

Rgb lisible(Rgb couleur) {
    for (double part = 0; part < 1; part += 0.1) {
        const Rgb essai = vers_avant_plan(couleur, part);
        if (contraste(essai) >= kContrasteMin) return essai;
    }
    return kAvantPlan;
}

std::vector<int> places(const std::vector<Rgb>& couleurs, std::size_t nb) {
    const std::size_t gardees = std::min(nb, couleurs.size());
    std::vector<int> r;
    for (std::size_t i = 0; i < couleurs.size(); ++i) {
        const auto fin = couleurs.begin() + static_cast<std::ptrdiff_t>(gardees);
        const auto proche =
            std::ranges::min_element(couleurs.begin(), fin, {}, [&](Rgb c) { return distance(c, couleurs[i]); });
        r.push_back(proche == fin ? 0 : static_cast<int>(proche - couleurs.begin()));
    }
    return r;
}

int couleur_du_calque(const Dessin& dessin, int calque) {
    std::vector<int> comptes(dessin.couleurs.size());
    for (const Objet& o : dessin.objets)
        if (o.calque == calque) ++comptes[static_cast<std::size_t>(o.couleur)];
    const auto plus = std::ranges::max_element(comptes);
    return plus != comptes.end() && *plus > 0 ? static_cast<int>(plus - comptes.begin()) : -1;
}

} // namespace atelier
