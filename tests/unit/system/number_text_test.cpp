// Numbers as text of a fixed width.
#include <gtest/gtest.h>

#include "xt_uti_f.h"

#include <array>
#include <climits>
#include <cmath>
#include <limits>
#include <string>

namespace grxtest {
namespace {

std::string encoded(DOUBLE number, INT total, INT decimals) {
    std::array<char, 2048> text{};
    text.fill('~');
    EXPECT_EQ(encode_double_en_caractere(number, total, decimals, text.data()), 0);
    return text.data();
}

TEST(EncodedNumber, IsRightAligned) {
    EXPECT_EQ(encoded(3.14159, 8, 2), "    3.14");
    EXPECT_EQ(encoded(-1, 2, 0), "-1");
    EXPECT_EQ(encoded(123.456, 7, 3), "123.456");
    EXPECT_EQ(encoded(0, 4, 1), " 0.0");
}

TEST(EncodedNumber, TooWideIsStars) {
    EXPECT_EQ(encoded(123456.789, 5, 2), "*****");
    EXPECT_EQ(encoded(1e308, 10, 4), "**********");
    EXPECT_EQ(encoded(-std::numeric_limits<DOUBLE>::max(), 1, 300), "*");
    EXPECT_EQ(encoded(10, 1, 0), "*");
}

TEST(EncodedNumber, UnwritableIsQuestionMarks) {
    EXPECT_EQ(encoded(std::nan(""), 3, 1), "???");
    EXPECT_EQ(encoded(HUGE_VAL, 3, 1), "???");
    EXPECT_EQ(encoded(1, 3, -1), "???");
    EXPECT_EQ(encoded(1, 3, 301), "???");
    EXPECT_EQ(encoded(1, 3, INT_MAX), "???");
    EXPECT_EQ(encoded(1, 3, INT_MIN), "???");
}

TEST(EncodedNumber, NoRoomIsEmpty) {
    for (const INT total : {0, -1, INT_MIN}) {
        EXPECT_EQ(encoded(1, total, 0), "");
        EXPECT_EQ(encoded(std::nan(""), total, 0), "");
    }
}

TEST(EncodedNumber, WritesNoMoreThanItsRoom) {
    std::array<char, 8> text{};
    text.fill('~');
    encode_double_en_caractere(1e300, 5, 100, text.data());
    EXPECT_EQ(std::string(text.data(), 8), std::string("*****\0~~", 8));
    EXPECT_EQ(encode_double_en_caractere(1, 5, 2, nullptr), 0);
}

TEST(EncodedNumber, WideFieldsAreWritten) {
    EXPECT_EQ(encoded(1.5, 1000, 1), std::string(997, ' ') + "1.5");
    EXPECT_EQ(encoded(1.5, 1023, 1).size(), 1023U);
    EXPECT_EQ(encoded(1.5, 1500, 1).substr(1020), "1.5");
}

} // namespace
} // namespace grxtest
