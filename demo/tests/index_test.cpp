// Where objects lie, in which order they are drawn, and views that are moved.
#include <gtest/gtest.h>

#include <random>

#include "index.h"
#include "ordre.h"
#include "vue.h"

namespace atelier {

namespace {

class Hasard {
  public:
    explicit Hasard(unsigned graine) : source_(graine) {}
    double reel(double max) { return std::uniform_real_distribution<double>(0, max)(source_); }
    int entier(int nombre) { return std::uniform_int_distribution<int>(0, nombre - 1)(source_); }
    Boite boite(double etendue, double cote) {
        const Point p{reel(etendue), reel(etendue)};
        return Boite::entre(p, p + Point{reel(cote), reel(cote)});
    }

  private:
    std::mt19937 source_;
};

std::vector<Boite> boites(Hasard& hasard, std::size_t nombre) {
    std::vector<Boite> r;
    for (std::size_t i = 0; i < nombre; ++i) r.push_back(hasard.boite(1000, i % 50 == 0 ? 900 : 20));
    return r;
}

std::vector<std::size_t> trouvees(const Index& index, const std::vector<Boite>& boites, const Boite& boite) {
    std::vector<std::size_t> r;
    index.cherche(boite, [&](std::size_t debut, std::size_t fin) {
        for (std::size_t i = debut; i < fin; ++i)
            if (boites[i].touche(boite)) r.push_back(i);
    });
    return r;
}

std::vector<std::size_t> une_par_une(const std::vector<Boite>& boites, const Boite& boite) {
    std::vector<std::size_t> r;
    for (std::size_t i = 0; i < boites.size(); ++i)
        if (boites[i].touche(boite)) r.push_back(i);
    return r;
}

// What a drawing makes of them: the number in the drawing is kept as the height.
std::vector<Objet> objets(Hasard& hasard, std::size_t nombre, int couleurs, double cote) {
    std::vector<Objet> r(nombre);
    for (std::size_t i = 0; i < nombre; ++i) {
        r[i].boite = hasard.boite(1000, cote);
        r[i].couleur = hasard.entier(couleurs);
        r[i].trait = static_cast<std::uint8_t>(hasard.entier(6) == 0 ? hasard.entier(8) : 0);
        r[i].epaisseur = static_cast<std::uint8_t>(hasard.entier(3));
        r[i].genre = static_cast<Genre>(hasard.entier(4));
        if (r[i].genre != Genre::Trait) r[i].trait = 0;
        r[i].hauteur = static_cast<double>(i);
    }
    return r;
}

Boite autour(const std::vector<Objet>& objets) {
    Boite r;
    for (const Objet& o : objets) r.ajoute(o.boite);
    return r;
}

int couche(const Objet& o) {
    if (o.genre == Genre::Plein) return 0;
    if (o.genre == Genre::Trait) return o.trait != 0 ? 1 : 2;
    return 3;
}

bool visible_entre(const Objet& a, const Objet& b) {
    const bool unis = a.trait == 0 && b.trait == 0 && a.couleur == b.couleur;
    return !unis && boite_au_plus(a).touche(boite_au_plus(b));
}

std::size_t suites(const std::vector<Objet>& objets) {
    std::size_t r = 1;
    for (std::size_t i = 1; i < objets.size(); ++i) r += objets[i].couleur != objets[i - 1].couleur ? 1 : 0;
    return r;
}

} // namespace

TEST(Index, FindsWhatOneByOneFindsInTheSameOrder) {
    Hasard hasard(7);
    for (const std::size_t nombre : {0U, 1U, 2U, 15U, 16U, 17U, 256U, 257U, 5000U}) {
        const std::vector<Boite> b = boites(hasard, nombre);
        const Index index(b);
        for (int i = 0; i < 60; ++i) {
            const Boite cherchee = hasard.boite(1000, i % 2 == 0 ? 30 : 600);
            EXPECT_EQ(trouvees(index, b, cherchee), une_par_une(b, cherchee)) << nombre;
        }
        EXPECT_EQ(trouvees(index, b, Boite::entre({5000, 5000}, {6000, 6000})).size(), 0U);
    }
}

TEST(Index, LooksAtFewWhenNeighboursLieTogether) {
    std::vector<Boite> b;
    for (int i = 0; i < 100'000; ++i) b.push_back(Boite::entre({1.0 * i, 0}, {i + 0.5, 1}));
    std::size_t vues = 0;
    Index(b).cherche(
        Boite::entre({500, 0}, {600, 1}), [&](std::size_t debut, std::size_t fin) { vues += fin - debut; });
    EXPECT_GE(vues, 100U);
    EXPECT_LE(vues, 100U + 2 * Index::kParBoite);
}

TEST(Ordre, WhatTouchesKeepsItsOrderUnlessItLooksTheSame) {
    Hasard hasard(11);
    for (const double cote : {3.0, 40.0, 700.0}) {
        std::vector<Objet> o = objets(hasard, 1200, 5, cote);
        ordonne(o, autour(o));
        for (std::size_t i = 0; i < o.size(); ++i)
            for (std::size_t j = i + 1; j < o.size(); ++j) {
                ASSERT_LE(couche(o[i]), couche(o[j]));
                if (couche(o[i]) == couche(o[j]) && visible_entre(o[i], o[j])) {
                    ASSERT_LT(o[i].hauteur, o[j].hauteur) << cote;
                }
            }
    }
}

TEST(Ordre, NothingIsLost) {
    Hasard hasard(13);
    std::vector<Objet> o = objets(hasard, 3000, 9, 30);
    ordonne(o, autour(o));
    std::vector<double> numeros;
    for (const Objet& objet : o) numeros.push_back(objet.hauteur);
    std::ranges::sort(numeros);
    for (std::size_t i = 0; i < numeros.size(); ++i) ASSERT_EQ(numeros[i], static_cast<double>(i));
}

TEST(Ordre, OneColourComesInOneRunWhereNothingTouches) {
    std::vector<Objet> o(4000);
    for (std::size_t i = 0; i < o.size(); ++i) {
        o[i].couleur = static_cast<int>(i % 4);
        const Point p{10.0 * static_cast<double>(i % 63), 10.0 * static_cast<double>(i / 63)};
        o[i].boite = Boite::entre(p, p + Point{1, 1});
    }
    EXPECT_EQ(suites(o), o.size());
    ordonne(o, autour(o));
    EXPECT_EQ(suites(o), 4U);
}

TEST(Ordre, ObjectsAtOnePlaceAndWithoutExtentAreKept) {
    std::vector<Objet> o(100);
    for (std::size_t i = 0; i < o.size(); ++i) {
        o[i].couleur = static_cast<int>(i % 2);
        o[i].boite = Boite::entre({5, 5}, {5, 5});
        o[i].hauteur = static_cast<double>(i);
    }
    ordonne(o, autour(o));
    for (std::size_t i = 0; i < o.size(); ++i) EXPECT_EQ(o[i].hauteur, static_cast<double>(i));
}

TEST(Vue, AMoveIsWholePixelsOnTheSameSheet) {
    Vue vue;
    vue.taille(801, 600);
    vue.cadre_tout(Boite::entre({-3, 7}, {1234.5, 999}));
    const Vue avant = vue;
    vue.deplace({12.4, -7.6});
    ASSERT_TRUE(vue.deplacement_depuis(avant));
    EXPECT_EQ(*vue.deplacement_depuis(avant), (Ecart{12, -8}));
    const Point p{400, 300}, q = vue.vers_ecran().applique(p) - avant.vers_ecran().applique(p);
    EXPECT_NEAR(q.x, 12, 1e-9);
    EXPECT_NEAR(q.y, -8, 1e-9);
    const Point meme = vue.vers_ecran().applique(vue.vers_dessin({100, 50}));
    EXPECT_NEAR(meme.x, 100, 1e-9);
    EXPECT_NEAR(meme.y, 50, 1e-9);
}

TEST(Vue, AnotherScaleSizeOrCentreIsAnotherSheet) {
    Vue vue;
    vue.taille(800, 600);
    vue.cadre_tout(Boite::entre({0, 0}, {100, 100}));
    const Vue avant = vue;
    vue.zoome(2, {10, 10});
    EXPECT_FALSE(vue.deplacement_depuis(avant));
    vue = avant;
    vue.taille(801, 600);
    EXPECT_FALSE(vue.deplacement_depuis(avant));
    vue = avant;
    vue.centre_sur({3, 3});
    EXPECT_FALSE(vue.deplacement_depuis(avant));
}

TEST(Vue, TheScreenStaysWithinReachHoweverFarItMoves) {
    Vue vue;
    vue.taille(800, 600);
    vue.cadre_tout(Boite::entre({0, 0}, {100, 100}));
    const Point debut = vue.centre();
    for (int i = 0; i < 500; ++i) {
        vue.deplace({-37, 11});
        const Point coin{-1.0 * vue.decalage().x, -1.0 * vue.decalage().y};
        ASSERT_LE(vue.portee().min.x, coin.x - 64);
        ASSERT_LE(vue.portee().min.y, coin.y - 64);
        ASSERT_GE(vue.portee().max.x, coin.x + 800 + 64);
        ASSERT_GE(vue.portee().max.y, coin.y + 600 + 64);
    }
    EXPECT_NEAR((vue.centre().x - debut.x) * vue.echelle(), 500 * 37, 1e-6);
    EXPECT_NEAR((vue.centre().y - debut.y) * vue.echelle(), 500 * 11, 1e-6);
}

} // namespace atelier
