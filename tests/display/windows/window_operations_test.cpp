// Operations on windows by their numbers.
#include "tests/display/registry/windows_kit.h"

#include "registry/window_table.h"

#include <algorithm>
#include <climits>

namespace {

using namespace grxtest;

constexpr INT scroll_bit = GRX_FEN_ATT_SCROLL;
constexpr INT main_bit = GRX_FEN_ATT_PRINCIPALE;
constexpr std::array<INT, 9> no_windows{0, -1, -7, 50, 99, 100, 101, INT_MAX, INT_MIN};

// --- under mwm ----------------------------------------------------------------------------------------------------------

TEST_F(WindowsWmTest, IconifyAndBack) {
    const INT n = framed();
    EXPECT_EQ(grx_iconifie_fenetre(n), 0);
    ASSERT_TRUE(next(GRX_EVT_ICONIFICATION, n)) << events.describe();
    EXPECT_TRUE(wait_for([&] { return !visible(x_window(n)); }));
    EXPECT_EQ(grx_desiconifie_fenetre(n), 0);
    ASSERT_TRUE(next(GRX_EVT_DESICONIF, n)) << events.describe();
    EXPECT_TRUE(wait_visible(widget_of(n)));
    EXPECT_TRUE(next(GRX_EVT_AFFICHAGE, n)) << "and it must be redrawn";
}

TEST_F(WindowsWmTest, TheUserIconifiesWithTheButtonOfTheTitle) {
    const INT n = framed();
    const Area place = frame_area(shell_of(n));
    pointer().click(place.x + place.width - 7 - 17 - 8, place.y + 7 + 8);
    ASSERT_TRUE(next(GRX_EVT_ICONIFICATION, n)) << events.describe();
    EXPECT_TRUE(wait_for([&] { return !visible(x_window(n)); }));
}

TEST_F(WindowsWmTest, MovingPlacesTheFrame) {
    const INT n = framed();
    EXPECT_EQ(grx_deplace_fenetre(n, 200, 1024 - 250), 0);
    EXPECT_TRUE(wait_for([&] { return frame_area(shell_of(n)) == Area{200, 250, 314, 231}; }));
    INT x = 0, y = 0;
    EXPECT_EQ(grx_recup_position_fenetre(n, &x, &y), 0);
    EXPECT_EQ(x, 200);
    EXPECT_EQ(y, 1024 - 250);
    grx_deplace_fenetre(n, x, y);
    drain();
    EXPECT_EQ(frame_area(shell_of(n)), (Area{200, 250, 314, 231})) << "moving to where it is moves nothing";
    grx_deplace_fenetre(n, 0, grx_recup_hau_ecran());
    EXPECT_TRUE(wait_for([&] { return frame_area(shell_of(n)) == Area{0, 0, 314, 231}; }));
}

TEST_F(WindowsWmTest, Raising) {
    const INT first = framed(), second = framed();
    EXPECT_TRUE(wait_for([&] { return height_in_stack(second) > height_in_stack(first); }));
    EXPECT_EQ(grx_reaffiche_fenetre(first), 0);
    EXPECT_TRUE(wait_for([&] { return height_in_stack(first) > height_in_stack(second); }));
    grx_deplace_fenetre(second, 300, 700);
    EXPECT_TRUE(wait_for([&] { return height_in_stack(second) > height_in_stack(first); })) << "a move raises too";
}

TEST_F(WindowsWmTest, Restacking) {
    const INT first = framed(), second = framed(), third = framed();
    EXPECT_TRUE(wait_for([&] { return height_in_stack(third) > height_in_stack(second); }));
    EXPECT_EQ(grx_restack_fenetre(first, second), 0);
    EXPECT_TRUE(wait_for([&] {
        return height_in_stack(first) > height_in_stack(second) && height_in_stack(first) < height_in_stack(third);
    })) << "just above the second";
}

TEST_F(WindowsWmTest, HidingAndShowing) {
    const INT n = framed();
    grx_cache_fenetre(n);
    EXPECT_TRUE(wait_for([&] { return !visible(x_window(n)); }));
    grx_affiche_fenetre(n);
    EXPECT_TRUE(wait_visible(widget_of(n)));
}

TEST_F(WindowsWmTest, ResizingByTheApplication) {
    const INT n = framed();
    grx_change_taille_fenetre(n, 333, 222);
    ASSERT_TRUE(next(GRX_EVT_CHGT_TAILLE, n)) << events.describe();
    EXPECT_TRUE(wait_for([&] { return frame_area(shell_of(n)) == Area{93, 96, 347, 253}; }));
}

TEST_F(WindowsTest, TheTwoSpecialNumbersAreOnlyKept) {
    EXPECT_EQ(grx_recup_nofen_principale(), -1);
    EXPECT_EQ(grx_recup_nofen_active(), -1);
    for (INT n : {5, 0, -9, INT_MAX}) {
        EXPECT_EQ(grx_affecte_nofen_principale(n), 0);
        EXPECT_EQ(grx_affecte_nofen_active(n - 1), 0);
        EXPECT_EQ(grx_recup_nofen_principale(), n);
        EXPECT_EQ(grx_recup_nofen_active(), n - 1);
    }
}

TEST_F(WindowsTest, AncestorsAreFound) {
    EXPECT_EQ(grx_recherche_shell(nullptr), nullptr);
    EXPECT_EQ(grx_recherche_form(nullptr), nullptr);
    EXPECT_EQ(grx_recup_parent(nullptr), nullptr);
    const INT alpha = shown(GRX_FEN_ALPHA);
    Widget shell = shell_of(alpha);
    ASSERT_NE(shell, nullptr);
    EXPECT_TRUE(XtIsShell(shell));
    EXPECT_EQ(grx_recherche_shell(shell), shell) << "itself included";
    EXPECT_EQ(grx_recherche_form(widget_of(alpha)), widget_of(alpha));
    EXPECT_EQ(grx_recherche_form(shell), nullptr);
    EXPECT_EQ(grx_recup_parent(widget_of(alpha)), shell);
    Widget button = XmCreatePushButton(widget_of(alpha), const_cast<char*>("b"), nullptr, 0);
    EXPECT_EQ(grx_recherche_form(button), widget_of(alpha));
    EXPECT_EQ(grx_recherche_shell(button), shell);
    const INT scrolled = shown(GRX_FEN_ALPHA, visible_bit | scroll_bit);
    EXPECT_EQ(grx_recherche_form(XtParent(widget_of(scrolled))), XtNameToWidget(shell_of(scrolled), "*Support"));
    EXPECT_EQ(grx_recherche_form(widget_of(shown(GRX_FEN_GRAPHIQUE))), nullptr) << "no form among the ancestors";
}

TEST_F(WindowsTest, HidingAndShowingTopLevelAndChild) {
    const INT top = shown();
    const INT child = shown_child(top);
    for (INT n : {top, child}) {
        EXPECT_EQ(grx_cache_fenetre(n), 0);
        EXPECT_TRUE(wait_for([&] { return !visible(x_window(n)); }));
        EXPECT_EQ(grx_affiche_fenetre(n), 0);
        EXPECT_TRUE(wait_visible(widget_of(n)));
        EXPECT_EQ(grx_affiche_fenetre(n), 0) << "twice is harmless";
        EXPECT_TRUE(visible(x_window(n)));
    }
    grx_cache_fenetre(child);
    drain();
    settle();
    grx_affiche_fenetre(child);
    EXPECT_TRUE(next(GRX_EVT_DESICONIF, child)) << events.describe();
    grx_cache_fenetre(child);
    EXPECT_TRUE(next(GRX_EVT_ICONIFICATION, child)) << events.describe();
}

TEST_F(WindowsTest, HidingAndShowingANestedWindow) {
    const INT outer = shown();
    for (INT kind : all_kinds) {
        const INT inner = make(nested_in(outer, kind));
        ASSERT_TRUE(wait_visible(widget_of(inner)));
        EXPECT_EQ(grx_cache_fenetre_fille(inner), 0);
        EXPECT_TRUE(wait_for([&] { return !visible(x_window(inner)); })) << kind;
        EXPECT_TRUE(visible(x_window(outer)));
        EXPECT_EQ(grx_affiche_fenetre_fille(inner), 0);
        EXPECT_TRUE(wait_visible(widget_of(inner))) << kind;
        grx_detruit_fenetre_fille(inner);
        drain();
    }
}

TEST_F(WindowsTest, MovingPutsTheTopEdgeWhereYSays) {
    const INT n = shown();
    struct Move {
        INT x, y;
        Area wanted;
    };
    for (const Move& move : {Move{0, 1024, {0, 0, 400, 300}}, Move{37, 500, {37, 524, 400, 300}},
             Move{-20, 1000, {-20, 24, 400, 300}}, Move{37, 0, {37, 1024, 400, 300}}}) {
        EXPECT_EQ(grx_deplace_fenetre(n, move.x, move.y), 0);
        EXPECT_TRUE(wait_for([&] { return area(n) == move.wanted; })) << move.x << "," << move.y;
        INT x = 0, y = 0;
        EXPECT_EQ(grx_recup_position_fenetre(n, &x, &y), 0);
        EXPECT_EQ(x, move.x);
        EXPECT_EQ(y, move.y);
    }
}

TEST_F(WindowsTest, APositionAfterAResizeIsStillTheServers) {
    const INT n = shown();
    XMoveResizeWindow(test_display(), XtWindow(shell_of(n)), 222, 111, 350, 250);
    XSync(test_display(), False);
    drain();
    INT x = 0, y = 0;
    grx_recup_position_fenetre(n, &x, &y);
    EXPECT_EQ(x, 222);
    EXPECT_EQ(y, 1024 - 111);
}

TEST_F(WindowsTest, RaisingAndRestacking) {
    const INT first = shown(), second = shown(), third = shown();
    const auto stack_of = [&](INT n) {
        XSync(x11_disp, False);
        const auto stack = children_of(test_display(), DefaultRootWindow(test_display()));
        return std::ranges::find(stack, XtWindow(shell_of(n))) - stack.begin();
    };
    ASSERT_LT(stack_of(first), stack_of(third));
    EXPECT_EQ(grx_reaffiche_fenetre(first), 0);
    EXPECT_GT(stack_of(first), stack_of(third));
    EXPECT_EQ(grx_restack_fenetre(first, second), 0);
    EXPECT_EQ(stack_of(first), stack_of(second) + 1);
    EXPECT_LT(stack_of(first), stack_of(third));
    grx_deplace_fenetre(second, 300, 500);
    EXPECT_GT(stack_of(second), stack_of(third)) << "a move raises";
}

TEST_F(WindowsTest, SizesAreSetAndRead) {
    for (INT kind : all_kinds) {
        const INT n = shown(kind);
        EXPECT_EQ(grx_change_taille_fenetre(n, 350, 260), 0);
        EXPECT_TRUE(wait_for([&] { return area(n) == Area{100, 120, 350, 260}; })) << kind;
        INT width = 0, height = 0;
        EXPECT_EQ(grx_recup_taille_fenetre(n, &width, &height), 0);
        EXPECT_EQ(width, 350);
        EXPECT_EQ(height, 260);
        EXPECT_EQ(grx_recup_taille_fenetre_fille(n, &width, &height), 0);
        const Area own = own_area(n);
        EXPECT_EQ(width, own.width) << kind;
        EXPECT_EQ(height, own.height) << kind;
        grx_detruit_fenetre(n);
        settle();
    }
}

TEST_F(WindowsTest, AResizedGraphicWindowHasANewPictureAtOnce) {
    const INT n = shown(GRX_FEN_GRAPHIQUE);
    grx_change_taille_fenetre(n, 350, 260);
    const Pixels picture = grab(x11_disp, *record_of(n).image);
    EXPECT_EQ(picture.width, 350);
    EXPECT_EQ(picture.height, 260);
}

TEST_F(WindowsTest, SizeAndPlaceOfANestedWindow) {
    const INT outer = shown();
    const INT inner = make(nested_in(outer, GRX_FEN_ALPHA, 30, 40, 80, 50));
    ASSERT_TRUE(wait_visible(widget_of(inner)));
    INT x = 0, y = 0, width = 0, height = 0;
    EXPECT_EQ(grx_recup_position_fenetre_fille(inner, &x, &y), 0);
    EXPECT_EQ(x, 30);
    EXPECT_EQ(y, 300 - 40 - 50) << "downwards in the parent";
    grx_recup_taille_fenetre_fille(inner, &width, &height);
    EXPECT_EQ(width, 80);
    EXPECT_EQ(height, 50);
    EXPECT_EQ(grx_change_taille_fenetre_fille(inner, 90, 55), 0);
    EXPECT_TRUE(wait_for([&] { return own_area(inner).width == 90 && own_area(inner).height == 55; }));
    grx_recup_taille_fenetre(inner, &width, &height);
    EXPECT_EQ(width, 400) << "of the shell";
    EXPECT_EQ(height, 300);
}

TEST_F(WindowsTest, Titles) {
    const INT n = shown();
    char title[GRX_TITRE_MAX];
    for (const char* wanted : {"Plan 2", "", "L\xE9gende"}) {
        EXPECT_EQ(grx_change_titre_fenetre(n, const_cast<char*>(wanted)), 0);
        std::memset(title, 'z', sizeof title);
        EXPECT_EQ(grx_recup_titre_fenetre(n, title), 0);
        EXPECT_STREQ(title, wanted);
        XSync(x11_disp, False);
        char* name = nullptr;
        XFetchName(test_display(), XtWindow(shell_of(n)), &name);
        EXPECT_STREQ(name ? name : "", wanted);
        if (name) XFree(name);
    }
    for (INT none : no_windows) {
        std::memset(title, 'z', sizeof title);
        EXPECT_EQ(grx_recup_titre_fenetre(none, title), 0);
        EXPECT_STREQ(title, "") << none;
    }
}

TEST_F(WindowsTest, ALongTitleIsCutToTheBuffer) {
    const INT n = shown();
    const std::string longer(500, 't');
    grx_change_titre_fenetre(n, const_cast<char*>(longer.c_str()));
    char title[GRX_TITRE_MAX + 8];
    std::memset(title, 'z', sizeof title);
    grx_recup_titre_fenetre(n, title);
    EXPECT_EQ(std::string(title), std::string(79, 't'));
    EXPECT_EQ(title[GRX_TITRE_MAX], 'z') << "nothing is written behind it";
}

TEST_F(WindowsTest, PointsOfAWindowOnTheScreen) {
    const INT n = shown();
    INT x = 0, y = 0;
    EXPECT_EQ(grx_coord_relative_to_absolues(n, 0, 0, &x, &y), 0);
    EXPECT_EQ(x, 100);
    EXPECT_EQ(y, 1024 - 120 - 300) << "the lower left corner";
    grx_coord_relative_to_absolues(n, 30, 300, &x, &y);
    EXPECT_EQ(x, 130);
    EXPECT_EQ(y, 1024 - 120) << "the top edge";
    grx_coord_relative_to_absolues(n, -5, -7, &x, &y);
    EXPECT_EQ(x, 95);
    EXPECT_EQ(y, 1024 - 420 - 7);
    for (INT none : no_windows) {
        EXPECT_EQ(grx_coord_relative_to_absolues(none, 12, 34, &x, &y), 0);
        EXPECT_EQ(x, 12) << none;
        EXPECT_EQ(y, 34) << none;
    }
}

TEST_F(WindowsTest, PressesAndScreenPointsAgree) {
    const INT n = shown();
    pointer().click_in(widget_of(n), 33, 44);
    const auto press = next(GRX_EVT_BOUTON_APPUI, n);
    ASSERT_TRUE(press);
    INT x = 0, y = 0, mouse_x = 0, mouse_y = 0;
    grx_coord_relative_to_absolues(n, press->bouton_appui.x, press->bouton_appui.y, &x, &y);
    grx_recup_position_absolue_souris(&mouse_x, &mouse_y);
    EXPECT_EQ(x, mouse_x);
    EXPECT_EQ(y, mouse_y);
}

TEST_F(WindowsTest, TheServersOwnSavingIsSwitched) {
    const INT n = shown();
    const auto saving = [&] {
        XWindowAttributes attributes{};
        XGetWindowAttributes(x11_disp, x_window(n), &attributes);
        return attributes.backing_store;
    };
    EXPECT_EQ(saving(), NotUseful);
    EXPECT_EQ(grx_autorise_sauvegarde_auto(n), 0);
    EXPECT_EQ(saving(), WhenMapped);
    EXPECT_EQ(grx_supprime_sauvegarde_auto(n), 0);
    EXPECT_EQ(saving(), NotUseful);
}

TEST_F(WindowsTest, KeptWidthsAndHeights) {
    for (INT n : {0, 1, 57, 99}) {
        EXPECT_EQ(grx_affecte_largeur_fenetre(n, n * 3), 0);
        EXPECT_EQ(grx_affecte_hauteur_fenetre(n, -n), 0);
    }
    for (INT n : {0, 1, 57, 99}) {
        EXPECT_EQ(grx_recup_largeur_fenetre(n), n * 3);
        EXPECT_EQ(grx_recup_hauteur_fenetre(n), -n);
    }
    for (INT n : {-1, 100, INT_MAX, INT_MIN}) {
        grx_affecte_largeur_fenetre(n, 5);
        grx_affecte_hauteur_fenetre(n, 5);
        EXPECT_EQ(grx_recup_largeur_fenetre(n), 0);
        EXPECT_EQ(grx_recup_hauteur_fenetre(n), 0);
    }
}

TEST_F(WindowsTest, TextWindows) {
    for (const INT extra : {0, scroll_bit}) {
        const INT n = shown(GRX_FEN_TEXTE, visible_bit | extra);
        const auto text = [&] {
            const std::unique_ptr<char, void (*)(char*)> value(XmTextGetString(widget_of(n)), XtFree);
            return std::string(value.get());
        };
        EXPECT_EQ(grx_affiche_texte_dans_fenetre(n, const_cast<char*>("one\ntwo")), 0);
        EXPECT_EQ(text(), "one\ntwo");
        EXPECT_EQ(grx_affiche_texte_dans_fenetre(n, const_cast<char*>("abcdef")), 0);
        EXPECT_EQ(text(), "abcdef") << "the whole text";
        XmTextSetInsertionPosition(widget_of(n), 3);
        EXPECT_EQ(grx_ajoute_texte_dans_fenetre(n, const_cast<char*>("--")), 0);
        EXPECT_EQ(text(), "abc--def");
        EXPECT_EQ(XmTextGetInsertionPosition(widget_of(n)), 5);
        grx_ajoute_texte_dans_fenetre(n, const_cast<char*>("++"));
        EXPECT_EQ(text(), "abc--++def");
        EXPECT_EQ(XmTextGetInsertionPosition(widget_of(n)), 7);
        std::string many;
        for (int i = 0; i < 200; ++i) many += "line\n";
        grx_ajoute_texte_dans_fenetre(n, many.data());
        EXPECT_EQ(XmTextGetInsertionPosition(widget_of(n)), 7 + 1000);
        Position x = 0, y = 0;
        EXPECT_TRUE(XmTextPosToXY(widget_of(n), 7 + 1000, &x, &y)) << "moved into view";
        grx_detruit_fenetre(n);
        settle();
    }
}

TEST_F(WindowsTest, TextForOtherKindsIsIgnored) {
    for (INT kind : {GRX_FEN_BOUTONS, GRX_FEN_GRAPHIQUE, GRX_FEN_ALPHA, GRX_FEN_MESSAGE, GRX_FEN_MENU}) {
        const INT n = shown(kind);
        EXPECT_EQ(grx_affiche_texte_dans_fenetre(n, const_cast<char*>("text")), 0);
        EXPECT_EQ(grx_ajoute_texte_dans_fenetre(n, const_cast<char*>("text")), 0);
        EXPECT_NE(widget_of(n), nullptr);
        grx_detruit_fenetre(n);
    }
}

TEST_F(WindowsTest, TheMenuBarsHeight) {
    EXPECT_EQ(grx_recup_tamenubar(), 0);
    const INT n = shown(GRX_FEN_ALPHA, visible_bit | main_bit);
    grx_affecte_nofen_principale(n);
    Widget bar = grx_get_Glob_menu_bar();
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(grx_recup_tamenubar(), resource<Dimension>(bar, XmNheight));
    INT width = 1, height = 2;
    EXPECT_EQ(grx_recup_taille_menu_bar(n, &width, &height), 0);
    EXPECT_EQ(width, resource<Dimension>(bar, XmNwidth));
    EXPECT_EQ(height, resource<Dimension>(bar, XmNheight));
    grx_detruit_fenetre(n);
    drain();
    EXPECT_EQ(grx_recup_tamenubar(), 0);
    EXPECT_EQ(grx_get_Glob_menu_bar(), nullptr);
}

TEST_F(WindowsTest, TheVisualOfAShellNotYetShown) {
    const INT n = make(GRX_FEN_ALPHA, 0);
    EXPECT_EQ(grx_change_visual_fenetre(n, x11_vis), 0);
    EXPECT_EQ(resource<Visual*>(shell_of(n), XmNvisual), x11_vis);
    for (INT none : no_windows) EXPECT_EQ(grx_change_visual_fenetre(none, x11_vis), 0);
}

TEST_F(WindowsTest, StubsAnswer) {
    EXPECT_EQ(grx_reactive_topmost(), 0);
    EXPECT_EQ(grx_desactive_topmost(), 0);
    EXPECT_EQ(grx_flush_fenetres_graphiques(), 0);
    EXPECT_EQ(grx_ote_mire_si_necessaire(1, 2, 3), 0);
    EXPECT_EQ(grx_met_mire_si_necessaire(1, 2, 3), 0);
    EXPECT_EQ(test_client_fenetre_graphique(1, 2), 1);
    EXPECT_EQ(test_fenetre_principale(1), 0);
    grx_iconifie_application(1);
    const INT n = shown(GRX_FEN_MENU, visible_bit | scroll_bit);
    evt_global = patterned_event();
    const GRX_EVENEMENT before = evt_global;
    grx_gere_evenement_scroll_menu(widget_of(n), nullptr, nullptr);
    EXPECT_EQ(std::memcmp(&evt_global, &before, sizeof before), 0) << "posts nothing";
}

TEST_F(WindowsTest, OperationsOnNoWindowDoNothing) {
    const INT n = shown();
    drain();
    const Area before = area(n);
    std::vector<Window> windows, after;
    gather_windows(test_display(), DefaultRootWindow(test_display()), windows);
    for (INT none : no_windows) {
        INT a = 11, b = 12;
        EXPECT_EQ(grx_affiche_fenetre(none), 0);
        EXPECT_EQ(grx_cache_fenetre(none), 0);
        EXPECT_EQ(grx_affiche_fenetre_fille(none), 0);
        EXPECT_EQ(grx_cache_fenetre_fille(none), 0);
        EXPECT_EQ(grx_detruit_fenetre(none), 0);
        EXPECT_EQ(grx_detruit_fenetre_fille(none), 0);
        EXPECT_EQ(grx_reaffiche_fenetre(none), 0);
        EXPECT_EQ(grx_deplace_fenetre(none, 1, 2), 0);
        EXPECT_EQ(grx_change_taille_fenetre(none, 100, 100), 0);
        EXPECT_EQ(grx_change_taille_fenetre_fille(none, 100, 100), 0);
        EXPECT_EQ(grx_recup_taille_fenetre(none, &a, &b), 0);
        EXPECT_EQ(grx_recup_taille_fenetre_fille(none, &a, &b), 0);
        EXPECT_EQ(grx_recup_position_fenetre(none, &a, &b), 0);
        EXPECT_EQ(a, 11) << none;
        EXPECT_EQ(b, 12) << none;
        EXPECT_EQ(grx_recup_position_fenetre_fille(none, &a, &b), 0);
        EXPECT_EQ(a, 0) << none;
        EXPECT_EQ(b, 0) << none;
        EXPECT_EQ(grx_iconifie_fenetre(none), 0);
        EXPECT_EQ(grx_desiconifie_fenetre(none), 0);
        EXPECT_EQ(grx_restack_fenetre(none, n), 0);
        EXPECT_EQ(grx_restack_fenetre(n, none), 0);
        EXPECT_EQ(grx_change_titre_fenetre(none, const_cast<char*>("t")), 0);
        EXPECT_EQ(grx_autorise_sauvegarde_auto(none), 0);
        EXPECT_EQ(grx_supprime_sauvegarde_auto(none), 0);
        EXPECT_EQ(grx_affiche_texte_dans_fenetre(none, const_cast<char*>("t")), 0);
        EXPECT_EQ(grx_ajoute_texte_dans_fenetre(none, const_cast<char*>("t")), 0);
    }
    drain();
    EXPECT_EQ(area(n), before);
    gather_windows(test_display(), DefaultRootWindow(test_display()), after);
    EXPECT_EQ(windows, after);
    EXPECT_EQ(grx::Tableau_objet_fen[0], reinterpret_cast<Widget>(-2)) << "number 0 stays reserved";
}

} // namespace
