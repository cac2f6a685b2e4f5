// The two vertical axes, and numbers that the toolkit cannot hold.
#include <gtest/gtest.h>

#include "pure/axis.h"

#include <climits>

namespace grxtest {
namespace {

TEST(Axis, TurningOverIsItsOwnInverse) {
    EXPECT_EQ(grx::turn_over_y(1024, 0), 1024);
    EXPECT_EQ(grx::turn_over_y(1024, 1024), 0);
    EXPECT_EQ(grx::turn_over_y(100, 130), -30);
    for (const int32_t y : {-50, 0, 1, 99, 5000}) EXPECT_EQ(grx::turn_over_y(700, grx::turn_over_y(700, y)), y);
}

TEST(Axis, ABoxIsPlacedByItsLowerEdge) {
    EXPECT_EQ(grx::top_of_box(1024, 0, 150), 874);
    EXPECT_EQ(grx::top_of_box(1024, 100, 150), 774);
    EXPECT_EQ(grx::top_of_box(100, 0, 300), -200);
    EXPECT_EQ(grx::top_of_box(100, -20, 30), 90);
}

TEST(Axis, HugeNumbersStopAtTheEnds) {
    EXPECT_EQ(grx::turn_over_y(INT_MAX, INT_MIN), INT_MAX);
    EXPECT_EQ(grx::turn_over_y(INT_MIN, INT_MAX), INT_MIN);
    EXPECT_EQ(grx::turn_over_y(0, INT_MIN), INT_MAX);
    EXPECT_EQ(grx::top_of_box(INT_MIN, INT_MAX, INT_MAX), INT_MIN);
    EXPECT_EQ(grx::top_of_box(INT_MAX, INT_MIN, INT_MIN), INT_MAX);
}

TEST(Axis, PositionsFit16Bits) {
    EXPECT_EQ(grx::as_position(-5), -5);
    EXPECT_EQ(grx::as_position(32767), 32767);
    EXPECT_EQ(grx::as_position(32768), 32767);
    EXPECT_EQ(grx::as_position(INT_MIN), -32768);
}

TEST(Axis, SizesAreWhatTheServerAccepts) {
    EXPECT_EQ(grx::as_size(1), 1);
    EXPECT_EQ(grx::as_size(640), 640);
    EXPECT_EQ(grx::as_size(0), 1);
    EXPECT_EQ(grx::as_size(-7), 1);
    EXPECT_EQ(grx::as_size(INT_MAX), 32767);
}

} // namespace
} // namespace grxtest
