// Redraws, moves and resizes as windows post them, without a window manager and under one.
#include "tests/display/registry/windows_kit.h"

#include "registry/window_table.h"

#include <algorithm>
#include <climits>

namespace {

using namespace grxtest;

constexpr std::array<INT, 9> no_windows{0, -1, -7, 50, 99, 100, 101, INT_MAX, INT_MIN};

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

// --- under mwm ----------------------------------------------------------------------------------------------------------

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

} // namespace
