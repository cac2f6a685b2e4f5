// INI_SYST.DAT as a whole.
#include <gtest/gtest.h>

#include "tests/support/stdout_capture.h"
#include "tests/support/temp_dir.h"
#include "tests/unit/c_text.h"

#include "host_f.h"
#include "host_g.h"
#include "xt_ini_f.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>

namespace grxtest {
namespace {

std::string font() {
    std::array<char, GRX_FONTE_MAX> name{};
    grx_recup_font(name.data());
    return name.data();
}

void set_defaults() {
    for (auto* set : {grx_affecte_lar_carac_alpha, grx_affecte_hau_carac_alpha, grx_affecte_lar_sup_alpha,
             grx_affecte_largeur_scrollbar, grx_set_tabord, grx_set_tabord_sans_resize, grx_set_tabord_sans_titre,
             grx_set_tabord_sans_decor, grx_set_tatitre, grx_affecte_max_couleur_rendu, grx_affecte_couleur_application,
             grx_affecte_format_icone})
        set(0);
    grx_affecte_max_couleur_trace(32);
    grx_affecte_font(in(""));
}

class IniFile : public testing::Test {
  protected:
    void SetUp() override {
        set_defaults();
        former_ = sstate[SST_REP_SYSTEME];
        sstate[SST_REP_SYSTEME] = directory_.data();
    }
    void TearDown() override {
        sstate[SST_REP_SYSTEME] = former_;
        set_defaults();
    }

    // Writes the file and reads it, which must succeed without a word.
    void read(std::string_view content) {
        dir_.write("INI_SYST.DAT", content);
        StdoutCapture capture;
        EXPECT_EQ(grx_initialise_globales(), 0);
        EXPECT_EQ(capture.text(), "");
    }

    TempDir dir_;
    std::string directory_ = dir_.text();
    char* former_ = nullptr;
};

TEST_F(IniFile, SetsEveryKey) {
    read("FONT_CARACTERE 9x15\n"
         "LARG_CARACTERE 6\nHAUT_CARACTERE 21\nESPA_CARACTERE 8\nLARG_SCROLLBAR 15\n"
         "BORD_NORMAL 7\nBORD_SANS_RESIZE 5\nBORD_SANS_TITRE 4\nBORD_SANS_DECOR 3\nTITRE 17\n"
         "MAX_COULEUR_TRACE 64\nMAX_COULEUR_RENDU 100\nCOULEUR_APPLICATION 3\n");
    EXPECT_EQ(font(), "9x15");
    EXPECT_EQ(grx_recup_lar_carac_alpha(), 6);
    EXPECT_EQ(grx_recup_hau_carac_alpha(), 21);
    EXPECT_EQ(grx_recup_lar_sup_alpha(), 8);
    EXPECT_EQ(grx_recup_largeur_scrollbar(), 15);
    EXPECT_EQ(grx_get_tabord(), 7);
    EXPECT_EQ(grx_get_tabord_sans_resize(), 5);
    EXPECT_EQ(grx_get_tabord_sans_titre(), 4);
    EXPECT_EQ(grx_get_tabord_sans_decor(), 3);
    EXPECT_EQ(grx_get_tatitre(), 17);
    EXPECT_EQ(grx_recup_max_couleur_trace(), 64);
    EXPECT_EQ(grx_recup_max_couleur_rendu(), 100);
    EXPECT_EQ(grx_recup_couleur_application(), 3);
    EXPECT_EQ(grx_recup_hau_exact_carac_alpha(), 0);
}

TEST_F(IniFile, LongKeyDoesNotSetTheShortOneInIt) {
    read("BORD_SANS_TITRE 4\n");
    EXPECT_EQ(grx_get_tabord_sans_titre(), 4);
    EXPECT_EQ(grx_get_tatitre(), 0);
}

TEST_F(IniFile, RefusedLongKeyGoesOnToTheShortOneAndIsRefusedAgain) {
    grx_set_tatitre(11);
    read("BORD_SANS_TITRE 0\nBORD_SANS_TITRE -3\n");
    EXPECT_EQ(grx_get_tabord_sans_titre(), 0);
    EXPECT_EQ(grx_get_tatitre(), 11);
}

TEST_F(IniFile, RefusedValueLetsTheNextKeyOfTheLineSpeak) {
    read("LARG_CARACTERE 0 HAUT_CARACTERE 9\n");
    EXPECT_EQ(grx_recup_lar_carac_alpha(), 0);
    EXPECT_EQ(grx_recup_hau_carac_alpha(), 9);
}

TEST_F(IniFile, AcceptedValueEndsTheLine) {
    read("HAUT_CARACTERE 9 TITRE 5\nTITRE 6 COULEUR_APPLICATION 4\n");
    EXPECT_EQ(grx_recup_hau_carac_alpha(), 9);
    EXPECT_EQ(grx_get_tatitre(), 6);
    EXPECT_EQ(grx_recup_couleur_application(), 0);
}

TEST_F(IniFile, FontEndsTheLineEvenWhenEmpty) {
    grx_affecte_font(in("fixed"));
    read("TITRE 5 FONT_CARACTERE\n");
    EXPECT_EQ(font(), "");
    EXPECT_EQ(grx_get_tatitre(), 0);
}

TEST_F(IniFile, LastLineOfAKeyWins) {
    read("TITRE 5\nTITRE 6\nTITRE 0\nFONT_CARACTERE a\nFONT_CARACTERE b\n");
    EXPECT_EQ(grx_get_tatitre(), 6);
    EXPECT_EQ(font(), "b");
}

TEST_F(IniFile, IntegersAreTakenWhenGreaterThanZero) {
    grx_affecte_largeur_scrollbar(15);
    read("LARG_SCROLLBAR 0\nLARG_SCROLLBAR -4\nLARG_SCROLLBAR wide\nLARG_SCROLLBAR\n");
    EXPECT_EQ(grx_recup_largeur_scrollbar(), 15);
    read("LARG_SCROLLBAR 1\n");
    EXPECT_EQ(grx_recup_largeur_scrollbar(), 1);
}

TEST_F(IniFile, DrawingColoursAreOneOfFiveCounts) {
    for (const INT count : {8, 16, 32, 64, 128}) {
        read("MAX_COULEUR_TRACE " + std::to_string(count) + "\n");
        EXPECT_EQ(grx_recup_max_couleur_trace(), count);
    }
    grx_affecte_max_couleur_trace(32);
    for (const char* value : {"48", "0", "-8", "7", "9", "127", "129", "256", "many"}) {
        read(std::string("MAX_COULEUR_TRACE ") + value + "\n");
        EXPECT_EQ(grx_recup_max_couleur_trace(), 32) << value;
    }
}

TEST_F(IniFile, RenderingColoursAreSeventeenOrMore) {
    read("MAX_COULEUR_RENDU 16\n");
    EXPECT_EQ(grx_recup_max_couleur_rendu(), 0);
    read("MAX_COULEUR_RENDU 17\n");
    EXPECT_EQ(grx_recup_max_couleur_rendu(), 17);
    read("MAX_COULEUR_RENDU 2147483647\n");
    EXPECT_EQ(grx_recup_max_couleur_rendu(), 2147483647);
}

TEST_F(IniFile, FirstApplicationColourWins) {
    read("COULEUR_APPLICATION 3\nCOULEUR_APPLICATION 7\n");
    EXPECT_EQ(grx_recup_couleur_application(), 3);
}

TEST_F(IniFile, ApplicationColourZeroOrNegativeDoesNotWin) {
    read("COULEUR_APPLICATION 0\nCOULEUR_APPLICATION -5\nCOULEUR_APPLICATION 12632256\n");
    EXPECT_EQ(grx_recup_couleur_application(), 12632256);
}

TEST_F(IniFile, ApplicationColourSetBeforeStays) {
    grx_affecte_couleur_application(9);
    read("COULEUR_APPLICATION 3\n");
    EXPECT_EQ(grx_recup_couleur_application(), 9);
}

TEST_F(IniFile, CommentsBlankAndUnknownLinesSetNothing) {
    read("#TITRE 5\n\n   \n# TITRE 6\nTAILLE S16x16\nLARGEUR 7\n # TITRE 8\n");
    EXPECT_EQ(grx_get_tatitre(), 0);
    EXPECT_EQ(grx_recup_taille_icone_x(), 30);
}

TEST_F(IniFile, SetsTheIconFormatToZero) {
    grx_affecte_format_icone(3);
    read("");
    EXPECT_EQ(grx_recup_format_icone(), 0);
}

TEST_F(IniFile, LinesMayEndInReturnsOrNotAtAll) {
    read("FONT_CARACTERE 9x15\r\nTITRE 17\r\nBORD_NORMAL 7");
    EXPECT_EQ(font(), "9x15");
    EXPECT_EQ(grx_get_tatitre(), 17);
    EXPECT_EQ(grx_get_tabord(), 7);
}

TEST_F(IniFile, LongFontNameIsCut) {
    read("FONT_CARACTERE " + std::string(60, 'f') + "\n");
    EXPECT_EQ(font(), std::string(39, 'f'));
}

TEST_F(IniFile, EndOfAnOverlongLineIsNoLineOfItsOwn) {
    read("BORD_NORMAL 7 " + std::string(5000, ' ') + "TITRE 5\n" + std::string(1023, 'x')
         + "TITRE 9\nBORD_SANS_DECOR 2\n");
    EXPECT_EQ(grx_get_tabord(), 7);
    EXPECT_EQ(grx_get_tatitre(), 0);
    EXPECT_EQ(grx_get_tabord_sans_decor(), 2);
}

TEST_F(IniFile, AnyBytesAreHarmless) {
    std::string bytes;
    for (int i = 0; i < 20000; ++i) bytes += static_cast<char>(i * 131 % 256);
    read(bytes + "\nTITRE 5\n" + std::string(3, '\0') + "TITRE 6\n");
    EXPECT_EQ(grx_get_tatitre(), 5);
}

TEST_F(IniFile, SampleFileIsTaken) {
    const auto sample = std::filesystem::path(GRX_TEST_DATA) / "ini_sample.dat";
    std::ostringstream content;
    content << std::ifstream(sample, std::ios::binary).rdbuf();
    read(content.str());
    EXPECT_EQ(font(), "fixed");
    EXPECT_EQ(grx_get_tatitre(), 17);
    EXPECT_EQ(grx_get_tabord_sans_titre(), 7);
    EXPECT_EQ(grx_recup_max_couleur_trace(), 64);
    EXPECT_EQ(grx_recup_max_couleur_rendu(), 0);
    EXPECT_EQ(grx_recup_couleur_application(), 3);
}

TEST_F(IniFile, MissingFileChangesNothingAndSaysNothing) {
    grx_affecte_format_icone(2);
    StdoutCapture capture;
    EXPECT_EQ(grx_initialise_globales(), -1);
    EXPECT_EQ(capture.text(), "");
    EXPECT_EQ(font(), "");
    EXPECT_EQ(grx_recup_format_icone(), 2);
}

TEST_F(IniFile, DirectoryOfThatNameIsNoFile) {
    std::filesystem::create_directory(dir_.path() / "INI_SYST.DAT");
    EXPECT_EQ(grx_initialise_globales(), -1);
}

TEST_F(IniFile, DirectoriesThatCannotBeReachedGiveNoFile) {
    for (std::string directory : {std::string("/nonexistent"), std::string(5000, 'd'), dir_.text() + "/INI_SYST.DAT"}) {
        dir_.write("INI_SYST.DAT", "TITRE 5\n");
        sstate[SST_REP_SYSTEME] = directory.data();
        EXPECT_EQ(grx_initialise_globales(), -1);
    }
    std::filesystem::create_directory_symlink("loop", dir_.path() / "loop");
    std::string loop = dir_.text() + "/loop";
    sstate[SST_REP_SYSTEME] = loop.data();
    EXPECT_EQ(grx_initialise_globales(), -1);
    EXPECT_EQ(grx_get_tatitre(), 0);
}

TEST_F(IniFile, NullDirectoryIsTheCurrentOne) {
    const auto before = std::filesystem::current_path();
    dir_.write("INI_SYST.DAT", "TITRE 5\n");
    std::filesystem::current_path(dir_.path());
    sstate[SST_REP_SYSTEME] = nullptr;
    EXPECT_EQ(grx_initialise_globales(), 0);
    EXPECT_EQ(grx_get_tatitre(), 5);
    std::filesystem::current_path(before);
}

TEST_F(IniFile, FinalSlashOfTheDirectoryIsAccepted) {
    directory_ += "/";
    sstate[SST_REP_SYSTEME] = directory_.data();
    read("TITRE 5\n");
    EXPECT_EQ(grx_get_tatitre(), 5);
}

TEST_F(IniFile, IsClosedAfterReading) {
    read("TITRE 5\n");
    std::array<char, HOST_LIGNE_MAX> line{};
    EXPECT_EQ(text_lec(line.data()), 0);
}

} // namespace
} // namespace grxtest
