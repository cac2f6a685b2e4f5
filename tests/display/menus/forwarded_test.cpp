// Keys of other windows that choose from the menus.
#include "tests/display/menus/menu_kit.h"
#include "tests/support/controls.h"
#include "tests/support/xlib_calls.h"

#include "menus/menu_keys_state.h"

namespace {

using namespace grxtest;

class ForwardedKeys : public MenuTest {
  protected:
    void make_windows() {
        main_ = main_window(menu_of_keys);
        GRX_FENETRE other = described(GRX_FEN_BOUTONS);
        other.x = 700;
        other_ = make(other);
        GRX_BOUTON button = button_at(GRX_BOU_DESSINE, other_, {10, 10, 60, 60});
        ASSERT_EQ(grx_cree_bouton(&button), 0);
        button_ = button.nobou;
        ASSERT_TRUE(wait_visible(grx_recup_objet_bout(button_)));
        pointer().move_in(grx_recup_objet_bout(button_), 30, 30);
        drain();
        events.clear();
    }

    INT main_ = 0, other_ = 0, button_ = 0;
};

TEST_F(ForwardedKeys, KeysThatAButtonDoesNotTakeChooseOnce) {
    make_windows();
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(chosen_by_key(11, XK_s, ControlMask), 1) << i << ": " << events.describe();
        EXPECT_EQ(chosen_by_key(13, XK_x, Mod1Mask), 1) << i << ": " << events.describe();
    }
}

TEST_F(ForwardedKeys, LocksDoNotMatterThereEither) {
    make_windows();
    for (int locks = 1; locks < 4; ++locks) {
        if (locks & 1) lock_numbers();
        if (locks & 2) lock_capitals();
        EXPECT_EQ(chosen_by_key(11, XK_s, ControlMask), 1) << locks << ": " << events.describe();
        release_locks();
    }
}

TEST_F(ForwardedKeys, FollowANewLayout) {
    make_windows();
    new_layout("fr");
    EXPECT_EQ(chosen_by_key(19, XK_a, Mod1Mask), 1) << events.describe();
    EXPECT_EQ(chosen_by_key(19, XK_q, Mod1Mask), 0) << events.describe();
}

TEST_F(ForwardedKeys, KeysThatTranslateGoToTheApplication) {
    make_windows();
    EXPECT_EQ(chosen_by_key(12, XK_F5), 0);
    EXPECT_EQ(events.count(GRX_EVT_CARAC_APPUI), 1) << events.describe();
}

TEST_F(ForwardedKeys, InsensitiveEntriesAreNotChosen) {
    make_windows();
    XtSetSensitive(entry_named("s"), False);
    EXPECT_EQ(chosen_by_key(11, XK_s, ControlMask), 0);
}

// The event is sent to the main window, once, under its name; what comes back is no key of any widget.
TEST_F(ForwardedKeys, TheEventIsSentToTheMainWindowAndGoesNoFurther) {
    make_windows();
    int keys_seen = 0;
    XtAddEventHandler(
        widget_of(main_), KeyPressMask, False,
        [](Widget, XtPointer seen, XEvent*, Boolean*) { ++*static_cast<int*>(seen); }, &keys_seen);
    XSelectInput(test_display(), x_window(main_), KeyPressMask);
    XSync(test_display(), False);
    drain();
    LastSent last_sent;
    chosen_by_key(13, XK_x, Mod1Mask);
    XSync(test_display(), False);
    XEvent sent{}, last{};
    int count = 0;
    while (XCheckWindowEvent(test_display(), x_window(main_), KeyPressMask, &sent)) {
        last = sent;
        ++count;
    }
    EXPECT_EQ(count, 2) << "Alt, and the key";
    EXPECT_EQ(last.xkey.window, x_window(main_));
    EXPECT_NE(last.xkey.send_event, 0);
    EXPECT_EQ(last.xkey.keycode, XKeysymToKeycode(x11_disp, XK_x));
    EXPECT_EQ(last.xkey.state, unsigned{Mod1Mask});
    EXPECT_EQ(keys_seen, 0);
    EXPECT_EQ(chosen(13), 1);
    EXPECT_EQ(grx::evt_menu.xkey.window, x_window(main_));
    EXPECT_EQ(last_sent.to, x_window(main_));
    EXPECT_EQ(last_sent.propagate, True);
    EXPECT_EQ(last_sent.mask, KeyPressMask);
}

TEST_F(ForwardedKeys, KeyOfTheMainWindowItselfIsNotSentAgain) {
    make_windows();
    grx::evt_menu = {};
    grx::evt_menu.xkey.type = KeyPress;
    grx::evt_menu.xkey.display = x11_disp;
    grx::evt_menu.xkey.window = x_window(main_);
    grx::evt_menu.xkey.keycode = XKeysymToKeycode(x11_disp, XK_s);
    grx::evt_menu.xkey.state = ControlMask;
    const Cost cost(x11_disp);
    grx_envoie_dernier_evenement_a_fenetre_menu();
    EXPECT_EQ(cost.requests(), 0U);
    drain();
    EXPECT_EQ(chosen(11), 0);
}

TEST_F(ForwardedKeys, NothingWithoutAMainWindow) {
    make_windows();
    grx_affecte_nofen_principale(-1);
    chosen_by_key(0, XK_q, ControlMask);
    grx_affecte_nofen_principale(77);
    chosen_by_key(0, XK_q, ControlMask);
    EXPECT_EQ(events.count(GRX_EVT_BOUTON_APPUI), 0);
}

} // namespace
