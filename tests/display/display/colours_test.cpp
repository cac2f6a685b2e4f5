// Palettes, colour cells and pixel tables.
#include "tests/display/drawing.h"
#include "tests/support/cell_hog.h"
#include "tests/support/fake_visual.h"
#include "tests/support/stdout_capture.h"

#include <algorithm>
#include <array>
#include <climits>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace {

using namespace grxtest;
using Triple = std::array<INT, 3>;
using Lines = std::vector<std::string>;

constexpr INT icons = 16, reserved = 8;

constexpr std::array<Triple, 8> reserved_colours{{{134, 123, 66}, {0, 0, 0}, {0, 0, 0}, {228, 225, 159}, {119, 49, 49},
    {255, 255, 255}, {255, 255, 0}, {128, 128, 128}}};

constexpr std::array<Triple, 16> factors{{{0, 0, 0}, {0, 0, 2}, {0, 2, 0}, {0, 2, 2}, {2, 0, 0}, {2, 0, 2}, {2, 2, 0},
    {2, 2, 2}, {1, 1, 1}, {0, 0, 4}, {0, 4, 0}, {0, 4, 4}, {4, 0, 0}, {4, 0, 4}, {4, 4, 0}, {4, 4, 4}}};

Triple tinted(INT hue, INT factor) {
    Triple result = factors[static_cast<std::size_t>(hue)];
    for (INT& component : result) component = std::min(component * factor, 255);
    return result;
}

Triple icon_colour(INT k) {
    return tinted(k, 64);
}

Triple drawing_colour(INT k) {
    const INT shade = k / 16;
    return tinted(k % 16, (shade % 2 == 0 ? 64 : 32) - 4 * (shade / 2));
}

Triple triple(const INT* rgb) {
    return {rgb[0], rgb[1], rgb[2]};
}

Triple colour(INT index) {
    Triple rgb{-1, -1, -1};
    grx_recup_rgb(index, rgb.data());
    return rgb;
}

Triple icon(INT index) {
    Triple rgb{-1, -1, -1};
    grx_recup_rgb_icone(index, rgb.data());
    return rgb;
}

INT* in(Triple& rgb) {
    return rgb.data();
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

// --- tables without a screen ------------------------------------------------------------------------------------

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
    grx_modif_rgb(3, in(rgb));
    grx_maj_palette_reserve();
    grx_maj_palette_trace();
    EXPECT_EQ(grx_recup_couleur(-1), 0);
    INT index = 77;
    grx_recup_index_image(in(rgb), &index);
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

// --- pixel tables of both depths ------------------------------------------------------------------------------------

class PixelTables : public DisplayTest {};

TEST_F(PixelTables, BoundsFollowTheCounts) {
    EXPECT_EQ(grx_premier_index_rendu(), 56);
    EXPECT_EQ(grx_dernier_index_rendu(), 56);
}

TEST_F(PixelTables, ColourIndicesAreReservedThenDrawingPositions) {
    for (INT k = 0; k < 40; ++k) EXPECT_EQ(trace_pix[k], grx::system_pix[icons + k]) << k;
    for (INT k = 0; k < 40; ++k) EXPECT_EQ(grx_recup_couleur(k), trace_pix[k]);
}

TEST_F(PixelTables, IndicesOutsideReadNothing) {
    for (const INT index : {-1, 256, 1000, INT_MAX, INT_MIN}) {
        EXPECT_EQ(grx_recup_couleur(index), 0) << index;
        EXPECT_EQ(grx_recup_couleur_icone(index), 0) << index;
    }
}

TEST_F(PixelTables, IndicesOutsideWriteNothing) {
    const std::vector<INT> before(trace_pix, trace_pix + 256);
    const std::vector<INT> system(grx::system_pix, grx::system_pix + 256);
    Triple rgb{1, 2, 3};
    for (const INT index : {-1, 256, 257, 1000, INT_MAX, INT_MIN}) {
        grx_modif_rgb(index, in(rgb));
        grx_recup_rgb(index, in(rgb));
        grx_recup_rgb_icone(index, in(rgb));
        grx_change_couleur_8_icone(index);
        grx_restore_couleur_8_icone();
        rgb = {1, 2, 3};
    }
    grx_modif_rgb(3, nullptr);
    grx_recup_rgb(3, nullptr);
    grx_recup_rgb_icone(3, nullptr);
    EXPECT_EQ(std::vector<INT>(trace_pix, trace_pix + 256), before);
    EXPECT_EQ(std::vector<INT>(grx::system_pix, grx::system_pix + 256), system);
}

TEST_F(PixelTables, IconColoursAreTheFirstPositionsButTheBackground) {
    EXPECT_EQ(grx_init_palette_icone(4711), icons);
    for (INT k = 0; k < icons; ++k) {
        const INT expected = k == 8 ? 4711 : grx::system_pix[k];
        EXPECT_EQ(grx::icone_pix[k], expected) << k;
        EXPECT_EQ(grx_recup_couleur_icone(k), expected) << k;
    }
    EXPECT_EQ(grx::system_pix[8], 4711);
    for (INT k = icons; k < 255; ++k) EXPECT_EQ(grx::icone_pix[k], -1) << k;
}

TEST_F(PixelTables, StartUpTakesTheIconBackgroundFromButtons) {
    EXPECT_EQ(grx::icone_pix[8], grx_recup_couleur_init_fond_bouton());
}

TEST_F(PixelTables, TheIconBackgroundIsReplacedAndRestored) {
    grx_init_palette_icone(4711);
    grx_change_couleur_8_icone(12);
    EXPECT_EQ(grx::icone_pix[8], grx::icone_pix[12]);
    EXPECT_EQ(grx::system_pix[8], 4711);
    grx_restore_couleur_8_icone();
    EXPECT_EQ(grx::icone_pix[8], 4711);
}

TEST_F(PixelTables, BuffersAreTranslatedInPlace) {
    std::array<uchar, 256> all{};
    const auto fill = [&all] {
        for (std::size_t k = 0; k < all.size(); ++k) all[k] = static_cast<uchar>(k);
    };
    fill();
    grx_icone_oxa_to_system(16, 16, all.data());
    for (std::size_t k = 0; k < 256; ++k) EXPECT_EQ(all[k], static_cast<uchar>(grx::icone_pix[k])) << k;
    fill();
    grx_image_oxa_to_system(64, 4, all.data());
    for (std::size_t k = 0; k < 256; ++k) EXPECT_EQ(all[k], static_cast<uchar>(trace_pix[k])) << k;
    fill();
    grx_icone_system_to_oxa(1, 256, all.data());
    for (std::size_t k = 0; k < 256; ++k) EXPECT_EQ(all[k], static_cast<uchar>(grx::pal_pix[k])) << k;
    fill();
    grx_image_system_to_oxa(256, 1, all.data());
    for (std::size_t k = 0; k < 256; ++k) EXPECT_EQ(all[k], static_cast<uchar>(grx::pal_pix[k] - icons)) << k;
}

TEST_F(PixelTables, BuffersAreTranslatedNoFurtherThanTheirSize) {
    using Operation = INT (*)(INT, INT, uchar*);
    for (const Operation operation :
        {grx_icone_oxa_to_system, grx_image_oxa_to_system, grx_icone_system_to_oxa, grx_image_system_to_oxa}) {
        std::array<uchar, 8> buffer{};
        buffer.fill(200);
        operation(2, 3, buffer.data());
        EXPECT_EQ(buffer[6], 200);
        EXPECT_EQ(buffer[7], 200);
    }
}

TEST_F(PixelTables, BuffersOfNoSizeAreLeftAlone) {
    using Operation = INT (*)(INT, INT, uchar*);
    struct Size {
        INT lar, hau;
    };
    std::array<uchar, 4> buffer{3, 3, 3, 3};
    for (const Operation operation :
        {grx_icone_oxa_to_system, grx_image_oxa_to_system, grx_icone_system_to_oxa, grx_image_system_to_oxa}) {
        for (const Size size : {Size{0, 5}, {5, 0}, {-1, 4}, {4, -1}, {INT_MIN, 1}, {0, 0}, {INT_MAX, -1}})
            operation(size.lar, size.hau, buffer.data());
        operation(2, 2, nullptr);
        operation(INT_MAX, INT_MAX, nullptr);
    }
    EXPECT_EQ(buffer, (std::array<uchar, 4>{3, 3, 3, 3}));
}

TEST_F(PixelTables, PalettesAreSentToTheScreen) {
    auto few = ramp(8, 20);
    auto many = ramp(32, 100);
    grx_affecte_palette_reserve(few.data(), 8);
    grx_affecte_palette_trace(many.data(), 32);
    const Triple untouched = colour(3);
    EXPECT_NE(untouched, of(few, 3));
    grx_maj_palette_reserve();
    const auto close = [](const Triple& a, const Triple& b) { // 8 planes round
        for (std::size_t i = 0; i < 3; ++i)
            if (std::abs(a[i] - b[i]) > 1) return false;
        return true;
    };
    for (INT k = 0; k < 8; ++k) EXPECT_TRUE(close(colour(k), of(few, k))) << k;
    EXPECT_FALSE(close(colour(8 + 5), of(many, 5)));
    grx_maj_palette_trace();
    for (INT k = 0; k < 32; ++k) EXPECT_TRUE(close(colour(8 + k), of(many, k))) << k;
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
        const Triple seen = colour(8 + k);
        for (std::size_t i = 0; i < 3; ++i) EXPECT_LE(std::abs(seen[i] - of(rgb_, k)[i]), 1) << k;
    }
    EXPECT_EQ(triple(palette_reserve[0]), (Triple{200, 255, 0}));
    EXPECT_EQ(triple(palette_reserve[2]), reserved_colours[2]);
}

class CountsFromTheFile : public DisplayTest {
    void before_start() override {
        write_ini("MAX_COULEUR_TRACE 64\nMAX_COULEUR_RENDU 20\n");
        ASSERT_EQ(grx_initialise_globales(), 0);
    }
};

TEST_F(CountsFromTheFile, PlaceTheRenderingColours) {
    EXPECT_EQ(grx_premier_index_rendu(), 16 + 8 + 64);
    EXPECT_EQ(grx_dernier_index_rendu(), 16 + 8 + 64 + 20);
    for (INT k = 0; k < 72; ++k) EXPECT_EQ(trace_pix[k], grx::system_pix[icons + k]) << k;
    for (INT k = 88; k < 108; ++k) EXPECT_EQ(trace_pix[k], grx::system_pix[k]) << k; // at their own positions
    for (INT k = 0; k < 64; ++k) {
        const Triple seen = colour(8 + k);
        for (std::size_t i = 0; i < 3; ++i) EXPECT_LE(std::abs(seen[i] - drawing_colour(k)[i]), 1) << k;
    }
}

template <INT Drawing, INT Rendering>
class Counts : public DisplayTest {
    void before_start() override {
        grx_affecte_max_couleur_trace(Drawing);
        grx_affecte_max_couleur_rendu(Rendering);
        capture_.emplace();
    }

  protected:
    void SetUp() override {
        DisplayTest::SetUp();
        capture_->restore();
    }
    std::optional<StdoutCapture> capture_;
};

using FewCounts = Counts<8, 0>;
using ManyCounts = Counts<128, 31>;
using HugeCounts = Counts<128, 1000>;

TEST_F(FewCounts, Work) {
    EXPECT_EQ(grx_premier_index_rendu(), 32);
    EXPECT_EQ(grx_dernier_index_rendu(), 32);
    EXPECT_EQ(trace_pix[15], grx::system_pix[31]);
    EXPECT_EQ(capture_->text(), "");
}

TEST_F(ManyCounts, Work) { // 183 colours: all the cells that an 8-plane server has left
    EXPECT_EQ(grx_premier_index_rendu(), 152);
    EXPECT_EQ(grx_dernier_index_rendu(), 183);
    EXPECT_EQ(trace_pix[8 + 127], grx::system_pix[151]);
    EXPECT_EQ(trace_pix[182], grx::system_pix[182]);
    EXPECT_EQ(capture_->text(), "");
    const Triple seen = colour(8 + 127), expected = drawing_colour(127);
    for (std::size_t i = 0; i < 3; ++i) EXPECT_LE(std::abs(seen[i] - expected[i]), 1);
}

TEST_F(HugeCounts, StayInsideTheTables) {
    EXPECT_EQ(grx_premier_index_rendu(), 152);
    if (test_planes() == 24) EXPECT_EQ(grx_dernier_index_rendu(), 1152);
    if (test_planes() == 8) EXPECT_EQ(capture_->lines(), (Lines{"couleurs rendu Maxi :31"}));
    if (test_planes() == 8) EXPECT_EQ(grx_dernier_index_rendu(), 183);
    Triple rgb{1, 2, 3};
    permit_x_errors(); // 8 planes have no cell for it
    grx_modif_rgb(255, in(rgb));
    grx_modif_rgb(1151, in(rgb));
    EXPECT_EQ(trace_pix[8 + 127], grx::system_pix[151]);
}

// --- 24 planes --------------------------------------------------------------------------------------------------------

class ColoursOn24 : public On24 {
  protected:
    static INT pixel(const Triple& rgb) {
        return rgb[0] * (1 << dec_red) + rgb[1] * (1 << dec_green) + rgb[2] * (1 << dec_blue);
    }
};

TEST_F(ColoursOn24, ShiftsAreThoseOfTheVisual) {
    EXPECT_EQ(x11_vis->red_mask >> dec_red & 1, 1U);
    EXPECT_EQ(x11_vis->red_mask, 0xFFUL << dec_red);
    EXPECT_EQ(x11_vis->green_mask, 0xFFUL << dec_green);
    EXPECT_EQ(x11_vis->blue_mask, 0xFFUL << dec_blue);
}

TEST_F(ColoursOn24, TheColormapIsAnewOfTheVisual) {
    EXPECT_NE(x11_cmap, None);
    EXPECT_NE(x11_cmap, DefaultColormap(x11_disp, DefaultScreen(x11_disp)));
    XColor cell{};
    cell.pixel = 0x804020;
    XQueryColor(x11_disp, x11_cmap, &cell); // it is a true-colour map: the pixel is its colour
    EXPECT_EQ(cell.red >> 8, 0x80);
    EXPECT_EQ(cell.green >> 8, 0x40);
    EXPECT_EQ(cell.blue >> 8, 0x20);
}

TEST_F(ColoursOn24, TheColormapIsInstalled) {
    int count = 0;
    Colormap* installed = XListInstalledColormaps(x11_disp, DefaultRootWindow(x11_disp), &count);
    EXPECT_EQ(std::count(installed, installed + count, x11_cmap), 1);
    XFree(installed);
}

TEST_F(ColoursOn24, PixelsAreComputedFromThePalettes) {
    for (INT k = 0; k < icons; ++k)
        if (k != 8) EXPECT_EQ(grx::system_pix[k], pixel(icon_colour(k))) << k; // 8 is the icons' background
    for (INT k = 0; k < reserved; ++k)
        EXPECT_EQ(trace_pix[k], pixel(reserved_colours[static_cast<std::size_t>(k)])) << k;
    for (INT k = 0; k < 32; ++k) EXPECT_EQ(trace_pix[reserved + k], pixel(drawing_colour(k))) << k;
}

TEST_F(ColoursOn24, ChangingAReservedOrDrawingColourReachesBothTables) {
    Triple red{255, 0, 0}, other{1, 2, 3};
    grx_modif_rgb(0, in(red));
    EXPECT_EQ(trace_pix[0], 255 << 16);
    EXPECT_EQ(grx::system_pix[icons], 255 << 16);
    grx_modif_rgb(39, in(other));
    EXPECT_EQ(trace_pix[39], 0x010203);
    EXPECT_EQ(grx::system_pix[icons + 39], 0x010203);
}

TEST_F(ColoursOn24, ChangingAnIndexOfTheGapStaysInOneTable) {
    const std::vector<INT> system(grx::system_pix, grx::system_pix + 256);
    Triple rgb{1, 2, 3};
    for (INT index = 40; index < 56; ++index) {
        grx_modif_rgb(index, in(rgb));
        EXPECT_EQ(trace_pix[index], 0x010203) << index;
    }
    EXPECT_EQ(std::vector<INT>(grx::system_pix, grx::system_pix + 256), system);
}

TEST_F(ColoursOn24, ChangingARenderingColourKeepsItsPosition) {
    Triple rgb{1, 2, 3};
    for (const INT index : {56, 100, 255}) {
        grx_modif_rgb(index, in(rgb));
        EXPECT_EQ(trace_pix[index], 0x010203);
        EXPECT_EQ(grx::system_pix[index], 0x010203);
    }
}

TEST_F(ColoursOn24, ChangingAColourAsksNobody) {
    Triple rgb{1, 2, 3};
    const Cost cost(x11_disp);
    for (INT index = 0; index < 256; ++index) grx_modif_rgb(index, in(rgb));
    EXPECT_EQ(cost.requests(), 0U);
}

TEST_F(ColoursOn24, RenderingColoursAreBlackUntilSet) {
    for (INT k = 56; k < 256; ++k) EXPECT_EQ(trace_pix[k], 0) << k;
}

TEST_F(ColoursOn24, ColoursReadBackAsTheyWereWritten) {
    for (INT c = 0; c < 256; ++c) {
        Triple rgb{c, 255 - c, (c * 7) % 256};
        grx_modif_rgb(9, in(rgb));
        EXPECT_EQ(colour(9), rgb);
    }
    for (INT k = 0; k < reserved; ++k) EXPECT_EQ(colour(k), reserved_colours[static_cast<std::size_t>(k)]);
    for (INT k = 0; k < icons; ++k)
        if (k != 8) EXPECT_EQ(icon(k), icon_colour(k)) << k;
}

TEST_F(ColoursOn24, ATripleIsFoundByItsFirstExactIndex) {
    INT index = 77;
    Triple black{0, 0, 0}, white{255, 255, 255}, near{255, 255, 254};
    EXPECT_EQ(grx_recup_index_image(in(black), &index), 1);
    EXPECT_EQ(index, 1); // 0 is not black
    EXPECT_EQ(grx_recup_index_image(in(white), &index), 1);
    EXPECT_EQ(index, 5);
    index = 77;
    EXPECT_EQ(grx_recup_index_image(in(near), &index), 0); // nothing near counts
    EXPECT_EQ(index, 0);
}

TEST_F(ColoursOn24, OnlyReservedAndDrawingColoursAreSearched) {
    INT index = 77;
    Triple rgb{11, 22, 33};
    grx_modif_rgb(40, in(rgb));
    grx_modif_rgb(56, in(rgb));
    EXPECT_EQ(grx_recup_index_image(in(rgb), &index), 0);
    EXPECT_EQ(index, 0);
    grx_modif_rgb(39, in(rgb));
    EXPECT_EQ(grx_recup_index_image(in(rgb), &index), 1);
    EXPECT_EQ(index, 39);
    grx_recup_index_image(in(rgb), nullptr);
    EXPECT_EQ(grx_recup_index_image(nullptr, &index), 0);
}

TEST_F(ColoursOn24, BuildingTheColormapAgainWorks) {
    Triple rgb{1, 2, 3};
    grx_modif_rgb(9, in(rgb));
    EXPECT_EQ(grx_init_colormap_24_plans(), 1);
    EXPECT_EQ(colour(9), drawing_colour(1));
}

class OtherVisualOn24 : public On24 {
    void before_start() override { fake_.emplace(FakeVisual::Kind::alt32); }
    std::optional<FakeVisual> fake_;
};

TEST_F(OtherVisualOn24, GetsAColormapOfItsOwn) {
    EXPECT_NE(x11_vis, DefaultVisual(x11_disp, DefaultScreen(x11_disp)));
    XSetWindowAttributes attributes{};
    attributes.colormap = x11_cmap; // refused for a window of another visual
    const Window window = XCreateWindow(x11_disp, DefaultRootWindow(x11_disp), 0, 0, 10, 10, 0, vtemp.depth,
        InputOutput, x11_vis, CWColormap | CWBorderPixel, &attributes);
    EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
    XDestroyWindow(x11_disp, window);
    EXPECT_EQ(trace_pix[5], (255 << dec_red) + (255 << dec_green) + (255 << dec_blue));
}

// --- 8 planes ---------------------------------------------------------------------------------------------------------

// What another client sees in the default colormap.
class OtherClient {
  public:
    explicit OtherClient(Display* display) : display_(display) {}

    Triple cell(INT pixel) const {
        XColor asked{};
        asked.pixel = static_cast<unsigned long>(pixel);
        XQueryColor(display_, DefaultColormap(display_, DefaultScreen(display_)), &asked);
        return {asked.red, asked.green, asked.blue};
    }

    static Triple stored(const Triple& rgb) { // what an 8-bit server makes of components times 255
        Triple result{};
        for (std::size_t i = 0; i < 3; ++i) result[i] = (rgb[i] * 255 >> 8) * 257;
        return result;
    }

  private:
    Display* display_;
};

class ColoursOn8 : public On8 {
  protected:
    OtherClient other() { return OtherClient(test_display()); }
    static Colormap shared_map() { return DefaultColormap(x11_disp, DefaultScreen(x11_disp)); }
};

TEST_F(ColoursOn8, TheDefaultColormapIsUsedAndInstalled) {
    EXPECT_EQ(x11_cmap, shared_map());
    int count = 0;
    Colormap* installed = XListInstalledColormaps(x11_disp, DefaultRootWindow(x11_disp), &count);
    EXPECT_EQ(std::count(installed, installed + count, x11_cmap), 1);
    XFree(installed);
}

TEST_F(ColoursOn8, ShiftsAreZero) {
    EXPECT_EQ(dec_red, 0);
    EXPECT_EQ(dec_green, 0);
    EXPECT_EQ(dec_blue, 0);
}

TEST_F(ColoursOn8, EachPositionHasACellOfItsOwn) {
    std::set<INT> pixels;
    for (INT k = 0; k < 56; ++k) {
        if (k == 8) continue; // the icons' background now
        const INT pixel = grx::system_pix[k];
        ASSERT_GE(pixel, 0);
        ASSERT_LT(pixel, 256);
        EXPECT_TRUE(pixels.insert(pixel).second) << k;
        EXPECT_EQ(grx::pal_pix[pixel], k);
    }
    for (INT k = 56; k < 255; ++k) EXPECT_EQ(grx::system_pix[k], -1) << k;
    INT without = 0;
    for (const INT position : grx::pal_pix) without += position == -1;
    EXPECT_EQ(without, 256 - 56);
}

TEST_F(ColoursOn8, TheCellsAreTakenFromEverybody) {
    std::set<unsigned long> ours(trace_pix, trace_pix + 40);
    Display* display = test_display();
    const Colormap map = DefaultColormap(display, DefaultScreen(display));
    unsigned long pixel = 0, plane = 0;
    int free_cells = 0;
    while (XAllocColorCells(display, map, False, &plane, 0, &pixel, 1)) {
        EXPECT_EQ(ours.count(pixel), 0U) << pixel;
        ++free_cells;
    }
    EXPECT_LE(free_cells, 183 - 56);
    EXPECT_GE(free_cells, 183 - 56 - 20); // what the toolkit took for the throw-away controls of start-up
}

TEST_F(ColoursOn8, TheCellsHoldThePalettes) {
    for (INT k = 0; k < icons; ++k)
        if (k != 8) EXPECT_EQ(other().cell(grx::system_pix[k]), OtherClient::stored(icon_colour(k))) << k;
    for (INT k = 0; k < reserved; ++k)
        EXPECT_EQ(other().cell(trace_pix[k]), OtherClient::stored(reserved_colours[static_cast<std::size_t>(k)])) << k;
    for (INT k = 0; k < 32; ++k) EXPECT_EQ(other().cell(trace_pix[8 + k]), OtherClient::stored(drawing_colour(k))) << k;
}

TEST_F(ColoursOn8, ChangingAColourStoresItsCell) {
    const INT pixel = trace_pix[12];
    Triple rgb{200, 100, 50};
    grx_modif_rgb(12, in(rgb));
    XSync(x11_disp, False);
    EXPECT_EQ(other().cell(pixel), OtherClient::stored(rgb));
    EXPECT_EQ(trace_pix[12], pixel);
    EXPECT_EQ(other().cell(trace_pix[13]), OtherClient::stored(drawing_colour(5)));
}

TEST_F(ColoursOn8, ChangingAnIndexWithoutCellStoresNothing) {
    std::vector<Triple> before;
    for (INT pixel = 0; pixel < 256; ++pixel) before.push_back(other().cell(pixel));
    Triple rgb{200, 100, 50};
    permit_x_errors(); // the server may refuse
    for (INT index = 40; index < 256; ++index) grx_modif_rgb(index, in(rgb));
    XSync(x11_disp, False);
    for (INT pixel = 0; pixel < 256; ++pixel)
        EXPECT_EQ(other().cell(pixel), before[static_cast<std::size_t>(pixel)]) << pixel;
}

TEST_F(ColoursOn8, AServerOf8BitsRoundsWhatIsReadBack) {
    Triple rgb{255, 64, 127};
    grx_modif_rgb(12, in(rgb));
    EXPECT_EQ(colour(12), (Triple{255, 63, 126}));
    rgb = {0, 1, 2};
    grx_modif_rgb(12, in(rgb));
    EXPECT_EQ(colour(12), (Triple{0, 0, 1}));
}

// KEEP: c + 1 divided by 255 in integers: a component at full intensity reads 257.
TEST_F(ColoursOn8, FullIntensityReads257) {
    XColor cell{};
    cell.pixel = pixel_of(12);
    cell.red = 65535;
    cell.green = 257 * 127; // one below 128 times 255
    cell.blue = 0;
    cell.flags = DoRed | DoGreen | DoBlue;
    XStoreColor(x11_disp, x11_cmap, &cell);
    EXPECT_EQ(colour(12), (Triple{257, 128, 0}));
    cell.pixel = static_cast<unsigned long>(grx::icone_pix[12]);
    XStoreColor(x11_disp, x11_cmap, &cell);
    EXPECT_EQ(icon(12), (Triple{257, 128, 0}));
}

// KEEP: the pixel is composed as on a deep screen, the shifts being 0.
TEST_F(ColoursOn8, ATripleIsSearchedByItsSum) {
    INT index = 77;
    const INT pixel = trace_pix[11];
    Triple sum{pixel - 3, 1, 2};
    EXPECT_EQ(grx_recup_index_image(in(sum), &index), 1);
    EXPECT_EQ(index, 11);
    Triple nothing{255, 255, 255}; // 765 is no pixel
    EXPECT_EQ(grx_recup_index_image(in(nothing), &index), 0);
    EXPECT_EQ(index, 0);
}

TEST_F(ColoursOn8, PicturesSurviveTheWayToPixelsAndBack) {
    std::array<uchar, 40> buffer{};
    for (std::size_t k = 0; k < 40; ++k) buffer[k] = static_cast<uchar>(k);
    grx_image_oxa_to_system(8, 5, buffer.data());
    for (std::size_t k = 0; k < 40; ++k) EXPECT_EQ(buffer[k], trace_pix[k]);
    grx_image_system_to_oxa(8, 5, buffer.data());
    for (std::size_t k = 0; k < 40; ++k) EXPECT_EQ(buffer[k], k);
    std::array<uchar, 8> few{0, 1, 2, 3, 4, 5, 6, 7};
    grx_icone_oxa_to_system(8, 1, few.data());
    grx_icone_system_to_oxa(8, 1, few.data());
    for (std::size_t k = 0; k < 8; ++k) EXPECT_EQ(few[k], k);
}

TEST_F(ColoursOn8, BuildingAgainTakesMoreCells) {
    StdoutCapture capture;
    const INT result = grx_init_colormap_8_plans();
    capture.restore();
    EXPECT_EQ(result, 1);
    EXPECT_EQ(capture.text(), "");
    XSync(x11_disp, False);
    EXPECT_EQ(other().cell(trace_pix[8 + 5]), OtherClient::stored(drawing_colour(5)));
}

class OtherMapInstalledOn8 : public On8 {
    void before_start() override {
        Display* display = test_display();
        const int screen = DefaultScreen(display);
        other_ = XCreateColormap(display, RootWindow(display, screen), DefaultVisual(display, screen), AllocNone);
        XInstallColormap(display, other_);
        XSync(display, False);
    }

  protected:
    Colormap other_ = None;
};

TEST_F(OtherMapInstalledOn8, TheDefaultOneReplacesIt) {
    int count = 0;
    Colormap* installed = XListInstalledColormaps(x11_disp, DefaultRootWindow(x11_disp), &count);
    EXPECT_EQ(std::count(installed, installed + count, x11_cmap), 1);
    XFree(installed);
    EXPECT_NE(x11_cmap, other_);
}

class RenderingOn8 : public On8 {
    void before_start() override { grx_affecte_max_couleur_rendu(20); }
};

TEST_F(RenderingOn8, ColoursAreBlackCellsUntilSet) {
    const OtherClient other(test_display());
    for (INT k = 56; k < 76; ++k) {
        EXPECT_EQ(trace_pix[k], grx::system_pix[k]);
        EXPECT_EQ(grx::pal_pix[trace_pix[k]], k);
        EXPECT_EQ(other.cell(trace_pix[k]), (Triple{0, 0, 0})) << k;
    }
    Triple rgb{200, 100, 50};
    grx_modif_rgb(75, in(rgb));
    XSync(x11_disp, False);
    EXPECT_EQ(other.cell(trace_pix[75]), OtherClient::stored(rgb));
}

// --- when cells run out -------------------------------------------------------------------------------------------------

// Starts the library with exactly so many cells left.
class ShortageOn8 : public XTest {
  protected:
    void start_with(int free_cells) {
        hog_.emplace(server().name(), free_cells);
        StdoutCapture capture;
        started_ = start_up();
        lines_ = capture.lines();
    }

    // Only the colormap, on a connection of the test: tells the builder's own answer.
    INT build_with(int free_cells) {
        hog_.emplace(server().name(), free_cells);
        x11_disp = XOpenDisplay(server().name().c_str());
        StdoutCapture capture;
        const INT result = grx_init_colormap_8_plans();
        lines_ = capture.lines();
        return result;
    }

    Triple cell(INT pixel) { return OtherClient(test_display()).cell(pixel); }

    std::optional<CellHog> hog_;
    bool started_ = false;
    Lines lines_;
};

const Lines error_5{"GFX ERROR", "Code 5: Error on table color allocation"};

TEST_F(ShortageOn8, JustEnoughSaysNothing) {
    EXPECT_EQ(build_with(56), 1);
    EXPECT_EQ(lines_, Lines{});
    EXPECT_EQ(grx_recup_max_couleur_trace(), 32);
    EXPECT_EQ(grx_recup_max_couleur_rendu(), 0);
}

TEST_F(ShortageOn8, EightDrawingColoursAreEnough) {
    start_with(32);
    EXPECT_TRUE(started_);
    EXPECT_EQ(lines_, (Lines{"couleurs trace Maxi :8", "couleurs rendu Maxi :1"}));
    EXPECT_EQ(grx_recup_max_couleur_trace(), 8);
    EXPECT_EQ(grx_recup_max_couleur_rendu(), 1);
    EXPECT_EQ(grx_premier_index_rendu(), 32);
    EXPECT_EQ(grx_dernier_index_rendu(), 33);
}

// KEEP: the loop goes on after a failure: every later position records the pixel last obtained, and the extra
// rendering colour makes its cell black.
TEST_F(ShortageOn8, TheLastCellIsRecordedForAllThatFollow) {
    EXPECT_EQ(build_with(32), 1);
    const INT last = grx::system_pix[31];
    for (INT k = 32; k < 56; ++k) EXPECT_EQ(grx::system_pix[k], last) << k;
    for (INT k = 56; k < 255; ++k) EXPECT_EQ(grx::system_pix[k], -1) << k;
    EXPECT_EQ(grx::pal_pix[last], 55);
    EXPECT_EQ(trace_pix[15], last);
    EXPECT_EQ(trace_pix[32], last);
    XSync(x11_disp, False);
    EXPECT_EQ(cell(last), (Triple{0, 0, 0}));
    EXPECT_EQ(cell(trace_pix[14]), OtherClient::stored(drawing_colour(6)));
}

TEST_F(ShortageOn8, SevenDrawingColoursAreAnErrorThatStartUpPasses) {
    start_with(31);
    EXPECT_TRUE(started_);
    EXPECT_EQ(lines_, error_5);
    EXPECT_NE(fontstruct, nullptr);
}

TEST_F(ShortageOn8, TheBuilderTellsTheError) {
    EXPECT_EQ(build_with(31), 0);
    EXPECT_EQ(lines_, error_5);
    EXPECT_EQ(grx_recup_max_couleur_trace(), 32); // nothing was lowered
}

TEST_F(ShortageOn8, NoIconColoursAreAnError) {
    EXPECT_EQ(build_with(5), 0);
    EXPECT_EQ(lines_, error_5);
}

TEST_F(ShortageOn8, NoCellAtAllIsAnError) {
    EXPECT_EQ(build_with(0), 0);
    EXPECT_EQ(lines_, error_5);
}

TEST_F(ShortageOn8, NoReservedColoursAreAnError) {
    EXPECT_EQ(build_with(23), 0);
    EXPECT_EQ(lines_, error_5);
}

TEST_F(ShortageOn8, OneCellLessTakesOneDrawingColour) {
    EXPECT_EQ(build_with(55), 1);
    EXPECT_EQ(lines_, (Lines{"couleurs trace Maxi :31"})); // no further failure, so no second line
    EXPECT_EQ(grx_recup_max_couleur_trace(), 31);
    EXPECT_EQ(grx_premier_index_rendu(), 55);
    EXPECT_EQ(grx_dernier_index_rendu(), 56);
    EXPECT_EQ(grx_recup_max_couleur_rendu(), 0);
}

TEST_F(ShortageOn8, ManyDrawingColoursAreCutToWhatThereIs) {
    grx_affecte_max_couleur_trace(128);
    EXPECT_EQ(build_with(100), 1);
    EXPECT_EQ(lines_, (Lines{"couleurs trace Maxi :76", "couleurs rendu Maxi :1"}));
    EXPECT_EQ(grx_recup_max_couleur_trace(), 76);
    EXPECT_EQ(grx_premier_index_rendu(), 100);
    EXPECT_EQ(grx_dernier_index_rendu(), 101);
}

TEST_F(ShortageOn8, RenderingColoursAreCutToWhatThereIs) {
    grx_affecte_max_couleur_rendu(40);
    EXPECT_EQ(build_with(70), 1);
    EXPECT_EQ(lines_, (Lines{"couleurs rendu Maxi :14"}));
    EXPECT_EQ(grx_recup_max_couleur_rendu(), 14);
    EXPECT_EQ(grx_recup_max_couleur_trace(), 32);
    EXPECT_EQ(grx_premier_index_rendu(), 56);
    EXPECT_EQ(grx_dernier_index_rendu(), 70);
    for (INT k = 56; k < 70; ++k) EXPECT_EQ(trace_pix[k], grx::system_pix[k]);
    XSync(x11_disp, False);
    EXPECT_EQ(cell(trace_pix[8 + 31]), OtherClient::stored(drawing_colour(31)));
}

TEST_F(ShortageOn8, NoRenderingColourAtAll) {
    grx_affecte_max_couleur_rendu(40);
    EXPECT_EQ(build_with(56), 1);
    EXPECT_EQ(lines_, (Lines{"couleurs rendu Maxi :0"}));
    EXPECT_EQ(grx_dernier_index_rendu(), 56);
}

TEST_F(ShortageOn8, DrawingShortageWithRenderingColoursAskedFor) {
    grx_affecte_max_couleur_rendu(20);
    EXPECT_EQ(build_with(40), 1);
    EXPECT_EQ(lines_, (Lines{"couleurs trace Maxi :16", "couleurs rendu Maxi :1"}));
    EXPECT_EQ(grx_premier_index_rendu(), 40);
    EXPECT_EQ(grx_dernier_index_rendu(), 41);
}

TEST_F(ShortageOn8, TheProgramGoesOnAfterTheError) {
    start_with(20);
    ASSERT_TRUE(started_);
    GRX_FENETRE window{};
    grx_init_fenetre(&window);
    window.type = GRX_FEN_GRAPHIQUE;
    window.droite = 100;
    window.haut = 80;
    EXPECT_EQ(grx_cree_fenetre(&window), 0);
    grx_trace_segment({window.nofen, 0, 0, 50, 50, 0, 0, 0, attributes(9)});
    EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
}

class ShortageStartOn8 : public ShortageOn8 {};

TEST_F(ShortageStartOn8, LaterStartsWithRoomAreWhole) { // nothing of the shortage is compiled in
    start_with(183);
    EXPECT_EQ(lines_, Lines{});
    EXPECT_EQ(grx_premier_index_rendu(), 56);
}

} // namespace
