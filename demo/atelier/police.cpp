#include "police.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <map>

#include "police_dessins.h"

namespace atelier::police {

namespace {

constexpr double kEspacement = 2;
constexpr double kHauteurMinuscule = 7;
constexpr double kReduction = 0.55; // of characters set high

// Reads the numbers of one step.
class Lecteur {
  public:
    explicit Lecteur(const char* texte) : p_(texte) {}
    char lettre() { return *p_ != 0 ? *p_++ : '\0'; }
    double nombre() {
        char* fin = nullptr;
        const double v = std::strtod(p_, &fin);
        p_ = fin;
        return v;
    }
    Point point() {
        const double x = nombre();
        return {x, nombre()};
    }

  private:
    const char* p_;
};

void ajoute_arc(Chemin& chemin, Lecteur& l, bool leve) {
    const Point centre = l.point(), rayons = l.point();
    const Point angles = l.point();
    const double a = radians(angles.x), b = radians(angles.y);
    const Point u{rayons.x, 0}, v{0, rayons.y};
    if (leve) chemin.aller(centre + std::cos(a) * u + std::sin(a) * v);
    chemin.arc(centre, u, v, a, b);
}

Chemin trace(const char* traits) {
    Chemin chemin;
    Lecteur l(traits);
    while (const char pas = l.lettre()) {
        if (pas == 'M') chemin.aller(l.point());
        if (pas == 'L') chemin.ligne(l.point());
        if (pas == 'A' || pas == 'F') ajoute_arc(chemin, l, pas == 'F');
    }
    return chemin;
}

using Glyphes = std::map<char32_t, Glyphe>;

Chemin accent(char32_t nom) {
    const auto* const dessin = std::ranges::find(kAccents, nom, &Dessin::caractere);
    return dessin != std::end(kAccents) ? trace(dessin->traits) : Chemin{};
}

// Accents are wider than an i: the letter gets room for them.
Glyphe compose(const Glyphe& base, const Chemin& accent, double leve) {
    Glyphe g{std::max(base.largeur, accent.boite().largeur() * 0.8), 0, {}};
    g.avance = g.largeur + kEspacement;
    g.chemin.ajoute(base.chemin, Matrice::translation({(g.largeur - base.largeur) / 2, 0}));
    g.chemin.ajoute(accent, Matrice::translation({g.largeur / 2, leve}));
    return g;
}

void ajoute_composes(Glyphes& glyphes) {
    for (const auto& [caractere, base, nom] : kComposes) {
        const bool capitale = base <= U'Z';
        const double leve = nom == U',' || !capitale ? 0 : kHauteur - kHauteurMinuscule;
        glyphes.emplace(caractere, compose(glyphes.at(base), accent(nom), leve));
    }
}

void ajoute_exposants(Glyphes& glyphes) {
    for (const auto& [caractere, base] : kExposants) {
        const Glyphe& modele = glyphes.at(base);
        Glyphe g{modele.largeur * kReduction, modele.largeur * kReduction + kEspacement, {}};
        const Matrice haut = Matrice::translation({0, kHauteur * (1 - kReduction)});
        g.chemin.ajoute(modele.chemin, haut * Matrice::echelle(kReduction, kReduction));
        glyphes.emplace(caractere, std::move(g));
    }
    for (const auto& [caractere, base] : kSemblables) glyphes.emplace(caractere, glyphes.at(base));
}

Glyphes tous() {
    Glyphes glyphes;
    for (const Dessin& d : kDessins)
        glyphes.emplace(d.caractere, Glyphe{d.largeur, d.largeur + kEspacement, trace(d.traits)});
    ajoute_composes(glyphes);
    ajoute_exposants(glyphes);
    return glyphes;
}

const Glyphes& les_glyphes() {
    static const Glyphes glyphes = tous();
    return glyphes;
}

const Glyphe& inconnu() {
    static const Glyphe boite{5, 5 + kEspacement, trace("M0 0L0 10L5 10L5 0L0 0")};
    return boite;
}

} // namespace

const Glyphe& glyphe(char32_t caractere) {
    const auto g = les_glyphes().find(caractere);
    return g != les_glyphes().end() ? g->second : inconnu();
}

bool connait(char32_t caractere) {
    return les_glyphes().contains(caractere);
}

double largeur(std::u32string_view texte) {
    double x = 0;
    for (const char32_t c : texte) x += glyphe(c).avance;
    return texte.empty() ? 0 : x - kEspacement;
}

Chemin ecrit(std::u32string_view texte) {
    Chemin chemin;
    double x = 0;
    for (const char32_t c : texte) {
        const Glyphe& g = glyphe(c);
        chemin.ajoute(g.chemin, Matrice::translation({x, 0}));
        x += g.avance;
    }
    return chemin;
}

} // namespace atelier::police
