// Which decorations and functions the attribute bits of a window take away.
#include <gtest/gtest.h>

#include "pure/decorations.h"

#include <Xm/MwmUtil.h>

namespace grxtest {
namespace {

void expect_masks(int32_t attributes, int32_t decorations, int32_t functions) {
    const auto masks = grx::decorations_for(attributes);
    EXPECT_EQ(masks.decorations, decorations) << attributes;
    EXPECT_EQ(masks.functions, functions) << attributes;
}

TEST(Decorations, StartAtAll) {
    expect_masks(0, MWM_DECOR_ALL, MWM_FUNC_ALL);
    expect_masks(16, MWM_DECOR_ALL, MWM_FUNC_ALL);
    expect_masks(0x1000 | 0x2000 | 0x4000, MWM_DECOR_ALL, MWM_FUNC_ALL);
}

TEST(Decorations, EveryBitTakesItsItems) {
    expect_masks(1, 1 + 8, 1);
    expect_masks(4, 1 + 16 + 32 + 64, 1);
    expect_masks(2, 1 + 2 + 4, 1);
    expect_masks(8, 1 + 4, 1 + 2);
    expect_masks(32, 1 + 64, 1 + 16);
    expect_masks(64, 1 + 32, 1 + 8);
}

TEST(Decorations, AreTheItemsOfTheManager) {
    expect_masks(1, MWM_DECOR_ALL | MWM_DECOR_TITLE, MWM_FUNC_ALL);
    expect_masks(4, MWM_DECOR_ALL | MWM_DECOR_MENU | MWM_DECOR_MINIMIZE | MWM_DECOR_MAXIMIZE, MWM_FUNC_ALL);
    expect_masks(2, MWM_DECOR_ALL | MWM_DECOR_BORDER | MWM_DECOR_RESIZEH, MWM_FUNC_ALL);
    expect_masks(8, MWM_DECOR_ALL | MWM_DECOR_RESIZEH, MWM_FUNC_ALL | MWM_FUNC_RESIZE);
    expect_masks(32, MWM_DECOR_ALL | MWM_DECOR_MAXIMIZE, MWM_FUNC_ALL | MWM_FUNC_MAXIMIZE);
    expect_masks(64, MWM_DECOR_ALL | MWM_DECOR_MINIMIZE, MWM_FUNC_ALL | MWM_FUNC_MINIMIZE);
}

// Items that two bits share are taken once: adding would turn 4 + 4 into the title bar.
TEST(Decorations, SharedItemsAreTakenOnce) {
    expect_masks(2 | 8, 1 + 2 + 4, 1 + 2);
    expect_masks(4 | 32, 1 + 16 + 32 + 64, 1 + 16);
    expect_masks(4 | 64, 1 + 16 + 32 + 64, 1 + 8);
    expect_masks(1 | 2 | 4 | 8 | 32 | 64, 127, 1 + 2 + 8 + 16);
    expect_masks(-1, 127, 1 + 2 + 8 + 16);
}

} // namespace
} // namespace grxtest
