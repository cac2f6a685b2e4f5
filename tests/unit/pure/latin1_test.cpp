// UTF-8 recognised and turned into Latin-1.
#include "pure/latin1.h"

#include <string>

#include "gtest/gtest.h"

namespace {

std::string latin1(const std::string& text) {
    std::string out(text.size() + 1, 'Z');
    grx::to_latin1(text, out.data());
    return out.c_str();
}

TEST(Latin1, TellsUtf8FromLatin1) {
    EXPECT_TRUE(grx::is_clearly_utf8("\xc3\xa9t\xc3\xa9"));
    EXPECT_TRUE(grx::is_clearly_utf8("\xe2\x82\xac"));
    EXPECT_TRUE(grx::is_clearly_utf8("\xf0\x9f\x98\x80"));
    for (const char* text : {"", "abc", "\xe9t\xe9", "\xc3", "\xc3\xa9\xff", "\xc0\xaf", "\xe0\x80\xaf", "\xed\xa0\x80",
             "\xf4\x90\x80\x80", "\xf8\x88\x80\x80\x80", "\x80", "\xe2\x82"})
        EXPECT_FALSE(grx::is_clearly_utf8(text)) << testing::PrintToString(std::string(text));
}

TEST(Latin1, TurnsUtf8IntoIt) {
    EXPECT_EQ(latin1("\xc3\xa9t\xc3\xa9"), "\xe9t\xe9");
    EXPECT_EQ(latin1("\xe9t\xe9"), "\xe9t\xe9");
    EXPECT_EQ(latin1("l\xe2\x80\x99\xc5\x93il \xe2\x80\x93 5 \xe2\x82\xac"), "l'oil - 5 E");
    EXPECT_EQ(latin1("\xe4\xb8\xad\xc3\xa9"), "?\xe9");
    EXPECT_EQ(latin1(""), "");
}

TEST(Latin1, CutsBetweenCharacters) {
    EXPECT_EQ(grx::whole_characters("\xc3\xa9\xc3\xa9", 3), 2U);
    EXPECT_EQ(grx::whole_characters("\xc3\xa9\xc3\xa9", 4), 4U);
    EXPECT_EQ(grx::whole_characters("\xc3\xa9\xc3\xa9", 1), 0U);
    EXPECT_EQ(grx::whole_characters("\xe9\xe9\xe9", 2), 2U);
    EXPECT_EQ(grx::whole_characters("abc", 9), 3U);
}

} // namespace
