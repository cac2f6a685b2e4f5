// One line of INI_SYST.DAT against one key.
#include <gtest/gtest.h>

#include "tests/unit/c_text.h"

#include "pure/ini_line.h"
#include "pure/number.h"
#include "xt_ini_f.h"

#include <array>
#include <cstdlib>
#include <string>

namespace grxtest {
namespace {

INT integer(const std::string& line, const char* key) {
    return traite_entier_chaine(in(line), in(key));
}

// The text found, or "none".
std::string text(const std::string& line, const char* key) {
    std::array<char, HOST_LIGNE_MAX> out{};
    out[0] = '?';
    const auto result = traite_chaine_chaine(in(line), in(key), out.data());
    EXPECT_EQ(result == 0, out[0] == '?');
    return result == 1 ? out.data() : "none";
}

TEST(IniLine, ValueFollowsTheKey) {
    EXPECT_EQ(integer("TITRE 17", "TITRE"), 17);
    EXPECT_EQ(integer("TITRE17", "TITRE"), 17);
    EXPECT_EQ(integer("  \tTITRE\t 17  ", "TITRE"), 17);
    EXPECT_EQ(text("FONT_CARACTERE  9x15 bold \t", "FONT_CARACTERE"), "9x15 bold");
}

TEST(IniLine, KeyIsFoundAnywhere) {
    EXPECT_EQ(integer("the TITRE of all 4", "TITRE"), 0);
    EXPECT_EQ(integer("height of TITRE 4", "TITRE"), 4);
    EXPECT_EQ(integer("BORD_SANS_TITRE 9", "TITRE"), 9);
}

TEST(IniLine, FirstPlaceOfTheKeyCounts) {
    EXPECT_EQ(integer("TITRE 5 TITRE 6", "TITRE"), 5);
}

TEST(IniLine, KeyIsFoundInCapitalsOnly) {
    EXPECT_EQ(integer("titre 5", "TITRE"), 0);
    EXPECT_EQ(text("font_caractere x", "FONT_CARACTERE"), "none");
}

TEST(IniLine, MissingKeyGivesZero) {
    EXPECT_EQ(integer("TITR 5", "TITRE"), 0);
    EXPECT_EQ(integer("", "TITRE"), 0);
    EXPECT_EQ(text("TITRE x", "FONT_CARACTERE"), "none");
}

TEST(IniLine, CommentInFrontHidesTheLine) {
    EXPECT_EQ(integer("#TITRE 5", "TITRE"), 0);
    EXPECT_EQ(text("# FONT_CARACTERE fixed", "FONT_CARACTERE"), "none");
}

TEST(IniLine, CommentCutsTheLine) {
    EXPECT_EQ(integer("TITRE 5#6", "TITRE"), 5);
    EXPECT_EQ(integer(" # TITRE 5", "TITRE"), 0);
    EXPECT_EQ(integer("TIT#RE 5", "TITRE"), 0);
    EXPECT_EQ(text("FONT_CARACTERE fixed # the usual # one", "FONT_CARACTERE"), "fixed");
}

TEST(IniLine, NumberIsReadLikeAtoi) {
    for (const char* value : {"12", "+12", "-12", "12abc", "abc", "", "0x10", "1 2", "- 5", "007", "2147483647",
             "-2147483648", "4294967297", "99999999999999999999999", "= 5"}) {
        EXPECT_EQ(integer(std::string("TITRE ") + value, "TITRE"), std::atoi(value)) << value;
        EXPECT_EQ(grx::number_of(value), std::atoi(value)) << value;
    }
    EXPECT_EQ(integer("TITRE " + std::string(900, '0') + "7", "TITRE"), 7);
}

TEST(IniLine, EmptyTextIsFoundAllTheSame) {
    EXPECT_EQ(text("FONT_CARACTERE", "FONT_CARACTERE"), "");
    EXPECT_EQ(text("FONT_CARACTERE #fixed", "FONT_CARACTERE"), "");
}

TEST(IniLine, LineEndIsNoPartOfTheValue) {
    EXPECT_EQ(text("FONT_CARACTERE fixed\r\n", "FONT_CARACTERE"), "fixed");
    EXPECT_EQ(text("FONT_CARACTERE fixed \r", "FONT_CARACTERE"), "fixed");
    EXPECT_EQ(text("FONT_CARACTERE\r\n", "FONT_CARACTERE"), "");
}

TEST(IniLine, AnyByteMayStandInAText) {
    const std::string bytes = "\001\x7f\x80\xff\351";
    EXPECT_EQ(text("FONT_CARACTERE " + bytes, "FONT_CARACTERE"), bytes);
}

TEST(IniLine, OverlongTextIsCutToALine) {
    const std::string longest(HOST_LIGNE_MAX - 1, 'x');
    EXPECT_EQ(text("K" + longest, "K"), longest);
    EXPECT_EQ(text("K" + longest + "yyy", "K"), longest);
}

TEST(IniLine, ReadersLeaveTheLineAlone) {
    std::string line = "TAILLE S 3x4 # c";
    const auto copy = line;
    traite_taille_icone(line.data(), in("TAILLE"));
    integer(line, "TAILLE");
    EXPECT_EQ(line, copy);
}

TEST(IniLine, NullReadsAsEmpty) {
    std::array<char, 8> out{'?'};
    EXPECT_EQ(traite_entier_chaine(nullptr, in("TITRE")), 0);
    EXPECT_EQ(traite_chaine_chaine(nullptr, in("TITRE"), out.data()), 0);
    EXPECT_EQ(traite_chaine_chaine(in("TITRE 5"), in("TITRE"), nullptr), 0);
    EXPECT_EQ(traite_taille_icone(nullptr, in("TITRE")), 0);
    EXPECT_EQ(out[0], '?');
}

class IconSizeLine : public testing::Test {
  protected:
    void SetUp() override {
        grx_affecte_taille_icone(30, 30);
        grx_affecte_format_icone(0);
    }
    void TearDown() override { SetUp(); }

    static INT read(const char* line) { return traite_taille_icone(in(line), in("TAILLE")); }
    static void expect(INT format, INT width, INT height) {
        EXPECT_EQ(grx_recup_format_icone(), format);
        EXPECT_EQ(grx_recup_taille_icone_x(), width);
        EXPECT_EQ(grx_recup_taille_icone_y(), height);
    }
};

TEST_F(IconSizeLine, ClassSIsOne) {
    EXPECT_EQ(read("TAILLE S16x18"), 1);
    expect(1, 16, 18);
}

TEST_F(IconSizeLine, ClassMIsTwo) {
    EXPECT_EQ(read("TAILLE M 24 x 26 # medium"), 1);
    expect(2, 24, 26);
}

TEST_F(IconSizeLine, ClassLIsThree) {
    EXPECT_EQ(read("TAILLE   L\t48x 50\r\n"), 1);
    expect(3, 48, 50);
}

TEST_F(IconSizeLine, WithoutClassTheFormatStays) {
    grx_affecte_format_icone(4);
    EXPECT_EQ(read("TAILLE 20x22"), 1);
    expect(4, 20, 22);
}

TEST_F(IconSizeLine, OtherLettersAreNoClass) {
    EXPECT_EQ(read("TAILLE s20x22"), 1);
    expect(0, 0, 22);
}

TEST_F(IconSizeLine, PartsThatAreNoNumbersAreZero) {
    EXPECT_EQ(read("TAILLE Sx"), 1);
    expect(1, 0, 0);
}

TEST_F(IconSizeLine, WithoutCrossTheSizeStays) {
    EXPECT_EQ(read("TAILLE M 24"), 1);
    expect(2, 30, 30);
    EXPECT_EQ(read("TAILLE"), 1);
    expect(2, 30, 30);
}

TEST_F(IconSizeLine, MissingKeyChangesNothing) {
    EXPECT_EQ(read("TAIL S16x18"), 0);
    EXPECT_EQ(read("#TAILLE S16x18"), 0);
    expect(0, 30, 30);
}

TEST(IniKeys, EveryLongerKeyStandsBeforeTheOneItContains) {
    const auto& keys = grx::kIniNumberKeys;
    for (std::size_t i = 0; i < keys.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_EQ(std::string(keys[i].name).find(keys[j].name), std::string::npos)
                << keys[j].name << " would hide " << keys[i].name;
}

TEST(TrailingDigits, AreCountedFromTheEnd) {
    EXPECT_EQ(grx::trailing_digits("MSG12"), 2U);
    EXPECT_EQ(grx::trailing_digits("MSG"), 0U);
    EXPECT_EQ(grx::trailing_digits("12"), 2U);
    EXPECT_EQ(grx::trailing_digits("1a2"), 1U);
    EXPECT_EQ(grx::trailing_digits(""), 0U);
}

} // namespace
} // namespace grxtest
