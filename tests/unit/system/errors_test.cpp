// Error texts and the three printing functions, exactly as they reach the standard output.
#include <gtest/gtest.h>

#include "tests/support/stdout_capture.h"
#include "tests/unit/c_text.h"

#include "xt_err_f.h"

#include <climits>
#include <cmath>
#include <ostream>
#include <string>

namespace grxtest {
namespace {

template <typename Action>
std::string printed(const Action& action) {
    StdoutCapture capture;
    action();
    return capture.text();
}

struct Expected {
    INT code;
    const char* text;
};

void PrintTo(const Expected& expected, std::ostream* out) {
    *out << expected.code;
}

class ErrorText : public testing::TestWithParam<Expected> {};

TEST_P(ErrorText, IsTheHeadingAndTheLineOfTheCode) {
    INT result = -1;
    const auto text = printed([&] { result = grx_erreur(GetParam().code); });
    EXPECT_EQ(text, std::string("GFX ERROR\n") + GetParam().text);
    EXPECT_EQ(result, 0);
}

INSTANTIATE_TEST_SUITE_P(All, ErrorText,
    testing::Values(Expected{1, "Code 1: Opening problem on file 'PAN*.DAT'\n"},
        Expected{2, "Code 2: Opening problem on file 'MNU*.DAT' \n"},
        Expected{3, "Code 3: Reading problem on config file\n"},
        Expected{4, "Code 4: Keyboard initialisation problem\n"},
        Expected{5, "Code 5: Error on table color allocation\n"},
        Expected{6, "Code 6: Environment variable(XXSYS) too long\n"},
        Expected{7, "Code 7: Keyboard definition incomplete\n"},
        Expected{8, "Code 8: Reading problem on config file\n->Default values setting\n"},
        Expected{9, "Code 9: Font file unreachable\n"}, Expected{10, "Code 10: Incorrect keyboard configuration\n"},
        Expected{11, "Code 11: Error opening DISPLAY\n"}, Expected{12, "Code 12: Error on window base allocation\n"},
        Expected{13, "Code 13: Error on button base allocation\n"},
        Expected{14, "Code 14: Error on calculator initialisation\n"},
        Expected{15, "Code 15: Opening problem on file 'MSG*.DAT'\n"},
        Expected{16, "Code 16: Graphic initialisation problem\n"},
        Expected{17, "Code 17: Opening problem on file 'PAN_FCAN.DAT'\n"},
        Expected{18, "Code 18: Opening problem on file 'PAN_TABL.DAT'\n"},
        Expected{100, "Code 100: Too many buttons defined\n"}, Expected{101, "Code 101: Line decoding error\n"},
        Expected{102, "Code 102: Starting zone not found\n"}, Expected{103, "Code 103: Not enough informations\n"},
        Expected{104, "Code 104: Starting index not found\n"}, Expected{105, "Code 105: Error on panels allocation\n"}),
    [](const auto& info) { return "Code" + std::to_string(info.param.code); });

INSTANTIATE_TEST_SUITE_P(Others, ErrorText,
    testing::Values(Expected{0, "Code value:0\n"}, Expected{19, "Code value:19\n"}, Expected{99, "Code value:99\n"},
        Expected{106, "Code value:106\n"}, Expected{-1, "Code value:-1\n"},
        Expected{INT_MAX, "Code value:2147483647\n"}, Expected{INT_MIN, "Code value:-2147483648\n"}),
    [](const auto& info) { return "Number" + std::to_string(info.index); });

TEST(Printing, AStringStandsAlone) {
    EXPECT_EQ(printed([] { EXPECT_EQ(grx_affiche_chaine(in("100%s\t\351")), 0); }), "100%s\t\351");
    EXPECT_EQ(printed([] { EXPECT_EQ(grx_affiche_chaine(in("")), 0); }), "");
    EXPECT_EQ(printed([] { EXPECT_EQ(grx_affiche_chaine(nullptr), 0); }), "");
}

TEST(Printing, AnIntegerStandsAlone) {
    EXPECT_EQ(printed([] { EXPECT_EQ(grx_affiche_entier(42), 0); }), "42");
    EXPECT_EQ(printed([] { grx_affiche_entier(INT_MIN); }), "-2147483648");
}

TEST(Printing, ARealHasSixDecimals) {
    EXPECT_EQ(printed([] { EXPECT_EQ(grx_affiche_reel(1.5), 0); }), "1.500000");
    EXPECT_EQ(printed([] { grx_affiche_reel(-0.0000004); }), "-0.000000");
    EXPECT_EQ(printed([] { grx_affiche_reel(HUGE_VAL); }), "inf");
    EXPECT_EQ(printed([] { grx_affiche_reel(1e300); }).size(), 301U + 7U);
}

TEST(Printing, NothingReachesStandardError) {
    testing::internal::CaptureStderr();
    printed([] { grx_erreur(5); });
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

} // namespace
} // namespace grxtest
