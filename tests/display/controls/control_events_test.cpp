// What controls post, from a real pointer and a real keyboard.
#include "tests/display/control_kit.h"

#include "xt_prive.h"

#include <algorithm>
#include <clocale>
#include <cstddef>

namespace {

using namespace grxtest;

constexpr INT function_number = 700;
constexpr INT application_value = 31;

char* writable(const char* text) {
    return const_cast<char*>(text);
}

// --- records compared whole ---------------------------------------------------------------------------------------

GRX_EVENEMENT pointer_record(INT type, INT window, INT nobou, INT x, INT y, INT button, INT carac) {
    GRX_EVENEMENT record = old_record();
    GRX_DIGIT& digit = record.bouton_appui;
    digit.type_evenement = type;
    digit.nofen = window;
    digit.nobou = nobou;
    digit.no_fo = function_number;
    digit.x = x;
    digit.y = y;
    digit.bouton = button;
    digit.carac = carac;
    return record;
}

GRX_EVENEMENT plain_record(INT type, INT window, INT nobou) {
    GRX_EVENEMENT record = old_record();
    record.sortie.type_evenement = type;
    record.sortie.nofen = window;
    record.sortie.nobou = nobou;
    record.sortie.no_fo = function_number;
    return record;
}

GRX_EVENEMENT value_record(INT type, INT window, INT nobou, INT value) {
    GRX_EVENEMENT record = plain_record(type, window, nobou);
    record.exec_fonction.valeur = value;
    return record;
}

GRX_EVENEMENT text_record(INT type, INT window, INT nobou, const char* text) {
    GRX_EVENEMENT record = plain_record(type, window, nobou);
    std::strcpy(record.exec_fonction.chaine, text);
    return record;
}

// The first bytes only, where an event before in the same turn left traces behind them.
testing::AssertionResult same_head(const GRX_EVENEMENT& expected, const GRX_EVENEMENT& actual, std::size_t bytes) {
    GRX_EVENEMENT cut = expected;
    std::memcpy(
        reinterpret_cast<char*>(&cut) + bytes, reinterpret_cast<const char*>(&actual) + bytes, sizeof cut - bytes);
    return same_record(cut, actual);
}
constexpr std::size_t up_to_value = offsetof(GRX_EXEC_FONCTION, chaine);

class ControlEvents : public ControlsInWindowTest {
  protected:
    GRX_BOUTON a(INT type, INT bits = 0, const char* title = "Text") { return control_of(type, bits, window, title); }

    INT made(INT type, INT bits = 0, const char* title = "Text") { return made(a(type, bits, title)); }
    INT made(const GRX_BOUTON& description) {
        const INT n = placed(description);
        settle();
        return n;
    }

    void over(INT nobou, int x, int y) {
        pointer().move_in(control(nobou), x, y);
        settle();
    }

    // What the record holds before the next event is a pattern.
    void forget() {
        settle();
        evt_global = patterned_event();
    }

    std::optional<GRX_EVENEMENT> next(INT type) { return events.wait(type); }

    void focus(INT nobou) {
        pointer().move_in(control(nobou), 5, 5);
        grx_force_focus_sur_bouton(nobou);
        ASSERT_TRUE(wait_for([&] { return XmGetFocusWidget(control(nobou)) == control(nobou); }));
        settle();
    }

    bool has_focus(INT nobou) { return XmGetFocusWidget(control(nobou)) == control(nobou); }
};

// --- pressing and releasing ---------------------------------------------------------------------------------------

bool takes_the_pointer_itself(const ControlKind& kind) {
    return kind.type != GRX_BOU_ECHELLE; // the slider of a scale is a widget of its own
}

TEST_F(ControlEvents, APressAndAReleaseOnEachKind) {
    for (const ControlKind& kind : control_kinds) {
        if (!takes_the_pointer_itself(kind)) continue;
        const INT n = made(control_of(kind, window));
        over(n, 25, 12);
        for (unsigned button : {1U, 2U, 3U}) {
            forget();
            pointer().press(button);
            const auto press = next(GRX_EVT_BOUTON_APPUI);
            ASSERT_TRUE(press) << kind.name << ": " << events.describe();
            EXPECT_TRUE(same_head(pointer_record(2, window, n, 25, 12, static_cast<INT>(button), application_value),
                *press, sizeof(GRX_DIGIT)))
                << kind.name << " " << button;
            forget();
            pointer().release(button);
            if (button == 1 && kind.type != GRX_BOU_LABEL && kind.type != GRX_BOU_TEXTE && kind.type != GRX_BOU_LISTE
                && kind.type != GRX_BOU_SEPARATEUR && kind.type != GRX_BOU_ZONE_DESSIN) {
                drain(); // the activation comes in the same turn and replaces the release
                EXPECT_EQ(events.count(GRX_EVT_EXEC_FONCTION), 1) << kind.name << ": " << events.describe();
                EXPECT_EQ(events.count(GRX_EVT_BOUTON_RELACHE), 0) << kind.name;
                continue;
            }
            const auto release = next(GRX_EVT_BOUTON_RELACHE);
            ASSERT_TRUE(release) << kind.name << " " << button << ": " << events.describe();
            EXPECT_TRUE(same_head(pointer_record(15, window, n, 25, 12, static_cast<INT>(button), application_value),
                *release, sizeof(GRX_DIGIT)))
                << kind.name << " " << button;
        }
        grx_detruit_bouton(n);
        drain();
    }
}

TEST_F(ControlEvents, APressLeavesTheRestOfTheRecord) {
    const INT n = made(GRX_BOU_LABEL);
    over(n, 25, 12);
    forget();
    pointer().press(3);
    const auto press = next(GRX_EVT_BOUTON_APPUI);
    ASSERT_TRUE(press);
    GRX_EVENEMENT expected = pointer_record(2, window, n, 25, 12, 3, application_value);
    expected.bouton_appui.etat = 0;
    EXPECT_TRUE(same_record(expected, *press));
    forget();
    pointer().release(3);
    const auto release = next(GRX_EVT_BOUTON_RELACHE);
    ASSERT_TRUE(release);
    expected.bouton_relache.type_evenement = 15;
    EXPECT_TRUE(same_record(expected, *release));
}

TEST_F(ControlEvents, ModifiersOfAPressAndARelease) {
    struct Held {
        std::vector<KeySym> keys;
        INT state;
    };
    const INT n = made(GRX_BOU_LABEL);
    over(n, 25, 12);
    for (const Held& held : {Held{{}, 0}, Held{{XK_Shift_L}, 2}, Held{{XK_Control_L}, 4},
             Held{{XK_Shift_L, XK_Control_L}, 6}, Held{{XK_Alt_L}, 0}, Held{{XK_Shift_R, XK_Alt_L}, 2}}) {
        for (KeySym key : held.keys) keyboard().press(key);
        settle();
        pointer().press(3);
        const auto press = next(GRX_EVT_BOUTON_APPUI);
        pointer().release(3);
        const auto release = next(GRX_EVT_BOUTON_RELACHE);
        for (KeySym key : held.keys) keyboard().release(key);
        ASSERT_TRUE(press && release) << held.state << ": " << events.describe();
        EXPECT_EQ(press->bouton_appui.etat, held.state);
        EXPECT_EQ(release->bouton_relache.etat, held.state);
    }
}

TEST_F(ControlEvents, LocksAreNoModifiers) {
    const INT n = made(GRX_BOU_LABEL);
    over(n, 25, 12);
    keyboard().num_lock();
    keyboard().caps_lock();
    settle();
    pointer().press(1);
    const auto press = next(GRX_EVT_BOUTON_APPUI);
    ASSERT_TRUE(press);
    EXPECT_EQ(press->bouton_appui.etat, 0);
}

TEST_F(ControlEvents, AControlUnderAWidgetHasNoWindowNumber) {
    GRX_BOUTON description = a(GRX_BOU_LABEL);
    description.ref_fen_mere = widget_of(window);
    const INT n = made(description);
    over(n, 25, 12);
    pointer().press(1);
    const auto press = next(GRX_EVT_BOUTON_APPUI);
    ASSERT_TRUE(press);
    EXPECT_EQ(press->bouton_appui.nofen, -1);
    EXPECT_EQ(press->bouton_appui.nobou, n);
}

TEST_F(ControlEvents, InsensitiveControlsPostNothingOfThePointer) {
    for (const ControlKind& kind : control_kinds) {
        const INT n = made(control_of(kind, window));
        grx_desactive_bouton(n, 1);
        over(n, 25, 12);
        forget();
        pointer().click(1);
        drain();
        EXPECT_TRUE(std::ranges::none_of(events.seen(), [&](const GRX_EVENEMENT& e) {
            return e.type_evenement == 6 || e.type_evenement == 32 || e.type_evenement == 64
                   || (e.type_evenement == 2 && e.bouton_appui.nobou == n);
        })) << kind.name;
        grx_desactive_bouton(n, 0);
        settle();
        if (takes_the_pointer_itself(kind)) {
            pointer().press(3);
            EXPECT_TRUE(next(GRX_EVT_BOUTON_APPUI)) << kind.name;
            pointer().release(3);
        }
        grx_detruit_bouton(n);
        settle();
    }
}

// --- the pointer moving -------------------------------------------------------------------------------------------

TEST_F(ControlEvents, MotionTellsTheFirstHeldButton) {
    struct Held {
        std::vector<unsigned> buttons;
        INT told;
    };
    const INT n = made(GRX_BOU_LABEL);
    for (const Held& held :
        {Held{{}, 0}, Held{{1}, 1}, Held{{2}, 2}, Held{{3}, 3}, Held{{2, 3}, 2}, Held{{1, 3}, 1}, Held{{1, 2, 3}, 1}}) {
        over(n, 20, 10);
        for (unsigned button : held.buttons) pointer().press(button);
        forget();
        pointer().move_in(control(n), 33, 14);
        const auto motion = next(GRX_EVT_SOURIS_BOUGE);
        for (unsigned button : held.buttons) pointer().release(button);
        ASSERT_TRUE(motion) << events.describe();
        EXPECT_TRUE(same_record(pointer_record(1, window, n, 33, 14, held.told, -1), *motion)) << held.told;
    }
}

TEST_F(ControlEvents, MotionOverEachKind) {
    for (const ControlKind& kind : control_kinds) {
        if (!takes_the_pointer_itself(kind)) continue;
        const INT n = made(control_of(kind, window));
        over(n, 20, 10);
        forget();
        pointer().move_in(control(n), 33, 14);
        drain();
        const auto expected = kind.type == GRX_BOU_ZONE_DESSIN ? 0 : 1;
        EXPECT_EQ(events.count(GRX_EVT_SOURIS_BOUGE), expected) << kind.name << ": " << events.describe();
        grx_detruit_bouton(n);
        drain();
    }
}

TEST_F(ControlEvents, ComingAndGoing) {
    for (const ControlKind& kind : control_kinds) {
        if (kind.type == GRX_BOU_ZONE_DESSIN) continue;
        take_pointer_away();
        const INT n = made(control_of(kind, window));
        forget();
        pointer().move_in(control(n), 20, 10);
        const auto enter =
            events.wait([&](const GRX_EVENEMENT& e) { return e.type_evenement == 48 && e.sortie.nobou == n; });
        ASSERT_TRUE(enter) << kind.name << ": " << events.describe();
        EXPECT_EQ(enter->sortie.nofen, window) << kind.name;
        EXPECT_EQ(enter->sortie.no_fo, function_number) << kind.name;
        forget();
        take_pointer_away();
        const auto leave =
            events.wait([&](const GRX_EVENEMENT& e) { return e.type_evenement == 10 && e.sortie.nobou == n; });
        ASSERT_TRUE(leave) << kind.name << ": " << events.describe();
        EXPECT_EQ(leave->sortie.nofen, window) << kind.name;
        EXPECT_EQ(leave->sortie.no_fo, function_number) << kind.name;
        grx_detruit_bouton(n);
        drain();
    }
}

TEST_F(ControlEvents, ComingAndGoingLeaveTheRestOfTheRecord) {
    const INT n = made(GRX_BOU_LABEL);
    pointer().move_in(control(n), 60, 40);
    forget();
    pointer().move_in(widget_of(window), 5, 200);
    const auto leave = next(GRX_EVT_SORTIE);
    ASSERT_TRUE(leave);
    EXPECT_TRUE(same_record(plain_record(10, window, n), *leave));
}

TEST_F(ControlEvents, AnAreaPostsNeitherMotionNorComingNorKeys) {
    const INT n = made(GRX_BOU_ZONE_DESSIN);
    over(n, 20, 10);
    events.clear();
    pointer().move_in(control(n), 30, 20);
    pointer().press(1);
    pointer().move_in(control(n), 35, 25);
    pointer().release(1);
    drain();
    EXPECT_EQ(events.types(), (std::vector<INT>{2, 15})) << events.describe();
}

// --- activation ---------------------------------------------------------------------------------------------------

bool activates(const ControlKind& kind) {
    return kind.type == 1 || kind.type == 2 || kind.type == 4 || kind.type == 8 || kind.type == 512
           || kind.type == 4096;
}

TEST_F(ControlEvents, AClickActivatesWithTheApplicationsValue) {
    for (const ControlKind& kind : control_kinds) {
        const INT n = made(control_of(kind, window));
        over(n, 60, 40);
        forget();
        pointer().click(1);
        drain();
        const auto count = events.count(GRX_EVT_EXEC_FONCTION);
        if (kind.type != GRX_BOU_ECHELLE) {
            EXPECT_EQ(count, activates(kind) ? 1 : 0) << kind.name << ": " << events.describe();
        }
        if (activates(kind)) {
            const auto done = next(GRX_EVT_EXEC_FONCTION);
            ASSERT_TRUE(done);
            EXPECT_TRUE(same_head(value_record(6, window, n, application_value), *done, up_to_value)) << kind.name;
            EXPECT_EQ(events.types(), (std::vector<INT>{2, 6})) << kind.name;
        }
        grx_detruit_bouton(n);
        drain();
    }
}

TEST_F(ControlEvents, ADialogButtonActivates) {
    Widget parent = widget_of(window);
    for (const char* name : {"outer", "middle", "inner"})
        parent = XtVaCreateManagedWidget(name, xmBulletinBoardWidgetClass, parent, nullptr);
    GRX_BOUTON description = a(GRX_BOU_DIALOGUE, 0, "Valider");
    description.ref_fen_mere = parent;
    description.x = description.y = description.largeur = description.hauteur = -1;
    description.tabi[GRX_BOU_TABI_PLACE] = GRX_BOU_PLACE_CENTRE;
    const INT n = made(description);
    over(n, 10, 8);
    forget();
    pointer().click(1);
    const auto done = next(GRX_EVT_EXEC_FONCTION);
    ASSERT_TRUE(done) << events.describe();
    EXPECT_TRUE(same_head(value_record(6, -1, n, application_value), *done, up_to_value));
}

TEST_F(ControlEvents, ReleasingElsewhereActivatesNothing) {
    for (INT type : {GRX_BOU_DESSINE, GRX_BOU_SIMPLE, GRX_BOU_BASCULE}) {
        const INT n = made(type);
        over(n, 60, 40);
        pointer().press(1);
        drain();
        pointer().move_in(widget_of(window), 5, 250);
        drain();
        pointer().release(1);
        drain();
        EXPECT_EQ(events.count(GRX_EVT_EXEC_FONCTION), 0) << type;
        grx_detruit_bouton(n);
        settle();
    }
}

TEST_F(ControlEvents, AToggleChangesAndPostsItsValueNotItsState) {
    const INT n = made(GRX_BOU_BASCULE);
    over(n, 10, 10);
    for (bool on : {true, false, true}) {
        forget();
        pointer().click(1);
        const auto done = next(GRX_EVT_EXEC_FONCTION);
        ASSERT_TRUE(done);
        EXPECT_TRUE(same_head(value_record(6, window, n, application_value), *done, up_to_value));
        EXPECT_EQ(static_cast<bool>(XmToggleButtonGetState(control(n))), on);
    }
}

TEST_F(ControlEvents, AButtonWithALookOfItsOwnStillActivates) {
    for (INT type : {GRX_BOU_DESSINE, GRX_BOU_SIMPLE}) {
        const INT n = made(type);
        grx_enfonce_bouton(n);
        over(n, 60, 40);
        pointer().click(1);
        EXPECT_TRUE(next(GRX_EVT_EXEC_FONCTION)) << type;
        EXPECT_EQ(grx_bouton_est_il_enfonce(n), 1) << "and keeps its look";
        grx_detruit_bouton(n);
        settle();
    }
}

TEST_F(ControlEvents, ADoubleClickActivatesTwice) {
    const INT n = made(GRX_BOU_SIMPLE);
    over(n, 60, 40);
    pointer().double_click();
    drain();
    EXPECT_EQ(events.count(GRX_EVT_EXEC_FONCTION), 2) << events.describe();
}

// --- keys ---------------------------------------------------------------------------------------------------------

bool is_real_push(const ControlKind& kind) {
    return kind.type == 512 || (kind.type == 4 && (kind.bits & GRX_BOU_ATT_VRAI_POUSSOIR));
}

TEST_F(ControlEvents, SpaceActivatesRealPushButtonsButNotDrawnOnes) {
    for (const ControlKind& kind : control_kinds) {
        const bool drawn = kind.type == 1 || kind.type == 4096 || (kind.type == 4 && !is_real_push(kind));
        if (!drawn && !is_real_push(kind)) continue;
        const INT n = made(control_of(kind, window));
        focus(n);
        forget();
        keyboard().key(XK_space);
        drain();
        EXPECT_EQ(events.count(GRX_EVT_EXEC_FONCTION), drawn ? 0 : 1) << kind.name << ": " << events.describe();
        EXPECT_EQ(events.count(GRX_EVT_CARAC_APPUI), drawn ? 1 : 0) << kind.name << ": " << events.describe();
        if (!drawn) {
            const auto done = next(GRX_EVT_EXEC_FONCTION);
            ASSERT_TRUE(done);
            EXPECT_TRUE(same_head(value_record(6, window, n, application_value), *done, up_to_value)) << kind.name;
        }
        grx_detruit_bouton(n);
        settle();
    }
}

TEST_F(ControlEvents, SpaceTurnsTogglesAndArrows) {
    for (INT type : {GRX_BOU_BASCULE, GRX_BOU_FLECHE}) {
        const INT n = made(type, type == GRX_BOU_FLECHE ? GRX_BOU_ATT_FLECHE_HAUT : 0);
        focus(n);
        forget();
        keyboard().key(XK_space);
        const auto done = next(GRX_EVT_EXEC_FONCTION);
        ASSERT_TRUE(done) << type << ": " << events.describe();
        EXPECT_TRUE(same_head(value_record(6, window, n, application_value), *done, up_to_value)) << type;
        if (type == GRX_BOU_BASCULE) {
            EXPECT_TRUE(XmToggleButtonGetState(control(n)));
        }
        grx_detruit_bouton(n);
        settle();
    }
}

TEST_F(ControlEvents, AKeyOnAButton) {
    const INT n = made(GRX_BOU_SIMPLE);
    focus(n);
    for (const auto& [symbol, code] :
        {std::pair{KeySym{XK_a}, 97}, std::pair{KeySym{XK_A}, 65}, std::pair{KeySym{XK_F5}, 0xFFC2},
            std::pair{KeySym{XK_Delete}, 0xFFFF}, std::pair{KeySym{XK_Escape}, 27}}) {
        forget();
        keyboard().key(symbol);
        const auto press = next(GRX_EVT_CARAC_APPUI);
        ASSERT_TRUE(press) << code << ": " << events.describe();
        EXPECT_EQ(press->carac_appui.nofen, window);
        EXPECT_EQ(press->carac_appui.nobou, n);
        EXPECT_EQ(press->carac_appui.no_fo, function_number);
        EXPECT_EQ(press->carac_appui.bouton, 0);
        EXPECT_EQ(press->carac_appui.carac, code);
    }
}

TEST_F(ControlEvents, AKeyLeavesTheRestOfTheRecord) {
    const INT n = made(GRX_BOU_SIMPLE);
    focus(n);
    pointer().move_in(control(n), 17, 9);
    forget();
    keyboard().press(XK_a);
    const auto press = next(GRX_EVT_CARAC_APPUI);
    keyboard().release(XK_a);
    ASSERT_TRUE(press);
    EXPECT_TRUE(same_record(pointer_record(3, window, n, press->carac_appui.x, press->carac_appui.y, 0, 'a'), *press));
    // Without a manager the toolkit redirects keys: they count from the window they came to.
    const Point button = root_position(control(n)), top = root_position(shell_of(window));
    const Point at = pointer().position();
    EXPECT_TRUE((press->carac_appui.x == 17 && press->carac_appui.y == 9)
                || (press->carac_appui.x == at.x - top.x && press->carac_appui.y == at.y - top.y)
                || (press->carac_appui.x == at.x - button.x && press->carac_appui.y == at.y - button.y));
}

TEST_F(ControlEvents, KeysWithoutCodeGoToTheMenuBar) {
    const INT n = made(GRX_BOU_SIMPLE);
    focus(n);
    for (const auto& [symbol, modifiers] :
        {std::pair{KeySym{XK_x}, unsigned{ControlMask}}, std::pair{KeySym{XK_x}, unsigned{Mod1Mask}}}) {
        forget();
        std::memset(&grx::evt_menu, 0, sizeof grx::evt_menu);
        keyboard().key(symbol, modifiers);
        drain();
        EXPECT_EQ(grx::evt_menu.type, KeyPress);
        EXPECT_EQ(grx::evt_menu.xkey.keycode, XKeysymToKeycode(x11_disp, symbol));
        EXPECT_EQ(grx::evt_menu.xkey.state, modifiers);
        EXPECT_EQ(grx::evt_menu.xkey.display, x11_disp);
        EXPECT_EQ(events.count(GRX_EVT_CARAC_APPUI), 0) << events.describe();
    }
}

TEST_F(ControlEvents, ModifierKeysPostNothing) {
    const INT n = made(GRX_BOU_SIMPLE);
    focus(n);
    events.clear();
    for (KeySym symbol : {XK_Shift_L, XK_Control_L, XK_Alt_L, XK_Caps_Lock, XK_Caps_Lock}) {
        keyboard().press(symbol);
        keyboard().release(symbol);
    }
    drain();
    EXPECT_TRUE(events.seen().empty()) << events.describe();
}

class KeysForTheMenu : public ControlEvents {
  protected:
    void before_start() override {
        write_menu("#:ZONE_MENU_BAR\n{\nPOPUP||File|\n{\nITEM||Open|Ctrl+o|4321|\nITEM||Shut|F5|4322|\n}\n}\n");
    }
};

TEST_F(KeysForTheMenu, AnAcceleratorWorksWhileAButtonOfAnotherWindowHasTheFocus) {
    const INT main = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE | GRX_FEN_ATT_PRINCIPALE);
    ASSERT_TRUE(wait_visible(widget_of(main)));
    grx_affecte_nofen_principale(main);
    XRaiseWindow(x11_disp, XtWindow(shell_of(window)));
    const INT n = made(GRX_BOU_SIMPLE);
    focus(n);
    keyboard().key(XK_o, ControlMask);
    const auto chosen = next(GRX_EVT_BOUTON_APPUI);
    ASSERT_TRUE(chosen) << events.describe();
    EXPECT_EQ(chosen->bouton_appui.nofen, main);
    EXPECT_EQ(chosen->bouton_appui.no_fo, 4321);
    EXPECT_EQ(chosen->bouton_appui.bouton, 1);
    drain();
    EXPECT_EQ(events.count(GRX_EVT_BOUTON_APPUI), 1) << "once: " << events.describe();
    EXPECT_EQ(events.count(GRX_EVT_CARAC_APPUI), 0) << events.describe();
}

// A text field with the focus: what its window's menu bar, or that of the main window, has a key for.
class FieldKeysForTheMenu : public KeysForTheMenu {
  protected:
    void SetUp() override {
        KeysForTheMenu::SetUp();
        if (HasFatalFailure()) return;
        GRX_FENETRE description = described(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE | GRX_FEN_ATT_PRINCIPALE, 300, 200);
        description.x = 700;
        main = make(description);
        ASSERT_TRUE(wait_visible(widget_of(main)));
        grx_affecte_nofen_principale(main);
        settle();
    }

    INT focused_field(INT holder) {
        GRX_BOUTON description = button_at(GRX_BOU_TEXTE, holder, {20, 20, 120, 40});
        set_title(description, "abc");
        description.no_fo = function_number;
        const INT n = made(description);
        pointer().click_in(control(n), 30, 15);
        EXPECT_TRUE(wait_for([&] { return has_focus(n); }));
        grx_change_texte(n, writable("abc"));
        settle();
        return n;
    }

    // The entry's event and no other of the kinds that a key or a menu posts.
    void expect_chosen(INT n, KeySym symbol, unsigned modifiers, INT function) {
        events.clear();
        keyboard().key(symbol, modifiers);
        drain();
        EXPECT_EQ(events.count(GRX_EVT_BOUTON_APPUI), 1) << events.describe();
        EXPECT_EQ(events.count(GRX_EVT_CARAC_APPUI), 0) << events.describe();
        const auto chosen = next(GRX_EVT_BOUTON_APPUI);
        ASSERT_TRUE(chosen);
        EXPECT_EQ(chosen->bouton_appui.nofen, main);
        EXPECT_EQ(chosen->bouton_appui.no_fo, function);
        EXPECT_EQ(text_of(n), "abc") << "nothing is typed";
        EXPECT_TRUE(has_focus(n));
    }

    void goes_to_the_menu(INT holder) {
        const INT n = focused_field(holder);
        for (int i = 0; i < 3; ++i) expect_chosen(n, XK_o, ControlMask, 4321);
        keyboard().type("d");
        drain();
        EXPECT_EQ(text_of(n), "abcd") << "the field still takes its keys";
        events.clear();
        keyboard().key(XK_b, ControlMask);
        drain();
        EXPECT_EQ(events.count(GRX_EVT_BOUTON_APPUI), 0) << "no entry has it: " << events.describe();
        EXPECT_EQ(events.count(GRX_EVT_CARAC_APPUI), 0) << events.describe();
        EXPECT_EQ(grx::evt_menu.xkey.keycode, XKeysymToKeycode(x11_disp, XK_b)) << "but it was forwarded";
    }

    INT main = -1;
};

TEST_F(FieldKeysForTheMenu, AnAcceleratorInAFieldOfTheMainWindow) {
    goes_to_the_menu(main);
}

TEST_F(FieldKeysForTheMenu, AnAcceleratorInAFieldOfAnotherWindow) {
    goes_to_the_menu(window);
}

TEST_F(FieldKeysForTheMenu, AKeyHeldAWhileIsChosenOnce) {
    const INT n = focused_field(window);
    keyboard().press(XK_Control_L);
    keyboard().press(XK_o);
    ASSERT_TRUE(next(GRX_EVT_BOUTON_APPUI)) << events.describe();
    keyboard().release(XK_o);
    keyboard().release(XK_Control_L);
    keyboard().type("d");
    drain();
    EXPECT_EQ(events.count(GRX_EVT_BOUTON_APPUI), 1) << events.describe();
    EXPECT_EQ(text_of(n), "abcd");
}

// The toolkit takes the key of such an entry, too; the keys after it are still the field's.
TEST_F(FieldKeysForTheMenu, AnEntryThatCannotBeChosenTakesNoOtherKey) {
    const INT n = focused_field(window);
    const Widget entry = XtNameToWidget(shell_of(main), "*atome");
    ASSERT_NE(entry, nullptr);
    ASSERT_EQ(text_resource(entry, XmNlabelString), "Open");
    XtSetSensitive(entry, False);
    keyboard().key(XK_o, ControlMask);
    drain();
    EXPECT_EQ(events.count(GRX_EVT_BOUTON_APPUI), 0) << events.describe();
    grx_change_texte(n, writable("abc"));
    keyboard().type("d");
    drain();
    EXPECT_EQ(text_of(n), "abcd");
}

// Of another window's keys only those are forwarded that have no code.
TEST_F(FieldKeysForTheMenu, AFunctionKeyInAFieldOfAnotherWindowIsTheFields) {
    const INT n = focused_field(window);
    keyboard().key(XK_F5);
    const auto press = next(GRX_EVT_CARAC_APPUI);
    ASSERT_TRUE(press) << events.describe();
    EXPECT_EQ(press->carac_appui.carac, 0xFFC2);
    EXPECT_EQ(press->carac_appui.nobou, n);
    drain();
    EXPECT_EQ(events.count(GRX_EVT_BOUTON_APPUI), 0) << events.describe();
}

// --- fields -------------------------------------------------------------------------------------------------------

TEST_F(ControlEvents, ReturnInAFieldPostsItsText) {
    const INT n = made(GRX_BOU_TEXTE, 0, "depart");
    focus(n);
    forget();
    keyboard().key(XK_Return);
    drain();
    const auto done = next(GRX_EVT_EXEC_FONCTION);
    ASSERT_TRUE(done) << events.describe();
    EXPECT_EQ(done->exec_fonction.nofen, window);
    EXPECT_EQ(done->exec_fonction.nobou, n);
    EXPECT_EQ(done->exec_fonction.no_fo, function_number);
    EXPECT_EQ(std::string(done->exec_fonction.chaine), "depart");
    EXPECT_NE(done->exec_fonction.valeur, application_value) << "whatever was there before";
    grx_change_texte(n, writable("12"));
    keyboard().type("3\n");
    const auto again = next(GRX_EVT_EXEC_FONCTION);
    ASSERT_TRUE(again);
    EXPECT_EQ(std::string(again->exec_fonction.chaine), "123");
}

// The callback alone, as no key comes before it: `valeur` is not written.
TEST_F(ControlEvents, AnActivatedFieldLeavesTheValue) {
    const INT n = made(GRX_BOU_TEXTE, 0, "depart");
    forget();
    XmAnyCallbackStruct call{XmCR_ACTIVATE, nullptr};
    XtCallCallbacks(control(n), XmNactivateCallback, &call);
    GRX_EVENEMENT expected = patterned_event();
    expected.exec_fonction.type_evenement = 6;
    expected.exec_fonction.nofen = window;
    expected.exec_fonction.nobou = n;
    expected.exec_fonction.no_fo = function_number;
    std::strcpy(expected.exec_fonction.chaine, "depart");
    EXPECT_TRUE(same_head(expected, evt_global, up_to_value + sizeof "depart"));
    EXPECT_EQ(evt_global.exec_fonction.valeur, untouched);
}

TEST_F(ControlEvents, TypingPostsEachKeyAndFillsTheField) {
    const INT n = made(GRX_BOU_TEXTE, 0, "");
    focus(n);
    events.clear();
    keyboard().type("Ab1");
    drain();
    EXPECT_EQ(text_of(n), "Ab1");
    std::string codes;
    for (const GRX_EVENEMENT& e : events.seen())
        if (e.type_evenement == 3) codes.push_back(static_cast<char>(e.carac_appui.carac));
    EXPECT_EQ(codes, "Ab1") << events.describe();
}

TEST_F(ControlEvents, ReturnInASeveralLineTextIsALineFeed) {
    const INT n = made(GRX_BOU_TEXTE, GRX_BOU_ATT_TEXTE_MULTI, "");
    focus(n);
    events.clear();
    keyboard().type("a\nb");
    drain();
    EXPECT_EQ(text_of(n), "a\nb");
    EXPECT_EQ(events.count(GRX_EVT_EXEC_FONCTION), 0) << events.describe();
}

// Tab is a sign of such a text, and no way to the next field.
TEST_F(ControlEvents, TabInASeveralLineTextIsAKey) {
    const INT n = made(GRX_BOU_TEXTE, GRX_BOU_ATT_TEXTE_MULTI, "");
    focus(n);
    for (const auto& [modifiers, code] : {std::pair{0U, 9}, std::pair{unsigned{ShiftMask}, 65396}}) {
        events.clear();
        focus(n);
        keyboard().key(XK_Tab, modifiers);
        const auto press = next(GRX_EVT_CARAC_APPUI);
        ASSERT_TRUE(press) << events.describe();
        EXPECT_EQ(press->carac_appui.carac, code);
        EXPECT_EQ(press->carac_appui.nobou, n);
        drain();
        EXPECT_EQ(events.count(GRX_EVT_TAB) + events.count(GRX_EVT_BACKTAB), 0) << events.describe();
        XmTextPosition left = -1, right = -1;
        EXPECT_FALSE(XmTextGetSelectionPosition(control(n), &left, &right) && left != right) << "nor is it selected";
    }
}

TEST_F(ControlEvents, ReadOnlyFieldsKeepTheirText) {
    const INT n = made(GRX_BOU_TEXTE, GRX_BOU_ATT_TEXTE_LECTURE, "fixe");
    over(n, 10, 10);
    pointer().click(1);
    drain();
    keyboard().type("xyz");
    drain();
    EXPECT_EQ(text_of(n), "fixe");
}

class FieldTraversal : public ControlEvents {
  protected:
    void SetUp() override {
        ControlEvents::SetUp();
        if (HasFatalFailure()) return;
        for (INT i = 0; i < 3; ++i) {
            GRX_BOUTON description = a(GRX_BOU_TEXTE, 0, i == 0 ? "premier" : i == 1 ? "second" : "dernier");
            description.y = 10 + 60 * i;
            description.hauteur = 30;
            fields[i] = made(description);
        }
        pointer().move_in(control(fields[0]), 60, 10);
        pointer().click(1);
        ASSERT_TRUE(wait_for([&] { return has_focus(fields[0]); }));
        settle();
    }

    bool wholly_selected(INT n) {
        XmTextPosition left = -1, right = -1;
        return XmTextFieldGetSelectionPosition(control(n), &left, &right) && left == 0
               && right == static_cast<XmTextPosition>(text_of(n).size());
    }

    INT fields[3] = {-1, -1, -1};
};

TEST_F(FieldTraversal, TabPostsTheTextAndSelectsTheNextField) {
    forget();
    keyboard().key(XK_Tab);
    const auto tab = next(GRX_EVT_TAB);
    ASSERT_TRUE(tab) << events.describe();
    EXPECT_TRUE(same_head(text_record(80, window, fields[0], "premier"), *tab, up_to_value + sizeof "premier"));
    EXPECT_EQ(tab->exec_fonction.valeur, untouched);
    EXPECT_TRUE(wait_for([&] { return has_focus(fields[1]) && wholly_selected(fields[1]); }));
    EXPECT_EQ(events.count(GRX_EVT_CARAC_APPUI), 0) << "no key besides: " << events.describe();
    keyboard().type("neuf");
    drain();
    EXPECT_EQ(text_of(fields[1]), "neuf") << "ready to be overwritten";
    EXPECT_EQ(text_of(fields[0]), "premier") << "no tab in the text";
}

TEST_F(FieldTraversal, BackTabPostsTheTextAndSelectsTheFieldBefore) {
    grx_force_focus_sur_bouton(fields[2]);
    ASSERT_TRUE(wait_for([&] { return has_focus(fields[2]); }));
    forget();
    keyboard().key(XK_Tab, ShiftMask);
    const auto tab = next(GRX_EVT_BACKTAB);
    ASSERT_TRUE(tab) << events.describe();
    EXPECT_TRUE(same_head(text_record(96, window, fields[2], "dernier"), *tab, up_to_value + sizeof "dernier"));
    EXPECT_TRUE(wait_for([&] { return has_focus(fields[1]) && wholly_selected(fields[1]); }));
    EXPECT_EQ(events.count(GRX_EVT_TAB), 0);
}

TEST_F(FieldTraversal, TabThroughAllFields) {
    for (int i = 0; i < 6; ++i) {
        keyboard().key(XK_Tab);
        const auto tab = next(GRX_EVT_TAB);
        ASSERT_TRUE(tab) << i << ": " << events.describe();
        EXPECT_EQ(tab->exec_fonction.nobou, fields[i % 3]) << i;
        EXPECT_TRUE(wait_for([&] { return has_focus(fields[(i + 1) % 3]); })) << i;
        EXPECT_TRUE(wait_for([&] { return wholly_selected(fields[(i + 1) % 3]); })) << i;
    }
}

TEST_F(FieldTraversal, TabFromAButtonIsAKey) {
    GRX_BOUTON description = a(GRX_BOU_SIMPLE);
    description.y = 200;
    description.hauteur = 40;
    const INT n = made(description);
    grx_force_focus_sur_bouton(n);
    ASSERT_TRUE(wait_for([&] { return has_focus(n); }));
    events.clear();
    keyboard().key(XK_Tab);
    const auto press = next(GRX_EVT_CARAC_APPUI);
    ASSERT_TRUE(press) << events.describe();
    EXPECT_EQ(press->carac_appui.carac, 9);
    EXPECT_EQ(press->carac_appui.nobou, n);
    EXPECT_TRUE(wait_for([&] { return has_focus(fields[0]); }));
    EXPECT_TRUE(wait_for([&] { return wholly_selected(fields[0]); })) << "ready to be overwritten";
    EXPECT_EQ(events.count(GRX_EVT_TAB), 0);
    grx_force_focus_sur_bouton(n);
    ASSERT_TRUE(wait_for([&] { return has_focus(n); }));
    keyboard().key(XK_Tab, ShiftMask);
    const auto back = next(GRX_EVT_CARAC_APPUI);
    ASSERT_TRUE(back);
    EXPECT_EQ(back->carac_appui.carac, 65396);
}

TEST_F(FieldTraversal, LongTextsAreCut) {
    for (std::size_t length : {254U, 255U, 256U, 300U, 5000U}) {
        const std::string text(length, 'l');
        grx_change_texte(fields[0], writable(text.c_str()));
        const std::string expected = text.substr(0, GRX_EVT_CHAINE_MAX - 1);
        grx_force_focus_sur_bouton(fields[0]);
        ASSERT_TRUE(wait_for([&] { return has_focus(fields[0]); }));
        keyboard().key(XK_Return);
        const auto done = next(GRX_EVT_EXEC_FONCTION);
        ASSERT_TRUE(done);
        EXPECT_EQ(std::string(done->exec_fonction.chaine), expected) << length;
        keyboard().key(XK_Tab);
        const auto tab = next(GRX_EVT_TAB);
        ASSERT_TRUE(tab);
        EXPECT_EQ(std::string(tab->exec_fonction.chaine), expected) << length;
        EXPECT_EQ(text_of(fields[0]), text) << "the field itself keeps all";
    }
}

TEST_F(FieldTraversal, LeavingAFieldPostsNothing) {
    pointer().move_in(control(fields[2]), 60, 10);
    settle();
    pointer().click(1);
    ASSERT_TRUE(wait_for([&] { return has_focus(fields[2]); }));
    drain();
    EXPECT_EQ(events.types(), (std::vector<INT>{2, 15})) << events.describe();
    const GRX_EVENEMENT before = evt_global = patterned_event();
    grx_focus_quitte_bouton(control(fields[0]), &button_record(fields[0]), nullptr);
    EXPECT_TRUE(same_record(before, evt_global));
}

class FieldsInUtf8 : public ControlEvents {
  protected:
    void before_start() override {
        ControlEvents::before_start();
        ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr);
    }
};

TEST_F(FieldsInUtf8, PostTheBytesThatTheyWereGiven) {
    for (const char* text : {"\xe9t\xe9", "\u00e9t\u00e9"}) {
        const INT n = made(GRX_BOU_TEXTE, 0, text);
        focus(n);
        keyboard().key(XK_Return);
        const auto done = next(GRX_EVT_EXEC_FONCTION);
        ASSERT_TRUE(done);
        EXPECT_EQ(std::string(done->exec_fonction.chaine), text);
        keyboard().key(XK_Tab);
        const auto tab = next(GRX_EVT_TAB);
        ASSERT_TRUE(tab);
        EXPECT_EQ(std::string(tab->exec_fonction.chaine), text);
        grx_detruit_bouton(n);
        settle();
    }
}

// The manager gives the focus to the new window, wherever the pointer is.
class ControlEventsWmTest : public WmTest {};

TEST_F(ControlEventsWmTest, TabsAndSpaceUnderAManager) {
    const INT window = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 400, 300);
    ASSERT_TRUE(wait_visible(widget_of(window)));
    INT numbers[3];
    constexpr INT types[] = {GRX_BOU_TEXTE, GRX_BOU_TEXTE, GRX_BOU_SIMPLE};
    for (INT i = 0; i < 3; ++i) {
        GRX_BOUTON description = control_of(types[i], 0, window, i == 0 ? "un" : "deux");
        description.y = 10 + 60 * i;
        description.hauteur = 30;
        numbers[i] = make(description);
        ASSERT_TRUE(wait_visible(control(numbers[i])));
    }
    pointer().click_in(control(numbers[0]), 60, 10);
    ASSERT_TRUE(wait_for([&] { return XmGetFocusWidget(control(numbers[0])) == control(numbers[0]); }));
    events.clear();
    keyboard().key(XK_Tab);
    const auto tab = events.wait(GRX_EVT_TAB);
    ASSERT_TRUE(tab) << events.describe();
    EXPECT_EQ(tab->exec_fonction.nobou, numbers[0]);
    EXPECT_EQ(std::string(tab->exec_fonction.chaine), "un");
    EXPECT_TRUE(wait_for([&] {
        XmTextPosition left = 0, right = 0;
        return XmTextFieldGetSelectionPosition(control(numbers[1]), &left, &right) && right - left == 4;
    }));
    keyboard().key(XK_Tab);
    ASSERT_TRUE(wait_for([&] { return XmGetFocusWidget(control(numbers[2])) == control(numbers[2]); }));
    keyboard().key(XK_space);
    const auto done = events.wait(GRX_EVT_EXEC_FONCTION);
    ASSERT_TRUE(done) << events.describe();
    EXPECT_EQ(done->exec_fonction.nobou, numbers[2]);
    EXPECT_EQ(done->exec_fonction.valeur, application_value);
}

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

// --- drawing areas ------------------------------------------------------------------------------------------------

TEST_F(ControlEvents, AnAreaIsRepaintedFromItsCopy) {
    const INT n = made(GRX_BOU_ZONE_DESSIN);
    XGCValues values{};
    values.foreground = pixel_of(6);
    const GC context = XCreateGC(x11_disp, button_record(n).image, GCForeground, &values);
    XFillRectangle(x11_disp, button_record(n).image, context, 10, 20, 30, 15);
    XFreeGC(x11_disp, context);
    settle();
    XClearArea(test_display(), XtWindow(control(n)), 0, 0, 0, 0, True);
    XSync(test_display(), False);
    drain();
    EXPECT_TRUE(events.seen().empty()) << "nothing is posted: " << events.describe();
    EXPECT_TRUE(same(grab(x11_disp, button_record(n).image), picture(n)));
    EXPECT_EQ(picture(n).bounds(static_cast<std::uint32_t>(pixel_of(6))), (Area{10, 20, 30, 15}));
}

TEST_F(ControlEvents, AnAreaIsRepaintedWhenShownAgain) {
    const INT n = made(GRX_BOU_ZONE_DESSIN);
    grx_cache_bouton(n);
    drain();
    grx_affiche_bouton(n);
    ASSERT_TRUE(wait_visible(control(n)));
    EXPECT_TRUE(wait_for([&] { return picture(n) == grab(x11_disp, button_record(n).image); }));
    EXPECT_EQ(picture(n).count(static_cast<std::uint32_t>(pixel_of(1))), 120 * 80) << "black, as it begins";
}

// --- callbacks by themselves --------------------------------------------------------------------------------------

TEST_F(ControlEvents, AnExposedButtonIsToldWhereTheApplicationAsks) {
    const INT n = made(GRX_BOU_DESSINE);
    XtAddCallback(control(n), XmNexposeCallback, grx_bouton_est_affiche, &button_record(n));
    forget();
    XClearArea(test_display(), XtWindow(control(n)), 0, 0, 0, 0, True);
    XSync(test_display(), False);
    const auto told = next(GRX_EVT_BOUTON_AFFICHE);
    ASSERT_TRUE(told) << events.describe();
    EXPECT_TRUE(same_record(plain_record(8, window, n), *told));
}

TEST_F(ControlEvents, NobodyIsToldUnasked) {
    for (const ControlKind& kind : control_kinds) {
        const INT n = made(control_of(kind, window));
        XClearArea(test_display(), XtWindow(control(n)), 0, 0, 0, 0, True);
        XSync(test_display(), False);
        drain();
        EXPECT_TRUE(events.seen().empty()) << kind.name << ": " << events.describe();
        grx_detruit_bouton(n);
        settle();
    }
}

TEST_F(ControlEvents, CallbacksOfADestroyedControlDoNothing) {
    const INT n = made(GRX_BOU_SIMPLE);
    const Widget other = control(made(GRX_BOU_LABEL));
    STRUCTURE_BOUTON* record = &button_record(n);
    grx_detruit_bouton(n);
    settle();
    XEvent event{};
    event.xbutton.type = ButtonPress;
    event.xbutton.window = XtWindow(other);
    event.xbutton.display = x11_disp;
    Boolean go_on = True;
    XmScaleCallbackStruct call{};
    const GRX_EVENEMENT before = evt_global = patterned_event();
    grx_bouton_est_enfonce(other, record, &call);
    grx_echelle_bouge(other, record, &call);
    grx_focus_quitte_bouton(other, record, &call);
    grx_bouton_est_affiche(other, record, &call);
    grx_gere_evenements_bouton(other, record, &event, &go_on);
    grx_element_liste_clique(other, record, &call);
    EXPECT_TRUE(same_record(before, evt_global));
}

TEST_F(ControlEvents, CallbacksWithoutDataAreSurvived) {
    const INT n = made(GRX_BOU_SIMPLE);
    const Widget w = control(n);
    STRUCTURE_BOUTON foreign = button_record(n);
    Boolean go_on = True;
    XEvent event{};
    for (XtPointer data : {XtPointer{nullptr}, XtPointer{&foreign}, XtPointer{&button_record(n)}}) {
        grx_bouton_est_enfonce(w, data, nullptr);
        grx_echelle_bouge(w, data, nullptr);
        grx_element_liste_clique(w, data, nullptr);
        grx_focus_quitte_bouton(w, data, nullptr);
        grx_bouton_est_affiche(w, data, nullptr);
        grx_gere_evenements_bouton(w, data, nullptr, nullptr);
        grx_gere_evenements_bouton(w, data, &event, &go_on);
        grx_bouton_est_enfonce(nullptr, data, nullptr);
        grx_gere_evenements_bouton(nullptr, data, &event, nullptr);
    }
    EXPECT_NE(control(n), nullptr);
}

TEST_F(ControlEvents, AControlDestroyedByItsOwnClick) {
    const INT n = made(GRX_BOU_SIMPLE);
    over(n, 60, 40);
    pointer().press(1);
    ASSERT_TRUE(next(GRX_EVT_BOUTON_APPUI));
    grx_detruit_bouton(n);
    pointer().release(1);
    drain();
    EXPECT_EQ(events.count(GRX_EVT_EXEC_FONCTION), 0);
    const INT again = made(GRX_BOU_SIMPLE);
    EXPECT_EQ(again, n);
    over(again, 60, 40);
    pointer().click(1);
    EXPECT_TRUE(next(GRX_EVT_EXEC_FONCTION));
}

} // namespace
