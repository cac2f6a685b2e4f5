#include "unites.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace atelier {

namespace {

struct Unite {
    double mm;
    const char* symbole;
};

constexpr std::array<Unite, 8> kUnites{
    {{0, ""}, {25.4, " in"}, {304.8, " ft"}, {1609344, " mi"}, {1, " mm"}, {10, " cm"}, {1000, " m"}, {1e6, " km"}}};

const Unite& unite(int numero) {
    return kUnites[numero > 0 && numero < static_cast<int>(kUnites.size()) ? static_cast<std::size_t>(numero) : 0];
}

constexpr int kDecimalesMax = 9;

std::string ecrit(const char* format, int decimales, double valeur) {
    std::array<char, 400> tampon{};
    std::snprintf(tampon.data(), tampon.size(), format, decimales, valeur);
    return tampon.data();
}

} // namespace

double millimetres(int unites) {
    return unite(unites).mm;
}

std::string symbole(int unites) {
    return unite(unites).symbole;
}

std::string nombre(double valeur, int decimales) {
    std::string s = ecrit("%.*f", std::clamp(decimales, 0, kDecimalesMax), valeur);
    const std::size_t point = std::min(s.find('.'), s.size());
    const std::size_t debut = s.starts_with('-') ? 1 : 0;
    for (std::size_t i = point; i > debut + 3;) s.insert(i -= 3, 1, ' ');
    return s;
}

std::optional<double> lit_nombre(std::string texte) {
    std::erase_if(texte, [](char c) { return c == ' ' || c == '\xA0'; });
    std::ranges::replace(texte, ',', '.');
    char* fin = nullptr;
    const double valeur = std::strtod(texte.c_str(), &fin);
    const bool lu = !texte.empty() && *fin == '\0' && std::isfinite(valeur);
    return lu ? std::optional(valeur) : std::nullopt;
}

int decimales_pour(double pixels_par_unite) {
    if (!(pixels_par_unite > 0)) return 0;
    return std::clamp(static_cast<int>(std::ceil(std::log10(pixels_par_unite) - 1e-9)), 0, kDecimalesMax);
}

std::string texte_echelle(double papier, double pixels_par_unite) {
    if (papier <= 0) return ecrit("%.*g px", 4, pixels_par_unite);
    if (papier < 1) return ecrit("%.*f:1", papier < 0.1 ? 0 : 1, 1 / papier);
    return "1:" + ecrit("%.*f", papier < 10 ? 1 : 0, papier);
}

} // namespace atelier
