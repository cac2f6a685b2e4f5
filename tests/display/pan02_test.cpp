// Panel lists: creation, what they post, their selection, the table that grows, reloading, their end.
#include "tests/display/panel_kit.h"

#include "tests/support/toolkit_calls.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <numeric>

namespace {

using namespace grxtest;

constexpr INT key = 7;
constexpr INT panel = 1;

class PanelLists : public PanelsTest {
  protected:
    void SetUp() override {
        PanelsTest::SetUp();
        if (x11_disp) XtSetMultiClickTime(x11_disp, 0); // clicks in a row are single ones, however fast
        std::fill(std::begin(caracs_entree), std::end(caracs_entree), -99);
    }

    GRX_MSG list_of(INT type = GRX_LISTE_SIMPLE, INT at_key = key, INT in_panel = panel) {
        GRX_MSG message{};
        grx_init_message(&message);
        message.clef = at_key + 55000;
        message.type = type;
        message.nobou = in_panel;
        message.x = 20;
        message.y = 30;
        message.largeur = 200;
        message.hauteur = 150;
        message.nb_cara = lnstate && at_key >= 0 && at_key < HOST_NB_LISTES ? lnstate[at_key] : 0;
        message.fen_mere = window;
        return message;
    }

    Widget made(GRX_MSG message) {
        Widget list = grx_cree_item_liste(&message);
        if (list) EXPECT_TRUE(wait_visible(list));
        settle();
        return list;
    }
    Widget made(INT type = GRX_LISTE_SIMPLE, INT at_key = key, INT in_panel = panel) {
        return made(list_of(type, at_key, in_panel));
    }

    // The middle of an entry, counted from 0.
    void over(Widget list, int entry) {
        Position x = 0, y = 0;
        Dimension width = 0, height = 0;
        ASSERT_TRUE(XmListPosToBounds(list, entry + 1, &x, &y, &width, &height));
        pointer().move_in(list, x + 10, y + height / 2);
        settle();
    }

    // One click, with the record full of a pattern before.
    std::optional<GRX_EVENEMENT> click(Widget list, int entry) {
        over(list, entry);
        evt_global = patterned_event();
        std::fill(std::begin(caracs_entree), std::end(caracs_entree), -99);
        pointer().click(1);
        auto result = events.wait(GRX_EVT_ELEMENT_CLIQUE);
        drain();
        return result;
    }

    static void expect_input_state(INT double_click) {
        EXPECT_EQ(caracs_entree[1], 1);
        EXPECT_EQ(caracs_entree[2], double_click);
        for (int other : {0, 3, 4, 5, 6, 7}) EXPECT_EQ(caracs_entree[other], -99) << other;
    }
};

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
