// The table of the panel lists, without a display.
#include <gtest/gtest.h>

#include "tests/support/heap.h"

#include "xt_pan_f.h"

namespace grxtest {
namespace {

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
