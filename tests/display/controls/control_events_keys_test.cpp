// Keys over controls and in fields.
#include "tests/display/controls/control_events_kit.h"

#include "menus/menu_keys_state.h"

#include <clocale>
#include <cstddef>

namespace {

using namespace grxtest;

constexpr INT application_value = 31;

GRX_EVENEMENT text_record(INT type, INT window, INT nobou, const char* text) {
    GRX_EVENEMENT record = plain_record(type, window, nobou);
    std::strcpy(record.exec_fonction.chaine, text);
    return record;
}

constexpr std::size_t up_to_value = offsetof(GRX_EXEC_FONCTION, chaine);

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

} // namespace
