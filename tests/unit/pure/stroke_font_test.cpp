// The built-in font of single strokes: which characters it has, and where their strokes go.
#include "pure/stroke_font.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>
#include <cmath>
#include <string>
#include <vector>

namespace {

class Strokes final : public grx::PathSink {
  public:
    explicit Strokes(uint32_t character, double tolerance = 0.005) {
        grx::walk_strokes(character, grx::Affine{}, tolerance, *this);
    }
    void move(grx::Vertex to) override {
        ++moves;
        points.push_back(to);
    }
    void line(grx::Vertex to) override {
        EXPECT_GT(moves, 0) << "a line from nowhere";
        points.push_back(to);
    }
    double least(double grx::Vertex::*axis) const { return std::ranges::min(points, {}, axis).*axis; }
    double most(double grx::Vertex::*axis) const { return std::ranges::max(points, {}, axis).*axis; }

    int moves = 0;
    std::vector<grx::Vertex> points;
};

TEST(StrokeFont, HasLatinOneGreekAndWhatDrawingsNeed) {
    for (uint32_t c = 0x20; c < 0x7F; ++c) EXPECT_TRUE(grx::has_strokes(c)) << c;
    for (uint32_t c = 0xA0; c < 0x100; ++c) EXPECT_TRUE(grx::has_strokes(c)) << c;
    for (uint32_t c = 0x391; c < 0x3CA; ++c)
        if (c != 0x3A2) EXPECT_TRUE(grx::has_strokes(c)) << c; // there is no such letter
    for (const uint32_t c : {0x20ACU, 0x2300U, 0x2205U, 0xB0U, 0xB1U, 0x152U, 0x153U, 0x178U, 0x3ACU, 0x2264U})
        EXPECT_TRUE(grx::has_strokes(c)) << c;
    EXPECT_FALSE(grx::has_strokes(0x4E00));
    EXPECT_FALSE(grx::has_strokes(0x7F));
}

TEST(StrokeFont, CapitalsStandOnTheLineAndAreOneHigh) {
    for (const char c : std::string("ABCDEFGHIJKLMNOPRSTUVWXYZ0123456789")) {
        const Strokes strokes(static_cast<unsigned char>(c));
        EXPECT_NEAR(strokes.least(&grx::Vertex::y), 0, 0.01) << c;
        EXPECT_NEAR(strokes.most(&grx::Vertex::y), 1, 0.01) << c;
    }
    EXPECT_NEAR(Strokes('p').least(&grx::Vertex::y), -grx::kStrokeBelow, 0.01);
    EXPECT_NEAR(Strokes('x').most(&grx::Vertex::y), 0.7, 0.01);
}

TEST(StrokeFont, LettersStayWithinTheirAdvance) {
    for (uint32_t c = 0x21; c < 0x250; ++c) {
        const Strokes strokes(c);
        if (strokes.points.empty()) continue;
        EXPECT_GE(strokes.least(&grx::Vertex::x), -0.11) << c;
        EXPECT_LE(strokes.most(&grx::Vertex::x), grx::stroke_advance(c)) << c;
        EXPECT_LE(strokes.most(&grx::Vertex::y), grx::kStrokeAbove + 0.05) << c;
    }
    EXPECT_TRUE(Strokes(' ').points.empty());
    EXPECT_GT(grx::stroke_advance(' '), 0.3);
}

TEST(StrokeFont, AccentsStandAboveTheirLetter) {
    const Strokes plain('e'), accented(0xE9), capital('E'), both(0xC9);
    EXPECT_EQ(accented.moves, plain.moves + 1);
    EXPECT_GT(accented.most(&grx::Vertex::y), 0.95);
    EXPECT_EQ(both.moves, capital.moves + 1);
    EXPECT_GT(both.most(&grx::Vertex::y), 1.2);
    EXPECT_NEAR(Strokes(0xB2).least(&grx::Vertex::y), 0.45, 0.01) << "set high";
}

TEST(StrokeFont, CurvesGetFinerWithTheTolerance) {
    const Strokes coarse('O', 0.05), fine('O', 0.0005);
    EXPECT_GT(fine.points.size(), 2 * coarse.points.size());
    for (const grx::Vertex& p : fine.points) {
        if (p.y < 0.7) continue;
        EXPECT_NEAR(std::hypot(p.x - 0.3, p.y - 0.7), 0.3, 1e-9); // its upper half is an arc around there
    }
}

TEST(StrokeFont, NumbersAreReadAlikeInEveryLocale) {
    const auto before = Strokes('0').points.size();
    const char* const given = std::setlocale(LC_NUMERIC, "fr_FR.UTF-8");
    EXPECT_EQ(Strokes('0').points.size(), before) << (given != nullptr ? given : "no such locale");
    std::setlocale(LC_NUMERIC, "C");
}

} // namespace
