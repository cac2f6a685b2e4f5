// Pictures read back from the screen, against what was put there.
#include "tests/display/drawing/picture_kit.h"

#include <Xm/XmAll.h>

#include <climits>
#include <random>
#include <vector>

namespace {

using namespace grxtest;

class Reading : public PictureTest {
  protected:
    // Indices shown everywhere in the window, and what they are.
    INT patterned_window(const Area& area = {40, 60, width, height}) {
        const INT window = graphic_window(area);
        std::mt19937 random(3);
        pattern.resize(static_cast<std::size_t>(area.width) * static_cast<std::size_t>(area.height));
        Picture picture{area.width, area.height, {}, {}};
        for (auto& index : pattern) {
            index = static_cast<uchar>(random() % 32);
            const auto pixel = drawn_pixel(index);
            for (INT shift : {dec_blue, dec_green, dec_red})
                picture.deep.push_back(static_cast<uchar>(shift < 32 ? pixel >> shift : 0));
            picture.indices.push_back(index);
        }
        put(to_window, window, picture, 0, 0);
        drain();
        grx_affecte_nofen_active(window);
        shown = picture;
        pattern_width = area.width;
        return window;
    }
    // On 8 planes the bytes are the screen's own. Else: the pixel of an index may be that of a lower one as well: the lowest is read.
    static uchar lowest(uchar index) {
        uchar i = 0;
        while (drawn_pixel(i) != drawn_pixel(index)) ++i;
        return i;
    }
    uchar expected(INT x, INT y) const {
        const uchar index = pattern[static_cast<std::size_t>(y * pattern_width + x)];
        return grx_recup_profondeur_ecran() == 8 ? static_cast<uchar>(drawn_pixel(index)) : lowest(index);
    }

    Bytes pattern;
    Picture shown;
    INT pattern_width = 0;
};

TEST_F(Reading, GivesIndicesOrThePixelsOf8Planes) {
    patterned_window();
    Bytes read(30 * 20, 0x77);
    grx_recup_image(13, 17, 30, 20, read.data());
    for (INT y = 0; y < 20; ++y)
        for (INT x = 0; x < 30; ++x)
            ASSERT_EQ(read[static_cast<std::size_t>(y * 30 + x)], expected(13 + x, 17 + y)) << x << ", " << y;
}

TEST_F(Reading, TheWholeWindow) {
    patterned_window();
    Bytes read(static_cast<std::size_t>(width) * height + 1, 0x77);
    grx_recup_image(0, 0, width, height, read.data());
    for (INT y = 0; y < height; ++y)
        for (INT x = 0; x < width; ++x) ASSERT_EQ(read[static_cast<std::size_t>(y * width + x)], expected(x, y));
    EXPECT_EQ(read.back(), 0x77);
}

TEST_F(Reading, EndsAtTheEdges) {
    patterned_window();
    Bytes read(60 * 50, 0), other(60 * 50, 0xFF); // a byte that stays is different in both
    for (Bytes* into : {&read, &other}) grx_recup_image(width - 10, height - 5, 60, 50, into->data());
    std::size_t written = 0;
    for (std::size_t i = 0; i < read.size(); ++i) written += read[i] == other[i] ? 1U : 0U;
    EXPECT_EQ(written, 50U); // 10 x 5 pixels
    for (INT x = 0; x < 10; ++x)
        EXPECT_EQ(read[static_cast<std::size_t>(x)], expected(width - 10 + x, height - 5)) << x;
}

// A row of the array is as long as asked for, whatever part of it can be read.
TEST_F(Reading, RowsThatAreCutShortKeepTheirPlace) {
    patterned_window();
    Bytes read(60 * 50, 0x77);
    grx_recup_image(width - 10, height - 5, 60, 50, read.data());
    for (INT y = 0; y < 50; ++y)
        for (INT x = 0; x < 60; ++x)
            ASSERT_EQ(read[static_cast<std::size_t>(y * 60 + x)],
                x < 10 && y < 5 ? expected(width - 10 + x, height - 5 + y) : 0x77)
                << x << ", " << y;
}

TEST_F(Reading, OutsideNothingIsWritten) {
    patterned_window();
    Bytes read(100, 0x77);
    for (const auto& [x, y] : std::vector<std::pair<INT, INT>>{{width, 0}, {0, height}, {5000, 0}, {INT_MAX, INT_MAX}})
        grx_recup_image(x, y, 10, 10, read.data());
    for (const auto& [w, h] : std::vector<std::pair<INT, INT>>{{0, 5}, {5, 0}, {-1, 5}, {INT_MIN, INT_MIN}})
        grx_recup_image(0, 0, w, h, read.data());
    grx_recup_image(0, 0, 10, 10, nullptr);
    EXPECT_EQ(read, Bytes(100, 0x77));
}

TEST_F(Reading, HugeSizesAreThoseOfTheWindow) {
    patterned_window();
    Bytes read(static_cast<std::size_t>(width) * height, 0x77);
    grx_recup_image(0, 0, width, INT_MAX, read.data());
    EXPECT_EQ(read[0], expected(0, 0));
    EXPECT_EQ(read.back(), expected(width - 1, height - 1));
}

TEST_F(Reading, NegativePlacesAreRaisedToZero) {
    patterned_window();
    Bytes read(20 * 20, 0x77);
    grx_recup_image(-5, -7, 20, 20, read.data());
    EXPECT_EQ(read[0], expected(0, 0));
    EXPECT_EQ(read[1], expected(1, 0));
}

TEST_F(Reading, LeavesTheContextCopying) {
    patterned_window();
    grx_affecte_gc(attributes(5, 0, 2048));
    Bytes read(100, 0x77);
    grx_recup_image(0, 0, 10, 10, read.data());
    XGCValues values{};
    XGetGCValues(x11_disp, g_c, GCFunction, &values);
    EXPECT_EQ(values.function, GXcopy);
}

TEST_F(Reading, UnmappedWindowOrNoneWritesNothing) {
    const INT window = patterned_window();
    Bytes read(100, 0x77);
    for (INT none : {-1, 0, 77, 100, INT_MAX, INT_MIN}) {
        grx_affecte_nofen_active(none);
        grx_recup_image(0, 0, 10, 10, read.data());
    }
    grx_affecte_nofen_active(window);
    grx_cache_fenetre(window);
    ASSERT_TRUE(wait_for([&] { return !visible(x_window(window)); }));
    permit_x_errors();
    grx_recup_image(0, 0, 10, 10, read.data());
    EXPECT_EQ(read, Bytes(100, 0x77));
}

TEST_F(Reading, PartlyOffTheScreen) {
    patterned_window({1280 - 100, 60, width, height});
    Bytes read(static_cast<std::size_t>(width) * height, 0x77);
    grx_recup_image(0, 0, 90, 20, read.data());
    EXPECT_EQ(read[0], expected(0, 0));
    EXPECT_EQ(read[89], expected(89, 0));
    grx_recup_image(50, 0, width - 50, 20, read.data()); // beyond the edge: some answer, no error
    EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
}

TEST_F(Reading, PartlyOffTheScreenOnTheLeftAndAbove) {
    const INT window = patterned_window();
    constexpr int hidden_left = 70, hidden_above = 40;
    XMoveWindow(x11_disp, XtWindow(grx_recherche_shell(grx_recup_objet_fen(window))), -hidden_left, -hidden_above);
    drain();
    put(to_window, window, shown, 0, 0); // what left the screen was not kept
    Bytes read(static_cast<std::size_t>(width) * height, 0x77);
    grx_recup_image(0, 0, width, height, read.data());
    for (INT y = hidden_above; y < height; ++y)
        for (INT x = hidden_left; x < width; ++x)
            ASSERT_EQ(read[static_cast<std::size_t>(y * width + x)], expected(x, y)) << x << ", " << y;
    EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
}

TEST_F(Reading, EveryColourIsKnownUpToTheLast) {
    if (grx_recup_profondeur_ecran() == 8) return; // every pixel is a cell there
    const INT window = patterned_window();
    INT colour[3] = {0x13, 0x57, 0x9B};
    for (const INT index : {0, grx_recup_max_couleur_reserve(), grx_recup_max_couleur_trace(),
             grx_recup_max_couleur_reserve() + grx_recup_max_couleur_trace() - 1}) {
        ++colour[0];
        grx_modif_rgb(index, colour);
        const auto component = [&](int i) { return static_cast<uchar>(colour[i]); };
        put(to_window, window, Picture{1, 1, {component(2), component(1), component(0)}, {0}}, 0, 0);
        uchar read = 0x77;
        grx_recup_image(0, 0, 1, 1, &read);
        EXPECT_EQ(read, index);
    }
}

TEST_F(Reading, UnknownColourReadsAs0) {
    if (grx_recup_profondeur_ecran() == 8) return; // every pixel is a cell there
    const INT window = patterned_window();
    put(to_window, window, Picture{1, 1, {0x13, 0x57, 0x9B}, {0}}, 0, 0);
    drain();
    uchar read = 0x77;
    grx_recup_image(0, 0, 1, 1, &read);
    EXPECT_EQ(read, 0);
}

class ReadingWithoutSharedMemory : public Reading {
  protected:
    XServerOptions server_options() const override { return {.arguments = {"-extension", "MIT-SHM"}}; }
};

TEST_F(ReadingWithoutSharedMemory, StripsFitTogether) {
    constexpr INT across = 700, down = 500;
    patterned_window({40, 60, across, down});
    Bytes read(static_cast<std::size_t>(across) * down, 0x77);
    grx_recup_image(3, 5, across - 3, down - 5, read.data());
    for (INT y = 5; y < down; ++y)
        for (INT x = 3; x < across; ++x)
            ASSERT_EQ(read[static_cast<std::size_t>((y - 5) * (across - 3) + x - 3)], expected(x, y)) << x << ", " << y;
}

} // namespace
