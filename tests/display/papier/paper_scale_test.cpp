// Millimetres on paper: lengths, widths, dashes, arcs and places, measured in the pages that another program shows.
#include "tests/display/papier/paper_kit.h"

#include <cmath>

namespace {
using namespace grxtest;

class PaperScaleOn24 : public PaperOn24 {
  protected:
    // A sheet that is quickly shown with many dots.
    GRX_PAPIER strip(DOUBLE height) {
        GRX_PAPIER paper = described("plan.pdf", 170, static_cast<INT>(height) - 20);
        paper.format = GRX_PAPIER_LIBRE;
        paper.largeur = 190;
        paper.hauteur = height;
        return paper;
    }

    PagePicture page(int number = 1) const { return page_picture(file(), fine, number); }
};

// Coordinates are middles of pixels, the margin is 10 mm: pixel 20 lies at 30.5 mm.
TEST_F(PaperScaleOn24, HundredMillimetresAreHundredMillimetres) {
    print(described(), [] {
        line(20, 20, 120, 20);
        line(150, 30, 150, 130);
    });
    const PagePicture p = page();
    EXPECT_NEAR(p.width, 2100, 1); // points are no dots
    EXPECT_NEAR(p.height, 2970, 1);
    const Area across = p.ink({0, 0, 1400, 350}), down = p.ink({1400, 300, 600, 1400});
    EXPECT_NEAR(across.width, 1001, 2); // a line is as much longer as it is wide, with soft ends
    EXPECT_NEAR(across.x, 305 - .9, 1);
    EXPECT_NEAR(across.y, 305 - .9, 1);
    EXPECT_NEAR(down.height, 1001, 2);
    EXPECT_NEAR(down.x, 1605 - .9, 1);
    EXPECT_NEAR(down.y, 405 - .9, 1);
}

TEST_F(PaperScaleOn24, AScaleDividesTheThing) {
    GRX_PAPIER paper = described("plan.pdf", 1000, 1000);
    paper.mm_par_pixel = 10; // a pixel is a centimetre of the thing
    paper.echelle = 100;
    print(paper, [] { line(100, 100, 1100, 100), line(100, 100, 900, 100); });
    EXPECT_NEAR(page().ink().width, 900 + .5, 1.5); // cut at the rectangle's edge: 99.95 - 10.05 mm
}

TEST_F(PaperScaleOn24, AFittedDrawingFillsTheSheet) {
    GRX_PAPIER paper = described("plan.pdf", 400, 100);
    paper.echelle = GRX_PAPIER_AJUSTE;
    paper.centre = 1;
    GRX_FEUILLES_PAPIER sheets{};
    ASSERT_EQ(grx_init_feuilles_papier(&sheets), 1);
    ASSERT_EQ(grx_recup_feuilles_papier(&paper, &sheets), 1);
    EXPECT_DOUBLE_EQ(sheets.echelle, 400 / 190.0);
    EXPECT_DOUBLE_EQ(sheets.mm_par_pixel, 190 / 400.0);
    EXPECT_DOUBLE_EQ(sheets.haut, 10 + (277 - 47.5) / 2);
    EXPECT_EQ(sheets.colonnes * sheets.lignes, 1);
    print(paper, [] { grx_remplit_rectangle({1, -10, -10, 500, 500, 0, 0, 0, drawn_in(black_ink)}); });
    const Area ink = page().ink();
    EXPECT_NEAR(ink.x, 100, 1);
    EXPECT_NEAR(ink.width, 1900, 2);
    EXPECT_NEAR(ink.y, 100 + (2770 - 475) / 2, 2);
    EXPECT_NEAR(ink.height, 475, 2);
}

TEST_F(PaperScaleOn24, WidthsAreThoseOfTheTable) {
    constexpr std::array widths{.18, .25, .35, .5, .7, 1.0, 1.4, 2.0};
    print(strip(60), [&] {
        for (INT i = 0; i < 10; ++i) line(10, 2 + 4 * i, 120, 2 + 4 * i, drawn_in(black_ink, 0, i));
    });
    const PagePicture p = page_picture(file(), 4 * fine);
    for (int i = 0; i < 10; ++i) {
        const Area ink = p.ink({2000, (10 + 4 * i) * 40 + 20, 400, 160});
        EXPECT_NEAR(ink.height, widths.at(static_cast<std::size_t>(i % 8)) * 40, 1.5) << i;
    }
}

TEST_F(PaperScaleOn24, AWidthOfTheColourGoesBefore) {
    std::array<DOUBLE, 21> by_colour{};
    by_colour[blue_ink] = 1.5;
    GRX_PAPIER paper = described();
    paper.epaisseurs_couleur = by_colour.data();
    paper.nb_epaisseurs = static_cast<INT>(by_colour.size());
    print(paper, [] {
        line(20, 20, 120, 20, drawn_in(blue_ink, 0, 7));
        line(20, 60, 120, 60, drawn_in(red_ink, 0, 7));
        line(20, 100, 120, 100, drawn_in(200, 0, 7)); // beyond the table
    });
    const PagePicture p = page();
    EXPECT_NEAR(p.ink({600, 200, 100, 200}).height, 15, 1.1);
    EXPECT_NEAR(p.ink({600, 600, 100, 200}).height, 20, 1.1);
    EXPECT_NEAR(p.ink({600, 1000, 100, 200}).height, 20, 1.1);
}

// The styles as the header of drawing states them, a quarter of a millimetre for each pixel of the screen.
struct Style {
    INT style;
    std::vector<double> lengths;
};

class PaperDashesOn24 : public PaperScaleOn24, public testing::WithParamInterface<Style> {};

TEST_P(PaperDashesOn24, AreMillimetres) {
    const auto& [style, lengths] = GetParam();
    print(strip(30), [&] { line(10, 4, 160, 4, drawn_in(black_ink, style)); });
    const std::vector<int> runs = page_picture(file(), 4 * fine).runs(static_cast<int>(14.5 * 40));
    ASSERT_GT(runs.size(), 2 * lengths.size());
    double begin = 0, expected = 0;
    for (std::size_t i = 0; i < 2 * lengths.size(); ++i) {
        begin += runs[i];
        expected += lengths[i % lengths.size()] * 10; // 40 dots a millimetre
        EXPECT_NEAR(begin, expected, 1.6) << "end of piece " << i;
    }
}

INSTANTIATE_TEST_SUITE_P(Styles, PaperDashesOn24,
    testing::Values(Style{1, {16, 6, 6, 6}}, Style{2, {8, 8}}, Style{3, {4, 4}}, Style{4, {16, 16}},
        Style{5, {16, 4, 1, 4}}, Style{6, {16, 4, 1, 4, 1, 4}}, Style{7, {16, 8, 4, 8, 4, 8}}),
    [](const auto& info) { return "Style" + std::to_string(info.param.style); });

TEST_F(PaperScaleOn24, ArcsAreExact) {
    print(described(), [] { grx_trace_arc({1, 20, 30, 120, 120, 30, 330, 0, 0, 0, drawn_in(black_ink)}); });
    const PagePicture p = page();
    const double cx = 905, cy = 1005, radius = 600; // dots
    int seen = 0;
    for (int y = 0; y < p.height; ++y)
        for (int x = 0; x < p.width; ++x) {
            if (!p.inked(x, y)) continue;
            ++seen;
            ASSERT_NEAR(std::hypot(x + .5 - cx, y + .5 - cy), radius, 2) << x << "," << y;
        }
    EXPECT_GT(seen, 3000);
    EXPECT_FALSE(p.inked(1505, 1005)); // the gap is at 3 o'clock
    const Area ink = p.ink();
    EXPECT_NEAR(ink.x, cx - radius, 2);
    EXPECT_NEAR(ink.x + ink.width, cx + radius * std::cos(std::acos(-1) / 6), 3);
}

TEST_F(PaperScaleOn24, ALineFromFarAwayKeepsItsDirection) {
    print(described(), [] {
        line(-2000000000, -2000000000, 2000000000, 2000000000);
        line(INT_MIN, 100, INT_MAX, 100);
        line(INT_MAX, INT_MAX, INT_MAX, INT_MIN);
        grx_trace_arc({1, 95, 200, 4000000000U, 4000000000U, 90, 270, 0, 0, 0, drawn_in(black_ink)});
    });
    const PagePicture p = page();
    for (const int at : {20, 60, 150}) EXPECT_TRUE(p.inked(at * 10 + 105, at * 10 + 105)) << at;
    for (const int at : {20, 60, 150}) EXPECT_TRUE(p.inked(at * 10 + 105, 1105)) << at;
    EXPECT_FALSE(p.inked(700, 1000));
}

TEST_F(PaperScaleOn24, NothingIsDrawnOutsideTheRectangle) {
    GRX_PAPIER paper = described("plan.pdf", 100, 80);
    paper.x = 50;
    paper.y = 60;
    print(paper, [] { grx_remplit_rectangle({1, 0, 0, 1000, 1000, 0, 0, 0, drawn_in(black_ink)}); });
    const Area ink = page().ink();
    EXPECT_EQ(ink.x, 100);
    EXPECT_EQ(ink.y, 100);
    EXPECT_NEAR(ink.width, 1000, 1);
    EXPECT_NEAR(ink.height, 800, 1);
}

// --- sheets -----------------------------------------------------------------------------------------------------------

struct Format {
    INT format, orientation;
    int width, height; // points
};

class PaperFormatsOn24 : public PaperOn24, public testing::WithParamInterface<Format> {};

TEST_P(PaperFormatsOn24, HaveTheirSize) {
    const auto& [format, orientation, width, height] = GetParam();
    GRX_PAPIER paper = described();
    paper.format = format;
    paper.orientation = orientation;
    paper.echelle = GRX_PAPIER_AJUSTE;
    print(paper, [] { line(1, 1, 50, 50); });
    double w = 0, h = 0;
    const std::string told = output_of("pdfinfo '" + file() + "'");
    const std::size_t at = told.find("Page size:");
    ASSERT_NE(at, std::string::npos) << told;
    ASSERT_EQ(std::sscanf(told.c_str() + at, "Page size: %lf x %lf", &w, &h), 2);
    EXPECT_NEAR(w, width, .6);
    EXPECT_NEAR(h, height, .6);
}

INSTANTIATE_TEST_SUITE_P(Formats, PaperFormatsOn24,
    testing::Values(Format{GRX_PAPIER_A4, 0, 595, 842}, Format{GRX_PAPIER_A4, 1, 842, 595},
        Format{GRX_PAPIER_A3, 1, 1191, 842}, Format{GRX_PAPIER_A2, 0, 1191, 1684}, Format{GRX_PAPIER_A1, 1, 2384, 1684},
        Format{GRX_PAPIER_A0, 0, 2384, 3370}));

TEST_F(PaperScaleOn24, AFreeFormatIsItsMillimetres) {
    GRX_PAPIER paper = described("plan.pdf", 50, 50);
    paper.format = GRX_PAPIER_LIBRE;
    paper.largeur = 254;
    paper.hauteur = 127;
    print(paper, [] { line(1, 1, 40, 40); });
    EXPECT_NEAR(page().width, 2540, 1);
    EXPECT_NEAR(page().height, 1270, 1);
}

TEST_F(PaperScaleOn24, ALargeDrawingTakesSeveralSheetsWithMarks) {
    GRX_PAPIER paper = described("plan.pdf", 400, 300); // 190 x 277 on each, 10 of them twice
    GRX_FEUILLES_PAPIER sheets{};
    grx_init_feuilles_papier(&sheets);
    ASSERT_EQ(grx_recup_feuilles_papier(&paper, &sheets), 1);
    EXPECT_EQ(sheets.colonnes, 3);
    EXPECT_EQ(sheets.lignes, 2);
    print(paper, [] {
        line(20, 50, 380, 50);
        line(185, 80, 185, 100); // in the overlap of the first two
    });
    EXPECT_NE(output_of("pdfinfo '" + file() + "'").find("Pages:           6"), std::string::npos);
    const PagePicture first = page(1), second = page(2);
    EXPECT_TRUE(first.inked(1000, 605));
    EXPECT_TRUE(first.inked(1855 + 100, 1005));
    EXPECT_TRUE(second.inked(55 + 100, 1005)); // 180 mm further to the left
    EXPECT_TRUE(second.inked(1990, 605));
    EXPECT_FALSE(second.inked(2050, 605)); // the margin
    for (const PagePicture& p : {first, second}) {
        EXPECT_TRUE(p.inked(70, 100));
        EXPECT_TRUE(p.inked(100, 70));
        EXPECT_TRUE(p.inked(2030, 100));
        EXPECT_TRUE(p.inked(2000, 70));
        EXPECT_FALSE(p.inked(95, 100)); // a gap of a millimetre
        EXPECT_FALSE(p.inked(20, 100));
    }
    const std::string text = output_of("pdftotext '" + file() + "' -");
    EXPECT_NE(text.find("Feuille 1/6 (colonne 1, ligne 1)"), std::string::npos) << text;
    EXPECT_NE(text.find("Feuille 6/6 (colonne 3, ligne 2)"), std::string::npos) << text;
}

TEST_F(PaperScaleOn24, OneSheetCutsTheRest) {
    GRX_PAPIER paper = described("plan.pdf", 400, 300);
    paper.plusieurs_feuilles = 0;
    print(paper, [] { line(20, 50, 380, 50); });
    EXPECT_NE(output_of("pdfinfo '" + file() + "'").find("Pages:           1"), std::string::npos);
    const Area ink = page().ink();
    EXPECT_EQ(ink.x + ink.width, 2000);
}

TEST_F(PaperScaleOn24, PagesFollowEachOther) {
    ASSERT_EQ(grx_page_papier(), GRX_ECHEC_ABSENT);
    print(described(), [] {
        line(20, 20, 120, 20);
        EXPECT_EQ(grx_signet_papier("Rez de chauss\xe9"
                                    "e"),
            1);
        EXPECT_EQ(grx_page_papier(), 1);
        line(20, 60, 120, 60);
        EXPECT_EQ(grx_signet_papier("Toit"), 1);
    });
    EXPECT_NE(output_of("pdfinfo '" + file() + "'").find("Pages:           2"), std::string::npos);
    EXPECT_TRUE(page(1).inked(600, 305));
    EXPECT_FALSE(page(1).inked(600, 705));
    EXPECT_FALSE(page(2).inked(600, 305));
    EXPECT_TRUE(page(2).inked(600, 705));
}

} // namespace
