// The menu bar taken down and built again, its steps by hand.
#include "tests/display/menus/menu_kit.h"
#include "tests/support/descriptors.h"
#include "tests/support/stdout_capture.h"

#include <X11/IntrinsicP.h>
#include <Xm/XmAll.h>

#include <cstring>
#include <map>
#include <string>

namespace {

using namespace grxtest;

// --- taking down and building again ---------------------------------------------------------------------------------

TEST_F(MenuTest, TakingDownLeavesTheBar) {
    main_window(example_menu);
    const Widget bar = grx_get_Glob_menu_bar();
    EXPECT_EQ(grx_detruit_menu_bar(), 0);
    EXPECT_EQ(grx_get_Glob_menu_bar(), bar);
    EXPECT_TRUE(children_of(bar).empty());
    EXPECT_EQ(grx_detruit_menu_bar(), 0);
    EXPECT_EQ(grx_recree_menu_bar(), 0);
    EXPECT_EQ(grx_get_Glob_menu_bar(), bar);
    EXPECT_EQ(shown_bar(), example_menu_shown);
}

// Posted by pointer or key, with a submenu or without: they go first.
TEST_F(MenuTest, OpenMenusAreTakenDown) {
    main_window(example_menu);
    const auto taken_down_and_built_again = [&] {
        grx_detruit_menu_bar();
        drain();
        EXPECT_TRUE(children_of(grx_get_Glob_menu_bar()).empty());
        grx_recree_menu_bar();
        drain();
        EXPECT_EQ(shown_bar(), example_menu_shown);
        point_at(grx_recup_nofen_principale());
        keyboard().key(XK_k);
        EXPECT_TRUE(events.wait(GRX_EVT_CARAC_APPUI)) << "the keyboard is free again";
        EXPECT_EQ(chosen_by_key(102, XK_s, ControlMask), 1);
    };
    for (int i = 0; i < 3; ++i) {
        open_submenu();
        taken_down_and_built_again();
        pointer().click_in(children_of(grx_get_Glob_menu_bar()).at(1));
        ASSERT_TRUE(wait_visible(entry_named("About")));
        taken_down_and_built_again();
        keyboard().key(XK_f, Mod1Mask);
        ASSERT_TRUE(wait_visible(entry_named("Save")));
        taken_down_and_built_again();
    }
}

TEST_F(MenuTest, OpenMenusAreBuiltAgain) {
    main_window(example_menu);
    open_submenu();
    EXPECT_EQ(grx_recree_menu_bar(), 0);
    drain();
    EXPECT_EQ(children_of(grx_get_Glob_menu_bar()).size(), 4U);
    grx_detruit_menu_bar();
    drain();
    grx_recree_menu_bar();
    drain();
    EXPECT_EQ(shown_bar(), example_menu_shown);
}

TEST_F(MenuTest, TheWindowOfAnOpenMenuMayGo) {
    const INT window = main_window(example_menu);
    open_submenu();
    grx_detruit_fenetre(window);
    drain();
    EXPECT_EQ(grx_get_Glob_menu_bar(), nullptr);
    main_window();
    EXPECT_EQ(shown_bar(), example_menu_shown);
    open_submenu();
}

TEST_F(MenuTest, KeysOfMenusTakenDownAreGone) {
    main_window(menu_of_keys);
    grx_detruit_menu_bar();
    drain();
    EXPECT_EQ(chosen_by_key(11, XK_s, ControlMask), 0);
    grx_recree_menu_bar();
    drain();
    EXPECT_EQ(chosen_by_key(11, XK_s, ControlMask), 1);
}

// Building in place ends with each rebuilding, done or failed.
TEST_F(MenuTest, NewMainWindowAfterRebuildingHasABarOfItsOwn) {
    for (const INT module : {0, 1}) {
        istate[IST_MODULE_MENU] = 0;
        const INT window = main_window(example_menu);
        istate[IST_MODULE_MENU] = module; // there is no file of module 1
        StdoutCapture silence;
        grx_detruit_menu_bar();
        grx_recree_menu_bar();
        silence.restore();
        grx_detruit_fenetre(window);
        drain();
    }
    istate[IST_MODULE_MENU] = 0;
    main_window(example_menu);
    EXPECT_EQ(shown_bar(), example_menu_shown);
}

class Rebuilding : public MenuTest {
  protected:
    static void rebuild(Events& events) {
        grx_detruit_menu_bar();
        grx_recree_menu_bar();
        events.drain();
    }
    static Cardinal popups_of(Widget w) { return w->core.num_popups; }
    // What the server keeps for us before and after a hundred times.
    using Resources = std::map<std::string, unsigned>;
    std::pair<Resources, Resources> a_hundred_times(INT window) {
        rebuild(events);
        const auto bytes = heap().bytes();
        const auto before = server_resources(test_display(), x_window(window));
        const Widget bar = grx_get_Glob_menu_bar();
        const auto files = open_descriptors();
        const Cardinal in_bar = popups_of(bar), beside = popups_of(XtParent(bar));
        for (int i = 0; i < 100; ++i) rebuild(events);
        EXPECT_EQ(open_descriptors(), files);
        EXPECT_EQ(popups_of(bar), in_bar);
        EXPECT_EQ(popups_of(XtParent(bar)), beside);
        EXPECT_EQ(grx_get_Glob_menu_bar(), bar);
        EXPECT_EQ(heap().bytes(), bytes);
        return {before, server_resources(test_display(), x_window(window))};
    }
};

TEST_F(Rebuilding, MainWindowsWithMenusLeaveNothingInTheServer) {
    const Widget own = XmGetXmDisplay(x11_disp);
    const auto once = [this] {
        const INT window = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE | GRX_FEN_ATT_PRINCIPALE, 300, 200);
        ASSERT_GT(window, 0);
        grx_affecte_nofen_principale(window);
        drain();
        grx_detruit_fenetre(window);
        drain();
    };
    write_menu(example_menu);
    for (int i = 0; i < 3; ++i) once();
    const auto before = server_resources(test_display(), XtWindow(own));
    for (int i = 0; i < 50; ++i) once();
    EXPECT_EQ(server_resources(test_display(), XtWindow(own)), before);
}

TEST_F(Rebuilding, AHundredTimesChangesNothing) {
    const auto [before, after] = a_hundred_times(main_window(menu_of_keys));
    EXPECT_EQ(before, after);
    EXPECT_EQ(chosen_by_key(11, XK_s, ControlMask), 1);
}

TEST_F(Rebuilding, SubmenusComeBackTheSame) {
    const auto [before, after] = a_hundred_times(main_window(example_menu));
    EXPECT_EQ(shown_bar(), example_menu_shown);
    EXPECT_EQ(before, after);
    EXPECT_EQ(chosen_by_key(102, XK_s, ControlMask), 1);
}

// Every depth is built again in turn: a bar without submenus and one with them.
TEST_F(Rebuilding, ModulesTakeTurns) {
    write_menu(example_menu, "MNU_MECA.DAT");
    const INT window = main_window(menu_of_keys);
    const auto take_turns = [&] {
        for (const INT module : {1, 0}) {
            istate[IST_MODULE_MENU] = module;
            rebuild(events);
        }
    };
    take_turns();
    const auto before = server_resources(test_display(), x_window(window));
    for (int i = 0; i < 50; ++i) take_turns();
    EXPECT_EQ(server_resources(test_display(), x_window(window)), before);
}

TEST_F(Rebuilding, ANewColourCostsItsArrowsOnce) {
    const INT window = main_window(menu_of_keys);
    rebuild(events);
    grx_affecte_couleur_application(11);
    rebuild(events);
    rebuild(events);
    const auto before = server_resources(test_display(), x_window(window));
    for (int i = 0; i < 20; ++i) rebuild(events);
    EXPECT_EQ(server_resources(test_display(), x_window(window)), before);
}

TEST_F(MenuTest, RebuildingWithoutFileEmptiesTheBar) {
    main_window(example_menu);
    const Widget bar = grx_get_Glob_menu_bar();
    grx_detruit_menu_bar();
    istate[IST_MODULE_MENU] = 1;
    StdoutCapture capture;
    EXPECT_EQ(grx_recree_menu_bar(), 0);
    EXPECT_EQ(capture.text(), "GFX ERROR\nCode 2: Opening problem on file 'MNU*.DAT' \n");
    capture.restore();
    EXPECT_EQ(grx_get_Glob_menu_bar(), bar);
    EXPECT_TRUE(children_of(bar).empty());
    istate[IST_MODULE_MENU] = 0;
    grx_recree_menu_bar();
    EXPECT_EQ(shown_bar(), example_menu_shown);
}

TEST_F(MenuTest, MainWindowIsDestroyedAndMadeAgain) {
    INT window = main_window(example_menu);
    for (int i = 0; i < 5; ++i) {
        grx_detruit_fenetre(window);
        drain();
        EXPECT_EQ(grx_get_Glob_menu_bar(), nullptr);
        EXPECT_EQ(grx_recup_tamenubar(), 0);
        EXPECT_EQ(grx_detruit_menu_bar(), 0);
        EXPECT_EQ(grx_recree_menu_bar(), 0);
        EXPECT_EQ(grx_get_Glob_menu_bar(), nullptr);
        window = main_window();
        EXPECT_EQ(shown_bar(), example_menu_shown);
        EXPECT_EQ(chosen_by_key(102, XK_s, ControlMask), 1);
    }
}

TEST_F(MenuTest, NothingOfADestroyedMainWindowStays) {
    INT window = main_window(example_menu);
    grx_detruit_fenetre(window);
    drain();
    const auto bytes = heap().bytes();
    for (int i = 0; i < 10; ++i) {
        window = main_window();
        grx_detruit_fenetre(window);
        drain();
    }
    EXPECT_EQ(heap().bytes(), bytes);
}

// --- the steps by hand ----------------------------------------------------------------------------------------------

TEST_F(MenuTest, StepsAreOpenToTheApplication) {
    main_window(menu_zone("POPUP||A|\n{\nITEM||a||1|\n}\n"));
    char title[] = "Extra", label[] = "More", key[] = "Ctrl+M", line[] = "-", none[] = "";
    const Widget bar = grx_get_Glob_menu_bar(), menu = grx_debut_sous_menu_bar(bar);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(grx_cree_atome(label, key, 'M', 55, menu), 0);
    EXPECT_EQ(grx_cree_atome(line, none, GRX_MENU_SANS_MNEMO, 0, menu), 0);
    const Widget cascade = grx_fin_sous_menu_bar(title, menu, bar);
    ASSERT_NE(cascade, nullptr);
    EXPECT_TRUE(XtIsManaged(cascade));
    EXPECT_EQ(shown_bar(), "A{a} Extra{More_M <Ctrl+M>, -}");
    EXPECT_STREQ(key, "Ctrl+M");
    drain();
    EXPECT_EQ(chosen_by_key(55, XK_m, ControlMask), 1);
}

// A menu that the application made may go before the bar does, with its entries and their keys.
TEST_F(MenuTest, EntriesTheApplicationDestroysAreForgotten) {
    main_window(example_menu);
    char title[] = "Extra", label[] = "More", key[] = "Ctrl+M", none[] = "", line[] = "-";
    const Widget bar = grx_get_Glob_menu_bar(), menu = grx_debut_sous_menu_bar(bar);
    const Widget cascade = grx_fin_sous_menu_bar(title, menu, bar);
    for (int i = 0; i < 20; ++i) {
        grx_cree_atome(label, key, GRX_MENU_SANS_MNEMO, 55, menu);
        grx_cree_atome(line, none, GRX_MENU_SANS_MNEMO, 0, menu);
    }
    drain();
    EXPECT_EQ(chosen_by_key(55, XK_m, ControlMask), 1);
    XtDestroyWidget(cascade);
    XtDestroyWidget(menu);
    drain();
    EXPECT_EQ(chosen_by_key(55, XK_m, ControlMask), 0);
    EXPECT_EQ(chosen_by_key(102, XK_s, ControlMask), 1);
    new_layout("fr");
    EXPECT_EQ(chosen_by_key(102, XK_s, ControlMask), 1);
    grx_detruit_menu_bar();
    drain();
    grx_recree_menu_bar();
    EXPECT_EQ(shown_bar(), example_menu_shown);
}

TEST_F(MenuTest, NullIsSurvived) {
    main_window(example_menu);
    char text[] = "x", none[] = "";
    EXPECT_EQ(grx_debut_sous_menu_bar(nullptr), nullptr);
    EXPECT_EQ(grx_debut_menu_bar(nullptr), nullptr);
    EXPECT_EQ(grx_cree_atome(text, none, GRX_MENU_SANS_MNEMO, 1, nullptr), 0);
    EXPECT_EQ(grx_fin_sous_menu_bar(text, nullptr, nullptr), nullptr);
    EXPECT_EQ(grx_recup_taille_menu_bar(1, nullptr, nullptr), 0);
    Widget const bar = grx_get_Glob_menu_bar();
    EXPECT_EQ(grx_cree_menu_bar(nullptr), 0);
    ASSERT_EQ(grx_get_Glob_menu_bar(), bar);
    EXPECT_EQ(shown_bar(), example_menu_shown);
    EXPECT_EQ(chosen_by_key(102, XK_s, ControlMask), 1) << "its keys are still there";
}

// The toolkit would not survive it.
TEST_F(MenuTest, NothingButAMenuCanBeEndedAsOne) {
    const INT window = main_window(example_menu);
    Widget const bar = grx_get_Glob_menu_bar(), work = grx_recup_objet_fen(window);
    char text[] = "x", name[] = "other";
    for (Widget other : {bar, work, XtParent(work), XmCreatePopupMenu(work, name, nullptr, 0),
             XmCreateRowColumn(work, name, nullptr, 0), XmCreateRadioBox(work, name, nullptr, 0),
             XmCreatePushButton(work, name, nullptr, 0)})
        EXPECT_EQ(grx_fin_sous_menu_bar(text, other, bar), nullptr) << XtName(other);
    EXPECT_EQ(shown_bar(), example_menu_shown);
    Widget const menu = grx_debut_sous_menu_bar(bar);
    EXPECT_NE(grx_fin_sous_menu_bar(text, menu, bar), nullptr);
    EXPECT_EQ(shown_bar(), example_menu_shown + " x{}");
}

TEST_F(MenuTest, ShortageOfMemoryIsSurvived) {
    const INT window = main_window(menu_of_keys);
    const std::string whole = shown_bar();
    fail_each_allocation([] {
        grx_detruit_menu_bar();
        grx_recree_menu_bar();
    });
    grx_detruit_menu_bar();
    grx_recree_menu_bar();
    EXPECT_EQ(shown_bar(), whole);
    grx_detruit_fenetre(window);
}

} // namespace
