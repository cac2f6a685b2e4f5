// Pointer, keys, answers and commands as windows post them, and every field of every record.
#include "tests/display/registry/windows_kit.h"

#include "menus/menu_keys_state.h"

namespace {

using namespace grxtest;

constexpr INT scroll_bit = GRX_FEN_ATT_SCROLL;
constexpr INT main_bit = GRX_FEN_ATT_PRINCIPALE;

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

} // namespace
