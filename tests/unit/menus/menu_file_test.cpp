// Lines of menu files: what each decodes to.
#include <gtest/gtest.h>

#include "tests/support/temp_dir.h"
#include "tests/unit/c_text.h"

#include "host_g.h"
#include "pure/menu_line.h"
#include "xt_fen_f.h"

#include <climits>
#include <cstring>
#include <string>
#include <tuple>
#include <vector>

namespace grxtest {
namespace {

const char* const marker = "#:ZONE_MENU_BAR";

// A record that shows which fields were written.
LI_MENU patterned() {
    LI_MENU line;
    std::memset(static_cast<void*>(&line), 0x5A, sizeof line);
    return line;
}

bool is_patterned(const LI_MENU& line) {
    const LI_MENU other = patterned();
    return std::memcmp(line.nom_fonction, other.nom_fonction, sizeof line.nom_fonction) == 0
           && std::memcmp(line.accelerateur, other.accelerateur, sizeof line.accelerateur) == 0
           && line.mneumonic == other.mneumonic && line.no_fo == other.no_fo && line.itype == other.itype;
}

LI_MENU emptied() {
    LI_MENU line{};
    line.mneumonic = GRX_MENU_SANS_MNEMO;
    return line;
}

struct Decoded {
    INT result;
    INT type;
    std::string label;
    std::string accelerator;
    char mnemonic;
    INT function;
    bool operator==(const Decoded&) const = default;
};

void PrintTo(const Decoded& d, std::ostream* out) {
    *out << "result " << d.result << " type " << d.type << " '" << d.label << "' '" << d.accelerator << "' mnemonic "
         << static_cast<int>(d.mnemonic) << " function " << d.function;
}

Decoded shown(INT result, const LI_MENU& line) {
    return {result, line.itype, line.nom_fonction, line.accelerateur, line.mneumonic, line.no_fo};
}

const Decoded malformed{-1, GRX_MENU_AUCUN, "", "", GRX_MENU_SANS_MNEMO, 0};

Decoded popup(const std::string& label, char mnemonic = GRX_MENU_SANS_MNEMO) {
    return {0, GRX_MENU_POPUP, label, "", mnemonic, 0};
}

Decoded item(
    const std::string& label, const std::string& accelerator, INT function, char mnemonic = GRX_MENU_SANS_MNEMO) {
    return {0, GRX_MENU_ITEM, label, accelerator, mnemonic, function};
}

// decode_chaine_ressource_menu leaves its line alone.
Decoded decoded(const std::string& text) {
    std::string line = text;
    LI_MENU record = emptied();
    const INT result = decode_chaine_ressource_menu(line.data(), &record);
    EXPECT_EQ(line, text);
    return shown(result, record);
}

// Lines of one file after another, with the depth.
class MenuReader : public testing::Test {
  protected:
    INT read(const std::string& text) {
        std::string line = text;
        record = patterned();
        const INT result = decode_ligne_ressource_menu(in(marker), line.data(), &record, &depth);
        EXPECT_EQ(line, text);
        return result;
    }
    bool cleared() const { return shown(0, record) == shown(0, emptied()); }

    LI_MENU record{};
    INT depth = 0;
};

class MenuMessages : public testing::Test {
  protected:
    void SetUp() override {
        folder_.write("MSG_MENU.DAT", "12|&Fichier\n13|&Ouvrir...\n14|Rock && Roll\n15|-\n16|  padded  \n");
        sstate[SST_REP_MENU] = directory_.data();
    }
    void TearDown() override { sstate[SST_REP_MENU] = nullptr; }

  private:
    TempDir folder_;
    std::string directory_ = folder_.text();
};

// --- one entry ------------------------------------------------------------------------------------------------------

TEST(MenuLine, EntriesAndMenus) {
    EXPECT_EQ(decoded("POPUP||&Edit|"), popup("Edit", 'E'));
    EXPECT_EQ(decoded("ITEM||Save &As||103|"), item("Save As", "", 103, 'A'));
    EXPECT_EQ(decoded("ITEM||DXF...||120|"), item("DXF...", "", 120));
    EXPECT_EQ(decoded("ITEM||&Save|Ctrl+S|102|"), item("Save", "Ctrl+S", 102, 'S'));
    EXPECT_EQ(decoded("ITEM||-|||"), item("-", "", 0));
}

TEST(MenuLine, AcceleratorIsKeptAsWritten) {
    EXPECT_EQ(decoded("ITEM||Close|Ctrl+W,Ctrl+F4|104|"), item("Close", "Ctrl+W,Ctrl+F4", 104));
    EXPECT_EQ(decoded("ITEM||Close|  Ctrl + W \t|104|"), item("Close", "Ctrl + W", 104));
}

TEST(MenuLine, FieldsAreTrimmed) {
    EXPECT_EQ(decoded("  ITEM \t|  | \t Save it \t | F2 |\t 102 \t|"), item("Save it", "F2", 102));
    EXPECT_EQ(decoded("POPUP|\t|  A menu  |"), popup("A menu"));
}

TEST(MenuLine, FunctionNumberIsADecimalInteger) {
    const std::vector<std::pair<std::string, INT>> numbers{{"", 0}, {"0", 0}, {"007", 7}, {"-5", -5}, {"+5", 5},
        {"12abc", 12}, {"abc", 0}, {"0x10", 0}, {"2147483647", INT_MAX}, {std::string(60, '0') + "42", 42},
        {"-2147483648", INT_MIN}};
    for (const auto& [text, number] : numbers)
        EXPECT_EQ(decoded("ITEM||x||" + text + "|"), item("x", "", number)) << text;
}

TEST(MenuLine, FieldWithoutItsBarIsMalformed) {
    for (const char* line : {"ITEM", "ITEM|", "ITEM||", "ITEM||Save", "ITEM||Save|", "ITEM||Save|Ctrl+S",
             "ITEM||Save|Ctrl+S|", "ITEM||Save|Ctrl+S|102", "ITEM||Save|102|", "POPUP", "POPUP|", "POPUP||",
             "POPUP||Edit", "POPUP|12|", "POPUP Edit"})
        EXPECT_EQ(decoded(line), malformed) << line;
}

TEST(MenuLine, NeitherKeywordIsMalformed) {
    for (const char* line : {"", " ", "x", "|||||", "item||Save||1|", "popup||Edit|", "ITE||Save||1|", "{", "}", " #x"})
        EXPECT_EQ(decoded(line), malformed) << line;
}

TEST(MenuLine, FurtherFieldsAreIgnored) {
    EXPECT_EQ(decoded("ITEM||Save|F2|102|more|and more"), item("Save", "F2", 102));
    EXPECT_EQ(decoded("POPUP||Edit|F2|102|"), popup("Edit"));
}

TEST(MenuLine, KeywordIsFoundAnywhere) {
    EXPECT_EQ(decoded("# ITEM||Save||102|"), item("Save", "", 102));
    EXPECT_EQ(decoded("  POPUPS||Edit|"), popup("Edit"));
    EXPECT_EQ(decoded("AN ITEM OF MINE||Save||102|"), item("Save", "", 102));
}

// A POPUP in the text of an entry is taken for the keyword: its fields then begin behind the next bar.
TEST(MenuLine, PopupIsSearchedBeforeItem) {
    EXPECT_EQ(decoded("ITEM||POPUP||102|"), popup("102"));
    EXPECT_EQ(decoded("ITEM||a POPUP||102|x|"), popup("102"));
    EXPECT_EQ(decoded("ITEM||Save|POPUP|102|"), malformed);
    EXPECT_EQ(decoded("POPUP||ITEM|"), popup("ITEM"));
}

// --- labels ---------------------------------------------------------------------------------------------------------

TEST(MenuLine, AmpersandMarksTheMnemonic) {
    EXPECT_EQ(decoded("POPUP||E&xit|"), popup("Exit", 'x'));
    EXPECT_EQ(decoded("POPUP||& Blank|"), popup(" Blank", ' '));
    EXPECT_EQ(decoded("POPUP||Nothing&|"), popup("Nothing"));
    EXPECT_EQ(decoded("POPUP||&|"), popup(""));
    EXPECT_EQ(decoded("POPUP||Rock && Roll|"), popup("Rock & Roll", '&'));
    EXPECT_EQ(decoded("POPUP||\311&\351t\351|"), popup("\311\351t\351", '\351'));
}

TEST(MenuLine, ALineWithoutAMarkTakesTheMnemonicBeforeAway) {
    LI_MENU record = emptied();
    std::string marked = "POPUP||&Edit|", plain = "ITEM||Close|F4|104|", ending = "ITEM||Close&|F4|104|";
    for (std::string* line : {&plain, &ending}) {
        ASSERT_EQ(decode_chaine_ressource_menu(marked.data(), &record), 0);
        ASSERT_EQ(record.mneumonic, 'E');
        EXPECT_EQ(shown(decode_chaine_ressource_menu(line->data(), &record), record), item("Close", "F4", 104));
    }
}

TEST(MenuLine, OnlyTheFirstAmpersandIsAMark) {
    EXPECT_EQ(decoded("POPUP||&One &Two|").mnemonic, 'O');
    EXPECT_EQ(decoded("POPUP||&One &Two|").label, "One &Two");
}

TEST(MenuLine, LongTextsAreCut) {
    const std::string long_label(200, 'l'), long_key(200, 'k');
    EXPECT_EQ(decoded("ITEM||" + long_label + "|" + long_key + "|7|"),
        item(std::string(GRX_MENU_NOM_MAX - 1, 'l'), std::string(GRX_MENU_ACCE_MAX - 1, 'k'), 7));
    const std::string full(GRX_MENU_NOM_MAX - 1, 'f');
    EXPECT_EQ(decoded("POPUP||" + full + "|"), popup(full));
    EXPECT_EQ(decoded("POPUP||" + std::string(100000, 'f') + "|"), popup(full));
    EXPECT_EQ(decoded("ITEM||" + std::string(100000, '&') + "||1|").type, GRX_MENU_ITEM);
    EXPECT_EQ(decoded("POPUP||" + std::string(100000, 'f')), malformed);
    EXPECT_EQ(decoded(std::string(100000, ' ') + "ITEM||a||1|"), item("a", "", 1));
}

TEST(MenuLine, NullIsRefused) {
    LI_MENU record = patterned();
    EXPECT_EQ(decode_chaine_ressource_menu(nullptr, &record), -1);
    EXPECT_EQ(decode_chaine_ressource_menu(in("POPUP||Edit|"), nullptr), -1);
    EXPECT_EQ(copie_li_menu(nullptr, record), 0);
}

TEST(MenuLine, CopyTakesAllFields) {
    LI_MENU from = patterned();
    std::strcpy(from.nom_fonction, "Save");
    from.no_fo = -7;
    from.itype = GRX_MENU_POPUP;
    from.mneumonic = 'v';
    LI_MENU to{};
    EXPECT_EQ(copie_li_menu(&to, from), 0);
    EXPECT_EQ(std::memcmp(&to.nom_fonction, &from.nom_fonction, sizeof to.nom_fonction), 0);
    EXPECT_EQ(std::memcmp(&to.accelerateur, &from.accelerateur, sizeof to.accelerateur), 0);
    EXPECT_EQ(std::tie(to.mneumonic, to.no_fo, to.itype), std::tie(from.mneumonic, from.no_fo, from.itype));
}

// --- labels by message number ---------------------------------------------------------------------------------------

TEST_F(MenuMessages, NumberTakesTheTextOfTheMessage) {
    EXPECT_EQ(decoded("POPUP|12||"), popup("Fichier", 'F'));
    EXPECT_EQ(decoded("ITEM| 13 |ignored &text|Ctrl+O|101|"), item("Ouvrir...", "Ctrl+O", 101, 'O'));
    EXPECT_EQ(decoded("POPUP|14|x|"), popup("Rock & Roll", '&'));
    EXPECT_EQ(decoded("ITEM|15||||"), item("-", "", 0));
}

TEST_F(MenuMessages, UnknownNumberHasAnEmptyLabel) {
    EXPECT_EQ(decoded("POPUP|99|&Edit|"), popup(""));
    EXPECT_EQ(decoded("ITEM|-1|Save|F2|5|"), item("", "F2", 5));
}

// --- lines of a file ------------------------------------------------------------------------------------------------

TEST_F(MenuReader, NothingCountsBeforeTheMarker) {
    for (const char* line : {"", "{", "}", "}", "POPUP||Edit|", "ITEM||Save||1|", "garbage", "# comment"}) {
        EXPECT_EQ(read(line), 0) << line;
        EXPECT_TRUE(cleared()) << line;
        EXPECT_EQ(depth, 0) << line;
    }
}

TEST_F(MenuReader, DebutAndFinAreSkippedBeforeTheMarkerToo) {
    EXPECT_EQ(read("FIN"), 1);
    EXPECT_EQ(read("#:ZONE_MENU_BAR FIN"), 1);
    EXPECT_TRUE(is_patterned(record));
    EXPECT_EQ(read("{"), 0);
    EXPECT_EQ(depth, 0); // the marker was skipped
}

TEST_F(MenuReader, MarkerMayStandAnywhereInItsLine) {
    EXPECT_EQ(read("  here is #:ZONE_MENU_BAR at last\r\n"), 0);
    EXPECT_TRUE(cleared());
    EXPECT_EQ(read("{"), 0);
    EXPECT_EQ(depth, 1);
}

TEST_F(MenuReader, MarkerIsTheOneGiven) {
    std::string other = "@START", brace = "{";
    EXPECT_EQ(decode_ligne_ressource_menu(other.data(), in(marker), &record, &depth), 0);
    EXPECT_EQ(decode_ligne_ressource_menu(other.data(), brace.data(), &record, &depth), 0);
    EXPECT_EQ(depth, 0);
    EXPECT_EQ(decode_ligne_ressource_menu(other.data(), other.data(), &record, &depth), 0);
    EXPECT_EQ(decode_ligne_ressource_menu(other.data(), brace.data(), &record, &depth), 0);
    EXPECT_EQ(depth, 1);
}

class MenuZone : public MenuReader {
  protected:
    void SetUp() override { ASSERT_EQ(read(marker), 0); }
};

TEST_F(MenuZone, CommentsAreSkippedAndLeaveTheRecord) {
    for (const char* line : {"#", "# ITEM||Save||1|", "#:ZONE_MENU_BAR", "#{"}) {
        EXPECT_EQ(read(line), 1) << line;
        EXPECT_TRUE(is_patterned(record)) << line;
    }
    EXPECT_EQ(depth, 0);
}

TEST_F(MenuZone, OnlyTheFirstColumnMakesAComment) {
    EXPECT_EQ(read(" #x"), -1);
    EXPECT_EQ(read(" # ITEM||Save||1|"), 0);
    EXPECT_EQ(shown(0, record), item("Save", "", 1));
}

TEST_F(MenuZone, DebutAndFinAnywhereAreSkipped) {
    for (const char* line :
        {"DEBUT", "FIN", "  FIN", "ITEM||FIN DE SESSION||1|", "ITEM||DEFINIR||1|", "POPUP||DEBUTS|"}) {
        EXPECT_EQ(read(line), 1) << line;
        EXPECT_TRUE(is_patterned(record)) << line;
    }
    EXPECT_EQ(read("ITEM||Definir||1|"), 0);
    EXPECT_EQ(shown(0, record), item("Definir", "", 1));
    EXPECT_EQ(read("ITEM||Debut, fin||2|"), 0);
    EXPECT_EQ(record.no_fo, 2);
}

TEST_F(MenuZone, BracesCountTheDepth) {
    for (const INT wanted : {1, 2, 3, 4}) {
        EXPECT_EQ(read("{"), 0);
        EXPECT_EQ(depth, wanted);
        EXPECT_TRUE(cleared());
    }
    for (const INT wanted : {3, 2, 1, 0}) {
        EXPECT_EQ(read(" \t}  \r\n"), 0);
        EXPECT_EQ(depth, wanted);
        EXPECT_TRUE(cleared());
    }
}

TEST_F(MenuZone, ClosingBraceTooManyIsAnErrorEachTime) {
    EXPECT_EQ(read("}"), -2);
    EXPECT_EQ(depth, 0);
    EXPECT_EQ(read("}"), -2);
    EXPECT_EQ(depth, 0);
    EXPECT_EQ(read("{"), 0);
    EXPECT_EQ(depth, 1);
}

TEST_F(MenuZone, BraceWithMoreIsNone) {
    for (const char* line : {"{}", "{ {", "{ x", "} # end", "{|"}) EXPECT_EQ(read(line), -1) << line;
    EXPECT_EQ(depth, 0);
}

TEST_F(MenuZone, LineEndsDoNotMatter) {
    for (const char* end : {"", "\n", "\r\n", " \r\n"}) {
        EXPECT_EQ(read(std::string("{") + end), 0);
        EXPECT_EQ(depth, 1);
        EXPECT_EQ(read(std::string("POPUP||&Edit|") + end), 0);
        EXPECT_EQ(shown(0, record), popup("Edit", 'E'));
        EXPECT_EQ(read(std::string("}") + end), 0);
        EXPECT_EQ(depth, 0);
    }
}

TEST_F(MenuZone, MalformedLinesLeaveAnEmptyRecord) {
    for (const char* line : {"", "   ", "\r\n", "garbage", "ITEM||Save", "POPUP||Edit"}) {
        EXPECT_EQ(read(line), -1) << line;
        EXPECT_TRUE(cleared()) << line;
    }
}

TEST_F(MenuZone, NullIsSurvived) {
    LI_MENU one{};
    EXPECT_EQ(decode_ligne_ressource_menu(in(marker), nullptr, &one, &depth),
        decode_ligne_ressource_menu(in(marker), in(""), &one, &depth))
        << "as an empty line";
    EXPECT_NE(decode_ligne_ressource_menu(in(marker), in("{"), nullptr, &depth), 0);
    EXPECT_NE(decode_ligne_ressource_menu(in(marker), in("{"), &one, nullptr), 0);
    EXPECT_EQ(depth, 0);
}

} // namespace
} // namespace grxtest
