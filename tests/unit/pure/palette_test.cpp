// Colour arithmetic.
#include <gtest/gtest.h>

#include "pure/palette.h"

#include <array>
#include <climits>

namespace grxtest {
namespace {

using Triple = std::array<int32_t, 3>;

Triple icon(int32_t index) {
    return {grx::icon_component(index, 0), grx::icon_component(index, 1), grx::icon_component(index, 2)};
}

Triple shade(int32_t shade, int32_t hue) {
    return {
        grx::shade_component(shade, hue, 0), grx::shade_component(shade, hue, 1), grx::shade_component(shade, hue, 2)};
}

TEST(IconColours, AreTheFactorsTimes64CappedAt255) {
    const std::array<Triple, 16> expected{{{0, 0, 0}, {0, 0, 128}, {0, 128, 0}, {0, 128, 128}, {128, 0, 0},
        {128, 0, 128}, {128, 128, 0}, {128, 128, 128}, {64, 64, 64}, {0, 0, 255}, {0, 255, 0}, {0, 255, 255},
        {255, 0, 0}, {255, 0, 255}, {255, 255, 0}, {255, 255, 255}}};
    for (int32_t k = 0; k < 16; ++k) EXPECT_EQ(icon(k), expected[static_cast<std::size_t>(k)]) << k;
}

TEST(Shades, FactorsFallByFourEveryOther) {
    const std::array<int32_t, 16> expected{64, 32, 60, 28, 56, 24, 52, 20, 48, 16, 44, 12, 40, 8, 36, 4};
    for (int32_t s = 0; s < grx::kShades; ++s) EXPECT_EQ(grx::shade_factor(s), expected[static_cast<std::size_t>(s)]);
}

TEST(Shades, ExamplesAreRight) {
    EXPECT_EQ(shade(0, 15), (Triple{255, 255, 255}));
    EXPECT_EQ(shade(1, 7), (Triple{64, 64, 64}));
    EXPECT_EQ(shade(0, 0), (Triple{0, 0, 0}));
    EXPECT_EQ(shade(15, 12), (Triple{16, 0, 0}));
    EXPECT_EQ(shade(2, 15), (Triple{240, 240, 240}));
    EXPECT_EQ(shade(3, 8), (Triple{28, 28, 28}));
}

TEST(ColourMask, LowestBitIsTheShift) {
    EXPECT_EQ(grx::lowest_bit(0xFF0000), 16);
    EXPECT_EQ(grx::lowest_bit(0xFF00), 8);
    EXPECT_EQ(grx::lowest_bit(0xFF), 0);
    EXPECT_EQ(grx::lowest_bit(0xF800), 11);
    EXPECT_EQ(grx::lowest_bit(1UL << 31), 31);
    EXPECT_EQ(grx::lowest_bit(0), 32);
}

TEST(Pixels, AreTheShiftedComponents) {
    const Triple colour{1, 2, 3};
    EXPECT_EQ(grx::compose_pixel({16, 8, 0}, colour.data()), 0x010203);
    EXPECT_EQ(grx::compose_pixel({0, 8, 16}, colour.data()), 0x030201);
    EXPECT_EQ(grx::compose_pixel({0, 0, 0}, colour.data()), 6); // the sum
    const Triple full{255, 255, 255};
    EXPECT_EQ(grx::compose_pixel({24, 16, 8}, full.data()), static_cast<int32_t>(0xFFFFFF00));
}

TEST(Pixels, GiveTheirComponentsBack) {
    EXPECT_EQ(grx::component_of(0x123456, 16), 0x12);
    EXPECT_EQ(grx::component_of(0x123456, 8), 0x34);
    EXPECT_EQ(grx::component_of(0x123456, 0), 0x56);
    EXPECT_EQ(grx::component_of(-1, 24), 255);
    EXPECT_EQ(grx::component_of(-1, 32), 0); // no such mask
}

TEST(Pixels, HostileTriplesStayInside) {
    const Triple wild{INT_MAX, INT_MIN, -1};
    EXPECT_EQ(grx::compose_pixel({16, 8, 0}, wild.data()), 0xFF0000);
    EXPECT_EQ(grx::compose_pixel({32, 32, 32}, wild.data()), 0);
}

} // namespace
} // namespace grxtest
