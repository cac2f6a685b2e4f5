// Pictures of icons made smaller and black and white.
#include "pure/icon_picture.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using grx::IconPicture;
using grx::Size;

TEST(IconPicture, FittedKeepsTheShape) {
    EXPECT_EQ(grx::fitted({48, 32}, 64), (Size{48, 32}));
    EXPECT_EQ(grx::fitted({128, 64}, 64), (Size{64, 32}));
    EXPECT_EQ(grx::fitted({1, 2048}, 64), (Size{1, 64}));
}

TEST(IconPicture, TheSameSizeIsTheSamePicture) {
    const std::vector<uint32_t> pixels{0xFF102030, 0xFFFFFFFF, 0x80FF0000, 0xFF000001};
    const IconPicture picture{{2, 2}, pixels};
    for (int32_t y = 0; y < 2; ++y)
        for (int32_t x = 0; x < 2; ++x) EXPECT_EQ(grx::sampled(picture, {2, 2}, x, y), picture.at(x, y));
}

TEST(IconPicture, SmallerIsTheMean) {
    const std::vector<uint32_t> pixels{0xFF000000, 0xFFFFFFFF, 0xFF000000, 0xFFFFFFFF};
    EXPECT_EQ(grx::sampled({{2, 2}, pixels}, {1, 1}, 0, 0), 0xFF7F7F7FU);
    const std::vector<uint32_t> half{0xFFFF0000, 0x0000FF00};
    EXPECT_EQ(grx::sampled({{2, 1}, half}, {1, 1}, 0, 0), 0x7FFF0000U) << "what cannot be seen has no colour";
    const std::vector<uint32_t> none{0x00123456, 0x00654321};
    EXPECT_EQ(grx::sampled({{2, 1}, none}, {1, 1}, 0, 0), 0U);
}

TEST(IconPicture, EveryPixelOfALargePictureCountsOnce) {
    constexpr int32_t side = 100, small = 7;
    std::vector<uint32_t> pixels(side * side, 0xFF000000);
    pixels[side * side - 1] = 0xFFFFFFFF;
    const IconPicture picture{{side, side}, pixels};
    int lit = 0;
    for (int32_t y = 0; y < small; ++y)
        for (int32_t x = 0; x < small; ++x) lit += grx::sampled(picture, {small, small}, x, y) != 0xFF000000 ? 1 : 0;
    EXPECT_EQ(lit, 1);
    EXPECT_NE(grx::sampled(picture, {small, small}, small - 1, small - 1), 0xFF000000);
}

TEST(IconPicture, TheBackgroundShowsThrough) {
    EXPECT_EQ(grx::argb::over(0xFF123456, 0xFFFFFFFF), 0xFF123456U);
    EXPECT_EQ(grx::argb::over(0x00123456, 0xFFABCDEF), 0xFFABCDEFU);
    EXPECT_EQ(grx::argb::over(0x80000000, 0xFFFFFFFF), 0xFF7F7F7FU);
}

TEST(IconPicture, GreysBecomePatterns) {
    const auto blacks = [](uint32_t pixel) {
        int count = 0;
        for (int32_t y = 0; y < 4; ++y)
            for (int32_t x = 0; x < 4; ++x) count += grx::black_at(pixel, x, y) ? 1 : 0;
        return count;
    };
    EXPECT_EQ(blacks(0xFF000000), 16);
    EXPECT_EQ(blacks(0xFFFFFFFF), 0);
    EXPECT_EQ(blacks(0xFF808080), 8);
    EXPECT_GT(blacks(0xFF0000FF), blacks(0xFF00FF00)) << "blue is darker than green";
}

} // namespace
