// grx-verif: what it says of INI_SYST.DAT and of menu files.
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
template <class Check = verif::IniCheck>
std::vector<std::string> findings(const std::string& content) {
    std::istringstream file(content);
    std::vector<std::string> result;
    for (const auto& finding : Check::check(file))
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
            "4 taken: FONT_CARACTERE \"" + std::string(39, 'f') + "\", instead of line 3",
            "4 refused: FONT_CARACTERE: the name has 41 characters, only 39 are kept: shorten it with *"}));
}

TEST(VerifIni, RefusesAFontNameThatIsCut) {
    const std::string fits = "-*-fixed-medium-r-normal--15-*-iso8859-1";
    EXPECT_EQ(findings("FONT_CARACTERE " + fits.substr(0, 39) + "  # " + fits),
        Findings{"1 taken: FONT_CARACTERE \"" + fits.substr(0, 39) + '"'});
    EXPECT_EQ(findings("FONT_CARACTERE " + fits),
        (Findings{"1 taken: FONT_CARACTERE \"" + fits.substr(0, 39) + '"',
            "1 refused: FONT_CARACTERE: the name has 40 characters, only 39 are kept: shorten it with *"}));
}

TEST(VerifIni, TellsWhereALineIsCut) {
    EXPECT_EQ(findings("TITRE 5" + std::string(1016, ' ') + "x\n"),
        (Findings{"1 skipped: what follows character 1023", "1 taken: TITRE 5"}));
    EXPECT_EQ(findings(std::string("TITRE 5\0TITRE 6", 15)), Findings{"1 taken: TITRE 5"});
}

// --- menu files: that the bar is built so is checked where it is built

Findings menu_findings(const std::string& lines) {
    Findings all = findings<verif::MenuCheck>("#:ZONE_MENU_BAR\n" + lines);
    EXPECT_FALSE(all.empty());
    if (all.empty() || all.front() != "1 taken: the menu bar begins") return {"no bar"};
    return {all.begin() + 1, all.end()};
}

TEST(VerifMenu, TakesMenusSubmenusEntriesAndSeparators) {
    EXPECT_EQ(menu_findings("{\nPOPUP||&File|\n{\nITEM||&Save|Ctrl+S|102|\nITEM||-|||\nPOPUP|12||\n{\n"
                            "ITEM||DXF||120|\n}\n}\n}\n"),
        (Findings{"2 taken: opens level 1", "3 taken: menu \"File\", mnemonic F", "4 taken: opens level 2",
            "5 taken: entry \"Save\", mnemonic S, accelerator \"Ctrl+S\", function 102", "6 taken: separator",
            "7 taken: submenu of message 12", "8 taken: opens level 3", "9 taken: entry \"DXF\", function 120",
            "10 taken: closes level 3", "11 taken: closes level 2", "12 taken: closes level 1"}));
}

TEST(VerifMenu, SkipsWhatIsMeantForNobody) {
    EXPECT_EQ(findings<verif::MenuCheck>("POPUP||A|\n#:ZONE_MENU_BAR\r\nDEBUT\n# x\n \t\n"),
        (Findings{"1 skipped: before the line \"#:ZONE_MENU_BAR\"", "2 taken: the menu bar begins",
            "3 skipped: holds the word DEBUT", "4 skipped: comment", "5 skipped: blank line"}));
}

TEST(VerifMenu, RefusesWithTheReason) {
    EXPECT_EQ(menu_findings("}\nrubbish\nPOPUP||A\nITEM||x||1\nPOPUP||A|\n{\nITEM||x||1|\nITEM||FIN||2|\n"),
        (Findings{"2 refused: } closes nothing", "3 refused: neither POPUP nor ITEM",
            "4 refused: POPUP: a field without its closing |, there must be 2",
            "5 refused: ITEM: a field without its closing |, there must be 4", "6 refused: POPUP outside the braces",
            "7 taken: opens level 1", "8 refused: ITEM in no menu", "9 refused: holds the word FIN: no entry",
            "9 refused: { without }: 1"}));
}

TEST(VerifMenu, TellsWhatHasNoMenuAbove) {
    EXPECT_EQ(menu_findings("{\n{\nPOPUP||A|\n{\nITEM||x||1|\n{\nITEM||x||1|\nPOPUP||B|\n}\n}\n}\n}\n"),
        (Findings{"2 taken: opens level 1", "3 taken: opens level 2", "4 refused: POPUP in no menu",
            "5 taken: opens level 3", "6 refused: ITEM in no menu", "7 taken: opens level 4",
            "8 refused: ITEM in 4 braces: too deep", "9 refused: POPUP in 4 braces: too deep",
            "10 taken: closes level 4", "11 taken: closes level 3", "12 taken: closes level 2",
            "13 taken: closes level 1"}));
}

TEST(VerifMenu, TellsWhatIsCutOrReadInPart) {
    EXPECT_EQ(
        menu_findings("{\nPOPUP||" + std::string(80, 'a') + "|\nITEM|7x||F5, F6|12z|\n}" + std::string(1023, ' ')),
        (Findings{"2 taken: opens level 1", "3 taken: menu \"" + std::string(79, 'a') + "\", cut at 79 characters",
            "4 taken: entry of message 7, read from \"7x\", accelerator \"F5\" of \"F5, F6\", function 12, read from "
            "\"12z\"",
            "5 skipped: what follows character 1023", "5 taken: closes level 1"}));
}

TEST(VerifMenu, TellsOfKeysThatDoNothing) {
    EXPECT_EQ(menu_findings("{\nPOPUP||A|\n{\nITEM||a|Maj+S|1|\nITEM||a|ctrl+Alt+S|2|\n}\n}\n"),
        (Findings{"2 taken: opens level 1", "3 taken: menu \"A\"", "4 taken: opens level 2",
            "5 taken: entry \"a\", accelerator \"Maj+S\" shown only: it has an unknown modifier, function 1",
            "6 taken: entry \"a\", accelerator \"ctrl+Alt+S\", function 2", "7 taken: closes level 2",
            "8 taken: closes level 1"}));
}

// The findings of a bar of two menus, the second with a submenu, that tell of what comes again.
Findings notes(const std::string& first, const std::string& second, const std::string& submenu = "") {
    Findings told;
    for (const auto& finding : menu_findings("{\nPOPUP||&A|\n{\n" + first + "}\nPOPUP||&B|\n{\n" + second
                                             + "POPUP||&Sub|\n{\n" + submenu + "}\n}\n}\n"))
        if (finding.find(" taken: ") == std::string::npos) told.push_back(finding);
    return told;
}

struct Shared {
    const char *first, *second, *submenu;
    Findings told;
};

TEST(VerifMenu, TellsWhatComesAgain) {
    const std::vector<Shared> rows{
        {"ITEM||a|Ctrl+S|1|\n", "ITEM||b|Ctrl+T|2|\n", "ITEM||c|S|3|\n", {}},
        {"ITEM||a|Ctrl+Shift+S|1|\n", "ITEM||b|shift Control+s, F2|2|\n", "",
            {"9 note: the accelerator \"shift Control+s\" that line 5 has"}},
        {"ITEM||a|F5|1|\n", "ITEM||b|f5|2|\n", "ITEM||c|F5|3|\n", {"12 note: the accelerator \"F5\" that line 5 has"}},
        {"ITEM||a|Maj+S|1|\n", "ITEM||b|Maj+S|2|\n", "", {}},
        {"ITEM||a||7|\n", "ITEM||b||07|\n", "", {"9 note: the function 7 that line 5 has"}},
        {"ITEM||-|||\n", "ITEM||-|||\n", "", {}},
        {"ITEM||&a||1|\nITEM||b&A||2|\n", "ITEM||&a||3|\n", "", {"6 note: the mnemonic A that line 5 has"}},
        {"", "ITEM||a&s||1|\n", "ITEM||&a||2|\nITEM||&s||3|\n", {"9 note: the mnemonic S that line 8 has"}},
        {"", "", "ITEM||&a||2|\nITEM||b&a||3|\nITEM||c&a||4|\n",
            {"11 note: the mnemonic a that line 10 has", "12 note: the mnemonic a that line 10 has"}},
        {"", "POPUP||&A|\n{\n}\n", "", {}},
        {"ITEM|3|&x||1|\nITEM||&x||2|\n", "", "", {}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(notes(row.first, row.second, row.submenu), row.told) << row.first << row.second << row.submenu;
    EXPECT_EQ(menu_findings("{\nPOPUP||&A|\nPOPUP||&a|\n}\n")[3], "4 note: the mnemonic a that line 3 has");
}

TEST(VerifMenu, FileWithoutTheMarkerIsRefused) {
    EXPECT_EQ(findings<verif::MenuCheck>(""), Findings{"0 refused: no line \"#:ZONE_MENU_BAR\": the bar stays empty"});
}

TEST(VerifMenu, RefusesTheMenuAfterTheHundredth) {
    std::string lines = "{\n";
    for (int i = 0; i < 101; ++i) lines += "POPUP||m|\n";
    const Findings all = menu_findings(lines + "}\n");
    ASSERT_EQ(all.size(), 103U);
    EXPECT_EQ(all[100], "102 taken: menu \"m\"");
    EXPECT_EQ(all[101], "103 refused: POPUP: the bar has its 100 menus");
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
    for (const char* name : {"README.txt", "MNU_", "MNU_.DA", "mnu_comm.dat", "XMNU_COMM.DAT"}) {
        const auto other = dir_.write(name, "").string();
        errors_.str("");
        EXPECT_EQ(run({other}), 2);
        EXPECT_EQ(errors_.str(), other + ": no file that grx-verif knows; it checks INI_SYST.DAT, MNU_*.DAT\n");
    }
    EXPECT_EQ(out_.str(), "");
}

TEST_F(VerifCommand, ChecksMenuFilesOfAnyName) {
    const auto path = dir_.write("MNU_ARCH.DAT", "#:ZONE_MENU_BAR\n}\n").string();
    EXPECT_EQ(run({path}), 1);
    EXPECT_EQ(out_.str(), path + ":1: taken: the menu bar begins\n" + path + ":2: refused: } closes nothing\n");
}

TEST_F(VerifCommand, ExplainsItselfWithoutArguments) {
    EXPECT_EQ(run({}), 2);
    EXPECT_EQ(errors_.str().substr(0, 31), "usage: grx-verif FILE...\n      ");
    EXPECT_EQ(out_.str(), "");
}

TEST_F(VerifCommand, ExplainsItselfWhenAsked) {
    EXPECT_EQ(run({"--help"}), 0);
    EXPECT_EQ(out_.str().substr(0, 31), "usage: grx-verif FILE...\n      ");
    for (const char* word : {"INI_SYST.DAT", "MNU_*.DAT", "taken", "note", "skipped", "refused", "Exit code"})
        EXPECT_NE(out_.str().find(word), std::string::npos) << word;
    EXPECT_EQ(errors_.str(), "");
}

TEST_F(VerifCommand, TellsItsVersion) {
    EXPECT_EQ(verif::run(std::vector<std::string>{"--version"}, out_, errors_, "1.2.3"), 0);
    EXPECT_EQ(out_.str(), "grx-verif 1.2.3\n");
    EXPECT_EQ(errors_.str(), "");
}

TEST_F(VerifCommand, WhatComesAgainIsNoRefusalAndACutFontNameIs) {
    const auto menu =
        dir_.write("MNU_ARCH.DAT", "#:ZONE_MENU_BAR\n{\nPOPUP||A|\nITEM||a||1|\nITEM||b||1|\n}\n").string();
    EXPECT_EQ(run({menu}), 0);
    EXPECT_NE(out_.str().find(":5: note: the function 1 that line 4 has\n"), std::string::npos) << out_.str();
    EXPECT_EQ(run({dir_.write("INI_SYST.DAT", "FONT_CARACTERE " + std::string(40, 'f')).string()}), 1);
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
