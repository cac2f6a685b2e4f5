// The integer stepping of the triangle fill, against the same rules told once more, and of lines in pixel arrays.
#include <gtest/gtest.h>

#include "tests/support/triangle_model.h"

#include "pure/triangle.h"
#include "xt_gfx_f.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstdlib>
#include <random>
#include <vector>

namespace grxtest {
namespace {

using grx::EdgeTable;
using grx::GridPoint;

struct Filler {
    EdgeTable short_edges{};
    EdgeTable long_edge{};

    TriangleModel::Spans fill(int height, GridPoint a, GridPoint b, GridPoint c) {
        const auto rows = grx::step_triangle(short_edges, long_edge, height, {a, b, c});
        TriangleModel::Spans result;
        for (int y = rows.first_row; y <= rows.last_row; ++y)
            result[y] = {short_edges.at(static_cast<std::size_t>(y)), long_edge.at(static_cast<std::size_t>(y))};
        return result;
    }
};

TriangleModel::Corner corner(GridPoint p) {
    return {p.x, p.y};
}

void expect_as_stated(int height, GridPoint a, GridPoint b, GridPoint c) {
    TriangleModel model;
    Filler filler;
    EXPECT_EQ(filler.fill(height, a, b, c), model.fill(height, {corner(a), corner(b), corner(c)}))
        << a.x << ',' << a.y << ' ' << b.x << ',' << b.y << ' ' << c.x << ',' << c.y << " in " << height;
}

TEST(TriangleStepping, StepsASteepEdgeRowByRow) {
    EdgeTable table{};
    table.fill(-7);
    grx::step_edge(table, 100, {10, 4}, {12, 9});
    EXPECT_EQ(
        (std::vector<int>(table.begin() + 3, table.begin() + 11)), (std::vector<int>{-7, 10, 10, 11, 11, 12, 12, -7}));
}

TEST(TriangleStepping, StepsAWideEdgeByTheFirstXOfEachRow) {
    EdgeTable table{};
    table.fill(-7);
    grx::step_edge(table, 100, {10, 4}, {17, 6});
    EXPECT_EQ(table[4], 10);
    // the error runs -3, 1, -9, -5, -1, 3, -7, -3: the row advances where it is positive, at x 11 and 15
    EXPECT_EQ(table[5], 11);
    EXPECT_EQ(table[6], 15);
    EXPECT_EQ(table[7], -7);
    EXPECT_EQ(table[3], -7);
}

TEST(TriangleStepping, AWideEdgeMayStoreOneRowMoreThanItHas) {
    EdgeTable table{};
    table.fill(-7);
    grx::step_edge(table, 100, {10, 4}, {15, 8}); // six steps, the error 3, 1, -1, 7, 5, 3
    EXPECT_EQ(
        (std::vector<int>(table.begin() + 4, table.begin() + 11)), (std::vector<int>{10, 10, 11, 13, 14, 15, -7}));
}

TEST(TriangleStepping, StoresTheStartOfAHorizontalEdgeOnly) {
    EdgeTable table{};
    table.fill(-7);
    grx::step_edge(table, 100, {10, 4}, {50, 4});
    EXPECT_EQ(table[4], 10);
    EXPECT_EQ(std::count(table.begin(), table.end(), -7), grx::kTriangleRows - 1);
}

TEST(TriangleStepping, NeverStoresRowZeroNorRowsOutside) {
    EdgeTable table{};
    table.fill(-7);
    grx::step_edge(table, 10, {3, -5}, {3, 20});
    EXPECT_EQ(table[0], -7);
    for (std::size_t y = 1; y < 10; ++y) EXPECT_EQ(table[y], 3) << y;
    EXPECT_EQ(table[10], -7);
}

TEST(TriangleStepping, ATableHoldsFifteenHundredRows) {
    EXPECT_EQ(EdgeTable{}.size(), 1500U);
    EdgeTable table{};
    grx::step_edge(table, 100000, {3, 1400}, {3, 20000});
    EXPECT_EQ(table[1499], 3);
}

TEST(TriangleFill, RowsRunFromTheLeastToTheGreatestY) {
    Filler filler;
    const auto rows = grx::step_triangle(filler.short_edges, filler.long_edge, 200, {{{10, 90}, {50, 20}, {90, 60}}});
    EXPECT_EQ(rows.first_row, 20);
    EXPECT_EQ(rows.last_row, 90);
}

TEST(TriangleFill, IsClampedToTheTarget) {
    Filler filler;
    const auto rows = grx::step_triangle(filler.short_edges, filler.long_edge, 50, {{{10, -30}, {50, 20}, {90, 400}}});
    EXPECT_EQ(rows.first_row, 0);
    EXPECT_EQ(rows.last_row, 49);
}

TEST(TriangleFill, OutsideHasNoRows) {
    const auto rows_of = [](int height, int a, int b, int c) {
        Filler filler;
        return filler.fill(height, {1, a}, {2, b}, {3, c}).size();
    };
    EXPECT_EQ(rows_of(50, 50, 60, 70), 0U); // the least y is not below the height
    EXPECT_EQ(rows_of(50, 49, 60, 70), 1U);
    EXPECT_EQ(rows_of(50, -9, -5, 0), 0U); // the greatest is not above 0
    EXPECT_EQ(rows_of(50, -9, -5, 1), 2U); // rows 0 and 1
    EXPECT_EQ(rows_of(0, 1, 2, 3), 0U);
    EXPECT_EQ(rows_of(-5, -10, 2, 3), 0U);
}

TEST(TriangleFill, RowZeroShowsWhatTheTablesHold) {
    Filler filler;
    const auto spans = filler.fill(50, {10, 0}, {30, 0}, {20, 20});
    EXPECT_EQ(spans.at(0), std::pair(0, 0));
    EXPECT_NE(spans.at(1), std::pair(0, 0));
}

TEST(TriangleFill, TiesKeepTheOrderOfTheCorners) {
    const std::vector<GridPoint> flat{{10, 40}, {70, 40}, {30, 40}};
    const std::vector<GridPoint> flat_low{{10, 20}, {70, 20}, {35, 60}};
    const std::vector<GridPoint> flat_high{{10, 80}, {70, 80}, {35, 60}};
    for (const auto& points : {flat, flat_low, flat_high}) {
        std::vector<std::size_t> order{0, 1, 2};
        do expect_as_stated(100, points[order[0]], points[order[1]], points[order[2]]);
        while (std::next_permutation(order.begin(), order.end()));
    }
}

TEST(TriangleFill, TiesAreSeen) { // the two orders of an edge at the least y really differ
    Filler one, other;
    EXPECT_NE(one.fill(100, {35, 60}, {10, 50}, {70, 50}), other.fill(100, {35, 60}, {70, 50}, {10, 50}));
}

TEST(TriangleFill, EveryOrderOfTheCornersGivesTheSameRows) {
    std::vector<GridPoint> points{{10, 11}, {90, 33}, {40, 77}};
    std::vector<std::size_t> order{0, 1, 2};
    Filler first;
    const auto expected = first.fill(100, points[0], points[1], points[2]);
    do {
        Filler filler;
        EXPECT_EQ(filler.fill(100, points[order[0]], points[order[1]], points[order[2]]), expected);
    } while (std::next_permutation(order.begin(), order.end()));
}

TEST(TriangleFill, PointsAndLinesAreTriangles) {
    expect_as_stated(100, {5, 5}, {5, 5}, {5, 5});
    expect_as_stated(100, {5, 5}, {5, 5}, {50, 9});
    expect_as_stated(100, {5, 5}, {5, 90}, {5, 9});
    expect_as_stated(100, {0, 10}, {30, 20}, {60, 30});
}

TEST(TriangleFill, RandomTrianglesAreAsStated) {
    std::mt19937 random(20041);
    std::uniform_int_distribution<int> near(-60, 260), far(-32768, 32767), high(1, 1500);
    for (int i = 0; i < 4000; ++i)
        expect_as_stated(200, {near(random), near(random)}, {near(random), near(random)}, {near(random), near(random)});
    for (int i = 0; i < 60; ++i)
        expect_as_stated(
            high(random), {far(random), far(random)}, {far(random), far(random)}, {far(random), far(random)});
}

TEST(TriangleFill, RunsOfTrianglesShareTheTables) {
    std::mt19937 random(7);
    std::uniform_int_distribution<int> at(-20, 120);
    TriangleModel model;
    Filler filler;
    for (int i = 0; i < 500; ++i) {
        const GridPoint a{at(random), at(random)}, b{at(random), at(random)}, c{at(random), at(random)};
        ASSERT_EQ(filler.fill(100, a, b, c), model.fill(100, {corner(a), corner(b), corner(c)})) << "triangle " << i;
    }
}

TEST(TriangleFill, TallerTargetsAreCutAtTheTables) {
    Filler filler;
    const auto rows =
        grx::step_triangle(filler.short_edges, filler.long_edge, 3000, {{{10, 1400}, {50, 2000}, {90, 2900}}});
    EXPECT_EQ(rows.first_row, 1400);
    EXPECT_EQ(rows.last_row, 1499);
}

// --- lines in an array ------------------------------------------------------------------------------------

std::vector<TriangleModel::Corner> line(GridPoint from, GridPoint to) {
    std::vector<TriangleModel::Corner> result;
    grx::step_line(from, to, [&](int x, int y) { result.push_back({x, y}); });
    return result;
}

TEST(LineStepping, HoldsBothEndsAndLeavesNoGap) {
    std::mt19937 random(3);
    std::uniform_int_distribution<int> at(-40, 40);
    for (int i = 0; i < 500; ++i) {
        const GridPoint from{at(random), at(random)}, to{at(random), at(random)};
        const auto points = line(from, to);
        const int dx = std::abs(to.x - from.x), dy = std::abs(to.y - from.y);
        ASSERT_EQ(points.size(), static_cast<std::size_t>(std::max(dx, dy)) + 1);
        EXPECT_EQ(points.front().x, from.x);
        EXPECT_EQ(points.front().y, from.y);
        EXPECT_EQ(points.back().x, to.x);
        EXPECT_EQ(points.back().y, to.y);
        for (const auto& p : points) // never more than half a pixel from the true line
            EXPECT_LE(
                2 * std::abs((p.x - from.x) * (to.y - from.y) - (p.y - from.y) * (to.x - from.x)), std::max(dx, dy));
    }
}

TEST(LineStepping, OfNoLengthIsOnePoint) {
    EXPECT_EQ(line({4, 5}, {4, 5}).size(), 1U);
}

// --- fills of pixel arrays ---------------------------------------------------------------------------------

class ArrayFill : public testing::Test {
  protected:
    static constexpr int wide = 60, high = 40;
    static constexpr uchar ground = 7;

    using Picture = std::vector<uchar>;
    Picture picture = Picture(wide * high, ground);

    static uchar& at(Picture& of, int x, int y) { return of.at(static_cast<std::size_t>(y * wide + x)); }
    std::ptrdiff_t painted() const { return std::count_if(picture.begin(), picture.end(), is_painted); }
    static bool is_painted(uchar byte) { return byte != ground; }

    static void paint(Picture& target, const TriangleModel::Spans& spans, uchar colour) {
        for (const auto& [y, span] : spans) {
            const auto [left, right] = std::minmax(span.first, span.second);
            for (int x = std::max(0, left); x <= std::min(wide - 1, right); ++x) at(target, x, y) = colour;
        }
    }
};

TEST_F(ArrayFill, TrianglesAreTheSameRows) {
    std::mt19937 random(8);
    std::uniform_int_distribution<int> any(-25, 90);
    TriangleModel model;
    Picture expected = picture;
    for (int i = 0; i < 400; ++i) {
        std::array<GRX_POINT_POLY, 3> p{};
        for (auto& corner : p) corner = {static_cast<short>(any(random)), static_cast<short>(any(random))};
        const auto colour = static_cast<uchar>(i);
        EXPECT_EQ(remplit_tableau_triangles_reel(picture.data(), wide, high, p[0], p[1], p[2], colour), 0);
        paint(expected, model.fill(high, {{{p[0].x, p[0].y}, {p[1].x, p[1].y}, {p[2].x, p[2].y}}}), colour);
        ASSERT_EQ(picture, expected) << "triangle " << i;
    }
}

TEST_F(ArrayFill, OutlinesAreOpenAndExactOnStraightSides) {
    GRX_POINT_POLY corners[4] = {{10, 10}, {30, 10}, {30, 25}, {15, 10}};
    EXPECT_EQ(remplit_tableau_polygone_reel(picture.data(), wide, high, corners, 4, 3), 0);
    for (int x = 10; x <= 30; ++x) EXPECT_EQ(at(picture, x, 10), 3);
    for (int y = 10; y <= 25; ++y) EXPECT_EQ(at(picture, 30, y), 3);
    for (int k = 0; k <= 15; ++k) EXPECT_EQ(at(picture, 15 + k, 10 + k), 3);
    EXPECT_EQ(painted(), 21 + 15 + 14);
}

TEST_F(ArrayFill, OutlinesAreClipped) {
    GRX_POINT_POLY corners[2] = {{-100, 5}, {200, 5}};
    EXPECT_EQ(remplit_tableau_polygone_reel(picture.data(), wide, high, corners, 2, 3), 0);
    EXPECT_EQ(painted(), wide);
    GRX_POINT_POLY upright[2] = {{6, SHRT_MIN}, {6, SHRT_MAX}};
    EXPECT_EQ(remplit_tableau_polygone_reel(picture.data(), wide, high, upright, 2, 3), 0);
    EXPECT_EQ(painted(), wide + high - 1);
}

TEST_F(ArrayFill, FewPointsAndNoArraysAreNothing) {
    GRX_POINT_POLY corners[2] = {{5, 5}, {9, 5}};
    for (const int count : {1, 0, -1, INT_MIN})
        EXPECT_EQ(remplit_tableau_polygone_reel(picture.data(), wide, high, corners, count, 3), 0);
    EXPECT_EQ(remplit_tableau_polygone_reel(picture.data(), wide, high, nullptr, 2, 3), 0);
    EXPECT_EQ(remplit_tableau_polygone_reel(nullptr, wide, high, corners, 2, 3), 0);
    EXPECT_EQ(remplit_tableau_triangles_reel(nullptr, wide, high, {1, 1}, {9, 9}, {1, 9}, 3), 0);
    for (const int size : {0, -1, INT_MIN}) {
        EXPECT_EQ(remplit_tableau_polygone_reel(picture.data(), size, high, corners, 2, 3), 0);
        EXPECT_EQ(remplit_tableau_polygone_reel(picture.data(), wide, size, corners, 2, 3), 0);
        EXPECT_EQ(remplit_tableau_triangles_reel(picture.data(), size, high, {1, 1}, {9, 9}, {1, 9}, 3), 0);
        EXPECT_EQ(remplit_tableau_triangles_reel(picture.data(), wide, size, {1, 1}, {9, 9}, {1, 9}, 3), 0);
    }
    EXPECT_EQ(painted(), 0);
}

TEST_F(ArrayFill, FarCornersStayInside) {
    Picture guarded(wide * high + 2000, ground);
    uchar* tab = guarded.data() + 1000;
    for (const short x : {short{SHRT_MIN}, short{SHRT_MAX}, short{20}})
        for (const short y : {short{SHRT_MIN}, short{SHRT_MAX}, short{20}})
            remplit_tableau_triangles_reel(tab, wide, high, {x, y}, {SHRT_MAX, SHRT_MIN}, {SHRT_MIN, SHRT_MAX}, 3);
    EXPECT_EQ(std::count(guarded.begin(), guarded.begin() + 1000, ground), 1000);
    EXPECT_EQ(std::count(guarded.end() - 1000, guarded.end(), ground), 1000);
    EXPECT_GT(std::count(guarded.begin(), guarded.end(), 3), 100);
}

TEST_F(ArrayFill, TallPicturesAreFilledDownToTheTables) {
    constexpr int tall = 3000;
    Picture strip(tall, ground);
    EXPECT_EQ(remplit_tableau_triangles_reel(strip.data(), 1, tall, {0, 1}, {0, 2900}, {0, 2900}, 3), 0);
    EXPECT_EQ(strip[1499], 3);
    EXPECT_EQ(std::count(strip.begin(), strip.end(), 3), 1499);
}

} // namespace
} // namespace grxtest
