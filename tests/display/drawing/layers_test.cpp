// Layers above a drawing: what they show, and that what is below comes back as it was.
#include "tests/display/drawing/layers_kit.h"

namespace {

using namespace grxtest;

const Primitives cross{segment(attributes(12), 20, 40, 200, 40), segment(attributes(12), 110, 5, 110, 170)};

// --- showing and taking away ------------------------------------------------------------------------------------------

TEST_F(LayersTest, ShowsWhatDrawingDirectlyShows) {
    for (unsigned seed = 1; seed <= 25; ++seed) {
        const INT window = plan(seed);
        const Pixels before = screen(window), kept = memory(window);
        const Primitives primitives = random_primitives(100 + seed, 1 + static_cast<int>(seed), width, height);
        make_layer(window, 0, primitives);
        ASSERT_TRUE(same(screen(window), drawn_directly(primitives, seed))) << "seed " << seed;
        EXPECT_TRUE(same(memory(window), kept));
        ASSERT_EQ(grx_efface_calque(window, 0), 1);
        ASSERT_TRUE(same(screen(window), before)) << "seed " << seed;
        EXPECT_TRUE(same(memory(window), kept));
        grx_detruit_fenetre(window);
        drain();
    }
}

TEST_F(LayersTest, EachPrimitiveCoversNoMoreThanIsTakenAway) {
    const INT window = plan();
    const Pixels before = screen(window);
    RandomPrimitives random(77, width, height);
    for (int i = 0; i < 400; ++i) {
        const Primitive primitive = random.next(static_cast<Primitive::Kind>(i % Primitive::kinds));
        make_layer(window, i % GRX_NB_CALQUES, {primitive});
        ASSERT_EQ(grx_efface_calque(window, i % GRX_NB_CALQUES), 1);
        if (i % 20 == 19) ASSERT_TRUE(same(screen(window), before)) << i;
    }
}

TEST_F(LayersTest, MovesToWhereItWouldBeDrawn) {
    const INT window = plan();
    const Pixels before = screen(window);
    const Primitives primitives = random_primitives(9, 12, width, height);
    make_layer(window, 2, primitives);
    INT x = 0, y = 0;
    for (const auto& [dx, dy] : std::vector<std::pair<INT, INT>>{{5, 3}, {-40, 0}, {0, 90}, {300, 300}, {-250, -380}}) {
        ASSERT_EQ(grx_deplace_calque(window, 2, dx, dy), 1);
        x += dx;
        y += dy;
        ASSERT_TRUE(same(screen(window), drawn_directly(moved(primitives, x, y)))) << x << ", " << y;
    }
    EXPECT_EQ(grx_efface_calque(window, 2), 1);
    EXPECT_TRUE(same(screen(window), before));
}

TEST_F(LayersTest, ComesBackFromFarOutside) {
    const INT window = plan();
    const Pixels before = screen(window);
    make_layer(window, 0, cross);
    const Pixels with = screen(window);
    EXPECT_EQ(grx_deplace_calque(window, 0, 1000000, -1000000), 1);
    EXPECT_TRUE(same(screen(window), before));
    EXPECT_EQ(grx_deplace_calque(window, 0, 1, 0), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_deplace_calque(window, 0, INT_MAX, 0), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_deplace_calque(window, 0, 0, INT_MIN), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_deplace_calque(window, 0, -1000000, 1000000), 1);
    EXPECT_TRUE(same(screen(window), with));
}

TEST_F(LayersTest, AHigherNumberIsAbove) {
    const INT window = plan();
    make_layer(window, 5, {box(12, 20, 20, 80, 80)});
    make_layer(window, 3, {box(9, 50, 50, 120, 120)});
    EXPECT_EQ(screen(window).at(60, 60), drawn_pixel(12));
    EXPECT_EQ(screen(window).at(100, 100), drawn_pixel(9));
    EXPECT_EQ(grx_deplace_calque(window, 3, -10, -10), 1);
    EXPECT_EQ(screen(window).at(60, 60), drawn_pixel(12));
    EXPECT_EQ(grx_efface_calque(window, 5), 1);
    EXPECT_EQ(screen(window).at(60, 60), drawn_pixel(9));
    const Pixels below = screen(window);
    make_layer(window, 7, {box(12, 0, 0, 239, 179)});
    EXPECT_EQ(screen(window).count(drawn_pixel(12)), width * height);
    EXPECT_EQ(grx_efface_calque(window, 7), 1);
    EXPECT_TRUE(same(screen(window), below));
}

TEST_F(LayersTest, HiddenItIsKept) {
    const INT window = plan();
    const Pixels before = screen(window);
    make_layer(window, 0, cross);
    make_layer(window, 1, {box(9, 50, 50, 60, 60)});
    const Pixels with = screen(window);
    EXPECT_EQ(grx_cache_calque(window, GRX_TOUS_CALQUES), 1);
    EXPECT_EQ(grx_cache_calque(window, 0), 1);
    EXPECT_TRUE(same(screen(window), before));
    EXPECT_EQ(grx_deplace_calque(window, 0, 30, 30), 1);
    make_layer(window, 1, {box(9, 50, 50, 60, 60)});
    EXPECT_TRUE(same(screen(window), before));
    EXPECT_EQ(grx_deplace_calque(window, 0, -30, -30), 1);
    EXPECT_EQ(grx_affiche_calque(window, 1), 1);
    EXPECT_EQ(screen(window).at(55, 55), drawn_pixel(9));
    EXPECT_EQ(grx_affiche_calque(window, GRX_TOUS_CALQUES), 1);
    EXPECT_TRUE(same(screen(window), with));
    EXPECT_EQ(grx_cache_calque(window, 0), 1);
    EXPECT_EQ(grx_efface_calque(window, GRX_TOUS_CALQUES), 1);
    EXPECT_TRUE(same(screen(window), before));
    make_layer(window, 0, cross); // what was taken away is not hidden
    EXPECT_EQ(grx_deplace_calque(window, 0, 0, 0), 1);
    EXPECT_EQ(screen(window).at(20, 40), drawn_pixel(12));
}

TEST_F(LayersTest, DrawnAgainItReplacesWhatItHeld) {
    const INT window = plan();
    make_layer(window, 0, cross);
    EXPECT_EQ(grx_deplace_calque(window, 0, 7, 7), 1);
    ASSERT_EQ(grx_commence_calque(window, 0), 1);
    EXPECT_EQ(screen(window).at(27, 47), drawn_pixel(12)) << "still there while the next is drawn";
    draw(window, box(9, 50, 50, 60, 60));
    ASSERT_EQ(grx_termine_calque(), 1);
    EXPECT_TRUE(same(screen(window), drawn_directly({box(9, 50, 50, 60, 60)})));
    ASSERT_EQ(grx_commence_calque(window, 0), 1);
    ASSERT_EQ(grx_termine_calque(), 1);
    EXPECT_TRUE(same(screen(window), drawn_directly({})));
    EXPECT_EQ(grx_deplace_calque(window, 0, 1, 1), GRX_ECHEC_ABSENT);
}

TEST_F(LayersTest, HoldsTextsAndErasedTexts) {
    const INT window = plan();
    const Pixels before = screen(window);
    ASSERT_EQ(grx_commence_calque(window, 0), 1);
    grx_efface_chaine(text_at(window, 30, 90, "12,50 m", 12));
    grx_ecrit_fenetre(text_at(window, 30, 90, "12,50 m", 12));
    EXPECT_TRUE(same(screen(window), before));
    ASSERT_EQ(grx_termine_calque(), 1);
    const Pixels with = screen(window);
    const INT twin = plan(5, {400, 60, width, height});
    grx_efface_chaine(text_at(twin, 30, 90, "12,50 m", 12));
    grx_ecrit_fenetre(text_at(twin, 30, 90, "12,50 m", 12));
    EXPECT_TRUE(same(with, screen(twin)));
    EXPECT_GT(differences(with, before), 100);
    EXPECT_EQ(grx_deplace_calque(window, 0, 40, -30), 1);
    EXPECT_EQ(grx_efface_calque(window, 0), 1);
    EXPECT_TRUE(same(screen(window), before));
}

TEST_F(LayersTest, WhatWasDrawnOnTheScreenOnlyComesBackToo) {
    const INT window = active_window();
    draw_picture(window, 3);
    const Pixels before = screen(window);
    ASSERT_EQ(memory(window).count_other(background()), 0);
    make_layer(window, 0, cross);
    EXPECT_EQ(grx_deplace_calque(window, 0, 10, 10), 1);
    EXPECT_EQ(grx_efface_calque(window, 0), 1);
    EXPECT_TRUE(same(screen(window), before));
}

// --- while it is being drawn -------------------------------------------------------------------------------------------

TEST_F(LayersTest, MemoryDrawingMeanwhileChangesNothing) {
    const INT window = plan();
    const Primitives layer{box(9, 50, 50, 60, 60), box(12, 55, 55, 70, 70)};
    for (const bool before : {true, false}) {
        if (before) grx_alloue_image(window);
        ASSERT_EQ(grx_commence_calque(window, 0), 1);
        if (!before) grx_alloue_image(window);
        draw(window, layer[0]);
        grx_desalloue_image();
        draw(window, layer[1]);
        ASSERT_EQ(grx_termine_calque(), 1);
        EXPECT_EQ(memory(window).count_other(background()), 0) << "emptied, and not drawn into";
        EXPECT_EQ(screen(window).at(52, 52), drawn_pixel(9));
        EXPECT_EQ(screen(window).at(57, 57), drawn_pixel(12));
    }
}

TEST_F(LayersTest, OtherWindowsAndControlsAreDrawnAsAlways) {
    const INT window = plan();
    const INT other = plan(6, {400, 60, width, height});
    const INT label = label_in(other, {10, 10, 60, 40});
    ASSERT_EQ(grx_commence_calque(window, 0), 1);
    draw(other, box(9, 80, 80, 90, 90));
    draw_on_button(label, box(12, 5, 5, 9, 9));
    EXPECT_EQ(screen(other).at(85, 85), drawn_pixel(9));
    EXPECT_EQ(button_screen(label).at(7, 7), drawn_pixel(12));
    const Pixels before = screen(window);
    ASSERT_EQ(grx_termine_calque(), 1);
    EXPECT_TRUE(same(screen(window), before));
}

TEST_F(LayersTest, AnotherLayerCanBeMovedMeanwhile) {
    const INT window = plan();
    make_layer(window, 1, {box(9, 50, 50, 60, 60)});
    ASSERT_EQ(grx_commence_calque(window, 0), 1);
    EXPECT_EQ(grx_deplace_calque(window, 1, 10, 10), 1);
    EXPECT_EQ(grx_efface_calque(window, GRX_TOUS_CALQUES), 1);
    draw(window, box(12, 5, 5, 9, 9));
    ASSERT_EQ(grx_termine_calque(), 1);
    EXPECT_TRUE(same(screen(window), drawn_directly({box(12, 5, 5, 9, 9)})));
}

// --- what is shown below ---------------------------------------------------------------------------------------------

TEST_F(LayersTest, DrawingOnTheScreenGoesBelow) {
    const INT window = plan();
    make_layer(window, 0, cross);
    const Primitives more = random_primitives(31, 20, width, height);
    draw_all(window, more);
    const Pixels meanwhile = screen(window);
    EXPECT_TRUE(same(meanwhile, drawn_directly(more))) << "taken away meanwhile";
    drain();
    Primitives all = more;
    all.insert(all.end(), cross.begin(), cross.end());
    const Pixels expected = drawn_directly(all);
    EXPECT_TRUE(same(screen(window), expected));
    grx_ecrit_fenetre(text_at(window, 90, 45, "sous", 9));
    drain();
    EXPECT_EQ(screen(window).at(95, 40), drawn_pixel(12));
    EXPECT_EQ(grx_efface_calque(window, 0), 1);
    const INT twin = plan(5, {400, 60, width, height});
    draw_all(twin, more);
    grx_ecrit_fenetre(text_at(twin, 90, 45, "sous", 9));
    EXPECT_TRUE(same(screen(window), screen(twin)));
}

TEST_F(LayersTest, AMovedLayerIsShownAtOnceAfterDrawing) {
    const INT window = plan();
    make_layer(window, 0, cross);
    draw(window, box(9, 50, 50, 60, 60));
    EXPECT_EQ(grx_deplace_calque(window, 0, 1, 1), 1);
    const Pixels at_once = screen(window);
    Primitives all{box(9, 50, 50, 60, 60)};
    for (const Primitive& p : moved(cross, 1, 1)) all.push_back(p);
    EXPECT_TRUE(same(at_once, drawn_directly(all)));
}

TEST_F(LayersTest, WhatClearsTheScreenLeavesIt) {
    const INT window = plan();
    make_layer(window, 0, cross);
    grx_efface_zone_graphique(window);
    EXPECT_EQ(screen(window).count(drawn_pixel(12)), 0);
    drain();
    EXPECT_EQ(screen(window).at(30, 40), drawn_pixel(12));
    const Pixels with = screen(window);
    EXPECT_EQ(grx_efface_calque(window, 0), 1);
    EXPECT_EQ(screen(window).count(drawn_pixel(12)), 0);
    EXPECT_GT(with.count(drawn_pixel(12)), 300);
}

TEST_F(LayersTest, IsAboveWhateverIsShownAnew) {
    const INT window = plan();
    make_layer(window, 0, cross);
    draw_plan(window, 21);
    Pixels shown = screen(window);
    EXPECT_TRUE(same(shown, drawn_directly(cross, 21))) << "the backing picture";
    grx_alloue_image(window);
    draw_picture(window, 22);
    grx_trace_image(0);
    shown = screen(window);
    EXPECT_TRUE(same(shown, drawn_directly(cross, 22))) << "the picture drawn in memory";
    EXPECT_EQ(memory(window).count_other(background()), 0) << "emptied for the next";
    grx_desalloue_image();
    EXPECT_EQ(grx_efface_calque(window, 0), 1);
    EXPECT_TRUE(same(screen(window), drawn_directly({}, 22)));
}

TEST_F(LayersTest, IsAboveAPictureOfTheApplication) {
    const INT window = plan();
    make_layer(window, 0, cross);
    std::vector<uchar> pixels(static_cast<std::size_t>(3 * width * height), 9);
    grx_trace_image_reel_xy(GRX_CIBLE_FENETRE, window, pixels.data(), pixels.data(), width, height, 0, 0);
    drain();
    EXPECT_EQ(screen(window).at(30, 40), drawn_pixel(12));
    EXPECT_EQ(memory(window).count(memory(window).at(0, 0)), width * height);
    EXPECT_EQ(grx_efface_calque(window, 0), 1);
    EXPECT_TRUE(same(screen(window), memory(window)));
}

TEST_F(LayersTest, IsNotReadWithTheDrawing) {
    const INT window = plan();
    std::vector<uchar> before(static_cast<std::size_t>(width * height)), with(before.size());
    grx_recup_image(0, 0, width, height, before.data());
    const Pixels drawing = screen(window);
    make_layer(window, 0, cross);
    grx_recup_image(0, 0, width, height, with.data());
    EXPECT_EQ(before, with);
    drain();
    EXPECT_EQ(screen(window).at(30, 40), drawn_pixel(12));
    grx_memorise_bitmap_backingstore(window);
    EXPECT_TRUE(same(memory(window), drawing));
    drain();
    EXPECT_EQ(grx_sauve_fenetre(window), 1);
    grx_efface_zone_graphique(window);
    EXPECT_EQ(grx_restore_fenetre(window), 1);
    drain();
    EXPECT_EQ(screen(window).at(30, 40), drawn_pixel(12));
    EXPECT_EQ(grx_efface_calque(window, 0), 1);
    EXPECT_TRUE(same(screen(window), drawing));
}

// --- cost ---------------------------------------------------------------------------------------------------------

TEST_F(LayersTest, AFrameCostsAFewRequestsAndNoAnswer) {
    const INT window = plan();
    make_layer(window, 0, cross);
    for (int i = 0; i < 3; ++i) {
        const Cost cost(x11_disp);
        EXPECT_EQ(grx_deplace_calque(window, 0, 2, 1), 1);
        EXPECT_LE(cost.requests(), 6U);
        EXPECT_EQ(cost.round_trips(), 0U);
    }
    for (int i = 0; i < 3; ++i) {
        const Cost cost(x11_disp);
        make_layer(window, 0, {segment(attributes(12), 20, 40, 100 + i, 90)});
        EXPECT_LE(cost.requests(), 6U);
        EXPECT_EQ(cost.round_trips(), 0U);
    }
}

TEST_F(LayersTest, WithoutLayersNothingIsAskedOrSent) {
    const INT window = plan();
    const Cost cost(x11_disp);
    EXPECT_EQ(grx_efface_calque(window, GRX_TOUS_CALQUES), 1);
    EXPECT_EQ(grx_libere_limite_trace(), 1);
    for (int i = 0; i < 50; ++i) draw(window, segment(attributes(12), i, 0, 100, i));
    EXPECT_LE(cost.requests(), 2U);
    EXPECT_EQ(cost.round_trips(), 0U);
}

// After the last layer is gone drawing costs what it did.
TEST_F(LayersTest, AfterLayersDrawingCostsWhatItDid) {
    const INT window = plan();
    const auto cost_of_drawing = [window] {
        const Cost cost(x11_disp);
        draw_picture(window, 8);
        grx_affiche_bitmap_backingstore(window);
        return std::pair{cost.requests(), cost.round_trips()};
    };
    cost_of_drawing();
    const auto before = cost_of_drawing();
    make_layer(window, 0, cross);
    EXPECT_EQ(grx_efface_calque(window, 0), 1);
    cost_of_drawing();
    EXPECT_EQ(cost_of_drawing(), before);
}

} // namespace
