#include "grx_plus_erreurs.h"
#include "pure/failure_texts.h"

#include <set>
#include <string>

namespace {

std::string text_of(INT code) {
    char text[80];
    EXPECT_LT(grx_recup_texte_erreur(code, text, sizeof text), static_cast<INT>(sizeof text));
    return text;
}

TEST(FailureTexts, EveryCodeHasOneOfItsOwn) {
    std::set<std::string> texts;
    for (INT code = GRX_ECHEC_COMMANDE; code <= GRX_ECHEC_NUMERO; ++code) {
        EXPECT_NE(text_of(code), "unknown code") << code;
        EXPECT_TRUE(texts.insert(text_of(code)).second) << code;
    }
    EXPECT_EQ(text_of(1), "done");
    EXPECT_EQ(text_of(GRX_ECHEC_MEMOIRE), "no memory");
}

TEST(FailureTexts, OtherNumbersAreUnknown) {
    for (const INT code : {0, 2, -1, -100, GRX_ECHEC_COMMANDE - 1, INT32_MAX, INT32_MIN})
        EXPECT_EQ(text_of(code), "unknown code") << code;
}

TEST(FailureTexts, WhatDoesNotFitIsCutAndTheLengthIsTold) {
    char text[5] = "####";
    EXPECT_EQ(grx_recup_texte_erreur(GRX_ECHEC_MEMOIRE, text, 4), 9);
    EXPECT_STREQ(text, "no ");
    EXPECT_EQ(text[4], '\0');
}

TEST(FailureTexts, WithoutRoomNothingIsWritten) {
    char text[3] = "##";
    EXPECT_EQ(grx_recup_texte_erreur(1, text, 0), 4);
    EXPECT_EQ(grx_recup_texte_erreur(1, text, -7), 4);
    EXPECT_STREQ(text, "##");
    EXPECT_EQ(grx_recup_texte_erreur(1, nullptr, 80), 4);
}

} // namespace
