// The texts of panel items, cut into their lines.
#include <gtest/gtest.h>

#include "tests/unit/c_text.h"

#include "xt_pan_f.h"

#include <array>
#include <climits>
#include <cstring>
#include <string>
#include <vector>

namespace grxtest {
namespace {

using Lines = std::vector<std::string>;

// Every line of the table is a pattern first, so that lines that must not be written show.
Lines decoded(const std::string& text, INT width, INT most) {
    std::array<char[GRX_ITEM_LIGNE_MAX], 40> lines;
    std::memset(lines.data(), '?', sizeof lines);
    std::string copy = text;
    INT count = most;
    EXPECT_EQ(decode_message(copy.data(), width, &count, lines.data()), 0);
    EXPECT_EQ(copy, text) << "the text itself was changed";
    Lines result;
    for (INT i = 0; i < count; ++i) {
        EXPECT_NE(std::memchr(lines[static_cast<std::size_t>(i)], 0, GRX_ITEM_LIGNE_MAX), nullptr) << i;
        result.emplace_back(lines[static_cast<std::size_t>(i)]);
    }
    for (std::size_t i = static_cast<std::size_t>(std::max(count, 0)); i < lines.size(); ++i)
        EXPECT_EQ(std::string(lines[i], GRX_ITEM_LIGNE_MAX), std::string(GRX_ITEM_LIGNE_MAX, '?')) << "line " << i;
    return result;
}

TEST(ItemText, IsCutAtEveryDashAndTrimmed) {
    EXPECT_EQ(decoded("Units- mm - cm-m", 0, 10), (Lines{"Units", "mm", "cm", "m"}));
    EXPECT_EQ(decoded("  One  word  ", 0, 10), (Lines{"One  word"}));
    EXPECT_EQ(decoded("a", 0, 10), (Lines{"a"}));
}

TEST(ItemText, TheEarliestOfTheLongestLinesIsPadded) {
    EXPECT_EQ(decoded("Units- mm - cm-m", 6, 10), (Lines{"Units", "mm    ", "cm", "m"}));
    EXPECT_EQ(decoded("Units-m-cm-mm", 6, 10), (Lines{"Units", "m", "cm    ", "mm"}));
    EXPECT_EQ(decoded("T-abc-de", 4, 10), (Lines{"T", "abc ", "de"}));
}

TEST(ItemText, TheTitleIsNeverChosenWhileAnyChoiceHasACharacter) {
    EXPECT_EQ(decoded("A very long title-m", 4, 10), (Lines{"A very long title", "m   "}));
    EXPECT_EQ(decoded("Title- -m-", 3, 10), (Lines{"Title", "", "m  ", ""}));
}

TEST(ItemText, TheTitleIsPaddedWhenNoChoiceHasACharacter) {
    EXPECT_EQ(decoded("Title", 8, 10), (Lines{"Title   "}));
    EXPECT_EQ(decoded("Title- - ", 8, 10), (Lines{"Title   ", "", ""}));
    EXPECT_EQ(decoded("", 3, 10), (Lines{"   "}));
}

TEST(ItemText, NoLineIsShortened) {
    EXPECT_EQ(decoded("T-abcdef", 6, 10), (Lines{"T", "abcdef"}));
    EXPECT_EQ(decoded("T-abcdef", 5, 10), (Lines{"T", "abcdef"}));
    EXPECT_EQ(decoded("Long title", 4, 10), (Lines{"Long title"}));
    for (INT width : {0, -1, INT_MIN}) EXPECT_EQ(decoded("T-ab", width, 10), (Lines{"T", "ab"})) << width;
    EXPECT_EQ(decoded("T-a", 1, 10), (Lines{"T", "a"}));
    EXPECT_EQ(decoded("T-", 1, 10), (Lines{"T", ""}));
}

TEST(ItemText, EmptyPiecesAreLines) {
    EXPECT_EQ(decoded("", 0, 10), (Lines{""}));
    EXPECT_EQ(decoded("   ", 0, 10), (Lines{""}));
    EXPECT_EQ(decoded("-", 0, 10), (Lines{"", ""}));
    EXPECT_EQ(decoded("a-", 0, 10), (Lines{"a", ""}));
    EXPECT_EQ(decoded("--b", 0, 10), (Lines{"", "", "b"}));
}

TEST(ItemText, CuttingStopsAtTheMostLinesWanted) {
    EXPECT_EQ(decoded("a-b-c-d", 0, 3), (Lines{"a", "b", "c"}));
    EXPECT_EQ(decoded("a-b-c-d", 0, 4), (Lines{"a", "b", "c", "d"}));
    EXPECT_EQ(decoded("a-b-longer", 5, 2), (Lines{"a", "b    "})) << "lines that are not made are not measured";
    EXPECT_EQ(decoded("a-b", 5, 1), (Lines{"a    "}));
    for (INT most : {0, -1, INT_MIN}) EXPECT_EQ(decoded("a-b", 5, most), Lines()) << most;
}

TEST(ItemText, LinesHoldSeventyNineCharacters) {
    const std::string longest(79, 'x');
    EXPECT_EQ(decoded("T-" + longest, 0, 10), (Lines{"T", longest}));
    EXPECT_EQ(decoded("T-" + longest + "yz-b", 0, 10), (Lines{"T", longest, "b"}));
    EXPECT_EQ(decoded(std::string(5000, 'x'), 0, 10), (Lines{longest}));
    EXPECT_EQ(decoded("T-m", 79, 10), (Lines{"T", "m" + std::string(78, ' ')}));
    EXPECT_EQ(decoded("T-m", 80, 10), (Lines{"T", "m" + std::string(78, ' ')}));
    EXPECT_EQ(decoded("T-m", INT_MAX, 10), (Lines{"T", "m" + std::string(78, ' ')}));
}

TEST(ItemText, MissingArgumentsAreRefused) {
    char lines[2][GRX_ITEM_LIGNE_MAX];
    INT count = 2;
    EXPECT_EQ(decode_message(nullptr, 0, &count, lines), 0);
    EXPECT_EQ(decode_message(in("a-b"), 0, nullptr, lines), 0);
    count = 2;
    EXPECT_EQ(decode_message(in("a-b"), 0, &count, nullptr), 0);
}

} // namespace
} // namespace grxtest
