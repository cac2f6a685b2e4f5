// Panel items without a display: cutting their texts, the tables of their buttons.
#include <gtest/gtest.h>

#include "tests/support/heap.h"
#include "tests/unit/c_text.h"

#include "xt_bou_f.h"
#include "xt_ini_t.h"
#include "xt_pan_f.h"

#include <array>
#include <climits>
#include <cstring>
#include <string>
#include <vector>

namespace grxtest {
namespace {

// --- texts ----------------------------------------------------------------------------------------------------------

using Lines = std::vector<std::string>;

// Every line of the table is a pattern first, so that lines that must not be written show.
Lines decoded(const std::string& text, INT width, INT most) {
    std::array<char[GRX_ITEM_LIGNE_MAX], 40> lines;
    std::memset(lines.data(), '?', sizeof lines);
    std::string copy = text;
    INT count = most;
    EXPECT_EQ(decode_message(copy.data(), width, &count, lines.data()), 0);
    EXPECT_EQ(copy, text) << "the text itself was changed";
    Lines result;
    for (INT i = 0; i < count; ++i) {
        EXPECT_NE(std::memchr(lines[static_cast<std::size_t>(i)], 0, GRX_ITEM_LIGNE_MAX), nullptr) << i;
        result.emplace_back(lines[static_cast<std::size_t>(i)]);
    }
    for (std::size_t i = static_cast<std::size_t>(std::max(count, 0)); i < lines.size(); ++i)
        EXPECT_EQ(std::string(lines[i], GRX_ITEM_LIGNE_MAX), std::string(GRX_ITEM_LIGNE_MAX, '?')) << "line " << i;
    return result;
}

TEST(ItemText, IsCutAtEveryDashAndTrimmed) {
    EXPECT_EQ(decoded("Units- mm - cm-m", 0, 10), (Lines{"Units", "mm", "cm", "m"}));
    EXPECT_EQ(decoded("  One  word  ", 0, 10), (Lines{"One  word"}));
    EXPECT_EQ(decoded("a", 0, 10), (Lines{"a"}));
}

TEST(ItemText, TheEarliestOfTheLongestLinesIsPadded) {
    EXPECT_EQ(decoded("Units- mm - cm-m", 6, 10), (Lines{"Units", "mm    ", "cm", "m"}));
    EXPECT_EQ(decoded("Units-m-cm-mm", 6, 10), (Lines{"Units", "m", "cm    ", "mm"}));
    EXPECT_EQ(decoded("T-abc-de", 4, 10), (Lines{"T", "abc ", "de"}));
}

TEST(ItemText, TheTitleIsNeverChosenWhileAnyChoiceHasACharacter) {
    EXPECT_EQ(decoded("A very long title-m", 4, 10), (Lines{"A very long title", "m   "}));
    EXPECT_EQ(decoded("Title- -m-", 3, 10), (Lines{"Title", "", "m  ", ""}));
}

TEST(ItemText, TheTitleIsPaddedWhenNoChoiceHasACharacter) {
    EXPECT_EQ(decoded("Title", 8, 10), (Lines{"Title   "}));
    EXPECT_EQ(decoded("Title- - ", 8, 10), (Lines{"Title   ", "", ""}));
    EXPECT_EQ(decoded("", 3, 10), (Lines{"   "}));
}

TEST(ItemText, NoLineIsShortened) {
    EXPECT_EQ(decoded("T-abcdef", 6, 10), (Lines{"T", "abcdef"}));
    EXPECT_EQ(decoded("T-abcdef", 5, 10), (Lines{"T", "abcdef"}));
    EXPECT_EQ(decoded("Long title", 4, 10), (Lines{"Long title"}));
    for (INT width : {0, -1, INT_MIN}) EXPECT_EQ(decoded("T-ab", width, 10), (Lines{"T", "ab"})) << width;
    EXPECT_EQ(decoded("T-a", 1, 10), (Lines{"T", "a"}));
    EXPECT_EQ(decoded("T-", 1, 10), (Lines{"T", ""}));
}

TEST(ItemText, EmptyPiecesAreLines) {
    EXPECT_EQ(decoded("", 0, 10), (Lines{""}));
    EXPECT_EQ(decoded("   ", 0, 10), (Lines{""}));
    EXPECT_EQ(decoded("-", 0, 10), (Lines{"", ""}));
    EXPECT_EQ(decoded("a-", 0, 10), (Lines{"a", ""}));
    EXPECT_EQ(decoded("--b", 0, 10), (Lines{"", "", "b"}));
}

TEST(ItemText, CuttingStopsAtTheMostLinesWanted) {
    EXPECT_EQ(decoded("a-b-c-d", 0, 3), (Lines{"a", "b", "c"}));
    EXPECT_EQ(decoded("a-b-c-d", 0, 4), (Lines{"a", "b", "c", "d"}));
    EXPECT_EQ(decoded("a-b-longer", 5, 2), (Lines{"a", "b    "})) << "lines that are not made are not measured";
    EXPECT_EQ(decoded("a-b", 5, 1), (Lines{"a    "}));
    for (INT most : {0, -1, INT_MIN}) EXPECT_EQ(decoded("a-b", 5, most), Lines()) << most;
}

TEST(ItemText, LinesHoldSeventyNineCharacters) {
    const std::string longest(79, 'x');
    EXPECT_EQ(decoded("T-" + longest, 0, 10), (Lines{"T", longest}));
    EXPECT_EQ(decoded("T-" + longest + "yz-b", 0, 10), (Lines{"T", longest, "b"}));
    EXPECT_EQ(decoded(std::string(5000, 'x'), 0, 10), (Lines{longest}));
    EXPECT_EQ(decoded("T-m", 79, 10), (Lines{"T", "m" + std::string(78, ' ')}));
    EXPECT_EQ(decoded("T-m", 80, 10), (Lines{"T", "m" + std::string(78, ' ')}));
    EXPECT_EQ(decoded("T-m", INT_MAX, 10), (Lines{"T", "m" + std::string(78, ' ')}));
}

TEST(ItemText, MissingArgumentsAreRefused) {
    char lines[2][GRX_ITEM_LIGNE_MAX];
    INT count = 2;
    EXPECT_EQ(decode_message(nullptr, 0, &count, lines), 0);
    EXPECT_EQ(decode_message(in("a-b"), 0, nullptr, lines), 0);
    count = 2;
    EXPECT_EQ(decode_message(in("a-b"), 0, &count, nullptr), 0);
}

// --- tables -----------------------------------------------------------------------------------------------------------

class ItemTables : public testing::Test {
  protected:
    void SetUp() override {
        for (std::size_t i = 0; i < panels_.size(); ++i) {
            panels_[i].nb_items = counts[i];
            panels_[i].tab_items = items_.data();
        }
    }
    void TearDown() override { grx_desalloue_base_items_panels(); }

    INT allocate() { return grx_alloue_base_items_panels(static_cast<INT>(panels_.size()), panels_.data()); }

    static constexpr std::array<uchar, 4> counts{3, 0, 255, 1};
    std::array<PANEL, 4> panels_{};
    std::array<ITEM_PANEL, 255> items_{};
};

void expect_empty(const BOUTONS_PANEL& record) {
    EXPECT_EQ(record.nb_bout, 0);
    EXPECT_EQ(record.valide, nullptr);
    EXPECT_EQ(record.tab_bout, nullptr);
    EXPECT_EQ(record.objet_defaut, nullptr);
}

TEST_F(ItemTables, EveryItemHasAnEmptyRecord) {
    const NoLeak no_leak;
    ASSERT_EQ(allocate(), 0);
    EXPECT_EQ(Nb_pan, 4);
    for (INT i = 0; i < 4; ++i) {
        EXPECT_EQ(Nb_item[i], counts[static_cast<std::size_t>(i)]) << i;
        EXPECT_EQ(Liste_btn[i] == nullptr, Nb_item[i] == 0) << i;
        for (INT k = 0; k < Nb_item[i]; ++k) expect_empty(Liste_btn[i][k]);
    }
    EXPECT_EQ(grx_desalloue_base_items_panels(), 0);
}

TEST_F(ItemTables, TheListsAreSetUpToo) {
    const NoLeak no_leak;
    ASSERT_EQ(Tab_liste, nullptr);
    ASSERT_EQ(allocate(), 0);
    ASSERT_NE(Tab_liste, nullptr);
    for (INT i = 0; i < GRX_NB_LISTES_PANNEAUX; ++i) {
        const LISTE_PANEL& slot = Tab_liste[i];
        EXPECT_EQ(slot.isys, -1);
        EXPECT_EQ(slot.ietat, -1);
        EXPECT_EQ(slot.ind, -1);
        EXPECT_EQ(slot.ipan, -1);
        EXPECT_EQ(slot.nb_item, 0);
        EXPECT_EQ(slot.nb_choix, 0);
        EXPECT_EQ(slot.tab_choix, nullptr);
        EXPECT_EQ(slot.obj, nullptr);
    }
    EXPECT_EQ(grx_desalloue_base_items_panels(), 0);
    EXPECT_EQ(Tab_liste, nullptr);
}

TEST_F(ItemTables, TheApplicationsTableIsTakenWhileThereIsNone) {
    std::array<PANEL, 4> others{};
    Tab_pan = nullptr;
    ASSERT_EQ(allocate(), 0);
    EXPECT_EQ(Tab_pan, panels_.data());
    grx_desalloue_base_items_panels();
    Tab_pan = others.data();
    ASSERT_EQ(allocate(), 0);
    EXPECT_EQ(Tab_pan, others.data());
    Tab_pan = nullptr;
}

TEST_F(ItemTables, FreedTablesAreGone) {
    ASSERT_EQ(allocate(), 0);
    grx_desalloue_base_items_panels();
    EXPECT_EQ(Liste_btn, nullptr);
    EXPECT_EQ(Nb_item, nullptr);
    EXPECT_EQ(Nb_pan, 0);
    EXPECT_EQ(grx_desalloue_base_items_panels(), 0) << "twice";
}

TEST_F(ItemTables, EachFailingAllocationGives105AndNothingIsLost) {
    const NoLeak no_leak;
    int refused = 0;
    const int failures = fail_each_allocation([&] {
        const INT result = allocate();
        EXPECT_EQ(result, heap().failed() ? GRX_ERR_ALLOC_PANNEAUX : 0);
        refused += result == 105;
        grx_memorise_bouton_item(2, 254, 1, 5); // whatever is there may be used
        grx_supprime_items(2);
        EXPECT_EQ(grx_desalloue_base_items_panels(), 0);
    });
    EXPECT_GE(failures, 6) << "Liste_btn, Nb_item, three panels, the lists";
    EXPECT_GE(refused, 6);
}

TEST_F(ItemTables, ASecondAllocationLosesNothing) {
    const NoLeak no_leak;
    ASSERT_EQ(allocate(), 0);
    ASSERT_EQ(grx_memorise_bouton_item(0, 0, 1, 7), 0);
    grx_supprime_items(0);
    ASSERT_EQ(grx_alloue_base_items_panels(1, panels_.data()), 0);
    EXPECT_EQ(Nb_pan, 1);
    EXPECT_EQ(grx_memorise_bouton_item(2, 0, 1, 7), 105);
    EXPECT_EQ(grx_memorise_bouton_item(0, 2, 1, 7), 0);
    grx_supprime_items(0);
    grx_desalloue_base_items_panels();
}

TEST_F(ItemTables, TheApplicationMayChangeTheNumberOfPanels) {
    const NoLeak no_leak;
    for (INT number : {1000, 1, 0, -1, INT_MAX}) {
        ASSERT_EQ(allocate(), 0);
        Nb_pan = number;
        for (INT beyond : {4, 999, 1000, INT_MAX - 1}) {
            EXPECT_EQ(grx_memorise_bouton_item(beyond, 0, 1, 7), 105) << number;
            EXPECT_EQ(grx_supprime_items(beyond), 0);
        }
        EXPECT_EQ(grx_memorise_bouton_item(0, 0, 1, 7), number > 0 ? 0 : 105) << number;
        grx_supprime_items(0);
        EXPECT_EQ(grx_desalloue_base_items_panels(), 0);
        EXPECT_EQ(Nb_pan, 0);
    }
}

TEST_F(ItemTables, NoPanelsAtAll) {
    const NoLeak no_leak;
    for (INT count : {0, -1, INT_MIN}) {
        EXPECT_EQ(grx_alloue_base_items_panels(count, panels_.data()), 0) << count;
        EXPECT_EQ(Nb_pan, 0) << count;
        EXPECT_EQ(grx_memorise_bouton_item(0, 0, 1, 7), 105);
        grx_desalloue_base_items_panels();
    }
    grx_alloue_base_items_panels(3, nullptr);
    EXPECT_EQ(grx_memorise_bouton_item(0, 0, 1, 7), 105);
    grx_desalloue_base_items_panels();
}

TEST_F(ItemTables, ButtonsAreKeptInOrderWithTheirFlags) {
    const NoLeak no_leak;
    ASSERT_EQ(allocate(), 0);
    EXPECT_EQ(grx_memorise_bouton_item(0, 1, 0, 40), 0);
    EXPECT_EQ(grx_memorise_bouton_item(0, 1, 1, 12), 0);
    EXPECT_EQ(grx_memorise_bouton_item(0, 1, 1, 33), 0);
    const BOUTONS_PANEL& record = Liste_btn[0][1];
    ASSERT_EQ(record.nb_bout, 3);
    EXPECT_EQ((std::vector<INT>(record.tab_bout, record.tab_bout + 3)), (std::vector<INT>{40, 12, 33}));
    EXPECT_EQ((std::vector<int>(record.valide, record.valide + 3)), (std::vector<int>{0, 1, 1}));
    expect_empty(Liste_btn[0][0]);
    expect_empty(Liste_btn[0][2]);
    grx_supprime_items(0);
    expect_empty(record);
    grx_desalloue_base_items_panels();
}

TEST_F(ItemTables, AnItemHoldsTwoHundredAndFiftyFiveButtons) {
    const NoLeak no_leak;
    ASSERT_EQ(allocate(), 0);
    for (INT i = 0; i < 255; ++i) ASSERT_EQ(grx_memorise_bouton_item(2, 254, i % 2, i), 0) << i;
    EXPECT_EQ(grx_memorise_bouton_item(2, 254, 1, 255), 105);
    EXPECT_EQ(Liste_btn[2][254].nb_bout, 255);
    EXPECT_EQ(Liste_btn[2][254].tab_bout[0], 0);
    EXPECT_EQ(Liste_btn[2][254].tab_bout[254], 254);
    std::array<INT, 300> numbers{};
    INT count = 300;
    EXPECT_EQ(recup_boutons_item(2, 254, &count, numbers.data()), 0);
    EXPECT_EQ(count, 127);
    EXPECT_EQ(numbers[126], 253);
    grx_supprime_items(2);
    grx_desalloue_base_items_panels();
}

TEST_F(ItemTables, AFailedGrowthKeepsWhatIsThere) {
    const NoLeak no_leak;
    ASSERT_EQ(allocate(), 0);
    ASSERT_EQ(grx_memorise_bouton_item(0, 0, 0, 20), 0);
    ASSERT_EQ(grx_memorise_bouton_item(0, 0, 1, 21), 0);
    for (std::size_t which : {1U, 2U}) {
        heap().fail_at(which);
        EXPECT_EQ(grx_memorise_bouton_item(0, 0, 1, 22), 105) << which;
        EXPECT_TRUE(heap().failed()) << which;
        heap().fail_at(which);
        EXPECT_EQ(grx_memorise_bouton_item(0, 1, 1, 22), 105) << "the first one of an item, " << which;
        heap().fail_never();
        EXPECT_EQ(Liste_btn[0][0].nb_bout, 2);
        EXPECT_EQ(Liste_btn[0][1].nb_bout, 0);
    }
    EXPECT_EQ(grx_memorise_bouton_item(0, 0, 1, 22), 0);
    EXPECT_EQ(grx_memorise_bouton_item(0, 1, 1, 23), 0);
    EXPECT_EQ(Liste_btn[0][0].tab_bout[2], 22);
    EXPECT_EQ(Liste_btn[0][1].tab_bout[0], 23);
    EXPECT_EQ(heap().damage(), "");
    grx_supprime_items(0);
    grx_desalloue_base_items_panels();
}

TEST_F(ItemTables, UnknownItemsRecordNothing) {
    ASSERT_EQ(allocate(), 0);
    struct Place {
        INT panel, item;
    };
    for (const Place& place : {Place{-1, 0}, Place{4, 0}, Place{0, -1}, Place{0, 3}, Place{1, 0}, Place{3, 1},
             Place{INT_MIN, INT_MIN}, Place{INT_MAX, INT_MAX}}) {
        EXPECT_EQ(grx_memorise_bouton_item(place.panel, place.item, 1, 5), 105) << place.panel << ", " << place.item;
        INT count = 4;
        std::array<INT, 4> numbers{-7, -7, -7, -7};
        EXPECT_EQ(recup_boutons_item(place.panel, place.item, &count, numbers.data()), 0);
        EXPECT_EQ(count, 0) << place.panel << ", " << place.item;
        EXPECT_EQ(numbers[0], -7);
        EXPECT_EQ(grx_supprime_items(place.panel), 0);
    }
}

TEST_F(ItemTables, CapacityIsCutBeforeLabelsAreLeftOut) {
    ASSERT_EQ(allocate(), 0);
    for (INT i = 0; i < 5; ++i) ASSERT_EQ(grx_memorise_bouton_item(0, 0, i > 0, 100 + i), 0);
    struct Case {
        INT room;
        std::vector<INT> expected;
    };
    for (const Case& c : {Case{3, {101, 102}}, Case{1, {}}, Case{2, {101}}, Case{5, {101, 102, 103, 104}},
             Case{50, {101, 102, 103, 104}}, Case{0, {}}, Case{-1, {}}, Case{INT_MIN, {}},
             Case{INT_MAX, {101, 102, 103, 104}}}) {
        std::array<INT, 6> numbers;
        numbers.fill(-7);
        INT count = c.room;
        EXPECT_EQ(recup_boutons_item(0, 0, &count, numbers.data()), 0);
        ASSERT_EQ(count, static_cast<INT>(c.expected.size())) << c.room;
        EXPECT_EQ(std::vector<INT>(numbers.begin(), numbers.begin() + count), c.expected) << c.room;
        EXPECT_EQ(numbers[static_cast<std::size_t>(count)], -7) << c.room;
    }
    EXPECT_EQ(recup_boutons_item(0, 0, nullptr, nullptr), 0);
    INT count = 3;
    EXPECT_EQ(recup_boutons_item(0, 0, &count, nullptr), 0);
    grx_supprime_items(0);
}

TEST_F(ItemTables, AnItemWithoutButtonsGivesNone) {
    ASSERT_EQ(allocate(), 0);
    INT count = 9;
    std::array<INT, 9> numbers{};
    EXPECT_EQ(recup_boutons_item(0, 2, &count, numbers.data()), 0);
    EXPECT_EQ(count, 0);
}

TEST_F(ItemTables, RemovingTheItemsOfAPanelFreesTheirNumbers) {
    ASSERT_EQ(grx_alloue_base_boutons(), 0);
    ASSERT_EQ(allocate(), 0);
    int object = 0; // any address: the widget is not looked at
    for (INT n : {10, 11, 12}) grx_affecte_objet_bout(n, reinterpret_cast<Widget>(&object));
    for (INT n : {10, 11}) grx_memorise_bouton_item(0, n - 10, 1, n);
    grx_memorise_bouton_item(3, 0, 1, 12);
    EXPECT_EQ(grx_supprime_items(1), 0) << "a panel without items";
    EXPECT_EQ(grx_supprime_items(0), 0);
    EXPECT_EQ(grx_recup_objet_bout(10), nullptr);
    EXPECT_EQ(grx_recup_objet_bout(11), nullptr);
    EXPECT_NE(grx_recup_objet_bout(12), nullptr) << "of another panel";
    expect_empty(Liste_btn[0][0]);
    expect_empty(Liste_btn[0][1]);
    EXPECT_EQ(Liste_btn[3][0].nb_bout, 1);
    EXPECT_EQ(grx_memorise_bouton_item(0, 0, 1, 44), 0) << "the item takes buttons again";
    EXPECT_EQ(Liste_btn[0][0].nb_bout, 1);
    grx_supprime_items(0);
    grx_supprime_items(3);
    grx_desalloue_base_boutons();
}

TEST(ItemSizes, APanelHasAMarginOfOnePixelOnEachSide) {
    INT width = 100, height = 40;
    grx_demande_taille_optimale_panel(&width, &height);
    EXPECT_EQ(width, 102);
    EXPECT_EQ(height, 42);
    grx_demande_taille_optimale_panel(&width, nullptr);
    grx_demande_taille_optimale_panel(nullptr, &height);
    EXPECT_EQ(width, 104);
    EXPECT_EQ(height, 44);
}

// --- lists ------------------------------------------------------------------------------------------------------------

TEST(PanelListTable, IsAllocatedAndFreed) {
    const NoLeak no_leak;
    EXPECT_EQ(grx_alloue_base_liste_panels(), 0);
    EXPECT_NE(Tab_liste, nullptr);
    EXPECT_EQ(grx_alloue_base_liste_panels(), 0) << "a second time loses nothing";
    EXPECT_EQ(test_liste_deja_affichee(1, 55007), -1);
    EXPECT_EQ(test_liste_deja_affichee(-1, -1), -1) << "a free slot is no list";
    EXPECT_EQ(grx_test_liste_ouverte(7), 0);
    EXPECT_EQ(grx_test_liste_ouverte(-55001), 0) << "the key of a free slot";
    EXPECT_EQ(grx_recup_objet_item_liste(1, 7), nullptr);
    EXPECT_EQ(grx_recup_objet_item_liste(-1, -55001), nullptr);
    EXPECT_EQ(grx_supprime_item_liste(1, 7), 0);
    EXPECT_EQ(grx_supprime_item_liste(-1, -55001), 0);
    EXPECT_EQ(grx_desalloue_base_liste_panels(), 0);
    EXPECT_EQ(Tab_liste, nullptr);
    EXPECT_EQ(grx_desalloue_base_liste_panels(), 0);
}

TEST(PanelListTable, AFailedAllocationGives1) {
    const NoLeak no_leak;
    heap().fail_at(1);
    EXPECT_EQ(grx_alloue_base_liste_panels(), 1);
    heap().fail_never();
    EXPECT_EQ(test_liste_deja_affichee(1, 55007), -1);
    EXPECT_EQ(grx_test_liste_ouverte(7), 0);
    EXPECT_EQ(grx_recup_objet_item_liste(1, 7), nullptr);
    EXPECT_EQ(grx_supprime_item_liste(1, 7), 0);
    EXPECT_EQ(test_realloue_Tab_liste(), 0);
    grx_desalloue_base_liste_panels();
}

TEST(PanelListTable, IsNotDoubledWhileItHasRoom) {
    ASSERT_EQ(grx_alloue_base_liste_panels(), 0);
    const std::size_t bytes = heap().bytes();
    EXPECT_EQ(test_realloue_Tab_liste(), 0);
    EXPECT_EQ(heap().bytes(), bytes);
    grx_desalloue_base_liste_panels();
}

} // namespace
} // namespace grxtest
