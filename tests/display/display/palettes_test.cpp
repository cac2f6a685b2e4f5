// The palettes, without a screen and sent to one.
#include "tests/display/display/colours_kit.h"
#include "tests/display/drawing/drawing_kit.h"

#include <array>
#include <climits>
#include <set>
#include <vector>

namespace {

using namespace grxtest;

constexpr INT icons = 16, reserved = 8;

Triple triple(const INT* rgb) {
    return {rgb[0], rgb[1], rgb[2]};
}

// A palette of n colours that no other is.
std::vector<INT> ramp(INT n, INT start = 0) {
    std::vector<INT> rgb;
    for (INT k = 0; k < n; ++k)
        for (const INT c : {start + k, 255 - k, 3 * k % 256}) rgb.push_back(c % 256);
    return rgb;
}

Triple of(const std::vector<INT>& rgb, INT k) {
    return triple(rgb.data() + 3 * k);
}

class PaletteTables : public XTest {};

TEST_F(PaletteTables, HoldTheStandardColoursBeforeStartUp) {
    for (INT k = 0; k < icons; ++k) EXPECT_EQ(triple(palette_icone[k]), icon_colour(k)) << k;
    for (INT k = 0; k < reserved; ++k)
        EXPECT_EQ(triple(palette_reserve[k]), reserved_colours[static_cast<std::size_t>(k)]) << k;
    for (INT k = 0; k < 256; ++k) EXPECT_EQ(triple(palette_trace[k]), drawing_colour(k)) << k;
}

TEST_F(PaletteTables, AreDeterminedAnew) {
    for (auto& rgb : palette_icone) rgb[0] = rgb[1] = rgb[2] = 77;
    for (auto& rgb : palette_trace) rgb[0] = rgb[1] = rgb[2] = 77;
    grx_determine_palette_icone();
    for (INT k = 0; k < icons; ++k) EXPECT_EQ(triple(palette_icone[k]), icon_colour(k)) << k;
    EXPECT_EQ(triple(palette_trace[3]), (Triple{77, 77, 77}));
    grx_determine_palette_trace();
    for (INT k = 0; k < 256; ++k) EXPECT_EQ(triple(palette_trace[k]), drawing_colour(k)) << k;
}

TEST_F(PaletteTables, ExamplesOfDrawingColours) {
    grx_determine_palette_trace();
    EXPECT_EQ(triple(palette_trace[15]), (Triple{255, 255, 255}));
    EXPECT_EQ(triple(palette_trace[16 + 7]), (Triple{64, 64, 64}));
}

TEST_F(PaletteTables, DeterminingTheReservedOneDoesNothing) {
    palette_reserve[3][1] = 99;
    grx_determine_palette_reserve();
    EXPECT_EQ(triple(palette_reserve[3]), (Triple{228, 99, 159}));
}

TEST_F(PaletteTables, ReservedColoursAreReplacedUpToTheirNumber) {
    auto rgb = ramp(12, 20);
    rgb[4] = 256;
    rgb[5] = INT_MAX;
    grx_affecte_palette_reserve(rgb.data(), 12);
    EXPECT_EQ(triple(palette_reserve[0]), of(rgb, 0));
    EXPECT_EQ(triple(palette_reserve[1]), (Triple{21, 255, 255}));
    for (INT k = 2; k < reserved; ++k) EXPECT_EQ(triple(palette_reserve[k]), of(rgb, k));
}

TEST_F(PaletteTables, FewerColoursLeaveTheOthers) {
    auto rgb = ramp(3, 20);
    grx_affecte_palette_reserve(rgb.data(), 3);
    EXPECT_EQ(triple(palette_reserve[2]), of(rgb, 2));
    EXPECT_EQ(triple(palette_reserve[3]), reserved_colours[3]);
    grx_affecte_palette_trace(rgb.data(), 2);
    EXPECT_EQ(triple(palette_trace[1]), of(rgb, 1));
    EXPECT_EQ(triple(palette_trace[2]), drawing_colour(2));
}

TEST_F(PaletteTables, DrawingColoursAreReplacedUpToTheirSetting) {
    auto rgb = ramp(300, 20);
    grx_affecte_palette_trace(rgb.data(), 300);
    EXPECT_EQ(triple(palette_trace[31]), of(rgb, 31));
    EXPECT_EQ(triple(palette_trace[32]), drawing_colour(32));
    grx_affecte_max_couleur_trace(128);
    grx_affecte_palette_trace(rgb.data(), 300);
    EXPECT_EQ(triple(palette_trace[127]), of(rgb, 127));
    EXPECT_EQ(triple(palette_trace[128]), drawing_colour(128));
}

TEST_F(PaletteTables, WildCountsAndNoArrayAreHarmless) {
    auto rgb = ramp(300, 20);
    for (const INT count : {0, -1, INT_MIN}) {
        grx_affecte_palette_reserve(rgb.data(), count);
        grx_affecte_palette_trace(rgb.data(), count);
    }
    grx_affecte_palette_reserve(nullptr, 8);
    grx_affecte_palette_trace(nullptr, 8);
    EXPECT_EQ(triple(palette_reserve[0]), reserved_colours[0]);
    EXPECT_EQ(triple(palette_trace[5]), drawing_colour(5));
    for (const INT setting : {100000, INT_MAX}) { // more than the table has
        grx_affecte_max_couleur_trace(setting);
        grx_affecte_palette_trace(rgb.data(), 300);
        EXPECT_EQ(triple(palette_trace[255]), of(rgb, 255));
    }
}

TEST_F(PaletteTables, NothingHappensBeforeStartUp) {
    Triple rgb{1, 2, 3};
    grx_modif_rgb(3, rgb.data());
    grx_maj_palette_reserve();
    grx_maj_palette_trace();
    EXPECT_EQ(grx_recup_couleur(-1), 0);
    INT index = 77;
    grx_recup_index_image(rgb.data(), &index);
    grx_init_colormap_8_plans();
    grx_init_colormap_24_plans();
    EXPECT_EQ(x11_disp, nullptr);
}

TEST_F(PaletteTables, LineWidthsAreTakenModuloEight) {
    const std::array<INT, 8> expected{0, 2, 3, 4, 5, 6, 7, 8};
    for (INT i = 0; i < 32; ++i) EXPECT_EQ(grx_recup_epaisseur(i), expected[static_cast<std::size_t>(i % 8)]) << i;
    EXPECT_EQ(grx_recup_epaisseur(9), 2);
    EXPECT_EQ(grx_recup_epaisseur(0), 0);
    const std::set<INT> widths(expected.begin(), expected.end());
    for (const INT wild : {-1, -8, -9, INT_MAX, INT_MIN})
        EXPECT_EQ(widths.count(grx_recup_epaisseur(wild)), 1U) << wild;
}

TEST_F(PixelTables, PalettesAreSentToTheScreen) {
    auto few = ramp(8, 20);
    auto many = ramp(32, 100);
    grx_affecte_palette_reserve(few.data(), 8);
    grx_affecte_palette_trace(many.data(), 32);
    const Triple untouched = colour_at(3);
    EXPECT_NE(untouched, of(few, 3));
    grx_maj_palette_reserve();
    const auto close = [](const Triple& a, const Triple& b) { // 8 planes round
        for (std::size_t i = 0; i < 3; ++i)
            if (std::abs(a[i] - b[i]) > 1) return false;
        return true;
    };
    for (INT k = 0; k < 8; ++k) EXPECT_TRUE(close(colour_at(k), of(few, k))) << k;
    EXPECT_FALSE(close(colour_at(8 + 5), of(many, 5)));
    grx_maj_palette_trace();
    for (INT k = 0; k < 32; ++k) EXPECT_TRUE(close(colour_at(8 + k), of(many, k))) << k;
}

class HostPalette : public DisplayTest {
  protected:
    void before_start() override {
        rgb_ = ramp(32, 60);
        grx_affecte_palette_trace(rgb_.data(), 32);
        auto few = ramp(2, 200);
        grx_affecte_palette_reserve(few.data(), 2);
    }
    std::vector<INT> rgb_;
};

TEST_F(HostPalette, GivenBeforeStartUpSurvivesIt) {
    for (INT k = 0; k < 32; ++k) EXPECT_EQ(triple(palette_trace[k]), of(rgb_, k)) << k;
    for (INT k = 0; k < 32; ++k) {
        const Triple seen = colour_at(8 + k);
        for (std::size_t i = 0; i < 3; ++i) EXPECT_LE(std::abs(seen[i] - of(rgb_, k)[i]), 1) << k;
    }
    EXPECT_EQ(triple(palette_reserve[0]), (Triple{200, 255, 0}));
    EXPECT_EQ(triple(palette_reserve[2]), reserved_colours[2]);
}

} // namespace
