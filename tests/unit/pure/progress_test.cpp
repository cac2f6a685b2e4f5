// How far work within work is.
#include "pure/progress.h"

#include <limits>

#include "gtest/gtest.h"

namespace {

TEST(ProgressStack, OneLevel) {
    grx::ProgressStack<3> work;
    EXPECT_TRUE(work.empty());
    work.begin(200, 0);
    EXPECT_TRUE(work.known());
    EXPECT_EQ(work.share(), 0.0);
    work.set_done(50);
    EXPECT_EQ(work.share(), 0.25);
    work.set_done(1e300);
    EXPECT_EQ(work.share(), 1.0);
    work.set_done(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(work.share(), 1.0);
    work.set_done(-4);
    EXPECT_EQ(work.share(), 0.0);
}

TEST(ProgressStack, InnerWorkFillsItsPart) {
    grx::ProgressStack<3> work;
    work.begin(100, 0);
    work.set_done(20);
    work.begin(10, 40);
    work.set_done(5);
    EXPECT_DOUBLE_EQ(work.share(), 0.4);
    work.begin(2, 5); // half of the one around it
    work.set_done(1);
    EXPECT_DOUBLE_EQ(work.share(), 0.2 + 0.4 * 0.75);
    EXPECT_TRUE(work.full());
    work.end();
    work.set_done(10);
    EXPECT_DOUBLE_EQ(work.share(), 0.6);
    work.end();
    EXPECT_DOUBLE_EQ(work.share(), 0.2);
}

TEST(ProgressStack, OddValues) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    for (const double most : {0.0, -1.0, nan, std::numeric_limits<double>::infinity()}) {
        grx::ProgressStack<2> work;
        work.begin(most, 0);
        EXPECT_FALSE(work.known());
        work.set_done(5);
        EXPECT_EQ(work.share(), 0.0);
    }
    grx::ProgressStack<2> work;
    work.begin(10, 0);
    work.set_done(9);
    work.begin(10, 1e300);
    work.set_done(10);
    EXPECT_EQ(work.share(), 1.0);
}

} // namespace
