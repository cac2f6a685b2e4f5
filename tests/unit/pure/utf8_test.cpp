// Texts between UTF-8 and Latin-1.
#include "pure/utf8.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string to_latin1(const std::string& text) {
    std::string out(grx::characters_of(text), '#');
    grx::write_latin1(text, out.data());
    return out;
}
std::string to_utf8(const std::string& text) {
    std::string out(grx::utf8_size(text), '#');
    grx::write_utf8(text, out.data());
    return out;
}

TEST(Utf8, OnlyTheShortestFormsOfCharactersThatExist) {
    for (const char* good : {"", "abc\n\t\x01\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF",
             "\xEE\x80\x80", "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"})
        EXPECT_TRUE(grx::is_utf8(good)) << good;
    for (const char* bad : {"\x80", "\xBF", "\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xED\xBF\xBF",
             "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80", "\xFF", "\xFE", "\xC3", "\xE2\x82",
             "\xF0\x9F\x98", "\xC3(", "\xE2\x82(", "a\xE9z"})
        EXPECT_FALSE(grx::is_utf8(bad)) << bad;
}

TEST(Utf8, EveryByteOfLatinOneGoesThereAndBack) {
    std::string all;
    for (int c = 1; c < 256; ++c) all += static_cast<char>(c);
    const std::string utf8 = to_utf8(all);
    EXPECT_EQ(utf8.size(), 127U + 2 * 128U);
    EXPECT_TRUE(grx::is_utf8(utf8));
    EXPECT_TRUE(grx::fits_latin1(utf8));
    EXPECT_EQ(to_latin1(utf8), all);
}

TEST(Utf8, EveryCharacterThatLatinOneLacksIsAQuestionMark) {
    const std::string text = "a\xC4\x80\xE2\x82\xAC\xF0\x9F\x98\x80z";
    EXPECT_FALSE(grx::fits_latin1(text));
    EXPECT_EQ(grx::characters_of(text), 5U);
    EXPECT_EQ(to_latin1(text), "a???z");
}

// Every character of every length: written by the rule, known again; its bytes cut short are not.
TEST(Utf8, EveryCharacterIsKnownAndNoneCutShort) {
    for (unsigned code = 0x80; code <= 0x10FFFF; code += code < 0x3000 ? 1 : 61) {
        std::string text;
        if (code < 0x800) {
            text = {static_cast<char>(0xC0 | code >> 6), static_cast<char>(0x80 | (code & 63))};
        } else if (code < 0x10000) {
            text = {static_cast<char>(0xE0 | code >> 12), static_cast<char>(0x80 | (code >> 6 & 63)),
                static_cast<char>(0x80 | (code & 63))};
        } else {
            text = {static_cast<char>(0xF0 | code >> 18), static_cast<char>(0x80 | (code >> 12 & 63)),
                static_cast<char>(0x80 | (code >> 6 & 63)), static_cast<char>(0x80 | (code & 63))};
        }
        const bool surrogate = code >= 0xD800 && code < 0xE000;
        ASSERT_EQ(grx::is_utf8(text), !surrogate) << code;
        ASSERT_FALSE(grx::is_utf8(text.substr(0, text.size() - 1))) << code;
    }
}

} // namespace
