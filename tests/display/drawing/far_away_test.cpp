// Dashes of lines that begin and end far outside: they belong to the drawing, and travel with it.
#include "tests/display/drawing.h"

#include <climits>
#include <string>
#include <vector>

namespace {

using namespace grxtest;
using Kind = Primitive::Kind;

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
            EXPECT_GT(here.count(pixel_of(9)), 20) << line.name;
            EXPECT_GT(here.count(pixel_of(12)), 10) << line.name << " gaps, style " << style;
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
            EXPECT_GT(here.count(pixel_of(9)), 60) << line.name;
            EXPECT_GT(here.count(pixel_of(12)), 30) << line.name;
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
                EXPECT_EQ(seen.at(x, y), pixel_of(drawn ? 9 : 12)) << x << " of " << x1 << ' ' << y1;
                ++columns;
            }
        }
        EXPECT_GT(columns, width / 2);
    }
}

} // namespace
