// Outlines and triangles filled from tables of points.
#include "tests/display/drawing/drawing_kit.h"
#include "tests/support/triangle_model.h"

#include "xt_prive.h"

#include <climits>

namespace {

using namespace grxtest;

class TableFills : public DrawingTest {
  protected:
    INT target() {
        const INT window = active_window();
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
    EXPECT_EQ(seen.count(drawn_pixel(9)), 51 + 40 + 50);
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
    EXPECT_EQ(seen.part({0, 0, width, 1}).count(drawn_pixel(9)), 1);
    EXPECT_EQ(seen.at(0, 0), drawn_pixel(9));
    EXPECT_EQ(seen.at(60, 1), drawn_pixel(9));
}

TEST_F(TableFills, TrianglesAreClampedToTheActiveWindow) {
    const INT window = target();
    remplit_tableau_triangles({0, 100}, {200, 100}, {100, 3000}, 9);
    EXPECT_GT(screen(window).at(100, height - 1), 0U);
    EXPECT_EQ(screen(window).at(100, height - 1), drawn_pixel(9));
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
    EXPECT_GT(screen(drawn).count(drawn_pixel(9)), 50);
    EXPECT_EQ(screen(drawn).bounds(drawn_pixel(9)).y, 10);
    EXPECT_EQ(screen(drawn).bounds(drawn_pixel(9)).height, 40); // rows 10 to 49
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
    EXPECT_EQ(screen(window).bounds(drawn_pixel(9)), (Area{10, 10, 51, 51}));
    EXPECT_EQ(screen(window).count_other(background()), screen(window).count(drawn_pixel(9)));
}

TEST_F(TableFills, ColoursAreBytes) {
    const INT window = target();
    INT pixel = trace_pix[13];
    trace_pix[200] = pixel;
    remplit_tableau_triangles({10, 10}, {10, 60}, {60, 60}, 200);
    EXPECT_GT(screen(window).count(drawn_pixel(13)), 1000);
}

TEST_F(TableFills, FillsGoIntoTheBackingPictureWhileMemoryDrawingIsOn) {
    const INT window = target();
    grx_alloue_image(window);
    test_trace_memoire(x_window(window));
    GRX_POINT_POLY points[2] = {{0, 100}, {9, 100}};
    remplit_tableau_triangles({10, 10}, {10, 60}, {60, 60}, 9);
    remplit_tableau_polygone(points, 2, 12);
    EXPECT_GT(memory(window).count(drawn_pixel(9)), 1000);
    EXPECT_EQ(memory(window).count(drawn_pixel(12)), 10);
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
    EXPECT_EQ(screen(window).count(drawn_pixel(9)), 1);
}

} // namespace
