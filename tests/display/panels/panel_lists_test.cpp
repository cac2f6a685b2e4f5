// Panel lists: what is made for each record, what is selected at first, what they post, and reloading.
#include "tests/display/panels/panel_list_kit.h"
#include "tests/support/toolkit_calls.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace {

using namespace grxtest;

// The record of a choice: nofen and the text are what they were.
GRX_EVENEMENT choice_record(INT slot, INT position, INT double_click) {
    GRX_EVENEMENT record = patterned_event();
    grx_init_evenement(&record);
    record.element_clique.type_evenement = 32;
    record.element_clique.no_fo = slot;
    record.element_clique.nobou = position;
    record.element_clique.double_click = double_click;
    return record;
}

// --- creation -----------------------------------------------------------------------------------------------------------------------

TEST_F(PanelLists, AListShowsTheHostsEntries) {
    const HostList host(key, {"first", "second", "third"});
    Widget list = made();
    ASSERT_TRUE(is_a(list, xmListWidgetClass));
    EXPECT_TRUE(has_name(list, "Liste"));
    EXPECT_TRUE(is_a(XtParent(list), xmScrolledWindowWidgetClass));
    EXPECT_EQ(entries_in(list), (std::vector<std::string>{"first", "second", "third"}));
    EXPECT_EQ(selected_in(list), std::vector<int>());
    const INT slot = slot_of(panel, key);
    ASSERT_EQ(slot, 0);
    EXPECT_EQ(Tab_liste[0].isys, 0);
    EXPECT_EQ(Tab_liste[0].ietat, 55007);
    EXPECT_EQ(Tab_liste[0].ipan, panel);
    EXPECT_EQ(Tab_liste[0].obj, list);
    EXPECT_EQ(Tab_liste[0].nb_item, 3);
    EXPECT_EQ(Tab_liste[0].nb_choix, 0);
    EXPECT_EQ(grx_recup_objet_item_liste(panel, key), list);
    EXPECT_EQ(grx_test_liste_ouverte(key), 1);
}

TEST_F(PanelLists, PlaceAndSizeFromTheTopLeft) {
    const HostList host(key, numbered_entries(30));
    Widget list = made();
    EXPECT_EQ(rect_of(XtParent(list)), (Rect{20, 30, 200, 150}));
}

TEST_F(PanelLists, NegativePlacesAndSizesAreDistancesFromTheEdges) {
    const HostList host(key, numbered_entries(30));
    GRX_MSG message = list_of();
    message.x = -10;
    message.y = -40;
    message.largeur = -90;
    message.hauteur = -60;
    Widget list = made(message);
    EXPECT_EQ(rect_of(XtParent(list)), (Rect{10, 40, 700 - 10 - 90, 500 - 40 - 60}));
    grx_change_taille_fenetre(window, 560, 420);
    ASSERT_TRUE(wait_for([&] { return extent_of(widget_of(window)) == Extent{560, 420}; }));
    EXPECT_TRUE(wait_for([&] {
        return rect_of(XtParent(list)) == Rect{10, 40, 560 - 10 - 90, 420 - 40 - 60};
    })) << testing::PrintToString(rect_of(XtParent(list)));
}

TEST_F(PanelLists, EachPlaceAndSizeByItself) {
    const HostList host(key, numbered_entries(30));
    struct Case {
        INT x, y, width, height;
        Rect expected;
    };
    for (const Case& c : {Case{-10, 30, 200, 150, {10, 30, 200, 150}}, Case{20, -40, 200, 150, {20, 40, 200, 150}},
             Case{20, 30, -50, 150, {20, 30, 630, 150}}, Case{20, 30, 200, -50, {20, 30, 200, 420}},
             Case{20, 30, -1, -1, {20, 30, 679, 469}}, Case{-1, -1, 200, 150, {1, 1, 200, 150}}}) {
        GRX_MSG message = list_of();
        message.x = c.x;
        message.y = c.y;
        message.largeur = c.width;
        message.hauteur = c.height;
        Widget list = made(message);
        EXPECT_EQ(rect_of(XtParent(list)), c.expected);
        XtDestroyWidget(XtParent(list));
        drain();
    }
}

TEST_F(PanelLists, ALongEntryIsReachedByAScrollBar) {
    const HostList host(key, {"short", std::string(70, 'w')});
    Widget list = made();
    EXPECT_EQ(rect_of(XtParent(list)), (Rect{20, 30, 200, 150}));
    Widget bar = resource<Widget>(XtParent(list), XmNhorizontalScrollBar);
    ASSERT_NE(bar, nullptr);
    EXPECT_TRUE(XtIsManaged(bar));
}

TEST_F(PanelLists, NoMoreEntriesThanTheHostHasNorThanTheRecordSays) {
    const HostList host(key, numbered_entries(4));
    struct Case {
        INT asked;
        std::size_t made;
    };
    for (const Case& c :
        {Case{5, 4}, Case{1000, 4}, Case{INT_MAX, 4}, Case{4, 4}, Case{2, 2}, Case{0, 0}, Case{-1, 0}}) {
        GRX_MSG message = list_of();
        message.nb_cara = c.asked;
        Widget list = made(message);
        EXPECT_EQ(entries_in(list).size(), c.made) << c.asked;
        EXPECT_EQ(Tab_liste[slot_of(panel, key)].nb_item, static_cast<INT>(c.made)) << c.asked;
        XtDestroyWidget(XtParent(list));
        drain();
    }
}

TEST_F(PanelLists, AFixedListStaysWhenTheWindowGrows) {
    const HostList host(key, numbered_entries(30));
    Widget list = made();
    grx_change_taille_fenetre(window, 800, 600);
    ASSERT_TRUE(wait_for([&] { return extent_of(widget_of(window)) == Extent{800, 600}; }));
    drain();
    EXPECT_EQ(rect_of(XtParent(list)), (Rect{20, 30, 200, 150}));
}

TEST_F(PanelLists, AnItemOfThePanelMakesAList) {
    const HostList host(30, {"a", "b", "c"}, {1});
    for (INT type : {70, 71, 72, 79}) {
        GRX_MSG message = item_of(type);
        message.largeur = 20;
        message.hauteur = 6;
        const GRX_MSG before = message;
        EXPECT_EQ(grx_cree_item(&message), 0);
        drain();
        EXPECT_EQ(message.clef, before.clef);
        EXPECT_EQ(message.nobou, panel);
        const INT slot = slot_of(panel, 30);
        ASSERT_GE(slot, 0) << type;
        Widget list = Tab_liste[slot].obj;
        EXPECT_EQ(rect_of(XtParent(list)), (Rect{201, 61, 21 * W, 6 * H})) << type;
        EXPECT_EQ(entries_in(list).size(), 3U);
        EXPECT_EQ(selected_in(list), std::vector<int>{1});
        const auto policy = resource<unsigned char>(list, XmNselectionPolicy);
        EXPECT_EQ(policy, type == 71 ? XmMULTIPLE_SELECT : XmSINGLE_SELECT) << type;
        EXPECT_TRUE(recorded(1, 0).empty()) << "a list is no button";
        grx_supprime_item_liste(panel, 30);
        XtDestroyWidget(XtParent(list));
        drain();
    }
}

TEST_F(PanelLists, TheSelectionModeOfEachType) {
    const HostList host(key, {"a", "b"});
    for (INT type : {0, 1, 2, 9, -1, INT_MAX}) {
        Widget list = made(type);
        EXPECT_EQ(resource<unsigned char>(list, XmNselectionPolicy), type == 1 ? XmMULTIPLE_SELECT : XmSINGLE_SELECT)
            << type;
        grx_supprime_item_liste(panel, key);
        XtDestroyWidget(XtParent(list));
        drain();
    }
}

TEST_F(PanelLists, TheGeneralFunctionMakesTheSameList) {
    const HostList host(key, {"a", "b"});
    for (INT first : {0, 1, -1, INT_MAX}) {
        GRX_MSG message = list_of(1);
        Widget list = grx_cree_item_liste_general(first, &message);
        ASSERT_NE(list, nullptr) << first;
        EXPECT_EQ(entries_in(list).size(), 2U);
        EXPECT_EQ(message.x, 20);
        EXPECT_EQ(message.clef, 55007);
    }
}

// --- initial selection ------------------------------------------------------------------------------------------------------------------

TEST_F(PanelLists, TheEntriesSelectedAtFirst) {
    const HostList host(key, numbered_entries(6), {0, 3, 5});
    Widget list = made(GRX_LISTE_MULTIPLE);
    EXPECT_EQ(selected_in(list), (std::vector<int>{0, 3, 5}));
    EXPECT_EQ(chosen_in_slot(0), (std::vector<INT>{0, 3, 5}));
    EXPECT_EQ(events.count(GRX_EVT_ELEMENT_CLIQUE), 0);
    EXPECT_EQ(caracs_entree[1], -99) << "no callback ran";
}

TEST_F(PanelLists, ASingleSelectionAtFirst) {
    const HostList host(key, numbered_entries(6), {4});
    Widget list = made();
    EXPECT_EQ(selected_in(list), std::vector<int>{4});
    EXPECT_EQ(chosen_in_slot(0), std::vector<INT>{4});
}

TEST_F(PanelLists, PositionsOutsideTheListAreIgnored) {
    const HostList host(key, numbered_entries(4), {-1, 2, 4, INT_MAX, INT_MIN});
    Widget list = made(GRX_LISTE_MULTIPLE);
    EXPECT_EQ(selected_in(list), std::vector<int>{2});
    EXPECT_EQ(chosen_in_slot(0), std::vector<INT>{2});
}

TEST_F(PanelLists, SelectedAtFirstAsTheToolkitDoesOneByOne) {
    const std::vector<std::vector<INT>> orders{
        {1}, {0, 1, 2, 3}, {5, 1, 3}, {2, 2}, {2, 2, 2}, {4, 0, 4, 1}, {3, -1, 9, 1}, {0, 0, 1, 1}};
    for (const INT type : {GRX_LISTE_SIMPLE, GRX_LISTE_MULTIPLE}) {
        for (const auto& order : orders) {
            const HostList host(key, numbered_entries(6), order);
            Widget list = made(type);
            const Pixels ours = grab(x11_disp, XtWindow(list));
            listate[key] = 0;
            Widget other = made(type);
            const auto same_lists = [&] {
                EXPECT_EQ(selected_in(list), selected_in(other)) << testing::PrintToString(order);
                if (!selected_in(other).empty()) {
                    EXPECT_EQ(XmListGetKbdItemPos(list), XmListGetKbdItemPos(other)) << testing::PrintToString(order);
                }
            };
            for (const INT position : order) {
                if (position >= 0 && position < 6) XmListSelectPos(other, position + 1, False);
            }
            settle();
            same_lists();
            EXPECT_TRUE(same(ours, grab(x11_disp, XtWindow(other)))) << testing::PrintToString(order);
            XtDestroyWidget(XtParent(list));
            XtDestroyWidget(XtParent(other));
            settle();
        }
    }
}

// For each entry alone the toolkit looks through all of them.
TEST_F(PanelLists, ManySelectedAtFirstAreSelectedTogether) {
    for (const INT type : {GRX_LISTE_SIMPLE, GRX_LISTE_MULTIPLE}) {
        std::vector<INT> all(300);
        std::iota(all.begin(), all.end(), 0);
        const HostList host(key, numbered_entries(300), all);
        ToolkitCalls asked;
        Widget list = made(type);
        grx_modif_un_item_liste(key, 5);
        EXPECT_LE(asked.single_selections, 2);
        if (type == GRX_LISTE_SIMPLE) all = {299};
        EXPECT_EQ(selected_in(list), all);
        EXPECT_EQ(chosen_in_slot(0), all);
        XtDestroyWidget(XtParent(list));
        settle();
        grx_supprime_item_liste(panel, key);
    }
}

TEST_F(PanelLists, NothingSelectedAtFirst) {
    const HostList host(key, numbered_entries(4));
    for (INT type : {0, 1}) {
        Widget list = made(type);
        EXPECT_EQ(selected_in(list), std::vector<int>()) << type;
        EXPECT_EQ(Tab_liste[slot_of(panel, key)].nb_choix, 0) << type;
    }
}

// --- what they post ------------------------------------------------------------------------------------------------------------------------

TEST_F(PanelLists, AClickPostsTheSlotAndThePositionFrom0) {
    const HostList other(3, {"x"});
    const HostList host(key, numbered_entries(5));
    GRX_MSG first = list_of(0, 3);
    first.x = 300;
    made(first);
    Widget list = made();
    ASSERT_EQ(slot_of(panel, key), 1);
    for (int entry : {2, 0, 4}) {
        const auto event = click(list, entry);
        ASSERT_TRUE(event) << events.describe();
        EXPECT_TRUE(same_record(choice_record(1, entry, 0), *event, offsetof(GRX_ELEMENT_CLIQUE, chaine))) << entry;
        expect_input_state(0);
        EXPECT_EQ(chosen_in_slot(1), std::vector<INT>{entry});
        EXPECT_EQ(Tab_liste[0].nb_choix, 0);
        EXPECT_EQ(std::memcmp(event->element_clique.chaine, choice_record(1, 0, 0).element_clique.chaine, 20), 0)
            << "the text is not written";
    }
}

TEST_F(PanelLists, TheWindowNumberIsWhatTheLastEventLeft) {
    const HostList host(key, numbered_entries(5));
    Widget list = made();
    over(list, 1);
    evt_global.element_clique.nofen = 4711;
    XmListCallbackStruct call{};
    call.reason = XmCR_SINGLE_SELECT;
    call.item_position = 2;
    XtCallCallbacks(list, XmNsingleSelectionCallback, &call);
    EXPECT_EQ(evt_global.element_clique.nofen, 4711);
    EXPECT_EQ(evt_global.element_clique.nobou, 1);
    EXPECT_EQ(evt_global.element_clique.type_evenement, 32);
}

TEST_F(PanelLists, ADoubleClick) {
    const HostList host(key, numbered_entries(5));
    for (INT type : {0, 1}) {
        Widget list = made(type);
        over(list, 3);
        forget();
        XtVaSetValues(list, XmNdoubleClickInterval, 10000, nullptr);
        pointer().double_click();
        const auto event = events.wait(
            [](const GRX_EVENEMENT& e) { return e.type_evenement == 32 && e.element_clique.double_click != 0; });
        ASSERT_TRUE(event) << type << ": " << events.describe();
        EXPECT_EQ(event->element_clique.double_click, 1);
        EXPECT_EQ(event->element_clique.nobou, 3);
        EXPECT_EQ(event->element_clique.no_fo, slot_of(panel, key));
        EXPECT_EQ(caracs_entree[1], 1);
        EXPECT_EQ(caracs_entree[2], 1);
        XtDestroyWidget(XtParent(list));
        drain();
    }
}

TEST_F(PanelLists, AClickThatTakesTheSelectionBackIsKeptAsTheChoice) {
    const HostList host(key, numbered_entries(5));
    Widget list = made();
    for (int turn = 0; turn < 2; ++turn) {
        const auto event = click(list, 2);
        ASSERT_TRUE(event) << events.describe();
        EXPECT_EQ(event->element_clique.nobou, 2);
        EXPECT_EQ(selected_in(list), turn == 0 ? std::vector<int>{2} : std::vector<int>());
        EXPECT_EQ(chosen_in_slot(0), std::vector<INT>{2});
    }
}

TEST_F(PanelLists, MultipleSelection) {
    const HostList host(key, numbered_entries(6));
    Widget list = made(GRX_LISTE_MULTIPLE);
    struct Step {
        int entry;
        std::vector<INT> chosen;
    };
    for (const Step& step :
        {Step{4, {4}}, Step{1, {1, 4}}, Step{5, {1, 4, 5}}, Step{4, {1, 5}}, Step{1, {5}}, Step{5, {}}, Step{0, {0}}}) {
        const auto event = click(list, step.entry);
        ASSERT_TRUE(event) << step.entry << ": " << events.describe();
        EXPECT_TRUE(same_record(choice_record(0, step.entry, 0), *event, offsetof(GRX_ELEMENT_CLIQUE, chaine)));
        expect_input_state(0);
        EXPECT_EQ(chosen_in_slot(0), step.chosen) << step.entry;
    }
    EXPECT_EQ(heap().damage(), "");
}

TEST_F(PanelLists, ManySelectedAtOnceAreAllKept) {
    const HostList host(key, numbered_entries(300));
    Widget list = made(GRX_LISTE_MULTIPLE);
    std::vector<INT> all;
    for (int i = 0; i < 300; ++i) {
        XmListSelectPos(list, i + 1, i == 299);
        all.push_back(i);
    }
    EXPECT_EQ(chosen_in_slot(0), all);
}

// --- reloading and the mode ---------------------------------------------------------------------------------------------------------------------------

TEST_F(PanelLists, ReloadingTakesTheHostsTablesAgain) {
    Widget list = nullptr;
    {
        const HostList host(key, numbered_entries(4), {1});
        list = made(GRX_LISTE_MULTIPLE);
    }
    const HostList host(key, {"new", "newer", "newest"}, {0, 2});
    EXPECT_EQ(grx_modif_items_liste(key), 0);
    EXPECT_EQ(entries_in(list), (std::vector<std::string>{"new", "newer", "newest"}));
    EXPECT_EQ(selected_in(list), (std::vector<int>{0, 2}));
    EXPECT_EQ(chosen_in_slot(0), (std::vector<INT>{0, 2}));
    EXPECT_EQ(Tab_liste[0].nb_item, 3);
    EXPECT_EQ(events.count(32), 0);
    lnstate[key] = 1;
    listate[key] = 0;
    EXPECT_EQ(grx_modif_un_item_liste(key, 2), 0);
    EXPECT_EQ(entries_in(list), (std::vector<std::string>{"new"}));
    EXPECT_EQ(selected_in(list), std::vector<int>());
    EXPECT_EQ(Tab_liste[0].nb_choix, 0);
    lnstate[key] = 0;
    EXPECT_EQ(grx_modif_items_liste(key), 0);
    EXPECT_EQ(entries_in(list).size(), 0U);
    EXPECT_EQ(Tab_liste[0].nb_item, 0);
}

TEST_F(PanelLists, ReloadingKeepsPlaceAndSize) {
    std::optional<HostList> host(std::in_place, key, numbered_entries(4));
    Widget list = made();
    const Rect before = rect_of(XtParent(list));
    host.reset();
    host.emplace(key, numbered_entries(200, "a very much longer entry than before "));
    grx_modif_items_liste(key);
    drain();
    EXPECT_EQ(rect_of(XtParent(list)), before);
}

TEST_F(PanelLists, ReloadingReachesTheListInEveryPanel) {
    std::optional<HostList> host(std::in_place, key, numbered_entries(4));
    Widget one = made(0, key, 1);
    GRX_MSG message = list_of(0, key, 2);
    message.x = 300;
    Widget two = made(message);
    host.reset();
    host.emplace(key, std::vector<std::string>{"x"});
    grx_modif_items_liste(key);
    EXPECT_EQ(entries_in(one).size() + entries_in(two).size(), 2U);
}

TEST_F(PanelLists, ChangingTheMode) {
    const HostList host(key, numbered_entries(6), {2});
    Widget list = made(GRX_LISTE_SIMPLE);
    EXPECT_EQ(grx_change_type_liste(key, GRX_LISTE_MULTIPLE), 0);
    EXPECT_EQ(resource<unsigned char>(list, XmNselectionPolicy), XmMULTIPLE_SELECT);
    click(list, 0);
    ASSERT_TRUE(click(list, 5));
    const auto chosen = chosen_in_slot(0);
    EXPECT_EQ(chosen.size(), static_cast<std::size_t>(selected_in(list).size()));
    EXPECT_TRUE(std::ranges::find(chosen, 0) != chosen.end() && std::ranges::find(chosen, 5) != chosen.end());
    EXPECT_EQ(grx_change_type_liste(key, GRX_LISTE_SIMPLE), 0);
    EXPECT_EQ(resource<unsigned char>(list, XmNselectionPolicy), XmSINGLE_SELECT);
    ASSERT_TRUE(click(list, 3));
    EXPECT_EQ(chosen_in_slot(0), std::vector<INT>{3});
    EXPECT_EQ(entries_in(list).size(), 6U);
}

} // namespace
