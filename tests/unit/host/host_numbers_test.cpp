// The default host's numbers as text, and its byte order.
#include <gtest/gtest.h>

#include "host_f.h"

#include <array>
#include <climits>
#include <cmath>
#include <cstring>
#include <limits>
#include <string>

namespace grxtest {
namespace {

using Number = std::array<char, HOST_NOMBRE_MAX>;

std::string field(DOUBLE value, INT total, INT decimals, INT expected = 1) {
    Number text;
    text.fill('~');
    EXPECT_EQ(str_ftoa(text.data(), value, total, decimals), expected);
    return text.data();
}

TEST(HostField, IsRightAligned) {
    EXPECT_EQ(field(3.14159, 8, 2), "    3.14");
    EXPECT_EQ(field(-2.5, 4, 1), "-2.5");
    EXPECT_EQ(field(7, 3, 0), "  7");
}

TEST(HostField, WritesTooWideNumbersInFull) {
    EXPECT_EQ(field(123456.789, 5, 2), "123456.79");
    EXPECT_EQ(field(1, -3, 0), "1");
    EXPECT_EQ(field(-std::numeric_limits<DOUBLE>::max(), 0, 300).size(), 1U + 309U + 1U + 300U);
}

TEST(HostField, RefusesWhatCannotBeWritten) {
    for (const DOUBLE value : {std::nan(""), HUGE_VAL, -HUGE_VAL}) EXPECT_EQ(field(value, 5, 2, 0), "");
    for (const INT decimals : {-1, 301, INT_MAX, INT_MIN}) EXPECT_EQ(field(1, 5, decimals, 0), "");
    EXPECT_EQ(str_ftoa(nullptr, 1, 5, 2), 0);
}

TEST(HostField, StaysInItsBuffer) {
    EXPECT_EQ(field(1, INT_MAX, 0).size(), std::size_t{HOST_NOMBRE_MAX - 1});
    EXPECT_EQ(field(1, INT_MIN, 0), "1");
}

std::string converted(DOUBLE value, INT width, INT decimals, INT expected = 1) {
    Number text;
    text.fill('~');
    EXPECT_EQ(clc_convert_to_string(value, width, decimals, text.data()), expected);
    return text.data();
}

TEST(HostConversion, HasItsDecimalsWithoutBlanks) {
    EXPECT_EQ(converted(3.14159, 10, 2), "3.14");
    EXPECT_EQ(converted(-0.5, 10, 0), "-0");
    EXPECT_EQ(converted(12, 2, 0), "12");
    EXPECT_EQ(converted(1234.5, 0, 2), "1234.50");
    EXPECT_EQ(converted(1234.5, -7, 2), "1234.50");
}

TEST(HostConversion, GivesUpDigitsToFit) {
    EXPECT_EQ(converted(3.14159265, 6, 8), "3.1416");
    EXPECT_EQ(converted(1e20, 6, 2), "1e+20");
    EXPECT_EQ(converted(123456789, 7, 3), "1.2e+08");
    EXPECT_EQ(converted(123456, 1, 0), "1e+05"); // nothing shorter tells the number
}

TEST(HostConversion, RefusesWhatCannotBeWritten) {
    EXPECT_EQ(converted(std::nan(""), 10, 2, 0), "");
    EXPECT_EQ(converted(HUGE_VAL, 10, 2, 0), "");
    EXPECT_EQ(converted(1, 10, -1, 0), "");
    EXPECT_EQ(converted(1, 10, INT_MAX, 0), "");
    EXPECT_EQ(clc_convert_to_string(1, 10, 2, nullptr), 0);
}

TEST(HostConversion, StaysInItsBuffer) {
    const auto most = std::numeric_limits<DOUBLE>::max();
    EXPECT_EQ(converted(most, INT_MAX, 300).size(), 309U + 1U + 300U);
    EXPECT_EQ(converted(most, 20, 300), "1.7976931348623e+308");
}

template <typename Value>
std::string bytes_of(Value value) {
    std::string bytes(sizeof(value), '\0');
    std::memcpy(bytes.data(), &value, sizeof(value));
    return bytes;
}

TEST(HostBytes, AreLittleEndianInFiles) {
    EXPECT_EQ(bytes_of(ux2pcint2(0x4d42)), "BM");
    EXPECT_EQ(bytes_of(ux2pcint4(0x04030201U)), "\001\002\003\004");
}

TEST(HostBytes, ComeBackAsTheyWere) {
    for (const unsigned value : {0U, 1U, 0x8000U, 0xFFFFU, 0x1234U}) {
        const auto half = static_cast<UNSIGNED_INT2>(value);
        EXPECT_EQ(pc2uxint2(ux2pcint2(half)), half);
        EXPECT_EQ(pc2uxint4(ux2pcint4(value << 16 | value)), value << 16 | value);
    }
}

} // namespace
} // namespace grxtest
