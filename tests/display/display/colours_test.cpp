// Colours of both depths: indices, pixels, and the colours behind them.
#include "display/colours.h"
#include "display/colours_state.h"
#include "tests/display/display/colours_kit.h"
#include "tests/display/drawing/drawing_kit.h"

#include <array>
#include <climits>
#include <set>
#include <vector>

namespace {

using namespace grxtest;

constexpr INT icons = 16, reserved = 8;

Triple icon(INT index) {
    Triple rgb{-1, -1, -1};
    grx_recup_rgb_icone(index, rgb.data());
    return rgb;
}

// --- pixel tables of both depths ------------------------------------------------------------------------------------

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
        grx_modif_rgb(index, rgb.data());
        grx_recup_rgb(index, rgb.data());
        grx_recup_rgb_icone(index, rgb.data());
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

// --- 24 planes ----------------------------------------------------------------------------------------------------------

TEST_F(ColoursOn24, PixelsAreComputedFromThePalettes) {
    for (INT k = 0; k < icons; ++k)
        if (k != 8) EXPECT_EQ(grx::system_pix[k], pixel(icon_colour(k))) << k; // 8 is the icons' background
    for (INT k = 0; k < reserved; ++k)
        EXPECT_EQ(trace_pix[k], pixel(reserved_colours[static_cast<std::size_t>(k)])) << k;
    for (INT k = 0; k < 32; ++k) EXPECT_EQ(trace_pix[reserved + k], pixel(drawing_colour(k))) << k;
}

TEST_F(ColoursOn24, ChangingAReservedOrDrawingColourReachesBothTables) {
    Triple red{255, 0, 0}, other{1, 2, 3};
    grx_modif_rgb(0, red.data());
    EXPECT_EQ(trace_pix[0], 255 << 16);
    EXPECT_EQ(grx::system_pix[icons], 255 << 16);
    grx_modif_rgb(39, other.data());
    EXPECT_EQ(trace_pix[39], 0x010203);
    EXPECT_EQ(grx::system_pix[icons + 39], 0x010203);
}

TEST_F(ColoursOn24, ChangingAnIndexOfTheGapStaysInOneTable) {
    const std::vector<INT> system(grx::system_pix, grx::system_pix + 256);
    Triple rgb{1, 2, 3};
    for (INT index = 40; index < 56; ++index) {
        grx_modif_rgb(index, rgb.data());
        EXPECT_EQ(trace_pix[index], 0x010203) << index;
    }
    EXPECT_EQ(std::vector<INT>(grx::system_pix, grx::system_pix + 256), system);
}

TEST_F(ColoursOn24, ChangingARenderingColourKeepsItsPosition) {
    Triple rgb{1, 2, 3};
    for (const INT index : {56, 100, 255}) {
        grx_modif_rgb(index, rgb.data());
        EXPECT_EQ(trace_pix[index], 0x010203);
        EXPECT_EQ(grx::system_pix[index], 0x010203);
    }
}

TEST_F(ColoursOn24, ChangingAColourAsksNobody) {
    Triple rgb{1, 2, 3};
    const Cost cost(x11_disp);
    for (INT index = 0; index < 256; ++index) grx_modif_rgb(index, rgb.data());
    EXPECT_EQ(cost.requests(), 0U);
}

TEST_F(ColoursOn24, RenderingColoursAreBlackUntilSet) {
    for (INT k = 56; k < 256; ++k) EXPECT_EQ(trace_pix[k], 0) << k;
}

TEST_F(ColoursOn24, ColoursReadBackAsTheyWereWritten) {
    for (INT c = 0; c < 256; ++c) {
        Triple rgb{c, 255 - c, (c * 7) % 256};
        grx_modif_rgb(9, rgb.data());
        EXPECT_EQ(colour_at(9), rgb);
    }
    for (INT k = 0; k < reserved; ++k) EXPECT_EQ(colour_at(k), reserved_colours[static_cast<std::size_t>(k)]);
    for (INT k = 0; k < icons; ++k)
        if (k != 8) EXPECT_EQ(icon(k), icon_colour(k)) << k;
}

TEST_F(ColoursOn24, ATripleIsFoundByItsFirstExactIndex) {
    INT index = 77;
    Triple black{0, 0, 0}, white{255, 255, 255}, near{255, 255, 254};
    EXPECT_EQ(grx_recup_index_image(black.data(), &index), 1);
    EXPECT_EQ(index, 1); // 0 is not black
    EXPECT_EQ(grx_recup_index_image(white.data(), &index), 1);
    EXPECT_EQ(index, 5);
    index = 77;
    EXPECT_EQ(grx_recup_index_image(near.data(), &index), 0); // nothing near counts
    EXPECT_EQ(index, 0);
}

TEST_F(ColoursOn24, OnlyReservedAndDrawingColoursAreSearched) {
    INT index = 77;
    Triple rgb{11, 22, 33};
    grx_modif_rgb(40, rgb.data());
    grx_modif_rgb(56, rgb.data());
    EXPECT_EQ(grx_recup_index_image(rgb.data(), &index), 0);
    EXPECT_EQ(index, 0);
    grx_modif_rgb(39, rgb.data());
    EXPECT_EQ(grx_recup_index_image(rgb.data(), &index), 1);
    EXPECT_EQ(index, 39);
    grx_recup_index_image(rgb.data(), nullptr);
    EXPECT_EQ(grx_recup_index_image(nullptr, &index), 0);
}

// --- 8 planes ---------------------------------------------------------------------------------------------------------

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
    grx_modif_rgb(12, rgb.data());
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
    for (INT index = 40; index < 256; ++index) grx_modif_rgb(index, rgb.data());
    XSync(x11_disp, False);
    for (INT pixel = 0; pixel < 256; ++pixel)
        EXPECT_EQ(other().cell(pixel), before[static_cast<std::size_t>(pixel)]) << pixel;
}

TEST_F(ColoursOn8, AServerOf8BitsRoundsWhatIsReadBack) {
    Triple rgb{255, 64, 127};
    grx_modif_rgb(12, rgb.data());
    EXPECT_EQ(colour_at(12), (Triple{255, 63, 126}));
    rgb = {0, 1, 2};
    grx_modif_rgb(12, rgb.data());
    EXPECT_EQ(colour_at(12), (Triple{0, 0, 1}));
}

// KEEP: c + 1 divided by 255 in integers: a component at full intensity reads 257.
TEST_F(ColoursOn8, FullIntensityReads257) {
    XColor cell{};
    cell.pixel = drawn_pixel(12);
    cell.red = 65535;
    cell.green = 257 * 127; // one below 128 times 255
    cell.blue = 0;
    cell.flags = DoRed | DoGreen | DoBlue;
    XStoreColor(x11_disp, x11_cmap, &cell);
    EXPECT_EQ(colour_at(12), (Triple{257, 128, 0}));
    cell.pixel = static_cast<unsigned long>(grx::icone_pix[12]);
    XStoreColor(x11_disp, x11_cmap, &cell);
    EXPECT_EQ(icon(12), (Triple{257, 128, 0}));
}

// KEEP: the pixel is composed as on a deep screen, the shifts being 0.
TEST_F(ColoursOn8, ATripleIsSearchedByItsSum) {
    INT index = 77;
    const INT pixel = trace_pix[11];
    Triple sum{pixel - 3, 1, 2};
    EXPECT_EQ(grx_recup_index_image(sum.data(), &index), 1);
    EXPECT_EQ(index, 11);
    Triple nothing{255, 255, 255}; // 765 is no pixel
    EXPECT_EQ(grx_recup_index_image(nothing.data(), &index), 0);
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

} // namespace
