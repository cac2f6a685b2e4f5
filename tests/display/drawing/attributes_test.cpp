// What attributes make of the drawing context: what it holds, what is sent for a change, and what follows when colours
// change.
#include "tests/display/drawing/drawing_kit.h"

#include "xt_prive.h"

#include <climits>
#include <cstring>
#include <vector>

namespace {

using namespace grxtest;
using Kind = Primitive::Kind;

// --- the contexts ---------------------------------------------------------------------------------------------

class ContextTest : public DrawingTest {};

TEST_F(ContextTest, AFreshContextCopiesWithThinLinesAndTheFont) {
    graphic_window();
    const auto values = values_of(g_c);
    EXPECT_EQ(values.function, GXcopy);
    EXPECT_EQ(values.line_width, 0);
    EXPECT_EQ(values.graphics_exposures, False); // or each copy queues an event
    EXPECT_EQ(values.plane_mask, AllPlanes);
    EXPECT_EQ(values.arc_mode, ArcPieSlice);
    EXPECT_EQ(values.fill_rule, EvenOddRule);
    XGCValues font{};
    ASSERT_TRUE(XGetGCValues(x11_disp, g_c, GCFont, &font));
    EXPECT_EQ(font.font, fontstruct->fid);
}

TEST_F(ContextTest, TheRubberBandContextInvertsThroughAllWindows) {
    graphic_window();
    const auto values = values_of(gc);
    EXPECT_EQ(values.function, GXxor);
    EXPECT_EQ(values.subwindow_mode, IncludeInferiors);
    EXPECT_EQ(values.foreground, WhitePixel(x11_disp, DefaultScreen(x11_disp)));
    EXPECT_EQ(values.line_width, 0);
    EXPECT_EQ(values.line_style, LineSolid);
    EXPECT_EQ(values.cap_style, CapNotLast);
    EXPECT_EQ(values.join_style, JoinRound);
}

TEST_F(ContextTest, PlainAttributesSetTheseValues) {
    graphic_window();
    grx_affecte_gc(attributes(9, 3));
    const auto values = values_of(g_c);
    EXPECT_EQ(values.function, GXcopy);
    EXPECT_EQ(values.foreground, drawn_pixel(9));
    EXPECT_EQ(values.background, drawn_pixel(3));
    EXPECT_EQ(values.line_style, LineSolid);
    EXPECT_EQ(values.line_width, 0);
    EXPECT_EQ(values.graphics_exposures, False);
    EXPECT_EQ(values.plane_mask, AllPlanes);
}

TEST_F(ContextTest, AnyOtherModeIsPlain) {
    graphic_window();
    for (const INT mode : {1, 5, 2047, 2049, -2, INT_MAX, INT_MIN}) {
        grx_affecte_gc(attributes(9, 3, xor_mode));
        grx_affecte_gc(attributes(9, 3, mode));
        EXPECT_EQ(values_of(g_c).function, GXcopy) << mode;
        EXPECT_EQ(values_of(g_c).foreground, drawn_pixel(9)) << mode;
        EXPECT_EQ(grx::memo_attrib.mode, mode);
    }
}

TEST_F(ContextTest, StylesOneToSevenAreDoubleDashed) {
    graphic_window();
    for (INT style = 1; style <= 7; ++style) {
        grx_affecte_gc(attributes(9, 3, 0, 0));
        EXPECT_EQ(values_of(g_c).line_style, LineSolid);
        grx_affecte_gc(attributes(9, 3, 0, style));
        EXPECT_EQ(values_of(g_c).line_style, LineDoubleDash) << style;
    }
}

TEST_F(ContextTest, UnknownStylesAreSolid) {
    graphic_window();
    for (const INT style : {8, -3, -1, 0, 100, INT_MAX, INT_MIN}) {
        grx_affecte_gc(attributes(9, 3, 0, 2));
        grx_affecte_gc(attributes(9, 3, 0, style));
        EXPECT_EQ(values_of(g_c).line_style, LineSolid) << style;
        EXPECT_EQ(grx::memo_attrib.type_trait, style);
    }
}

TEST_F(ContextTest, WidthIndexesAreTakenModuloEight) {
    graphic_window();
    const std::vector<int> expected{0, 2, 3, 4, 5, 6, 7, 8, 0, 2, 3, 4, 5, 6, 7, 8, 0};
    for (INT index = 16; index >= 0; --index) {
        grx_affecte_gc(attributes(9, 3, 0, 0, index));
        EXPECT_EQ(values_of(g_c).line_width, expected[static_cast<std::size_t>(index)]) << index;
    }
}

TEST_F(ContextTest, ExclusiveOrMixesDrawingAndBackground) {
    graphic_window();
    grx_affecte_gc(attributes(9, 3, xor_mode));
    EXPECT_EQ(values_of(g_c).function, GXxor);
    EXPECT_EQ(values_of(g_c).foreground, drawn_pixel(9) ^ drawn_pixel(3));
    EXPECT_EQ(values_of(g_c).background, drawn_pixel(3));
    grx_affecte_gc(attributes(3, 3, xor_mode));
    EXPECT_EQ(values_of(g_c).foreground, 0U);
}

// KEEP: a change of the background alone does not send the mixed foreground again.
TEST_F(ContextTest, ExclusiveOrKeepsItsForegroundWhenOnlyTheBackgroundChanges) {
    graphic_window();
    grx_affecte_gc(attributes(9, 3, xor_mode));
    grx_affecte_gc(attributes(9, 12, xor_mode));
    EXPECT_EQ(values_of(g_c).foreground, drawn_pixel(9) ^ drawn_pixel(3));
    EXPECT_EQ(values_of(g_c).background, drawn_pixel(12));
    grx_affecte_gc(attributes(10, 12, xor_mode));
    EXPECT_EQ(values_of(g_c).foreground, drawn_pixel(10) ^ drawn_pixel(12));
}

TEST_F(ContextTest, ErasingDrawsInTheWindowBackground) {
    graphic_window();
    grx_affecte_couleur_fond(12);
    grx_affecte_gc(attributes(9, 3, xor_mode));
    grx_affecte_gc(attributes(9, 3, erase_mode));
    EXPECT_EQ(values_of(g_c).foreground, drawn_pixel(12));
    EXPECT_EQ(values_of(g_c).function, GXcopy);
    EXPECT_EQ(values_of(g_c).background, drawn_pixel(3));
}

// KEEP: erasing leaves the memorised colour, so that drawing in it again differs by the mode and is sent.
TEST_F(ContextTest, ErasingLeavesTheMemorisedColour) {
    graphic_window();
    grx_affecte_gc(attributes(9, 3));
    grx_affecte_gc(attributes(14, 3, erase_mode));
    EXPECT_EQ(grx::memo_attrib.coul_trace, 9);
    EXPECT_EQ(grx::memo_attrib.mode, erase_mode);
    grx_affecte_gc(attributes(9, 3));
    EXPECT_EQ(values_of(g_c).foreground, drawn_pixel(9));
    EXPECT_EQ(values_of(g_c).function, GXcopy);
}

TEST_F(ContextTest, TheMemoHoldsWhatWasApplied) {
    graphic_window();
    grx_affecte_gc({4, 17, xor_mode, 99, 5, 3});
    EXPECT_EQ(grx::memo_attrib.coul_fond, 4);
    EXPECT_EQ(grx::memo_attrib.coul_trace, 17);
    EXPECT_EQ(grx::memo_attrib.mode, xor_mode);
    EXPECT_EQ(grx::memo_attrib.type_trait, 5);
    EXPECT_EQ(grx::memo_attrib.epaisseur, 3);
}

TEST_F(ContextTest, ReinitAppliesTheWindowBackgroundAsBothColours) {
    graphic_window();
    grx_affecte_couleur_fond(11);
    grx_affecte_gc(attributes(9, 3, xor_mode, 2, 4));
    grx_reinit_gc();
    const auto values = values_of(g_c);
    EXPECT_EQ(values.foreground, drawn_pixel(11));
    EXPECT_EQ(values.background, drawn_pixel(11));
    EXPECT_EQ(values.function, GXcopy);
    EXPECT_EQ(values.line_style, LineSolid);
    EXPECT_EQ(values.line_width, 0);
    EXPECT_EQ(grx::memo_attrib.coul_fond, 11);
    EXPECT_EQ(grx::memo_attrib.coul_trace, 11);
    EXPECT_EQ(grx::memo_attrib.mode, 0);
    EXPECT_EQ(grx::memo_attrib.type_trait, 0);
    EXPECT_EQ(grx::memo_attrib.epaisseur, 0);
    grx_affecte_gc(attributes(9, 11));
    EXPECT_EQ(values_of(g_c).foreground, drawn_pixel(9));
}

TEST_F(ContextTest, InitMemoForgetsWhatWasApplied) {
    graphic_window();
    grx_affecte_gc({4, 17, xor_mode, 99, 5, 3});
    grx_init_memo_attrib();
    EXPECT_EQ(grx::memo_attrib.coul_fond, -1);
    EXPECT_EQ(grx::memo_attrib.coul_trace, -1);
    EXPECT_EQ(grx::memo_attrib.type_trait, -1);
    EXPECT_EQ(grx::memo_attrib.mode, 0);
    EXPECT_EQ(grx::memo_attrib.intensite, 0);
    EXPECT_EQ(grx::memo_attrib.epaisseur, 0);
}

TEST_F(ContextTest, AfterInitMemoEverythingIsSentAgain) {
    graphic_window();
    for (const auto& wanted : {attributes(9, 3), attributes(9, 3, erase_mode), attributes(9, 3, 0, -1),
             attributes(9, 3, xor_mode, 1, 2), attributes(1, 1, 0, 0, 8)}) {
        grx_affecte_gc(wanted);
        const auto expected = values_of(g_c);
        XSetFunction(x11_disp, g_c, GXinvert);
        XSetLineAttributes(x11_disp, g_c, 77, LineOnOffDash, CapButt, JoinMiter);
        XSetForeground(x11_disp, g_c, 1);
        XSetBackground(x11_disp, g_c, 2);
        grx_init_memo_attrib();
        grx_affecte_gc(wanted);
        const auto values = values_of(g_c);
        EXPECT_EQ(values.function, expected.function);
        EXPECT_EQ(values.foreground, expected.foreground);
        EXPECT_EQ(values.background, expected.background);
        EXPECT_EQ(values.line_width, expected.line_width);
        EXPECT_EQ(values.line_style, expected.line_style);
    }
}

TEST_F(ContextTest, ANewContextGetsTheAttributesAgain) {
    const INT first = graphic_window();
    const auto attrib = attributes(9, 3, 0, 0, 4);
    draw(first, segment(attrib, 10, 50, 200, 50));
    const GC before = g_c;
    const INT second = graphic_window({400, 60, width, height});
    EXPECT_NE(g_c, before);
    draw(second, segment(attrib, 10, 50, 200, 50));
    EXPECT_TRUE(same(screen(second), screen(first)));
    EXPECT_EQ(screen(second).count(drawn_pixel(9)), 190 * 5);
}

// KEEP: the context made before stays usable; an application may hold it.
TEST_F(ContextTest, TheContextBeforeStaysUsable) {
    const INT first = graphic_window();
    const GC before = g_c;
    graphic_window({400, 60, width, height});
    XSetForeground(x11_disp, before, drawn_pixel(9));
    XSetFunction(x11_disp, before, GXcopy);
    XFillRectangle(x11_disp, x_window(first), before, 0, 0, 10, 10);
    EXPECT_EQ(screen(first).count(drawn_pixel(9)), 100);
}

TEST_F(ContextTest, NestedWindowsShareTheContext) {
    const INT outer = window_of(GRX_FEN_ALPHA, {40, 60, 300, 300});
    const GC before = g_c;
    GRX_FENETRE inner{};
    grx_init_fenetre(&inner);
    inner.type = GRX_FEN_GRAPHIQUE;
    inner.attrib = GRX_FEN_ATT_VISIBLE | GRX_FEN_ATT_FILLE;
    inner.fen_mere = outer;
    inner.droite = 100;
    inner.haut = 80;
    inner.x = 20;
    ASSERT_EQ(grx_cree_fenetre(&inner), 0);
    EXPECT_EQ(g_c, before);
    ASSERT_TRUE(wait_visible(grx_recup_objet_fen(inner.nofen)));
    drain();
    draw(inner.nofen, filled(attributes(9), 5, 5, 14, 14));
    EXPECT_EQ(screen(inner.nofen).count(drawn_pixel(9)), 100);
}

// --- what is sent ----------------------------------------------------------------------------------------------

class DrawingCost : public DrawingTest {
  protected:
    // Draws and says what it took.
    struct Spent {
        unsigned long requests, trips, contexts, dashes;
    };
    static Spent spend(INT window, const Primitive& primitive) {
        const Cost cost(x11_disp);
        draw(window, primitive);
        return {cost.requests(), cost.round_trips(), cost.gc_changes(), cost.dash_changes()};
    }
};

TEST_F(DrawingCost, TheSameAttributesAgainSendNoContext) {
    const INT window = graphic_window();
    RandomPrimitives shapes(5, width, height);
    for (int kind = 0; kind < Primitive::kinds; ++kind) {
        Primitive p = shapes.next(static_cast<Kind>(kind));
        p.attrib = attributes(9, 3, 0, 2, 1);
        if (p.points.size() < 3) p.points.resize(3);
        draw(window, p);
        const auto spent = spend(window, p);
        EXPECT_EQ(spent.contexts, 0U) << kind;
        EXPECT_EQ(spent.dashes, 0U) << kind;
        EXPECT_LE(spent.requests, 1U) << kind;
        EXPECT_EQ(spent.trips, 0U) << kind;
    }
}

TEST_F(DrawingCost, IntensityTakesNoPart) {
    const INT window = graphic_window();
    auto p = segment(attributes(9, 3), 0, 0, 50, 50);
    draw(window, p);
    p.attrib.intensite = 12345;
    EXPECT_EQ(spend(window, p).contexts, 0U);
}

TEST_F(DrawingCost, AChangeSendsOneContextAndNoDashes) {
    const INT window = graphic_window();
    const auto plain = attributes(9, 3);
    for (const auto& other : {attributes(10, 3), attributes(9, 4), attributes(9, 3, xor_mode), attributes(9, 3, -1),
             attributes(9, 3, 0, 0, 1), attributes(10, 4, xor_mode, 8, 5), attributes(9, 3, 0, -3)}) {
        draw(window, segment(plain, 0, 0, 50, 50));
        const auto spent = spend(window, segment(other, 0, 0, 50, 50));
        EXPECT_EQ(spent.contexts, 1U);
        EXPECT_EQ(spent.dashes, 0U);
        EXPECT_LE(spent.requests, 2U);
        EXPECT_EQ(spent.trips, 0U);
    }
}

TEST_F(DrawingCost, ADashedStyleSendsOneContextAndOneDashList) {
    const INT window = graphic_window();
    for (INT style = 1; style <= 7; ++style) {
        draw(window, segment(attributes(9, 3), 0, 0, 50, 50));
        const auto spent = spend(window, segment(attributes(12, 4, xor_mode, style, 3), 0, 0, 50, 50));
        EXPECT_EQ(spent.contexts, 1U) << style;
        EXPECT_EQ(spent.dashes, 1U) << style;
        EXPECT_LE(spent.requests, 3U) << style;
        EXPECT_EQ(spent.trips, 0U);
    }
}

TEST_F(DrawingCost, FromDashesToOtherDashesIsOneList) {
    const INT window = graphic_window();
    draw(window, segment(attributes(9, 3, 0, 2), 0, 0, 50, 50));
    const auto spent = spend(window, segment(attributes(9, 3, 0, 3), 0, 0, 50, 50));
    EXPECT_EQ(spent.dashes, 1U);
    EXPECT_EQ(spent.contexts, 1U);
}

TEST_F(DrawingCost, BackToTheColourAfterErasingIsSent) {
    const INT window = graphic_window();
    draw(window, segment(attributes(9), 0, 0, 50, 50));
    EXPECT_EQ(spend(window, segment(attributes(9, 0, erase_mode), 0, 0, 50, 50)).contexts, 1U);
    EXPECT_EQ(spend(window, segment(attributes(9), 0, 0, 50, 50)).contexts, 1U);
    EXPECT_EQ(screen(window).at(25, 25), drawn_pixel(9));
}

TEST_F(DrawingCost, ALongRunCostsWhatPlainXlibCosts) {
    const INT window = graphic_window();
    const auto attrib = attributes(9, 3);
    draw(window, segment(attrib, 0, 0, 1, 1));
    const Cost cost(x11_disp);
    for (INT i = 0; i < 5000; ++i) draw(window, segment(attrib, i % width, 0, 0, i % height));
    EXPECT_LE(cost.requests(), 10U);
    EXPECT_EQ(cost.gc_changes(), 0U);
    EXPECT_EQ(cost.round_trips(), 0U);
}

TEST_F(DrawingCost, NoPrimitiveAllocates) {
    const INT window = graphic_window();
    RandomPrimitives shapes(6, width, height);
    const auto before = heap().allocations();
    for (int i = 0; i < 200; ++i) draw(window, shapes.next());
    EXPECT_EQ(heap().allocations(), before);
}

TEST_F(DrawingCost, WritingInAWindowSetsTheContextOnce) {
    const INT window = graphic_window();
    draw(window, segment(attributes(9, 3, xor_mode, 3, 2), 0, 0, 50, 50));
    const auto memo = grx::memo_attrib;
    const Cost cost(x11_disp);
    grx_ecrit_fenetre(text_at(window, 10, 40, "abc", 9));
    EXPECT_EQ(cost.gc_changes(), 1U);
    EXPECT_EQ(cost.dash_changes(), 0U);
    EXPECT_LE(cost.requests(), 2U);
    EXPECT_EQ(cost.round_trips(), 0U);
    EXPECT_EQ(std::memcmp(&memo, &grx::memo_attrib, sizeof memo), 0);
}

// --- after the colours changed ------------------------------------------------------------------------------------

class ChangedColoursOn24 : public DrawingTest {};

TEST_F(ChangedColoursOn24, TheNextPrimitiveHasTheNewColour) {
    const INT window = graphic_window();
    INT colour[3] = {1, 2, 3};
    draw(window, filled(attributes(9), 0, 0, 9, 9));
    grx_modif_rgb(9, colour);
    draw(window, filled(attributes(9), 20, 0, 29, 9));
    EXPECT_EQ(screen(window).at(25, 5), 0x010203U);
    EXPECT_NE(screen(window).at(5, 5), 0x010203U);
}

TEST_F(ChangedColoursOn24, ExclusiveOrFollowsBothColours) {
    const INT window = graphic_window();
    INT colour[3] = {1, 2, 3}, fond[3] = {200, 100, 50};
    draw(window, filled(attributes(9, 12, xor_mode), 0, 0, 9, 9));
    grx_modif_rgb(9, colour);
    grx_modif_rgb(12, fond);
    draw(window, filled(attributes(12), 20, 0, 29, 9));
    draw(window, filled(attributes(9, 12, xor_mode), 20, 0, 29, 9));
    EXPECT_EQ(screen(window).at(25, 5), 0x010203U);
}

TEST_F(ChangedColoursOn24, GapsFollowTheBackground) {
    const INT window = graphic_window();
    INT fond[3] = {7, 8, 9};
    draw(window, segment(attributes(9, 12, 0, 4), 0, 5, 100, 5));
    grx_modif_rgb(12, fond);
    draw(window, segment(attributes(9, 12, 0, 4), 0, 20, 100, 20));
    EXPECT_EQ(screen(window).at(20, 20), 0x070809U);
    EXPECT_EQ(screen(window).at(5, 20), drawn_pixel(9));
}

class ChangedColoursOn8 : public On8 {};

TEST_F(ChangedColoursOn8, WhatIsDrawnChangesAtOnceAndNoContextIsSent) {
    INT colour[3] = {1, 2, 3};
    const Cost cost(x11_disp);
    grx_modif_rgb(9, colour);
    EXPECT_EQ(cost.requests(), 1U);
    EXPECT_EQ(cost.gc_changes(), 0U);
    XColor cell{};
    cell.pixel = drawn_pixel(9);
    XQueryColor(x11_disp, x11_cmap, &cell);
    EXPECT_EQ(cell.green >> 8, 2 * 255 >> 8);
}

} // namespace
