// Attributes and primitives: what is sent, and the pixels that come of it.
#include "tests/display/drawing.h"
#include "tests/support/triangle_model.h"

#include <Xm/DrawingA.h>
#include <Xm/Xm.h>

#include <climits>
#include <cstring>
#include <string>
#include <vector>

namespace {

using namespace grxtest;
using Kind = Primitive::Kind;

constexpr unsigned long asked_values = GCFunction | GCForeground | GCBackground | GCLineWidth | GCLineStyle | GCCapStyle
                                       | GCJoinStyle | GCFillStyle | GCFillRule | GCArcMode | GCPlaneMask
                                       | GCGraphicsExposures | GCSubwindowMode;

XGCValues values_of(GC context) {
    XGCValues values{};
    XGetGCValues(x11_disp, context, asked_values, &values);
    return values;
}

GRX_TEXTE text_record(INT target, INT x, INT y, const char* text, INT colour, INT background = 0) {
    GRX_TEXTE record{};
    record.nofen = target;
    record.x = x;
    record.y = y;
    std::strncpy(record.chaine, text, sizeof record.chaine - 1);
    record.coul_trace = colour;
    record.coul_fond = background;
    record.attrib = attributes(colour, background);
    return record;
}

Primitive segment(const GRX_ATTRIBUTS_TRACER& attrib, INT x1, INT y1, INT x2, INT y2) {
    return {Kind::segment, attrib, {x1, y1, x2, y2}, {}};
}
Primitive rectangle(const GRX_ATTRIBUTS_TRACER& attrib, INT x1, INT y1, INT x2, INT y2) {
    return {Kind::rectangle, attrib, {x1, y1, x2, y2}, {}};
}
Primitive filled(const GRX_ATTRIBUTS_TRACER& attrib, INT x1, INT y1, INT x2, INT y2) {
    return {Kind::filled_rectangle, attrib, {x1, y1, x2, y2}, {}};
}
Primitive point(const GRX_ATTRIBUTS_TRACER& attrib, INT x, INT y) {
    return {Kind::point, attrib, {x, y}, {}};
}
Primitive arc(const GRX_ATTRIBUTS_TRACER& attrib, INT x, INT y, INT across, INT down, INT from, INT to) {
    return {Kind::arc, attrib, {x, y, across, down, from, to}, {}};
}

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
    EXPECT_EQ(values.foreground, pixel_of(9));
    EXPECT_EQ(values.background, pixel_of(3));
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
        EXPECT_EQ(values_of(g_c).foreground, pixel_of(9)) << mode;
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
    EXPECT_EQ(values_of(g_c).foreground, pixel_of(9) ^ pixel_of(3));
    EXPECT_EQ(values_of(g_c).background, pixel_of(3));
    grx_affecte_gc(attributes(3, 3, xor_mode));
    EXPECT_EQ(values_of(g_c).foreground, 0U);
}

// KEEP: a change of the background alone does not send the mixed foreground again.
TEST_F(ContextTest, ExclusiveOrKeepsItsForegroundWhenOnlyTheBackgroundChanges) {
    graphic_window();
    grx_affecte_gc(attributes(9, 3, xor_mode));
    grx_affecte_gc(attributes(9, 12, xor_mode));
    EXPECT_EQ(values_of(g_c).foreground, pixel_of(9) ^ pixel_of(3));
    EXPECT_EQ(values_of(g_c).background, pixel_of(12));
    grx_affecte_gc(attributes(10, 12, xor_mode));
    EXPECT_EQ(values_of(g_c).foreground, pixel_of(10) ^ pixel_of(12));
}

TEST_F(ContextTest, ErasingDrawsInTheWindowBackground) {
    graphic_window();
    grx_affecte_couleur_fond(12);
    grx_affecte_gc(attributes(9, 3, xor_mode));
    grx_affecte_gc(attributes(9, 3, erase_mode));
    EXPECT_EQ(values_of(g_c).foreground, pixel_of(12));
    EXPECT_EQ(values_of(g_c).function, GXcopy);
    EXPECT_EQ(values_of(g_c).background, pixel_of(3));
}

// KEEP: erasing leaves the memorised colour, so that drawing in it again differs by the mode and is sent.
TEST_F(ContextTest, ErasingLeavesTheMemorisedColour) {
    graphic_window();
    grx_affecte_gc(attributes(9, 3));
    grx_affecte_gc(attributes(14, 3, erase_mode));
    EXPECT_EQ(grx::memo_attrib.coul_trace, 9);
    EXPECT_EQ(grx::memo_attrib.mode, erase_mode);
    grx_affecte_gc(attributes(9, 3));
    EXPECT_EQ(values_of(g_c).foreground, pixel_of(9));
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
    EXPECT_EQ(values.foreground, pixel_of(11));
    EXPECT_EQ(values.background, pixel_of(11));
    EXPECT_EQ(values.function, GXcopy);
    EXPECT_EQ(values.line_style, LineSolid);
    EXPECT_EQ(values.line_width, 0);
    EXPECT_EQ(grx::memo_attrib.coul_fond, 11);
    EXPECT_EQ(grx::memo_attrib.coul_trace, 11);
    EXPECT_EQ(grx::memo_attrib.mode, 0);
    EXPECT_EQ(grx::memo_attrib.type_trait, 0);
    EXPECT_EQ(grx::memo_attrib.epaisseur, 0);
    grx_affecte_gc(attributes(9, 11));
    EXPECT_EQ(values_of(g_c).foreground, pixel_of(9));
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
    EXPECT_EQ(screen(second).count(pixel_of(9)), 190 * 5);
}

// KEEP: the context made before stays usable; an application may hold it.
TEST_F(ContextTest, TheContextBeforeStaysUsable) {
    const INT first = graphic_window();
    const GC before = g_c;
    graphic_window({400, 60, width, height});
    XSetForeground(x11_disp, before, pixel_of(9));
    XSetFunction(x11_disp, before, GXcopy);
    XFillRectangle(x11_disp, x_window(first), before, 0, 0, 10, 10);
    EXPECT_EQ(screen(first).count(pixel_of(9)), 100);
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
    EXPECT_EQ(screen(inner.nofen).count(pixel_of(9)), 100);
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
    EXPECT_EQ(screen(window).at(25, 25), pixel_of(9));
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
    grx_ecrit_fenetre(text_record(window, 10, 40, "abc", 9));
    EXPECT_EQ(cost.gc_changes(), 1U);
    EXPECT_EQ(cost.dash_changes(), 0U);
    EXPECT_LE(cost.requests(), 2U);
    EXPECT_EQ(cost.round_trips(), 0U);
    EXPECT_EQ(std::memcmp(&memo, &grx::memo_attrib, sizeof memo), 0);
}

// --- pixels of every primitive ---------------------------------------------------------------------------------

class PrimitiveTest : public DrawingTest {
  protected:
    // One of each kind, laid out so that they overlap a little.
    static std::vector<Primitive> one_of_each(const GRX_ATTRIBUTS_TRACER& attrib) {
        std::vector<Primitive> list{point(attrib, 7, 9), segment(attrib, 5, 170, 230, 12),
            rectangle(attrib, 90, 100, 30, 20), filled(attrib, 150, 30, 120, 80), arc(attrib, 60, 60, 90, 50, 30, 300),
            arc(attrib, 160, 90, 60, 60, 0, 360)};
        list.push_back({Kind::filled_arc, attrib, {10, 110, 70, 50, 90, -120}, {}});
        list.push_back({Kind::polyline, attrib, {}, {{100, 170}, {140, 110}, {180, 170}, {220, 110}, {100, 130}}});
        list.push_back({Kind::polygon, attrib, {}, {{180, 10}, {230, 50}, {170, 35}, {235, 25}, {190, 60}}});
        list.push_back({Kind::triangle, attrib, {}, {{100, 100}, {150, 120}, {110, 160}}});
        return list;
    }

    void expect_like_plain(INT window, const GRX_ATTRIBUTS_TRACER& attrib) {
        PlainPicture plain(x11_disp, width, height, background());
        grx_efface_zone_graphique(window);
        for (const auto& p : one_of_each(attrib)) draw(window, p);
        for (const auto& p : one_of_each(attrib)) plain.draw(p);
        EXPECT_TRUE(same(screen(window), plain.pixels()))
            << "mode " << attrib.mode << ", style " << attrib.type_trait << ", width " << attrib.epaisseur;
    }
};

TEST_F(PrimitiveTest, EveryStyleAndWidthIsThatOfPlainXlib) {
    const INT window = graphic_window();
    for (INT style = 0; style <= 8; ++style)
        for (INT line = 0; line < 8; ++line) expect_like_plain(window, attributes(9, 12, 0, style, line));
}

TEST_F(PrimitiveTest, EveryModeIsThatOfPlainXlib) {
    const INT window = graphic_window();
    for (const INT mode : {xor_mode, erase_mode, 5})
        for (const INT style : {0, 1, 4, 7})
            for (const INT line : {0, 3}) expect_like_plain(window, attributes(9, 12, mode, style, line));
}

TEST_F(PrimitiveTest, EveryColourIsItsOwn) {
    const INT window = graphic_window();
    const INT colours = grx_recup_max_couleur_reserve() + grx_recup_max_couleur_trace();
    for (INT k = 0; k < colours; ++k) draw(window, filled(attributes(k), 5 * k, 0, 5 * k + 4, 9));
    const Pixels seen = screen(window);
    for (INT k = 0; k < colours; ++k) EXPECT_EQ(seen.at(5 * k + 2, 5), pixel_of(k)) << k;
}

TEST_F(PrimitiveTest, RenderingColoursAreDrawnByTheirAbsoluteIndex) {
    const INT window = graphic_window();
    const INT first = grx_premier_index_rendu();
    trace_pix[first] = trace_pix[13]; // what grx_modif_rgb would do, without needing a colour cell
    draw(window, filled(attributes(first), 0, 0, 9, 9));
    EXPECT_EQ(screen(window).count(pixel_of(13)), 100);
}

TEST_F(PrimitiveTest, APointIsOnePixel) {
    const INT window = graphic_window();
    draw(window, point(attributes(9, 3, 0, 5, 7), 20, 30));
    EXPECT_EQ(screen(window).bounds(pixel_of(9)), (Area{20, 30, 1, 1}));
    EXPECT_EQ(screen(window).count_other(background()), 1);
}

TEST_F(PrimitiveTest, ASegmentHoldsBothEnds) {
    const INT window = graphic_window();
    draw(window, segment(attributes(9), 20, 30, 60, 30));
    EXPECT_EQ(screen(window).bounds(pixel_of(9)), (Area{20, 30, 41, 1}));
    EXPECT_EQ(screen(window).count(pixel_of(9)), 41);
}

TEST_F(PrimitiveTest, RectanglesTakeTheirCornersInAnyOrder) {
    const INT window = graphic_window();
    for (const auto& c :
        std::vector<std::array<INT, 4>>{{10, 10, 5, 20}, {5, 20, 10, 10}, {5, 10, 10, 20}, {10, 20, 5, 10}}) {
        grx_efface_zone_graphique(window);
        draw(window, rectangle(attributes(9), c[0], c[1], c[2], c[3]));
        EXPECT_EQ(screen(window).bounds(pixel_of(9)), (Area{5, 10, 6, 11}));
        EXPECT_EQ(screen(window).count(pixel_of(9)), 2 * 6 + 2 * 9);
        draw(window, filled(attributes(12), c[0], c[1], c[2], c[3]));
        EXPECT_EQ(screen(window).bounds(pixel_of(12)), (Area{5, 10, 6, 11}));
        EXPECT_EQ(screen(window).count(pixel_of(12)), 66);
        EXPECT_EQ(screen(window).count(pixel_of(9)), 0); // the fill covers the outline
    }
}

TEST_F(PrimitiveTest, AFilledRectangleOfNoSizeIsAPoint) {
    const INT window = graphic_window();
    draw(window, filled(attributes(9), 30, 40, 30, 40));
    EXPECT_EQ(screen(window).bounds(pixel_of(9)), (Area{30, 40, 1, 1}));
}

TEST_F(PrimitiveTest, AFullArcIsAnEllipse) {
    const INT window = graphic_window();
    draw(window, arc(attributes(9), 50, 40, 100, 60, 0, 360));
    const Pixels seen = screen(window);
    EXPECT_EQ(seen.bounds(pixel_of(9)), (Area{50, 40, 101, 61}));
    EXPECT_EQ(seen.at(50, 70), pixel_of(9));
    EXPECT_EQ(seen.at(150, 70), pixel_of(9));
    EXPECT_EQ(seen.at(100, 40), pixel_of(9));
    EXPECT_EQ(seen.at(100, 100), pixel_of(9));
    EXPECT_EQ(seen.at(100, 70), background());
}

TEST_F(PrimitiveTest, ASmallerEndAngleGoesClockwise) {
    const INT window = graphic_window();
    draw(window, arc(attributes(9), 50, 40, 100, 100, 90, 0));
    EXPECT_EQ(screen(window).bounds(pixel_of(9)), (Area{100, 40, 51, 51})); // the upper right quarter
    const Pixels clockwise = screen(window);
    grx_efface_zone_graphique(window);
    draw(window, arc(attributes(9), 50, 40, 100, 100, 0, 90));
    EXPECT_EQ(screen(window).bounds(pixel_of(9)), (Area{100, 40, 51, 51}));
    grx_efface_zone_graphique(window);
    draw(window, arc(attributes(9), 50, 40, 100, 100, 90, 360)); // the other three
    EXPECT_EQ(screen(window).at(50, 90), pixel_of(9));
    const Area upper_right{110, 45, 35, 35};
    EXPECT_EQ(screen(window).part(upper_right).count(pixel_of(9)), 0);
    EXPECT_GT(clockwise.part(upper_right).count(pixel_of(9)), 20);
}

TEST_F(PrimitiveTest, AFilledArcIsAPieSlice) {
    const INT window = graphic_window();
    draw(window, {Kind::filled_arc, attributes(9), {50, 40, 100, 100, 0, 90}, {}});
    const Pixels seen = screen(window);
    EXPECT_EQ(seen.at(110, 80), pixel_of(9)); // beside the centre: a chord would not reach it
    EXPECT_EQ(seen.at(95, 95), background());
    EXPECT_EQ(seen.at(90, 80), background());
}

TEST_F(PrimitiveTest, CrossingPolygonsHaveHoles) {
    const INT window = graphic_window();
    draw(window, {Kind::polygon, attributes(9), {}, {{60, 10}, {90, 110}, {5, 45}, {115, 45}, {30, 110}}});
    EXPECT_EQ(screen(window).at(60, 65), background()); // the middle of the star
    EXPECT_EQ(screen(window).at(60, 25), pixel_of(9));
}

TEST_F(PrimitiveTest, TrianglesMayHaveMoreCornersAndANotch) {
    const INT window = graphic_window();
    const Primitive wedge{Kind::triangle, attributes(9), {}, {{10, 10}, {60, 60}, {110, 10}, {60, 110}}};
    draw(window, wedge);
    PlainPicture plain(x11_disp, width, height, background());
    plain.draw(wedge);
    EXPECT_TRUE(same(screen(window), plain.pixels()));
    EXPECT_EQ(screen(window).at(60, 25), background()); // the notch
    EXPECT_EQ(screen(window).at(60, 80), pixel_of(9));
}

TEST_F(PrimitiveTest, ExclusiveOrTwiceRestoresThePicture) {
    const INT window = graphic_window();
    RandomPrimitives shapes(77, width, height);
    for (int i = 0; i < 60; ++i) draw(window, shapes.next());
    const Pixels before = screen(window);
    std::vector<Primitive> overlay;
    for (int i = 0; i < 60; ++i) {
        overlay.push_back(shapes.next());
        overlay.back().attrib.mode = xor_mode;
        overlay.back().attrib.type_trait = 0;
    }
    for (const auto& p : overlay) draw(window, p);
    EXPECT_GT(differences(before, screen(window)), 1000);
    for (const auto& p : overlay) draw(window, p);
    EXPECT_TRUE(same(screen(window), before));
}

TEST_F(PrimitiveTest, ExclusiveOrTurnsTheBackgroundIntoTheColour) {
    const INT window = graphic_window();
    draw(window, filled(attributes(9, 0, xor_mode), 10, 10, 19, 19));
    EXPECT_EQ(screen(window).count(pixel_of(9)), 100);
    draw(window, filled(attributes(9, 0, xor_mode), 10, 10, 19, 19));
    EXPECT_EQ(screen(window).count_other(background()), 0);
    draw(window, filled(attributes(0, 0, xor_mode), 10, 10, 19, 19)); // in the background colour: nothing
    EXPECT_EQ(screen(window).count_other(background()), 0);
}

TEST_F(PrimitiveTest, ErasingUndoesADrawing) {
    const INT window = graphic_window();
    RandomPrimitives shapes(78, width, height);
    std::vector<Primitive> list;
    for (int i = 0; i < 80; ++i) list.push_back(shapes.next());
    for (auto& p : list) {
        p.attrib.mode = 0;
        p.attrib.type_trait = 0;
        p.attrib.coul_trace = 8 + p.attrib.coul_trace % 16;
        draw(window, p);
    }
    EXPECT_GT(screen(window).count_other(background()), 1000);
    for (auto& p : list) {
        p.attrib.mode = erase_mode;
        draw(window, p);
    }
    EXPECT_EQ(screen(window).count_other(background()), 0);
}

// KEEP: the gaps of dashed lines are drawn in the background colour.
TEST_F(PrimitiveTest, GapsOfDashedLinesAreDrawn) {
    const INT window = graphic_window();
    struct Pattern {
        INT style;
        std::vector<int> lengths;
    };
    const std::vector<Pattern> patterns{{1, {16, 6, 6, 6}}, {2, {8, 8}}, {3, {4, 4}}, {4, {16, 16}}, {5, {16, 4, 1, 4}},
        {6, {16, 4, 1, 4, 1, 4}}, {7, {16, 8, 4, 8, 4, 8}}};
    for (const auto& pattern : patterns) {
        draw(window, filled(attributes(14), 0, 0, width - 1, height - 1));
        draw(window, segment(attributes(9, 12, 0, pattern.style), 0, 30, width - 1, 30));
        const Pixels seen = screen(window);
        for (int x = 0, part = 0, left = pattern.lengths[0]; x < width; ++x, --left) {
            if (left == 0) left = pattern.lengths[static_cast<std::size_t>(++part) % pattern.lengths.size()];
            ASSERT_EQ(seen.at(x, 30), pixel_of(part % 2 == 0 ? 9 : 12)) << "style " << pattern.style << ", x " << x;
        }
    }
}

TEST_F(PrimitiveTest, TopLevelColoursAndStyleAreNotRead) {
    const INT window = graphic_window();
    grx_trace_segment({window, 10, 20, 90, 20, 13, 14, 3, attributes(9)});
    EXPECT_EQ(screen(window).count(pixel_of(9)), 81);
    EXPECT_EQ(screen(window).count_other(background()), 81);
}

TEST_F(PrimitiveTest, UnknownNumbersDrawNothing) {
    const INT window = graphic_window();
    RandomPrimitives shapes(4, width, height);
    draw(window, segment(attributes(9), 0, 0, 100, 100));
    const Pixels before = grab_root(x11_disp);
    const INT free_number = window + 1;
    const Cost cost(x11_disp);
    for (const INT number : {0, -1, 100, free_number, INT_MAX, INT_MIN})
        for (int kind = 0; kind < Primitive::kinds; ++kind) draw(number, shapes.next(static_cast<Kind>(kind)));
    for (const INT number : {-1, 1000, 999, INT_MAX, INT_MIN}) {
        draw_on_button(number, segment(attributes(9), 0, 0, 100, 100));
        draw_on_button(number, filled(attributes(9), 0, 0, 100, 100));
        grx_trace_texte_bouton(text_record(number, 10, 10, "abc", 9));
        grx_efface_zone_graphique_bouton(number);
    }
    for (const INT number : {0, -1, 100, free_number, INT_MAX}) {
        grx_ecrit_fenetre(text_record(number, 10, 10, "abc", 9));
        grx_efface_chaine(text_record(number, 10, 10, "abc", 9));
        grx_efface_zone_graphique(number);
    }
    EXPECT_EQ(cost.requests(), 0U);
    EXPECT_TRUE(same(grab_root(x11_disp), before));
}

TEST_F(PrimitiveTest, NoPointsDrawNothing) {
    const INT window = graphic_window();
    GRX_POINT_POLY points[3] = {{0, 0}, {50, 0}, {0, 50}};
    for (const auto operation : {grx_trace_polyline, grx_remplit_polygone, grx_remplit_triangle}) {
        for (const INT count : {0, -1, INT_MIN}) operation({window, points, count, 0, 0, 0, attributes(9)});
        operation({window, nullptr, 3, 0, 0, 0, attributes(9)});
        operation({window, nullptr, 0, 0, 0, 0, attributes(9)});
    }
    EXPECT_EQ(screen(window).count_other(background()), 0);
}

TEST_F(PrimitiveTest, CallersPointsStayAsTheyAre) {
    const INT window = graphic_window();
    const Primitive p{Kind::polygon, attributes(9), {}, {{1, 2}, {3, 40}, {50, 6}}};
    const auto points = p.points;
    draw(window, p);
    EXPECT_EQ(std::memcmp(points.data(), p.points.data(), points.size() * sizeof points[0]), 0);
}

TEST_F(PrimitiveTest, WildAttributesAndAnglesAreHarmless) {
    const INT window = graphic_window();
    for (const INT wild : {INT_MAX, INT_MIN, -1, 256, 1000}) {
        draw(window, segment({wild, wild, wild, wild, wild, wild}, 0, 0, 50, 50));
        draw(window, segment({wild, 9, 0, 0, 0, 0}, 0, 60, 50, 60));
        draw(window, arc(attributes(9), 10, 10, 50, 50, wild, 0));
        draw(window, arc(attributes(9), 10, 10, 50, 50, 0, wild));
        draw(window, {Kind::filled_arc, attributes(9), {10, 10, 50, 50, wild, -wild / 2}, {}});
    }
    grx_efface_zone_graphique(window);
    draw(window, segment(attributes(9), 0, 0, 50, 0));
    EXPECT_EQ(screen(window).count(pixel_of(9)), 51);
}

TEST_F(PrimitiveTest, WindowsThatAreNotRealisedTakeNothing) {
    const INT window = window_of(GRX_FEN_ALPHA, {40, 60, 300, 300});
    Widget unborn = XmCreateDrawingArea(grx_recup_objet_fen(window), const_cast<char*>("unborn"), nullptr, 0);
    const INT number = grx_recup_indice_objet_fen_libre();
    grx_affecte_objet_fen(number, unborn);
    RandomPrimitives shapes(4, width, height);
    for (int kind = 0; kind < Primitive::kinds; ++kind) draw(number, shapes.next(static_cast<Kind>(kind)));
    grx_ecrit_fenetre(text_record(number, 10, 10, "abc", 9));
    grx_efface_zone_graphique(number);
    EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
    grx_libere_indice_objet_fen(number);
}

// --- buttons ---------------------------------------------------------------------------------------------------

class ButtonDrawing : public DrawingTest {
  protected:
    void expect_twins_like_plain(INT button) {
        PlainPicture plain(x11_disp, width, height, pixel_of(0));
        draw_on_button(button, filled(attributes(0), 0, 0, width - 1, height - 1));
        RandomPrimitives shapes(31, width, height);
        for (int i = 0; i < 300; ++i) {
            const Primitive p = shapes.next();
            if (!has_button_twin(p.kind)) continue;
            draw_on_button(button, p);
            plain.draw(p);
        }
        EXPECT_TRUE(same(button_screen(button), plain.pixels()));
    }

    // A drawing area that the test made, known to the library by a number.
    INT registered_area() {
        window_ = window_of(GRX_FEN_BOUTONS, {40, 60, 400, 300});
        Widget area = XmCreateDrawingArea(grx_recup_objet_fen(window_), const_cast<char*>("area"), nullptr, 0);
        XtVaSetValues(area, XmNwidth, width, XmNheight, height, XmNx, 20, XmNy, 20, nullptr);
        XtManageChild(area);
        EXPECT_TRUE(wait_visible(area));
        drain();
        const INT number = grx_recup_indice_objet_bout_libre();
        EXPECT_EQ(grx_affecte_objet_bout(number, area), 1);
        return number;
    }

    INT window_ = 0;
};

TEST_F(ButtonDrawing, TwinsDrawOnALabel) {
    const INT window = window_of(GRX_FEN_BOUTONS, {40, 60, 400, 300});
    expect_twins_like_plain(label_in(window, {20, 20, width, height}));
}

TEST_F(ButtonDrawing, TwinsDrawOnARegisteredWidget) {
    expect_twins_like_plain(registered_area());
}

TEST_F(ButtonDrawing, NumbersOfWindowsAndButtonsAreApart) {
    const INT button = registered_area();
    const Pixels window_before = screen(window_);
    draw_on_button(button, filled(attributes(9), 0, 0, 9, 9));
    EXPECT_EQ(button_screen(button).count(pixel_of(9)), 100);
    EXPECT_EQ(differences(screen(window_), window_before), 100); // a picture of a window holds its children
    EXPECT_EQ(screen(window_).bounds(pixel_of(9)), (Area{20, 20, 10, 10}));
}

TEST_F(ButtonDrawing, ATextIsRaisedByTheDescent) {
    const INT button = registered_area();
    draw_on_button(button, filled(attributes(0), 0, 0, width - 1, height - 1));
    grx_trace_texte_bouton(text_record(button, 30, 60, "Agjp|_", 9, 3));
    PlainPicture plain(x11_disp, width, height, pixel_of(0));
    plain.apply(attributes(9, 3));
    XSetFont(x11_disp, plain.context(), fontstruct->fid);
    XDrawString(x11_disp, plain.pixmap(), plain.context(), 30, 60 - fontstruct->descent, "Agjp|_", 6);
    EXPECT_TRUE(same(button_screen(button), plain.pixels()));
    EXPECT_GT(plain.pixels().count(pixel_of(9)), 20);
    EXPECT_LT(plain.pixels().bounds(pixel_of(9)).y + plain.pixels().bounds(pixel_of(9)).height, 61);
}

TEST_F(ButtonDrawing, ATextUsesAttribNotTheTopLevelColours) {
    const INT button = registered_area();
    draw_on_button(button, filled(attributes(0), 0, 0, width - 1, height - 1));
    auto text = text_record(button, 30, 60, "abc", 13);
    text.attrib = attributes(9, 0, xor_mode);
    grx_trace_texte_bouton(text);
    EXPECT_GT(button_screen(button).count(pixel_of(9)), 10);
    EXPECT_EQ(button_screen(button).count(pixel_of(13)), 0);
    grx_trace_texte_bouton(text);
    EXPECT_EQ(button_screen(button).count_other(pixel_of(0)), 0);
}

TEST_F(ButtonDrawing, ATextWithoutEndIsCutAtItsField) {
    const INT button = registered_area();
    auto text = text_record(button, 0, 40, "", 9);
    std::memset(text.chaine, 'M', sizeof text.chaine);
    grx_trace_texte_bouton(text);
    draw_on_button(button, filled(attributes(0), 0, 0, width - 1, height - 1));
    text.chaine[0] = '\0';
    grx_trace_texte_bouton(text);
    EXPECT_EQ(button_screen(button).count_other(pixel_of(0)), 0);
}

TEST_F(ButtonDrawing, ClearingShowsTheWidgetsBackground) {
    const INT button = registered_area();
    const Pixels before = button_screen(button);
    draw_on_button(button, filled(attributes(9), 0, 0, width - 1, height - 1));
    const Cost cost(x11_disp);
    grx_efface_zone_graphique_bouton(button);
    EXPECT_EQ(cost.requests(), 1U);
    EXPECT_EQ(cost.gc_changes(), 0U);
    EXPECT_TRUE(same(button_screen(button), before));
}

// --- texts -----------------------------------------------------------------------------------------------------

class TextDrawing : public DrawingTest {
  protected:
    // What plain Xlib writes at the baseline in a pixel.
    static Pixels plain_text(int x, int y, const std::string& text, std::uint32_t pixel) {
        PlainPicture plain(x11_disp, width, height, background());
        XSetForeground(x11_disp, plain.context(), pixel);
        XSetFont(x11_disp, plain.context(), fontstruct->fid);
        XDrawString(x11_disp, plain.pixmap(), plain.context(), x, y, text.c_str(), static_cast<int>(text.size()));
        return plain.pixels();
    }
};

TEST_F(TextDrawing, WindowTextStartsOnTheBaseline) {
    const INT window = graphic_window();
    grx_ecrit_fenetre(text_record(window, 20, 50, "Agjp 123", 9));
    const auto pixel = pixel_of(9) & 0xFF;
    EXPECT_TRUE(same(screen(window), plain_text(20, 50, "Agjp 123", pixel)));
    EXPECT_GT(screen(window).count_other(background()), 30);
}

// KEEP: a pixel of a deep screen loses all but its low eight bits.
TEST_F(TextDrawing, WindowTextMasksItsPixelsToEightBits) {
    const INT window = graphic_window();
    INT colour[3] = {255, 255, 0x5A};
    if (test_planes() == 24) grx_modif_rgb(9, colour);
    grx_ecrit_fenetre(text_record(window, 20, 50, "abc", 9, 13));
    const auto values = values_of(g_c);
    EXPECT_EQ(values.foreground, pixel_of(9) & 0xFFU);
    EXPECT_EQ(values.background, pixel_of(13) & 0xFFU);
    EXPECT_EQ(values.function, GXcopy);
    if (test_planes() == 24) EXPECT_EQ(values.foreground, 0x5AU);
    EXPECT_GT(screen(window).count(pixel_of(9) & 0xFF), 10);
}

TEST_F(TextDrawing, WindowTextIgnoresAttrib) {
    const INT window = graphic_window();
    auto text = text_record(window, 20, 50, "abc", 9);
    text.attrib = attributes(13, 14, xor_mode, 3, 5);
    grx_ecrit_fenetre(text);
    EXPECT_TRUE(same(screen(window), plain_text(20, 50, "abc", pixel_of(9) & 0xFF)));
}

TEST_F(TextDrawing, AfterWindowTextPrimitivesDrawInTheirOwnColours) {
    const INT window = graphic_window();
    for (const INT mode : {0, xor_mode, erase_mode}) {
        const auto attrib = attributes(9, 0, mode, 0, 3);
        PlainPicture plain(x11_disp, width, height, background());
        grx_efface_zone_graphique(window);
        draw(window, filled(attrib, 10, 10, 40, 40));
        plain.draw(filled(attrib, 10, 10, 40, 40));
        grx_ecrit_fenetre(text_record(window, 20, 150, "", 13, 14));
        draw(window, filled(attrib, 60, 10, 90, 40)); // with the very attributes applied before
        plain.draw(filled(attrib, 60, 10, 90, 40));
        draw(window, segment(attributes(9, 0, mode, 2), 10, 100, 200, 120));
        plain.draw(segment(attributes(9, 0, mode, 2), 10, 100, 200, 120));
        EXPECT_TRUE(same(screen(window), plain.pixels())) << mode;
    }
}

TEST_F(TextDrawing, WindowTextWithoutEndOrLettersIsHarmless) {
    const INT window = graphic_window();
    auto text = text_record(window, 5, 50, "", 9);
    grx_ecrit_fenetre(text);
    EXPECT_EQ(screen(window).count_other(background()), 0);
    std::memset(text.chaine, 'M', sizeof text.chaine);
    grx_ecrit_fenetre(text);
    EXPECT_TRUE(same(screen(window), plain_text(5, 50, std::string(255, 'M'), pixel_of(9) & 0xFF)));
}

// KEEP: texts of windows are written by grx_ecrit_fenetre.
TEST_F(TextDrawing, TraceTexteDrawsNothing) {
    const INT window = graphic_window();
    const Cost cost(x11_disp);
    grx_trace_texte(text_record(window, 20, 50, "abc", 9));
    EXPECT_EQ(cost.requests(), 0U);
    EXPECT_EQ(cost.gc_changes(), 0U);
    EXPECT_EQ(screen(window).count_other(background()), 0);
}

TEST_F(TextDrawing, AStringIsMeasuredInTheFont) {
    graphic_window();
    for (const char* text : {"", "i", "Agjp 123", "MMMMMMMMMMMM"}) {
        INT across = -1, above = -1, below = -1;
        grx_recup_taille_chaine(const_cast<char*>(text), &across, &above, &below);
        EXPECT_EQ(across, XTextWidth(fontstruct, text, static_cast<int>(std::strlen(text)))) << text;
        EXPECT_EQ(above, fontstruct->ascent);
        EXPECT_EQ(below, fontstruct->descent);
    }
    EXPECT_GT(fontstruct->descent, 0);
}

TEST_F(TextDrawing, MeasuringTakesNullsAndAsksNobody) {
    graphic_window();
    INT across = -1, above = -1, below = -1;
    const Cost cost(x11_disp);
    grx_recup_taille_chaine(nullptr, &across, &above, &below);
    EXPECT_EQ(across, 0);
    grx_recup_taille_chaine(const_cast<char*>("abc"), nullptr, nullptr, nullptr);
    EXPECT_EQ(cost.requests(), 0U);
}

// KEEP: the box reaches one descent higher than the letters.
TEST_F(TextDrawing, ErasingATextFillsItsGenerousBox) {
    const INT window = graphic_window();
    const int wide = XTextWidth(fontstruct, "Agjp", 4), up = fontstruct->ascent, down = fontstruct->descent;
    draw(window, filled(attributes(13), 0, 0, width - 1, height - 1));
    auto text = text_record(window, 30, 80, "Agjp", 9, 12);
    text.attrib = attributes(14, 3, xor_mode, 3, 5);
    grx_efface_chaine(text);
    EXPECT_EQ(screen(window).bounds(pixel_of(12)), (Area{30, 80 - up - down, wide + 1, up + 2 * down + 1}));
    EXPECT_EQ(screen(window).count(pixel_of(12)), (wide + 1) * (up + 2 * down + 1));
    EXPECT_EQ(screen(window).count(pixel_of(13)), width * height - (wide + 1) * (up + 2 * down + 1));
}

TEST_F(TextDrawing, ErasingRemovesWhatWasWritten) {
    const INT window = graphic_window();
    grx_ecrit_fenetre(text_record(window, 30, 80, "Agjp|_", 9));
    EXPECT_GT(screen(window).count_other(background()), 20);
    grx_efface_chaine(text_record(window, 30, 80, "Agjp|_", 9, 0));
    EXPECT_EQ(screen(window).count_other(background()), 0);
}

// --- screen and memory -------------------------------------------------------------------------------------------

class MemoryDrawing : public DrawingTest {
  protected:
    INT active_window() {
        const INT window = graphic_window();
        grx_affecte_nofen_active(window);
        return window;
    }
};

TEST_F(MemoryDrawing, PrimitivesGoIntoTheBackingPicture) {
    const INT window = active_window();
    const Pixels before = screen(window);
    grx_alloue_image(window);
    PlainPicture plain(x11_disp, width, height, background());
    RandomPrimitives shapes(12, width, height);
    for (int i = 0; i < 400; ++i) {
        const Primitive p = shapes.next();
        draw(window, p);
        plain.draw(p);
    }
    EXPECT_TRUE(same(memory(window), plain.pixels()));
    EXPECT_TRUE(same(screen(window), before));
    grx_desalloue_image();
}

// KEEP: clearing and window texts act on the screen, whatever the target.
TEST_F(MemoryDrawing, ClearingAndTextsActOnTheScreen) {
    const INT window = active_window();
    draw(window, filled(attributes(13), 0, 0, 50, 50));
    grx_alloue_image(window);
    draw(window, filled(attributes(9), 0, 0, 9, 9));
    grx_efface_zone_graphique(window);
    EXPECT_EQ(screen(window).count_other(background()), 0);
    EXPECT_EQ(memory(window).count(pixel_of(9)), 100);
    grx_ecrit_fenetre(text_record(window, 20, 80, "abc", 12));
    EXPECT_GT(screen(window).count_other(background()), 10);
    EXPECT_EQ(memory(window).count_other(background()), 100);
    grx_desalloue_image();
}

TEST_F(MemoryDrawing, ErasingATextGoesIntoTheBackingPicture) {
    const INT window = active_window();
    grx_alloue_image(window);
    grx_efface_chaine(text_record(window, 20, 80, "abc", 9, 12));
    EXPECT_GT(memory(window).count(pixel_of(12)), 100);
    EXPECT_EQ(screen(window).count_other(background()), 0);
    grx_desalloue_image();
}

TEST_F(MemoryDrawing, TargetsAreChosenByTheTests) {
    const INT window = active_window();
    EXPECT_EQ(test_trace_memoire(x_window(window)), 0);
    EXPECT_EQ(grx::win_bidon, x_window(window));
    EXPECT_EQ(test_trace_memoire_bouton(1234), 0);
    EXPECT_EQ(grx::win_bidon_bouton, 1234U);
    grx_alloue_image(window);
    EXPECT_EQ(test_trace_memoire(x_window(window)), 0);
    EXPECT_EQ(grx::win_bidon, *record(window).image);
    EXPECT_EQ(test_trace_memoire_bouton(4321), 0); // a mode of its own
    EXPECT_EQ(grx::win_bidon_bouton, 4321U);
    grx_desalloue_image();
    test_trace_memoire(x_window(window));
    EXPECT_EQ(grx::win_bidon, x_window(window));
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
    EXPECT_EQ(screen(window).at(5, 20), pixel_of(9));
}

class ChangedColoursOn8 : public On8 {};

TEST_F(ChangedColoursOn8, WhatIsDrawnChangesAtOnceAndNoContextIsSent) {
    INT colour[3] = {1, 2, 3};
    const Cost cost(x11_disp);
    grx_modif_rgb(9, colour);
    EXPECT_EQ(cost.requests(), 1U);
    EXPECT_EQ(cost.gc_changes(), 0U);
    XColor cell{};
    cell.pixel = pixel_of(9);
    XQueryColor(x11_disp, x11_cmap, &cell);
    EXPECT_EQ(cell.green >> 8, 2 * 255 >> 8);
}

TEST_F(PrimitiveTest, TheBackgroundSettingReachesErasingAtOnce) {
    const INT window = graphic_window();
    draw(window, filled(attributes(9, 0, erase_mode), 0, 0, 9, 9));
    grx_affecte_couleur_fond(13);
    grx_reinit_gc();
    draw(window, filled(attributes(9, 0, erase_mode), 0, 0, 9, 9));
    EXPECT_EQ(screen(window).count(pixel_of(13)), 100);
}

// --- the root window ----------------------------------------------------------------------------------------------

class RubberBand : public DrawingTest {};

TEST_F(RubberBand, CountsYUpwardsAndRestoresItself) {
    graphic_window();
    const Pixels before = grab_root(x11_disp);
    const auto white = static_cast<std::uint32_t>(WhitePixel(x11_disp, DefaultScreen(x11_disp)));
    const int tall = grx_recup_hau_ecran();
    dessine_rect(30, tall - 50, 100, 40);
    const Pixels shown = grab_root(test_display()); // it was sent: another connection sees it
    EXPECT_GT(differences(before, shown), 0);
    for (int x = 30; x <= 130; ++x) EXPECT_EQ(shown.at(x, 50), before.at(x, 50) ^ white) << x;
    for (int y = 50; y <= 90; ++y) EXPECT_EQ(shown.at(130, y), before.at(130, y) ^ white) << y;
    EXPECT_EQ(differences(before, shown), 2 * 100 + 2 * 40);
    EXPECT_EQ(shown.at(30, 49), before.at(30, 49));
    dessine_rect(30, tall - 50, 100, 40);
    EXPECT_TRUE(same(grab_root(test_display()), before));
}

TEST_F(RubberBand, DrawsThroughWindows) {
    graphic_window({40, 60, width, height});
    const Area inside{40, 60, width, height};
    const Pixels before = grab_root(x11_disp).part(inside);
    dessine_rect(60, grx_recup_hau_ecran() - 80, 50, 30);
    EXPECT_EQ(differences(before, grab_root(x11_disp).part(inside)), 2 * 50 + 2 * 30);
    dessine_rect(60, grx_recup_hau_ecran() - 80, 50, 30);
    EXPECT_TRUE(same(grab_root(x11_disp).part(inside), before));
}

TEST_F(RubberBand, LeavesTheDrawingContextAlone) {
    const INT window = graphic_window();
    draw(window, filled(attributes(9), 0, 0, 9, 9));
    dessine_rect(500, 500, 50, 30);
    const Cost cost(x11_disp);
    draw(window, filled(attributes(9), 20, 0, 29, 9));
    EXPECT_EQ(cost.gc_changes(), 0U);
    EXPECT_EQ(screen(window).count(pixel_of(9)), 200);
}

// --- outlines and triangles -----------------------------------------------------------------------------------------

class TableFills : public DrawingTest {
  protected:
    INT target() {
        const INT window = graphic_window();
        grx_affecte_nofen_active(window);
        test_trace_memoire(x_window(window));
        return window;
    }

    static void plain_triangle(
        PlainPicture& plain, TriangleModel& model, int rows, const GRX_POINT_POLY* p, INT colour) {
        plain.apply(attributes(colour, grx_recup_couleur_fond()));
        const auto spans = model.fill(rows, {{{p[0].x, p[0].y}, {p[1].x, p[1].y}, {p[2].x, p[2].y}}});
        for (const auto& [y, span] : spans)
            XDrawLine(x11_disp, plain.pixmap(), plain.context(), span.first, y, span.second, y);
    }

    static GRX_POINT_POLY any(RandomPrimitives& random, int margin) {
        return {static_cast<short>(random.number(-margin, width + margin)),
            static_cast<short>(random.number(-margin, height + margin))};
    }
};

TEST_F(TableFills, AnOutlineIsOpen) {
    const INT window = target();
    GRX_POINT_POLY points[4] = {{10, 10}, {60, 10}, {60, 50}, {10, 50}};
    EXPECT_EQ(remplit_tableau_polygone(points, 4, 9), 0);
    const Pixels seen = screen(window);
    EXPECT_EQ(seen.count(pixel_of(9)), 51 + 40 + 50);
    EXPECT_EQ(seen.at(10, 30), background()); // the way back is not drawn
}

TEST_F(TableFills, AnOutlineIsThinPlainAndSolid) {
    const INT window = target();
    draw(window, segment(attributes(12, 3, xor_mode, 3, 5), 0, 170, 100, 170));
    grx_efface_zone_graphique(window);
    GRX_POINT_POLY points[5] = {{10, 10}, {200, 40}, {120, 150}, {5, 90}, {44, 91}};
    EXPECT_EQ(remplit_tableau_polygone(points, 5, 9), 0);
    PlainPicture plain(x11_disp, width, height, background());
    for (int k = 0; k < 4; ++k)
        plain.draw(segment(attributes(9), points[k].x, points[k].y, points[k + 1].x, points[k + 1].y));
    EXPECT_TRUE(same(screen(window), plain.pixels()));
    EXPECT_EQ(grx::memo_attrib.coul_fond, grx_recup_couleur_fond());
    EXPECT_EQ(grx::memo_attrib.coul_trace, 9);
}

TEST_F(TableFills, FewerThanTwoPointsAreNothing) {
    const INT window = target();
    GRX_POINT_POLY points[1] = {{10, 10}};
    for (const int count : {1, 0, -1, INT_MIN}) EXPECT_EQ(remplit_tableau_polygone(points, count, 9), 0);
    EXPECT_EQ(remplit_tableau_polygone(nullptr, 5, 9), 0);
    EXPECT_EQ(screen(window).count_other(background()), 0);
}

TEST_F(TableFills, TrianglesAreFilledBySteppedRows) {
    const INT window = target();
    RandomPrimitives random(99, width, height);
    TriangleModel model;
    PlainPicture plain(x11_disp, width, height, background());
    for (int i = 0; i < 150; ++i) {
        const GRX_POINT_POLY p[3] = {any(random, 30), any(random, 30), any(random, 30)};
        const auto colour = static_cast<uchar>(8 + i % 16);
        ASSERT_EQ(remplit_tableau_triangles(p[0], p[1], p[2], colour), 0);
        plain_triangle(plain, model, height, p, colour);
        if (i % 10 == 0) ASSERT_TRUE(same(screen(window), plain.pixels())) << "triangle " << i;
    }
    EXPECT_TRUE(same(screen(window), plain.pixels()));
}

// KEEP: row 0 is never stored: a triangle that reaches it shows there what the tables hold.
TEST_F(TableFills, RowZeroIsNeverStored) {
    const INT window = target();
    remplit_tableau_triangles({20, 0}, {100, 0}, {60, 40}, 9);
    const Pixels seen = screen(window);
    EXPECT_EQ(seen.part({0, 0, width, 1}).count(pixel_of(9)), 1);
    EXPECT_EQ(seen.at(0, 0), pixel_of(9));
    EXPECT_EQ(seen.at(60, 1), pixel_of(9));
}

TEST_F(TableFills, TrianglesAreClampedToTheActiveWindow) {
    const INT window = target();
    remplit_tableau_triangles({0, 100}, {200, 100}, {100, 3000}, 9);
    EXPECT_GT(screen(window).at(100, height - 1), 0U);
    EXPECT_EQ(screen(window).at(100, height - 1), pixel_of(9));
    grx_efface_zone_graphique(window);
    remplit_tableau_triangles({0, height}, {200, height}, {100, 3000}, 9); // all below
    remplit_tableau_triangles({0, 0}, {200, -5}, {100, -300}, 9);          // all above
    EXPECT_EQ(screen(window).count_other(background()), 0);
}

TEST_F(TableFills, TheHeightIsTheActiveWindows) {
    const INT drawn = graphic_window();
    const INT active = graphic_window({400, 60, 200, 50});
    grx_affecte_nofen_active(active);
    test_trace_memoire(x_window(drawn));
    remplit_tableau_triangles({10, 10}, {10, 150}, {200, 150}, 9);
    EXPECT_GT(screen(drawn).count(pixel_of(9)), 50);
    EXPECT_EQ(screen(drawn).bounds(pixel_of(9)).y, 10);
    EXPECT_EQ(screen(drawn).bounds(pixel_of(9)).height, 40); // rows 10 to 49
}

TEST_F(TableFills, WithoutActiveWindowThereIsNoTriangle) {
    const INT window = target();
    for (const INT number : {-1, 0, 77, 100, INT_MAX}) {
        grx_affecte_nofen_active(number);
        EXPECT_EQ(remplit_tableau_triangles({10, 10}, {10, 150}, {200, 150}, 9), 0);
    }
    EXPECT_EQ(screen(window).count_other(background()), 0);
}

TEST_F(TableFills, TrianglesAreThinPlainAndSolid) {
    const INT window = target();
    draw(window, segment(attributes(12, 3, xor_mode, 3, 5), 0, 170, 100, 170));
    grx_efface_zone_graphique(window);
    remplit_tableau_triangles({10, 10}, {10, 60}, {60, 60}, 9);
    EXPECT_EQ(screen(window).bounds(pixel_of(9)), (Area{10, 10, 51, 51}));
    EXPECT_EQ(screen(window).count_other(background()), screen(window).count(pixel_of(9)));
}

TEST_F(TableFills, ColoursAreBytes) {
    const INT window = target();
    INT pixel = trace_pix[13];
    trace_pix[200] = pixel;
    remplit_tableau_triangles({10, 10}, {10, 60}, {60, 60}, 200);
    EXPECT_GT(screen(window).count(pixel_of(13)), 1000);
}

TEST_F(TableFills, FillsGoIntoTheBackingPictureWhileMemoryDrawingIsOn) {
    const INT window = target();
    grx_alloue_image(window);
    test_trace_memoire(x_window(window));
    GRX_POINT_POLY points[2] = {{0, 100}, {9, 100}};
    remplit_tableau_triangles({10, 10}, {10, 60}, {60, 60}, 9);
    remplit_tableau_polygone(points, 2, 12);
    EXPECT_GT(memory(window).count(pixel_of(9)), 1000);
    EXPECT_EQ(memory(window).count(pixel_of(12)), 10);
    EXPECT_EQ(screen(window).count_other(background()), 0);
    grx_desalloue_image();
}

TEST_F(TableFills, HugeCornersAreHarmless) {
    const INT window = target();
    const short far[] = {SHRT_MIN, SHRT_MAX, 0, -1};
    for (const short x : far)
        for (const short y : far) remplit_tableau_triangles({x, y}, {SHRT_MAX, SHRT_MIN}, {SHRT_MIN, SHRT_MAX}, 9);
    grx_efface_zone_graphique(window);
    draw(window, point(attributes(9), 3, 3));
    EXPECT_EQ(screen(window).count(pixel_of(9)), 1);
}

} // namespace
