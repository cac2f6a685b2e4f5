#include "pure/tip_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>

namespace {

std::string wrapped(const std::string& text) {
    std::array<char, grx::kWrappedMost> out;
    out.fill('#');
    grx::wrap_tip(text, out);
    return out.data();
}

TEST(TipText, ShortLinesStayAsTheyAre) {
    for (const char* text : {"", "a", "two words", "two\nlines", "\n\nempty ones"}) EXPECT_EQ(wrapped(text), text);
    const std::string full(grx::kWrapColumns, 'x');
    EXPECT_EQ(wrapped(full), full);
    EXPECT_EQ(wrapped(full + "\n" + full), full + "\n" + full);
}

TEST(TipText, LongLinesEndAtTheLastBlankThatFits) {
    const std::string first(40, 'a'), second(19, 'b'), third(30, 'c');
    EXPECT_EQ(wrapped(first + " " + second + " " + third), first + " " + second + "\n" + third);
    EXPECT_EQ(wrapped(first + " " + third), first + "\n" + third);
}

TEST(TipText, LongWordsAreBrokenBetweenCharacters) {
    EXPECT_EQ(wrapped(std::string(130, 'x')),
        std::string(60, 'x') + "\n" + std::string(60, 'x') + "\n" + std::string(10, 'x'));
    std::string accents = "x";
    for (int i = 0; i < 40; ++i) accents += "\xC3\xA9";
    const std::string result = wrapped(accents);
    const std::size_t end = result.find('\n');
    ASSERT_NE(end, std::string::npos);
    EXPECT_EQ(static_cast<unsigned char>(result[end + 1]), 0xC3U) << "the character is whole";
    const std::string bytes(200, '\xA9'); // no text of UTF-8 at all
    EXPECT_GE(std::ranges::count(wrapped(bytes), '\n'), 3);
}

TEST(TipText, WhatIsTooLongIsCut) {
    std::string many;
    for (int i = 0; i < 1000; ++i) many += "line\n";
    const std::string result = wrapped(many);
    EXPECT_EQ(static_cast<std::size_t>(std::ranges::count(result, '\n')), grx::kWrapLines - 1);
    EXPECT_TRUE(result.ends_with("line..."));
    EXPECT_LT(wrapped(std::string(1'000'000, 'x')).size(), grx::kWrappedMost);
    EXPECT_EQ(wrapped(std::string(1'000'000, 'x')).size(), grx::kWrappedMost - 2) << "every byte of the room is used";
}

} // namespace
