// Numbers typed into prompts.
#include "pure/typed_number.h"

#include <cfloat>
#include <string>

#include "gtest/gtest.h"

namespace {

struct Case {
    const char* text;
    bool decimals;
    std::optional<double> number;
};

class TypedNumber : public testing::TestWithParam<Case> {};

TEST_P(TypedNumber, IsRead) {
    EXPECT_EQ(grx::typed_number(GetParam().text, GetParam().decimals), GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(All, TypedNumber,
    testing::Values(Case{"12", false, 12}, Case{" -12 ", false, -12}, Case{"+3", false, 3},
        Case{"\xc2\xa0"
             "3\xa0",
            false, 3},
        Case{"1.5", false, {}}, Case{"1e3", false, {}}, Case{"", false, {}}, Case{"-", false, {}}, Case{"+", true, {}},
        Case{"+-3", true, {}}, Case{"++3", true, {}}, Case{"--3", true, {}}, Case{"1-2", false, {}},
        Case{"1,5", true, 1.5}, Case{"1.5", true, 1.5}, Case{".5", true, 0.5}, Case{"5.", true, 5},
        Case{"1e-3", true, 0.001}, Case{"1E3", true, 1000}, Case{"1,2.3", true, {}}, Case{"0x10", true, {}},
        Case{"nan", true, {}}, Case{"inf", true, {}}, Case{"1e999", true, {}}, Case{"1 000", true, {}},
        Case{"12m", true, {}}, Case{".", true, {}}));

TEST(TypedNumber, IsWritten) {
    EXPECT_STREQ(grx::number_text(0.1, -1).data(), "0.1");
    EXPECT_STREQ(grx::number_text(12, -1).data(), "12");
    EXPECT_STREQ(grx::number_text(-2147483648.0, 0).data(), "-2147483648");
    EXPECT_STREQ(grx::number_text(3.14159, 2).data(), "3.14");
    EXPECT_STREQ(grx::number_text(1e-9, -1).data(), "1e-09");
    EXPECT_EQ(std::string(grx::number_text(DBL_MAX, 15).data()).size(), 325U);
}

TEST(TypedNumber, BoundsAreSaid) {
    EXPECT_STREQ(grx::bounds_text(1, 8, 100).data(), "Entre 1 et 8");
    EXPECT_STREQ(grx::bounds_text(1, 100, 100).data(), "Au moins 1");
    EXPECT_STREQ(grx::bounds_text(-100, 8, 100).data(), "Au plus 8");
    EXPECT_STREQ(grx::bounds_text(-100, 100, 100).data(), "");
}

} // namespace
