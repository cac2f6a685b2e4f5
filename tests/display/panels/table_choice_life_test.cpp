// Choices above the application's tables destroyed, replaced and forgotten, with texts of all sorts and short memory.
#include "tests/display/panels/table_choice_kit.h"
#include "tests/support/stdout_capture.h"

#include <X11/IntrinsicP.h>

#include <functional>

namespace {

using namespace grxtest;

// --- destruction and replacement ----------------------------------------------------------------------------------

TEST_F(TableChoices, AreDestroyedWhole) {
    const std::size_t blocks = heap().blocks(), bytes = heap().bytes();
    const Cardinal before = popups();
    create(three);
    ASSERT_TRUE(wait_visible(option()));
    EXPECT_EQ(grx_tbl_detruit_boutons_choix(), 0);
    expect_none();
    EXPECT_EQ(popups(), before) << "the pulldown is gone, too";
    EXPECT_EQ(heap().blocks(), blocks);
    EXPECT_EQ(heap().bytes(), bytes);
    for (INT n : {0, 1, 2}) EXPECT_EQ(control(n), nullptr);
    EXPECT_EQ(grx_tbl_detruit_boutons_choix(), 0) << "a second time";
    expect_none();
}

TEST_F(TableChoices, DestroyingNoneDoesNothing) {
    const NoLeak no_leak;
    const auto before = children_of(widget_of(window)).size();
    for (Itbl = 0; Itbl < GRX_NB_TABLES; ++Itbl) {
        table().nb_choix = 0;
        EXPECT_EQ(grx_tbl_detruit_boutons_choix(), 0);
    }
    EXPECT_EQ(children_of(widget_of(window)).size(), before);
}

TEST_F(TableChoices, AreReplaced) {
    create(three, 2);
    Texts others{{"Un", "Deux", "Trois", "Quatre"}};
    EXPECT_EQ(grx_tbl_change_boutons_choix(window, 80, 90, 33, 4, others.pointers.data(), 3), 0);
    drain();
    EXPECT_EQ(option_menus().size(), 1U);
    EXPECT_EQ(table().nb_choix, 4);
    EXPECT_EQ(numbers(), (std::vector<INT>{0, 1, 2, 3}));
    EXPECT_EQ(shown_text(), "Trois");
    EXPECT_EQ(resource<Position>(option(), XmNx), 74);
    EXPECT_EQ(resource<Position>(option(), XmNy), 88);
    for (INT n : numbers()) EXPECT_EQ(button_record(n).no_fo, 33);
    grx_tbl_detruit_boutons_choix();
    expect_none();
}

TEST_F(TableChoices, ReplacingNoneCreates) {
    EXPECT_EQ(grx_tbl_change_boutons_choix(window, 60, 70, 33, 3, three.pointers.data(), 2), 0);
    EXPECT_EQ(table().nb_choix, 3);
    EXPECT_EQ(shown_text(), three.texts[1]);
}

TEST_F(TableChoices, CreatingTwiceLeavesOne) {
    const NoLeak no_leak;
    create(three);
    Texts others{{"Un", "Deux"}};
    create(others);
    drain();
    EXPECT_EQ(option_menus().size(), 1U);
    EXPECT_EQ(numbers(), (std::vector<INT>{0, 1}));
    grx_tbl_detruit_boutons_choix();
    expect_none();
}

// What a callback of the application does, the widgets of which go only after it.
void rebuild(Widget, XtPointer action, XtPointer) {
    (*static_cast<std::function<void()>*>(action))();
}

TEST_F(TableChoices, AreRebuiltInsideACallback) {
    create(three);
    const INT trigger = placed(control_of(GRX_BOU_SIMPLE, 0, window));
    Texts others{{"Un", "Deux"}};
    std::function<void()> action = [&] {
        grx_tbl_detruit_boutons_choix();
        grx_tbl_detruit_boutons_choix();
        create(others, 2);
        grx_tbl_change_boutons_choix(window, 200, 90, choice_function, 2, others.pointers.data(), 2);
    };
    const std::size_t blocks = heap().blocks();
    XtAddCallback(control(trigger), XmNactivateCallback, rebuild, &action);
    pointer().click_in(control(trigger));
    ASSERT_TRUE(events.wait(GRX_EVT_EXEC_FONCTION)) << events.describe();
    drain();
    EXPECT_EQ(option_menus().size(), 1U);
    EXPECT_EQ(popups(), 1U);
    EXPECT_EQ(numbers().size(), 2U);
    EXPECT_EQ(shown_text(), "Deux");
    EXPECT_EQ(heap().blocks(), blocks);
    choose(0);
    const auto done =
        events.wait([&](const GRX_EVENEMENT& e) { return e.type_evenement == 6 && e.exec_fonction.nobou != trigger; });
    ASSERT_TRUE(done) << events.describe();
    EXPECT_EQ(done->exec_fonction.valeur, 1);
    grx_detruit_bouton(trigger);
}

TEST_F(TableChoices, AreForgotten) {
    for (const bool all : {false, true}) {
        create(three);
        const auto made = numbers();
        EXPECT_EQ(all ? grx_tbl_init_boutons_choix() : grx_tbl_init_bouton_choix(3), 0);
        EXPECT_EQ(grx_tbl_detruit_boutons_choix(), 0);
        drain();
        EXPECT_EQ(option_menus().size(), 1U) << "not destroyed, for the library knows it no more";
        for (INT n : made) EXPECT_NE(control(n), nullptr);
        for (INT n : made) grx_detruit_bouton(n);
        XtDestroyWidget(option());
        grx_free(reinterpret_cast<char*>(table().tbou_choix), static_cast<UNSIGNED_INT>(3 * sizeof(INT)));
        table().tbou_choix = nullptr;
        drain();
    }
}

TEST_F(TableChoices, ForgettingOneKeepsTheOthers) {
    create(three);
    for (INT other : {0, 1, 2, 4, 9}) EXPECT_EQ(grx_tbl_init_bouton_choix(other), 0);
    for (INT none : no_tables) EXPECT_EQ(grx_tbl_init_bouton_choix(none), 0) << none;
    grx_tbl_detruit_boutons_choix();
    expect_none();
}

TEST_F(TableChoices, OfTablesThatAreNoneAreRefused) {
    const NoLeak no_leak;
    for (INT none : no_tables) {
        Itbl = none;
        EXPECT_EQ(create(three), 0) << none;
        EXPECT_EQ(grx_tbl_change_boutons_choix(window, 1, 2, 3, 3, three.pointers.data(), 1), 0) << none;
        EXPECT_EQ(grx_tbl_detruit_boutons_choix(), 0) << none;
    }
    Itbl = 3;
    expect_none();
}

TEST_F(TableChoices, InAnUnknownWindowAreRefused) {
    const NoLeak no_leak;
    for (INT unknown : {-1, 0, 2, 99, 100, INT_MIN, INT_MAX}) {
        EXPECT_EQ(grx_tbl_cree_boutons_choix(unknown, 1, 2, 3, 3, three.pointers.data(), 1), 0) << unknown;
        EXPECT_EQ(grx_tbl_detruit_boutons_choix(), 0);
        expect_none();
    }
}

TEST_F(TableChoices, GoWithTheirWindow) {
    const auto round = [&](bool used) {
        create(three);
        ASSERT_TRUE(wait_visible(option()));
        if (used) {
            choose(1);
            drain();
        }
        grx_detruit_fenetre(window);
        drain();
        EXPECT_EQ(grx_tbl_detruit_boutons_choix(), 0);
        EXPECT_EQ(table().nb_choix, 0);
        EXPECT_EQ(grx_recup_indice_objet_bout_libre(), 0) << "the numbers are free";
        grx_libere_indice_objet_bout(0);
        window = shown();
    };
    round(false);
    const std::size_t blocks = heap().blocks();
    round(true);
    round(false);
    EXPECT_EQ(heap().blocks(), blocks);
}

TEST_F(TableChoices, AreMadeAnewAfterTheirWindowWent) {
    for (const bool change : {false, true}) {
        create(three);
        grx_detruit_fenetre(window);
        drain();
        window = shown();
        EXPECT_EQ(
            change ? grx_tbl_change_boutons_choix(window, 60, 70, 5, 3, three.pointers.data(), 3) : create(three, 3),
            0);
        ASSERT_TRUE(wait_visible(option()));
        EXPECT_EQ(shown_text(), three.texts[2]);
        EXPECT_EQ(numbers(), (std::vector<INT>{0, 1, 2}));
        grx_tbl_detruit_boutons_choix();
        expect_none();
    }
}

// --- texts --------------------------------------------------------------------------------------------------------

TEST_F(TableChoices, WithoutTexts) {
    const NoLeak no_leak;
    for (INT count : {0, -1, -1000, INT_MIN})
        for (char** texts : {three.pointers.data(), static_cast<char**>(nullptr)}) {
            EXPECT_EQ(grx_tbl_cree_boutons_choix(window, 60, 70, 5, count, texts, 1), 0) << count;
            EXPECT_EQ(table().nb_choix, 0) << count;
            EXPECT_EQ(option_menus().size(), 1U) << "empty, " << count;
            EXPECT_EQ(grx_tbl_detruit_boutons_choix(), 0);
            expect_none();
        }
    EXPECT_EQ(grx_tbl_cree_boutons_choix(window, 60, 70, 5, 3, nullptr, 1), 0);
    EXPECT_EQ(grx_tbl_detruit_boutons_choix(), 0);
    expect_none();
}

TEST_F(TableChoices, MissingTextsAreEmpty) {
    three.pointers[1] = nullptr;
    EXPECT_EQ(create(three, 3), 0);
    EXPECT_EQ(numbers().size(), 3U);
    EXPECT_EQ(shown_text(), "Prix");
}

TEST_F(TableChoices, TextsOfAllSorts) {
    Texts texts{{"", "%s%n", std::string(79, 'l'), std::string(80, 'm'), std::string(3000, 'n'), "L\xE9gende"}};
    EXPECT_EQ(create(texts, 2), 0);
    EXPECT_EQ(numbers().size(), 6U);
    EXPECT_EQ(shown_text(), "%s%n");
    EXPECT_EQ(label_of(control(numbers()[2])), std::string(79, 'l'));
    EXPECT_EQ(label_of(control(numbers()[3])), std::string(79, 'm')) << "as long as a title may be";
    EXPECT_EQ(label_of(control(numbers()[4])), std::string(79, 'n'));
    EXPECT_LT(extent_of(control(numbers()[0])).width, 1200) << "as wide as what is shown";
    grx_tbl_detruit_boutons_choix();
    expect_none();
}

TEST_F(TableChoices, MoreThanThereAreNumbers) {
    std::vector<std::string> many;
    for (int i = 0; i < 1100; ++i) many.push_back(std::to_string(i));
    Texts texts{many};
    const StdoutCapture silence;
    EXPECT_EQ(create(texts), 0);
    drain();
    EXPECT_EQ(grx_tbl_detruit_boutons_choix(), 0);
    expect_none();
}

// --- memory -------------------------------------------------------------------------------------------------------

TEST_F(TableChoices, AHundredLeaveNothing) {
    const auto round = [&] {
        create(three, 2);
        grx_tbl_change_boutons_choix(window, 60, 70, 5, 2, three.pointers.data(), 1);
        drain();
        grx_tbl_detruit_boutons_choix();
        drain();
    };
    for (int i = 0; i < 3; ++i) round();
    const auto blocks = heap().blocks(), bytes = heap().bytes();
    const auto before = resources();
    for (int i = 0; i < 100; ++i) round();
    EXPECT_EQ(heap().blocks(), blocks);
    EXPECT_EQ(heap().bytes(), bytes);
    EXPECT_EQ(resources(), before);
}

TEST_F(TableChoices, EachFailingAllocationIsSurvived) {
    const Cardinal before = popups();
    const int failures = fail_each_allocation([&] {
        const NoLeak no_leak;
        EXPECT_EQ(create(three, 2), 0);
        EXPECT_EQ(grx_tbl_detruit_boutons_choix(), 0);
        drain();
        EXPECT_TRUE(option_menus().empty());
        EXPECT_EQ(popups(), before) << "no pulldown is left";
        EXPECT_EQ(table().nb_choix, 0);
    });
    EXPECT_GE(failures, 1);
    expect_none();
}

} // namespace
