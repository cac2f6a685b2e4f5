// The primitives of windows and buttons, by the pixels that come of them.
#include "tests/display/drawing/drawing_kit.h"

#include <Xm/DrawingA.h>
#include <Xm/Xm.h>

#include <climits>
#include <cstring>
#include <vector>

namespace {

using namespace grxtest;
using Kind = Primitive::Kind;

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
    for (INT k = 0; k < colours; ++k) EXPECT_EQ(seen.at(5 * k + 2, 5), drawn_pixel(k)) << k;
}

TEST_F(PrimitiveTest, RenderingColoursAreDrawnByTheirAbsoluteIndex) {
    const INT window = graphic_window();
    const INT first = grx_premier_index_rendu();
    trace_pix[first] = trace_pix[13]; // what grx_modif_rgb would do, without needing a colour cell
    draw(window, filled(attributes(first), 0, 0, 9, 9));
    EXPECT_EQ(screen(window).count(drawn_pixel(13)), 100);
}

TEST_F(PrimitiveTest, APointIsOnePixel) {
    const INT window = graphic_window();
    draw(window, point(attributes(9, 3, 0, 5, 7), 20, 30));
    EXPECT_EQ(screen(window).bounds(drawn_pixel(9)), (Area{20, 30, 1, 1}));
    EXPECT_EQ(screen(window).count_other(background()), 1);
}

TEST_F(PrimitiveTest, ASegmentHoldsBothEnds) {
    const INT window = graphic_window();
    draw(window, segment(attributes(9), 20, 30, 60, 30));
    EXPECT_EQ(screen(window).bounds(drawn_pixel(9)), (Area{20, 30, 41, 1}));
    EXPECT_EQ(screen(window).count(drawn_pixel(9)), 41);
}

TEST_F(PrimitiveTest, RectanglesTakeTheirCornersInAnyOrder) {
    const INT window = graphic_window();
    for (const auto& c :
        std::vector<std::array<INT, 4>>{{10, 10, 5, 20}, {5, 20, 10, 10}, {5, 10, 10, 20}, {10, 20, 5, 10}}) {
        grx_efface_zone_graphique(window);
        draw(window, rectangle(attributes(9), c[0], c[1], c[2], c[3]));
        EXPECT_EQ(screen(window).bounds(drawn_pixel(9)), (Area{5, 10, 6, 11}));
        EXPECT_EQ(screen(window).count(drawn_pixel(9)), 2 * 6 + 2 * 9);
        draw(window, filled(attributes(12), c[0], c[1], c[2], c[3]));
        EXPECT_EQ(screen(window).bounds(drawn_pixel(12)), (Area{5, 10, 6, 11}));
        EXPECT_EQ(screen(window).count(drawn_pixel(12)), 66);
        EXPECT_EQ(screen(window).count(drawn_pixel(9)), 0); // the fill covers the outline
    }
}

TEST_F(PrimitiveTest, AFilledRectangleOfNoSizeIsAPoint) {
    const INT window = graphic_window();
    draw(window, filled(attributes(9), 30, 40, 30, 40));
    EXPECT_EQ(screen(window).bounds(drawn_pixel(9)), (Area{30, 40, 1, 1}));
}

TEST_F(PrimitiveTest, AFullArcIsAnEllipse) {
    const INT window = graphic_window();
    draw(window, arc(attributes(9), 50, 40, 100, 60, 0, 360));
    const Pixels seen = screen(window);
    EXPECT_EQ(seen.bounds(drawn_pixel(9)), (Area{50, 40, 101, 61}));
    EXPECT_EQ(seen.at(50, 70), drawn_pixel(9));
    EXPECT_EQ(seen.at(150, 70), drawn_pixel(9));
    EXPECT_EQ(seen.at(100, 40), drawn_pixel(9));
    EXPECT_EQ(seen.at(100, 100), drawn_pixel(9));
    EXPECT_EQ(seen.at(100, 70), background());
}

TEST_F(PrimitiveTest, ASmallerEndAngleGoesClockwise) {
    const INT window = graphic_window();
    draw(window, arc(attributes(9), 50, 40, 100, 100, 90, 0));
    EXPECT_EQ(screen(window).bounds(drawn_pixel(9)), (Area{100, 40, 51, 51})); // the upper right quarter
    const Pixels clockwise = screen(window);
    grx_efface_zone_graphique(window);
    draw(window, arc(attributes(9), 50, 40, 100, 100, 0, 90));
    EXPECT_EQ(screen(window).bounds(drawn_pixel(9)), (Area{100, 40, 51, 51}));
    grx_efface_zone_graphique(window);
    draw(window, arc(attributes(9), 50, 40, 100, 100, 90, 360)); // the other three
    EXPECT_EQ(screen(window).at(50, 90), drawn_pixel(9));
    const Area upper_right{110, 45, 35, 35};
    EXPECT_EQ(screen(window).part(upper_right).count(drawn_pixel(9)), 0);
    EXPECT_GT(clockwise.part(upper_right).count(drawn_pixel(9)), 20);
}

TEST_F(PrimitiveTest, AFilledArcIsAPieSlice) {
    const INT window = graphic_window();
    draw(window, {Kind::filled_arc, attributes(9), {50, 40, 100, 100, 0, 90}, {}});
    const Pixels seen = screen(window);
    EXPECT_EQ(seen.at(110, 80), drawn_pixel(9)); // beside the centre: a chord would not reach it
    EXPECT_EQ(seen.at(95, 95), background());
    EXPECT_EQ(seen.at(90, 80), background());
}

TEST_F(PrimitiveTest, CrossingPolygonsHaveHoles) {
    const INT window = graphic_window();
    draw(window, {Kind::polygon, attributes(9), {}, {{60, 10}, {90, 110}, {5, 45}, {115, 45}, {30, 110}}});
    EXPECT_EQ(screen(window).at(60, 65), background()); // the middle of the star
    EXPECT_EQ(screen(window).at(60, 25), drawn_pixel(9));
}

TEST_F(PrimitiveTest, TrianglesMayHaveMoreCornersAndANotch) {
    const INT window = graphic_window();
    const Primitive wedge{Kind::triangle, attributes(9), {}, {{10, 10}, {60, 60}, {110, 10}, {60, 110}}};
    draw(window, wedge);
    PlainPicture plain(x11_disp, width, height, background());
    plain.draw(wedge);
    EXPECT_TRUE(same(screen(window), plain.pixels()));
    EXPECT_EQ(screen(window).at(60, 25), background()); // the notch
    EXPECT_EQ(screen(window).at(60, 80), drawn_pixel(9));
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
    EXPECT_EQ(screen(window).count(drawn_pixel(9)), 100);
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
            ASSERT_EQ(seen.at(x, 30), drawn_pixel(part % 2 == 0 ? 9 : 12)) << "style " << pattern.style << ", x " << x;
        }
    }
}

TEST_F(PrimitiveTest, TopLevelColoursAndStyleAreNotRead) {
    const INT window = graphic_window();
    grx_trace_segment({window, 10, 20, 90, 20, 13, 14, 3, attributes(9)});
    EXPECT_EQ(screen(window).count(drawn_pixel(9)), 81);
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
        grx_trace_texte_bouton(text_at(number, 10, 10, "abc", 9));
        grx_efface_zone_graphique_bouton(number);
    }
    for (const INT number : {0, -1, 100, free_number, INT_MAX}) {
        grx_ecrit_fenetre(text_at(number, 10, 10, "abc", 9));
        grx_efface_chaine(text_at(number, 10, 10, "abc", 9));
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
    EXPECT_EQ(screen(window).count(drawn_pixel(9)), 51);
}

TEST_F(PrimitiveTest, WindowsThatAreNotRealisedTakeNothing) {
    const INT window = window_of(GRX_FEN_ALPHA, {40, 60, 300, 300});
    Widget unborn = XmCreateDrawingArea(grx_recup_objet_fen(window), const_cast<char*>("unborn"), nullptr, 0);
    const INT number = grx_recup_indice_objet_fen_libre();
    grx_affecte_objet_fen(number, unborn);
    RandomPrimitives shapes(4, width, height);
    for (int kind = 0; kind < Primitive::kinds; ++kind) draw(number, shapes.next(static_cast<Kind>(kind)));
    grx_ecrit_fenetre(text_at(number, 10, 10, "abc", 9));
    grx_efface_zone_graphique(number);
    EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
    grx_libere_indice_objet_fen(number);
}

TEST_F(PrimitiveTest, TheBackgroundSettingReachesErasingAtOnce) {
    const INT window = graphic_window();
    draw(window, filled(attributes(9, 0, erase_mode), 0, 0, 9, 9));
    grx_affecte_couleur_fond(13);
    grx_reinit_gc();
    draw(window, filled(attributes(9, 0, erase_mode), 0, 0, 9, 9));
    EXPECT_EQ(screen(window).count(drawn_pixel(13)), 100);
}

// --- buttons ---------------------------------------------------------------------------------------------------

class ButtonDrawing : public DrawingTest {
  protected:
    void expect_twins_like_plain(INT button) {
        PlainPicture plain(x11_disp, width, height, drawn_pixel(0));
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
    EXPECT_EQ(button_screen(button).count(drawn_pixel(9)), 100);
    EXPECT_EQ(differences(screen(window_), window_before), 100); // a picture of a window holds its children
    EXPECT_EQ(screen(window_).bounds(drawn_pixel(9)), (Area{20, 20, 10, 10}));
}

TEST_F(ButtonDrawing, ATextIsRaisedByTheDescent) {
    const INT button = registered_area();
    draw_on_button(button, filled(attributes(0), 0, 0, width - 1, height - 1));
    grx_trace_texte_bouton(text_at(button, 30, 60, "Agjp|_", 9, 3));
    PlainPicture plain(x11_disp, width, height, drawn_pixel(0));
    plain.apply(attributes(9, 3));
    XSetFont(x11_disp, plain.context(), fontstruct->fid);
    XDrawString(x11_disp, plain.pixmap(), plain.context(), 30, 60 - fontstruct->descent, "Agjp|_", 6);
    EXPECT_TRUE(same(button_screen(button), plain.pixels()));
    EXPECT_GT(plain.pixels().count(drawn_pixel(9)), 20);
    EXPECT_LT(plain.pixels().bounds(drawn_pixel(9)).y + plain.pixels().bounds(drawn_pixel(9)).height, 61);
}

TEST_F(ButtonDrawing, ATextUsesAttribNotTheTopLevelColours) {
    const INT button = registered_area();
    draw_on_button(button, filled(attributes(0), 0, 0, width - 1, height - 1));
    auto text = text_at(button, 30, 60, "abc", 13);
    text.attrib = attributes(9, 0, xor_mode);
    grx_trace_texte_bouton(text);
    EXPECT_GT(button_screen(button).count(drawn_pixel(9)), 10);
    EXPECT_EQ(button_screen(button).count(drawn_pixel(13)), 0);
    grx_trace_texte_bouton(text);
    EXPECT_EQ(button_screen(button).count_other(drawn_pixel(0)), 0);
}

TEST_F(ButtonDrawing, ATextWithoutEndIsCutAtItsField) {
    const INT button = registered_area();
    auto text = text_at(button, 0, 40, "", 9);
    std::memset(text.chaine, 'M', sizeof text.chaine);
    grx_trace_texte_bouton(text);
    draw_on_button(button, filled(attributes(0), 0, 0, width - 1, height - 1));
    text.chaine[0] = '\0';
    grx_trace_texte_bouton(text);
    EXPECT_EQ(button_screen(button).count_other(drawn_pixel(0)), 0);
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
    EXPECT_EQ(screen(window).count(drawn_pixel(9)), 200);
}

} // namespace
