// Texts of windows: written, measured and erased.
#include "tests/display/drawing/drawing_kit.h"

#include <cstring>
#include <string>

namespace {

using namespace grxtest;

class TextDrawing : public DrawingTest {
  protected:
    // What plain Xlib writes at the baseline in a pixel.
    static Pixels plain_text(int x, int y, const std::string& text, std::uint32_t pixel) {
        PlainPicture plain(x11_disp, width, height, background());
        XSetForeground(x11_disp, plain.context(), pixel);
        XSetFont(x11_disp, plain.context(), fontstruct->fid);
        XDrawString(x11_disp, plain.pixmap(), plain.context(), x, y, text.c_str(), static_cast<int>(text.size()));
        return plain.pixels();
    }
};

TEST_F(TextDrawing, WindowTextStartsOnTheBaseline) {
    const INT window = graphic_window();
    grx_ecrit_fenetre(text_at(window, 20, 50, "Agjp 123", 9));
    const auto pixel = drawn_pixel(9) & 0xFF;
    EXPECT_TRUE(same(screen(window), plain_text(20, 50, "Agjp 123", pixel)));
    EXPECT_GT(screen(window).count_other(background()), 30);
}

// KEEP: a pixel of a deep screen loses all but its low eight bits.
TEST_F(TextDrawing, WindowTextMasksItsPixelsToEightBits) {
    const INT window = graphic_window();
    INT colour[3] = {255, 255, 0x5A};
    if (test_planes() == 24) grx_modif_rgb(9, colour);
    grx_ecrit_fenetre(text_at(window, 20, 50, "abc", 9, 13));
    const auto values = values_of(g_c);
    EXPECT_EQ(values.foreground, drawn_pixel(9) & 0xFFU);
    EXPECT_EQ(values.background, drawn_pixel(13) & 0xFFU);
    EXPECT_EQ(values.function, GXcopy);
    if (test_planes() == 24) EXPECT_EQ(values.foreground, 0x5AU);
    EXPECT_GT(screen(window).count(drawn_pixel(9) & 0xFF), 10);
}

TEST_F(TextDrawing, WindowTextIgnoresAttrib) {
    const INT window = graphic_window();
    auto text = text_at(window, 20, 50, "abc", 9);
    text.attrib = attributes(13, 14, xor_mode, 3, 5);
    grx_ecrit_fenetre(text);
    EXPECT_TRUE(same(screen(window), plain_text(20, 50, "abc", drawn_pixel(9) & 0xFF)));
}

TEST_F(TextDrawing, AfterWindowTextPrimitivesDrawInTheirOwnColours) {
    const INT window = graphic_window();
    for (const INT mode : {0, xor_mode, erase_mode}) {
        const auto attrib = attributes(9, 0, mode, 0, 3);
        PlainPicture plain(x11_disp, width, height, background());
        grx_efface_zone_graphique(window);
        draw(window, filled(attrib, 10, 10, 40, 40));
        plain.draw(filled(attrib, 10, 10, 40, 40));
        grx_ecrit_fenetre(text_at(window, 20, 150, "", 13, 14));
        draw(window, filled(attrib, 60, 10, 90, 40)); // with the very attributes applied before
        plain.draw(filled(attrib, 60, 10, 90, 40));
        draw(window, segment(attributes(9, 0, mode, 2), 10, 100, 200, 120));
        plain.draw(segment(attributes(9, 0, mode, 2), 10, 100, 200, 120));
        EXPECT_TRUE(same(screen(window), plain.pixels())) << mode;
    }
}

TEST_F(TextDrawing, WindowTextWithoutEndOrLettersIsHarmless) {
    const INT window = graphic_window();
    auto text = text_at(window, 5, 50, "", 9);
    grx_ecrit_fenetre(text);
    EXPECT_EQ(screen(window).count_other(background()), 0);
    std::memset(text.chaine, 'M', sizeof text.chaine);
    grx_ecrit_fenetre(text);
    EXPECT_TRUE(same(screen(window), plain_text(5, 50, std::string(255, 'M'), drawn_pixel(9) & 0xFF)));
}

// KEEP: texts of windows are written by grx_ecrit_fenetre.
TEST_F(TextDrawing, TraceTexteDrawsNothing) {
    const INT window = graphic_window();
    const Cost cost(x11_disp);
    grx_trace_texte(text_at(window, 20, 50, "abc", 9));
    EXPECT_EQ(cost.requests(), 0U);
    EXPECT_EQ(cost.gc_changes(), 0U);
    EXPECT_EQ(screen(window).count_other(background()), 0);
}

TEST_F(TextDrawing, AStringIsMeasuredInTheFont) {
    graphic_window();
    for (const char* text : {"", "i", "Agjp 123", "MMMMMMMMMMMM"}) {
        INT across = -1, above = -1, below = -1;
        grx_recup_taille_chaine(const_cast<char*>(text), &across, &above, &below);
        EXPECT_EQ(across, XTextWidth(fontstruct, text, static_cast<int>(std::strlen(text)))) << text;
        EXPECT_EQ(above, fontstruct->ascent);
        EXPECT_EQ(below, fontstruct->descent);
    }
    EXPECT_GT(fontstruct->descent, 0);
}

TEST_F(TextDrawing, MeasuringTakesNullsAndAsksNobody) {
    graphic_window();
    INT across = -1, above = -1, below = -1;
    const Cost cost(x11_disp);
    grx_recup_taille_chaine(nullptr, &across, &above, &below);
    EXPECT_EQ(across, 0);
    grx_recup_taille_chaine(const_cast<char*>("abc"), nullptr, nullptr, nullptr);
    EXPECT_EQ(cost.requests(), 0U);
}

// KEEP: the box reaches one descent higher than the letters.
TEST_F(TextDrawing, ErasingATextFillsItsGenerousBox) {
    const INT window = graphic_window();
    const int wide = XTextWidth(fontstruct, "Agjp", 4), up = fontstruct->ascent, down = fontstruct->descent;
    draw(window, filled(attributes(13), 0, 0, width - 1, height - 1));
    auto text = text_at(window, 30, 80, "Agjp", 9, 12);
    text.attrib = attributes(14, 3, xor_mode, 3, 5);
    grx_efface_chaine(text);
    EXPECT_EQ(screen(window).bounds(drawn_pixel(12)), (Area{30, 80 - up - down, wide + 1, up + 2 * down + 1}));
    EXPECT_EQ(screen(window).count(drawn_pixel(12)), (wide + 1) * (up + 2 * down + 1));
    EXPECT_EQ(screen(window).count(drawn_pixel(13)), width * height - (wide + 1) * (up + 2 * down + 1));
}

TEST_F(TextDrawing, ErasingRemovesWhatWasWritten) {
    const INT window = graphic_window();
    grx_ecrit_fenetre(text_at(window, 30, 80, "Agjp|_", 9));
    EXPECT_GT(screen(window).count_other(background()), 20);
    grx_efface_chaine(text_at(window, 30, 80, "Agjp|_", 9, 0));
    EXPECT_EQ(screen(window).count_other(background()), 0);
}

} // namespace
