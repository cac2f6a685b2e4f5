// Context menus: screen edges, ends, states, bad input, memory, other clients and window managers.
#include "tests/display/menus/context_kit.h"
#include "tests/support/host_calls.h"
#include "tests/support/sanitized.h"

#include <climits>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

using namespace grxtest;

TEST_F(ContextMenuTest, StaysOnTheScreen) {
    const int screen_width = grx_recup_lar_ecran(), screen_height = grx_recup_hau_ecran();
    const INT window = graphic_window(0, 0, screen_width, screen_height);
    const std::vector<Point> places{{0, 0}, {screen_width - 1, 0}, {0, screen_height - 1},
        {screen_width - 1, screen_height - 1}, {screen_width / 2, screen_height - 5}, {-500, -500}, {INT_MAX, INT_MIN},
        {INT_MIN, INT_MAX}};
    for (const auto& [x, y] : places) {
        ASSERT_EQ(grx_ouvre_menu_contextuel(window, "", zone, x, y), 1);
        ASSERT_TRUE(wait_shown());
        const Area area = server_area(x11_disp, XtWindow(XtParent(menu())));
        const Point corner = root_position(menu());
        EXPECT_GE(corner.x, 0) << x << "," << y;
        EXPECT_GE(corner.y, 0) << x << "," << y;
        EXPECT_LE(corner.x + area.width, screen_width) << x << "," << y;
        EXPECT_LE(corner.y + area.height, screen_height) << x << "," << y;
        EXPECT_EQ(grx_ferme_menu_contextuel(), 1);
        EXPECT_EQ(grx_ferme_menu_contextuel(), GRX_ECHEC_ABSENT);
    }
    pointer().move(screen_width - 1, screen_height - 1);
    ASSERT_EQ(grx_ouvre_menu_contextuel_souris(window, nullptr, zone), 1);
    ASSERT_TRUE(wait_shown());
    const Area area = server_area(x11_disp, XtWindow(XtParent(menu())));
    EXPECT_EQ(root_position(menu()).x + area.width, screen_width - 1) << "to the other side";
    EXPECT_EQ(root_position(menu()).y + area.height, screen_height - 1);
}

TEST_F(ContextMenuTest, ItsWindowMayGo) {
    const INT other = graphic_window(800, 60, 200, 200);
    for (const bool submenu : {false, true}) {
        const INT window = graphic_window();
        ASSERT_EQ(grx_ouvre_menu_contextuel(window, nullptr, zone, 100, 200), 1);
        ASSERT_TRUE(wait_shown());
        if (submenu) {
            pointer().click_in(entry("Exporter"));
            ASSERT_TRUE(wait_visible(entry("DXF")));
        }
        grx_detruit_fenetre(window);
        drain();
        EXPECT_EQ(grx_recup_fenetre_menu_contextuel(), GRX_AUCUN);
        EXPECT_TRUE(input_is_free());
        events.clear();
        pointer().click_in(widget_of(other), 50, 50);
        EXPECT_TRUE(events.wait(GRX_EVT_BOUTON_RELACHE)) << events.describe();
        keyboard().key(XK_k);
        EXPECT_TRUE(events.wait(GRX_EVT_CARAC_APPUI)) << events.describe();
    }
}

TEST_F(ContextMenuTest, OpenedTwiceTheSecondStays) {
    const INT first = graphic_window(), second = graphic_window(800, 60, 200, 200);
    ASSERT_EQ(grx_ouvre_menu_contextuel(first, nullptr, zone, 100, 200), 1);
    ASSERT_TRUE(wait_shown());
    ASSERT_EQ(grx_ouvre_menu_contextuel(first, nullptr, zone, 50, 100), 1);
    ASSERT_TRUE(wait_shown());
    EXPECT_EQ(root_position(menu()).x, root_position(widget_of(first)).x + 50);
    ASSERT_EQ(grx_ouvre_menu_contextuel(second, nullptr, zone, 10, 100), 1);
    ASSERT_TRUE(wait_shown());
    EXPECT_EQ(grx_recup_fenetre_menu_contextuel(), second);
    EXPECT_EQ(state_of(103).nb_entrees, 1);
    pointer().click_in(entry("Supprimer"));
    const auto record = events.wait([](const GRX_EVENEMENT& e) { return e.type_evenement == GRX_EVT_BOUTON_APPUI; });
    ASSERT_TRUE(record);
    EXPECT_EQ(record->bouton_appui.nofen, second);
    EXPECT_TRUE(wait_closed());
    EXPECT_TRUE(input_is_free());
}

TEST_F(ContextMenuTest, MenusOfTheBarCloseFirstAndOpenAfterwards) {
    const INT window = main_window();
    pointer().click_in(children_of(grx_get_Glob_menu_bar()).at(0));
    ASSERT_TRUE(wait_visible(entry_named("Save")));
    ASSERT_EQ(grx_ouvre_menu_contextuel(window, nullptr, zone, 100, 100), 1);
    ASSERT_TRUE(wait_shown());
    EXPECT_TRUE(wait_for([&] { return !visible(XtWindow(entry_named("Save"))); }));
    keyboard().key(XK_Escape);
    EXPECT_TRUE(wait_closed());
    pointer().click_in(children_of(grx_get_Glob_menu_bar()).at(0));
    ASSERT_TRUE(wait_visible(entry_named("Save")));
    pointer().click_in(entry_named("Save"));
    EXPECT_TRUE(wait_for([&] { return chosen(102) == 1; })) << events.describe();
    EXPECT_TRUE(input_is_free());
}

// What is set for a number holds in it: before it opens, and while it is open.
TEST_F(ContextMenuTest, StatesHoldInIt) {
    const INT window = graphic_window();
    grx_coche_entree_menu(102, 1, 0);
    grx_desactive_entree_menu(120, 1, 0);
    grx_change_texte_entree_menu(103, "&Effacer", 0);
    for (int i = 0; i < 2; ++i) {
        ASSERT_EQ(grx_ouvre_menu_contextuel(window, nullptr, zone, 100, 200), 1);
        ASSERT_TRUE(wait_shown());
        EXPECT_EQ(shown_menu(), "Ouvrir_O <Ctrl+O>, Grille_G, -, Exporter_E{DXF_D, Image_I{PNG_P}}, Effacer_E");
        EXPECT_GT(resource<Dimension>(entry("Grille"), XmNmarginLeft), 0);
        EXPECT_FALSE(XtIsSensitive(entry("DXF")));
        EXPECT_TRUE(XtIsSensitive(entry("Ouvrir")));
        if (const char* folder = std::getenv("GRX_TEST_SHOTS")) {
            pointer().click_in(entry("Exporter"));
            EXPECT_TRUE(wait_visible(entry("DXF")));
            settle();
            write_ppm(x11_disp, grab_root(x11_disp).part({380, 380, 320, 200}), std::string(folder) + "/context.ppm");
        }
        grx_desactive_entree_menu(101, 1, 0);
        EXPECT_FALSE(XtIsSensitive(entry("Ouvrir")));
        grx_desactive_entree_menu(101, 0, 0);
        grx_ferme_menu_contextuel();
        drain();
    }
    EXPECT_EQ(state_of(102).nb_entrees, 0);
    EXPECT_EQ(state_of(102).coche, 1);
}

TEST_F(ContextMenuTest, ZonesMayStandInAnotherFile) {
    write_menu("#:ZONE_A2\n{\nITEM||Faux||1|\n}\n#:ZONE_A\n# comment\n{\nPOPUP||&Sous|\n{\nITEM|13||Ctrl+X,F3|5|\n}\n"
               "ITEM||DEFINIR||6|\nrubbish\nITEM||Vrai||7|\n}\n{\nITEM||Apres||8|\n}\n#:ZONE_B\n#:ZONE_A2\n{\n"
               "ITEM||x||9|\n}\n",
        "AUTRE.DAT");
    const INT window = graphic_window();
    ASSERT_EQ(grx_ouvre_menu_contextuel(window, "AUTRE.DAT", "#:ZONE_A", 10, 290), 1);
    ASSERT_TRUE(wait_shown());
    EXPECT_EQ(shown_menu(), "Sous_S{Open_O <Ctrl+X>}, Vrai");
    EXPECT_EQ(grx_ouvre_menu_contextuel(window, "AUTRE.DAT", "#:ZONE_B", 10, 290), GRX_ECHEC_ABSENT);
    ASSERT_EQ(grx_ouvre_menu_contextuel(window, nullptr, " #:ZONE_MENU_BAR ", 10, 290), 1);
    ASSERT_TRUE(wait_shown());
    EXPECT_EQ(shown_menu(), "File_F{Open_O <Ctrl+O>, Save_S <Ctrl+S>, -, Export_E{DXF...}, Quit}, Help_H{About}");
}

TEST_F(ContextMenuTest, BadInputIsTold) {
    const INT window = graphic_window();
    const INT hidden = make(GRX_FEN_GRAPHIQUE, 0, 200, 100);
    grx_cache_fenetre(hidden);
    drain();
    const std::string long_name(5000, 'a');
    for (const INT number : {0, -1, 99, 100, INT_MAX, INT_MIN})
        EXPECT_EQ(grx_ouvre_menu_contextuel(number, nullptr, zone, 0, 0), GRX_ECHEC_NUMERO);
    EXPECT_EQ(grx_ouvre_menu_contextuel(hidden, nullptr, zone, 0, 0), GRX_ECHEC_GENRE);
    for (const char* none : {static_cast<const char*>(nullptr), "", "  "})
        EXPECT_EQ(grx_ouvre_menu_contextuel(window, nullptr, none, 0, 0), GRX_ECHEC_PARAMETRE);
    for (const char* file : {"NONE.DAT", long_name.c_str()})
        EXPECT_EQ(grx_ouvre_menu_contextuel_souris(window, file, zone), GRX_ECHEC_FICHIER);
    for (const char* absent : {"#:ZONE_MENU_VIDE", "#:ZONE_MENU", "#:ZONE_MENU_PIECES", long_name.c_str()})
        EXPECT_EQ(grx_ouvre_menu_contextuel(window, nullptr, absent, 0, 0), GRX_ECHEC_ABSENT) << absent;
    EXPECT_EQ(grx_recup_fenetre_menu_contextuel(), GRX_AUCUN);
    drain();
    EXPECT_EQ(menu(), nullptr);
}

TEST_F(ContextMenuTest, WhileAnotherProgramHoldsTheInputNothingOpens) {
    const INT window = graphic_window();
    const Window root = DefaultRootWindow(test_display());
    XGrabPointer(test_display(), root, False, 0, GrabModeAsync, GrabModeAsync, None, None, CurrentTime);
    XSync(test_display(), False);
    EXPECT_EQ(grx_ouvre_menu_contextuel(window, nullptr, zone, 100, 200), GRX_ECHEC_OCCUPE);
    XUngrabPointer(test_display(), CurrentTime);
    XGrabKeyboard(test_display(), root, False, GrabModeAsync, GrabModeAsync, CurrentTime);
    XSync(test_display(), False);
    EXPECT_EQ(grx_ouvre_menu_contextuel(window, nullptr, zone, 100, 200), GRX_ECHEC_OCCUPE);
    XUngrabKeyboard(test_display(), CurrentTime);
    EXPECT_TRUE(input_is_free());
    EXPECT_EQ(menu(), nullptr);
    EXPECT_EQ(grx_ouvre_menu_contextuel(window, nullptr, zone, 100, 200), 1);
    EXPECT_TRUE(wait_shown());
}

// The application comes to the press only after the button was released.
TEST_F(ContextMenuTest, AReleaseThatWaitsDoesNotCloseIt) {
    const INT window = graphic_window();
    pointer().move_in(widget_of(window), 100, 100);
    drain();
    events.clear();
    pointer().click(3);
    ASSERT_TRUE(events.wait(GRX_EVT_BOUTON_APPUI));
    ASSERT_EQ(grx_ouvre_menu_contextuel_souris(window, nullptr, zone), 1);
    drain();
    EXPECT_TRUE(shown());
    EXPECT_EQ(events.count(GRX_EVT_BOUTON_RELACHE), 0);
    keyboard().key(XK_Down);
    drain(); // the toolkit takes two keys of the same millisecond for one
    keyboard().key(XK_Return);
    EXPECT_TRUE(wait_for([&] { return chosen(102) == 1; })) << events.describe();
    EXPECT_TRUE(wait_closed());
    events.clear();
    pointer().move_in(widget_of(window), 150, 120);
    drain();
    ASSERT_GT(events.count(GRX_EVT_SOURIS_BOUGE), 0);
    for (const auto& e : events.seen()) {
        if (e.type_evenement == GRX_EVT_SOURIS_BOUGE) {
            EXPECT_EQ(e.souris_bouge.bouton, 0) << "no button is held";
        }
    }
}

TEST_F(ContextMenuTest, AHandThatSlipsChoosesNothing) {
    const INT window = graphic_window();
    for (const int slip : {0, 2, 4}) {
        pointer().move_in(widget_of(window), 100, 100);
        pointer().press(3);
        ASSERT_TRUE(events.wait(GRX_EVT_BOUTON_APPUI));
        ASSERT_EQ(grx_ouvre_menu_contextuel_souris(window, nullptr, zone), 1);
        ASSERT_TRUE(wait_shown());
        pointer().move_in(widget_of(window), 100 + slip, 100 + slip);
        drain();
        events.clear();
        pointer().release(3);
        drain();
        EXPECT_TRUE(shown()) << slip;
        EXPECT_EQ(events.count(GRX_EVT_BOUTON_APPUI), 0) << slip;
        keyboard().key(XK_Up);
        drain();
        keyboard().key(XK_Escape);
        EXPECT_TRUE(wait_closed());
    }
}

class FrenchContextMenu : public ContextMenuTest {};

TEST_F(FrenchContextMenu, MnemonicsFollowLayoutAndLocks) {
    write_menu("#:ZONE_MENU_PIECE\n{\nITEM||&Aire||11|\nITEM||&\311dition||12|\nITEM||&quadrant||13|\n}\n");
    const INT window = graphic_window();
    const auto choose = [&](KeySym key, INT number) {
        ASSERT_EQ(grx_ouvre_menu_contextuel(window, nullptr, zone, 100, 200), 1);
        ASSERT_TRUE(wait_shown());
        events.clear();
        keyboard().key(key);
        EXPECT_TRUE(wait_for([&] { return chosen(number) == 1; })) << number << events.describe();
        EXPECT_TRUE(wait_closed());
    };
    choose(XK_q, 13);
    new_layout("fr");
    lock_numbers();
    choose(XK_a, 11);
    choose(XK_q, 13);
    lock_capitals();
    choose(XK_a, 11);
}

// --- memory

TEST_F(ContextMenuTest, ShortageOfMemoryIsTold) {
    const INT window = graphic_window();
    const auto open = [&] {
        const INT result = grx_ouvre_menu_contextuel(window, nullptr, zone, 100, 200);
        EXPECT_TRUE(
            result == 1 || result == GRX_ECHEC_ABSENT || result == GRX_ECHEC_MEMOIRE || result == GRX_ECHEC_FICHIER)
            << result;
        grx_ferme_menu_contextuel();
    };
    open();
    const NoLeak no_leak;
    fail_each_allocation(open);
    open();
}

TEST_F(ContextMenuTest, FiveHundredRoundsLeaveNothing) {
    const INT window = graphic_window();
    const auto round = [&](int i) {
        ASSERT_EQ(grx_ouvre_menu_contextuel(window, nullptr, zone, 100, 200), 1);
        if (i % 25 == 0) {
            ASSERT_TRUE(wait_shown());
            keyboard().key(i % 2 == 0 ? XK_Escape : XK_Return);
            ASSERT_TRUE(wait_closed());
        }
        grx_ferme_menu_contextuel();
    };
    for (int i = 0; i < 5; ++i) round(i);
    drain();
    const auto bytes = heap().bytes();
    const auto before = server_resources(test_display(), x_window(window));
    const auto popups = widget_of(window)->core.num_popups;
    for (int i = 0; i < amount(500); ++i) round(i);
    drain();
    EXPECT_EQ(heap().bytes(), bytes);
    EXPECT_EQ(server_resources(test_display(), x_window(window)), before);
    EXPECT_EQ(widget_of(window)->core.num_popups, popups);
}

TEST_F(ContextMenuTest, ManyEntriesAreBuiltAndGoTogether) {
    std::string lines = "#:ZONE_MENU_PIECE\n{\n";
    for (int group = 0; group < 100; ++group) {
        lines += "POPUP||G" + std::to_string(group) + "|\n{\n";
        for (int i = 0; i < 50; ++i) lines += "ITEM||e||" + std::to_string(50 * group + i) + "|\n";
        lines += "}\n";
    }
    write_menu(lines + "}\n");
    const INT window = graphic_window();
    grx_desactive_entree_menu(4999, 1, 0);
    ASSERT_EQ(grx_ouvre_menu_contextuel(window, nullptr, zone, 100, 200), 1);
    EXPECT_EQ(state_of(0).nb_entrees, 1);
    EXPECT_EQ(state_of(4999).nb_entrees, 1);
    EXPECT_EQ(state_of(4999).active, 0);
    grx_ferme_menu_contextuel();
    drain();
    EXPECT_EQ(state_of(4999).nb_entrees, 0);
}

// --- window managers

class ContextMenuWmTest : public ContextMenuTest, public testing::WithParamInterface<WindowManager::Kind> {
  protected:
    void before_start() override {
        ContextMenuTest::before_start();
        manager_.emplace(server(), GetParam());
    }
    std::optional<WindowManager> manager_;
};

TEST_P(ContextMenuWmTest, OpensByPressAndAnswersToPointerAndKeys) {
    const INT window = graphic_window();
    for (int round = 0; round < 3; ++round) {
        pointer().move_in(widget_of(window), 100, 100);
        drain();
        events.clear();
        pointer().press(3);
        const auto press = events.wait(GRX_EVT_BOUTON_APPUI);
        ASSERT_TRUE(press);
        ASSERT_EQ(grx_ouvre_menu_contextuel(window, nullptr, zone, press->bouton_appui.x, press->bouton_appui.y), 1);
        ASSERT_TRUE(wait_shown());
        const Point corner = root_position(menu()), at = pointer().position();
        EXPECT_EQ(corner.x, at.x);
        EXPECT_EQ(corner.y, at.y);
        if (round == 0) {
            pointer().move_in(entry("Supprimer"), 10, 5);
            drain();
            pointer().release(3);
            EXPECT_TRUE(wait_for([&] { return chosen(103) == 1; })) << events.describe();
        } else if (round == 1) {
            pointer().release(3);
            drain();
            pointer().click_in(entry("Grille"));
            EXPECT_TRUE(wait_for([&] { return chosen(102) == 1; })) << events.describe();
        } else {
            pointer().release(3);
            drain();
            for (const KeySym key : {XK_e, XK_d}) {
                keyboard().key(key);
                drain();
            }
            EXPECT_TRUE(wait_for([&] { return chosen(120) == 1; })) << events.describe();
        }
        EXPECT_TRUE(wait_closed());
        EXPECT_TRUE(input_is_free());
    }
}

INSTANTIATE_TEST_SUITE_P(Managers, ContextMenuWmTest,
    testing::Values(WindowManager::Kind::mwm, WindowManager::Kind::openbox),
    [](const auto& info) { return std::string(info.param == WindowManager::Kind::mwm ? "mwm" : "openbox"); });

} // namespace
