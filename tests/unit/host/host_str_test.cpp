// The default host's string services.
#include <gtest/gtest.h>

#include "tests/unit/c_text.h"

#include "host_f.h"

#include <array>
#include <climits>
#include <string>

namespace grxtest {
namespace {

using Service = INT (*)(char*, char*);

// What the service makes of a text; its result must be the length, and in place it must do the same.
std::string made(Service service, const std::string& text) {
    std::string separate(text.size() + 1, '~');
    const auto length = service(separate.data(), in(text));
    std::string in_place = text;
    EXPECT_EQ(service(in_place.data(), in_place.data()), length);
    EXPECT_STREQ(separate.c_str(), in_place.c_str());
    EXPECT_EQ(std::string(separate.c_str()).size(), static_cast<std::size_t>(length));
    return separate.c_str();
}

TEST(HostTrim, TakesBlanksOffBothEnds) {
    EXPECT_EQ(made(str_trim, "  a b \t"), "a b");
    EXPECT_EQ(made(str_trim, "\r\n\t a"), "a");
    EXPECT_EQ(made(str_trim, "a\r\n"), "a");
    EXPECT_EQ(made(str_trim, "a"), "a");
    EXPECT_EQ(made(str_trim, ""), "");
    EXPECT_EQ(made(str_trim, " \t\r\n "), "");
    EXPECT_EQ(made(str_trim, "\240a\240"), "\240a\240");
    EXPECT_EQ(made(str_trim, std::string(5000, ' ') + "x"), "x");
}

TEST(HostCase, LowersAscii) {
    EXPECT_EQ(made(str_lwr, "C:\\WORK [Z]@`{"), "c:\\work [z]@`{");
    EXPECT_EQ(made(str_lwr, ""), "");
}

TEST(HostCase, LowersLatinCapitals) {
    EXPECT_EQ(made(str_lwr, "\311T\311 \300\336"), "\351t\351 \340\376");
    EXPECT_EQ(made(str_lwr, "\327\337\377\300"), "\327\337\377\340");
}

TEST(HostCase, LeavesUtf8BytesAlone) {
    EXPECT_EQ(made(str_lwr, "\303\211T\303\211"), "\303\211t\303\211");
    EXPECT_EQ(made(str_lwr, "A\342\202\254\360\237\217\240B"), "a\342\202\254\360\237\217\240b");
}

TEST(HostCase, BytesThatOnlyLookLikeUtf8AreLatin) {
    EXPECT_EQ(made(str_lwr, "A\303"), "a\343");
    EXPECT_EQ(made(str_lwr, "\303\211\311"), "\343\211\351");
    EXPECT_EQ(made(str_lwr, "\303A"), "\343a");
}

TEST(HostCase, RaisesAsciiOnly) {
    EXPECT_EQ(made(str_upr, "plan_a[z]{.dat"), "PLAN_A[Z]{.DAT");
    EXPECT_EQ(made(str_upr, "\351t\351 \303\251"), "\351T\351 \303\251");
}

TEST(HostStrings, NullReadsAsEmpty) {
    for (const auto service : {str_trim, str_lwr, str_upr}) {
        std::array<char, 2> out{'?', '?'};
        EXPECT_EQ(service(out.data(), nullptr), 0);
        EXPECT_STREQ(out.data(), "");
        EXPECT_EQ(service(nullptr, in("abc")), 0);
    }
}

TEST(HostPosition, IsTheFirstFromZero) {
    EXPECT_EQ(str_pos(in("abcabc"), in("c")), 2);
    EXPECT_EQ(str_pos(in("abcabc"), in("abcabc")), 0);
    EXPECT_EQ(str_pos(in("abc"), in("")), 0);
    EXPECT_EQ(str_pos(in("abc"), in("d")), -1);
    EXPECT_EQ(str_pos(in(""), in("d")), -1);
    EXPECT_EQ(str_pos(nullptr, in("d")), -1);
    EXPECT_EQ(str_pos(in("abc"), nullptr), 0);
}

std::string part(const char* text, INT first, INT last) {
    std::array<char, 32> out{'?'};
    const auto length = str_sub(out.data(), in(text), first, last);
    EXPECT_EQ(std::string(out.data()).size(), static_cast<std::size_t>(length));
    return out.data();
}

TEST(HostPart, RunsToTheLastIndexIncluded) {
    EXPECT_EQ(part("MSG12", 0, 2), "MSG");
    EXPECT_EQ(part("MSG12", 3, 4), "12");
    EXPECT_EQ(part("MSG12", 2, 2), "G");
}

TEST(HostPart, IsCutToTheText) {
    EXPECT_EQ(part("MSG12", -5, 1), "MS");
    EXPECT_EQ(part("MSG12", 3, INT_MAX), "12");
    EXPECT_EQ(part("MSG12", INT_MIN, INT_MAX), "MSG12");
    EXPECT_EQ(part("MSG12", 5, 9), "");
    EXPECT_EQ(part("MSG12", 3, 2), "");
    EXPECT_EQ(part("MSG12", 0, -1), "");
    EXPECT_EQ(part("", 0, 0), "");
    EXPECT_EQ(part(nullptr, 0, 5), "");
    EXPECT_EQ(str_sub(nullptr, in("abc"), 0, 1), 0);
}

TEST(HostPart, WorksInPlace) {
    std::string text = "abcdef";
    EXPECT_EQ(str_sub(text.data(), text.data(), 2, 4), 3);
    EXPECT_STREQ(text.c_str(), "cde");
}

TEST(HostBlanks, FillAndEnd) {
    std::array<char, 5> out{'a', 'b', 'c', 'd', 'e'};
    EXPECT_EQ(str_blanc(out.data(), 3), 3);
    EXPECT_EQ(std::string(out.data(), 5), std::string("   \0e", 5));
    EXPECT_EQ(str_blanc(out.data(), 0), 0);
    EXPECT_STREQ(out.data(), "");
    out[0] = 'x';
    EXPECT_EQ(str_blanc(out.data(), -4), 0);
    EXPECT_STREQ(out.data(), "");
    EXPECT_EQ(str_blanc(nullptr, 3), 0);
}

} // namespace
} // namespace grxtest
