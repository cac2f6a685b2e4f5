// The description record of a dialog element.
#include "xt_msg_f.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>

namespace grxtest {
namespace {

GRX_MSG record_of_bytes(int byte) {
    GRX_MSG message;
    std::memset(static_cast<void*>(&message), byte, sizeof message);
    return message;
}

class DialogRecord : public testing::TestWithParam<int> {
  protected:
    void SetUp() override { EXPECT_EQ(grx_init_message(&message), 0); }

    GRX_MSG message = record_of_bytes(GetParam());
};

TEST_P(DialogRecord, HasNoKeyPlaceOrSize) {
    EXPECT_EQ(message.clef, -1);
    EXPECT_EQ(message.x, -1);
    EXPECT_EQ(message.y, -1);
    EXPECT_EQ(message.largeur, -1);
    EXPECT_EQ(message.hauteur, -1);
}

TEST_P(DialogRecord, HasTheDefaultKindAndValues) {
    EXPECT_EQ(message.type, 2);
    EXPECT_EQ(message.ival, 1);
    EXPECT_EQ(message.rval, 0.0);
    EXPECT_STREQ(message.cval, "");
    EXPECT_STREQ(message.titre, "");
    EXPECT_EQ(message.choix, nullptr);
}

TEST_P(DialogRecord, HasTheDefaultLook) {
    EXPECT_EQ(message.attribut, 0);
    EXPECT_EQ(message.couleur, 1);
    EXPECT_EQ(message.nb_cara, 0);
    EXPECT_EQ(message.nb_deci, 0);
}

TEST_P(DialogRecord, StandsAlone) {
    EXPECT_EQ(message.prec, -1);
    EXPECT_EQ(message.suiv, -1);
    EXPECT_EQ(message.fen_mere, -1);
    EXPECT_EQ(message.ref_fen_mere, nullptr);
    EXPECT_EQ(message.nobou, -1);
    EXPECT_EQ(message.prebou, -1);
}

TEST_P(DialogRecord, KeepsTheAnswersOfTheCaller) {
    const GRX_MSG before = record_of_bytes(GetParam());
    EXPECT_EQ(std::memcmp(static_cast<const void*>(&message.rep), &before.rep, sizeof message.rep), 0);
    std::array<char, 4> answer{"oui"};
    std::array<char*, 1> answers{answer.data()};
    message.rep = answers.data();
    message.choix = answers.data();
    EXPECT_EQ(grx_init_message(&message), 0);
    EXPECT_EQ(message.rep, answers.data());
    EXPECT_STREQ(message.rep[0], "oui");
    EXPECT_EQ(message.choix, nullptr);
}

INSTANTIATE_TEST_SUITE_P(All, DialogRecord, testing::Values(0x00, 0x5A, 0xFF, 0x80));

} // namespace
} // namespace grxtest
