// Coordinates that the protocol cannot carry: what is seen of a figure is true, and dashes of lines that begin and end
// far outside belong to the drawing and travel with it.
#include "tests/display/drawing/drawing_kit.h"

#include <climits>
#include <cmath>
#include <cstdlib>
#include <vector>

namespace {

using namespace grxtest;
using Kind = Primitive::Kind;

class FarAway : public DrawingTest {
  protected:
    // Every painted pixel lies by the true line, and every column (row) that it crosses inside has one.
    void expect_line(INT window, double x1, double y1, double x2, double y2, std::uint32_t pixel) {
        const Pixels seen = screen(window);
        const bool flat = std::abs(x2 - x1) >= std::abs(y2 - y1);
        const double slope = flat ? (y2 - y1) / (x2 - x1) : (x2 - x1) / (y2 - y1);
        const int along = flat ? width : height, across = flat ? height : width;
        int painted = 0;
        const double begin = flat ? std::min(x1, x2) : std::min(y1, y2);
        for (int a = std::max(0, static_cast<int>(begin)); a < along; ++a) {
            const double b = flat ? y1 + (a - x1) * slope : x1 + (a - y1) * slope;
            for (int c = 0; c < across; ++c) {
                if (seen.at(flat ? a : c, flat ? c : a) != pixel) continue;
                EXPECT_LE(std::abs(c - b), 1.5) << a << ' ' << c;
                ++painted;
            }
            const int middle = static_cast<int>(std::lround(b));
            if (middle <= 1 || middle >= across - 2) continue;
            int there = 0;
            for (int c = middle - 1; c <= middle + 1; ++c) there += seen.at(flat ? a : c, flat ? c : a) == pixel;
            EXPECT_EQ(there, 1) << "at " << a;
        }
        EXPECT_EQ(painted, seen.count(pixel));
    }
};

TEST_F(FarAway, WhatFitsIsPassedUntouched) {
    const INT window = graphic_window();
    PlainPicture plain(x11_disp, width, height, background());
    RandomPrimitives random(9, width, height);
    for (int i = 0; i < 300; ++i) {
        Primitive p{i % 3 == 0 ? Kind::rectangle : Kind::segment, attributes(8 + i % 30), {}, {}};
        const bool edge = i % 5 == 0;
        for (auto& v : p.v) v = edge ? (random.number(0, 1) ? 32767 : -32768) : random.number(-32768, 32767);
        if (p.kind == Kind::rectangle) p.v[2] = p.v[0] + random.number(0, 300);
        draw(window, p);
        plain.draw(p);
    }
    EXPECT_TRUE(same(screen(window), plain.pixels()));
}

TEST_F(FarAway, LinesAcrossTheWindowAreTrue) {
    const INT window = graphic_window();
    const std::vector<std::array<INT, 4>> lines{{-100000, 50, 100000, 50}, {77, -2000000000, 77, 2000000000},
        {-1000000, -1000000, 1000000, 1000000}, {-65536, 20, 65600, 150}, {INT_MIN, 90, INT_MAX, 90},
        {-40000, -39900, 40000, 40080}, {20, 170, 1000000, -600000},
        {-2147483647, -1073741823, 2147483647, 1073741823}};
    for (const auto& v : lines) {
        grx_efface_zone_graphique(window);
        draw(window, {Kind::segment, attributes(9), {v[0], v[1], v[2], v[3]}, {}});
        expect_line(window, v[0], v[1], v[2], v[3], drawn_pixel(9));
        EXPECT_GT(screen(window).count(drawn_pixel(9)), 40);
    }
}

TEST_F(FarAway, NothingComesRoundFromTheOtherSide) {
    const INT window = graphic_window();
    const auto attrib = attributes(9, 0, 0, 0, 7);
    const auto far = 65536 + 50; // as 50 in 16 bits
    draw(window, {Kind::point, attrib, {far, 50}, {}});
    draw(window, {Kind::point, attrib, {50, far}, {}});
    draw(window, {Kind::point, attrib, {INT_MIN + 50, INT_MIN + 50}, {}});
    draw(window, {Kind::segment, attrib, {far, 50, far + 60, 90}, {}});
    draw(window, {Kind::segment, attrib, {50, -far, 90, -far - 20}, {}});
    draw(window, {Kind::segment, attrib, {far, 0, 0, far}, {}}); // past the corner
    draw(window, {Kind::rectangle, attrib, {far, 50, far + 60, 90}, {}});
    draw(window, {Kind::filled_rectangle, attrib, {far, 50, far + 60, 90}, {}});
    draw(window, {Kind::filled_rectangle, attrib, {50, far, 90, 3 * far}, {}});
    draw(window, {Kind::arc, attrib, {far, 50, 60, 60, 0, 360}, {}});
    draw(window, {Kind::filled_arc, attrib, {50, -far, 60, 60, 0, 360}, {}});
    GRX_TEXTE text{};
    text.nofen = window;
    text.chaine[0] = 'M';
    text.coul_trace = 9;
    for (const auto& [x, y] : {std::pair{far, 50}, {50, far}, {INT_MAX, 50}, {50, INT_MIN}}) {
        text.x = x;
        text.y = y;
        grx_ecrit_fenetre(text);
    }
    EXPECT_EQ(screen(window).count_other(background()), 0);
}

TEST_F(FarAway, FillsCoverWhatTheyHold) {
    const INT window = graphic_window();
    draw(window, {Kind::filled_rectangle, attributes(9), {-100000, -100000, 100000, 100000}, {}});
    EXPECT_EQ(screen(window).count(drawn_pixel(9)), width * height);
    draw(window, {Kind::filled_rectangle, attributes(12), {INT_MAX, 100, 30, INT_MAX}, {}});
    EXPECT_EQ(screen(window).bounds(drawn_pixel(12)), (Area{30, 100, width - 30, height - 100}));
    EXPECT_EQ(screen(window).count(drawn_pixel(12)), (width - 30) * (height - 100));
    draw(window, {Kind::filled_rectangle, attributes(13), {INT_MIN, INT_MIN, 9, 9}, {}});
    EXPECT_EQ(screen(window).count(drawn_pixel(13)), 100);
}

TEST_F(FarAway, OutlinesShowTheSidesThatAreThere) {
    const INT window = graphic_window();
    draw(window, {Kind::rectangle, attributes(9), {-100000, 20, 100000, 150}, {}});
    EXPECT_EQ(screen(window).count(drawn_pixel(9)), 2 * width);
    EXPECT_EQ(screen(window).at(100, 20), drawn_pixel(9));
    EXPECT_EQ(screen(window).at(100, 150), drawn_pixel(9));
    grx_efface_zone_graphique(window);
    draw(window, {Kind::rectangle, attributes(9), {40, 30, INT_MAX, INT_MAX}, {}});
    EXPECT_EQ(screen(window).count(drawn_pixel(9)), (width - 40) + (height - 30) - 1);
    grx_efface_zone_graphique(window);
    draw(window, {Kind::rectangle, attributes(9), {INT_MIN, INT_MIN, INT_MAX, INT_MAX}, {}});
    EXPECT_EQ(screen(window).count_other(background()), 0);
}

TEST_F(FarAway, BigArcsAreTrue) {
    const INT window = graphic_window();
    const double radius = 50000; // its top lies at 90 of the window
    draw(window, {Kind::arc, attributes(9), {120 - 50000, 90, 100000, 100000, 0, 360}, {}});
    const Pixels seen = screen(window);
    EXPECT_GE(seen.count(drawn_pixel(9)), width);
    for (int x = 0; x < width; ++x)
        for (int y = 0; y < height; ++y)
            if (seen.at(x, y) == drawn_pixel(9))
                EXPECT_NEAR(std::hypot(x - 120.0, y - (90 + radius)), radius, 1.5) << x << ' ' << y;
    EXPECT_EQ(seen.at(120, 90), drawn_pixel(9));
}

TEST_F(FarAway, BigFilledArcsPaintNothingOutside) {
    const INT window = graphic_window();
    draw(window, {Kind::filled_arc, attributes(9), {120 - 50000, 90, 100000, 100000, 0, 360}, {}});
    EXPECT_EQ(screen(window).part({0, 0, width, 89}).count_other(background()), 0);
}

TEST_F(FarAway, AFillAsWideAsTheProtocolCovers) {
    const INT window = graphic_window();
    draw(window, {Kind::filled_rectangle, attributes(9), {-32768, 20, 32767, 40}, {}});
    EXPECT_EQ(screen(window).count(drawn_pixel(9)), width * 21);
    draw(window, {Kind::filled_rectangle, attributes(12), {30, 32767, 40, -32768}, {}});
    EXPECT_EQ(screen(window).count(drawn_pixel(12)), 11 * height);
}

TEST_F(FarAway, HugeArcsAreHarmless) {
    const INT window = graphic_window();
    for (const auto kind : {Kind::arc, Kind::filled_arc})
        for (const INT at : {INT_MIN, INT_MAX, 0, -40000})
            for (const INT size : {INT_MAX, -1, 40000, 65536}) // -1: the greatest unsigned size
                draw(window, {kind, attributes(9), {at, at, size, size, -90, 271}, {}});
    grx_efface_zone_graphique(window);
    draw(window, {Kind::point, attributes(9), {3, 3}, {}});
    EXPECT_EQ(screen(window).count(drawn_pixel(9)), 1);
}

TEST_F(FarAway, TwinsOnButtonsAreCutTheSameWay) {
    const INT window = window_of(GRX_FEN_BOUTONS, {40, 60, 400, 300});
    const INT label = label_in(window, {20, 20, width, height});
    draw_on_button(label, {Kind::filled_rectangle, attributes(12), {-100000, -100000, 100000, 100000}, {}});
    EXPECT_EQ(button_screen(label).count(drawn_pixel(12)), width * height);
    draw_on_button(label, {Kind::segment, attributes(9), {-100000, 50, 100000, 50}, {}});
    EXPECT_EQ(button_screen(label).count(drawn_pixel(9)), width);
    draw_on_button(label, {Kind::segment, attributes(13), {65536, 10, 65600, 50}, {}});
    EXPECT_EQ(button_screen(label).count(drawn_pixel(13)), 0);
    draw_on_button(label, {Kind::rectangle, attributes(13), {-100000, 20, 100000, 150}, {}});
    EXPECT_EQ(button_screen(label).count(drawn_pixel(13)), 2 * width);
    GRX_TEXTE text{};
    text.nofen = label;
    text.chaine[0] = 'M';
    text.attrib = attributes(14);
    text.x = 65536 + 50;
    text.y = 50;
    grx_trace_texte_bouton(text);
    EXPECT_EQ(button_screen(label).count(drawn_pixel(14)), 0);
}

// --- dashes -----------------------------------------------------------------------------------------------------------

struct FarLine {
    const char* name;
    std::array<INT, 4> ends;
};

constexpr FarLine lines[] = {
    {"level", {-1000007, 50, 1000000, 50}},
    {"level backwards", {1000011, 50, -1000000, 50}},
    {"upright", {77, -2000000005, 77, 2000000000}},
    {"upright backwards", {77, 100003, 77, -100000}},
    {"diagonal", {-1000013, -1000013, 1000000, 1000000}},
    {"diagonal backwards", {1000013, 1000013, -1000000, -1000000}},
    {"falling diagonal", {-1000000, 1000100, 1000100, -1000000}},
    {"only its start is far", {-200009, 90, 120, 90}},
    {"only its end is far", {30, 90, 200000, 90}},
    {"just beyond", {-32769, 20, 32768, 20}},
    {"of the largest numbers", {INT_MIN + 200, 60, INT_MAX - 200, 60}},
};

class FarDashes : public DrawingTest {
  protected:
    Pixels picture(const FarLine& line, INT style, INT thickness, int shift) {
        grx_efface_zone_graphique(window_);
        const auto& e = line.ends;
        draw(window_, {Kind::segment, attributes(9, 12, 0, style, thickness),
                          {e[0] + shift, e[1] + shift, e[2] + shift, e[3] + shift}, {}});
        return screen(window_);
    }

    INT window_ = 0;
};

TEST_F(FarDashes, TravelWithTheDrawing) {
    constexpr int room = 60;
    window_ = graphic_window();
    for (const auto& line : lines) {
        for (INT style = GRX_TRAIT_MIXTE; style <= GRX_TRAIT_MIXTE_2_TIRETS; ++style) {
            const Pixels here = picture(line, style, 0, 0);
            EXPECT_GT(here.count(drawn_pixel(9)), 20) << line.name;
            EXPECT_GT(here.count(drawn_pixel(12)), 10) << line.name << " gaps, style " << style;
            for (const int shift : {1, 3, 17, 50}) {
                const Pixels there = picture(line, style, 0, shift);
                EXPECT_TRUE(same(here.part({0, 0, width - room, height - room}),
                    there.part({shift, shift, width - room, height - room})))
                    << line.name << ", style " << style << ", moved by " << shift;
            }
        }
    }
}

TEST_F(FarDashes, OfWideLinesTravelToo) {
    constexpr int room = 60;
    window_ = graphic_window();
    for (const auto& line : lines) {
        for (const INT style : {GRX_TRAIT_POINTILLE, GRX_TRAIT_MIXTE_2_TIRETS}) {
            const Pixels here = picture(line, style, 3, 0);
            EXPECT_GT(here.count(drawn_pixel(9)), 60) << line.name;
            EXPECT_GT(here.count(drawn_pixel(12)), 30) << line.name;
            for (const int shift : {3, 50}) {
                const Pixels there = picture(line, style, 3, shift);
                EXPECT_LE(differences(here.part({0, 0, width - room, height - room}),
                              there.part({shift, shift, width - room, height - room})),
                    8)
                    << line.name << ", style " << style << ", moved by " << shift;
            }
        }
    }
}

// The same dashes as of a line that fits the protocol and begins where a pattern does.
TEST_F(FarDashes, BeginAtTheTrueStart) {
    window_ = graphic_window();
    constexpr INT period = 16; // of 8 and 8
    for (const INT far : {100000, 100003}) {
        const Pixels seen = picture({"", {-far, 40, far, 40}}, GRX_TRAIT_POINTILLE, 0, 0);
        PlainPicture plain(x11_disp, width, height, background());
        plain.draw(
            {Kind::segment, attributes(9, 12, 0, GRX_TRAIT_POINTILLE, 0), {-(far % period) - period, 40, 300, 40}, {}});
        EXPECT_TRUE(same(seen, plain.pixels())) << far;
    }
}

// At any slope each column has the dash that its distance from the start asks for.
TEST_F(FarDashes, AtAnySlopeEachColumnHasItsOwn) {
    window_ = graphic_window();
    constexpr INT dash = 8;
    for (const auto& [x1, y1, x2, y2] : {std::array<INT, 4>{-65536, 20, 65600, 150}, {-100000, -33300, 100000, 33420},
             {-40001, 139, 1000000, -700}, {100000, 50, -1000000, 20}}) {
        const Pixels seen = picture({"", {x1, y1, x2, y2}}, GRX_TRAIT_POINTILLE, 0, 0);
        int columns = 0;
        for (int x = 0; x < width; ++x) {
            const bool drawn = std::abs(x - x1) / dash % 2 == 0;
            for (int y = 0; y < height; ++y) {
                if (seen.at(x, y) == background()) continue;
                EXPECT_EQ(seen.at(x, y), drawn_pixel(drawn ? 9 : 12)) << x << " of " << x1 << ' ' << y1;
                ++columns;
            }
        }
        EXPECT_GT(columns, width / 2);
    }
}

} // namespace
