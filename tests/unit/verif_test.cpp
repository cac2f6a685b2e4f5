// grx-verif: what it says of INI_SYST.DAT, and that the library does just that.
#include <gtest/gtest.h>

#include "tests/support/temp_dir.h"

#include "tools/verif/command.h"

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

namespace grxtest {
namespace {

// The findings of a file, one "line verdict: text" after the other.
std::vector<std::string> findings(const std::string& content) {
    std::istringstream file(content);
    std::vector<std::string> result;
    for (const auto& finding : verif::IniCheck::check(file))
        result.push_back(
            std::to_string(finding.line) + ' ' + std::string(verif::name_of(finding.verdict)) + ": " + finding.text);
    return result;
}

using Findings = std::vector<std::string>;

TEST(VerifIni, TakesWhatTheLibraryTakes) {
    EXPECT_EQ(findings("FONT_CARACTERE fixed # c\r\nTITRE 17\nMAX_COULEUR_TRACE 64"),
        (Findings{"1 taken: FONT_CARACTERE \"fixed\"", "2 taken: TITRE 17", "3 taken: MAX_COULEUR_TRACE 64"}));
}

TEST(VerifIni, SkipsWhatSaysNothing) {
    EXPECT_EQ(findings("# TITRE 5\n\n \t\r\nTITLE 5\n # TITRE 5\n"),
        (Findings{"1 skipped: comment", "2 skipped: blank line", "3 skipped: blank line", "4 skipped: no known key",
            "5 skipped: no known key"}));
}

TEST(VerifIni, RefusesWithTheReason) {
    EXPECT_EQ(findings("LARG_SCROLLBAR 0\nMAX_COULEUR_TRACE 48\nMAX_COULEUR_RENDU 16\nCOULEUR_APPLICATION -1\n"
                       "BORD_NORMAL wide\nBORD_NORMAL\n"),
        (Findings{"1 refused: LARG_SCROLLBAR \"0\": must be greater than 0",
            "2 refused: MAX_COULEUR_TRACE \"48\": must be one of 8, 16, 32, 64, 128",
            "3 refused: MAX_COULEUR_RENDU \"16\": must be at least 17",
            "4 refused: COULEUR_APPLICATION \"-1\": must be 0 or more", "5 refused: BORD_NORMAL \"wide\": not a number",
            "6 refused: BORD_NORMAL has no value"}));
}

TEST(VerifIni, RefusedKeyInsideAnotherIsToldOnce) {
    EXPECT_EQ(findings("BORD_SANS_TITRE 0\n"), Findings{"1 refused: BORD_SANS_TITRE \"0\": must be greater than 0"});
}

TEST(VerifIni, LineGoesOnToItsNextKey) {
    EXPECT_EQ(findings("LARG_CARACTERE 0 HAUT_CARACTERE 9\n"),
        (Findings{
            "1 refused: LARG_CARACTERE \"0 HAUT_CARACTERE 9\": must be greater than 0", "1 taken: HAUT_CARACTERE 9"}));
}

TEST(VerifIni, FirstApplicationColourStays) {
    EXPECT_EQ(findings("COULEUR_APPLICATION 0\nCOULEUR_APPLICATION 3\nCOULEUR_APPLICATION 7\n"),
        (Findings{"1 taken: COULEUR_APPLICATION 0", "2 taken: COULEUR_APPLICATION 3, instead of line 1",
            "3 refused: COULEUR_APPLICATION \"7\": the first one, of line 2, stays"}));
}

TEST(VerifIni, TellsWhatIsReplacedOrReadInPart) {
    EXPECT_EQ(findings("TITRE 5\nTITRE 17pt\nFONT_CARACTERE\nFONT_CARACTERE " + std::string(41, 'f') + "\n"),
        (Findings{"1 taken: TITRE 5", "2 taken: TITRE 17, read from \"17pt\", instead of line 1",
            "3 taken: FONT_CARACTERE \"\", no font name",
            "4 taken: FONT_CARACTERE \"" + std::string(39, 'f') + "\", cut at 39 characters, instead of line 3"}));
}

TEST(VerifIni, TellsWhereALineIsCut) {
    EXPECT_EQ(findings("TITRE 5" + std::string(1016, ' ') + "x\n"),
        (Findings{"1 skipped: what follows character 1023", "1 taken: TITRE 5"}));
    EXPECT_EQ(findings(std::string("TITRE 5\0TITRE 6", 15)), Findings{"1 taken: TITRE 5"});
}

class VerifCommand : public testing::Test {
  protected:
    int run(const std::vector<std::string>& paths) { return verif::run(paths, out_, errors_); }

    TempDir dir_;
    std::ostringstream out_, errors_;
};

TEST_F(VerifCommand, IsContentWithAFileWithoutRefusals) {
    const auto path = dir_.write("INI_SYST.DAT", "TITRE 5\n").string();
    EXPECT_EQ(run({path}), 0);
    EXPECT_EQ(out_.str(), path + ":1: taken: TITRE 5\n");
    EXPECT_EQ(errors_.str(), "");
}

TEST_F(VerifCommand, EndsWithOneWhenSomethingIsRefused) {
    const auto path = dir_.write("INI_SYST.DAT", "TITRE 0\n").string();
    EXPECT_EQ(run({path}), 1);
    EXPECT_EQ(out_.str(), path + ":1: refused: TITRE \"0\": must be greater than 0\n");
}

TEST_F(VerifCommand, EndsWithTwoWhenAFileCannotBeChecked) {
    const auto missing = dir_.text() + "/INI_SYST.DAT";
    EXPECT_EQ(run({missing}), 2);
    EXPECT_EQ(errors_.str(), missing + ": cannot be read\n");
    std::filesystem::create_directory(missing);
    EXPECT_EQ(run({missing}), 2);
    const auto other = dir_.write("README.txt", "").string();
    EXPECT_EQ(run({other}), 2);
    EXPECT_EQ(out_.str(), "");
}

TEST_F(VerifCommand, ExplainsItselfWithoutArguments) {
    EXPECT_EQ(run({}), 2);
    EXPECT_EQ(errors_.str().substr(0, 26), "usage: grx-verif FILE...\nS");
}

TEST_F(VerifCommand, ChecksAllFilesAndKeepsTheWorstResult) {
    const auto good = dir_.write("a/INI_SYST.DAT", "TITRE 5\n").string();
    const auto bad = dir_.write("b/INI_SYST.DAT", "TITRE 0\n").string();
    EXPECT_EQ(run({bad, good}), 1);
    EXPECT_EQ(out_.str(), bad + ":1: refused: TITRE \"0\": must be greater than 0\n" + good + ":1: taken: TITRE 5\n");
    EXPECT_EQ(run({bad, dir_.text() + "/none", good}), 2);
}

} // namespace
} // namespace grxtest
