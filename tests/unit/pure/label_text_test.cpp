// The characters of texts in drawings: UTF-8, Latin-1, controls.
#include "pure/label_text.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

namespace {

std::vector<uint32_t> characters(const std::string& text, std::size_t room = 255) {
    std::vector<uint32_t> out(room);
    out.resize(grx::read_characters(text, out));
    return out;
}
using List = std::vector<uint32_t>;

TEST(LabelText, ReadsUtf8WhereItIsThatAndElseLatinOne) {
    EXPECT_EQ(characters("A1"), (List{'A', '1'}));
    EXPECT_EQ(characters("\xC3\xA9\xE2\x82\xAC\xE2\x8C\x80"), (List{0xE9, 0x20AC, 0x2300}));
    EXPECT_EQ(characters("\xE9t\xE9 \xB1"), (List{0xE9, 't', 0xE9, ' ', 0xB1}));
    EXPECT_EQ(characters("\xC3\xA9\xE9"), (List{0xC3, 0xA9, 0xE9})) << "one bad byte makes it Latin-1";
    EXPECT_EQ(characters("\xF0\x9F\x98\x80"), (List{0x1F600}));
    EXPECT_EQ(characters(""), List{});
}

TEST(LabelText, ATabIsABlankAndOtherControlsAreNothing) {
    EXPECT_EQ(characters("a\tb\nc\x7F"), (List{'a', ' ', 'b', 'c'}));
    EXPECT_EQ(characters("\xC2\x85z"), List{'z'});
}

TEST(LabelText, WritesNoMoreThanThereIsRoomFor) {
    EXPECT_EQ(characters(std::string(300, 'x')).size(), 255U);
    EXPECT_EQ(characters("abc", 2), (List{'a', 'b'}));
    EXPECT_EQ(characters("abc", 0), List{});
}

} // namespace
