// Areas of pixels: joined, cut and uncovered.
#include "pure/area.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>

namespace {

using grx::Area;

TEST(AreaTest, HoldsBothPixelsItLiesBetween) {
    EXPECT_EQ(grx::area_between(5, 9, 2, 11), (Area{2, 9, 6, 12}));
    EXPECT_EQ(grx::area_between(INT32_MAX, 0, INT32_MIN, 0), (Area{INT32_MIN, 0, int64_t{INT32_MAX} + 1, 1}));
}

TEST(AreaTest, JoiningAnEmptyOneChangesNothing) {
    const Area a{1, 2, 3, 4};
    EXPECT_EQ(grx::join_areas(a, {}), a);
    EXPECT_EQ(grx::join_areas({9, 9, 9, 20}, a), a);
    EXPECT_EQ(grx::join_areas(a, {10, 0, 11, 3}), (Area{1, 0, 11, 4}));
}

TEST(AreaTest, AFullListGrowsItsLast) {
    std::array<Area, 2> list{};
    std::size_t count = 0;
    grx::add_area(list, count, {0, 0, 1, 1});
    grx::add_area(list, count, {});
    grx::add_area(list, count, {5, 5, 6, 6});
    grx::add_area(list, count, {8, 8, 9, 9});
    EXPECT_EQ(count, 2U);
    EXPECT_EQ(list[0], (Area{0, 0, 1, 1}));
    EXPECT_EQ(list[1], (Area{5, 5, 9, 9}));
}

TEST(AreaTest, WhatScrollingUncoversDoesNotOverlap) {
    for (int dx = -9; dx <= 9; ++dx) {
        for (int dy = -7; dy <= 7; ++dy) {
            const grx::Uncovered u = grx::uncovered_by(dx, dy, 8, 6);
            for (int x = 0; x < 8; ++x) {
                for (int y = 0; y < 6; ++y) {
                    const bool comes = x - dx >= 0 && x - dx < 8 && y - dy >= 0 && y - dy < 6;
                    int in = 0;
                    for (std::size_t i = 0; i < u.count; ++i) {
                        const Area& a = u.parts[i];
                        in += x >= a.left && x < a.right && y >= a.top && y < a.bottom ? 1 : 0;
                    }
                    ASSERT_EQ(in, comes ? 0 : 1) << dx << ", " << dy << " at " << x << ", " << y;
                }
            }
        }
    }
    EXPECT_EQ(grx::uncovered_by(0, 0, 8, 6).count, 0U);
    EXPECT_EQ(grx::uncovered_by(100, 100, 8, 6).count, 1U);
}

} // namespace
