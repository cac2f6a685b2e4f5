// The table of panel lists: which place a list takes, how the table grows, and what is left of a list that is gone.
#include "tests/display/panels/panel_list_kit.h"

#include <memory>

namespace {

using namespace grxtest;

// --- the table --------------------------------------------------------------------------------------------------------------------------------

TEST_F(PanelLists, TheEleventhListDoublesTheTable) {
    std::vector<std::unique_ptr<HostList>> hosts;
    std::vector<Widget> lists;
    for (INT k = 0; k < 11; ++k) {
        hosts.push_back(std::make_unique<HostList>(k, numbered_entries(4)));
        GRX_MSG message = list_of(k % 2, k);
        message.x = 10 + k % 6 * 110;
        message.y = 10 + k / 6 * 160;
        message.largeur = 100;
        message.hauteur = 120;
        lists.push_back(made(message));
        ASSERT_EQ(slot_of(panel, k), k);
    }
    for (INT i = 11; i < 20; ++i) {
        EXPECT_EQ(Tab_liste[i].isys, -1) << i;
        EXPECT_EQ(Tab_liste[i].ietat, -1) << i;
        EXPECT_EQ(Tab_liste[i].ind, -1) << i;
        EXPECT_EQ(Tab_liste[i].ipan, -1) << i;
        EXPECT_EQ(Tab_liste[i].nb_item, 0) << i;
        EXPECT_EQ(Tab_liste[i].nb_choix, 0) << i;
        EXPECT_EQ(Tab_liste[i].tab_choix, nullptr) << i;
        EXPECT_EQ(Tab_liste[i].obj, nullptr) << i;
    }
    for (INT k : {0, 1, 9, 10}) {
        const auto event = click(lists[static_cast<std::size_t>(k)], 2);
        ASSERT_TRUE(event) << k << ": " << events.describe();
        EXPECT_EQ(event->element_clique.no_fo, k);
        EXPECT_EQ(event->element_clique.nobou, 2);
        EXPECT_EQ(chosen_in_slot(k), std::vector<INT>{2}) << k;
        EXPECT_EQ(Tab_liste[k].isys, k);
        EXPECT_EQ(events.count(32), 1) << "one event for one click: " << events.describe();
        events.clear();
    }
}

TEST_F(PanelLists, SelectionsSurviveTheDoubling) {
    std::vector<std::unique_ptr<HostList>> hosts;
    for (INT k = 0; k < 25; ++k) {
        hosts.push_back(std::make_unique<HostList>(k, numbered_entries(30), std::vector<INT>{k}));
        made(GRX_LISTE_MULTIPLE, k);
    }
    for (INT k = 0; k < 25; ++k) {
        EXPECT_EQ(chosen_in_slot(slot_of(panel, k)), std::vector<INT>{k}) << k;
        EXPECT_EQ(selected_in(grx_recup_objet_item_liste(panel, k)), std::vector<int>{k}) << k;
        EXPECT_EQ(grx_supprime_item_liste(panel, k), 0);
    }
    EXPECT_EQ(heap().damage(), "");
}

TEST_F(PanelLists, AFailedDoublingMakesNoList) {
    std::vector<std::unique_ptr<HostList>> hosts;
    for (INT k = 0; k < 11; ++k) hosts.push_back(std::make_unique<HostList>(k, numbered_entries(4)));
    for (INT k = 0; k < 10; ++k) made(0, k);
    const std::size_t blocks = heap().blocks();
    int refused = 0;
    const int failures = fail_each_allocation([&] {
        GRX_MSG message = list_of(0, 10);
        Widget list = grx_cree_item_liste(&message);
        if (!list) {
            ++refused;
            EXPECT_EQ(slot_of(panel, 10), -1);
            EXPECT_EQ(heap().blocks(), blocks);
        }
        for (INT k = 0; k < 10; ++k) EXPECT_EQ(slot_of(panel, k), k);
    });
    EXPECT_GE(failures, 1);
    EXPECT_GE(refused, 1);
    heap().fail_never();
    EXPECT_GE(slot_of(panel, 10), 0) << "and then it is made";
}

TEST_F(PanelLists, TheLowestFreeSlotIsTakenFirst) {
    std::vector<std::unique_ptr<HostList>> hosts;
    for (INT k = 0; k < 5; ++k) hosts.push_back(std::make_unique<HostList>(k, numbered_entries(4)));
    for (INT k = 0; k < 4; ++k) made(0, k);
    Widget gone = grx_recup_objet_item_liste(panel, 1);
    EXPECT_EQ(grx_supprime_item_liste(panel, 1), 0);
    EXPECT_EQ(Tab_liste[1].isys, -1);
    EXPECT_EQ(Tab_liste[1].obj, nullptr);
    EXPECT_EQ(Tab_liste[1].nb_item, 0);
    EXPECT_EQ(Tab_liste[1].nb_choix, 0);
    EXPECT_EQ(Tab_liste[1].tab_choix, nullptr);
    EXPECT_EQ(slot_of(panel, 1), -1);
    EXPECT_EQ(grx_test_liste_ouverte(1), 0);
    EXPECT_EQ(grx_recup_objet_item_liste(panel, 1), nullptr);
    XtDestroyWidget(XtParent(gone));
    drain();
    made(0, 4);
    EXPECT_EQ(slot_of(panel, 4), 1);
}

TEST_F(PanelLists, TheSameKeyInAnotherPanelIsAnotherList) {
    const HostList host(key, numbered_entries(4));
    Widget one = made(0, key, 1);
    GRX_MSG message = list_of(0, key, 2);
    message.x = 300;
    Widget two = made(message);
    EXPECT_EQ(slot_of(1, key), 0);
    EXPECT_EQ(slot_of(2, key), 1);
    EXPECT_EQ(grx_recup_objet_item_liste(1, key), one);
    EXPECT_EQ(grx_recup_objet_item_liste(2, key), two);
    grx_supprime_item_liste(1, key);
    EXPECT_EQ(grx_recup_objet_item_liste(1, key), nullptr);
    EXPECT_EQ(grx_recup_objet_item_liste(2, key), two);
    EXPECT_EQ(grx_test_liste_ouverte(key), 1);
}

TEST_F(PanelLists, TheSameListMadeAgainTakesTheOldSlot) {
    const HostList host(key, numbered_entries(4), {1});
    Widget one = made(GRX_LISTE_MULTIPLE);
    GRX_MSG message = list_of(GRX_LISTE_MULTIPLE);
    message.x = 300;
    Widget two = made(message);
    ASSERT_NE(one, two);
    EXPECT_EQ(slot_of(panel, key), 0);
    EXPECT_EQ(Tab_liste[0].obj, two);
    EXPECT_EQ(Tab_liste[1].isys, -1);
    const auto event = click(two, 3);
    ASSERT_TRUE(event);
    EXPECT_EQ(event->element_clique.no_fo, 0);
    EXPECT_EQ(chosen_in_slot(0), (std::vector<INT>{1, 3}));
    events.clear();
    over(one, 2); // what is left of the old one says nothing of the new one
    pointer().click(1);
    drain();
    EXPECT_EQ(events.count(32), 0) << events.describe();
    EXPECT_EQ(chosen_in_slot(0), (std::vector<INT>{1, 3}));
}

// --- their end ------------------------------------------------------------------------------------------------------------------------------------

TEST_F(PanelLists, AListDiesWithItsWindow) {
    const HostList host(key, numbered_entries(4), {1});
    made();
    grx_detruit_fenetre(window);
    drain();
    EXPECT_EQ(grx_test_liste_ouverte(key), 0);
    EXPECT_EQ(grx_recup_objet_item_liste(panel, key), nullptr);
    EXPECT_EQ(grx_modif_items_liste(key), 0);
    EXPECT_EQ(grx_modif_un_item_liste(key, 0), 0);
    EXPECT_EQ(grx_change_type_liste(key, 1), 0);
    EXPECT_EQ(grx_supprime_item_liste(panel, key), 0);
    EXPECT_EQ(slot_of(panel, key), -1);
    EXPECT_EQ(Tab_liste[0].tab_choix, nullptr);
}

TEST_F(PanelLists, AListMadeAgainAfterItsWindowDied) {
    const HostList host(key, numbered_entries(4), {1});
    made();
    const std::size_t blocks = heap().blocks();
    for (int i = 0; i < 3; ++i) {
        grx_detruit_fenetre(window);
        drain();
        window = shown();
        Widget list = made();
        EXPECT_EQ(slot_of(panel, key), 0);
        EXPECT_EQ(grx_recup_objet_item_liste(panel, key), list);
        EXPECT_EQ(grx_test_liste_ouverte(key), 1);
    }
    EXPECT_EQ(heap().blocks(), blocks);
}

TEST_F(PanelLists, ARemovedListPostsNothing) {
    const HostList host(key, numbered_entries(4));
    Widget list = made();
    grx_supprime_item_liste(panel, key);
    over(list, 2);
    std::fill(std::begin(caracs_entree), std::end(caracs_entree), -99);
    pointer().double_click();
    drain();
    EXPECT_EQ(events.count(32), 0) << events.describe();
    EXPECT_EQ(caracs_entree[1], -99);
}

TEST_F(PanelLists, FreeingTheTablesWhileListsLive) {
    const HostList host(key, numbered_entries(4), {1});
    Widget list = made();
    EXPECT_EQ(grx_desalloue_base_items_panels(), 0);
    EXPECT_EQ(Tab_liste, nullptr);
    over(list, 2);
    pointer().click(1);
    drain();
    EXPECT_EQ(events.count(32), 0) << events.describe();
    EXPECT_EQ(grx_recup_objet_item_liste(panel, key), nullptr);
    GRX_MSG message = list_of();
    EXPECT_EQ(grx_cree_item_liste(&message), nullptr) << "without a table";
    grx_detruit_fenetre(window);
    drain();
    ASSERT_EQ(grx_alloue_base_items_panels(panel_count, panels.table()), 0);
    EXPECT_EQ(slot_of(panel, key), -1);
}

TEST_F(PanelLists, TablesAllocatedAnewWhileListsLive) {
    const HostList host(key, numbered_entries(4), {1});
    Widget list = made();
    const std::size_t blocks = heap().blocks();
    ASSERT_EQ(grx_alloue_base_items_panels(panel_count, panels.table()), 0);
    EXPECT_EQ(slot_of(panel, key), -1);
    EXPECT_LE(heap().blocks(), blocks);
    over(list, 2);
    pointer().click(1);
    drain();
    EXPECT_EQ(events.count(32), 0) << events.describe();
}

// --- what is not there ------------------------------------------------------------------------------------------------------------------------------------

TEST_F(PanelLists, TheIndexIsTheApplicationsToChange) {
    const HostList host(key, {"a", "b", "c"});
    Widget list = made();
    const INT slot = slot_of(panel, key);
    ASSERT_GE(slot, 0);
    Tab_liste[slot].ind = 123;
    EXPECT_EQ(grx_test_liste_ouverte(key), 1);
    EXPECT_EQ(grx_test_liste_ouverte(123), 0);
    lnstate[key] = 2;
    EXPECT_EQ(grx_modif_items_liste(key), 0);
    EXPECT_EQ(entries_in(list), (std::vector<std::string>{"a", "b"}));
    EXPECT_EQ(grx_change_type_liste(key, GRX_LISTE_MULTIPLE), 0);
    EXPECT_EQ(resource<unsigned char>(list, XmNselectionPolicy), XmMULTIPLE_SELECT);
    EXPECT_EQ(Tab_liste[slot].ind, 123);
}

TEST_F(PanelLists, UnknownKeys) {
    const HostList host(key, numbered_entries(4));
    Widget list = made();
    for (INT unknown : {-1, 8, 999, 1000, -55001, INT_MIN, INT_MAX}) {
        EXPECT_EQ(grx_modif_items_liste(unknown), 0) << unknown;
        EXPECT_EQ(grx_modif_un_item_liste(unknown, unknown), 0) << unknown;
        EXPECT_EQ(grx_change_type_liste(unknown, 1), 0) << unknown;
        EXPECT_EQ(grx_supprime_item_liste(panel, unknown), 0) << unknown;
        EXPECT_EQ(grx_supprime_item_liste(unknown, key), 0) << unknown;
        EXPECT_EQ(grx_test_liste_ouverte(unknown), 0) << unknown;
        EXPECT_EQ(grx_recup_objet_item_liste(panel, unknown), nullptr) << unknown;
        EXPECT_EQ(grx_recup_objet_item_liste(unknown, key), nullptr) << unknown;
        EXPECT_EQ(test_liste_deja_affichee(panel, unknown), -1) << unknown;
        EXPECT_EQ(test_liste_deja_affichee(unknown, 55007), -1) << unknown;
    }
    EXPECT_EQ(slot_of(panel, key), 0);
    EXPECT_EQ(resource<unsigned char>(list, XmNselectionPolicy), XmSINGLE_SELECT);
    EXPECT_EQ(entries_in(list).size(), 4U);
}

TEST_F(PanelLists, KeysOutsideTheHostsTablesShowNoEntries) {
    for (INT far : {-1, 1000, -55000, 100000, INT_MAX - 55000}) {
        GRX_MSG message = list_of(0, far);
        Widget list = grx_cree_item_liste(&message);
        if (list) EXPECT_EQ(entries_in(list).size(), 0U) << far;
        drain();
    }
}

TEST_F(PanelLists, TheHostsTablesAreNull) {
    struct Saved {
        INT** lc = lcstate;
        INT* li = listate;
        INT* ln = lnstate;
        CH80** ls = lsstate;
        ~Saved() {
            lcstate = lc;
            listate = li;
            lnstate = ln;
            lsstate = ls;
        }
    };
    const HostList host(key, numbered_entries(4), {1});
    for (int missing : {0, 1, 2, 3}) {
        const Saved saved;
        if (missing == 0) lcstate = nullptr;
        if (missing == 1) listate = nullptr;
        if (missing == 2) lnstate = nullptr;
        if (missing == 3) lsstate = nullptr;
        GRX_MSG message = list_of();
        Widget list = grx_cree_item_liste(&message);
        ASSERT_NE(list, nullptr) << missing;
        EXPECT_EQ(entries_in(list).size(), missing < 2 ? 4U : 0U) << missing;
        EXPECT_EQ(selected_in(list), std::vector<int>()) << missing;
        EXPECT_EQ(grx_modif_items_liste(key), 0);
        GRX_MSG item = item_of(70);
        EXPECT_EQ(grx_cree_item(&item), 0);
        XtDestroyWidget(XtParent(list));
        drain();
    }
}

TEST_F(PanelLists, TheHostsEntriesAreNullOrTheirNumberIsWild) {
    const HostList host(key, numbered_entries(4), {1});
    lcstate[key] = nullptr;
    Widget list = made();
    EXPECT_EQ(selected_in(list), std::vector<int>());
    lsstate[key] = nullptr;
    EXPECT_EQ(grx_modif_items_liste(key), 0);
    EXPECT_EQ(entries_in(list).size(), 0U);
    lnstate[key] = -5;
    listate[key] = -3;
    EXPECT_EQ(grx_modif_items_liste(key), 0);
    EXPECT_EQ(entries_in(list).size(), 0U);
}

TEST_F(PanelLists, UnknownWindowsAndNoRecord) {
    const HostList host(key, numbered_entries(4));
    const std::size_t blocks = heap().blocks();
    for (INT unknown : {-1, 77, INT_MAX}) {
        GRX_MSG message = list_of();
        message.fen_mere = unknown;
        EXPECT_EQ(grx_cree_item_liste(&message), nullptr);
    }
    EXPECT_EQ(grx_cree_item_liste(nullptr), nullptr);
    EXPECT_EQ(grx_cree_item_liste_general(0, nullptr), nullptr);
    EXPECT_EQ(slot_of(panel, key), -1);
    EXPECT_EQ(heap().blocks(), blocks);
}

TEST_F(PanelLists, TextsOfEightyCharactersAndLatinOnes) {
    HostList host(key, {"x", "\xE9t\xE9", ""});
    std::memset(lsstate[key][0], 'w', 80); // no end
    Widget list = made();
    const auto entries = entries_in(list);
    ASSERT_EQ(entries.size(), 3U);
    EXPECT_LE(entries[0].size(), 80U);
    EXPECT_GE(entries[0].size(), 79U);
    EXPECT_EQ(entries[1], "\xE9t\xE9");
    EXPECT_EQ(entries[2], "");
}

TEST_F(PanelLists, EachFailingAllocationLosesNothing) {
    const HostList host(key, numbered_entries(6), {1, 2});
    const NoLeak no_leak;
    fail_each_allocation([&] {
        GRX_MSG message = list_of(GRX_LISTE_MULTIPLE);
        Widget list = grx_cree_item_liste(&message);
        grx_modif_items_liste(key);
        if (list) {
            XmListSelectPos(list, 5, True);
            XmListSelectPos(list, 6, True);
        }
        grx_supprime_item_liste(panel, key);
        if (list) XtDestroyWidget(XtParent(list));
        drain();
    });
    EXPECT_EQ(heap().damage(), "");
}

} // namespace
