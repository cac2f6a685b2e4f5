// Texts that scale and turn: their pixels, in windows, controls and memory, and what they cost.
#include "tests/display/drawing/drawing_kit.h"
#include "tests/support/counters.h"
#include "tests/support/heap.h"

#include "grx_plus.h"

#include <X11/Xatom.h>
#include <X11/extensions/Xrender.h>

#include <cmath>
#include <cstring>
#include <initializer_list>
#include <numbers>
#include <string>

namespace {

using namespace grxtest;

class TextsInDrawings : public DrawingTest {
  protected:
    static GRX_TEXTE text(
        INT target, int x, int y, const std::string& characters, double height = 12, double degrees = 0) {
        GRX_TEXTE t;
        grx_init_texte_dessin(&t);
        t.nofen = target;
        t.x = x;
        t.y = y;
        characters.copy(t.chaine, sizeof t.chaine - 1);
        t.hauteurlabel = t.largeurlabel = height;
        t.cosinuslabel = std::cos(degrees * std::numbers::pi / 180);
        t.sinuslabel = std::sin(degrees * std::numbers::pi / 180);
        t.attrib = attributes(9);
        return t;
    }
    static void with_font(GRX_TEXTE& t, const char* font) { std::strncpy(t.fontlabel, font, sizeof t.fontlabel - 1); }
    static Pixels drawn(INT window, const GRX_TEXTE& t, INT result = 1) {
        grx_efface_zone_graphique(window);
        EXPECT_EQ(grx_trace_texte_dessin(&t), result);
        return screen(window);
    }
    static Area ink(const Pixels& pixels) { return pixels.bounds_other(background()); }

    // What is drawn lies in the box that was asked for, but for a pixel, and fills it.
    static void expect_in_box(const Pixels& pixels, const GRX_TEXTE& t) {
        GRX_BOITE_TEXTE box;
        grx_init_boite_texte(&box);
        ASSERT_GE(grx_recup_boite_texte(&t, &box), 1);
        const Area area = ink(pixels);
        EXPECT_NEAR(area.x, box.x_min, 1.6);
        EXPECT_NEAR(area.y, box.y_min, 1.6);
        EXPECT_NEAR(area.x + area.width, box.x_max, 1.6);
        EXPECT_NEAR(area.y + area.height, box.y_max, 1.6);
    }
};

TEST_F(TextsInDrawings, FillTheBoxThatWasAskedFor) {
    const INT window = graphic_window();
    for (const char* font : {"", "DejaVu Serif:bold", GRX_FONTE_TRAIT})
        for (const double height : {8.0, 20.0, 60.0})
            for (const double degrees : {0.0, 90.0, 180.0, 270.0, 33.0})
                for (const INT variant : {0, 1, 2}) {
                    GRX_TEXTE t = text(window, 110, 90, "E8", height, degrees);
                    with_font(t, font);
                    t.filllabel = variant != 1;
                    t.slantlabel = variant == 2 ? 0.27 : 0;
                    SCOPED_TRACE(std::string(font) + " " + std::to_string(height) + " " + std::to_string(degrees) + " "
                                 + std::to_string(variant));
                    expect_in_box(drawn(window, t), t);
                }
}

TEST_F(TextsInDrawings, CoverAsMuchAsTheirOutlinesEnclose) {
    const INT window = graphic_window();
    const GRX_TEXTE t = text(window, 20, 150, "B8", 80, 10);
    const Pixels pixels = drawn(window, t);
    const int whole = pixels.count(drawn_pixel(9)), touched = pixels.count_other(background());
    GRX_CONTOURS_TEXTE outlines;
    grx_init_contours_texte(&outlines);
    ASSERT_EQ(grx_recup_contours_texte(&t, 0, &outlines), 1);
    double twice = 0;
    for (INT i = 0; i < outlines.nb_contours; ++i)
        for (INT p = outlines.debuts[i]; p < outlines.debuts[i + 1]; ++p) {
            const auto &a = outlines.points[p],
                       &b = outlines.points[p + 1 < outlines.debuts[i + 1] ? p + 1 : outlines.debuts[i]];
            twice += a.x * b.y - b.x * a.y;
        }
    const double area = std::abs(twice) / 2;
    EXPECT_LE(whole, area * 1.05);
    EXPECT_GE(touched, area * 0.95);
    if (test_planes() == 8) EXPECT_EQ(whole, touched) << "no other colours";
    if (test_planes() == 24) EXPECT_GT(touched - whole, 100) << "soft edges";
}

TEST_F(TextsInDrawings, LargeLettersAreAsSmallOnesWouldBe) {
    const INT window = graphic_window();
    for (const double degrees : {0.0, 25.0}) {
        const GRX_TEXTE kept = text(window, 10, 150, "B", 99.9, degrees),
                        large = text(window, 10, 150, "B", 100.1, degrees);
        const Pixels a = drawn(window, kept), b = drawn(window, large);
        EXPECT_GT(a.count(drawn_pixel(9)), 1000);
        EXPECT_NEAR(a.count(drawn_pixel(9)), b.count(drawn_pixel(9)), 150);
        EXPECT_NEAR(ink(a).width, ink(b).width, 2);
        EXPECT_NEAR(ink(a).height, ink(b).height, 2);
    }
}

TEST_F(TextsInDrawings, InsideAHugeLetterEverythingIsItsColour) {
    const INT window = graphic_window();
    GRX_TEXTE t = text(window, 0, 0, "I", 40000);
    GRX_BOITE_TEXTE box;
    grx_init_boite_texte(&box);
    ASSERT_EQ(grx_recup_boite_texte(&t, &box), 1);
    t.x = 100 - static_cast<INT>((box.x_min + box.x_max) / 2);
    t.y = 20000;
    EXPECT_EQ(drawn(window, t).count_other(drawn_pixel(9)), 0);
    t.x += 30000;
    EXPECT_EQ(drawn(window, t).count_other(background()), 0) << "beside it";
    t.attrib.mode = xor_mode;
    t.x -= 30000;
    grx_efface_zone_graphique(window);
    grx_trace_texte_dessin(&t);
    grx_trace_texte_dessin(&t);
    EXPECT_EQ(screen(window).count_other(background()), 0);
}

TEST_F(TextsInDrawings, ExclusiveOrTwiceRestoresThePicture) {
    const INT window = graphic_window();
    for (const char* font : {"", GRX_FONTE_TRAIT})
        for (const double height : {9.0, 30.0, 130.0})
            for (const INT fill : {0, 1}) {
                draw(window, filled(attributes(11), 30, 30, 120, 100));
                const Pixels before = screen(window);
                GRX_TEXTE t = text(window, 20, 120, "Mur 8", height, 20);
                with_font(t, font);
                t.filllabel = fill;
                t.attrib.mode = xor_mode;
                grx_trace_texte_dessin(&t);
                EXPECT_GT(differences(before, screen(window)), 20) << font << height;
                grx_trace_texte_dessin(&t);
                EXPECT_TRUE(same(screen(window), before)) << font << height << fill;
            }
}

TEST_F(TextsInDrawings, ErasingLeavesNothing) {
    const INT window = graphic_window();
    for (const char* font : {"", GRX_FONTE_TRAIT})
        for (const double height : {7.0, 12.0, 40.0, 120.0})
            for (const double degrees : {0.0, 17.0}) {
                GRX_TEXTE t = text(window, 20, 120, "Mur 8", height, degrees);
                with_font(t, font);
                EXPECT_GT(drawn(window, t).count_other(background()), 20);
                t.attrib.mode = erase_mode;
                EXPECT_EQ(grx_trace_texte_dessin(&t), 1);
                EXPECT_EQ(screen(window).count_other(background()), 0) << font << " " << height << " " << degrees;
            }
}

TEST_F(TextsInDrawings, MirroredAndTurnedByHalfAreEachOthersPicture) {
    const INT window = graphic_window();
    GRX_TEXTE t = text(window, 120, 90, "R", 40);
    const Area plain = ink(drawn(window, t));
    t.mirorlabel = 1;
    const Area mirrored = ink(drawn(window, t));
    EXPECT_NEAR(mirrored.x + mirrored.width, 240 - plain.x, 2);
    EXPECT_EQ(mirrored.y, plain.y);
    EXPECT_NEAR(mirrored.width, plain.width, 1);
}

TEST_F(TextsInDrawings, GoWhereOtherPrimitivesGo) {
    const INT window = active_window();
    const GRX_TEXTE t = text(window, 20, 100, "Cote 12,5", 14, 5);
    const Pixels on_screen = drawn(window, t);
    grx_efface_zone_graphique(window);
    grx_alloue_image(window);
    EXPECT_EQ(grx_trace_texte_dessin(&t), 1);
    EXPECT_EQ(screen(window).count_other(background()), 0) << "not yet";
    const Pixels in_memory = memory(window).part({0, 0, width, height});
    EXPECT_TRUE(same(in_memory, on_screen));
    grx_trace_image(1);
    grx_desalloue_image();
    EXPECT_TRUE(same(screen(window), on_screen));
    grx_recree_bitmap_backingstore(window); // the picture that was drawn into is gone
    grx_alloue_image(window);
    EXPECT_EQ(grx_trace_texte_dessin(&t), 1);
    EXPECT_TRUE(same(memory(window).part({0, 0, width, height}), on_screen));
    grx_desalloue_image();
}

TEST_F(TextsInDrawings, GoIntoControls) {
    const INT window = graphic_window(), button = label_in(window, {20, 20, 150, 80});
    const Pixels before = button_screen(button);
    GRX_TEXTE t = text(button, 10, 50, "Mur", 20);
    EXPECT_EQ(grx_trace_texte_dessin_bouton(&t), 1);
    const Pixels after = button_screen(button);
    EXPECT_GT(differences(before, after), 60);
    EXPECT_GT(after.count(drawn_pixel(9)), 20);
    EXPECT_EQ(screen(window).part({180, 0, 60, height}).count(drawn_pixel(9)), 0);
}

TEST_F(TextsInDrawings, NumbersThatNameNothingAreTold) {
    const INT window = graphic_window();
    for (const INT number : {-1, 0, 98, 100, 1 << 30}) {
        const GRX_TEXTE t = text(number, 10, 10, "a");
        EXPECT_EQ(grx_trace_texte_dessin(&t), GRX_ECHEC_NUMERO) << number;
        if (number != 0) EXPECT_EQ(grx_trace_texte_dessin_bouton(&t), GRX_ECHEC_NUMERO) << number;
    }
    GRX_TEXTE t = text(window, 10, 10, "a", 0);
    EXPECT_EQ(grx_trace_texte_dessin(&t), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(screen(window).count_other(background()), 0);
}

TEST_F(TextsInDrawings, AFontThatIsNotThereIsReplacedByStrokes) {
    const INT window = graphic_window();
    GRX_TEXTE t = text(window, 20, 100, "Mur", 30);
    with_font(t, "Pas Une Fonte");
    const Pixels replaced = drawn(window, t, GRX_TEXTE_REMPLACE);
    t.fontlabel[0] = '\0';
    with_font(t, GRX_FONTE_TRAIT);
    EXPECT_TRUE(same(replaced, drawn(window, t)));
}

TEST_F(TextsInDrawings, StrokesAreLinesOfTheRecord) {
    const INT window = graphic_window();
    GRX_TEXTE t = text(window, 50, 150, "I", 100);
    with_font(t, GRX_FONTE_TRAIT);
    EXPECT_EQ(ink(drawn(window, t)), (Area{50, 50, 1, 101}));
    t.attrib.epaisseur = 3;
    EXPECT_EQ(ink(drawn(window, t)).width, grx_recup_epaisseur(3));
    t.attrib = attributes(9, 12, 0, GRX_TRAIT_POINTILLE);
    EXPECT_GT(drawn(window, t).count(drawn_pixel(12)), 30) << "gaps";
}

TEST_F(TextsInDrawings, OutOfTheWindowNothingIsDrawnNorBreaks) {
    const INT window = graphic_window();
    for (const char* font : {"", GRX_FONTE_TRAIT})
        for (const double height : {12.0, 3000.0})
            for (const INT x : {-2000000000, -100000, 100000, 2000000000})
                for (const INT fill : {0, 1}) {
                    GRX_TEXTE t = text(window, x, 90, "a", height, 30);
                    t.filllabel = fill;
                    with_font(t, font);
                    EXPECT_EQ(drawn(window, t).count_other(background()), 0) << x << " " << height;
                }
}

TEST_F(TextsInDrawings, OtherPrimitivesAreNotDisturbed) {
    const INT window = graphic_window();
    for (const INT mode : {0, xor_mode, erase_mode}) {
        const auto attrib = attributes(13, 0, mode, 0, 2);
        PlainPicture plain(x11_disp, width, height, background());
        grx_efface_zone_graphique(window);
        draw(window, segment(attrib, 10, 10, 200, 40));
        plain.draw(segment(attrib, 10, 10, 200, 40));
        for (const double size : {10.0, 150.0}) {
            GRX_TEXTE t = text(window, 300, 400, "a", size); // out of sight
            t.attrib.mode = mode;
            grx_trace_texte_dessin(&t);
        }
        draw(window, segment(attrib, 10, 60, 200, 90));
        plain.draw(segment(attrib, 10, 60, 200, 90));
        EXPECT_TRUE(same(screen(window), plain.pixels())) << mode;
    }
}

TEST_F(TextsInDrawings, CostNoRoundTripAndFewRequests) {
    const INT window = graphic_window();
    const GRX_TEXTE t = text(window, 20, 100, "Cloison 12,5", 12, 30);
    grx_trace_texte_dessin(&t);
    GRX_TEXTE another = text(window, 20, 50, "Fen\xC3\xAAtre", 17, 75), large = text(window, 20, 170, "B", 150, 3);
    with_font(another, "DejaVu Serif");
    XSync(x11_disp, False);
    Cost cost(x11_disp);
    grx_trace_texte_dessin(&another); // letters that are not in the server yet
    grx_trace_texte_dessin(&large);
    EXPECT_EQ(cost.round_trips(), 0U);
    cost.restart();
    for (int i = 0; i < 100; ++i) grx_trace_texte_dessin(&t);
    EXPECT_EQ(cost.round_trips(), 0U);
    EXPECT_LE(cost.requests(), 101U);
    GRX_TEXTE unseen = text(window, 5000, 100, "Cloison 12,5", 12, 30);
    cost.restart();
    grx_trace_texte_dessin(&unseen);
    EXPECT_EQ(cost.requests(), 0U);
}

TEST_F(TextsInDrawings, WindowsThatGoTakeNothingAlong) {
    const GRX_TEXTE first = text(graphic_window(), 20, 100, "Mur", 20);
    grx_trace_texte_dessin(&first);
    for (int round = 0; round < 12; ++round) {
        const INT window = active_window();
        grx_alloue_image(window);
        GRX_TEXTE t = text(window, 20, 100, "Mur", 20);
        EXPECT_EQ(grx_trace_texte_dessin(&t), 1);
        grx_desalloue_image();
        EXPECT_GT(drawn(window, t).count_other(background()), 20);
        grx_detruit_fenetre(window);
        settle();
    }
    EXPECT_EQ(grx_trace_texte_dessin(&first), 1);
}

TEST_F(TextsInDrawings, EachAllocationMayFail) {
    const INT window = graphic_window();
    std::vector<GRX_TEXTE> texts;
    for (const double height : {12.0, 140.0})
        for (const INT mode : {0, xor_mode, erase_mode})
            for (const INT fill : {0, 1}) {
                texts.push_back(text(window, 20, 100, "R\xC3\xA9 8", height, 10));
                texts.back().attrib.mode = mode;
                texts.back().filllabel = fill;
            }
    for (const GRX_TEXTE& t : texts) {
        int size = 0;
        fail_each_allocation([&] {
            GRX_TEXTE other = t; // letters that were not kept yet
            other.hauteurlabel += 0.1 * ++size;
            const INT result = grx_trace_texte_dessin(&other);
            EXPECT_TRUE(result == 1 || result == GRX_ECHEC_MEMOIRE) << result;
        });
        EXPECT_EQ(grx_trace_texte_dessin(&t), 1);
    }
}

TEST_F(TextsInDrawings, ManySizesDoNotGrow) {
    const INT window = graphic_window();
    const auto round = [&] {
        for (int i = 0; i < 300; ++i) { // more than are kept
            GRX_TEXTE t = text(window, 20, 100, "Cloison \xC3\x98 12,5", 5 + i * 0.25, i);
            t.attrib.mode = i % 3 == 2 ? xor_mode : 0;
            EXPECT_EQ(grx_trace_texte_dessin(&t), 1);
        }
    };
    round();
    round();
    const std::size_t blocks = heap().blocks(), bytes = heap().bytes();
    for (int i = 0; i < 5; ++i) round();
    EXPECT_LE(heap().blocks(), blocks + 2);
    EXPECT_LE(heap().bytes(), bytes + bytes / 10);
}

// -- silence

class TextsNotDrawn : public DrawingTest {};

TEST_F(TextsNotDrawn, TheServerIsNotAskedBeforeTheFirstText) {
    const INT window = active_window();
    XSync(x11_disp, False);
    Cost cost(x11_disp);
    grx_alloue_image(window);
    draw(window, segment(attributes(9), 1, 1, 50, 50));
    grx_desalloue_image();
    grx_recree_bitmap_backingstore(window);
    EXPECT_EQ(cost.round_trips(), 0U);
    GRX_TEXTE t;
    grx_init_texte_dessin(&t);
    t.nofen = window;
    t.chaine[0] = 'a';
    GRX_BOITE_TEXTE box;
    grx_init_boite_texte(&box);
    EXPECT_EQ(grx_recup_boite_texte(&t, &box), 1);
    EXPECT_EQ(cost.round_trips(), 0U) << "asking needs no server";
    EXPECT_EQ(grx_trace_texte_dessin(&t), 1);
    EXPECT_LE(cost.round_trips(), 4U);
}

// -- a server without RENDER

class TextsWithoutRenderOn24 : public TextsInDrawings {
  protected:
    XServerOptions server_options() const override { return {.arguments = {"-extension", "RENDER"}}; }
};

TEST_F(TextsWithoutRenderOn24, AreHard) {
    const INT window = graphic_window();
    for (const double size : {12.0, 130.0}) {
        GRX_TEXTE t = text(window, 20, 150, "B8", size, 10);
        const Pixels pixels = drawn(window, t);
        EXPECT_EQ(pixels.count(drawn_pixel(9)), pixels.count_other(background()));
        if (size < 100) expect_in_box(pixels, t);
        t.attrib.mode = erase_mode;
        grx_trace_texte_dessin(&t);
        EXPECT_EQ(screen(window).count_other(background()), 0);
    }
}

} // namespace
