// What is asked of texts without a display: their room, advances and outlines.
#include "tests/unit/fonts/text_kit.h"

#include "tests/support/heap.h"
#include "xt_f.h"

#include <limits>
#include <random>

namespace {

using namespace grxtest;

constexpr double kNear = 0.05; // pixels

TEST(TextBox, ACapitalIsAsHighAsSaid) {
    for (const double height : {0.5, 6.0, 10.0, 80.0, 5000.0})
        for (const char* font : {kSans, "DejaVu Serif", "DejaVu Sans Mono:bold", "", GRX_FONTE_TRAIT}) {
            GRX_TEXTE text = text_of("H", font, height);
            text.x = 100;
            text.y = 200;
            const GRX_BOITE_TEXTE box = box_of(text);
            EXPECT_NEAR(box.y_max, 200, kNear + height * 0.001) << font;
            EXPECT_NEAR(box.y_max - box.y_min, height, kNear + height * 0.001) << font;
            EXPECT_GE(box.x_min, 100);
            EXPECT_EQ(box.nb_caracteres, 1);
            EXPECT_GT(box.haut, height);
            EXPECT_GT(box.bas, height * 0.2);
        }
}

TEST(TextBox, WidthSlantMirrorAndDirectionAreThoseOfTheRecord) {
    GRX_TEXTE text = text_of("Hl");
    const GRX_BOITE_TEXTE plain = box_of(text);
    text.largeurlabel = 40;
    const GRX_BOITE_TEXTE wide = box_of(text);
    EXPECT_NEAR(wide.x_max, 2 * plain.x_max, kNear);
    EXPECT_NEAR(wide.longueur, 2 * plain.longueur, 1e-9);
    EXPECT_NEAR(wide.y_min, plain.y_min, 1e-9);
    text.largeurlabel = 0;
    EXPECT_NEAR(box_of(text).longueur, plain.longueur, 1e-9);
    text.slantlabel = 0.5;
    EXPECT_NEAR(box_of(text).x_max, plain.x_max - 0.5 * plain.y_min, kNear);
    EXPECT_NEAR(box_of(text).x_min, plain.x_min, kNear);
    text.slantlabel = 0;
    text.mirorlabel = 1;
    EXPECT_NEAR(box_of(text).x_min, -plain.x_max, kNear);
    EXPECT_NEAR(box_of(text).avance.x, -plain.avance.x, 1e-9);
    EXPECT_NEAR(box_of(text).y_min, plain.y_min, kNear);
}

TEST(TextBox, TurnsCounterClockwise) {
    GRX_TEXTE text = text_of("Hg");
    const GRX_BOITE_TEXTE flat = box_of(text);
    turn(text, 90);
    const GRX_BOITE_TEXTE upwards = box_of(text);
    EXPECT_NEAR(upwards.y_min, -flat.x_max, kNear) << "goes up";
    EXPECT_NEAR(upwards.x_min, flat.y_min, kNear) << "capitals point to the left";
    EXPECT_NEAR(upwards.avance.y, -flat.longueur, 1e-6);
    EXPECT_NEAR(upwards.avance.x, 0, 1e-6);
    text.cosinuslabel = 0;
    text.sinuslabel = 1e-3; // of any length
    EXPECT_NEAR(box_of(text).y_min, upwards.y_min, kNear);
    text.cosinuslabel = text.sinuslabel = 0;
    EXPECT_NEAR(box_of(text).x_max, flat.x_max, 1e-9);
}

TEST(TextBox, CornersGoAlongTheText) {
    GRX_TEXTE text = text_of("Hx");
    text.x = 50;
    text.y = 60;
    const GRX_BOITE_TEXTE flat = box_of(text);
    for (const double degrees : {0.0, 30.0, 200.0}) {
        turn(text, degrees);
        const GRX_BOITE_TEXTE box = box_of(text);
        const auto distance = [&](int a, int b) {
            return std::hypot(box.coins[a].x - box.coins[b].x, box.coins[a].y - box.coins[b].y);
        };
        EXPECT_NEAR(distance(0, 1), 20, kNear) << degrees;
        EXPECT_NEAR(distance(3, 2), 20, kNear);
        EXPECT_NEAR(distance(0, 3), flat.x_max - flat.x_min, kNear);
    }
    turn(text, 0);
    const GRX_BOITE_TEXTE box = box_of(text);
    EXPECT_NEAR(box.coins[0].x, box.x_min, kNear);
    EXPECT_NEAR(box.coins[0].y, box.y_max, kNear);
    EXPECT_NEAR(box.coins[2].x, box.x_max, kNear);
    EXPECT_NEAR(box.coins[2].y, box.y_min, kNear);
}

TEST(TextBox, WithoutInkIsEmptyAtItsStart) {
    for (const char* characters : {"", " ", "\t\t"}) {
        GRX_TEXTE text = text_of(characters);
        text.x = 7;
        text.y = 9;
        const GRX_BOITE_TEXTE box = box_of(text);
        EXPECT_EQ(box.x_min, 0);
        EXPECT_EQ(box.y_max, 0);
        EXPECT_EQ(box.coins[2].x, 7);
        EXPECT_EQ(box.coins[2].y, 9);
        EXPECT_EQ(box.nb_caracteres, static_cast<INT>(std::strlen(characters)));
    }
}

TEST(TextAdvances, AreThoseThatTheBoxAddsUp) {
    for (const char* font : {kSans, GRX_FONTE_TRAIT}) {
        const GRX_TEXTE text = text_of("L\xC3\xA9 12\xE2\x82\xAC", font);
        DOUBLE advances[10] = {};
        ASSERT_EQ(grx_recup_avances_texte(&text, 10, advances), 6) << "characters, not bytes";
        double sum = 0;
        for (int i = 0; i < 6; ++i) {
            EXPECT_GT(advances[i], 0);
            sum += advances[i];
        }
        EXPECT_EQ(advances[6], 0);
        EXPECT_NEAR(box_of(text).longueur, sum, 1e-9);
        EXPECT_EQ(grx_recup_avances_texte(&text, 2, advances), 6);
        EXPECT_EQ(grx_recup_avances_texte(&text, 10, nullptr), 6);
        EXPECT_EQ(grx_recup_avances_texte(&text, -5, advances), 6);
    }
}

TEST(TextAdvances, OfTheRecordWinWhereTheyAreGiven) {
    GRX_TEXTE text = text_of("HHH");
    const GRX_BOITE_TEXTE plain = box_of(text);
    text.extentslabel[1] = 100;
    EXPECT_NEAR(box_of(text).longueur, plain.longueur * 2 / 3 + 100, 1e-9);
    DOUBLE advances[3] = {};
    grx_recup_avances_texte(&text, 3, advances);
    EXPECT_NEAR(advances[1], plain.longueur / 3, 1e-9) << "the font's own";
    text.extentslabel[3] = std::numeric_limits<double>::quiet_NaN();
    EXPECT_NEAR(box_of(text).longueur, plain.longueur * 2 / 3 + 100, 1e-9) << "behind the last one";
    text.extentslabel[0] = text.extentslabel[3];
    EXPECT_EQ(Outlines(text).result, GRX_ECHEC_PARAMETRE);
}

TEST(TextOutlines, AreClosedForFontsAndOpenForStrokes) {
    const Outlines filled(text_of("o")), strokes(text_of("o", GRX_FONTE_TRAIT));
    EXPECT_EQ(filled.closed, 1);
    ASSERT_EQ(filled.paths.size(), 2U) << "and its hole";
    for (const auto& path : filled.paths)
        EXPECT_FALSE(path.front().x == path.back().x && path.front().y == path.back().y);
    EXPECT_EQ(strokes.closed, 0);
    ASSERT_EQ(strokes.paths.size(), 1U);
    EXPECT_NEAR(strokes.paths[0].front().x, strokes.paths[0].back().x, kNear) << "the pen comes back";
}

TEST(TextOutlines, KeepTheirAreaHoweverTheTextStands) {
    GRX_TEXTE text = text_of("B8");
    const double area = Outlines(text, 0.01).area();
    EXPECT_GT(area, 100);
    turn(text, 37);
    EXPECT_NEAR(Outlines(text, 0.01).area(), area, 0.01 * area);
    text.slantlabel = 0.4;
    text.mirorlabel = 1;
    EXPECT_NEAR(Outlines(text, 0.01).area(), area, 0.01 * area);
    text.hauteurlabel = text.largeurlabel = 40;
    EXPECT_NEAR(Outlines(text, 0.01).area(), 4 * area, 0.04 * area);
}

TEST(TextOutlines, ComeWithinTheTolerance) {
    const GRX_TEXTE text = text_of("O", kSans, 500);
    const Outlines coarse(text, 5), usual(text, 0), nan(text, std::numeric_limits<double>::quiet_NaN()),
        quarter(text, 0.25), fine(text, 0.01);
    EXPECT_LT(coarse.points(), usual.points());
    EXPECT_EQ(usual.points(), quarter.points());
    EXPECT_EQ(nan.points(), quarter.points());
    EXPECT_GT(fine.points(), 2 * usual.points());
    EXPECT_NEAR(usual.area(), fine.area(), 0.25 * 4 * 500 * 2);
}

TEST(TextOutlines, StayUntilTheyAreAskedForAgain) {
    const GRX_TEXTE text = text_of("Mur");
    GRX_CONTOURS_TEXTE contours;
    grx_init_contours_texte(&contours);
    ASSERT_EQ(grx_recup_contours_texte(&text, 0, &contours), 1);
    const GRX_POINT_REEL first = contours.points[0];
    box_of(text_of("un autre texte, plus long, dans une autre fonte", "DejaVu Serif", 90));
    EXPECT_EQ(contours.points[0].x, first.x);
    EXPECT_EQ(contours.points[0].y, first.y);
}

TEST(TextOutlines, CharactersThatTheFontLacksComeFromTheDefaultOne) {
    const Outlines borrowed(text_of("\xD7\x90", "DejaVu Sans Mono")), own(text_of("\xD7\x90", "")); // Hebrew
    EXPECT_EQ(borrowed.points(), own.points());
    ASSERT_NE(borrowed.points(), Outlines(text_of("\xEF\xBF\xB0", "DejaVu Sans Mono")).points()) << "the box for none";
    EXPECT_EQ(borrowed.closed, 1);
    const Outlines latin(text_of("\xB1")), utf8(text_of("\xC2\xB1"));
    EXPECT_EQ(latin.points(), utf8.points());
}

TEST(TextInput, NumbersOutOfRangeAreRefused) {
    constexpr double infinite = std::numeric_limits<double>::infinity(),
                     none = std::numeric_limits<double>::quiet_NaN();
    for (const double bad : {infinite, -infinite, none, 1e308})
        for (DOUBLE GRX_TEXTE::*field : {&GRX_TEXTE::hauteurlabel, &GRX_TEXTE::largeurlabel, &GRX_TEXTE::cosinuslabel,
                 &GRX_TEXTE::sinuslabel, &GRX_TEXTE::slantlabel}) {
            GRX_TEXTE text = text_of("a");
            text.*field = bad;
            EXPECT_EQ(Outlines(text).result, GRX_ECHEC_PARAMETRE) << bad;
            box_of(text, GRX_ECHEC_PARAMETRE);
            EXPECT_EQ(grx_recup_avances_texte(&text, 0, nullptr), GRX_ECHEC_PARAMETRE);
        }
    for (const double height : {0.0, -1.0, GRX_HAUTEUR_TEXTE_MAX * 1.001})
        EXPECT_EQ(Outlines(text_of("a", kSans, height)).result, GRX_ECHEC_PARAMETRE) << height;
    EXPECT_EQ(Outlines(text_of("a", kSans, 1e-300)).result, 1);
    EXPECT_EQ(Outlines(text_of("a", kSans, GRX_HAUTEUR_TEXTE_MAX)).result, 1);
}

TEST(TextInput, NullAndRecordsOfNoKnownSizeAreRefused) {
    const GRX_TEXTE text = text_of("a");
    GRX_BOITE_TEXTE box;
    GRX_CONTOURS_TEXTE contours;
    grx_init_boite_texte(&box);
    grx_init_contours_texte(&contours);
    EXPECT_EQ(grx_recup_boite_texte(nullptr, &box), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_recup_boite_texte(&text, nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_recup_contours_texte(nullptr, 0, &contours), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_recup_contours_texte(&text, 0, nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_recup_avances_texte(nullptr, 0, nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_init_boite_texte(nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_init_contours_texte(nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_init_texte_dessin(nullptr), GRX_ECHEC_PARAMETRE);
    box.taille = contours.taille = 4;
    EXPECT_EQ(grx_recup_boite_texte(&text, &box), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_recup_contours_texte(&text, 0, &contours), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_trace_texte_dessin(nullptr), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_trace_texte_dessin(&text), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_trace_texte_dessin_bouton(&text), GRX_ECHEC_AFFICHAGE);
}

TEST(TextInput, ArraysWithoutAnEndAreReadNoFurther) {
    GRX_TEXTE text = text_of("");
    std::memset(text.chaine, 'x', sizeof text.chaine);
    EXPECT_EQ(box_of(text).nb_caracteres, 255);
    std::memset(text.fontlabel, 'z', sizeof text.fontlabel); // what follows is a height
    EXPECT_EQ(box_of(text, GRX_TEXTE_REMPLACE).nb_caracteres, 255);
    std::memset(text.fontlabel, '/', sizeof text.fontlabel);
    box_of(text, GRX_TEXTE_REMPLACE);
}

TEST(TextInput, RandomRecordsDoNoHarm) {
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        GRX_TEXTE text = text_of("");
        for (char& c : text.chaine) c = static_cast<char>(random());
        text.hauteurlabel = std::exp(static_cast<double>(random() % 20) - 8);
        text.largeurlabel = std::exp(static_cast<double>(random() % 20) - 8);
        text.slantlabel = static_cast<double>(random() % 21) - 10;
        turn(text, static_cast<double>(random() % 360));
        text.mirorlabel = static_cast<INT>(random() % 2);
        if (random() % 2) std::strcpy(text.fontlabel, GRX_FONTE_TRAIT);
        const Outlines outlines(text);
        EXPECT_EQ(outlines.result, 1);
        for (const auto& path : outlines.paths)
            for (const GRX_POINT_REEL& p : path) ASSERT_TRUE(std::isfinite(p.x) && std::isfinite(p.y));
    }
}

// Others than those of the tests are tried where there are any: FreeType reads each kind of file in its own way.
TEST(TextMemory, EachAllocationMayFail) {
    std::vector<const char*> fonts{kSans, "DejaVu Serif", GRX_FONTE_TRAIT};
    for (const char* further : {"URW Bookman", "/usr/share/fonts/type1/urw-base35/C059-Bold.t1"})
        if (grx_verifie_fonte_texte(further) == 1) fonts.push_back(further);
    for (const char* font : fonts) {
        const int failures = fail_each_allocation([font] {
            grx_termine_application();
            const GRX_TEXTE text = text_of("B\xCE\xA9\xE2\x8C\x80", font);
            GRX_BOITE_TEXTE box;
            grx_init_boite_texte(&box);
            INT result = grx_recup_boite_texte(&text, &box);
            EXPECT_TRUE(result == 1 || result == GRX_ECHEC_MEMOIRE) << result << " " << font;
            if (result == 1) EXPECT_NEAR(box.y_max - box.y_min, 20, 12) << font;
            result = Outlines(text).result;
            EXPECT_TRUE(result == 1 || result == GRX_ECHEC_MEMOIRE) << result;
            result = grx_verifie_fonte_texte(font);
            EXPECT_TRUE(result == 1 || result == GRX_ECHEC_MEMOIRE) << result;
            result = grx_recup_nombre_fontes_texte();
            EXPECT_TRUE(result > 1 || result == GRX_ECHEC_MEMOIRE) << result;
        });
        EXPECT_GT(failures, 5) << font;
    }
    grx_termine_application();
    EXPECT_EQ(heap().blocks(), 0U);
}

TEST(TextMemory, DoesNotGrow) {
    const auto ask = [] {
        for (const char* font : {kSans, "DejaVu Serif", GRX_FONTE_TRAIT, "Pas Une Fonte"}) {
            Outlines outlines(text_of("Cloison \xC3\x98 12,5", font, 30));
            EXPECT_GE(outlines.result, 1);
            box_of(text_of("Mur", font), outlines.result);
        }
        grx_recup_nombre_fontes_texte();
    };
    ask();
    const std::size_t bytes = heap().bytes(), blocks = heap().blocks();
    for (int round = 0; round < 500; ++round) ask();
    EXPECT_EQ(heap().bytes(), bytes);
    EXPECT_EQ(heap().blocks(), blocks);
}

} // namespace
