// Lists of message dialogs: made, clicked and typed in, read, and destroyed.
#include "tests/display/panels/message_kit.h"

#include <optional>

namespace {

using namespace grxtest;

constexpr INT multiple = GRX_MSG_ATT_MULTI;

class Lists : public DialogTest {
  protected:
    void SetUp() override {
        DialogTest::SetUp();
        if (HasFatalFailure()) return;
        XtSetMultiClickTime(x11_disp, 0); // two quick clicks on different entries are no double click
        for (std::size_t i = 0; i < texts_.size(); ++i) {
            texts_[i] = "Choix " + std::to_string(i + 1);
            pointers_[i] = texts_[i].data();
        }
    }

    GRX_MSG described_list(INT slot, INT count, INT attribut = 0, INT x = 20, INT y = 30) {
        GRX_MSG message = dialog(2, attribut, x, y);
        message.nb_cara = slot;
        message.nb_deci = count;
        message.fen_mere = window;
        message.choix = pointers_.data();
        std::strcpy(message.titre, "Liste des choix");
        return message;
    }

    Widget list_of(INT slot, INT count = 4, INT attribut = 0, INT x = 20, INT y = 30) {
        GRX_MSG message = described_list(slot, count, attribut, x, y);
        return list_of(message);
    }
    Widget list_of(GRX_MSG& message) {
        const Widget list = grx_cree_liste(&message);
        EXPECT_NE(list, nullptr);
        if (list) {
            EXPECT_TRUE(wait_visible(list));
        }
        settle();
        return list;
    }

    void over(Widget list, int position) {
        Position x = 0, y = 0;
        Dimension width = 0, height = 0;
        ASSERT_TRUE(XmListPosToBounds(list, position, &x, &y, &width, &height));
        pointer().move_in(list, x + width / 2, y + height / 2);
    }

    // One real click; the record it gives.
    std::optional<GRX_EVENEMENT> click(Widget list, int position) {
        over(list, position);
        forget();
        pointer().click(1);
        auto chosen = events.wait(GRX_EVT_ELEMENT_CLIQUE);
        drain();
        EXPECT_EQ(events.count(GRX_EVT_ELEMENT_CLIQUE), 1) << events.describe();
        return chosen;
    }

    static GRX_EVENEMENT list_record(INT slot, INT position, INT twice) {
        GRX_EVENEMENT record = old_record();
        record.element_clique.type_evenement = 32;
        record.element_clique.nofen = -1 - slot;
        record.element_clique.nobou = position;
        record.element_clique.double_click = twice;
        return record;
    }

    // The positions that grx_lit_liste gives; what it leaves is checked.
    static std::vector<INT> read(INT slot, Widget list) {
        std::array<INT, 40> tab{};
        tab.fill(untouched);
        INT count = untouched;
        EXPECT_EQ(grx_lit_liste(slot, list, &count, tab.data()), 0);
        EXPECT_GE(count, 0);
        EXPECT_LE(count, 40);
        const auto n = static_cast<std::size_t>(std::clamp(count, 0, 40));
        for (std::size_t i = n; i < tab.size(); ++i) EXPECT_EQ(tab[i], untouched) << i;
        return {tab.begin(), tab.begin() + static_cast<std::ptrdiff_t>(n)};
    }

    static std::vector<INT> positions(std::vector<INT> list) { return list; }

    // The form's own place of a child that gives none.
    Point place_of_none() {
        const Widget bare = XtVaCreateManagedWidget("bare", xmFormWidgetClass, widget_of(window), nullptr);
        const Point at{resource<Position>(bare, XmNx), resource<Position>(bare, XmNy)};
        XtDestroyWidget(bare);
        drain();
        return at;
    }

    std::array<std::string, 40> texts_;
    std::array<char*, 40> pointers_{};
};

TEST_F(Lists, AreScrolledLists) {
    const Widget list = list_of(3, 5);
    EXPECT_EQ(name_of(list), "Liste des choix");
    EXPECT_TRUE(is_a(list, xmListWidgetClass));
    const Widget outer = XtParent(list);
    EXPECT_TRUE(is_a(outer, xmScrolledWindowWidgetClass));
    EXPECT_EQ(XtParent(outer), widget_of(window));
    EXPECT_EQ(resource<unsigned char>(list, XmNscrollBarDisplayPolicy), XmAS_NEEDED);
    EXPECT_EQ(resource<int>(list, XmNitemCount), 5);
    EXPECT_EQ(resource<int>(list, XmNvisibleItemCount), 5);
    EXPECT_EQ(resource<unsigned char>(list, XmNselectionPolicy), XmSINGLE_SELECT);
    EXPECT_TRUE(XtIsManaged(list));
    EXPECT_EQ(read(3, list), positions({}));
}

TEST_F(Lists, HoldTheTextsInOrder) {
    const Widget list = list_of(0, 7);
    auto* items = resource<XmStringTable>(list, XmNitems);
    for (std::size_t i = 0; i < 7; ++i) {
        char* text = nullptr;
        ASSERT_TRUE(XmStringGetLtoR(items[i], const_cast<char*>("tag1"), &text)) << i;
        EXPECT_EQ(std::string(text), texts_[i]);
        XtFree(text);
    }
}

TEST_F(Lists, AreDrawn) {
    const Widget list = list_of(0);
    drain();
    const Pixels pixels = grab(x11_disp, XtWindow(list));
    EXPECT_GT(pixels.count(static_cast<std::uint32_t>(resource<Pixel>(list, XmNforeground))), 40);
}

TEST_F(Lists, ShowAllTheirEntries) {
    for (INT count : {1, 2, 10}) {
        const Widget list = list_of(0, count);
        EXPECT_EQ(resource<int>(list, XmNvisibleItemCount), count);
        Position x = 0, y = 0;
        Dimension width = 0, height = 0;
        EXPECT_TRUE(XmListPosToBounds(list, 1, &x, &y, &width, &height)) << count;
        EXPECT_TRUE(XmListPosToBounds(list, count, &x, &y, &width, &height)) << count;
        EXPECT_LE(y + height, extent_of(list).height) << count;
        XtDestroyWidget(XtParent(list));
        drain();
    }
}

TEST_F(Lists, PolicyIsTheAttributes) {
    for (INT attribut : {0, 2, 16, 64, ~multiple}) {
        EXPECT_EQ(resource<unsigned char>(list_of(0, 2, attribut), XmNselectionPolicy), XmSINGLE_SELECT) << attribut;
    }
    for (INT attribut : {32, 32 + 2, 32 + 64, -1}) {
        EXPECT_EQ(resource<unsigned char>(list_of(1, 2, attribut), XmNselectionPolicy), XmMULTIPLE_SELECT) << attribut;
    }
}

TEST_F(Lists, AreWhereTheRecordSays) {
    const Point none = place_of_none();
    for (const auto& [x, y] :
        {std::pair{60, 70}, std::pair{0, 0}, std::pair{60, -1}, std::pair{-1, 70}, std::pair{-1, -1}}) {
        const Widget list = list_of(0, 3, 0, x, y);
        const Widget outer = XtParent(list);
        EXPECT_EQ(resource<Position>(outer, XmNx), x < 0 ? none.x : x) << x << "," << y;
        EXPECT_EQ(resource<Position>(outer, XmNy), y < 0 ? none.y : y) << x << "," << y;
        EXPECT_LT(extent_of(outer).width, 300);
        XtDestroyWidget(outer);
        drain();
    }
}

TEST_F(Lists, AClickTellsSlotAndPosition) {
    for (INT slot : {0, 4, 9}) {
        const Widget list = list_of(slot);
        for (INT position : {1, 4, 2}) {
            const auto chosen = click(list, position);
            ASSERT_TRUE(chosen) << events.describe();
            EXPECT_TRUE(same_record(list_record(slot, position, 0), *chosen)) << slot << " " << position;
            EXPECT_EQ(chosen->element_clique.nofen, ~slot);
            EXPECT_EQ(read(slot, list), positions({position}));
        }
        XtDestroyWidget(XtParent(list));
        drain();
    }
}

TEST_F(Lists, ADoubleClickTellsBoth) {
    XtSetMultiClickTime(x11_disp, 5000);
    const Widget list = list_of(2);
    over(list, 3);
    forget();
    pointer().double_click();
    const auto first = events.wait(GRX_EVT_ELEMENT_CLIQUE), second = events.wait(GRX_EVT_ELEMENT_CLIQUE);
    ASSERT_TRUE(first && second) << events.describe();
    EXPECT_TRUE(same_record(list_record(2, 3, 0), *first));
    EXPECT_TRUE(same_record(list_record(2, 3, 1), *second));
    drain();
    EXPECT_EQ(events.count(GRX_EVT_ELEMENT_CLIQUE), 2) << events.describe();
    EXPECT_EQ(read(2, list), positions({3}));
}

TEST_F(Lists, ReturnIsADoubleClick) {
    const Widget list = list_of(1);
    pointer().move_in(list, 5, 5);
    ASSERT_TRUE(click(list, 2));
    ASSERT_TRUE(XmProcessTraversal(list, XmTRAVERSE_CURRENT));
    drain();
    forget();
    keyboard().key(XK_Return);
    const auto chosen = events.wait(GRX_EVT_ELEMENT_CLIQUE);
    ASSERT_TRUE(chosen) << events.describe();
    EXPECT_EQ(chosen->element_clique.nofen, -2);
    EXPECT_EQ(chosen->element_clique.nobou, 2);
    EXPECT_EQ(chosen->element_clique.double_click, 1);
}

TEST_F(Lists, TheSelectionFollowsTheClicks) {
    const Widget list = list_of(0);
    EXPECT_EQ(read(0, list), positions({}));
    click(list, 3);
    EXPECT_EQ(read(0, list), positions({3}));
    click(list, 1);
    EXPECT_EQ(read(0, list), positions({1}));
}

TEST_F(Lists, AClickOnTheSelectedEntryDeselectsIt) {
    const Widget list = list_of(5);
    click(list, 3);
    const auto again = click(list, 3);
    ASSERT_TRUE(again);
    EXPECT_TRUE(same_record(list_record(5, 3, 0), *again));
    EXPECT_EQ(read(5, list), positions({}));
}

// KEEP: what was selected last is remembered, whatever the program or the toolkit did since.
TEST_F(Lists, TheLastPositionOutlivesItsDeselection) {
    const Widget list = list_of(0);
    click(list, 3);
    click(list, 3);
    XmListSelectPos(list, 1, False);
    EXPECT_EQ(read(0, list), positions({3}));
    click(list, 2);
    XmListSelectPos(list, 4, False);
    EXPECT_EQ(read(0, list), positions({2}));
}

TEST_F(Lists, ADeselectionIsRememberedAsAPosition) {
    const Widget list = list_of(0);
    click(list, 3);
    XmListSelectPos(list, 1, False);
    const auto chosen = click(list, 1);
    ASSERT_TRUE(chosen);
    EXPECT_TRUE(same_record(list_record(0, 1, 0), *chosen));
    EXPECT_EQ(read(0, list), positions({}));
    XmListSelectPos(list, 2, False);
    EXPECT_EQ(read(0, list), positions({1}));
}

TEST_F(Lists, WhatTheProgramSelectedFirstReadsAsNothing) {
    const Widget list = list_of(0);
    XmListSelectPos(list, 2, False);
    EXPECT_EQ(read(0, list), positions({0}));
}

TEST_F(Lists, ADoubleClickAloneRemembersNothing) {
    const Widget list = list_of(0);
    XmListCallbackStruct call{};
    call.reason = XmCR_DEFAULT_ACTION;
    call.item_position = 4;
    XtCallCallbacks(list, XmNdefaultActionCallback, &call);
    EXPECT_EQ(evt_global.element_clique.nobou, 4);
    XmListSelectPos(list, 2, False);
    EXPECT_EQ(read(0, list), positions({0}));
}

TEST_F(Lists, SeveralAreSelectedWhereAsked) {
    const Widget list = list_of(7, 5, multiple);
    struct Step {
        INT position;
        std::vector<INT> selected;
    };
    for (const Step& step :
        {Step{4, {4}}, Step{2, {2, 4}}, Step{5, {2, 4, 5}}, Step{1, {1, 2, 4, 5}}, Step{3, {1, 2, 3, 4, 5}},
            Step{2, {1, 3, 4, 5}}, Step{5, {1, 3, 4}}, Step{1, {3, 4}}, Step{4, {3}}, Step{3, {}}}) {
        const auto chosen = click(list, step.position);
        ASSERT_TRUE(chosen) << events.describe();
        EXPECT_TRUE(same_record(list_record(7, step.position, 0), *chosen)) << step.position;
        EXPECT_EQ(read(7, list), step.selected) << step.position;
    }
}

TEST_F(Lists, ADoubleClickAmongSeveralTellsBoth) {
    XtSetMultiClickTime(x11_disp, 5000);
    const Widget list = list_of(9, 4, multiple);
    over(list, 2);
    forget();
    pointer().double_click();
    const auto first = events.wait(GRX_EVT_ELEMENT_CLIQUE), second = events.wait(GRX_EVT_ELEMENT_CLIQUE);
    ASSERT_TRUE(first && second) << events.describe();
    EXPECT_TRUE(same_record(list_record(9, 2, 0), *first));
    EXPECT_TRUE(same_record(list_record(9, 2, 1), *second));
}

TEST_F(Lists, TenSlotsAreIndependent) {
    std::array<Widget, GRX_NB_LISTES> lists{};
    for (INT slot = 0; slot < GRX_NB_LISTES; ++slot)
        lists[static_cast<std::size_t>(slot)] =
            list_of(slot, 3, slot % 2 ? multiple : 0, 5 + 78 * (slot % 5), 5 + 120 * (slot / 5));
    for (INT slot = 0; slot < GRX_NB_LISTES; ++slot) {
        const auto chosen = click(lists[static_cast<std::size_t>(slot)], 1 + slot % 3);
        ASSERT_TRUE(chosen) << slot << ": " << events.describe();
        EXPECT_TRUE(same_record(list_record(slot, 1 + slot % 3, 0), *chosen)) << slot;
    }
    for (INT slot = 0; slot < GRX_NB_LISTES; ++slot)
        EXPECT_EQ(read(slot, lists[static_cast<std::size_t>(slot)]), positions({1 + slot % 3})) << slot;
}

TEST_F(Lists, OtherSlotsAreRefused) {
    const NoLeak no_leak;
    const auto before = children();
    for (INT slot : {10, 11, -1, -2, 1000, INT_MIN, INT_MAX}) {
        GRX_MSG message = described_list(slot, 3);
        EXPECT_EQ(grx_cree_liste(&message), nullptr) << slot;
        INT count = untouched, tab = untouched;
        EXPECT_EQ(grx_lit_liste(slot, nullptr, &count, &tab), 0);
        EXPECT_EQ(tab, untouched);
        EXPECT_EQ(grx_detruit_liste(slot, nullptr), 0);
    }
    EXPECT_EQ(children(), before);
}

TEST_F(Lists, InAnUnknownWindowAreRefused) {
    const NoLeak no_leak;
    for (INT unknown : {-1, 0, 2, 99, 100, INT_MIN, INT_MAX}) {
        GRX_MSG message = described_list(0, 3);
        message.fen_mere = unknown;
        EXPECT_EQ(grx_cree_liste(&message), nullptr) << unknown;
    }
}

TEST_F(Lists, TheRecordIsLeftAlone) {
    GRX_MSG message = described_list(2, 4);
    GRX_MSG before;
    std::memcpy(static_cast<void*>(&before), &message, sizeof before);
    list_of(message);
    EXPECT_EQ(std::memcmp(&before, &message, sizeof before), 0);
}

TEST_F(Lists, TheTextsAreCopied) {
    const Widget list = list_of(0, 3);
    texts_[1] = "autre";
    EXPECT_TRUE(click(list, 2));
    auto* items = resource<XmStringTable>(list, XmNitems);
    char* text = nullptr;
    ASSERT_TRUE(XmStringGetLtoR(items[1], const_cast<char*>("tag1"), &text));
    EXPECT_EQ(std::string(text), "Choix 2");
    XtFree(text);
}

TEST_F(Lists, ASlotIsUsedAgain) {
    Widget list = list_of(0, 8, multiple);
    click(list, 8);
    XtDestroyWidget(XtParent(list));
    list = list_of(0, 2);
    const std::size_t blocks = heap().blocks(), bytes = heap().bytes();
    for (INT count : {1, 8, 3, 2}) {
        XtDestroyWidget(XtParent(list));
        drain();
        list = list_of(0, count);
        EXPECT_EQ(read(0, list), positions({})) << "nothing is left of the one before";
        const auto chosen = click(list, count);
        ASSERT_TRUE(chosen);
        EXPECT_TRUE(same_record(list_record(0, count, 0), *chosen));
    }
    EXPECT_EQ(heap().bytes(), bytes);
    EXPECT_EQ(heap().blocks(), blocks);
}

TEST_F(Lists, AListWhoseSlotWentToAnotherIsToldNoMore) {
    const Widget before = list_of(0, 3, 0, 10, 10);
    click(before, 2);
    const Widget after = list_of(0, 3, 0, 150, 10);
    over(before, 1);
    forget();
    pointer().click(1);
    drain();
    EXPECT_EQ(events.count(GRX_EVT_ELEMENT_CLIQUE), 0) << events.describe();
    EXPECT_EQ(read(0, before), positions({}));
    const auto chosen = click(after, 3);
    ASSERT_TRUE(chosen);
    EXPECT_TRUE(same_record(list_record(0, 3, 0), *chosen));
    XtDestroyWidget(XtParent(before));
    drain();
    EXPECT_EQ(read(0, after), positions({3})) << "the death of the other changes nothing";
}

TEST_F(Lists, DestructionFreesTheSelectionAndLeavesTheList) {
    const Widget list = list_of(6);
    const std::size_t blocks = heap().blocks();
    click(list, 2);
    EXPECT_EQ(grx_detruit_liste(6, list), 0);
    EXPECT_EQ(heap().blocks(), blocks - 1);
    drain();
    EXPECT_TRUE(visible(XtWindow(list)));
    EXPECT_EQ(grx_detruit_liste(6, list), 0) << "a second time";
    EXPECT_EQ(heap().blocks(), blocks - 1);
}

TEST_F(Lists, AfterDestructionAClickIsToldAndNothingIsRemembered) {
    for (INT attribut : {0, multiple}) {
        const Widget list = list_of(6, 4, attribut);
        grx_detruit_liste(6, list);
        const auto chosen = click(list, 3);
        ASSERT_TRUE(chosen);
        EXPECT_TRUE(same_record(list_record(6, 3, 0), *chosen));
        INT count = untouched, tab = untouched;
        EXPECT_EQ(grx_lit_liste(6, list, &count, &tab), 0);
        EXPECT_EQ(count, 1);
        EXPECT_EQ(tab, untouched);
        XtDestroyWidget(XtParent(list));
        drain();
    }
}

TEST_F(Lists, GrowingBehindTheLibrarysBackIsSurvived) {
    const Widget list = list_of(0, 2, multiple);
    for (int i = 0; i < 6; ++i) XmListAddItemUnselected(list, resource<XmStringTable>(list, XmNitems)[0], 0);
    drain();
    XmListSelectPos(list, 1, False);
    XmListSelectPos(list, 3, False);
    XmListSelectPos(list, 4, False);
    click(list, 2);
    std::array<INT, 8> tab{};
    tab.fill(untouched);
    INT count = untouched;
    grx_lit_liste(0, list, &count, tab.data());
    EXPECT_EQ(count, 4);
    EXPECT_EQ(tab[0], 1);
    EXPECT_EQ(tab[1], 2);
    for (std::size_t i = 4; i < tab.size(); ++i) EXPECT_EQ(tab[i], untouched) << i;
    EXPECT_EQ(heap().damage(), "");
    EXPECT_EQ(grx_detruit_liste(0, list), 0) << "with the size it was allocated with";
}

TEST_F(Lists, ReadingWithNowhereToPutIt) {
    const Widget list = list_of(0);
    click(list, 3);
    INT count = untouched, tab = untouched;
    EXPECT_EQ(grx_lit_liste(0, list, nullptr, &tab), 0);
    EXPECT_EQ(grx_lit_liste(0, list, &count, nullptr), 0);
    EXPECT_EQ(count, 1);
    EXPECT_EQ(grx_lit_liste(0, nullptr, &count, &tab), 0);
    EXPECT_EQ(grx_lit_liste(0, widget_of(window), &count, &tab), 0) << "no list";
}

TEST_F(Lists, DieWithTheirWindow) {
    std::size_t settled = 0;
    for (int i = 0; i < 3; ++i) { // the first rounds fill what the library keeps
        window = shown();
        const Widget list = list_of(4);
        click(list, 2);
        grx_detruit_fenetre(window);
        drain();
        INT count = untouched, tab = untouched;
        EXPECT_EQ(grx_lit_liste(4, list, &count, &tab), 0);
        EXPECT_EQ(tab, untouched) << "the list is gone";
        EXPECT_EQ(grx_detruit_liste(4, list), 0);
        EXPECT_EQ(grx_detruit_liste(4, list), 0);
        if (i == 1) settled = heap().blocks();
    }
    EXPECT_EQ(heap().blocks(), settled);
}

TEST_F(Lists, WithoutEntries) {
    for (INT attribut : {0, multiple}) {
        const Widget list = list_of(0, 0, attribut);
        ASSERT_NE(list, nullptr);
        EXPECT_EQ(resource<int>(list, XmNitemCount), 0);
        EXPECT_EQ(read(0, list), positions({}));
        EXPECT_EQ(grx_detruit_liste(0, list), 0);
        XtDestroyWidget(XtParent(list));
        drain();
    }
}

TEST_F(Lists, ANegativeCountHasNoEntries) {
    for (INT count : {-1, -1000, INT_MIN}) {
        GRX_MSG message = described_list(0, count);
        const Widget list = grx_cree_liste(&message);
        drain();
        if (!list) continue;
        EXPECT_EQ(resource<int>(list, XmNitemCount), 0);
        EXPECT_EQ(read(0, list), positions({}));
        XtDestroyWidget(XtParent(list));
        drain();
    }
}

TEST_F(Lists, MissingTextsAreEmpty) {
    pointers_[1] = nullptr;
    const Widget list = list_of(0, 3);
    EXPECT_EQ(resource<int>(list, XmNitemCount), 3);
    const auto chosen = click(list, 3);
    ASSERT_TRUE(chosen);
    EXPECT_EQ(chosen->element_clique.nobou, 3);
    GRX_MSG message = described_list(1, 3);
    message.choix = nullptr;
    grx_cree_liste(&message);
    drain();
}

TEST_F(Lists, TooManyEntriesAreRefused) {
    const NoLeak no_leak;
    const auto before = children();
    GRX_MSG message = described_list(0, INT_MAX);
    message.choix = nullptr;
    EXPECT_EQ(grx_cree_liste(&message), nullptr);
    EXPECT_EQ(children(), before);
}

TEST_F(Lists, EachFailingAllocationIsSurvived) {
    const auto before = children();
    int refused = 0;
    for (INT attribut : {0, multiple}) {
        const int failures = fail_each_allocation([&] {
            GRX_MSG message = described_list(3, 6, attribut);
            const std::size_t blocks = heap().blocks();
            const Widget list = grx_cree_liste(&message);
            if (!list) {
                ++refused;
                EXPECT_EQ(heap().blocks(), blocks) << "nothing is kept of a list that was refused";
                EXPECT_EQ(children(), before);
                EXPECT_EQ(grx_detruit_liste(3, nullptr), 0);
                return;
            }
            grx_detruit_liste(3, list);
            XtDestroyWidget(XtParent(list));
            drain();
        });
        EXPECT_GE(failures, 2);
    }
    EXPECT_GE(refused, 4) << "of the table of texts, and of the selection";
}

TEST_F(Lists, AHundredLeaveTheServerAsItWas) {
    const auto round = [&] {
        const Widget list = list_of(3, 6, multiple);
        grx_detruit_liste(3, list);
        XtDestroyWidget(XtParent(list));
        drain();
    };
    for (int i = 0; i < 3; ++i) round();
    const auto before = resources();
    for (int i = 0; i < 100; ++i) round();
    EXPECT_EQ(resources(), before);
}

} // namespace
