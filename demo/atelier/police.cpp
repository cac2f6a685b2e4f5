#include "police.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <map>

namespace atelier::police {

namespace {

constexpr double kEspacement = 2;
constexpr double kHauteurMinuscule = 7;

// A stroke is written M x y (pen down there), L x y (line), A cx cy rx ry a b (arc of an ellipse from a to b degrees,
// joined by a line to what is there), F the same with the pen lifted before.
struct Dessin {
    char32_t caractere;
    double largeur;
    const char* traits;
};

#define PANSE "F2.5 4.5 2.5 2.5 0 180L0 2.5A2.5 2.5 2.5 2.5 180 360L5 4.5"
#define ROND "F3 7 3 3 0 180L0 3A3 3 3 3 180 360L6 7"

constexpr Dessin kDessins[] = {
    {U' ', 3.5, ""},
    {U'!', 0, "M0 10L0 3M0 .7L0 0"},
    {U'"', 2, "M0 10L0 7.5M2 10L2 7.5"},
    {U'#', 6, "M1.2 0L2.2 10M3.8 0L4.8 10M0 6.7L6 6.7M0 3.3L6 3.3"},
    {U'$', 5.6, "F2.8 7.1 2.5 2 30 270A2.8 3 2.8 2.1 90 -150M2.8 10L2.8 0"},
    {U'%', 7, "F1.6 8.2 1.6 1.8 0 360F5.4 1.8 1.6 1.8 0 360M6.6 10L.4 0"},
    {U'&', 6.2, "M6.2 0L1.4 7.2A2.7 8.3 1.7 1.7 220 -40L.6 4.1A2.4 2.5 2.4 2.5 138 300L6 4.4"},
    {U'\'', 0, "M0 10L0 7.5"},
    {U'(', 2, "F5.2 4 5.2 7.5 130 230"},
    {U')', 2, "F-3.2 4 5.2 7.5 50 -50"},
    {U'*', 4, "M2 9.5L2 5.5M.3 8.5L3.7 6.5M.3 6.5L3.7 8.5"},
    {U'+', 5, "M0 4L5 4M2.5 6.5L2.5 1.5"},
    {U',', .6, "M.6 .7L.6 0L0 -1.6"},
    {U'-', 3.4, "M0 4L3.4 4"},
    {U'.', 0, "M0 0L0 .7"},
    {U'/', 4, "M0 -1L4 11"},
    {U'0', 5, "F2.5 7.5 2.5 2.5 0 180L0 2.5A2.5 2.5 2.5 2.5 180 360L5 7.5"},
    {U'1', 5, "M.8 7.8L3 10L3 0"},
    {U'2', 5, "F2.5 7.5 2.5 2.5 165 -35L0 0L5 0"},
    {U'3', 5, "F2.4 7.6 2.4 2.4 150 -90A2.4 2.6 2.6 2.6 90 -150"},
    {U'4', 5, "M3.8 0L3.8 10L0 3L5 3"},
    {U'5', 5, "M4.6 10L.7 10L.39 5.55A2.3 3.25 2.7 3.25 135 -150"},
    {U'6', 5, "F2.5 3 2.5 3 0 360M0 3A4.6 3 4.6 7 180 95"},
    {U'7', 5, "M0 10L5 10L1.6 0"},
    {U'8', 5, "F2.5 7.6 2.2 2.4 -90 270A2.5 2.6 2.5 2.6 90 450"},
    {U'9', 5, "F2.5 7 2.5 3 0 360M5 7A.4 7 4.6 7 0 -85"},
    {U':', 0, "M0 0L0 .7M0 5L0 5.7"},
    {U';', .6, "M.6 5L.6 5.7M.6 .7L.6 0L0 -1.6"},
    {U'<', 5, "M5 7L0 4L5 1"},
    {U'=', 5, "M0 5.2L5 5.2M0 2.8L5 2.8"},
    {U'>', 5, "M0 7L5 4L0 1"},
    {U'?', 4.6, "F2.3 7.7 2.3 2.3 165 -60L2.3 4.6L2.3 3M2.3 .7L2.3 0"},
    {U'@', 8, "F4 4 2 2.2 0 360M6 6.2L6 3A7 3 1 1 180 360L8 4.4A4 4.4 4 5 0 310"},
    {U'A', 6, "M0 0L3 10L6 0M1 3.3L5 3.3"},
    {U'B', 5.7, "M0 0L0 10L3.2 10A3.2 7.7 2.3 2.3 90 -90L0 5.4M3 5.4A3 2.7 2.7 2.7 90 -90L0 0"},
    {U'C', 5.8, "F3 7 3 3 25 180L0 3A3 3 3 3 180 335"},
    {U'D', 6, "M0 0L0 10L2.5 10A2.5 6.5 3.5 3.5 90 0L6 3.5A2.5 3.5 3.5 3.5 0 -90L0 0"},
    {U'E', 5, "M5 10L0 10L0 0L5 0M0 5.2L4 5.2"},
    {U'F', 5, "M5 10L0 10L0 0M0 5.2L4 5.2"},
    {U'G', 6, "F3 7 3 3 25 180L0 3A3 3 3 3 180 360L6 4.8L3.4 4.8"},
    {U'H', 6, "M0 0L0 10M6 0L6 10M0 5.2L6 5.2"},
    {U'I', 0, "M0 0L0 10"},
    {U'J', 4, "M4 10L4 2A2 2 2 2 0 -180"},
    {U'K', 5.8, "M0 0L0 10M5.6 10L0 3.8M2.05 6.05L5.8 0"},
    {U'L', 5, "M0 10L0 0L5 0"},
    {U'M', 7, "M0 0L0 10L3.5 3.5L7 10L7 0"},
    {U'N', 6, "M0 0L0 10L6 0L6 10"},
    {U'O', 6, ROND},
    {U'P', 5.7, "M0 0L0 10L2.9 10A2.9 7.2 2.8 2.8 90 -90L0 4.4"},
    {U'Q', 6.2, ROND "M3.8 2.4L6.2 -.4"},
    {U'R', 5.8, "M0 0L0 10L2.9 10A2.9 7.2 2.8 2.8 90 -90L0 4.4M2.9 4.4L5.8 0"},
    {U'S', 5.6, "F2.8 7.5 2.6 2.5 30 270A2.8 2.5 2.8 2.5 90 -150"},
    {U'T', 6, "M0 10L6 10M3 10L3 0"},
    {U'U', 6, "M0 10L0 3A3 3 3 3 180 360L6 10"},
    {U'V', 6, "M0 10L3 0L6 10"},
    {U'W', 9, "M0 10L2.2 0L4.5 8L6.8 0L9 10"},
    {U'X', 6, "M0 10L6 0M0 0L6 10"},
    {U'Y', 6, "M0 10L3 4.8L6 10M3 4.8L3 0"},
    {U'Z', 6, "M0 10L6 10L0 0L6 0"},
    {U'[', 2, "M2 11L0 11L0 -2L2 -2"},
    {U'\\', 4, "M0 11L4 -1"},
    {U']', 2, "M0 11L2 11L2 -2L0 -2"},
    {U'^', 4, "M0 7.5L2 10L4 7.5"},
    {U'_', 6, "M0 -1.5L6 -1.5"},
    {U'`', 1.5, "M0 10L1.5 8"},
    {U'a', 5, PANSE "M5 7L5 0"},
    {U'b', 5, "M0 10L0 0" PANSE},
    {U'c', 4.7, "F2.5 4.5 2.5 2.5 30 180L0 2.5A2.5 2.5 2.5 2.5 180 330"},
    {U'd', 5, PANSE "M5 10L5 0"},
    {U'e', 5, "M0 3.7L5 3.7L5 4.5A2.5 4.5 2.5 2.5 0 180L0 2.5A2.5 2.5 2.5 2.5 180 325"},
    {U'f', 3.2, "M1.2 0L1.2 8A3.2 8 2 2 180 90M0 7L3 7"},
    {U'g', 5, PANSE "M5 7L5 -.5A2.5 -.5 2.5 2.5 0 -150"},
    {U'h', 5, "M0 10L0 0M0 4.5A2.5 4.5 2.5 2.5 180 0L5 0"},
    {U'i', 0, "M0 0L0 7M0 9.1L0 9.8"},
    {U'j', 1.5, "M1.5 7L1.5 -1.5A0 -1.5 1.5 1.5 0 -90M1.5 9.1L1.5 9.8"},
    {U'k', 4.7, "M0 10L0 0M4.5 7L0 2.6M1.7 4.25L4.7 0"},
    {U'l', 1.3, "M0 10L0 1.3A1.3 1.3 1.3 1.3 180 270"},
    {U'm', 8, "M0 0L0 7M0 5A2 5 2 2 180 0L4 0M4 5A6 5 2 2 180 0L8 0"},
    {U'n', 5, "M0 0L0 7M0 4.5A2.5 4.5 2.5 2.5 180 0L5 0"},
    {U'o', 5, PANSE},
    {U'p', 5, "M0 7L0 -3" PANSE},
    {U'q', 5, PANSE "M5 7L5 -3"},
    {U'r', 3, "M0 0L0 7M0 4.4A2.6 4.4 2.6 2.6 180 80"},
    {U's', 4.4, "F2.2 5.3 2 1.7 35 270A2.2 1.8 2.2 1.8 90 -145"},
    {U't', 3, "M1.2 9.4L1.2 1.6A2.8 1.6 1.6 1.6 180 280M0 7L3 7"},
    {U'u', 5, "M0 7L0 2.5A2.5 2.5 2.5 2.5 180 360M5 7L5 0"},
    {U'v', 5, "M0 7L2.5 0L5 7"},
    {U'w', 7, "M0 7L1.8 0L3.5 6L5.2 0L7 7"},
    {U'x', 4.8, "M0 7L4.8 0M0 0L4.8 7"},
    {U'y', 5, "M0 7L2.5 0M5 7L1.43 -3"},
    {U'z', 4.6, "M0 7L4.6 7L0 0L4.6 0"},
    {U'{', 2.4,
        "M2.4 11A2.4 9.7 1.2 1.3 90 180L1.2 6A0 6 1.2 1.5 0 -90A0 3 1.2 1.5 90 0L1.2 -.7A2.4 -.7 1.2 1.3 180 270"},
    {U'|', 0, "M0 11L0 -2"},
    {U'}', 2.4,
        "M0 11A0 9.7 1.2 1.3 90 0L1.2 6A2.4 6 1.2 1.5 180 270A2.4 3 1.2 1.5 90 180L1.2 -.7A0 -.7 1.2 1.3 0 -90"},
    {U'~', 5, "F1.25 4 1.25 1 180 0A3.75 4 1.25 1 180 360"},
    {U'\u00A0', 3.5, ""},
    {U'\u00A3', 5, "F3.4 7.6 2.4 2.4 20 180L1 2A.6 .9 .9 .9 60 -90L5 0M0 5L3.8 5"},
    {U'\u00A7', 4, "F2 8.4 1.7 1.6 25 270A2 4.9 2 1.9 90 -60M2.9 3.2A2 5.1 2 1.9 -90 -270A2 1.6 1.8 1.6 90 -155"},
    {U'\u00AB', 5, "M2.2 6L0 3.5L2.2 1M5 6L2.8 3.5L5 1"},
    {U'\u00BB', 5, "M0 6L2.2 3.5L0 1M2.8 6L5 3.5L2.8 1"},
    {U'\u00B0', 2.4, "F1.2 8.8 1.2 1.2 0 360"},
    {U'\u00B1', 5, "M0 5L5 5M2.5 7.5L2.5 2.5M0 .8L5 .8"},
    {U'\u00B5', 5, "M0 7L0 -3M0 2.5A2.5 2.5 2.5 2.5 180 360M5 7L5 0"},
    {U'\u00B7', 0, "M0 3.6L0 4.4"},
    {U'\u00D7', 4, "M0 6L4 2M0 2L4 6"},
    {U'\u00F7', 5, "M0 4L5 4M2.5 6.8L2.5 6.2M2.5 1.8L2.5 1.2"},
    {U'\u00C6', 8.4, "M0 0L3.6 10L8.4 10M4.2 10L4.2 0L8.4 0M1.2 3.3L4.2 3.3M4.2 5.2L7.6 5.2"},
    {U'\u00E6', 8.6,
        "F2.3 4.7 2.1 2.3 160 0M4.4 3.7L8.6 3.7L8.6 4.5A6.5 4.5 2.1 2.5 0 180L4.4 2.5A6.5 2.5 2.1 2.5 180 325"
        "M4.4 3.9L2 3.9A2 1.95 2 1.95 90 270A2.2 2.4 2.2 2.4 -90 0"},
    {U'\u0152', 8.6, "F3 7 3 3 90 180L0 3A3 3 3 3 180 270L8.6 0M3 10L8.6 10M4.2 10L4.2 0M4.2 5.2L7.8 5.2"},
    {U'\u0153', 8.8,
        "F2.2 4.5 2.2 2.5 0 180L0 2.5A2.2 2.5 2.2 2.5 180 360L4.4 4.5"
        "M4.4 3.7L8.8 3.7L8.8 4.5A6.6 4.5 2.2 2.5 0 180M4.4 2.5A6.6 2.5 2.2 2.5 180 325"},
    {U'\u00DF', 4.8, "M0 0L0 7.6A2.2 7.6 2.2 2.4 180 -70L2.2 5.4A2.2 2.7 2.6 2.7 90 -110"},
    {U'\u00D8', 6, ROND "M0 -.6L6 10.6"},
    {U'\u00F8', 5, PANSE "M0 -.6L5 7.6"},
    {U'\u20AC', 6.4, "F3.8 7 2.8 3 30 180L1 3A3.8 3 2.8 3 180 330M0 6L4.6 6M0 4.2L4.2 4.2"},
    {U'\u0131', 0, "M0 0L0 7"},
};

// Accents, their middle at 0, for letters as high as a small one.
constexpr Dessin kAccents[] = {
    {U'`', 0, "M-1.1 10.2L.7 8.3"},
    {U'\'', 0, "M1.1 10.2L-.7 8.3"},
    {U'^', 0, "M-1.6 8.3L0 10.1L1.6 8.3"},
    {U'"', 0, "M-1.2 8.6L-1.2 9.3M1.2 8.6L1.2 9.3"},
    {U'~', 0, "F-.85 9 .85 .7 180 0A.85 9 .85 .7 180 360"},
    {U'o', 0, "F0 9.3 1 1 0 360"},
    {U',', 0, "M.2 0L-.2 -.9A-.1 -1.9 1 1 85 -130"},
};

struct Compose {
    char32_t caractere;
    char32_t base;
    char32_t accent;
};

constexpr Compose kComposes[] = {
    {U'À', U'A', U'`'},
    {U'Â', U'A', U'^'},
    {U'Ä', U'A', U'"'},
    {U'Á', U'A', U'\''},
    {U'Ã', U'A', U'~'},
    {U'Å', U'A', U'o'},
    {U'Ç', U'C', U','},
    {U'È', U'E', U'`'},
    {U'É', U'E', U'\''},
    {U'Ê', U'E', U'^'},
    {U'Ë', U'E', U'"'},
    {U'Ì', U'I', U'`'},
    {U'Í', U'I', U'\''},
    {U'Î', U'I', U'^'},
    {U'Ï', U'I', U'"'},
    {U'Ñ', U'N', U'~'},
    {U'Ò', U'O', U'`'},
    {U'Ó', U'O', U'\''},
    {U'Ô', U'O', U'^'},
    {U'Õ', U'O', U'~'},
    {U'Ö', U'O', U'"'},
    {U'Ù', U'U', U'`'},
    {U'Ú', U'U', U'\''},
    {U'Û', U'U', U'^'},
    {U'Ü', U'U', U'"'},
    {U'Ÿ', U'Y', U'"'},
    {U'à', U'a', U'`'},
    {U'á', U'a', U'\''},
    {U'â', U'a', U'^'},
    {U'ã', U'a', U'~'},
    {U'ä', U'a', U'"'},
    {U'å', U'a', U'o'},
    {U'ç', U'c', U','},
    {U'è', U'e', U'`'},
    {U'é', U'e', U'\''},
    {U'ê', U'e', U'^'},
    {U'ë', U'e', U'"'},
    {U'ì', U'ı', U'`'},
    {U'í', U'ı', U'\''},
    {U'î', U'ı', U'^'},
    {U'ï', U'ı', U'"'},
    {U'ñ', U'n', U'~'},
    {U'ò', U'o', U'`'},
    {U'ó', U'o', U'\''},
    {U'ô', U'o', U'^'},
    {U'õ', U'o', U'~'},
    {U'ö', U'o', U'"'},
    {U'ù', U'u', U'`'},
    {U'ú', U'u', U'\''},
    {U'û', U'u', U'^'},
    {U'ü', U'u', U'"'},
    {U'ý', U'y', U'\''},
    {U'ÿ', U'y', U'"'},
};

// Small copies set high: "m²".
struct Exposant {
    char32_t caractere;
    char32_t base;
};

constexpr Exposant kExposants[] = {{U'\u00B2', U'2'}, {U'\u00B3', U'3'}, {U'\u00B9', U'1'}};
constexpr double kReduction = 0.55;

// Characters drawn like others.
constexpr Exposant kSemblables[] = {
    {U'\u2018', U'\''},
    {U'\u2019', U'\''},
    {U'\u201C', U'"'},
    {U'\u201D', U'"'},
    {U'\u2010', U'-'},
    {U'\u2011', U'-'},
    {U'\u2013', U'-'},
    {U'\u2014', U'-'},
    {U'\u2212', U'-'},
    {U'\u2205', U'\u00D8'},
    {U'\u2300', U'\u00D8'},
    {U'\u00BA', U'\u00B0'},
    {U'\u202F', U' '},
    {U'\u2009', U' '},
    {U'\t', U' '},
};

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
