// The font, the codes in texts, line types, colours, numbers.
#include <gtest/gtest.h>

#include "couleurs.h"
#include "police.h"
#include "texte.h"
#include "traits.h"
#include "unites.h"
#include "xt_gfx_t.h"

namespace atelier {

TEST(Police, WidthIsThatOfTheLettersAndTheSpaceBetween) {
    EXPECT_EQ(police::largeur(U""), 0);
    EXPECT_EQ(police::largeur(U"E"), 5);
    EXPECT_EQ(police::largeur(U"EE"), 12);
    const Boite b = police::ecrit(U"EE").boite();
    EXPECT_NEAR(b.max.x, 12, 0.01);
    EXPECT_NEAR(b.max.y, police::kHauteur, 0.01);
}

TEST(Police, LongTextsGoOnWhereTheRecordEnds) {
    const std::u32string long_texte(200, U'E');
    EXPECT_EQ(police::largeur(long_texte), 200 * 7 - 2);
    EXPECT_NEAR(police::ecrit(long_texte).boite().max.x, 200 * 7 - 2, 0.01);
    EXPECT_NEAR(police::largeur(std::u32string(200, U'€')), 200 * police::largeur(U"€") + 199 * 2, 1e-6);
}

TEST(Texte, BytesAreReadAsUtf8OrLatin) {
    EXPECT_EQ(en_unicode("Entr\xC3\xA9"), U"Entré");
    EXPECT_EQ(en_unicode("Entr\xE9"), U"Entré");
    EXPECT_EQ(en_unicode("\x9Cuvre \x80"), U"œuvre €");
    EXPECT_EQ(en_unicode("\xC3"), U"Ã");
    EXPECT_EQ(en_unicode(""), U"");
}

TEST(Texte, PercentCodes) {
    EXPECT_EQ(decode_texte("90%%d %%c12 %%p0,5 50%%%").texte, U"90° Ø12 ±0,5 50%");
    EXPECT_EQ(decode_texte("%%065%%233").texte, U"Aé");
    EXPECT_EQ(decode_texte("a\\U+00B2").texte, U"a²");
    EXPECT_TRUE(decode_texte("%%uTitre").souligne);
    EXPECT_TRUE(decode_texte("%%oTitre").surligne);
    EXPECT_EQ(decode_texte("100 %").texte, U"100 %");
    EXPECT_EQ(decode_texte("%%").texte, U"%%");
    EXPECT_EQ(decode_texte("%%9").texte, U"%%9");
}

namespace {

std::vector<std::u32string> paragraphe(std::string_view s) {
    std::vector<std::u32string> r;
    for (const TexteSimple& t : decode_paragraphe(s)) r.push_back(t.texte);
    return r;
}

using Lignes = std::vector<std::u32string>;

} // namespace

TEST(Texte, ParagraphCodes) {
    EXPECT_EQ(paragraphe("un\\Pdeux"), (Lignes{U"un", U"deux"}));
    EXPECT_EQ(paragraphe("{\\fSimple|b0|i0;Grand} \\H2.5x;mot"), (Lignes{U"Grand mot"}));
    EXPECT_EQ(paragraphe("a\\~b \\S1^2; \\\\ \\{x\\}"), (Lignes{U"a b 1/2 \\ {x}"}));
    EXPECT_EQ(paragraphe("5%%d\\Lfin\\l"), (Lignes{U"5°fin"}));
    EXPECT_EQ(paragraphe("\\U+00E9t\\U+00E9"), (Lignes{U"été"}));
    EXPECT_EQ(paragraphe("coupe\\H2"), (Lignes{U"coupe"}));
    EXPECT_EQ(paragraphe("\\"), (Lignes{U"\\"}));
    EXPECT_EQ(paragraphe(""), (Lignes{U""}));
}

TEST(Texte, LongParagraphsAreCutAtBlanks) {
    const auto r = coupe({{U"aaa bbb ccc", true, false}}, police::largeur(U"aaa bbb") + 0.1);
    ASSERT_EQ(r.size(), 2U);
    EXPECT_EQ(r[0].texte, U"aaa bbb");
    EXPECT_EQ(r[1].texte, U"ccc");
    EXPECT_TRUE(r[1].souligne);
    EXPECT_EQ(coupe({{U"indivisible", false, false}}, 1).size(), 1U);
}

TEST(Texte, UnderlinedTextHasALineMore) {
    EXPECT_EQ(traits({U"E", true, false}).nb_points(), traits({U"E", false, false}).nb_points() + 2);
    EXPECT_TRUE(traits({U"", true, true}).empty());
}

TEST(Traits, NamesBecomeLineTypes) {
    EXPECT_EQ(type_trait("CONTINUOUS", {}), GRX_TRAIT_CONTINU);
    EXPECT_EQ(type_trait("DASHED", {}), GRX_TRAIT_POINTILLE);
    EXPECT_EQ(type_trait("DASHEDX2", {}), GRX_TRAIT_POINTILLE_LONG);
    EXPECT_EQ(type_trait("HIDDEN", {}), GRX_TRAIT_POINTILLE_COURT);
    EXPECT_EQ(type_trait("CENTER2", {}), GRX_TRAIT_MIXTE);
    EXPECT_EQ(type_trait("DASHDOT", {}), GRX_TRAIT_MIXTE_1_POINT);
    EXPECT_EQ(type_trait("DIVIDE", {}), GRX_TRAIT_MIXTE_2_POINTS);
    EXPECT_EQ(type_trait("PHANTOM", {}), GRX_TRAIT_MIXTE_2_TIRETS);
}

TEST(Traits, UnknownNamesGoByTheirDashes) {
    EXPECT_EQ(type_trait("MINE", {}), GRX_TRAIT_CONTINU);
    EXPECT_EQ(type_trait("MINE", {10, -5}), GRX_TRAIT_POINTILLE);
    EXPECT_EQ(type_trait("MINE", {0, -5}), GRX_TRAIT_POINTILLE_COURT);
    EXPECT_EQ(type_trait("MINE", {10, -5, 0, -5}), GRX_TRAIT_MIXTE_1_POINT);
    EXPECT_EQ(type_trait("MINE", {10, -5, 0, -5, 0, -5}), GRX_TRAIT_MIXTE_2_POINTS);
    EXPECT_EQ(type_trait("MINE", {10, -5, 2, -5}), GRX_TRAIT_MIXTE);
    EXPECT_EQ(type_trait("MINE", {10, -5, 2, -5, 2, -5}), GRX_TRAIT_MIXTE_2_TIRETS);
}

TEST(Traits, WeightsBecomeWidths) {
    EXPECT_EQ(epaisseur(-3), 0);
    EXPECT_EQ(epaisseur(25), 0);
    EXPECT_EQ(epaisseur(50), 1);
    EXPECT_EQ(epaisseur(70), 2);
    EXPECT_EQ(epaisseur(211), 7);
    EXPECT_EQ(epaisseur(100000), 7);
}

TEST(Traits, PeriodsAreTheSumOfTheDashes) {
    EXPECT_EQ(periode(GRX_TRAIT_CONTINU), 0);
    EXPECT_EQ(periode(GRX_TRAIT_MIXTE), 16 + 6 + 6 + 6);
    EXPECT_EQ(periode(GRX_TRAIT_MIXTE_2_POINTS), 16 + 4 + 1 + 4 + 1 + 4);
    EXPECT_EQ(periode(99), 0);
}

TEST(Couleurs, NumbersKeepTheirColourOnTheDarkSheet) {
    EXPECT_EQ(couleur_numero(1), (Rgb{255, 0, 0}));
    EXPECT_EQ(couleur_numero(2), (Rgb{255, 255, 0}));
    EXPECT_EQ(couleur_numero(7), kAvantPlan);
    EXPECT_EQ(couleur_numero(-4), kAvantPlan);
    EXPECT_EQ(couleur_numero(4000), kAvantPlan);
    EXPECT_EQ(couleur_vraie(0x10C0FF), (Rgb{0x10, 0xC0, 0xFF}));
}

TEST(Couleurs, WhatWouldNotBeSeenIsLightened) {
    const Rgb noir = lisible({0, 0, 0}), bleu = lisible({0, 0, 255});
    EXPECT_GT(noir.rouge + noir.vert + noir.bleu, 150);
    EXPECT_GT(bleu.vert, 0);
    EXPECT_GT(bleu.bleu, bleu.rouge);
    for (int i = 1; i < 256; ++i) EXPECT_NE(couleur_numero(i), kFond) << i;
}

TEST(Couleurs, FewPlacesTakeTheMostSimilar) {
    const std::vector<Rgb> c{{255, 0, 0}, {0, 255, 0}, {250, 10, 0}, {10, 240, 20}};
    EXPECT_EQ(places(c, 64), (std::vector{0, 1, 2, 3}));
    EXPECT_EQ(places(c, 2), (std::vector{0, 1, 0, 1}));
    EXPECT_EQ(places(c, 0), (std::vector{0, 0, 0, 0}));
}

TEST(Unites, NumbersAreGroupedByThree) {
    EXPECT_EQ(nombre(1234567.891, 2), "1 234 567.89");
    EXPECT_EQ(nombre(-123456, 0), "-123 456");
    EXPECT_EQ(nombre(-123, 1), "-123.0");
    EXPECT_EQ(nombre(0, 0), "0");
}

TEST(Unites, DecimalsFollowTheScale) {
    EXPECT_EQ(decimales_pour(0.05), 0);
    EXPECT_EQ(decimales_pour(1), 0);
    EXPECT_EQ(decimales_pour(50), 2);
    EXPECT_EQ(decimales_pour(1e30), 9);
    EXPECT_EQ(decimales_pour(-1), 0);
}

TEST(Unites, Scales) {
    EXPECT_EQ(texte_echelle(50, 1), "1:50");
    EXPECT_EQ(texte_echelle(2.5, 1), "1:2.5");
    EXPECT_EQ(texte_echelle(0.05, 1), "20:1");
    EXPECT_EQ(texte_echelle(0, 0.125), "0.125 px");
    EXPECT_EQ(symbole(6), " m");
    EXPECT_EQ(symbole(-1), "");
    EXPECT_EQ(millimetres(6), 1000);
    EXPECT_EQ(millimetres(1000000), 0);
}

} // namespace atelier
