// Entry points that do nothing here: readers of older files, help, cursors and fonts of other systems.
#include <gtest/gtest.h>

#include "tests/support/temp_dir.h"

#include "xt_f.h"
#include "xt_ini_f.h"
#include "xt_uti_f.h"

#include <sys/stat.h>

#include <array>
#include <climits>
#include <cstdio>
#include <string>

namespace grxtest {
namespace {

using Reader = INT (*)(GRX_ARGS_LIBRES);

struct Entry {
    const char* name;
    Reader reader;
    INT answer;
};

constexpr std::array entries{Entry{"reconnait_fichier_domoplanix", reconnait_fichier_domoplanix, 1},
    Entry{"ReadOldDaoDomoplanix", ReadOldDaoDomoplanix, 0}, Entry{"ReadOldHuiDomoplanix", ReadOldHuiDomoplanix, 0},
    Entry{"ReadOldAccDomoplanix", ReadOldAccDomoplanix, 0}, Entry{"ReadOldFtvDomoplanix", ReadOldFtvDomoplanix, 0},
    Entry{"ReadOldNivDomoplanix", ReadOldNivDomoplanix, 0}, Entry{"ReadOldB3DDomoplanix", ReadOldB3DDomoplanix, 0}};

class OldReaders : public testing::TestWithParam<Entry> {};

TEST_P(OldReaders, AnswersWhateverItIsGiven) {
    const auto& [name, reader, answer] = GetParam();
    EXPECT_EQ(reader(), answer) << name;
    EXPECT_EQ(reader(nullptr), answer) << name;
    EXPECT_EQ(reader("no/such/file", 1, 2.5, nullptr), answer) << name;
}

TEST_P(OldReaders, ReadsNothing) {
    const TempDir folder;
    const std::string queue = (folder.path() / "OLD.DAT").string();
    ASSERT_EQ(mkfifo(queue.c_str(), 0600), 0); // whoever opens it waits for a writer, for ever
    std::string into(100, 'x');
    EXPECT_EQ(GetParam().reader(queue.c_str(), into.data(), 100), GetParam().answer);
    EXPECT_EQ(into, std::string(100, 'x'));
}

TEST_P(OldReaders, LeavesAnOpenFileWhereItIs) {
    const TempDir folder;
    const std::string name = folder.write("OLD.DAT", "DOMO 1\n").string();
    std::FILE* file = std::fopen(name.c_str(), "r+");
    ASSERT_NE(file, nullptr);
    EXPECT_EQ(GetParam().reader(file), GetParam().answer);
    EXPECT_EQ(std::ftell(file), 0);
    std::fclose(file);
    EXPECT_EQ(folder.read("OLD.DAT"), "DOMO 1\n");
}

INSTANTIATE_TEST_SUITE_P(All, OldReaders, testing::ValuesIn(entries),
    [](const auto& parameter) { return std::string(parameter.param.name); });

TEST(Stubs, HelpAndWaitingCursorDoNothing) {
    testing::internal::CaptureStdout();
    grx_selectionne_curseur_attente();
    grx_deselectionne_curseur_attente();
    grx_contenu_aide();
    grx_aide_sur();
    grx_utilisation_aide();
    grx_aide_f1(INT_MAX);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST(Stubs, AnswerWithoutDoingAnything) {
    EXPECT_EQ(grx_charge_icones(), 1);
    EXPECT_EQ(grx_selection_fonte_dialogue(), 0);
    EXPECT_EQ(grx_selection_fonte_status(), 0);
}

} // namespace
} // namespace grxtest
