// UTF-8: known, and made of Latin-1.
#include "pure/utf8.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(Utf8, Known) {
    for (const char* text : {"", "ASCII", "\xC3\xA9",
             "a\xE2\x82\xAC"
             "b",
             "\xF0\x9F\x98\x80", "\xED\x9F\xBF", "\xEE\x80\x80", "\xF4\x8F\xBF\xBF", "\xC2\x80"})
        EXPECT_TRUE(grx::is_utf8(text)) << text;
}

TEST(Utf8, NotTakenForIt) {
    for (const char* text : {"\xE9", "caf\xE9", "\xC3", "\xC3(", "\x80", "\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF",
             "\xED\xA0\x80", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xE2\x82", "\xF0\x9F\x98",
             "\xFF", "\xE2\x28\xA1"})
        EXPECT_FALSE(grx::is_utf8(text)) << text;
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

TEST(Utf8, Latin1BecomesIt) {
    std::string all;
    for (int byte = 1; byte < 256; ++byte) all += static_cast<char>(byte);
    std::string out(2 * all.size(), '?');
    out.resize(grx::latin1_to_utf8(all, out.data()));
    EXPECT_EQ(out.size(), 127U + 2 * 128U);
    EXPECT_TRUE(grx::is_utf8(out));
    EXPECT_EQ(out.substr(127, 2), "\xC2\x80");
    EXPECT_EQ(out.substr(out.size() - 2), "\xC3\xBF");
    char accent[2];
    EXPECT_EQ(grx::latin1_to_utf8("\xE9", accent), 2U);
    EXPECT_EQ(std::string(accent, 2), "\xC3\xA9");
    EXPECT_EQ(grx::latin1_to_utf8("", accent), 0U);
}

} // namespace
