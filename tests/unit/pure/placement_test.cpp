// Boxes centred on each other and kept within an area.
#include "pure/placement.h"

#include <gtest/gtest.h>

namespace {

using grx::Box;

TEST(Placement, CentredOnAnother) {
    EXPECT_EQ(grx::centred({0, 0, 100, 50}, {200, 300, 300, 150}), (Box{300, 350, 100, 50}));
    EXPECT_EQ(grx::centred({9, 9, 400, 50}, {200, 300, 300, 20}), (Box{150, 285, 400, 50})) << "larger than the other";
    EXPECT_EQ(grx::centred({0, 0, 3, 3}, {0, 0, 10, 10}), (Box{3, 3, 3, 3}));
}

TEST(Placement, KeptWithinAnArea) {
    const Box area{10, 40, 1000, 800};
    EXPECT_EQ(grx::kept_within({500, 500, 100, 100}, area), (Box{500, 500, 100, 100}));
    EXPECT_EQ(grx::kept_within({0, 0, 100, 100}, area), (Box{10, 40, 100, 100}));
    EXPECT_EQ(grx::kept_within({2000, 2000, 100, 100}, area), (Box{910, 740, 100, 100}));
    EXPECT_EQ(grx::kept_within({910, 740, 100, 100}, area), (Box{910, 740, 100, 100}));
    EXPECT_EQ(grx::kept_within({500, 500, 3000, 3000}, area), (Box{10, 40, 3000, 3000}))
        << "the upper left corner shows";
    EXPECT_EQ(grx::kept_within({INT32_MAX, INT32_MIN, INT32_MAX, 1}, area), (Box{10, 40, INT32_MAX, 1}));
}

} // namespace
