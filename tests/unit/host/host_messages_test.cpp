// The default host's messages.
#include <gtest/gtest.h>

#include "tests/support/temp_dir.h"
#include "tests/unit/c_text.h"

#include "host_f.h"
#include "host_g.h"

#include <array>
#include <climits>
#include <string>

namespace grxtest {
namespace {

class HostMessages : public testing::Test {
  protected:
    void SetUp() override {
        sstate[SST_REP_SYSTEME] = system_directory_.data();
        sstate[SST_REP_MENU] = menu_directory_.data();
    }
    void TearDown() override { sstate[SST_REP_SYSTEME] = sstate[SST_REP_MENU] = nullptr; }

    // The text, or "none".
    template <typename Service>
    static std::string text(const Service& service) {
        std::array<char, HOST_MESSAGE_MAX> buffer;
        buffer.fill('~');
        const INT result = service(buffer.data());
        if (result == 1) return buffer.data();
        EXPECT_EQ(result, 0);
        EXPECT_STREQ(buffer.data(), "");
        return "none";
    }
    static std::string dialog(INT number) {
        return text([=](char* out) { return litmess(number, out); });
    }
    static std::string application(INT number) {
        return text([=](char* out) { return f_me_lire(number, out); });
    }
    static std::string menu(INT number, INT module = 0) {
        return text([=](char* out) { return f_mess_menu_lire(module, number, out); });
    }

    TempDir system_, menu_;
    std::string system_directory_ = system_.text();
    std::string menu_directory_ = menu_.text();
};

TEST_F(HostMessages, LabelsAreFrench) {
    EXPECT_EQ(dialog(1245), "Enregistrer");
    EXPECT_EQ(dialog(1246), "Annuler");
    EXPECT_EQ(dialog(1250), "OK");
    EXPECT_EQ(dialog(1251), "Filtre");
    EXPECT_EQ(dialog(1315), "Ouvrir");
    EXPECT_EQ(dialog(1335), "S\351lection");
    EXPECT_EQ(dialog(1336), "R\351pertoires");
    EXPECT_EQ(dialog(1066), "Fichiers");
    EXPECT_EQ(dialog(83), "Remplacer le fichier ? -Oui -Non");
}

TEST_F(HostMessages, OthersAreNone) {
    for (const INT number : {82, 84, 0, 1, 1247, -1245, INT_MAX, INT_MIN}) EXPECT_EQ(dialog(number), "none") << number;
}

TEST_F(HostMessages, ReaderOfTheApplicationsSeesTheSame) {
    EXPECT_EQ(application(1315), "Ouvrir");
    EXPECT_EQ(application(84), "none");
}

TEST_F(HostMessages, FileOfTheSystemDirectoryOverrides) {
    system_.write("MSG_COMM.DAT", "1315|Open\r\n83|Replace? -Yes -No\n 7 | padded \n");
    EXPECT_EQ(dialog(1315), "Open");
    EXPECT_EQ(dialog(83), "Replace? -Yes -No");
    EXPECT_EQ(dialog(7), " padded ");
    EXPECT_EQ(dialog(1250), "OK");
    EXPECT_EQ(application(83), "Replace? -Yes -No");
}

TEST_F(HostMessages, LinesOfAnotherFormSayNothing) {
    system_.write("MSG_COMM.DAT", "# 5|x\n5\n5 x|y\nfive|x\n|x\n\n99999999999999999999|x\n5|first\n5|second\n6|\n");
    EXPECT_EQ(dialog(5), "first");
    EXPECT_EQ(dialog(6), "");
    EXPECT_EQ(dialog(0), "none");
    EXPECT_EQ(dialog(INT_MAX), "none");
}

TEST_F(HostMessages, LongTextsAreCutAt255) {
    system_.write("MSG_COMM.DAT", "5|" + std::string(2000, 'x') + "\n");
    EXPECT_EQ(dialog(5), std::string(255, 'x'));
}

TEST_F(HostMessages, MenuTextsComeFromTheMenuDirectory) {
    EXPECT_EQ(menu(12), "none");
    menu_.write("MSG_MENU.DAT", "12|&Fichier\n-3|odd\n");
    EXPECT_EQ(menu(12), "&Fichier");
    EXPECT_EQ(menu(-3), "odd");
    EXPECT_EQ(menu(13), "none");
    EXPECT_EQ(menu(1315), "none");
    EXPECT_EQ(dialog(12), "none");
}

TEST_F(HostMessages, MenuTextsAreOfModuleZero) {
    menu_.write("MSG_MENU.DAT", "12|&Fichier\n");
    for (const INT module : {1, -1, INT_MAX}) EXPECT_EQ(menu(12, module), "none");
}

TEST_F(HostMessages, NullIsHarmless) {
    EXPECT_EQ(litmess(1315, nullptr), 0);
    EXPECT_EQ(f_me_lire(1315, nullptr), 0);
    EXPECT_EQ(f_mess_menu_lire(0, 12, nullptr), 0);
    sstate[SST_REP_SYSTEME] = sstate[SST_REP_MENU] = nullptr;
    EXPECT_EQ(dialog(1315), "Ouvrir");
    EXPECT_EQ(menu(12), "none");
}

} // namespace
} // namespace grxtest
