// Pictures put and stretched, against the same done pixel by pixel.
#include "tests/display/drawing/picture_kit.h"
#include "tests/support/controls.h"

#include "xt_prive.h"

#include <climits>
#include <string>
#include <vector>

namespace {

using namespace grxtest;

// --- putting --------------------------------------------------------------------------------------------------------

TEST_F(PictureTest, StandsOnTheScreenAndInTheBackingPicture) {
    const INT window = graphic_window();
    const Picture picture = random_picture(37, 23);
    const Pixels before = screen(window);
    put(to_window, window, picture, 11, 17);
    expect_shown(window, with_picture(before, picture, 11, 17));
}

TEST_F(PictureTest, ThirdByteIsRed) {
    const INT window = graphic_window();
    Picture picture{2, 1, {10, 20, 30, 0, 0, 255}, {4, 9}};
    put(to_window, window, picture, 0, 0);
    drain();
    EXPECT_EQ(screen(window).at(0, 0), picture.pixel(0, 0));
    EXPECT_EQ(screen(window).at(1, 0), picture.pixel(1, 0));
    if (grx_recup_profondeur_ecran() == 24) {
        EXPECT_EQ(screen(window).at(0, 0), 30U << 16 | 20U << 8 | 10U);
    }
}

TEST_F(PictureTest, IsClippedAtEveryEdge) {
    const INT window = graphic_window();
    const Picture picture = random_picture(50, 40);
    Pixels expected = screen(window);
    for (const auto& [x, y] : std::vector<std::pair<INT, INT>>{{-20, 30}, {-49, -39}, {100, -15}, {width - 20, 60},
             {width - 1, height - 1}, {70, height - 10}, {-10, height - 15}}) {
        put(to_window, window, picture, x, y);
        expected = with_picture(expected, picture, x, y);
        expect_shown(window, expected, std::to_string(x) + ", " + std::to_string(y));
    }
}

TEST_F(PictureTest, FarOutsideNothingIsDrawn) {
    const INT window = graphic_window();
    const Picture picture = random_picture(50, 40);
    const Pixels before = screen(window);
    for (INT far :
        {INT_MIN, INT_MIN + 1, -65536, -65536 + 10, -32768, -50, 32767, 32768, 65536, 65546, INT_MAX - 20, INT_MAX}) {
        put(to_window, window, picture, far, 10);
        stretch(to_window, window, picture, far, 10, 20, 20);
        if (far == -50) far = -40; // the height
        put(to_window, window, picture, 10, far);
        put(to_window, window, picture, far, far);
    }
    expect_shown(window, before);
}

TEST_F(PictureTest, LargerThanTheWindow) {
    const INT window = graphic_window();
    const Picture picture = random_picture(width * 3, height * 3);
    for (const auto& [x, y] : std::vector<std::pair<INT, INT>>{{0, 0}, {-width, -height}, {-13, 5}}) {
        const Pixels before = screen(window);
        put(to_window, window, picture, x, y);
        expect_shown(window, with_picture(before, picture, x, y));
    }
}

TEST_F(PictureTest, EverySmallSize) {
    const INT window = graphic_window();
    Pixels expected = screen(window);
    for (INT w = 1; w <= 18; ++w) {
        const Picture picture = random_picture(w, 19 - w, static_cast<unsigned>(w));
        put(to_window, window, picture, w * 11, w * 7);
        expected = with_picture(expected, picture, w * 11, w * 7);
    }
    expect_shown(window, expected);
}

TEST_F(PictureTest, BadSizesAndNullDrawNothing) {
    const INT window = graphic_window();
    const Pixels before = screen(window);
    Picture picture = random_picture(4, 4);
    const NoLeak no_leak;
    for (const auto& [w, h] : std::vector<std::pair<INT, INT>>{{0, 4}, {4, 0}, {-1, 4}, {4, -1}, {INT_MIN, INT_MIN}}) {
        grx_trace_image_reel_xy(to_window, window, picture.deep.data(), picture.indices.data(), w, h, 0, 0);
        grx_stretch_image(to_window, window, picture.deep.data(), picture.indices.data(), w, h, 0, 0, 9, 9);
        grx_stretch_image(to_window, window, picture.deep.data(), picture.indices.data(), 4, 4, 0, 0, w, h);
    }
    grx_stretch_image(to_window, window, picture.deep.data(), picture.indices.data(), 4, 4, 0, 0, 0, 0);
    grx_trace_image_reel_xy(to_window, window, nullptr, nullptr, 4, 4, 0, 0);
    grx_trace_image_dans_widget(to_window, window, nullptr, 4, 4, 0, 0);
    grx_stretch_image(to_window, window, nullptr, nullptr, 4, 4, 0, 0, 9, 9);
    expect_shown(window, before);
}

TEST_F(PictureTest, UnknownTargetsDrawNothing) {
    const INT window = graphic_window();
    const Pixels before = screen(window);
    for (INT number : {-1, 0, 77, 100, 999, 1000, INT_MIN, INT_MAX}) {
        if (number != window) put(to_window, number, random_picture(4, 4), 0, 0);
        put(to_button, number, random_picture(4, 4), 0, 0);
        if (number != window) stretch(to_window, number, random_picture(4, 4), 0, 0, 9, 9);
        stretch(to_button, number, random_picture(4, 4), 0, 0, 9, 9);
        grx_alloue_image_reel(to_button, number);
        grx_desalloue_image_reel(to_button, number);
    }
    expect_shown(window, before);
}

TEST_F(PictureTest, TargetWithoutBackingPictureGetsNothing) {
    const INT plain = window_of(GRX_FEN_ALPHA, {40, 60, width, height});
    const Pixels before = screen(plain);
    ASSERT_TRUE(record(plain).image == nullptr || *record(plain).image == 0);
    put(to_window, plain, random_picture(30, 30), 5, 5);
    stretch(to_window, plain, random_picture(30, 30), 5, 5, 60, 60);
    drain();
    EXPECT_TRUE(same(screen(plain), before));
    const INT label = label_in(plain, {10, 10, 60, 40});
    const Pixels empty = button_screen(label);
    put(to_button, label, random_picture(30, 30), 5, 5);
    drain();
    EXPECT_TRUE(same(button_screen(label), empty));
}

TEST_F(PictureTest, AButtonIsATarget) {
    const INT window = window_of(GRX_FEN_ALPHA, {40, 60, width, height});
    const INT area = area_in(window, 20, 10, 100, 80);
    const Picture picture = random_picture(37, 23), large = random_picture(300, 200);
    ASSERT_NE(button_record(area).image, 0U);
    for (INT type : {0, 2, -1}) {
        Pixels expected = button_screen(area);
        const Pixels memory_before = grab(x11_disp, button_record(area).image);
        put(type, area, picture, -5, 70);
        drain();
        EXPECT_TRUE(same(button_screen(area), with_picture(expected, picture, -5, 70)));
        EXPECT_TRUE(same(grab(x11_disp, button_record(area).image), with_picture(memory_before, picture, -5, 70)));
        expected = button_screen(area);
        stretch(type, area, large, 3, 4, 50, 61);
        drain();
        EXPECT_TRUE(same(button_screen(area), with_picture(expected, large, 3, 4, 50, 61)));
    }
}

// What the copy has no room for is on the screen all the same.
TEST_F(PictureTest, AButtonLargerThanItsCopyShowsTheWholePicture) {
    const INT window = window_of(GRX_FEN_ALPHA, {40, 60, width, height});
    const INT area = area_in(window, 5, 5, 60, 50);
    grx_change_taille_bouton(area, 150, 140);
    drain();
    const Picture picture = random_picture(110, 90), small = random_picture(20, 15);
    const Pixels before = button_screen(area), copy = grab(x11_disp, button_record(area).image);
    ASSERT_EQ(before.width, 150);
    ASSERT_EQ(copy.width, 60);
    put(to_button, area, picture, 10, 8);
    stretch(to_button, area, small, 100, 30, 40, 60);
    drain();
    EXPECT_TRUE(same(button_screen(area), with_picture(with_picture(before, picture, 10, 8), small, 100, 30, 40, 60)));
    EXPECT_TRUE(same(grab(x11_disp, button_record(area).image), with_picture(copy, picture, 10, 8)));
}

TEST_F(PictureTest, ACopyLargerThanItsButtonHoldsTheWholePicture) {
    const INT window = window_of(GRX_FEN_ALPHA, {40, 60, width, height});
    const INT area = area_in(window, 5, 5, 150, 140);
    grx_change_taille_bouton(area, 60, 50);
    drain();
    const Picture picture = random_picture(110, 90);
    const Pixels before = button_screen(area), copy = grab(x11_disp, button_record(area).image);
    put(to_button, area, picture, 10, 8);
    drain();
    EXPECT_TRUE(same(button_screen(area), with_picture(before, picture, 10, 8)));
    EXPECT_TRUE(same(grab(x11_disp, button_record(area).image), with_picture(copy, picture, 10, 8)));
}

// The number of a freed copy may stay in the record.
TEST_F(PictureTest, AButtonWhoseCopyIsFreedGetsNothing) {
    const INT area = area_in(window_of(GRX_FEN_ALPHA, {40, 60, width, height}), 5, 5, 60, 50);
    const Pixels before = button_screen(area);
    grx_desinstalle_bitmap(area);
    permit_x_errors();
    put(to_button, area, random_picture(20, 15), 5, 5);
    stretch(to_button, area, random_picture(20, 15), 5, 5, 40, 30);
    drain();
    EXPECT_TRUE(same(button_screen(area), before));
}

// Seen by another connection, while ours sends nothing more.
TEST_F(PictureTest, PicturesAreSentAtOnce) {
    const INT window = graphic_window();
    const Pixels before = screen(window);
    const Picture picture = random_picture(20, 10);
    const auto shows = [&](const Pixels& expected) {
        return wait_until([&] { return grab(test_display(), x_window(window)) == expected; }, [] {});
    };
    put(to_window, window, picture, 11, 17);
    const Pixels one = with_picture(before, picture, 11, 17);
    EXPECT_TRUE(shows(one));
    stretch(to_window, window, picture, 60, 60, 30, 40);
    EXPECT_TRUE(shows(with_picture(one, picture, 60, 60, 30, 40)));
}

// Whatever mode was drawn in last.
TEST_F(PictureTest, ExclusiveOrDrawingBeforeDoesNotMatter) {
    const INT window = graphic_window();
    const Picture picture = random_picture(37, 23);
    Pixels expected = screen(window);
    grx_affecte_gc(attributes(5, 0, 2048));
    put(to_window, window, picture, 11, 17);
    expected = with_picture(expected, picture, 11, 17);
    expect_shown(window, expected);
    grx_affecte_gc(attributes(5, 0, 2048));
    stretch(to_window, window, picture, 30, 40, 60, 50);
    expect_shown(window, with_picture(expected, picture, 30, 40, 60, 50));
}

TEST_F(PictureTest, SelectingATargetSendsTheBackgroundColours) {
    const INT window = graphic_window(), area = area_in(window_of(GRX_FEN_ALPHA, {400, 60, 200, 150}), 20, 10, 100, 80);
    const auto colours = [] {
        XGCValues values{};
        XGetGCValues(x11_disp, g_c, GCForeground | GCBackground | GCFunction, &values);
        return values;
    };
    const auto select = [&](INT type, INT number) {
        grx_affecte_gc(attributes(5, 3));
        grx_alloue_image_reel(type, number);
        return colours();
    };
    for (const auto& [type, number] : std::vector<std::pair<INT, INT>>{{to_window, window}, {to_button, area}}) {
        const XGCValues sent = select(type, number);
        EXPECT_EQ(sent.foreground, background());
        EXPECT_EQ(sent.background, background());
        EXPECT_EQ(sent.function, GXcopy);
        EXPECT_EQ(grx::memo_attrib.coul_fond, grx_recup_couleur_fond());
    }
    for (const auto& [type, number] : std::vector<std::pair<INT, INT>>{{to_window, 77}, {to_button, 77}}) {
        const XGCValues untouched_values = select(type, number);
        EXPECT_EQ(untouched_values.foreground, drawn_pixel(5));
        EXPECT_EQ(untouched_values.background, drawn_pixel(3));
    }
}

TEST_F(PictureTest, PutWhileUnmappedItIsInTheBackingPicture) {
    const INT window = graphic_window();
    grx_cache_fenetre(window);
    ASSERT_TRUE(wait_for([&] { return !visible(x_window(window)); }));
    const Pixels before = memory(window);
    const Picture picture = random_picture(40, 30);
    put(to_window, window, picture, 5, 6);
    const Pixels expected = with_picture(before, picture, 5, 6);
    EXPECT_TRUE(same(memory(window), expected));
    grx_affiche_fenetre(window);
    ASSERT_TRUE(wait_visible(grx_recup_objet_fen(window)));
    expect_shown(window, expected);
}

TEST_F(PictureTest, CoveredWindowGetsItsPicture) {
    const INT window = graphic_window();
    const INT cover = graphic_window({60, 80, 100, 70});
    grx_reaffiche_fenetre(cover);
    drain();
    const Pixels before = memory(window);
    const Picture picture = random_picture(200, 150), small = random_picture(20, 15);
    put(to_window, window, picture, 5, 6);
    put(to_window, window, small, 40, 40);
    const Pixels expected = with_picture(with_picture(before, picture, 5, 6), small, 40, 40);
    grx_cache_fenetre(cover);
    drain();
    expect_shown(window, expected);
}

TEST_F(PictureTest, NothingIsLeftOnTheHeap) {
    const INT window = graphic_window();
    put(to_window, window, random_picture(200, 150), 0, 0);
    stretch(to_window, window, random_picture(20, 15), 0, 0, 200, 100);
    stretch(to_window, window, random_picture(200, 150), 0, 0, 30, 20);
    const auto bytes = heap().bytes();
    for (int i = 0; i < 10; ++i) {
        put(to_window, window, random_picture(200, 150), 0, 0);
        stretch(to_window, window, random_picture(20, 15), 0, 0, 200, 100);
        stretch(to_window, window, random_picture(200, 150), 0, 0, 30, 20);
    }
    EXPECT_EQ(heap().bytes(), bytes);
}

TEST_F(PictureTest, ShortageDrawsNothingOrAll) {
    const INT window = graphic_window();
    const Pixels before = screen(window);
    const Picture picture = random_picture(60, 50);
    const Pixels after = with_picture(before, picture, 3, 4);
    grx_affecte_nofen_active(window);
    fail_each_allocation([&] {
        put(to_window, window, picture, 3, 4);
        drain();
        EXPECT_TRUE(screen(window) == before || screen(window) == after);
    });
    fail_each_allocation([&] { stretch(to_window, window, picture, 3, 4, 100, 90); });
    EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
}

// --- stretching -----------------------------------------------------------------------------------------------------

struct Stretch {
    INT width, height, final_width, final_height;
};

void PrintTo(const Stretch& s, std::ostream* out) {
    *out << s.width << " x " << s.height << " to " << s.final_width << " x " << s.final_height;
}

class Stretching : public PictureTest, public testing::WithParamInterface<Stretch> {};

TEST_P(Stretching, TakesTheTruncatedQuotient) {
    const auto [w, h, fw, fh] = GetParam();
    const INT window = graphic_window();
    const Picture picture = random_picture(w, h);
    for (const auto& [x, y] : std::vector<std::pair<INT, INT>>{{7, 5}, {-9, -11}, {width - 12, height - 14}}) {
        const Pixels before = screen(window);
        stretch(to_window, window, picture, x, y, fw, fh);
        expect_shown(window, with_picture(before, picture, x, y, fw, fh), std::to_string(x));
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, Stretching,
    testing::Values(Stretch{10, 10, 10, 10}, Stretch{10, 10, 20, 20}, Stretch{10, 10, 21, 33}, Stretch{10, 10, 1, 1},
        Stretch{1, 1, 50, 40}, Stretch{100, 80, 33, 27}, Stretch{100, 80, 99, 79}, Stretch{99, 79, 100, 80},
        Stretch{7, 5, 230, 170}, Stretch{640, 480, 200, 150}, Stretch{3, 200, 200, 3}, Stretch{10, 10, 10, 30},
        Stretch{10, 10, 30, 10}, Stretch{50, 50, 700, 600}, Stretch{2, 3, 5, 7}, Stretch{1000, 1, 240, 180}));

TEST_F(PictureTest, HugeEnlargementShowsItsPart) {
    const INT window = graphic_window();
    const Picture picture = random_picture(8, 8);
    const Pixels before = screen(window);
    const NoLeak no_leak;
    stretch(to_window, window, picture, -9000, -9000, 20000, 20000);
    expect_shown(window, with_picture(before, picture, -9000, -9000, 20000, 20000));
}

// Only the part on the target is worked out, however large the whole would be.
TEST_F(PictureTest, AnEnlargementOfAnySizeShowsItsPart) {
    const INT window = graphic_window();
    const Picture picture = random_picture(8, 8);
    constexpr INT far = INT_MIN / 2 + 30; // four of its pixels meet in the window
    const NoLeak no_leak;
    stretch(to_window, window, picture, far, far, INT_MAX, INT_MAX - 1);
    Pixels expected = screen(window);
    for (INT y = 0; y < height; ++y)
        for (INT x = 0; x < width; ++x)
            expected.values[static_cast<std::size_t>(y * width + x)] = picture.pixel(
                static_cast<INT>(8L * (x - far) / INT_MAX), static_cast<INT>(8L * (y - far) / (INT_MAX - 1)));
    expect_shown(window, expected);
}

// --- both ways of sending -------------------------------------------------------------------------------------------

class WithoutSharedMemory : public PictureTest {
  protected:
    XServerOptions server_options() const override { return {.arguments = {"-extension", "MIT-SHM"}}; }
};

TEST_F(WithoutSharedMemory, PixelsAreTheSame) {
    int opcode = 0, event = 0, error = 0;
    ASSERT_FALSE(XQueryExtension(x11_disp, "MIT-SHM", &opcode, &event, &error));
    const INT window = graphic_window({40, 60, 700, 500});
    for (const auto& [w, h] : std::vector<std::pair<INT, INT>>{{20, 20}, {300, 200}, {690, 480}}) {
        const Pixels before = screen(window);
        const Picture picture = random_picture(w, h);
        put(to_window, window, picture, 6, 7);
        expect_shown(window, with_picture(before, picture, 6, 7));
        stretch(to_window, window, picture, -20, 30, 650, 430);
        expect_shown(window, with_picture(with_picture(before, picture, 6, 7), picture, -20, 30, 650, 430));
    }
    grx_affecte_nofen_active(window);
    Bytes read(650 * 430, 0x77);
    grx_recup_image(0, 30, 600, 400, read.data());
    EXPECT_NE(read[0], 0x77);
}

// The server, which has other work to do first, reads none of them before the last is made.
TEST_F(PictureTest, LargePicturesInARowAreTheSame) {
    const INT window = graphic_window({40, 60, 700, 500});
    for (int i = 0; i < 2; ++i) put(to_window, window, random_picture(700, 500), 0, 0); // room for the largest
    Pixels expected = screen(window);
    constexpr unsigned side = 1000;
    const Pixmap elsewhere =
        XCreatePixmap(x11_disp, x_window(window), side, side, static_cast<unsigned>(grx_recup_profondeur_ecran()));
    for (int i = 0; i < 200; ++i) XCopyArea(x11_disp, elsewhere, elsewhere, g_c, 0, 0, side, side, 1, 1);
    for (unsigned i = 0; i < 6; ++i) {
        const INT shift = static_cast<INT>(i) * 30 - 40;
        const Picture picture = random_picture(600, 450, i + 1);
        put(to_window, window, picture, shift, shift);
        expected = with_picture(expected, picture, shift, shift);
    }
    XFreePixmap(x11_disp, elsewhere);
    expect_shown(window, expected);
}

// --- memory drawing -------------------------------------------------------------------------------------------------

class MemoryPicture : public PictureTest {
  protected:
    static void box(INT window, INT colour) { draw(window, filled(attributes(colour), 20, 20, 90, 70)); }
};

TEST_F(MemoryPicture, EndsByShowingThePicture) {
    const INT window = active_window();
    grx_alloue_image(window);
    box(window, 4);
    drain();
    EXPECT_EQ(screen(window).count(drawn_pixel(4)), 0);
    const Pixels drawn = memory(window);
    EXPECT_GT(drawn.count(drawn_pixel(4)), 1000);
    const Cost cost(x11_disp);
    grx_trace_image(1);
    EXPECT_EQ(cost.round_trips(), 1U); // the picture is there when it returns
    EXPECT_TRUE(same(screen(window), drawn));
    EXPECT_TRUE(same(memory(window), drawn));
    box(window, 9);
    grx_trace_image(0);
    EXPECT_GT(screen(window).count(drawn_pixel(9)), 1000);
    EXPECT_EQ(memory(window).count_other(background()), 0); // ready for the next
    grx_desalloue_image();
}

TEST_F(MemoryPicture, ShowsAfterExclusiveOrDrawingToo) {
    const INT window = active_window();
    grx_alloue_image(window);
    draw(window, {Primitive::Kind::filled_rectangle, attributes(4, 0, 2048), {20, 20, 90, 70}, {}});
    const Pixels drawn = memory(window);
    grx_trace_image(1);
    EXPECT_TRUE(same(screen(window), drawn));
    EXPECT_GT(drawn.count_other(background()), 1000);
    grx_desalloue_image();
}

TEST_F(MemoryPicture, WithoutMemoryDrawingNothingHappens) {
    const INT window = active_window();
    box(window, 4);
    drain();
    const Pixels before = screen(window), kept = memory(window);
    XClearWindow(x11_disp, x_window(window));
    const Pixels cleared = screen(window);
    grx_trace_image(0);
    grx_trace_image(1);
    EXPECT_TRUE(same(screen(window), cleared));
    EXPECT_TRUE(same(memory(window), kept));
    EXPECT_FALSE(cleared == before);
}

// --- constants ------------------------------------------------------------------------------------------------------

TEST_F(PictureTest, BlackAndWhiteAreTheScreens) {
    EXPECT_EQ(static_cast<unsigned long>(grx_noir_systeme()), BlackPixel(x11_disp, DefaultScreen(x11_disp)));
    EXPECT_EQ(static_cast<unsigned long>(grx_blanc_systeme()), WhitePixel(x11_disp, DefaultScreen(x11_disp)));
}

TEST_F(PictureTest, ThereIsNoOutlineFont) {
    char nothing[] = "", arial[] = "Arial", chars[] = "abc";
    for (char* font : {nothing, arial}) {
        EXPECT_EQ(grx_select_font_truetype(font), -1);
        EXPECT_EQ(grx_verifie_truetype(font), 0);
    }
    EXPECT_EQ(grx_select_font_truetype(nullptr), -1);
    EXPECT_EQ(grx_verifie_truetype(nullptr), 0);
    DOUBLE extents[3] = {1.5, 2.5, 3.5};
    grx_texte_extent_truetype(3, chars, 10.0, 1.0, arial, extents);
    EXPECT_EQ(extents[0], 1.5);
    EXPECT_EQ(extents[1], 2.5);
    EXPECT_EQ(extents[2], 3.5);
    DEF_CONTOURS mark{};
    DEF_CONTOURS* outlines = &mark;
    EXPECT_EQ(get_contours_texte_truetype(GRX_TEXTE{}, &outlines), 0);
    EXPECT_EQ(outlines, &mark);
}

} // namespace
