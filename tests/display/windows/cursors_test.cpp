// The cursors of windows, as the server shows them under the pointer.
#include "tests/support/cursor_kit.h"

#include "pure/cursor_bits.h"

#include <X11/cursorfont.h>

#include <climits>
#include <cstdlib>
#include <set>

namespace {

using namespace grxtest;

constexpr std::uint32_t white = 0xFFFFFFFF; // opaque
constexpr std::uint32_t clear = 0;

class Cursors : public DisplayTest {
  protected:
    // The shapes of the server's own font, not those of a theme, which have many colours.
    void before_start() override { setenv("XCURSOR_CORE", "1", 1); }

    void SetUp() override {
        DisplayTest::SetUp();
        ASSERT_NE(in_xfixes<decltype(XFixesGetCursorImage)>("XFixesGetCursorImage"), nullptr) << "no libXfixes.so.3";
        window_ = make(GRX_FEN_ALPHA);
        ASSERT_TRUE(wait_visible(widget_of(window_)));
        pointer().move_in(widget_of(window_), 100, 75);
        drain();
    }

    Shape shown() { return shown_cursor(test_display()); }

    Shape shown_as(INT cursor) {
        EXPECT_EQ(grx_change_curseur(cursor, window_), 0);
        return shown();
    }

    // What the same glyph looks like when the test itself asks for it.
    Shape glyph(unsigned number) {
        Window window =
            XCreateSimpleWindow(test_display(), DefaultRootWindow(test_display()), 0, 0, 1280, 1024, 0, 0, 0);
        XDefineCursor(test_display(), window, XCreateFontCursor(test_display(), number));
        XMapRaised(test_display(), window);
        XSync(test_display(), False);
        const Shape shape = shown();
        XDestroyWindow(test_display(), window);
        XSync(test_display(), False);
        return shape;
    }

    static std::uint32_t colour(INT index) { return cursor_colour(index); }

    INT window_ = 0;
};

template <std::size_t N>
Shape drawn(const std::array<uchar, N>& bits, int side, int hot, std::uint32_t colour) {
    Shape shape{side, side, hot, hot, {}};
    const int bytes_per_row = (side + 7) / 8;
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x) {
            const auto byte = bits[static_cast<std::size_t>(y * bytes_per_row + x / 8)];
            shape.pixels.push_back(byte >> x % 8 & 1 ? colour : clear);
        }
    return shape;
}

TEST_F(Cursors, GlyphsOfTheCursorFont) {
    struct Glyph {
        INT cursor;
        unsigned number;
    };
    for (const Glyph& g : {Glyph{2, 150}, Glyph{3, 68}, Glyph{4, 60}, Glyph{5, 92}, Glyph{6, 88}, Glyph{7, 86},
             Glyph{8, 52}, Glyph{9, 84}, Glyph{10, 58}, Glyph{11, 30}})
        EXPECT_EQ(shown_as(g.cursor), glyph(g.number)) << "cursor " << g.cursor;
}

TEST_F(Cursors, TheCrosshairHasTheCrosshairColour) {
    ASSERT_EQ(recup_couleur_mire(), 1);
    EXPECT_EQ(shown_as(1), drawn(grx::bits_curseur_croix, 15, 8, colour(1)));
    EXPECT_GT(shown_as(1).colours().size(), 0U);
}

TEST_F(Cursors, SnapModesAreWhiteBitmaps) {
    const std::array snap{&grx::concentr_bits, &grx::extrem_bits, &grx::milieu_bits, &grx::paral_bits, &grx::perp_bits,
        &grx::tangent_bits, &grx::intersection_bits, &grx::interdit_bits, &grx::angle_bits, &grx::cercle_bits,
        &grx::centre_bits};
    std::set<std::vector<std::uint32_t>> different;
    for (std::size_t i = 0; i < snap.size(); ++i) {
        const Shape shape = shown_as(static_cast<INT>(12 + i));
        EXPECT_EQ(shape, drawn(*snap[i], 32, 15, white)) << "cursor " << 12 + i;
        EXPECT_EQ(shape.colours(), (std::set{white})) << "cursor " << 12 + i;
        different.insert(shape.pixels);
    }
    EXPECT_EQ(different.size(), snap.size()) << "each mode has a shape of its own";
}

TEST_F(Cursors, NoneShowsTheParents) {
    XDefineCursor(test_display(), DefaultRootWindow(test_display()), XCreateFontCursor(test_display(), XC_gumby));
    XSync(test_display(), False);
    const Shape of_the_screen = glyph(XC_gumby);
    ASSERT_NE(shown_as(7), of_the_screen);
    EXPECT_EQ(shown_as(0), of_the_screen);
}

TEST_F(Cursors, UnknownNumbersChangeNothing) {
    const Shape before = shown_as(7);
    for (INT cursor : {-1, -2, 23, 24, 25, 26, 255, INT_MAX, INT_MIN}) {
        EXPECT_EQ(shown_as(cursor), before) << cursor;
        grx_affecte_curseur(cursor, shell_of(window_));
        grx_change_couleur_curseur(cursor, 3);
        EXPECT_EQ(shown(), before) << cursor;
    }
}

TEST_F(Cursors, UnknownWindowsChangeNothing) {
    const Shape before = shown_as(7);
    for (INT window : {0, -1, 50, 99, 100, INT_MAX, INT_MIN}) EXPECT_EQ(grx_change_curseur(3, window), 0);
    grx_affecte_curseur(3, nullptr);
    EXPECT_EQ(shown(), before);
}

TEST_F(Cursors, AWindowIsMadeWithItsCursor) {
    const Shape pencil = glyph(86);
    for (const bool child : {false, true}) {
        GRX_FENETRE description = described(GRX_FEN_GRAPHIQUE);
        description.curseur = 7;
        if (child) description.fen_mere = window_;
        const INT n = make(description);
        ASSERT_TRUE(wait_visible(widget_of(n)));
        pointer().move_in(widget_of(n), 20, 20);
        EXPECT_EQ(shown(), pencil) << (child ? "child" : "top level");
    }
}

TEST_F(Cursors, ANestedWindowShowsItsShells) {
    GRX_FENETRE description = nested_in(window_, GRX_FEN_ALPHA);
    description.curseur = 7;
    const INT nested = make(description);
    ASSERT_TRUE(wait_visible(widget_of(nested)));
    grx_change_curseur(3, window_);
    pointer().move_in(widget_of(nested), 20, 20);
    EXPECT_EQ(shown(), glyph(68)) << "creation gives a nested window no cursor";
    EXPECT_EQ(grx_change_curseur(8, nested), 0);
    EXPECT_EQ(shown(), glyph(52));
    pointer().move_in(widget_of(window_), 190, 5);
    EXPECT_EQ(shown(), glyph(52)) << "it is the shell's";
}

TEST_F(Cursors, AWidgetOfItsOwn) {
    GRX_FENETRE description = nested_in(window_, GRX_FEN_ALPHA);
    const INT nested = make(description);
    ASSERT_TRUE(wait_visible(widget_of(nested)));
    grx_change_curseur(3, window_);
    grx_affecte_curseur(7, widget_of(nested));
    pointer().move_in(widget_of(nested), 20, 20);
    EXPECT_EQ(shown(), glyph(86));
    pointer().move_in(widget_of(window_), 190, 5);
    EXPECT_EQ(shown(), glyph(68));
}

TEST_F(Cursors, AWidgetWithoutAWindowTakesNone) {
    Widget button = XmCreatePushButton(widget_of(window_), const_cast<char*>("b"), nullptr, 0);
    ASSERT_EQ(XtWindow(button), None);
    EXPECT_EQ(grx_affecte_curseur(7, button), 0);
}

TEST_F(Cursors, ColoursAreChangedInTheForeground) {
    shown_as(12);
    grx_change_couleur_curseur(12, 3);
    EXPECT_EQ(shown(), drawn(grx::concentr_bits, 32, 15, colour(3)));
    const Shape black_and_white = shown_as(3);
    ASSERT_EQ(black_and_white.colours(), (std::set<std::uint32_t>{0xFF000000, white}));
    grx_change_couleur_curseur(3, 3);
    const Shape coloured = shown();
    EXPECT_EQ(coloured.colours(), (std::set{colour(3), white})) << "the background is kept";
    for (std::size_t i = 0; i < coloured.pixels.size(); ++i)
        EXPECT_EQ(coloured.pixels[i] == white, black_and_white.pixels[i] == white);
}

TEST_F(Cursors, TheCrosshairIsRecoloured) {
    shown_as(1);
    grx_change_couleur_curseur(1, 4);
    EXPECT_EQ(shown(), drawn(grx::bits_curseur_croix, 15, 8, colour(4)));
    ASSERT_NE(colour(4), colour(1));
}

TEST_F(Cursors, NoCursorHasNoColour) {
    shown_as(0);
    EXPECT_EQ(grx_change_couleur_curseur(0, 3), 0);
}

TEST_F(Cursors, TheDrawingCursor) {
    EXPECT_EQ(grx_recup_curseur_graphique(), 1);
}

TEST_F(Cursors, DefiningThemAgainIsHarmless) {
    EXPECT_EQ(grx_definit_tous_curseurs(), 0);
    EXPECT_EQ(shown_as(7), glyph(86));
}

class CursorWmTest : public WmTest {};

TEST_F(CursorWmTest, AFramedWindowHasItsCursor) {
    GRX_FENETRE description = described(GRX_FEN_ALPHA);
    description.curseur = 7;
    const INT n = make(description);
    ASSERT_TRUE(wait_visible(widget_of(n)));
    ASSERT_TRUE(wait_for([&] { return frame(shell_of(n)) != None; }));
    auto* image_of = in_xfixes<decltype(XFixesGetCursorImage)>("XFixesGetCursorImage");
    ASSERT_NE(image_of, nullptr);
    const auto hot_spot_of = [&](INT cursor) {
        grx_change_curseur(cursor, n);
        XSync(x11_disp, False);
        const std::unique_ptr<XFixesCursorImage, int (*)(void*)> image(image_of(test_display()), XFree);
        return Point{image->xhot, image->yhot};
    };
    pointer().move_in(widget_of(n), 20, 20);
    EXPECT_EQ(hot_spot_of(12), (Point{15, 15}));
    EXPECT_EQ(hot_spot_of(1), (Point{8, 8}));
}

} // namespace
