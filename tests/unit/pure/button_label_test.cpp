// Labels and their mnemonics.
#include "pure/button_label.h"

#include <string>

#include "gtest/gtest.h"

namespace {

struct Label {
    const char* given;
    const char* plain;
    char mnemonic;
};

class ButtonLabel : public testing::TestWithParam<Label> {};

TEST_P(ButtonLabel, IsTakenApart) {
    std::string plain(std::string(GetParam().given).size() + 1, 'Z');
    EXPECT_EQ(grx::plain_label(GetParam().given, plain.data()), GetParam().mnemonic);
    EXPECT_STREQ(plain.c_str(), GetParam().plain);
}

INSTANTIATE_TEST_SUITE_P(All, ButtonLabel,
    testing::Values(Label{"", "", 0}, Label{"Oui", "Oui", 0}, Label{"&Oui", "Oui", 'O'}, Label{"O&ui", "Oui", 'u'},
        Label{"A && B", "A & B", 0}, Label{"A & B", "A & B", 0}, Label{"Fin&", "Fin&", 0}, Label{"&A&B", "AB", 'A'},
        Label{"&&&C", "&C", 'C'}, Label{"\xc9&t\xe9", "\xc9t\xe9", 't'}));

} // namespace
