// Where things that pop up begin.
#include "pure/popup_place.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace {

using grx::popup_start;

TEST(PopupPlace, BeginsWhereItIsAskedForWhileThereIsRoom) {
    EXPECT_EQ(popup_start(0, 100, 1000), 0);
    EXPECT_EQ(popup_start(500, 100, 1000), 500);
    EXPECT_EQ(popup_start(900, 100, 1000), 900);
}

TEST(PopupPlace, GoesToTheOtherSideAtTheEnd) {
    EXPECT_EQ(popup_start(901, 100, 1000), 801);
    EXPECT_EQ(popup_start(1000, 100, 1000), 900);
}

TEST(PopupPlace, StaysOnTheScreen) {
    EXPECT_EQ(popup_start(-5, 100, 1000), 0);
    EXPECT_EQ(popup_start(INT64_MAX, 100, 1000), 900);
    EXPECT_EQ(popup_start(INT64_MIN, 100, 1000), 0);
    EXPECT_EQ(popup_start(550, 600, 1000), 400) << "no room on either side";
    EXPECT_EQ(popup_start(550, 5000, 1000), 0) << "longer than the screen";
    EXPECT_EQ(popup_start(0, INT32_MAX, 1000), 0);
}

} // namespace
