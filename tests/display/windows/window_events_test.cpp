// Events of windows, their callbacks, and the operations on windows.
#include "tests/display/window_kit.h"

#include "xt_prive.h"

#include <algorithm>
#include <climits>

namespace {

using namespace grxtest;

constexpr INT visible_bit = GRX_FEN_ATT_VISIBLE;
constexpr INT scroll_bit = GRX_FEN_ATT_SCROLL;
constexpr INT main_bit = GRX_FEN_ATT_PRINCIPALE;
constexpr std::array<INT, 9> no_windows{0, -1, -7, 50, 99, 100, 101, INT_MAX, INT_MIN};

class WindowsTest : public DisplayTest {
  protected:
    void before_start() override { write_menu(""); }

    // A shown window of 400 x 300 whose top left corner is at 100,120, everything it posts at first taken away.
    INT shown(INT kind = GRX_FEN_ALPHA, INT attrib = visible_bit) {
        const INT n = make(kind, attrib, 400, 300);
        EXPECT_TRUE(wait_visible(widget_of(n)));
        settle();
        return n;
    }

    INT shown_child(INT parent, INT kind = GRX_FEN_ALPHA) {
        GRX_FENETRE window = described(kind, visible_bit, 400, 300);
        window.fen_mere = parent;
        const INT n = make(window);
        EXPECT_TRUE(wait_visible(widget_of(n)));
        settle();
        return n;
    }

    void settle() {
        drain();
        events.clear();
    }

    std::optional<GRX_EVENEMENT> next(INT type, INT window) {
        return events.wait(
            [=](const GRX_EVENEMENT& e) { return e.type_evenement == type && e.affichage.nofen == window; });
    }

    int count(INT type, INT window) {
        return static_cast<int>(std::ranges::count_if(events.seen(),
            [=](const GRX_EVENEMENT& e) { return e.type_evenement == type && e.affichage.nofen == window; }));
    }

    Area area(INT window) {
        XSync(x11_disp, False);
        return server_area(test_display(), XtWindow(shell_of(window)));
    }

    Area own_area(INT window) {
        XSync(x11_disp, False);
        return server_area(test_display(), x_window(window));
    }

    // As the server exposes a part that was covered.
    void expose(INT window, int x = 0, int y = 0, unsigned width = 10, unsigned height = 10) {
        XSync(x11_disp, False);
        XClearArea(test_display(), x_window(window), x, y, width, height, True);
        XSync(test_display(), False);
    }

    Pixels picture(INT window) { return grab(x11_disp, x_window(window)); }
};

// --- redraws ----------------------------------------------------------------------------------------------------

TEST_F(WindowsTest, TheFirstExposureOfAnyKindIsARecord) {
    for (INT kind : all_kinds) {
        const INT n = make(kind, visible_bit, 400, 300);
        EXPECT_EQ(record_of(n).affiche, 0) << kind;
        const auto redraw = next(GRX_EVT_AFFICHAGE, n);
        ASSERT_TRUE(redraw) << kind << ": " << events.describe();
        EXPECT_EQ(redraw->affichage.x, 100) << kind;
        EXPECT_EQ(redraw->affichage.y, 1024 - 120) << kind << ": counted from the bottom";
        EXPECT_EQ(redraw->affichage.largeur, 400) << kind;
        EXPECT_EQ(redraw->affichage.hauteur, 300) << kind;
        EXPECT_EQ(record_of(n).affiche, 1) << kind;
        grx_detruit_fenetre(n);
        settle();
    }
}

TEST_F(WindowsTest, EveryFurtherExposureIsARecordToo) {
    for (INT kind : {GRX_FEN_BOUTONS, GRX_FEN_ALPHA, GRX_FEN_MENU, GRX_FEN_MESSAGE, GRX_FEN_TEXTE}) {
        const INT n = shown(kind);
        expose(n);
        const auto redraw = next(GRX_EVT_AFFICHAGE, n);
        ASSERT_TRUE(redraw) << kind;
        EXPECT_EQ(redraw->affichage.largeur, 400);
        grx_detruit_fenetre(n);
        settle();
    }
}

TEST_F(WindowsTest, ABurstOfExposuresIsOneRecord) {
    for (INT kind : all_kinds) { // the toolkit itself joins those of some classes, not of a drawing area
        const INT n = shown(kind);
        if (kind == GRX_FEN_GRAPHIQUE) grx_interdit_backingstore(n, 1);
        settle();
        for (int i = 0; i < 20; ++i) expose(n, i * 3, i * 5, 7, 9);
        drain();
        EXPECT_EQ(count(GRX_EVT_AFFICHAGE, n), 1) << kind << ": " << events.describe();
        expose(n);
        drain();
        EXPECT_EQ(count(GRX_EVT_AFFICHAGE, n), 2) << kind << ": later ones count again";
        grx_detruit_fenetre(n);
        settle();
    }
}

TEST_F(WindowsTest, EachWindowHasABurstOfItsOwn) {
    const INT first = shown();
    GRX_FENETRE beside = described(GRX_FEN_ALPHA);
    beside.x = 700;
    const INT second = make(beside);
    ASSERT_TRUE(wait_visible(widget_of(second)));
    settle();
    for (int i = 0; i < 10; ++i) {
        expose(first, i * 3, 0);
        expose(second, i * 3, 0);
    }
    drain();
    EXPECT_EQ(count(GRX_EVT_AFFICHAGE, first), 1) << events.describe();
    EXPECT_EQ(count(GRX_EVT_AFFICHAGE, second), 1) << events.describe();
}

TEST_F(WindowsTest, AGraphicWindowRedrawsItselfWithoutARecord) {
    const INT n = shown(GRX_FEN_GRAPHIQUE);
    const auto colour = static_cast<std::uint32_t>(grx_recup_couleur(3));
    ASSERT_NE(record_of(n).image, nullptr);
    XSetForeground(x11_disp, g_c, colour);
    XFillRectangle(x11_disp, *record_of(n).image, g_c, 20, 30, 50, 40);
    grx_init_memo_attrib();
    ASSERT_EQ(picture(n).count(colour), 0);
    grx_cache_fenetre(n);
    ASSERT_TRUE(wait_for([&] { return !visible(x_window(n)); }));
    grx_affiche_fenetre(n);
    ASSERT_TRUE(wait_visible(widget_of(n)));
    EXPECT_TRUE(wait_for([&] { return picture(n).count(colour) == 50 * 40; }));
    EXPECT_EQ(picture(n).bounds(colour), (Area{20, 30, 50, 40}));
    drain();
    EXPECT_EQ(count(GRX_EVT_AFFICHAGE, n), 0) << events.describe();
}

TEST_F(WindowsTest, AGraphicWindowWhosePictureIsForbiddenAsksForARedraw) {
    const INT n = shown(GRX_FEN_GRAPHIQUE);
    grx_interdit_backingstore(n, 1);
    expose(n);
    EXPECT_TRUE(next(GRX_EVT_AFFICHAGE, n)) << events.describe();
    grx_interdit_backingstore(n, 0);
    settle();
    expose(n);
    drain();
    EXPECT_EQ(count(GRX_EVT_AFFICHAGE, n), 0);
}

class NoBackingStoreTest : public WindowsTest {
    XServerOptions server_options() const override {
        XServerOptions options;
        options.arguments = {"-bs"};
        return options;
    }
};

TEST_F(NoBackingStoreTest, UncoveredWindowsAreRedrawn) {
    const INT alpha = shown();
    GRX_FENETRE beside = described(GRX_FEN_GRAPHIQUE);
    beside.x = 600;
    const INT graphic = make(beside);
    ASSERT_TRUE(wait_visible(widget_of(graphic)));
    const auto colour = static_cast<std::uint32_t>(grx_recup_couleur(3));
    XSetForeground(x11_disp, g_c, colour);
    XFillRectangle(x11_disp, *record_of(graphic).image, g_c, 0, 0, 200, 150);
    grx_init_memo_attrib();
    settle();
    Window cover = XCreateSimpleWindow(test_display(), DefaultRootWindow(test_display()), 0, 0, 1280, 1024, 0, 0, 0);
    XMapRaised(test_display(), cover);
    XSync(test_display(), False);
    drain();
    XDestroyWindow(test_display(), cover);
    XSync(test_display(), False);
    EXPECT_TRUE(next(GRX_EVT_AFFICHAGE, alpha)) << events.describe();
    drain();
    EXPECT_EQ(count(GRX_EVT_AFFICHAGE, graphic), 0) << events.describe();
    EXPECT_EQ(picture(graphic).count(colour), 200 * 150) << "from its backing picture";
}

TEST_F(WindowsTest, RedrawHandlingIsSwitchedOffAndOn) {
    const INT n = shown();
    supprime_gestion_expose_pour_fenetre(n);
    expose(n);
    drain();
    EXPECT_EQ(events.seen().size(), 0U) << events.describe();
    pointer().click_in(widget_of(n), 30, 40);
    EXPECT_TRUE(next(GRX_EVT_BOUTON_APPUI, n)) << "the other events go on";
    settle();
    ajoute_gestion_expose_pour_fenetre(n);
    expose(n);
    drain();
    EXPECT_EQ(count(GRX_EVT_AFFICHAGE, n), 1);
    for (INT none : no_windows) {
        EXPECT_EQ(supprime_gestion_expose_pour_fenetre(none), 0);
        EXPECT_EQ(ajoute_gestion_expose_pour_fenetre(none), 0);
    }
}

TEST_F(WindowsTest, SwitchingOnTwiceStillMakesOneRecord) {
    const INT n = shown();
    ajoute_gestion_expose_pour_fenetre(n);
    ajoute_gestion_expose_pour_fenetre(n);
    expose(n);
    drain();
    EXPECT_EQ(count(GRX_EVT_AFFICHAGE, n), 1);
    supprime_gestion_expose_pour_fenetre(n);
    expose(n);
    drain();
    EXPECT_EQ(count(GRX_EVT_AFFICHAGE, n), 1);
}

// --- moves and sizes --------------------------------------------------------------------------------------------

TEST_F(WindowsTest, AMoveIsRecord11WithPlaceAndSize) {
    for (INT kind : all_kinds) {
        const INT n = shown(kind);
        XMoveWindow(test_display(), XtWindow(shell_of(n)), 300, 250);
        XSync(test_display(), False);
        const auto move = next(GRX_EVT_DEPLACEMENT, n);
        ASSERT_TRUE(move) << kind << ": " << events.describe();
        EXPECT_EQ(move->deplacement.x, 300);
        EXPECT_EQ(move->deplacement.y, 1024 - 250);
        EXPECT_EQ(move->deplacement.largeur, 400);
        EXPECT_EQ(move->deplacement.hauteur, 300);
        drain();
        EXPECT_EQ(count(GRX_EVT_CHGT_TAILLE, n), 0) << events.describe();
        grx_detruit_fenetre(n);
        settle();
    }
}

TEST_F(WindowsTest, EveryChangeOfSizeIsRecord16First) {
    struct Change {
        int width, height;
    };
    for (INT kind : all_kinds) {
        const INT n = shown(kind);
        for (const Change& to : {Change{450, 350}, Change{420, 330}, Change{460, 310}, Change{410, 340},
                 Change{410, 320}, Change{430, 320}}) {
            SCOPED_TRACE(testing::Message() << "kind " << kind << " to " << to.width << " x " << to.height);
            XResizeWindow(test_display(), XtWindow(shell_of(n)), static_cast<unsigned>(to.width),
                static_cast<unsigned>(to.height));
            XSync(test_display(), False);
            const auto change = next(GRX_EVT_CHGT_TAILLE, n);
            ASSERT_TRUE(change) << events.describe();
            EXPECT_EQ(change->chgt_taille.x, 100);
            EXPECT_EQ(change->chgt_taille.y, 1024 - 120);
            EXPECT_EQ(change->chgt_taille.largeur, to.width);
            EXPECT_EQ(change->chgt_taille.hauteur, to.height);
            drain();
            EXPECT_EQ(count(GRX_EVT_CHGT_TAILLE, n), 1) << "one change, one record: " << events.describe();
            EXPECT_EQ(grx::known_size(n).width, to.width);
            EXPECT_EQ(grx::known_size(n).height, to.height);
            const auto first = std::ranges::find_if(events.seen(), [](const GRX_EVENEMENT& e) {
                return e.type_evenement == GRX_EVT_CHGT_TAILLE || e.type_evenement == GRX_EVT_DEPLACEMENT;
            });
            EXPECT_EQ(first->type_evenement, GRX_EVT_CHGT_TAILLE) << "what follows looks like moves";
            events.clear();
        }
        grx_detruit_fenetre(n);
        settle();
    }
}

TEST_F(WindowsTest, AGraphicWindowsPictureIsRebuiltBeforeTheRecord) {
    const INT n = shown(GRX_FEN_GRAPHIQUE);
    const auto colour = static_cast<std::uint32_t>(grx_recup_couleur(3));
    XSetForeground(x11_disp, g_c, colour);
    XFillRectangle(x11_disp, *record_of(n).image, g_c, 0, 0, 400, 300);
    grx_init_memo_attrib();
    XResizeWindow(test_display(), XtWindow(shell_of(n)), 500, 360);
    XSync(test_display(), False);
    ASSERT_TRUE(next(GRX_EVT_CHGT_TAILLE, n));
    const Pixels fresh = grab(x11_disp, *record_of(n).image);
    EXPECT_EQ(fresh.width, 500);
    EXPECT_EQ(fresh.height, 360);
    EXPECT_EQ(fresh.count(colour), 0) << "empty";
}

TEST_F(WindowsTest, TheApplicationsOwnResizeIsTold) {
    const INT n = shown(GRX_FEN_GRAPHIQUE);
    EXPECT_EQ(grx_change_taille_fenetre(n, 333, 222), 0);
    const auto change = next(GRX_EVT_CHGT_TAILLE, n);
    ASSERT_TRUE(change) << events.describe();
    EXPECT_EQ(change->chgt_taille.largeur, 333);
    EXPECT_EQ(change->chgt_taille.hauteur, 222);
}

TEST_F(WindowsTest, ANestedWindowTellsItsResizeAndNoBogusOne) {
    const INT outer = shown(GRX_FEN_ALPHA);
    const INT inner = make(nested_in(outer, GRX_FEN_GRAPHIQUE, 10, 20, 80, 60));
    ASSERT_TRUE(wait_visible(widget_of(inner)));
    drain();
    EXPECT_EQ(count(GRX_EVT_CHGT_TAILLE, inner), 0) << "its size is as it was made: " << events.describe();
    settle();
    grx_change_taille_fenetre_fille(inner, 100, 70);
    EXPECT_TRUE(next(GRX_EVT_CHGT_TAILLE, inner)) << events.describe();
    EXPECT_EQ(grx::known_size(inner).width, 100);
    EXPECT_EQ(grx::known_size(inner).height, 70);
}

// --- pointer ----------------------------------------------------------------------------------------------------

TEST_F(WindowsTest, APressHasItsPlaceFromTheBottom) {
    const INT n = shown();
    struct At {
        int x, y;
    };
    for (const At& at : {At{30, 40}, At{0, 0}, At{399, 299}}) {
        pointer().click_in(widget_of(n), at.x, at.y);
        const auto press = next(GRX_EVT_BOUTON_APPUI, n);
        ASSERT_TRUE(press) << events.describe();
        EXPECT_EQ(press->bouton_appui.x, at.x);
        EXPECT_EQ(press->bouton_appui.y, 300 - at.y);
        EXPECT_EQ(press->bouton_appui.bouton, 1);
        EXPECT_EQ(press->bouton_appui.nobou, -1);
        EXPECT_EQ(press->bouton_appui.no_fo, -1);
        EXPECT_EQ(press->bouton_appui.carac, -1);
        EXPECT_EQ(press->bouton_appui.etat, 0);
        const auto release = next(GRX_EVT_BOUTON_RELACHE, n);
        ASSERT_TRUE(release) << events.describe();
        EXPECT_EQ(release->bouton_relache.x, at.x);
        EXPECT_EQ(release->bouton_relache.y, 300 - at.y);
        EXPECT_EQ(release->bouton_relache.bouton, 1);
        EXPECT_EQ(release->bouton_relache.nobou, -1);
        EXPECT_EQ(release->bouton_relache.no_fo, -1);
        EXPECT_EQ(release->bouton_relache.carac, -1);
        EXPECT_EQ(release->bouton_relache.etat, 0);
    }
}

TEST_F(WindowsTest, AReleaseOutsideGoesBelowZero) {
    const INT n = shown();
    pointer().drag({150, 200}, {150, 120 + 300}, 1, 2, [this] { drain(); });
    auto release = next(GRX_EVT_BOUTON_RELACHE, n);
    ASSERT_TRUE(release) << events.describe();
    EXPECT_EQ(release->bouton_relache.y, 0) << "the X event's y is the height";
    pointer().drag({150, 200}, {90, 120 + 310}, 1, 2, [this] { drain(); });
    release = next(GRX_EVT_BOUTON_RELACHE, n);
    ASSERT_TRUE(release);
    EXPECT_EQ(release->bouton_relache.x, -10);
    EXPECT_EQ(release->bouton_relache.y, -10);
}

TEST_F(WindowsTest, HeightIsThatOfTheDrawingAreaNotOfTheShell) {
    const INT n = shown(GRX_FEN_GRAPHIQUE, visible_bit | scroll_bit);
    const Area own = own_area(n);
    ASSERT_LT(own.height, 300);
    pointer().click_in(widget_of(n), 30, 40);
    const auto press = next(GRX_EVT_BOUTON_APPUI, n);
    ASSERT_TRUE(press) << events.describe();
    EXPECT_EQ(press->bouton_appui.y, own.height - 40);
}

TEST_F(WindowsTest, AfterAResizeTheNewHeightCounts) {
    const INT n = shown();
    grx_change_taille_fenetre(n, 400, 260);
    ASSERT_TRUE(wait_for([&] { return own_area(n).height == 260; }));
    settle();
    pointer().click_in(widget_of(n), 30, 40);
    const auto press = next(GRX_EVT_BOUTON_APPUI, n);
    ASSERT_TRUE(press);
    EXPECT_EQ(press->bouton_appui.y, 260 - 40);
}

TEST_F(WindowsTest, EachMouseButtonHasItsNumber) {
    const INT n = shown();
    for (unsigned button : {1U, 2U, 3U, 4U, 5U}) {
        pointer().click_in(widget_of(n), 30, 40, button);
        const auto press = next(GRX_EVT_BOUTON_APPUI, n);
        ASSERT_TRUE(press) << button << ": " << events.describe();
        EXPECT_EQ(press->bouton_appui.bouton, static_cast<INT>(button));
        const auto release = next(GRX_EVT_BOUTON_RELACHE, n);
        ASSERT_TRUE(release) << button;
        EXPECT_EQ(release->bouton_relache.bouton, static_cast<INT>(button));
    }
}

TEST_F(WindowsTest, ModifiersOfPressesAndReleases) {
    const INT n = shown();
    struct Held {
        std::vector<KeySym> keys;
        INT etat;
    };
    for (const Held& held : {Held{{XK_Shift_L}, 2}, Held{{XK_Control_L}, 4}, Held{{XK_Shift_L, XK_Control_L}, 6},
             Held{{XK_Alt_L}, 0}, Held{{XK_Alt_L, XK_Shift_R}, 2}}) {
        for (KeySym key : held.keys) keyboard().press(key);
        pointer().click_in(widget_of(n), 30, 40);
        for (KeySym key : held.keys) keyboard().release(key);
        const auto press = next(GRX_EVT_BOUTON_APPUI, n);
        ASSERT_TRUE(press) << events.describe();
        EXPECT_EQ(press->bouton_appui.etat, held.etat);
        const auto release = next(GRX_EVT_BOUTON_RELACHE, n);
        ASSERT_TRUE(release);
        EXPECT_EQ(release->bouton_relache.etat, held.etat);
    }
}

TEST_F(WindowsTest, CapsAndNumLockAreNoModifiers) {
    const INT n = shown();
    keyboard().caps_lock();
    keyboard().num_lock();
    settle();
    pointer().click_in(widget_of(n), 30, 40);
    const auto press = next(GRX_EVT_BOUTON_APPUI, n);
    keyboard().caps_lock();
    keyboard().num_lock();
    ASSERT_TRUE(press);
    EXPECT_EQ(press->bouton_appui.etat, 0);
}

TEST_F(WindowsTest, MotionTellsTheHeldButton) {
    const INT n = shown();
    pointer().move_in(widget_of(n), 50, 60);
    settle();
    const auto moved_to = [&](int x, int y) {
        pointer().move_in(widget_of(n), x, y);
        return next(GRX_EVT_SOURIS_BOUGE, n);
    };
    auto motion = moved_to(70, 80);
    ASSERT_TRUE(motion) << events.describe();
    EXPECT_EQ(motion->souris_bouge.x, 70);
    EXPECT_EQ(motion->souris_bouge.y, 300 - 80);
    EXPECT_EQ(motion->souris_bouge.bouton, 0) << "none is held";
    EXPECT_EQ(motion->souris_bouge.nobou, -1);
    EXPECT_EQ(motion->souris_bouge.no_fo, -1);
    EXPECT_EQ(motion->souris_bouge.carac, -1);
    EXPECT_EQ(motion->souris_bouge.etat, 0);
    for (unsigned button : {1U, 2U, 3U}) {
        pointer().press(button);
        motion = moved_to(71 + static_cast<int>(button), 80);
        ASSERT_TRUE(motion) << button;
        EXPECT_EQ(motion->souris_bouge.bouton, static_cast<INT>(button));
        pointer().release(button);
        motion = moved_to(81 + static_cast<int>(button), 80);
        ASSERT_TRUE(motion) << button;
        EXPECT_EQ(motion->souris_bouge.bouton, 0);
    }
}

TEST_F(WindowsTest, OneButtonIsRemembered) {
    const INT n = shown();
    pointer().move_in(widget_of(n), 50, 60);
    pointer().press(1);
    pointer().press(3);
    settle();
    pointer().move_in(widget_of(n), 52, 60);
    auto motion = next(GRX_EVT_SOURIS_BOUGE, n);
    ASSERT_TRUE(motion);
    EXPECT_EQ(motion->souris_bouge.bouton, 3) << "the last one pressed";
    pointer().release(3);
    pointer().move_in(widget_of(n), 54, 60);
    motion = next(GRX_EVT_SOURIS_BOUGE, n);
    ASSERT_TRUE(motion);
    EXPECT_EQ(motion->souris_bouge.bouton, 0) << "any release forgets it, though the left one is still down";
    pointer().release(1);
}

TEST_F(WindowsTest, ThePointerEntersAndLeaves) {
    for (INT kind : {GRX_FEN_BOUTONS, GRX_FEN_GRAPHIQUE, GRX_FEN_ALPHA, GRX_FEN_MENU}) {
        pointer().move(5, 5);
        const INT n = shown(kind);
        pointer().move_in(widget_of(n), 200, 250);
        const auto enter = next(GRX_EVT_ENTREE, n);
        ASSERT_TRUE(enter) << kind << ": " << events.describe();
        EXPECT_EQ(enter->sortie.nobou, -1);
        EXPECT_EQ(enter->sortie.no_fo, -1);
        pointer().move(5, 5);
        const auto leave = next(GRX_EVT_SORTIE, n);
        ASSERT_TRUE(leave) << kind << ": " << events.describe();
        EXPECT_EQ(leave->sortie.nobou, -1);
        EXPECT_EQ(leave->sortie.no_fo, -1);
        grx_detruit_fenetre(n);
        settle();
    }
}

TEST_F(WindowsTest, NestedWindowsPostUnderTheirOwnNumber) {
    const INT outer = shown();
    const INT inner = make(nested_in(outer, GRX_FEN_GRAPHIQUE, 10, 20, 80, 60));
    ASSERT_TRUE(wait_visible(widget_of(inner)));
    settle();
    pointer().click_in(widget_of(inner), 7, 9);
    const auto press = events.wait(GRX_EVT_BOUTON_APPUI);
    ASSERT_TRUE(press);
    EXPECT_EQ(press->bouton_appui.nofen, inner);
    EXPECT_EQ(press->bouton_appui.x, 7);
    EXPECT_EQ(press->bouton_appui.y, 60 - 9);
}

TEST_F(WindowsTest, KeysCountFromTheTop) {
    const INT n = shown();
    pointer().move_in(widget_of(n), 30, 40);
    settle();
    keyboard().key(XK_k);
    const auto key = next(GRX_EVT_CARAC_APPUI, n);
    ASSERT_TRUE(key) << events.describe();
    EXPECT_EQ(key->carac_appui.x, 30);
    EXPECT_EQ(key->carac_appui.y, 40) << "not turned over";
    EXPECT_EQ(key->carac_appui.bouton, 0);
    EXPECT_EQ(key->carac_appui.nobou, -1);
    EXPECT_EQ(key->carac_appui.no_fo, -1);
    EXPECT_EQ(key->carac_appui.carac, 'k');
    EXPECT_EQ(key->carac_appui.etat, 0);
}

TEST_F(WindowsTest, UntranslatedKeysGoToTheMenu) {
    const INT main = shown(GRX_FEN_ALPHA, visible_bit | main_bit);
    grx_affecte_nofen_principale(main);
    GRX_FENETRE beside = described(GRX_FEN_ALPHA);
    beside.x = 700;
    const INT n = make(beside);
    ASSERT_TRUE(wait_visible(widget_of(n)));
    pointer().move_in(widget_of(n), 30, 40);
    settle();
    grx::evt_menu = {};
    keyboard().key(XK_o, ControlMask);
    drain();
    EXPECT_EQ(events.count(GRX_EVT_CARAC_APPUI), 0) << events.describe();
    EXPECT_EQ(grx::evt_menu.type, KeyPress);
    EXPECT_EQ(grx::evt_menu.xkey.keycode, XKeysymToKeycode(x11_disp, XK_o));
}

// --- every field of every record ----------------------------------------------------------------------------------

// What the handler leaves in the pending record, whose bytes were all 0x5A.
class HandlerTest : public WindowsTest {
  protected:
    GRX_EVENEMENT after(INT window, XEvent event) {
        event.xany.display = x11_disp;
        event.xany.window = x_window(window);
        evt_global = patterned_event();
        Boolean go_on = True;
        grx_gere_evenements_fenetre(widget_of(window), &record_of(window), &event, &go_on);
        return evt_global;
    }

    // Both records are the same, byte by byte.
    static void expect_same(const GRX_EVENEMENT& actual, const GRX_EVENEMENT& wanted, const char* what) {
        const auto* a = reinterpret_cast<const INT*>(&actual);
        const auto* w = reinterpret_cast<const INT*>(&wanted);
        for (std::size_t i = 0; i < sizeof wanted / sizeof(INT); ++i) EXPECT_EQ(a[i], w[i]) << what << ", word " << i;
    }

    static XEvent pointer_event(int type, int x, int y, unsigned button, unsigned state) {
        XEvent event{};
        event.type = type;
        if (type == MotionNotify) {
            event.xmotion.x = x;
            event.xmotion.y = y;
            event.xmotion.state = state;
        } else {
            event.xbutton.x = x;
            event.xbutton.y = y;
            event.xbutton.button = button;
            event.xbutton.state = state;
        }
        return event;
    }

    static GRX_EVENEMENT digit(INT type, INT window, INT x, INT y, INT bouton, INT carac) {
        GRX_EVENEMENT wanted = patterned_event();
        GRX_DIGIT& d = wanted.bouton_appui;
        d.type_evenement = type;
        d.nofen = window;
        d.nobou = d.no_fo = -1;
        d.x = x;
        d.y = y;
        d.bouton = bouton;
        d.carac = carac;
        return wanted;
    }
};

TEST_F(HandlerTest, PointerRecords) {
    const INT n = shown();
    GRX_EVENEMENT wanted = digit(GRX_EVT_BOUTON_APPUI, n, 12, 0, 2, -1);
    wanted.bouton_appui.etat = 6;
    expect_same(after(n, pointer_event(ButtonPress, 12, 300, 2, ShiftMask | ControlMask | Mod2Mask)), wanted, "press");
    wanted = digit(GRX_EVT_SOURIS_BOUGE, n, 13, 300, 2, -1);
    expect_same(after(n, pointer_event(MotionNotify, 13, 0, 0, ShiftMask)), wanted, "motion leaves etat");
    wanted = digit(GRX_EVT_BOUTON_RELACHE, n, 14, 150, 1, -1);
    wanted.bouton_relache.etat = 4;
    expect_same(after(n, pointer_event(ButtonRelease, 14, 150, 1, ControlMask)), wanted, "release");
    wanted = digit(GRX_EVT_SOURIS_BOUGE, n, -13, 310, 0, -1);
    expect_same(after(n, pointer_event(MotionNotify, -13, -10, 0, 0)), wanted, "motion without a button");
}

TEST_F(HandlerTest, CrossingRecords) {
    const INT n = shown();
    XEvent event{};
    GRX_EVENEMENT wanted = patterned_event();
    wanted.sortie = {GRX_EVT_ENTREE, n, -1, -1};
    event.type = EnterNotify;
    expect_same(after(n, event), wanted, "enter");
    wanted.sortie.type_evenement = GRX_EVT_SORTIE;
    event.type = LeaveNotify;
    expect_same(after(n, event), wanted, "leave");
}

TEST_F(HandlerTest, MappingRecords) {
    const INT n = shown();
    XEvent event{};
    GRX_EVENEMENT wanted = patterned_event();
    wanted.iconification = {GRX_EVT_ICONIFICATION, n};
    event.type = UnmapNotify;
    expect_same(after(n, event), wanted, "unmap");
    wanted.desiconification = {GRX_EVT_DESICONIF, n};
    event.type = MapNotify;
    expect_same(after(n, event), wanted, "map");
}

TEST_F(HandlerTest, GeometryRecords) {
    const INT n = shown();
    XEvent event{};
    GRX_EVENEMENT wanted = patterned_event();
    wanted.deplacement = {GRX_EVT_DEPLACEMENT, n, 100, 1024 - 120, 400, 300};
    event.type = ConfigureNotify;
    event.xconfigure.width = 400;
    event.xconfigure.height = 300;
    expect_same(after(n, event), wanted, "move");
    wanted.affichage = {GRX_EVT_AFFICHAGE, n, 100, 1024 - 120, 400, 300};
    event = {};
    event.type = Expose;
    expect_same(after(n, event), wanted, "redraw");
}

TEST_F(HandlerTest, KeyRecord) {
    const INT n = shown();
    XEvent event{};
    event.type = KeyPress;
    event.xkey.x = 21;
    event.xkey.y = 22;
    event.xkey.state = ShiftMask;
    event.xkey.keycode = XKeysymToKeycode(x11_disp, XK_a);
    expect_same(after(n, event), digit(GRX_EVT_CARAC_APPUI, n, 21, 22, 0, 'A'), "key leaves etat");
}

TEST_F(HandlerTest, OtherEventsWriteNothing) {
    const INT n = shown();
    for (int type : {VisibilityNotify, GravityNotify, ReparentNotify, KeyRelease, CirculateNotify, PropertyNotify,
             FocusIn, FocusOut, NoExpose, CreateNotify}) {
        XEvent event{};
        event.type = type;
        expect_same(after(n, event), patterned_event(), "other");
    }
}

TEST_F(HandlerTest, AFreedRecordWritesNothing) {
    const INT n = shown();
    STRUCTURE_FENETRE& record = record_of(n);
    Widget widget = widget_of(n);
    ASSERT_EQ(grx_libere_indice_objet_fen(n), 1);
    for (int type : {ButtonPress, Expose, ConfigureNotify, EnterNotify, KeyPress, MapNotify}) {
        XEvent event{};
        event.type = type;
        event.xany.display = x11_disp;
        event.xany.window = XtWindow(widget);
        evt_global = patterned_event();
        Boolean go_on = True;
        grx_gere_evenements_fenetre(widget, &record, &event, &go_on);
        expect_same(evt_global, patterned_event(), "freed number");
    }
}

// --- scroll bars --------------------------------------------------------------------------------------------------

class ScrollTest : public WindowsTest {
  protected:
    Widget bar(INT window, const char* side) {
        Widget w = widget_of(window);
        while (!XmIsScrolledWindow(w)) w = XtParent(w);
        return resource<Widget>(w, side);
    }

    // Both bars from 0 to 1000 with a slider of 100.
    INT scrolled() {
        const INT n = shown(GRX_FEN_GRAPHIQUE, visible_bit | scroll_bit);
        for (const char* side : {XmNverticalScrollBar, XmNhorizontalScrollBar})
            XtVaSetValues(bar(n, side), XmNminimum, 0, XmNmaximum, 1000, XmNsliderSize, 100, XmNvalue, 0, nullptr);
        settle();
        return n;
    }
};

TEST_F(ScrollTest, AnArrowIsOneStep) {
    const INT n = scrolled();
    grx_affecte_increment_scrollbar(n, 25);
    struct Side {
        const char* name;
        INT nobou;
    };
    for (const Side& side : {Side{XmNverticalScrollBar, 1}, Side{XmNhorizontalScrollBar, 0}}) {
        Widget w = bar(n, side.name);
        const Area place = server_area(test_display(), XtWindow(w));
        pointer().click(place.x + place.width - 7, place.y + place.height - 7);
        const auto scroll = events.wait(GRX_EVT_ECHELLE);
        ASSERT_TRUE(scroll) << events.describe();
        EXPECT_EQ(scroll->exec_fonction.nofen, n);
        EXPECT_EQ(scroll->exec_fonction.nobou, side.nobou);
        EXPECT_EQ(scroll->exec_fonction.valeur, 25);
        EXPECT_EQ(resource<int>(w, XmNvalue), 25);
    }
}

TEST_F(ScrollTest, ADragIsToldWhileItGoesOn) {
    const INT n = scrolled();
    Widget w = bar(n, XmNverticalScrollBar);
    const Area place = server_area(test_display(), XtWindow(w));
    const Point grip{place.x + place.width / 2, place.y + place.width + 8};
    int before_release = 0;
    pointer().drag(grip, {grip.x, grip.y + 120}, 1, 6, [&] {
        drain();
        before_release = std::max(before_release, events.count(GRX_EVT_ECHELLE));
    });
    EXPECT_GE(before_release, 3) << events.describe();
    INT last = 0;
    for (const GRX_EVENEMENT& e : events.seen()) {
        if (e.type_evenement != GRX_EVT_ECHELLE) continue;
        EXPECT_EQ(e.exec_fonction.nofen, n);
        EXPECT_EQ(e.exec_fonction.nobou, 1);
        EXPECT_GE(e.exec_fonction.valeur, last);
        last = e.exec_fonction.valeur;
    }
    EXPECT_GT(last, 0);
    EXPECT_EQ(last, resource<int>(w, XmNvalue)) << "the last one is the final value";
}

TEST_F(ScrollTest, TheCallbackWritesItsFieldsOnly) {
    const INT n = scrolled();
    INT number = n;
    XmScrollBarCallbackStruct call{};
    call.value = 77;
    evt_global = patterned_event();
    grx_scroll_change(bar(n, XmNhorizontalScrollBar), &number, &call);
    GRX_EVENEMENT wanted = patterned_event();
    wanted.exec_fonction.type_evenement = GRX_EVT_ECHELLE;
    wanted.exec_fonction.nofen = n;
    wanted.exec_fonction.nobou = 0;
    wanted.exec_fonction.valeur = 77;
    EXPECT_EQ(std::memcmp(&evt_global, &wanted, sizeof wanted), 0);
    grx_scroll_change(bar(n, XmNverticalScrollBar), &number, &call);
    EXPECT_EQ(evt_global.exec_fonction.nobou, 1);
}

TEST_F(ScrollTest, SetValuesAreReadBackAndPostNothing) {
    const INT n = scrolled();
    for (INT orient : {0, 1, 7, -1}) {
        EXPECT_EQ(grx_affecte_carac_scroll_fenetre(n, orient, 555, -50, 800, 300), 0);
        INT len = 1, min = 2, max = 3, value = 4;
        EXPECT_EQ(grx_recup_carac_scroll_fenetre(n, orient, &len, &min, &max, &value), 0);
        EXPECT_EQ(len, 100) << "never set here";
        EXPECT_EQ(min, -50);
        EXPECT_EQ(max, 800);
        EXPECT_EQ(value, 300);
        Widget w = bar(n, orient ? XmNverticalScrollBar : XmNhorizontalScrollBar);
        EXPECT_EQ(resource<int>(w, XmNvalue), 300);
        EXPECT_EQ(resource<int>(w, XmNminimum), -50);
        EXPECT_EQ(resource<int>(w, XmNmaximum), 800);
        grx_affecte_carac_scroll_fenetre(n, orient, 0, 0, 1000, 0);
    }
    drain();
    EXPECT_EQ(events.count(GRX_EVT_ECHELLE), 0);
}

TEST_F(ScrollTest, OneBarDoesNotTouchTheOther) {
    const INT n = scrolled();
    grx_affecte_carac_scroll_fenetre(n, 0, 0, 10, 500, 200);
    INT len = 0, min = 0, max = 0, value = 0;
    grx_recup_carac_scroll_fenetre(n, 1, &len, &min, &max, &value);
    EXPECT_EQ(min, 0);
    EXPECT_EQ(max, 1000);
    EXPECT_EQ(value, 0);
}

TEST_F(ScrollTest, WithoutABarAllIsZero) {
    const INT plain = shown();
    const INT menu = shown(GRX_FEN_ALPHA, visible_bit | main_bit);
    for (INT n : {plain, menu, 0, -1, 50, 100}) {
        INT len = 1, min = 2, max = 3, value = 4;
        EXPECT_EQ(grx_recup_carac_scroll_fenetre(n, 1, &len, &min, &max, &value), 0);
        EXPECT_EQ(len, 0) << n;
        EXPECT_EQ(min, 0) << n;
        EXPECT_EQ(max, 0) << n;
        EXPECT_EQ(value, 0) << n;
        EXPECT_EQ(grx_affecte_carac_scroll_fenetre(n, 1, 1, 2, 3, 2), 0);
        INT width = 11, height = 12;
        EXPECT_EQ(grx_recup_taille_scrollbars_fenetre(n, &width, &height), 0);
        EXPECT_EQ(width, 11) << n;
        EXPECT_EQ(height, 12) << n;
        EXPECT_EQ(grx_affecte_increment_scrollbar(n, 5), 0);
    }
}

TEST_F(ScrollTest, ABarOfTheWindowAroundIsNotItsOwn) {
    const INT around = scrolled();
    GRX_FENETRE description = described(GRX_FEN_ALPHA);
    description.fen_mere = around;
    for (INT n : {make(nested_in(around, GRX_FEN_ALPHA)), make(description)}) {
        ASSERT_TRUE(wait_visible(widget_of(n)));
        for (INT side : {0, 1}) {
            INT len = 1, min = 2, max = 3, value = 4;
            grx_recup_carac_scroll_fenetre(n, side, &len, &min, &max, &value);
            EXPECT_EQ((std::array{len, min, max, value}), (std::array<INT, 4>{})) << side;
            grx_affecte_carac_scroll_fenetre(n, side, 0, 5, 700, 40);
            grx_recup_carac_scroll_fenetre(around, side, &len, &min, &max, &value);
            EXPECT_EQ((std::array{min, max, value}), (std::array<INT, 3>{0, 1000, 0})) << side;
        }
        INT width = 11, height = 12;
        grx_recup_taille_scrollbars_fenetre(n, &width, &height);
        EXPECT_EQ(std::pair(width, height), std::pair(11, 12));
    }
}

TEST_F(ScrollTest, BothIncrementsOfBothBars) {
    for (INT kind : {GRX_FEN_GRAPHIQUE, GRX_FEN_ALPHA}) {
        const INT n = shown(kind, visible_bit | scroll_bit);
        EXPECT_EQ(grx_affecte_increment_scrollbar(n, 31), 0);
        for (const char* side : {XmNverticalScrollBar, XmNhorizontalScrollBar}) {
            EXPECT_EQ(resource<int>(bar(n, side), XmNincrement), 31);
            EXPECT_EQ(resource<int>(bar(n, side), XmNpageIncrement), 31);
        }
    }
}

TEST_F(ScrollTest, SizesAreTheThicknesses) {
    for (INT kind : {GRX_FEN_GRAPHIQUE, GRX_FEN_ALPHA}) {
        const INT n = shown(kind, visible_bit | scroll_bit);
        INT width = 0, height = 0;
        EXPECT_EQ(grx_recup_taille_scrollbars_fenetre(n, &width, &height), 0);
        EXPECT_EQ(width, resource<Dimension>(bar(n, XmNhorizontalScrollBar), XmNheight)) << "of the horizontal one";
        EXPECT_EQ(height, resource<Dimension>(bar(n, XmNverticalScrollBar), XmNwidth)) << "of the vertical one";
        EXPECT_GT(width, 0);
        EXPECT_GT(height, 0);
    }
}

// --- messages and commands ------------------------------------------------------------------------------------------

TEST_F(WindowsTest, ConfirmAnswersOne) {
    const INT n = shown(GRX_FEN_MESSAGE);
    Widget ok = XtNameToWidget(widget_of(n), "OK"); // a gadget: it has no window of its own
    ASSERT_NE(ok, nullptr);
    pointer().click_in(x_window(n), resource<Position>(ok, XmNx) + resource<Dimension>(ok, XmNwidth) / 2,
        resource<Position>(ok, XmNy) + resource<Dimension>(ok, XmNheight) / 2);
    const auto answer = next(GRX_EVT_REPONSE, n);
    ASSERT_TRUE(answer) << events.describe();
    EXPECT_EQ(answer->reponse_question.reponse, 1);
    drain();
    EXPECT_EQ(events.count(GRX_EVT_REPONSE), 1);
}

TEST_F(WindowsTest, AbandonIsAButtonThatAnswersTwo) {
    const INT n = shown(GRX_FEN_MESSAGE);
    Widget abandon = XtNameToWidget(widget_of(n), "ABANDON");
    ASSERT_NE(abandon, nullptr);
    ASSERT_TRUE(wait_visible(abandon));
    pointer().click_in(abandon);
    const auto answer = next(GRX_EVT_REPONSE, n);
    ASSERT_TRUE(answer) << events.describe();
    EXPECT_EQ(answer->reponse_question.nofen, n);
    EXPECT_EQ(answer->reponse_question.reponse, 2);
    drain();
    EXPECT_EQ(events.count(GRX_EVT_REPONSE), 1);
}

TEST_F(WindowsTest, EscapeAbandonsAndAnswersTwo) {
    const INT n = shown(GRX_FEN_MESSAGE);
    pointer().move_in(widget_of(n), 200, 20);
    settle();
    keyboard().key(XK_Escape);
    const auto answer = next(GRX_EVT_REPONSE, n);
    ASSERT_TRUE(answer) << events.describe();
    EXPECT_EQ(answer->reponse_question.reponse, 2);
}

TEST_F(WindowsTest, ReturnConfirms) {
    const INT n = shown(GRX_FEN_MESSAGE);
    pointer().move_in(widget_of(n), 200, 20);
    settle();
    keyboard().key(XK_Return);
    const auto answer = next(GRX_EVT_REPONSE, n);
    ASSERT_TRUE(answer) << events.describe();
    EXPECT_EQ(answer->reponse_question.reponse, 1);
}

TEST_F(WindowsTest, AnyOtherReasonLeavesTheAnswer) {
    const INT n = shown(GRX_FEN_MESSAGE);
    INT number = n;
    for (const auto& [reason, wanted] :
        {std::pair{int{XmCR_HELP}, untouched}, std::pair{int{XmCR_OK}, 1}, std::pair{int{XmCR_CANCEL}, 2}}) {
        XmAnyCallbackStruct call{reason, nullptr};
        evt_global = patterned_event();
        grx_reponse_a_message(widget_of(n), &number, &call);
        GRX_EVENEMENT record = patterned_event();
        record.reponse_question = {GRX_EVT_REPONSE, n, wanted};
        EXPECT_EQ(std::memcmp(&evt_global, &record, sizeof record), 0) << reason;
    }
}

TEST_F(WindowsTest, AnEnteredCommandIsRecord14) {
    const INT n = shown();
    Widget command = XmCreateCommand(widget_of(n), const_cast<char*>("command"), nullptr, 0);
    static INT number = 0;
    number = n;
    XtAddCallback(command, XmNcommandEnteredCallback, grx_commande_entree, &number);
    XtVaSetValues(command, XmNwidth, 300, nullptr);
    XtManageChild(command);
    Widget field = XtNameToWidget(command, "Text");
    ASSERT_NE(field, nullptr);
    ASSERT_TRUE(wait_visible(field));
    pointer().click_in(field);
    drain();
    keyboard().type("line 0,0\n");
    const auto entered = next(GRX_EVT_COMMANDE, n);
    ASSERT_TRUE(entered) << events.describe();
    EXPECT_STREQ(entered->commande_entree.chaine, "line 0,0");
}

TEST_F(WindowsTest, ALongCommandIsCut) {
    INT number = 7;
    const std::string text(700, 'c');
    XmCommandCallbackStruct call{};
    call.reason = XmCR_COMMAND_ENTERED;
    call.value = XmStringCreateLocalized(const_cast<char*>(text.c_str()));
    evt_global = patterned_event();
    grx_commande_entree(widget_of(shown()), &number, &call);
    XmStringFree(call.value);
    EXPECT_EQ(evt_global.commande_entree.type_evenement, GRX_EVT_COMMANDE);
    EXPECT_EQ(evt_global.commande_entree.nofen, 7);
    EXPECT_EQ(std::string(evt_global.commande_entree.chaine), std::string(255, 'c'));
}

// --- the end of windows ---------------------------------------------------------------------------------------------

TEST_F(WindowsTest, ACloseRequestEndsTheWindowAndIsRecord7) {
    for (INT kind : all_kinds)
        for (const INT extra : {0, scroll_bit, main_bit}) {
            const INT other = make(GRX_FEN_ALPHA, 0);
            const INT n = shown(kind, visible_bit | extra);
            ask_to_close(test_display(), XtWindow(shell_of(n)));
            const auto end = next(GRX_EVT_DESTRUCTION, n);
            ASSERT_TRUE(end) << kind << ": " << events.describe();
            EXPECT_EQ(events.count(GRX_EVT_DESTRUCTION), 1);
            EXPECT_EQ(widget_of(n), nullptr) << "the number is free";
            EXPECT_EQ(record_of(n).nofen, MAXOBJETFEN);
            EXPECT_NE(widget_of(other), nullptr);
            EXPECT_EQ(make(GRX_FEN_ALPHA), n) << "and given again";
            grx_detruit_fenetre(n);
            grx_detruit_fenetre(other);
            settle();
        }
}

TEST_F(WindowsTest, ClosingAChildLeavesItsParent) {
    const INT top = shown();
    const INT child = shown_child(top);
    ask_to_close(test_display(), XtWindow(shell_of(child)));
    ASSERT_TRUE(next(GRX_EVT_DESTRUCTION, child)) << events.describe();
    drain();
    EXPECT_EQ(widget_of(child), nullptr);
    ASSERT_NE(widget_of(top), nullptr);
    EXPECT_TRUE(visible(x_window(top)));
}

TEST_F(WindowsTest, ClosingAParentFreesItsChildrenAndNestedWindows) {
    const INT top = shown();
    const INT child = shown_child(top);
    const INT nested = make(nested_in(top, GRX_FEN_GRAPHIQUE));
    ASSERT_GT(nested, 0);
    settle();
    ask_to_close(test_display(), XtWindow(shell_of(top)));
    drain();
    EXPECT_GE(events.count(GRX_EVT_DESTRUCTION), 1) << events.describe();
    for (INT n : {top, child, nested}) {
        EXPECT_EQ(widget_of(n), nullptr) << n;
        EXPECT_EQ(record_of(n).nofen, MAXOBJETFEN) << n;
    }
}

TEST_F(WindowsTest, DestroyingFreesTheNumberAtOnceAndPosts7) {
    const INT first = shown(), second = shown();
    Window shell = XtWindow(shell_of(first));
    evt_global = patterned_event();
    EXPECT_EQ(grx_detruit_fenetre(first), 0);
    EXPECT_EQ(evt_global.destruction.type_evenement, GRX_EVT_DESTRUCTION);
    EXPECT_EQ(evt_global.destruction.nofen, first);
    EXPECT_EQ(widget_of(first), nullptr);
    EXPECT_EQ(grx_recup_indice_objet_fen_libre(), first);
    drain();
    XWindowAttributes attributes{};
    EXPECT_FALSE(XGetWindowAttributes(test_display(), shell, &attributes));
    EXPECT_NE(widget_of(second), nullptr);
    EXPECT_EQ(grx_detruit_fenetre(first), 0) << "a second time is nothing";
}

TEST_F(WindowsTest, DestroyingANestedWindowLeavesTheShell) {
    const INT outer = shown();
    for (INT kind : all_kinds)
        for (const INT extra : {0, scroll_bit}) {
            GRX_FENETRE window = nested_in(outer, kind);
            window.attrib |= extra;
            const INT inner = make(window);
            ASSERT_TRUE(wait_visible(widget_of(inner))) << kind;
            evt_global = patterned_event();
            EXPECT_EQ(grx_detruit_fenetre_fille(inner), 0);
            EXPECT_EQ(evt_global.destruction.type_evenement, GRX_EVT_DESTRUCTION) << kind;
            EXPECT_EQ(evt_global.destruction.nofen, inner);
            EXPECT_EQ(widget_of(inner), nullptr);
            drain();
            EXPECT_TRUE(visible(x_window(outer)));
            EXPECT_EQ(children_of(test_display(), x_window(outer)).size(), 0U) << "kind " << kind << " extra " << extra;
        }
}

// Destroys a window while one of its events is dispatched, and makes the next one at once.
struct Replace {
    INT window, replacement;
};

void replace_window(Widget, XtPointer client, XEvent*, Boolean*) {
    auto* job = static_cast<Replace*>(client);
    grx_detruit_fenetre(job->window);
    job->replacement = make(GRX_FEN_GRAPHIQUE);
}

TEST_F(WindowsTest, ANumberReusedDuringTheDestructionStaysWithTheNewWindow) {
    Replace job{shown(), 0};
    XtAddEventHandler(widget_of(job.window), ButtonPressMask, False, replace_window, &job);
    pointer().click_in(widget_of(job.window), 30, 40);
    ASSERT_TRUE(wait_for([&] { return job.replacement != 0; }));
    drain();
    EXPECT_EQ(job.replacement, job.window) << "the lowest free number";
    ASSERT_NE(widget_of(job.replacement), nullptr) << "the old window's end does not free it";
    EXPECT_EQ(record_of(job.replacement).nofen, job.replacement);
    ASSERT_NE(record_of(job.replacement).image, nullptr);
    EXPECT_TRUE(wait_visible(widget_of(job.replacement)));
    settle();
    pointer().click_in(widget_of(job.replacement), 10, 10);
    EXPECT_TRUE(next(GRX_EVT_BOUTON_APPUI, job.replacement));
}

TEST_F(WindowsTest, ButtonsOfADestroyedWindowKeepTheirNumbersAndDoNothing) {
    const INT n = shown();
    GRX_BOUTON button{};
    grx_init_bouton(&button);
    button.type = GRX_BOU_TEXTE;
    button.fen_mere = n;
    ASSERT_EQ(grx_cree_bouton(&button), 0);
    const INT nobou = button.nobou;
    ASSERT_NE(grx_recup_objet_bout(nobou), nullptr);
    grx_detruit_fenetre(n);
    drain();
    EXPECT_EQ(grx_recup_objet_bout(nobou), nullptr) << "there is no widget any more";
    EXPECT_EQ(grx_recup_indice_objet_bout_libre(), nobou + 1) << "but the number is not given again";
    INT width = 7, height = 8;
    grx_recup_taille_bouton(nobou, &width, &height);
    EXPECT_EQ(width, 7);
    EXPECT_EQ(height, 8);
    grx_force_focus_sur_bouton(nobou);
    grx_detruit_bouton(nobou);
    EXPECT_EQ(grx_recup_indice_objet_bout_libre(), nobou) << "until it is destroyed";
}

// --- under mwm ----------------------------------------------------------------------------------------------------------

class WindowsWmTest : public WmTest {
  protected:
    INT framed(INT kind = GRX_FEN_ALPHA, INT x = 100) {
        grx_set_tatitre(17);
        grx_set_tabord(7);
        GRX_FENETRE window = described(kind, visible_bit, 300, 200);
        window.x = x;
        const INT n = make(window);
        EXPECT_TRUE(wait_visible(widget_of(n)));
        EXPECT_TRUE(wait_for([&] { return frame(shell_of(n)) != None; }));
        drain();
        events.clear();
        return n;
    }

    std::optional<GRX_EVENEMENT> next(INT type, INT window) {
        return events.wait(
            [=](const GRX_EVENEMENT& e) { return e.type_evenement == type && e.affichage.nofen == window; });
    }

    // Position in the stack of the screen, higher ones later.
    std::ptrdiff_t height_in_stack(INT window) {
        XSync(x11_disp, False);
        const auto stack = children_of(test_display(), DefaultRootWindow(test_display()));
        const Window top = frame(shell_of(window)) != None ? frame(shell_of(window)) : XtWindow(shell_of(window));
        return std::ranges::find(stack, top) - stack.begin();
    }
};

TEST_F(WindowsWmTest, TheUserClosesAWindow) {
    for (INT kind : {GRX_FEN_ALPHA, GRX_FEN_GRAPHIQUE}) {
        const INT n = framed(kind);
        pointer().click_in(widget_of(n), 50, 50);
        drain();
        keyboard().key(XK_F4, Mod1Mask);
        ASSERT_TRUE(next(GRX_EVT_DESTRUCTION, n)) << events.describe();
        drain();
        EXPECT_EQ(widget_of(n), nullptr);
        EXPECT_EQ(framed(kind), n) << "the program goes on and gives the number again";
        grx_detruit_fenetre(n);
        drain();
    }
}

TEST_F(WindowsWmTest, TheUserMovesAWindow) {
    const INT n = framed();
    const Area before = frame_area(shell_of(n));
    ASSERT_EQ(before, (Area{93, 96, 314, 231}));
    const Point title{before.x + before.width / 2, before.y + 15};
    ASSERT_TRUE(pointer().drag_frame(title, {title.x + 80, title.y + 40}));
    const auto move = next(GRX_EVT_DEPLACEMENT, n);
    ASSERT_TRUE(move) << events.describe();
    EXPECT_EQ(move->deplacement.x, 93 + 80) << "of the frame, as a move takes it";
    EXPECT_EQ(move->deplacement.y, 1024 - 96 - 40);
    EXPECT_EQ(move->deplacement.largeur, 300);
    EXPECT_EQ(move->deplacement.hauteur, 200);
    drain();
    EXPECT_EQ(events.count(GRX_EVT_CHGT_TAILLE), 0) << events.describe();
}

TEST_F(WindowsWmTest, TheUserResizesAWindow) {
    const INT n = framed(GRX_FEN_GRAPHIQUE);
    const Area before = frame_area(shell_of(n));
    const Point corner{before.x + before.width - 3, before.y + before.height - 3};
    ASSERT_TRUE(pointer().drag_frame(corner, {corner.x + 60, corner.y + 30}));
    const auto change = next(GRX_EVT_CHGT_TAILLE, n);
    ASSERT_TRUE(change) << events.describe();
    const Area now = server_area(test_display(), XtWindow(shell_of(n)));
    EXPECT_GT(now.width, 340);
    EXPECT_GT(now.height, 215);
    EXPECT_EQ(change->chgt_taille.largeur, now.width);
    EXPECT_EQ(change->chgt_taille.hauteur, now.height);
    EXPECT_EQ(change->chgt_taille.x, 93);
    EXPECT_EQ(change->chgt_taille.y, 1024 - 96);
    const Pixels picture = grab(x11_disp, *record_of(n).image);
    EXPECT_EQ(picture.width, now.width);
    EXPECT_EQ(picture.height, now.height);
    drain();
    EXPECT_EQ(events.count(GRX_EVT_CHGT_TAILLE), 1) << events.describe();
    EXPECT_GE(events.count(GRX_EVT_DEPLACEMENT), 1) << "the other notices of the same change look like moves";
    events.clear();
    const Area after = frame_area(shell_of(n));
    const Point again{after.x + after.width - 3, after.y + after.height - 3};
    ASSERT_TRUE(pointer().drag_frame(again, {again.x - 90, again.y - 50}));
    const auto smaller = next(GRX_EVT_CHGT_TAILLE, n);
    ASSERT_TRUE(smaller) << events.describe();
    EXPECT_LT(smaller->chgt_taille.largeur, now.width - 60);
    EXPECT_LT(smaller->chgt_taille.hauteur, now.height - 30);
    EXPECT_EQ(smaller->chgt_taille.largeur, server_area(test_display(), XtWindow(shell_of(n))).width);
    EXPECT_EQ(smaller->chgt_taille.hauteur, server_area(test_display(), XtWindow(shell_of(n))).height);
}

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

// --- operations without a window manager -----------------------------------------------------------------------------

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
