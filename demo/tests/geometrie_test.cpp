// Paths, curves, cutting and the view.
#include <gtest/gtest.h>

#include "courbes.h"
#include "decoupe.h"
#include "vue.h"

namespace atelier {

namespace {

std::vector<Point> lignes(const Chemin& chemin, double tolerance = 1e-4) {
    std::vector<Point> r;
    chemin.aplatit(
        {}, tolerance, [&](const std::vector<Point>& trait) { r.insert(r.end(), trait.begin(), trait.end()); });
    return r;
}

void proche(Point p, Point q, double ecart = 1e-9) {
    EXPECT_NEAR(p.x, q.x, ecart);
    EXPECT_NEAR(p.y, q.y, ecart);
}

} // namespace

TEST(Matrice, ProductDoesTheRightOneFirst) {
    const Matrice m = Matrice::translation({10, 0}) * Matrice::rotation(radians(90)) * Matrice::echelle(2, 3);
    proche(m.applique({1, 1}), {10 - 3, 2});
    EXPECT_NEAR(m.grandeur(), std::sqrt(6.0), 1e-12);
}

TEST(Chemin, EveryPointOfACircleIsOnIt) {
    const auto points = lignes(cercle({5, -3}, 100));
    ASSERT_GT(points.size(), 50U);
    for (const Point p : points) EXPECT_NEAR(norme(p - Point{5, -3}), 100, 1e-3);
    proche(points.front(), points.back(), 1e-6);
}

TEST(Chemin, FlatteningTakesMorePointsForASmallerTolerance) {
    const Chemin c = cercle({0, 0}, 1000);
    EXPECT_GT(lignes(c, 0.01).size(), 2 * lignes(c, 1).size());
}

TEST(Chemin, CloseGoesBackToTheLastStart) {
    Chemin c;
    c.aller({9, 9});
    c.aller({0, 0});
    c.ligne({1, 0});
    c.ligne({1, 1});
    c.ferme();
    proche(c.points().back(), {0, 0});
}

TEST(Chemin, NumbersBeyondMeasureAreSeen) {
    Chemin c;
    c.aller({0, 0});
    EXPECT_TRUE(c.fini());
    c.ligne({std::nan(""), 0});
    EXPECT_FALSE(c.fini());
}

TEST(Courbes, ArcGoesCounterClockwiseThroughZero) {
    const auto points = lignes(arc_de_cercle({0, 0}, 10, radians(350), radians(10)));
    proche(points.front(), {10 * std::cos(radians(350)), 10 * std::sin(radians(350))}, 1e-9);
    proche(points.back(), {10 * std::cos(radians(10)), 10 * std::sin(radians(10))}, 1e-9);
    for (const Point p : points) EXPECT_GT(p.x, 9.8);
}

TEST(Courbes, BulgeOfOneIsAHalfCircleOnTheRight) {
    const auto points = lignes(polyligne({{{0, 0}, 1}, {{10, 0}, 0}}, false));
    double bas = 0;
    for (const Point p : points) {
        EXPECT_NEAR(norme(p - Point{5, 0}), 5, 1e-3);
        bas = std::min(bas, p.y);
    }
    EXPECT_NEAR(bas, -5, 1e-3);
}

TEST(Courbes, NegativeBulgeTurnsTheOtherWay) {
    const Boite b = polyligne({{{0, 0}, -0.5}, {{8, 0}, 0}}, false).boite();
    EXPECT_GT(b.max.y, 1.9);
    EXPECT_GE(b.min.y, -1e-9);
}

TEST(Courbes, ClosedPolylineUsesTheLastBulge) {
    const auto points = lignes(polyligne({{{0, 0}, 0}, {{10, 0}, 0}, {{10, 10}, 0}, {{0, 10}, 1}}, true));
    double gauche = 0;
    for (const Point p : points) gauche = std::min(gauche, p.x);
    EXPECT_NEAR(gauche, -5, 1e-3);
    proche(points.back(), {0, 0}, 1e-9);
}

TEST(Courbes, RationalQuadraticIsAQuarterCircle) {
    Nurbs c;
    c.degre = 2;
    c.noeuds = {0, 0, 0, 1, 1, 1};
    c.poles = {{1, 0}, {1, 1}, {0, 1}};
    c.poids = {1, std::sqrt(0.5), 1};
    const auto points = lignes(nurbs(c), 1e-6);
    for (const Point p : points) EXPECT_NEAR(norme(p), 1, 2e-5);
    proche(points.back(), {0, 1});
}

TEST(Courbes, SplineWithoutFittingKnotsStillMeetsItsEnds) {
    Nurbs c;
    c.poles = {{0, 0}, {1, 2}, {3, 2}, {4, 0}, {6, 1}};
    c.noeuds = {5, 1, 3};
    const auto points = lignes(nurbs(c));
    proche(points.front(), {0, 0});
    proche(points.back(), {6, 1});
}

TEST(Courbes, SplinesThatMakeNoSenseAreEmpty) {
    EXPECT_TRUE(nurbs({3, {}, {{0, 0}, {1, 1}}, {}}).empty());
    EXPECT_TRUE(nurbs({0, {}, {{0, 0}, {1, 1}, {2, 2}}, {}}).empty());
    EXPECT_TRUE(nurbs({99, {}, {{0, 0}, {1, 1}, {2, 2}}, {}}).empty());
    EXPECT_TRUE(courbe_par({}).empty());
}

TEST(Courbes, FittedCurvePassesThroughItsPoints) {
    const Chemin c = courbe_par({{0, 0}, {10, 5}, {20, -5}});
    proche(c.points()[3], {10, 5});
    proche(c.points().back(), {20, -5});
}

// --- cutting ------------------------------------------------------------------------------------------------------

namespace {

std::vector<std::vector<Point>> parts(const std::vector<Point>& ligne, int periode = 0) {
    std::vector<std::vector<Point>> r;
    decoupe_ligne(
        ligne, Boite::entre({0, 0}, {100, 100}), periode, [&](const std::vector<Point>& p) { r.push_back(p); });
    return r;
}

} // namespace

TEST(Decoupe, LineInsideStaysWhole) {
    const std::vector<Point> ligne{{10, 10}, {50, 50}, {90, 10}};
    EXPECT_EQ(parts(ligne), std::vector<std::vector<Point>>{ligne});
}

TEST(Decoupe, LineThatLeavesAndReturnsGivesTwoParts) {
    const auto r = parts({{50, 50}, {150, 50}, {150, 20}, {50, 20}});
    ASSERT_EQ(r.size(), 2U);
    proche(r[0].back(), {100, 50});
    proche(r[1].front(), {100, 20});
}

TEST(Decoupe, FarCoordinatesComeBackWithinTheBox) {
    const auto r = parts({{-1e9, 40}, {1e9, 60}});
    ASSERT_EQ(r.size(), 1U);
    proche(r[0].front(), {0, 50}, 1e-3);
    EXPECT_TRUE(parts({{-1e9, 200}, {1e9, 200}}).empty());
}

TEST(Decoupe, DashesKeepTheirPlace) {
    const auto r = parts({{-53, 50}, {50, 50}}, 16);
    ASSERT_EQ(r.size(), 1U);
    EXPECT_NEAR(std::fmod(r[0].front().x + 53, 16), 0, 1e-9);
    EXPECT_LE(r[0].front().x, 0);
    EXPECT_GT(r[0].front().x, -16);
}

TEST(Decoupe, SurfaceIsCutAtTheSides) {
    const auto r = decoupe_surface({{-50, -50}, {50, -50}, {50, 50}, {-50, 50}}, Boite::entre({0, 0}, {100, 100}));
    Boite b;
    for (const Point p : r) b.ajoute(p);
    proche(b.min, {0, 0});
    proche(b.max, {50, 50});
    EXPECT_TRUE(decoupe_surface({{-9, -9}, {-8, -9}, {-8, -8}}, Boite::entre({0, 0}, {100, 100})).empty());
}

// --- view ---------------------------------------------------------------------------------------------------------

namespace {

Vue vue_sur(const Boite& boite) {
    Vue v;
    v.taille(800, 600);
    v.cadre_tout(boite);
    return v;
}

const Boite kPlan = Boite::entre({1000, 2000}, {5000, 4000});

} // namespace

TEST(Vue, WholeDrawingIsCentredAndFits) {
    const Vue v = vue_sur(kPlan);
    proche(v.vers_ecran().applique({3000, 3000}), {400, 300});
    const Point coin = v.vers_ecran().applique(kPlan.min);
    EXPECT_GT(coin.x, 0);
    EXPECT_LT(coin.x, 40);
    EXPECT_GT(coin.y, 300); // y of drawings goes up
}

TEST(Vue, ScreenAndDrawingAreEachOthersInverse) {
    const Vue v = vue_sur(kPlan);
    proche(v.vers_dessin(v.vers_ecran().applique({1234, 2345})), {1234, 2345}, 1e-6);
}

TEST(Vue, ZoomKeepsThePointUnderThePointer) {
    Vue v = vue_sur(kPlan);
    const Point avant = v.vers_dessin({123, 456});
    v.zoome(1.7, {123, 456});
    proche(v.vers_dessin({123, 456}), avant, 1e-6);
    v.zoome(1 / 1.7, {700, 20});
    EXPECT_NEAR(v.echelle(), vue_sur(kPlan).echelle(), 1e-9);
}

TEST(Vue, PanMovesThePictureByPixels) {
    Vue v = vue_sur(kPlan);
    const Point avant = v.vers_ecran().applique({3000, 3000});
    v.deplace({-15, 40});
    proche(v.vers_ecran().applique({3000, 3000}), avant + Point{-15, 40}, 1e-9);
}

TEST(Vue, AnotherSizeKeepsCentreAndScale) {
    Vue v = vue_sur(kPlan);
    const double echelle = v.echelle();
    v.taille(500, 900);
    EXPECT_EQ(v.echelle(), echelle);
    proche(v.vers_dessin({250, 450}), {3000, 3000}, 1e-9);
}

TEST(Vue, ZoomHasLimits) {
    Vue v = vue_sur(kPlan);
    for (int i = 0; i < 500; ++i) v.zoome(10, {400, 300});
    EXPECT_TRUE(std::isfinite(v.echelle()));
    for (int i = 0; i < 500; ++i) v.zoome(0.1, {400, 300});
    EXPECT_GT(v.echelle(), 0);
}

TEST(Vue, FlatAndEmptyBoxesAreNoTrouble) {
    EXPECT_EQ(vue_sur({}).echelle() > 0, true);
    const Vue ligne = vue_sur(Boite::entre({0, 5}, {100, 5}));
    EXPECT_NEAR(ligne.vers_ecran().applique({50, 5}).y, 300, 1e-6);
    Vue v = vue_sur(kPlan);
    v.cadre(Boite::entre({7, 7}, {7, 7}));
    proche(v.vers_dessin({400, 300}), {7, 7});
}

} // namespace atelier
