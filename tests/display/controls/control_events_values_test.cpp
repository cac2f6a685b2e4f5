// What lists and scales post.
#include "tests/display/controls/control_events_kit.h"

#include <algorithm>
#include <cstddef>

namespace {

using namespace grxtest;

constexpr std::size_t up_to_value = offsetof(GRX_EXEC_FONCTION, chaine);

// --- lists --------------------------------------------------------------------------------------------------------

class ListEvents : public ControlEvents {
  protected:
    void SetUp() override {
        ControlEvents::SetUp();
        if (HasFatalFailure()) return;
        make_list();
    }

    void make_list() {
        list = made(GRX_BOU_LISTE);
        for (const char* text : {"trois", "deux", "un"}) grx_ajoute_element_dans_liste(list, writable(text));
        drain();
    }

    // The middle of an item, counted from 1.
    Point place_of(int position) {
        Position x = 0, y = 0;
        Dimension width = 0, height = 0;
        EXPECT_TRUE(XmListPosToBounds(control(list), position, &x, &y, &width, &height));
        return {x + width / 2, y + height / 2};
    }

    void over_item(int position) {
        const Point at = place_of(position);
        over(list, at.x, at.y);
    }

    GRX_EVENEMENT expected(INT twice, const char* text) {
        GRX_EVENEMENT record = old_record();
        GRX_ELEMENT_CLIQUE& element = record.element_clique;
        element.type_evenement = 32;
        element.nofen = window;
        element.nobou = list;
        element.no_fo = -1;
        element.double_click = twice;
        std::strcpy(element.chaine, text);
        return record;
    }

    static std::size_t head(const char* text) { return offsetof(GRX_ELEMENT_CLIQUE, chaine) + std::strlen(text) + 1; }

    INT list = -1;
};

TEST_F(ListEvents, AClickChoosesAnItem) {
    XtSetMultiClickTime(x11_disp, 0); // or two quick clicks on different items are a double click, too
    grx_detruit_bouton(list);
    make_list();
    for (const auto& [position, text] : {std::pair{1, "un"}, std::pair{3, "trois"}, std::pair{2, "deux"}}) {
        over_item(position);
        forget();
        pointer().click(1);
        const auto chosen = next(GRX_EVT_ELEMENT_CLIQUE);
        ASSERT_TRUE(chosen) << events.describe();
        EXPECT_TRUE(same_head(expected(0, text), *chosen, head(text))) << text;
        drain();
        EXPECT_EQ(events.count(GRX_EVT_ELEMENT_CLIQUE), 1) << events.describe();
    }
}

TEST_F(ListEvents, AnItemOfSeveralLinesKeepsThem) {
    grx_ajoute_element_dans_liste(list, writable("ligne\nsuite"));
    drain();
    over_item(1);
    forget();
    pointer().click(1);
    const auto chosen = next(GRX_EVT_ELEMENT_CLIQUE);
    ASSERT_TRUE(chosen) << events.describe();
    EXPECT_STREQ(chosen->element_clique.chaine, "ligne\nsuite");
}

TEST_F(ListEvents, ADoubleClickIsADoubleClick) {
    over_item(2);
    forget();
    pointer().double_click();
    drain();
    const auto first = next(GRX_EVT_ELEMENT_CLIQUE), second = next(GRX_EVT_ELEMENT_CLIQUE);
    ASSERT_TRUE(first && second) << events.describe();
    EXPECT_TRUE(same_head(expected(0, "deux"), *first, head("deux")));
    EXPECT_TRUE(same_head(expected(1, "deux"), *second, head("deux")));
    EXPECT_EQ(events.count(GRX_EVT_ELEMENT_CLIQUE), 2) << events.describe();
}

TEST_F(ListEvents, ReturnIsADoubleClick) {
    focus(list);
    XmListSetKbdItemPos(control(list), 1);
    keyboard().key(XK_Down);
    ASSERT_TRUE(next(GRX_EVT_ELEMENT_CLIQUE)) << events.describe();
    forget();
    keyboard().key(XK_Return);
    const auto chosen = next(GRX_EVT_ELEMENT_CLIQUE);
    ASSERT_TRUE(chosen) << events.describe();
    EXPECT_EQ(chosen->element_clique.double_click, 1);
    EXPECT_EQ(chosen->element_clique.no_fo, -1);
    EXPECT_EQ(chosen->element_clique.nobou, list);
    EXPECT_EQ(std::string(chosen->element_clique.chaine), "deux");
}

TEST_F(ListEvents, ArrowsBrowse) {
    focus(list);
    XmListSetKbdItemPos(control(list), 1);
    forget();
    keyboard().key(XK_Down);
    const auto chosen = next(GRX_EVT_ELEMENT_CLIQUE);
    ASSERT_TRUE(chosen) << events.describe();
    EXPECT_EQ(chosen->element_clique.double_click, 0);
    EXPECT_EQ(std::string(chosen->element_clique.chaine), "deux");
}

TEST_F(ListEvents, LongItemsAreCut) {
    for (std::size_t length : {255U, 256U, 4000U}) {
        const std::string text(length, 'i');
        grx_ajoute_element_dans_liste(list, writable(text.c_str()));
        drain();
        const Point at = place_of(1);
        over(list, 10, at.y);
        forget();
        pointer().click(1);
        const auto chosen = next(GRX_EVT_ELEMENT_CLIQUE);
        ASSERT_TRUE(chosen);
        EXPECT_EQ(std::string(chosen->element_clique.chaine), text.substr(0, GRX_EVT_CHAINE_MAX - 1)) << length;
    }
}

TEST_F(ListEvents, AClickBelowTheItemsIsAPressOrTheLastItem) {
    over(list, 10, 75);
    forget();
    pointer().click(1);
    drain();
    for (const GRX_EVENEMENT& e : events.seen())
        if (e.type_evenement == 32) {
            EXPECT_EQ(std::string(e.element_clique.chaine), "trois");
        }
    EXPECT_GT(events.count(GRX_EVT_BOUTON_APPUI) + events.count(GRX_EVT_ELEMENT_CLIQUE), 0);
}

// KEEP: even a reason that is none of the two takes the function number away.
TEST_F(ListEvents, OtherReasonsOnlyTakeTheFunctionNumberAway) {
    XmListCallbackStruct call{};
    call.reason = XmCR_SINGLE_SELECT;
    evt_global = patterned_event();
    grx_element_liste_clique(control(list), &button_record(list), &call);
    GRX_EVENEMENT expected = patterned_event();
    expected.element_clique.no_fo = -1;
    EXPECT_TRUE(same_record(expected, evt_global));
}

TEST_F(ListEvents, AnItemWithoutATextIsSurvived) {
    XmListCallbackStruct call{};
    for (int reason : {XmCR_BROWSE_SELECT, XmCR_DEFAULT_ACTION}) {
        call.reason = reason;
        evt_global = patterned_event();
        grx_element_liste_clique(control(list), &button_record(list), &call);
        EXPECT_EQ(evt_global.element_clique.nobou, list);
        EXPECT_EQ(evt_global.element_clique.double_click, reason == XmCR_DEFAULT_ACTION ? 1 : 0);
        EXPECT_LT(strnlen(evt_global.element_clique.chaine, GRX_EVT_CHAINE_MAX), 1U);
    }
}

// --- scales -------------------------------------------------------------------------------------------------------

class ScaleEvents : public ControlEvents {
  protected:
    void SetUp() override {
        ControlEvents::SetUp();
        if (HasFatalFailure()) return;
        GRX_BOUTON description = a(GRX_BOU_ECHELLE, GRX_BOU_ATT_ECHELLE_HORIZ);
        description.largeur = 220;
        description.hauteur = 30;
        description.tabi[GRX_BOU_TABI_MAXI] = 100;
        description.tabi[GRX_BOU_TABI_INITIAL] = 50;
        scale = made(description);
        for (Widget child : children_of(control(scale)))
            if (is_a(child, xmScrollBarWidgetClass)) bar = child;
        ASSERT_NE(bar, nullptr);
    }

    INT value() { return resource<int>(control(scale), XmNvalue); }

    Point in_bar(int x) {
        const Point origin = root_position(bar);
        return {origin.x + x, origin.y + resource<Dimension>(bar, XmNheight) / 2};
    }

    INT scale = -1;
    Widget bar = nullptr;
};

TEST_F(ScaleEvents, DraggingPostsTheWayAndReleasingTheEnd) {
    const int middle = resource<Dimension>(bar, XmNwidth) / 2;
    pointer().move(in_bar(middle).x, in_bar(middle).y);
    forget();
    pointer().drag(in_bar(middle), in_bar(middle + 60), 1, 12, [&] { drain(); });
    drain();
    std::vector<INT> way;
    for (const GRX_EVENEMENT& e : events.seen()) {
        if (e.type_evenement != 64) continue;
        EXPECT_TRUE(same_head(value_record(64, window, scale, e.exec_fonction.valeur), e, up_to_value));
        way.push_back(e.exec_fonction.valeur);
    }
    ASSERT_GE(way.size(), 5U) << events.describe();
    EXPECT_TRUE(std::ranges::is_sorted(way));
    EXPECT_GT(way.back(), way.front());
    const auto done = next(GRX_EVT_EXEC_FONCTION);
    ASSERT_TRUE(done) << events.describe();
    EXPECT_EQ(events.count(GRX_EVT_EXEC_FONCTION), 1);
    EXPECT_EQ(done->exec_fonction.valeur, value());
    EXPECT_EQ(done->exec_fonction.valeur, way.back());
    EXPECT_EQ(done->exec_fonction.nobou, scale);
    EXPECT_EQ(done->exec_fonction.no_fo, function_number);
    EXPECT_EQ(done->exec_fonction.nofen, window);
    const auto types = events.types();
    EXPECT_LT(std::ranges::find(types, 64), std::ranges::find(types, 6)) << "the end comes last";
    EXPECT_GT(value(), 60);
}

TEST_F(ControlEvents, AVerticalScaleGrowsDownwards) {
    GRX_BOUTON description = a(GRX_BOU_ECHELLE);
    description.largeur = 30;
    description.hauteur = 220;
    description.tabi[GRX_BOU_TABI_INITIAL] = 50;
    const INT n = made(description);
    const Point origin = root_position(control(n));
    const Extent size = extent_of(control(n));
    const Point from{origin.x + size.width / 2, origin.y + size.height / 2};
    pointer().drag(from, {from.x, from.y + 60}, 1, 8, [&] { drain(); });
    const auto done = next(GRX_EVT_EXEC_FONCTION);
    ASSERT_TRUE(done) << events.describe();
    EXPECT_GT(done->exec_fonction.valeur, 60);
    EXPECT_GE(events.count(GRX_EVT_ECHELLE), 3);
}

TEST_F(ScaleEvents, NeitherOfItsCallbacksWritesTheText) {
    const GRX_EVENEMENT before = patterned_event();
    XmScaleCallbackStruct call{};
    call.value = 77;
    evt_global = before;
    grx_echelle_bouge(control(scale), &button_record(scale), &call);
    GRX_EVENEMENT expected = before;
    expected.exec_fonction.type_evenement = 64;
    expected.exec_fonction.nofen = window;
    expected.exec_fonction.nobou = scale;
    expected.exec_fonction.no_fo = function_number;
    expected.exec_fonction.valeur = 77;
    EXPECT_TRUE(same_record(expected, evt_global));
    evt_global = before;
    grx_bouton_est_enfonce(control(scale), &button_record(scale), &call);
    expected.exec_fonction.type_evenement = 6;
    EXPECT_TRUE(same_record(expected, evt_global));
}

TEST_F(ScaleEvents, AClickInTheTroughIsAChange) {
    const Point at = in_bar(resource<Dimension>(bar, XmNwidth) - 8);
    pointer().move(at.x, at.y);
    forget();
    pointer().click(1);
    const auto done = next(GRX_EVT_EXEC_FONCTION);
    ASSERT_TRUE(done) << events.describe();
    EXPECT_GT(done->exec_fonction.valeur, 50);
    EXPECT_TRUE(same_head(value_record(6, window, scale, done->exec_fonction.valeur), *done, up_to_value));
    drain();
    EXPECT_EQ(events.count(GRX_EVT_ECHELLE), 0);
}

TEST_F(ScaleEvents, ArrowKeysChangeTheValue) {
    pointer().move(in_bar(4).x, in_bar(4).y);
    grx_force_focus_sur_bouton(scale);
    drain();
    forget();
    keyboard().key(XK_Right);
    const auto done = next(GRX_EVT_EXEC_FONCTION);
    ASSERT_TRUE(done) << events.describe();
    EXPECT_EQ(done->exec_fonction.valeur, 51);
    EXPECT_EQ(done->exec_fonction.nobou, scale);
}

} // namespace
