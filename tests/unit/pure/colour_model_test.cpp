// The two colour models of the palette window, against the formulas told once more.
#include "xt_pan_f.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cmath>

namespace grxtest {
namespace {

using Triple = std::array<INT, 3>;

constexpr Triple unwritten{-77, -78, -79};

Triple hls_of(Triple rvb) {
    Triple hls = unwritten;
    EXPECT_EQ(RVB_to_HLS(rvb.data(), hls.data()), 1);
    return hls;
}

Triple rvb_of(Triple hls) {
    Triple rvb = unwritten;
    EXPECT_EQ(HLS_to_RVB(hls.data(), rvb.data()), 1) << hls[0] << " " << hls[1] << " " << hls[2];
    return rvb;
}

// --- what they must give ------------------------------------------------------------------------------------------

double hue_sector(double r, double g, double b, double highest, double width) {
    if (r == highest) return (g - b) / width;
    return g == highest ? 2.0 + (b - r) / width : 4.0 + (r - g) / width;
}

Triple expected_hls(INT red, INT green, INT blue) {
    const double r = red / 255.0, g = green / 255.0, b = blue / 255.0;
    const double highest = r > g ? (r > b ? r : b) : (g > b ? g : b);
    const double lowest = r < g ? (r < b ? r : b) : (g < b ? g : b);
    const double saturation = highest == 0 ? 0.0 : (highest - lowest) / highest;
    double hue = saturation == 0 ? 0.0 : hue_sector(r, g, b, highest, highest - lowest) * 60;
    if (hue < 0) hue += 360;
    return {static_cast<INT>(hue), static_cast<INT>(highest * 100), static_cast<INT>(saturation * 100)};
}

Triple expected_rvb(INT hue, INT luminance, INT saturation) {
    const double v = luminance / 100.0, s = saturation / 100.0;
    const double h = (hue == 360 ? 0 : hue) / 60.0;
    const int sector = static_cast<int>(h);
    const double f = h - sector, p = v * (1 - s), q = v * (1 - s * f), t = v * (1 - s * (1 - f));
    const std::array<std::array<double, 3>, 6> sectors{
        {{v, t, p}, {q, v, p}, {p, v, t}, {p, q, v}, {t, p, v}, {v, p, q}}};
    Triple rvb{};
    for (std::size_t k = 0; k < 3; ++k)
        rvb[k] = static_cast<INT>((saturation == 0 ? v : sectors[static_cast<std::size_t>(sector)][k]) * 255);
    return rvb;
}

// The same hue in whole numbers, apart from all rounding: the one just below the exact value.
INT exact_hue(INT r, INT g, INT b) {
    const INT highest = std::max({r, g, b}), width = highest - std::min({r, g, b});
    if (width == 0) return 0;
    INT sixtieths = 0; // hue times width
    if (r == highest)
        sixtieths = 60 * (g - b) + (g < b ? 360 * width : 0);
    else
        sixtieths = g == highest ? 120 * width + 60 * (b - r) : 240 * width + 60 * (r - g);
    return sixtieths / width;
}

// --- every colour -------------------------------------------------------------------------------------------------

TEST(ColourModel, EveryTripleOfRedGreenBlueHasItsHueLuminanceSaturation) {
    Triple rvb{};
    int wrong = 0, answers = 0, far = 0;
    for (rvb[0] = 0; rvb[0] < 256; ++rvb[0])
        for (rvb[1] = 0; rvb[1] < 256; ++rvb[1])
            for (rvb[2] = 0; rvb[2] < 256; ++rvb[2]) {
                Triple hls = unwritten;
                answers += RVB_to_HLS(rvb.data(), hls.data());
                wrong += hls != expected_hls(rvb[0], rvb[1], rvb[2]);
                const INT off = hls[0] - exact_hue(rvb[0], rvb[1], rvb[2]);
                far += off != 0 && off != -1; // the quotient of doubles may be short of a whole number
            }
    EXPECT_EQ(answers, 1 << 24);
    EXPECT_EQ(wrong, 0);
    EXPECT_EQ(far, 0);
}

TEST(ColourModel, EveryHueLuminanceSaturationHasItsTriple) {
    Triple hls{};
    int wrong = 0, refused = 0;
    for (hls[0] = 0; hls[0] <= 360; ++hls[0])
        for (hls[1] = 0; hls[1] <= 100; ++hls[1])
            for (hls[2] = 0; hls[2] <= 100; ++hls[2]) {
                Triple rvb = unwritten;
                const INT answer = HLS_to_RVB(hls.data(), rvb.data());
                const bool no_colour = hls[2] == 0 && hls[0] != 0;
                refused += answer == 0;
                wrong += answer != (no_colour ? 0 : 1);
                wrong += rvb != (no_colour ? unwritten : expected_rvb(hls[0], hls[1], hls[2]));
            }
    EXPECT_EQ(refused, 360 * 101);
    EXPECT_EQ(wrong, 0);
}

// Every colour that the first conversion makes can be turned back, into components of 0..255 at or below its own
// highest one.
TEST(ColourModel, EveryColourComesBack) {
    Triple rvb{};
    int wrong = 0;
    for (rvb[0] = 0; rvb[0] < 256; ++rvb[0])
        for (rvb[1] = 0; rvb[1] < 256; ++rvb[1])
            for (rvb[2] = 0; rvb[2] < 256; ++rvb[2]) {
                Triple hls = unwritten, back = unwritten;
                RVB_to_HLS(rvb.data(), hls.data());
                if (hls[2] == 0 && hls[0] != 0) { // less than a hundredth of saturation, with a hue: refused
                    wrong += HLS_to_RVB(hls.data(), back.data()) != 0 || back != unwritten;
                    continue;
                }
                wrong += HLS_to_RVB(hls.data(), back.data()) != 1;
                const INT highest = std::max({rvb[0], rvb[1], rvb[2]});
                const INT highest_back = std::max({back[0], back[1], back[2]});
                wrong += highest_back > highest || highest_back < highest - 3;
                for (INT component : back) wrong += component < 0 || component > 255;
            }
    EXPECT_EQ(wrong, 0);
}

// --- the corners --------------------------------------------------------------------------------------------------

TEST(ColourModel, TheCornersOfTheCube) {
    EXPECT_EQ(hls_of({0, 0, 0}), (Triple{0, 0, 0}));
    EXPECT_EQ(hls_of({255, 255, 255}), (Triple{0, 100, 0}));
    EXPECT_EQ(hls_of({255, 0, 0}), (Triple{0, 100, 100}));
    EXPECT_EQ(hls_of({255, 255, 0}), (Triple{60, 100, 100}));
    EXPECT_EQ(hls_of({0, 255, 0}), (Triple{120, 100, 100}));
    EXPECT_EQ(hls_of({0, 255, 255}), (Triple{180, 100, 100}));
    EXPECT_EQ(hls_of({0, 0, 255}), (Triple{240, 100, 100}));
    EXPECT_EQ(hls_of({255, 0, 255}), (Triple{300, 100, 100}));
}

TEST(ColourModel, ANegativeHueTurnsRound) {
    EXPECT_EQ(hls_of({255, 0, 1})[0], 359);
    EXPECT_EQ(hls_of({255, 0, 128})[0], 329);
}

TEST(ColourModel, TheFullCircleIsItsBeginning) {
    EXPECT_EQ(rvb_of({360, 100, 100}), rvb_of({0, 100, 100}));
    EXPECT_EQ(rvb_of({360, 100, 100}), (Triple{255, 0, 0}));
    EXPECT_EQ(rvb_of({360, 37, 81}), rvb_of({0, 37, 81}));
}

TEST(ColourModel, FractionsAreCutOff) {
    EXPECT_EQ(hls_of({255, 128, 0}), (Triple{30, 100, 100}));
    EXPECT_EQ(rvb_of({30, 100, 100}), (Triple{255, 127, 0}));
    EXPECT_EQ(hls_of({254, 254, 254}), (Triple{0, 99, 0})) << "99.6";
    EXPECT_EQ(rvb_of({0, 50, 0}), (Triple{127, 127, 127})) << "127.5";
}

TEST(ColourModel, AHueWithoutSaturationIsRefused) {
    for (const Triple& hls : {Triple{120, 50, 0}, Triple{1, 0, 0}, Triple{360, 100, 0}, Triple{-1, 50, 0}}) {
        Triple given = hls, rvb = unwritten;
        EXPECT_EQ(HLS_to_RVB(given.data(), rvb.data()), 0) << hls[0];
        EXPECT_EQ(rvb, unwritten) << hls[0];
        EXPECT_EQ(given, hls) << "the question stays";
    }
}

TEST(ColourModel, WhatIsGivenIsNotChanged) {
    Triple rvb{200, 100, 50}, hls{359, 77, 33}, into{};
    RVB_to_HLS(rvb.data(), into.data());
    EXPECT_EQ(rvb, (Triple{200, 100, 50}));
    HLS_to_RVB(hls.data(), into.data());
    EXPECT_EQ(hls, (Triple{359, 77, 33}));
}

TEST(ColourModel, AHueOutsideTheCircleIsTurnedInto) {
    for (INT turns : {-720, -360, 360, 720, 3600})
        EXPECT_EQ(rvb_of({45 + turns, 80, 60}), rvb_of({45, 80, 60})) << turns;
    for (INT hue : {INT_MIN, INT_MAX, -1, -59, 361, 719}) {
        const Triple rvb = rvb_of({hue, 100, 100});
        for (INT component : rvb) EXPECT_TRUE(component >= 0 && component <= 255) << hue << ": " << component;
    }
}

TEST(ColourModel, ExtremeNumbersAreSurvived) {
    constexpr std::array<INT, 7> extremes{INT_MIN, -256, -1, 0, 256, 100000, INT_MAX};
    for (INT a : extremes)
        for (INT b : extremes)
            for (INT c : extremes) {
                Triple given{a, b, c}, into = unwritten;
                EXPECT_EQ(RVB_to_HLS(given.data(), into.data()), 1);
                HLS_to_RVB(given.data(), into.data());
            }
    Triple some{10, 20, 30};
    RVB_to_HLS(nullptr, some.data());
    RVB_to_HLS(some.data(), nullptr);
    HLS_to_RVB(nullptr, some.data());
    HLS_to_RVB(some.data(), nullptr);
    EXPECT_EQ(some, (Triple{10, 20, 30})) << "nothing to convert writes nothing";
}

TEST(ColourModel, BothTablesMayBeOne) {
    Triple both{255, 128, 0};
    EXPECT_EQ(RVB_to_HLS(both.data(), both.data()), 1);
    EXPECT_EQ(both, (Triple{30, 100, 100}));
    EXPECT_EQ(HLS_to_RVB(both.data(), both.data()), 1);
    EXPECT_EQ(both, (Triple{255, 127, 0}));
}

} // namespace
} // namespace grxtest
