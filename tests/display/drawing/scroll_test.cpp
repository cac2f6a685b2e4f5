// Scrolling what a window shows, and drawing the parts that came to light within limits.
#include "tests/display/drawing/layers_kit.h"

#include "display/context.h"

#include <utility>

namespace {

using namespace grxtest;

const Primitives cross{segment(attributes(12), 20, 40, 200, 40), segment(attributes(12), 110, 5, 110, 170)};

// A picture moved, with this pixel where nothing comes from.
Pixels moved_picture(const Pixels& before, INT dx, INT dy, std::uint32_t pixel) {
    Pixels after = before;
    for (int y = 0; y < after.height; ++y) {
        for (int x = 0; x < after.width; ++x) {
            const std::int64_t from_x = std::int64_t{x} - dx, from_y = std::int64_t{y} - dy;
            const bool inside = from_x >= 0 && from_x < after.width && from_y >= 0 && from_y < after.height;
            after.values[static_cast<std::size_t>(y * after.width + x)] =
                inside ? before.at(static_cast<int>(from_x), static_cast<int>(from_y)) : pixel;
        }
    }
    return after;
}

const std::vector<std::pair<INT, INT>> ways{{10, 0}, {-10, 0}, {0, 7}, {0, -7}, {13, 9}, {-13, 9}, {13, -9}, {-1, -1},
    {239, 179}, {240, 0}, {0, -180}, {5000, 3}, {INT_MAX, INT_MIN}, {INT_MIN, 0}, {0, 0}};

class ScrolledDrawing : public LayersTest {
  protected:
    struct Scrolled {
        INT code;
        std::vector<GRX_ZONE> zones;
    };

    static Scrolled scroll(INT window, INT dx, INT dy) {
        GRX_ZONE zones[2];
        INT count = -1;
        const INT code = grx_defile_fenetre(window, dx, dy, zones, &count);
        EXPECT_GE(count, 0);
        EXPECT_LE(count, 2);
        return {code, {zones, zones + std::clamp<INT>(count, 0, 2)}};
    }

    // The pixels where nothing comes from are in exactly one zone, the others in none.
    static void expect_zones(const std::vector<GRX_ZONE>& zones, INT dx, INT dy) {
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                const std::int64_t from_x = std::int64_t{x} - dx, from_y = std::int64_t{y} - dy;
                const bool comes = from_x >= 0 && from_x < width && from_y >= 0 && from_y < height;
                const auto in = std::count_if(zones.begin(), zones.end(),
                    [=](const GRX_ZONE& z) { return x >= z.x && x < z.x + z.lar && y >= z.y && y < z.y + z.hau; });
                ASSERT_EQ(in, comes ? 0 : 1) << x << ", " << y << " by " << dx << ", " << dy;
            }
        }
    }

    void scrolls_all_ways() {
        for (const auto& [dx, dy] : ways) {
            const INT window = plan();
            const Pixels before = screen(window);
            const Scrolled s = scroll(window, dx, dy);
            EXPECT_EQ(s.code, 1);
            expect_zones(s.zones, dx, dy);
            const Pixels expected = moved_picture(before, dx, dy, background());
            EXPECT_TRUE(same(screen(window), expected)) << dx << ", " << dy;
            EXPECT_TRUE(same(memory(window), expected)) << dx << ", " << dy;
            grx_detruit_fenetre(window);
            drain();
        }
    }

    void scrolls_below_another_window() {
        const INT window = plan();
        const Pixels before = screen(window);
        {
            const Cover cover(test_display(), {60, 80, 120, 100});
            drain();
            EXPECT_EQ(scroll(window, 31, -17).code, 1);
        }
        drain();
        const Pixels expected = moved_picture(before, 31, -17, background());
        EXPECT_TRUE(same(memory(window), expected));
        EXPECT_TRUE(same(screen(window), expected));
    }

    // Panning as an application does it, against the whole drawing drawn elsewhere.
    void pans_by_strips() {
        const INT window = plan();
        const Primitives drawing = random_primitives(12, 80, width, height);
        grx_alloue_image(window);
        draw_all(window, drawing);
        grx_desalloue_image();
        grx_affiche_bitmap_backingstore(window);
        INT x = 0, y = 0;
        for (const auto& [dx, dy] : std::vector<std::pair<INT, INT>>{{9, 4}, {-30, 0}, {0, 55}, {-70, -90}, {400, 0}}) {
            x += dx;
            y += dy;
            const Primitives here = moved(drawing, x, y);
            for (const GRX_ZONE& zone : scroll(window, dx, dy).zones) {
                ASSERT_EQ(grx_limite_trace(window, zone.x, zone.y, zone.lar, zone.hau), 1);
                grx_alloue_image(window);
                draw_all(window, here);
                grx_desalloue_image();
                grx_affiche_bitmap_backingstore(window);
                ASSERT_EQ(grx_libere_limite_trace(), 1);
            }
            const INT twin = active_window({400, 60, width, height});
            draw_all(twin, here);
            EXPECT_TRUE(same(memory(window), screen(twin))) << dx << ", " << dy;
            EXPECT_TRUE(same(screen(window), screen(twin))) << dx << ", " << dy;
            grx_detruit_fenetre(twin);
            grx_affecte_nofen_active(window);
            drain();
        }
    }
};

class ScrolledDrawingWithoutServer : public ScrolledDrawing {
    XServerOptions server_options() const override {
        XServerOptions options;
        options.arguments = {"-bs"};
        return options;
    }
};

TEST_F(ScrolledDrawing, AllWays) {
    scrolls_all_ways();
}
TEST_F(ScrolledDrawing, BelowAnotherWindow) {
    scrolls_below_another_window();
}
TEST_F(ScrolledDrawingWithoutServer, BelowAnotherWindow) {
    scrolls_below_another_window();
}
TEST_F(ScrolledDrawing, PansByStrips) {
    pans_by_strips();
}

TEST_F(ScrolledDrawing, WhatWasDrawnOnTheScreenOnlyIsScrolledThere) {
    const INT window = active_window();
    draw_picture(window, 3);
    const Pixels before = screen(window);
    EXPECT_EQ(scroll(window, -12, 20).code, 1);
    EXPECT_TRUE(same(screen(window), moved_picture(before, -12, 20, background())));
    EXPECT_EQ(memory(window).count_other(background()), 0);
}

TEST_F(ScrolledDrawing, LayersStayWhereTheyAre) {
    const INT window = plan();
    const Pixels before = screen(window);
    make_layer(window, 0, cross);
    EXPECT_EQ(scroll(window, 25, 13).code, 1);
    const Pixels moved = moved_picture(before, 25, 13, background());
    Pixels with = screen(window);
    EXPECT_EQ(with.at(30, 40), drawn_pixel(12));
    EXPECT_EQ(with.at(110, 100), drawn_pixel(12));
    EXPECT_TRUE(same(memory(window), moved));
    EXPECT_EQ(grx_efface_calque(window, 0), 1);
    EXPECT_TRUE(same(screen(window), moved));
    draw_all(window, cross);
    EXPECT_TRUE(same(screen(window), with));
}

TEST_F(ScrolledDrawing, AStripIsDrawnBelowTheLayers) {
    const INT window = plan();
    make_layer(window, 0, cross);
    for (const GRX_ZONE& zone : scroll(window, 0, 60).zones) {
        ASSERT_EQ(grx_limite_trace(window, zone.x, zone.y, zone.lar, zone.hau), 1);
        grx_alloue_image(window);
        draw(window, box(9, 0, 0, width, height));
        grx_desalloue_image();
        grx_affiche_bitmap_backingstore(window);
        ASSERT_EQ(grx_libere_limite_trace(), 1);
    }
    EXPECT_EQ(screen(window).at(30, 40), drawn_pixel(12));
    EXPECT_EQ(screen(window).at(30, 41), drawn_pixel(9));
    EXPECT_EQ(grx_efface_calque(window, 0), 1);
    EXPECT_EQ(screen(window).part({0, 0, width, 60}).count(drawn_pixel(9)), width * 60);
    EXPECT_TRUE(same(screen(window), memory(window)));
}

TEST_F(ScrolledDrawing, CostsAFewRequests) {
    const INT window = plan();
    scroll(window, 1, 1); // makes what is used again
    for (int i = 0; i < 3; ++i) {
        const Cost cost(x11_disp);
        EXPECT_EQ(grx_defile_fenetre(window, 3, -2, nullptr, nullptr), 1);
        EXPECT_LE(cost.requests(), 10U);
        EXPECT_EQ(cost.round_trips(), 0U);
    }
    const Cost cost(x11_disp);
    EXPECT_EQ(scroll(window, 0, 0).code, 1);
    EXPECT_EQ(cost.requests(), 0U);
}

TEST_F(ScrolledDrawing, NumbersOfNothingAreRefused) {
    const INT window = plan();
    const INT plain = window_of(GRX_FEN_ALPHA, {400, 60, width, height});
    for (const INT number : unknown_windows) {
        if (number == window || number == plain) continue;
        EXPECT_EQ(scroll(number, 1, 1).code, GRX_ECHEC_NUMERO);
        EXPECT_EQ(grx_limite_trace(number, 0, 0, 9, 9), GRX_ECHEC_NUMERO);
    }
    const Scrolled refused = scroll(plain, 4, 4);
    EXPECT_EQ(refused.code, GRX_ECHEC_GENRE);
    EXPECT_TRUE(refused.zones.empty());
    for (const INT bad : {0, -1, INT_MIN}) {
        EXPECT_EQ(grx_limite_trace(window, 0, 0, bad, 9), GRX_ECHEC_PARAMETRE);
        EXPECT_EQ(grx_limite_trace(window, 0, 0, 9, bad), GRX_ECHEC_PARAMETRE);
    }
    draw(window, box(9, 0, 0, 9, 9));
    EXPECT_EQ(screen(window).at(9, 9), drawn_pixel(9)) << "no limit was set";
}

// --- limits ---------------------------------------------------------------------------------------------------------

class LimitTest : public LayersTest {
  protected:
    // What lies in the rectangle from one picture, the rest from another.
    static Pixels framed(const Pixels& outside, const Pixels& inside, const grxtest::Area& area) {
        Pixels result = outside;
        for (int y = std::max(area.y, 0); y < std::min(area.y + area.height, result.height); ++y)
            for (int x = std::max(area.x, 0); x < std::min(area.x + area.width, result.width); ++x)
                result.values[static_cast<std::size_t>(y * result.width + x)] = inside.at(x, y);
        return result;
    }
};

TEST_F(LimitTest, HoldsPrimitivesAndTextsToARectangle) {
    const Primitives primitives = random_primitives(15, 60, width, height);
    for (const grxtest::Area& area :
        {grxtest::Area{40, 30, 100, 80}, {-20, -20, 60, 60}, {200, 150, 500, 500}, {900, 900, 5, 5}}) {
        const INT window = plan();
        const Pixels before = screen(window);
        const Pixels drawn = drawn_directly(primitives);
        ASSERT_EQ(grx_limite_trace(window, area.x, area.y, area.width, area.height), 1);
        draw_all(window, primitives);
        EXPECT_TRUE(same(screen(window), framed(before, drawn, area)));
        const Pixels limited = screen(window);
        grx_ecrit_fenetre(text_at(window, 0, 95, "dehors et dedans, puis dehors", 9));
        const Pixels text = screen(window);
        EXPECT_TRUE(same(framed(text, limited, area), limited));
        ASSERT_EQ(grx_libere_limite_trace(), 1);
        draw(window, box(9, 0, 0, width, height));
        EXPECT_EQ(screen(window).count(drawn_pixel(9)), width * height);
        grx_detruit_fenetre(window);
        drain();
    }
}

TEST_F(LimitTest, HoldsMemoryDrawingAndItsEmptying) {
    const INT window = plan();
    const Pixels before = memory(window);
    ASSERT_EQ(grx_limite_trace(window, 40, 30, 100, 80), 1);
    grx_alloue_image(window);
    EXPECT_EQ(memory(window).part({40, 30, 100, 80}).count_other(background()), 0);
    EXPECT_EQ(memory(window).at(39, 30), before.at(39, 30));
    draw(window, box(9, 0, 0, width, height));
    EXPECT_EQ(memory(window).part({40, 30, 100, 80}).count(drawn_pixel(9)), 8000);
    grx_trace_image(0);
    EXPECT_EQ(memory(window).part({40, 30, 100, 80}).count_other(background()), 0);
    grx_desalloue_image();
    ASSERT_EQ(grx_libere_limite_trace(), 1);
    Pixels expected = before;
    for (int y = 30; y < 110; ++y)
        for (int x = 40; x < 140; ++x) expected.values[static_cast<std::size_t>(y * width + x)] = drawn_pixel(9);
    EXPECT_TRUE(same(screen(window), expected));
    for (int y = 30; y < 110; ++y)
        for (int x = 40; x < 140; ++x) expected.values[static_cast<std::size_t>(y * width + x)] = background();
    EXPECT_TRUE(same(memory(window), expected));
}

TEST_F(LimitTest, OthersAreNotHeld) {
    const INT window = plan();
    const INT other = graphic_window({400, 60, width, height});
    const INT label = label_in(other, {10, 10, 60, 40});
    ASSERT_EQ(grx_limite_trace(window, 40, 30, 10, 10), 1);
    for (int i = 0; i < 2; ++i) {
        draw(window, box(9, 0, 0, width, height));
        draw(other, box(9, 100, 0, 110, 10));
        draw(window, box(9, 0, 0, width, height));
        draw_on_button(label, box(12, 0, 0, 60, 40));
        draw(window, box(9, 0, 0, width, height));
        make_layer(window, 0, {box(12, 100, 100, 120, 120)});
    }
    EXPECT_EQ(screen(other).at(105, 5), drawn_pixel(9));
    EXPECT_EQ(button_screen(label).at(50, 30), drawn_pixel(12));
    EXPECT_EQ(screen(window).at(110, 110), drawn_pixel(12));
    EXPECT_EQ(grx_efface_calque(window, 0), 1);
    EXPECT_EQ(screen(window).at(45, 35), drawn_pixel(9));
    EXPECT_TRUE(same(screen(window).part({100, 100, 20, 20}), memory(window).part({100, 100, 20, 20})));
}

TEST_F(LimitTest, SurvivesWhatTheApplicationDoesWithTheContext) {
    const INT window = plan();
    ASSERT_EQ(grx_limite_trace(window, 40, 30, 10, 10), 1);
    draw(window, box(9, 0, 0, width, height));
    XSetClipMask(x11_disp, g_c, None);
    draw(window, box(12, 0, 0, width, height));
    EXPECT_EQ(screen(window).part({40, 30, 10, 10}).count(drawn_pixel(12)), 100);
    EXPECT_TRUE(same(screen(window).part({60, 30, 99, 99}), memory(window).part({60, 30, 99, 99})));
    grx_reinit_gc();
    XFillRectangle(x11_disp, x_window(window), g_c, 0, 0, width, height);
    EXPECT_EQ(screen(window).count_other(background()), 0) << "the context that is given has no limit";
    draw(window, box(12, 0, 0, width, height));
    EXPECT_EQ(screen(window).count(drawn_pixel(12)), 100);
    GC const former = g_c;
    graphic_window({400, 60, width, height}); // brings a context of its own
    ASSERT_NE(g_c, former);
    draw(window, box(9, 0, 0, width, height));
    EXPECT_EQ(screen(window).count(drawn_pixel(9)), 100);
    XSetFunction(x11_disp, former, GXcopy);
    XSetForeground(x11_disp, former, drawn_pixel(12));
    XFillRectangle(x11_disp, x_window(window), former, 0, 0, width, height);
    EXPECT_EQ(screen(window).count(drawn_pixel(12)), width * height) << "the former context has lost it";
    ASSERT_EQ(grx_libere_limite_trace(), 1);
    draw(window, box(9, 0, 0, width, height));
    EXPECT_EQ(screen(window).count(drawn_pixel(9)), width * height);
}

TEST_F(LimitTest, GoesWithItsWindow) {
    const INT window = plan();
    ASSERT_EQ(grx_limite_trace(window, 40, 30, 10, 10), 1);
    draw(window, box(9, 0, 0, width, height));
    grx_detruit_fenetre(window);
    drain();
    const INT next = plan();
    ASSERT_EQ(next, window);
    draw(next, box(9, 0, 0, width, height));
    EXPECT_EQ(screen(next).count(drawn_pixel(9)), width * height);
    EXPECT_EQ(grx_libere_limite_trace(), 1);
    EXPECT_EQ(grx_libere_limite_trace(), 1);
}

TEST_F(LimitTest, AnotherReplacesIt) {
    const INT window = plan();
    ASSERT_EQ(grx_limite_trace(window, 40, 30, 10, 10), 1);
    draw(window, box(9, 0, 0, width, height));
    ASSERT_EQ(grx_limite_trace(window, 100, 30, 10, 10), 1);
    draw(window, box(12, 0, 0, width, height));
    EXPECT_EQ(screen(window).part({100, 30, 10, 10}).count(drawn_pixel(12)), 100);
    EXPECT_EQ(screen(window).part({40, 30, 10, 10}).count(drawn_pixel(9)), 100);
}

TEST_F(LimitTest, CostsARequestForARunOfPrimitives) {
    const INT window = plan();
    ASSERT_EQ(grx_limite_trace(window, 40, 30, 100, 100), 1);
    const Cost cost(x11_disp);
    for (int i = 0; i < 100; ++i) draw(window, segment(attributes(12), i, 0, 100, i));
    EXPECT_LE(cost.requests(), 3U);
    EXPECT_EQ(cost.round_trips(), 0U);
}

} // namespace
