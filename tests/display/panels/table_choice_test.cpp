// The choice above the application's tables: what is made, shown and chosen.
#include "tests/display/panels/table_choice_kit.h"
#include "tests/support/fake_visual.h"

#include <X11/IntrinsicP.h>

#include <optional>

namespace {

using namespace grxtest;

// --- creation -----------------------------------------------------------------------------------------------------

TEST_F(TableChoices, FillTheTable) {
    EXPECT_EQ(create(three), 0);
    EXPECT_EQ(table().nb_choix, 3);
    ASSERT_NE(table().tbou_choix, nullptr);
    EXPECT_EQ(numbers(), (std::vector<INT>{0, 1, 2}));
}

TEST_F(TableChoices, TouchNothingElseOfIt) {
    std::memset(static_cast<void*>(&table()), 0x5A, sizeof table());
    table().nb_choix = 0;
    table().tbou_choix = nullptr;
    TBL_TABLEUR_AFF before;
    std::memcpy(static_cast<void*>(&before), &table(), sizeof before);
    create(three);
    before.nb_choix = 3;
    before.tbou_choix = table().tbou_choix;
    EXPECT_EQ(std::memcmp(static_cast<void*>(&before), &table(), sizeof before), 0);
    grx_tbl_detruit_boutons_choix();
    before.nb_choix = 0;
    before.tbou_choix = table().tbou_choix;
    EXPECT_EQ(std::memcmp(static_cast<void*>(&before), &table(), sizeof before), 0);
    std::memset(static_cast<void*>(&table()), 0, sizeof table());
}

TEST_F(TableChoices, KeysTypedAfterAChoiceAreTheWindows) {
    create(three);
    settle();
    for (int round = 0; round < 3; ++round) {
        ASSERT_NO_FATAL_FAILURE(choose(1));
        ASSERT_TRUE(events.wait(GRX_EVT_EXEC_FONCTION)) << events.describe();
        ASSERT_TRUE(wait_for([&] { return !visible(XtWindow(control(numbers()[1]))); }));
        pointer().move_in(widget_of(window), 300, 200);
        settle();
        keyboard().key(XK_Escape);
        drain();
        ASSERT_EQ(events.types(), (std::vector<INT>{GRX_EVT_CARAC_APPUI})) << events.describe();
        const GRX_DIGIT& key = events.seen().back().carac_appui;
        EXPECT_EQ(key.nofen, window);
        EXPECT_EQ(key.nobou, -1);
        EXPECT_EQ(key.carac, 27);
        EXPECT_EQ(key.x, 300);
        EXPECT_EQ(key.y, 200);
        settle();
    }
}

TEST_F(TableChoices, AreButtonsOfThePulldown) {
    create(three);
    const Widget pulldown = resource<Widget>(option(), XmNsubMenuId);
    ASSERT_NE(pulldown, nullptr);
    EXPECT_EQ(std::string(XtName(pulldown)), "PullMenu");
    EXPECT_EQ(resource<unsigned char>(pulldown, XmNrowColumnType), XmMENU_PULLDOWN);
    EXPECT_EQ(XtParent(XtParent(pulldown)), widget_of(window));
    EXPECT_EQ(resource<int>(XtParent(pulldown), XmNdepth), grx_recup_profondeur_ecran());
    for (std::size_t i = 0; i < 3; ++i) {
        const INT n = numbers()[i];
        EXPECT_TRUE(is_a(control(n), xmPushButtonWidgetClass));
        EXPECT_EQ(XtParent(control(n)), pulldown);
        EXPECT_EQ(label_of(control(n)), three.texts[i]);
        EXPECT_TRUE(XtIsSensitive(control(n)));
        EXPECT_TRUE(XtIsManaged(control(n)));
        EXPECT_EQ(button_record(n).type, 512);
        EXPECT_EQ(button_record(n).no_fo, choice_function);
        EXPECT_EQ(button_record(n).valeur, static_cast<INT>(i) + 1);
        EXPECT_EQ(button_record(n).nofen, -1) << "the parent was given as a widget";
    }
    EXPECT_EQ(children_of(pulldown).size(), 3U);
}

TEST_F(TableChoices, AreAsHighAsACharacterLess4) {
    create(three);
    for (INT n : numbers()) EXPECT_EQ(extent_of(control(n)).height, grx_recup_hau_carac_alpha() - 4);
}

TEST_F(TableChoices, AreAllWideEnoughForTheLongest) {
    Texts shorter{{"un", "deux"}};
    create(shorter);
    const int narrow = extent_of(control(numbers()[0])).width;
    grx_tbl_detruit_boutons_choix();
    for (std::size_t longest : {0U, 1U, 2U}) {
        Texts texts{{"a", "b", "c"}};
        texts.texts[longest] = "la plus longue des trois";
        texts.pointers[longest] = texts.texts[longest].data();
        create(texts);
        const auto needed = XTextWidth(fontstruct, texts.pointers[longest], 24);
        for (INT n : numbers()) {
            EXPECT_GE(extent_of(control(n)).width, needed) << longest;
            EXPECT_LT(extent_of(control(n)).width, 2 * needed) << longest;
            EXPECT_EQ(extent_of(control(n)), extent_of(control(numbers()[0]))) << longest;
        }
        EXPECT_GE(extent_of(control(numbers()[0])).width - narrow, 19 * grx_recup_lar_carac_alpha()) << longest;
        grx_tbl_detruit_boutons_choix();
    }
}

TEST_F(TableChoices, AreShownInAnOptionMenu) {
    create(three, 2);
    const Widget menu = option();
    EXPECT_EQ(resource<unsigned char>(menu, XmNrowColumnType), XmMENU_OPTION);
    EXPECT_EQ(XtParent(menu), widget_of(window));
    EXPECT_TRUE(XtIsManaged(menu));
    ASSERT_TRUE(wait_visible(menu));
    EXPECT_EQ(text_resource(XmOptionLabelGadget(menu), XmNlabelString), "") << "no label";
    EXPECT_EQ(resource<Widget>(menu, XmNmenuHistory), control(numbers()[1]));
}

TEST_F(TableChoices, AreWhereTheyAreAskedToBe) {
    for (const Point& at : {Point{60, 70}, Point{6, 2}, Point{200, 150}}) {
        create(three, 1, at.x, at.y);
        EXPECT_EQ(resource<Position>(option(), XmNx), at.x - 6);
        EXPECT_EQ(resource<Position>(option(), XmNy), at.y - 2);
        ASSERT_TRUE(wait_visible(option()));
        const Point root = root_position(option()), origin = root_position(widget_of(window));
        EXPECT_EQ((Point{root.x - origin.x, root.y - origin.y}), (Point{at.x - 6, at.y - 2}));
        grx_tbl_detruit_boutons_choix();
        drain();
    }
}

TEST_F(TableChoices, TheirBoxStartsNearThePlace) {
    create(three, 1, 60, 70);
    ASSERT_TRUE(wait_visible(option()));
    const Widget box = XmOptionButtonGadget(option());
    // The margins taken off are fixed numbers, those of this toolkit are up to four pixels more.
    EXPECT_NEAR(resource<Position>(option(), XmNx) + resource<Position>(box, XmNx), 60, 4);
    EXPECT_NEAR(resource<Position>(option(), XmNy) + resource<Position>(box, XmNy), 70, 1);
}

TEST_F(TableChoices, ShowTheDefault) {
    for (INT by_default : {1, 2, 3}) {
        create(three, by_default);
        const auto i = static_cast<std::size_t>(by_default) - 1;
        EXPECT_EQ(resource<Widget>(option(), XmNmenuHistory), control(numbers()[i])) << by_default;
        EXPECT_EQ(shown_text(), three.texts[i]);
        grx_tbl_detruit_boutons_choix();
        drain();
    }
}

TEST_F(TableChoices, ShowTheFirstWhenTheDefaultIsNone) {
    for (INT by_default : {0, -1, 4, 5, 1000, INT_MIN, INT_MAX}) {
        create(three, by_default);
        EXPECT_EQ(shown_text(), three.texts[0]) << by_default;
        EXPECT_EQ(table().nb_choix, 3);
        grx_tbl_detruit_boutons_choix();
        drain();
    }
}

TEST_F(TableChoices, ADefaultChosenIsDrawn) {
    create(three, 2);
    ASSERT_TRUE(wait_visible(option()));
    drain();
    const Pixels second = grab(x11_disp, XtWindow(option()));
    grx_tbl_change_boutons_choix(window, 60, 70, choice_function, 3, three.pointers.data(), 1);
    ASSERT_TRUE(wait_visible(option()));
    drain();
    EXPECT_GT(differences(second, grab(x11_disp, XtWindow(option()))), 10);
}

TEST_F(TableChoices, OfEachTableAreTheirOwn) {
    for (Itbl = 0; Itbl < GRX_NB_TABLES; ++Itbl) {
        Texts texts{{"table " + std::to_string(Itbl), "autre"}};
        EXPECT_EQ(create(texts, 1, 10, 5 + 28 * Itbl), 0);
    }
    EXPECT_EQ(option_menus().size(), 10U);
    for (Itbl = 0; Itbl < GRX_NB_TABLES; ++Itbl) {
        EXPECT_EQ(table().nb_choix, 2) << Itbl;
        EXPECT_EQ(numbers(), (std::vector<INT>{2 * Itbl, 2 * Itbl + 1}));
        EXPECT_EQ(label_of(control(2 * Itbl)), "table " + std::to_string(Itbl));
    }
    for (INT gone : {4, 0, 9, 5}) {
        Itbl = gone;
        EXPECT_EQ(grx_tbl_detruit_boutons_choix(), 0);
        EXPECT_EQ(table().nb_choix, 0);
        EXPECT_EQ(control(2 * gone), nullptr);
        EXPECT_EQ(Taffiche[3].nb_choix, 2);
    }
    drain();
    EXPECT_EQ(option_menus().size(), 6U);
    for (Itbl = 0; Itbl < GRX_NB_TABLES; ++Itbl) grx_tbl_detruit_boutons_choix();
    Itbl = 3;
    expect_none();
}

// --- choosing -----------------------------------------------------------------------------------------------------

TEST_F(TableChoices, AreChosenWithThePointer) {
    create(three);
    ASSERT_TRUE(wait_visible(option()));
    for (std::size_t i : {2U, 0U, 1U}) {
        choose(i);
        const auto done = events.wait(GRX_EVT_EXEC_FONCTION);
        ASSERT_TRUE(done) << events.describe();
        GRX_EVENEMENT expected = chosen_record(numbers()[i], static_cast<INT>(i) + 1);
        // The release comes in the same turn and leaves its traces behind the value.
        std::memcpy(expected.exec_fonction.chaine, done->exec_fonction.chaine, sizeof expected.exec_fonction.chaine);
        EXPECT_TRUE(same_record(expected, *done)) << i;
        drain();
        EXPECT_EQ(events.count(GRX_EVT_EXEC_FONCTION), 1) << events.describe();
        EXPECT_EQ(shown_text(), three.texts[i]);
        EXPECT_EQ(resource<Widget>(option(), XmNmenuHistory), control(numbers()[i]));
    }
}

TEST_F(TableChoices, AChoiceOfOneTableIsNotTheOthers) {
    create(three);
    Itbl = 4;
    Texts others{{"Autre", "Encore"}};
    grx_tbl_cree_boutons_choix(window, 60, 170, 999, 2, others.pointers.data(), 1);
    Itbl = 3;
    const Widget first = option_menus().at(0);
    grx_tbl_detruit_boutons_choix();
    drain();
    ASSERT_EQ(option_menus().size(), 1U);
    EXPECT_NE(option(), first);
    Itbl = 4;
    choose(1);
    const auto done = events.wait(GRX_EVT_EXEC_FONCTION);
    ASSERT_TRUE(done) << events.describe();
    EXPECT_EQ(done->exec_fonction.no_fo, 999);
    EXPECT_EQ(done->exec_fonction.valeur, 2);
    drain();
    grx_tbl_detruit_boutons_choix();
}

// --- colours and visuals ------------------------------------------------------------------------------------------

class TableChoiceColour : public TableChoices {
  protected:
    // Option menu and pulldown, drawn and as they say.
    void expect_background(Pixel pixel) {
        create(three);
        ASSERT_TRUE(wait_visible(option()));
        drain();
        EXPECT_EQ(resource<Pixel>(option(), XmNbackground), pixel);
        EXPECT_EQ(resource<int>(option(), XmNdepth), grx_recup_profondeur_ecran());
        EXPECT_GT(grab(x11_disp, XtWindow(option())).count(static_cast<std::uint32_t>(pixel)), 100);
        for (INT n : numbers()) EXPECT_EQ(resource<Pixel>(control(n), XmNbackground), pixel);
        grx_tbl_detruit_boutons_choix();
        drain();
    }
};

TEST_F(TableChoiceColour, IsTheApplications) {
    for (INT colour : {6, 3}) {
        grx_affecte_couleur_application(colour);
        expect_background(pixel_of(colour));
    }
}

TEST_F(TableChoiceColour, IsTheToolkitsWhenNoneIsSet) {
    grx_affecte_couleur_application(0);
    const Widget plain = XmCreateRowColumn(widget_of(window), const_cast<char*>("plain"), nullptr, 0);
    expect_background(resource<Pixel>(plain, XmNbackground));
    XtDestroyWidget(plain);
}

class TableChoiceColourOn24 : public TableChoiceColour {};

TEST_F(TableChoiceColourOn24, MayBeAPixel) {
    grx_affecte_couleur_application(12632256);
    expect_background(12632256);
}

class TableChoiceVisualOn24 : public TableChoices {
  protected:
    void before_start() override {
        TableChoices::before_start();
        visual.emplace(FakeVisual::Kind::alt32);
    }

    void expect_visual(Widget widget) { expect_chosen_visual(test_display(), widget); }

    std::optional<FakeVisual> visual;
};

TEST_F(TableChoiceVisualOn24, OptionMenuAndPulldownHaveIt) {
    for (INT colour : {0, 6}) {
        grx_affecte_couleur_application(colour);
        create(three);
        ASSERT_TRUE(wait_visible(option()));
        const Widget pulldown = resource<Widget>(option(), XmNsubMenuId);
        choose(1);
        ASSERT_TRUE(events.wait(GRX_EVT_EXEC_FONCTION)) << events.describe();
        for (Widget widget : {option(), pulldown, XtParent(pulldown), control(numbers()[0])}) expect_visual(widget);
        EXPECT_EQ(x_error_count(x11_disp), 0) << last_x_error();
        grx_tbl_detruit_boutons_choix();
        settle();
    }
}

} // namespace
