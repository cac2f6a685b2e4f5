// The tables of the buttons of panel items, without a display.
#include <gtest/gtest.h>

#include "tests/support/heap.h"

#include "xt_bou_f.h"
#include "xt_ini_t.h"
#include "xt_pan_f.h"

#include <array>
#include <climits>
#include <vector>

namespace grxtest {
namespace {

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

} // namespace
} // namespace grxtest
