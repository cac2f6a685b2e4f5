// Plot files.
#include <gtest/gtest.h>

#include <limits>
#include <numbers>
#include <sstream>

#include "hpgl.h"

namespace atelier {

namespace {

// Half a plotter sheet each way: one unit of the drawing is 160 plotter units.
const Boite kCadre = Boite::entre({0, 0}, {100, 50});

Classeur classeur; // of the paths of all tests

Objet trait(std::initializer_list<Point> points, int couleur = 0, int calque = 0, Genre genre = Genre::Trait) {
    Chemin c;
    for (const Point p : points) c.ligne(p);
    Objet o;
    o.chemin = classeur.garde(c);
    o.genre = genre;
    o.couleur = couleur;
    o.calque = calque;
    o.boite = o.chemin.boite();
    return o;
}

std::string trace(std::vector<Objet> objets, const Boite& cadre = kCadre) {
    Dessin d;
    d.calques = {{"MURS", true}, {"AXES", false}};
    d.couleurs.resize(10);
    d.objets = std::move(objets);
    return hpgl(d, cadre);
}

} // namespace

TEST(Hpgl, LinesAreScaledToTheSheet) {
    EXPECT_EQ(trace({trait({{0, 0}, {100, 50}, {50, 0}})}), "IN;PA;\n"
                                                            "SP1;\n"
                                                            "PU0,0;PD16000,8000,8000,0;\n"
                                                            "PU;SP0;\n");
}

TEST(Hpgl, ATallPartIsAsHighAsTheSheet) {
    EXPECT_EQ(trace({trait({{10, 10}, {11, 110}})}, Boite::entre({10, 10}, {20, 110})), "IN;PA;\n"
                                                                                        "SP1;\n"
                                                                                        "PU0,0;PD111,11080;\n"
                                                                                        "PU;SP0;\n");
}

TEST(Hpgl, WhatLiesOutsideIsCut) {
    EXPECT_EQ(trace({trait({{-50, 25}, {150, 25}}), trait({{0, 60}, {100, 60}})}), "IN;PA;\n"
                                                                                   "SP1;\n"
                                                                                   "PU0,4000;PD16000,4000;\n"
                                                                                   "PU;SP0;\n");
}

TEST(Hpgl, AHiddenLayerIsLeftOut) {
    EXPECT_EQ(trace({trait({{0, 0}, {1, 1}}, 0, 1)}), "IN;PA;\nPU;SP0;\n");
}

TEST(Hpgl, EachPenIsTakenOnce) {
    const std::string r = trace({trait({{0, 0}, {1, 0}}, 1), trait({{0, 1}, {1, 1}}, 0), trait({{0, 2}, {1, 2}}, 9)});
    EXPECT_EQ(r, "IN;PA;\n"
                 "SP1;\nPU0,160;PD160,160;\n"
                 "SP2;\nPU0,0;PD160,0;\nPU0,320;PD160,320;\n"
                 "PU;SP0;\n");
}

TEST(Hpgl, AreasAreOutlinedAndPointsAreDots) {
    EXPECT_EQ(trace({trait({{0, 0}, {1, 0}, {0, 1}}, 0, 0, Genre::Plein), trait({{2, 2}}, 0, 0, Genre::Point)}),
        "IN;PA;\n"
        "SP1;\n"
        "PU0,0;PD160,0,0,160,0,0;\n"
        "PU320,320;PD320,320;\n"
        "PU;SP0;\n");
}

TEST(Hpgl, CurvesStayOnTheirCircle) {
    Objet o = trait({});
    Chemin cercle;
    cercle.arc({50, 25}, {10, 0}, {0, 10}, 0, 2 * std::numbers::pi);
    o.chemin = classeur.garde(cercle);
    std::string r = trace({o});
    r = r.substr(r.find("PU") + 2);
    for (char& c : r)
        if (std::isdigit(static_cast<unsigned char>(c)) == 0) c = ' ';
    std::istringstream nombres(r);
    double x = 0, y = 0;
    int points = 0;
    for (; nombres >> x >> y; ++points) EXPECT_NEAR(std::hypot(x - 8000, y - 4000), 1600, 2);
    EXPECT_GT(points, 40);
}

TEST(Hpgl, AnEmptyPartGivesAnEmptySheet) {
    const double infini = std::numeric_limits<double>::infinity();
    for (const Boite& cadre : {Boite{}, Boite::entre({1, 1}, {1, 1}), Boite::entre({0, 0}, {infini, 1})})
        EXPECT_EQ(trace({trait({{0, 0}, {1, 1}})}, cadre), "IN;PA;\nPU;SP0;\n");
}

} // namespace atelier
