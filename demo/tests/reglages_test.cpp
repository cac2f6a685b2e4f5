// Units, grid and texts as the user settles them.
#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "reglages.h"
#include "unites.h"
#include "xt_gfx_t.h"

namespace atelier {

constexpr int kPouces = 1, kMillimetres = 4, kMetres = 6;

TEST(Reglages, UnitsChangeWhatCoordinatesAreToldIn) {
    Reglages r;
    EXPECT_EQ(unite_montree(r, kMetres), kMetres);
    EXPECT_EQ(facteur(r, kMetres), 1);
    r.unite = 1;
    EXPECT_EQ(unite_montree(r, kMetres), kMillimetres);
    EXPECT_EQ(facteur(r, kMetres), 1000);
    EXPECT_DOUBLE_EQ(facteur(r, kPouces), 25.4);
    r.unite = 3;
    EXPECT_EQ(facteur(r, kMillimetres), 0.001);
    EXPECT_EQ(facteur(r, kMetres), 1);
    for (const int choix : {-1, 4, 99}) {
        r.unite = choix;
        EXPECT_EQ(facteur(r, kMillimetres), 1) << choix;
    }
}

TEST(Reglages, ADrawingWithoutUnitStaysSo) {
    Reglages r;
    r.unite = 2;
    EXPECT_EQ(unite_montree(r, 0), 0);
    EXPECT_EQ(facteur(r, 0), 1);
}

TEST(Reglages, CoordinatesKeepToTheGridWhenAsked) {
    Reglages r;
    r.pas = 25;
    EXPECT_EQ(accroche(r, {36, -12}), (Point{36, -12}));
    r.accroche = true;
    EXPECT_EQ(accroche(r, {38, -13}), (Point{50, -25}));
    EXPECT_EQ(accroche(r, {37, -12}), (Point{25, 0}));
    r.pas = 0;
    EXPECT_EQ(accroche(r, {38, -13}), (Point{38, -13}));
}

TEST(Reglages, TextsAreHalvedToDoubled) {
    EXPECT_EQ(agrandissement_textes(50), 1);
    EXPECT_EQ(agrandissement_textes(0), 0.5);
    EXPECT_EQ(agrandissement_textes(100), 2);
    EXPECT_EQ(agrandissement_textes(-7), 0.5);
    EXPECT_EQ(agrandissement_textes(1000), 2);
}

TEST(Reglages, TheFirstStepIsARoundOne) {
    EXPECT_EQ(pas_pour(Boite::entre({0, 0}, {20000, 3000})), 1000);
    EXPECT_EQ(pas_pour(Boite::entre({0, 0}, {0.2, 3})), 0.1);
    EXPECT_EQ(pas_pour({}), 1);
    EXPECT_EQ(pas_pour(Boite::entre({5, 5}, {5, 5})), 1);
}

TEST(Reglages, GridLinesCoverWhatIsSeen) {
    EXPECT_EQ(lignes_grille(10, 1, 12, 38), (std::vector<double>{10, 20, 30, 40}));
    EXPECT_EQ(lignes_grille(10, 1, -5, 5), (std::vector<double>{-10, 0, 10}));
    EXPECT_EQ(lignes_grille(1, 5, 0, 20), (std::vector<double>{0, 10, 20})) << "closer ones are left out";
    EXPECT_TRUE(lignes_grille(0, 1, 0, 10).empty());
    EXPECT_TRUE(lignes_grille(1, 1, 10, 0).empty());
    EXPECT_TRUE(lignes_grille(1, 1, 0, std::numeric_limits<double>::infinity()).empty());
    EXPECT_LE(lignes_grille(1e-300, 0, 0, 1e6).size(), 5000U);
}

TEST(Reglages, EveryChoiceIsALineStyle) {
    const std::vector<int> styles{
        GRX_TRAIT_CONTINU, GRX_TRAIT_POINTILLE_LONG, GRX_TRAIT_POINTILLE_COURT, GRX_TRAIT_MIXTE_1_POINT};
    for (int choix = 0; choix < 4; ++choix) EXPECT_EQ(trait_grille(choix), styles[static_cast<std::size_t>(choix)]);
    EXPECT_EQ(trait_grille(-1), styles.front());
    EXPECT_EQ(trait_grille(4), styles.back());
}

TEST(Nombres, AreReadAsPeopleWriteThem) {
    EXPECT_EQ(lit_nombre("12,5"), 12.5);
    EXPECT_EQ(lit_nombre(" 1 250.5 "), 1250.5);
    EXPECT_EQ(lit_nombre("-3"), -3);
    for (const char* texte : {"", " ", "3m", "1,2,3", "inf", "nan", "1e999"})
        EXPECT_FALSE(lit_nombre(texte).has_value()) << texte;
}

} // namespace atelier
