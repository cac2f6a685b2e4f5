// Coordinates that the X protocol cannot carry.
#include <gtest/gtest.h>

#include "pure/clip.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <random>

namespace grxtest {
namespace {

using grx::clip_segment;
using grx::kBox;
using grx::Line;
using grx::Vertex;

TEST(Fits16, IsTheRangeOfTheProtocol) {
    EXPECT_TRUE(grx::fits16(32767));
    EXPECT_TRUE(grx::fits16(-32768));
    EXPECT_FALSE(grx::fits16(32768));
    EXPECT_FALSE(grx::fits16(-32769));
    EXPECT_FALSE(grx::fits16(INT_MAX));
    EXPECT_FALSE(grx::fits16(INT_MIN));
}

TEST(Fits16, OfSeveralIsAllOfThem) {
    EXPECT_TRUE(grx::fits16({0, -32768, 32767}));
    EXPECT_TRUE(grx::fits16(std::initializer_list<int32_t>{}));
    EXPECT_FALSE(grx::fits16({40000, 0, 0}));
    EXPECT_FALSE(grx::fits16({0, 40000, 0}));
    EXPECT_FALSE(grx::fits16({0, 0, 40000}));
}

TEST(Box, LiesInside16BitsWithRoomForWideLinesAndOutsideAnyWindow) {
    EXPECT_LT(kBox + 8, 32767);
    EXPECT_GT(kBox, 16384);
    EXPECT_GT(grx::kDashedBox, 8192);
    EXPECT_EQ(grx::into_box(0), 0);
    EXPECT_EQ(grx::into_box(kBox), kBox);
    EXPECT_EQ(grx::into_box(kBox + 1), kBox);
    EXPECT_EQ(grx::into_box(-kBox - 1), -kBox);
    EXPECT_EQ(grx::into_box(INT64_MAX), kBox);
    EXPECT_EQ(grx::into_box(INT64_MIN), -kBox);
}

TEST(ClipSegment, InsideIsUntouched) {
    const auto line = clip_segment(Line{-5, 10, 20000, -30000});
    ASSERT_TRUE(line);
    EXPECT_EQ(line->x1, -5);
    EXPECT_EQ(line->y1, 10);
    EXPECT_EQ(line->x2, 20000);
    EXPECT_EQ(line->y2, -30000);
}

TEST(ClipSegment, LevelAndUprightLinesAreCutAtTheBox) {
    const auto level = clip_segment(Line{INT_MIN, 77, INT_MAX, 77});
    ASSERT_TRUE(level);
    EXPECT_EQ(level->x1, -kBox);
    EXPECT_EQ(level->x2, kBox);
    EXPECT_EQ(level->y1, 77);
    EXPECT_EQ(level->y2, 77);
    const auto upright = clip_segment(Line{-3, INT_MAX, -3, 100});
    ASSERT_TRUE(upright);
    EXPECT_EQ(upright->y1, kBox);
    EXPECT_EQ(upright->y2, 100);
    EXPECT_EQ(upright->x1, -3);
    EXPECT_EQ(upright->x2, -3);
}

TEST(ClipSegment, DiagonalsAreCutAtTheCorners) {
    const auto line = clip_segment(Line{-2000000000, -2000000000, 2000000000, 2000000000});
    ASSERT_TRUE(line);
    EXPECT_EQ(line->x1, -kBox);
    EXPECT_EQ(line->y1, -kBox);
    EXPECT_EQ(line->x2, kBox);
    EXPECT_EQ(line->y2, kBox);
}

// However far it begins: a whole number of periods from there, before the box, within 16 bits.
TEST(ClipSegment, DashedOnesBeginAtAMultipleOfTheirPeriod) {
    std::mt19937 random(5);
    std::uniform_int_distribution<int32_t> far(-2000000, 2000000);
    int cut = 0;
    for (int i = 0; i < 20000; ++i) {
        const Line whole{far(random), far(random), far(random), far(random)};
        const grx::Dashes dashes{std::uniform_int_distribution<int32_t>(2, 48)(random), i % 2 == 0};
        const auto part = clip_segment(whole, dashes);
        if (!part) continue;
        EXPECT_TRUE(grx::fits16({part->x1, part->y1, part->x2, part->y2}));
        if (part->x1 == whole.x1 && part->y1 == whole.y1) continue;
        ++cut;
        const double dx = part->x1 - whole.x1, dy = part->y1 - whole.y1;
        const double along = dashes.wide ? std::hypot(dx, dy) : std::max(std::abs(dx), std::abs(dy));
        EXPECT_NEAR(std::remainder(along, dashes.period), 0.0, dashes.wide ? 0.75 : 1e-6);
        EXPECT_GE(std::max(std::abs(part->x1), std::abs(part->y1)), grx::kDashedBox - 1);
        const double length = std::hypot(part->x2 - part->x1, part->y2 - part->y1);
        EXPECT_LE(dashes.wide ? length : 0.0, 46340.0) << "servers compute its square";
    }
    EXPECT_GT(cut, 100);
}

TEST(ClipSegment, DashedOnesThatBeginInsideAreNotMoved) {
    const auto line = clip_segment(Line{17, 33, 1000000, 33}, {16, false});
    ASSERT_TRUE(line);
    EXPECT_EQ(line->x1, 17);
    EXPECT_EQ(line->y1, 33);
    EXPECT_EQ(line->x2, grx::kDashedBox);
}

TEST(ClipSegment, PassingByIsNothing) {
    EXPECT_FALSE(clip_segment(Line{40000, 0, 50000, 100}));
    EXPECT_FALSE(clip_segment(Line{0, -40000, 100, -30001}));
    EXPECT_FALSE(clip_segment(Line{INT_MIN, INT_MIN, INT_MIN, INT_MAX}));
    EXPECT_FALSE(clip_segment(Line{0, 100000, 100000, 0})); // past a corner
    EXPECT_FALSE(clip_segment(Line{40000, 40000, 40000, 40000}));
}

TEST(ClipSegment, APointInsideIsItself) {
    const auto line = clip_segment(Line{12, 34, 12, 34});
    ASSERT_TRUE(line);
    EXPECT_EQ(line->x1, 12);
    EXPECT_EQ(line->y2, 34);
}

// How far the cut line is from the true one in the middle of the box, where windows are.
double gap(const Line& whole, const Line& cut, double x) {
    const auto y_at = [x](const Line& l) { return l.y1 + (x - l.x1) * (double(l.y2) - l.y1) / (double(l.x2) - l.x1); };
    return std::abs(y_at(whole) - y_at(cut));
}

TEST(ClipSegment, StaysWithinHalfAPixelOfTheTrueLine) {
    std::mt19937 random(11);
    std::uniform_int_distribution<int> any(INT_MIN, INT_MAX), inside(0, 2000);
    int seen = 0;
    for (int i = 0; i < 20000; ++i) {
        const int px = inside(random), py = inside(random);       // a line through here
        const int64_t dx = any(random) / 4, dy = any(random) / 4; // that goes far
        if (std::abs(dx) < std::abs(dy) || dx == 0) continue;     // flat ones: y is a function of x
        const Line whole{
            static_cast<int>(px - dx), static_cast<int>(py - dy), static_cast<int>(px + dx), static_cast<int>(py + dy)};
        const auto cut = clip_segment(whole);
        ASSERT_TRUE(cut);
        for (const int v : {cut->x1, cut->y1, cut->x2, cut->y2}) ASSERT_LE(std::abs(v), kBox);
        for (const double x : {0.0, 700.0, 2000.0}) EXPECT_LE(gap(whole, *cut, x), 0.51); // the ends are rounded
        ++seen;
    }
    EXPECT_GT(seen, 5000);
}

TEST(ClipSegment, KeepsTheDirection) {
    const auto line = clip_segment(Line{100000, 10, -100000, 20});
    ASSERT_TRUE(line);
    EXPECT_GT(line->x1, line->x2);
    EXPECT_LE(line->y1, line->y2);
}

TEST(ClipSegment, TakesVertices) {
    const auto line = clip_segment(Vertex{-1e12, 5.0}, Vertex{1e12, 5.0});
    ASSERT_TRUE(line);
    EXPECT_EQ(line->x1, -kBox);
    EXPECT_EQ(line->x2, kBox);
    EXPECT_EQ(line->y1, 5);
    EXPECT_FALSE(clip_segment(Vertex{1e12, 0}, Vertex{2e12, 0}));
}

TEST(ArcPoints, GoCounterClockwiseFromThreeOClock) {
    const grx::Ellipse ellipse{100, 200, 30, 50};
    const auto near = [](Vertex v, double x, double y) {
        EXPECT_NEAR(v.x, x, 1e-9);
        EXPECT_NEAR(v.y, y, 1e-9);
    };
    near(grx::point_on(ellipse, 0), 130, 200);
    near(grx::point_on(ellipse, 90), 100, 150); // y downwards
    near(grx::point_on(ellipse, 180), 70, 200);
    near(grx::point_on(ellipse, -90), 100, 250);
    near(grx::point_on(ellipse, 450), 100, 150);
}

TEST(ArcSteps, KeepEveryChordWithinAQuarterOfAPixel) {
    for (const double radius : {20000.0, 1e5, 1e6, 1e7}) {
        for (const double degrees : {360.0, 90.0, -45.0, 1.0}) {
            const grx::Ellipse ellipse{0, 0, radius, radius / 3};
            const auto steps = grx::arc_steps(ellipse, degrees);
            ASSERT_GE(steps, 1U);
            ASSERT_LE(steps, grx::kMaxArcSteps);
            const double half = std::abs(degrees) / static_cast<double>(steps) / 2 * std::acos(-1.0) / 180;
            EXPECT_LE(radius * (1 - std::cos(half)), 0.25 + 1e-6) << radius << ' ' << degrees;
        }
    }
}

TEST(ArcSteps, AreBounded) {
    EXPECT_EQ(grx::arc_steps({0, 0, 4e9, 4e9}, 360), grx::kMaxArcSteps);
    EXPECT_GE(grx::arc_steps({0, 0, 0, 0}, 360), 1U);
    EXPECT_LE(grx::arc_steps({0, 0, 4e9, 4e9}, 2.0 * INT_MAX), grx::kMaxArcSteps);
}

} // namespace
} // namespace grxtest
