// Event records, the translation of keys, and the functions that search for, drop or flush pending events.
#include "tests/display/window_kit.h"

#include "xt_prive.h"

#include <X11/keysym.h>

#include <climits>
#include <thread>

namespace {

using namespace grxtest;

// --- records ------------------------------------------------------------------------------------------------------

TEST(Record, IsEmptiedInThreeFieldsOnly) {
    GRX_EVENEMENT event = patterned_event();
    EXPECT_EQ(grx_init_evenement(&event), 0);
    GRX_EVENEMENT wanted = patterned_event();
    wanted.bouton_appui.type_evenement = 0;
    wanted.bouton_appui.nobou = -1;
    wanted.bouton_appui.etat = 0;
    EXPECT_EQ(std::memcmp(&event, &wanted, sizeof wanted), 0);
    EXPECT_EQ(grx_init_evenement(nullptr), 0);
}

TEST(Record, TheRestrictingWindowIsKept) {
    EXPECT_EQ(grx_recup_fenetre_a_digitaliser(), -1);
    for (INT n : {7, 0, -5, INT_MAX}) {
        EXPECT_EQ(grx_affecte_fenetre_a_digitaliser(n), 0);
        EXPECT_EQ(grx_recup_fenetre_a_digitaliser(), n);
    }
}

// --- keys, one symbol at a time -------------------------------------------------------------------------------------

struct Translated {
    INT result, code;
    bool operator==(const Translated&) const = default;
};

void PrintTo(const Translated& t, std::ostream* out) {
    *out << "result " << t.result << " code " << t.code << " (0x" << std::hex << t.code << std::dec << ")";
}

class Symbols : public DisplayTest {
  protected:
    void SetUp() override {
        DisplayTest::SetUp();
        int first = 0, last = 0;
        XDisplayKeycodes(test_display(), &first, &last);
        code_ = static_cast<KeyCode>(last); // no key of a usual keyboard
    }

    // What a key gives whose symbols are these, with that state.
    Translated translate(std::vector<KeySym> symbols, unsigned state = 0) {
        XChangeKeyboardMapping(test_display(), code_, static_cast<int>(symbols.size()), symbols.data(), 1);
        XSync(test_display(), False);
        drain();
        XEvent event{};
        event.xkey.type = KeyPress;
        event.xkey.display = x11_disp;
        event.xkey.keycode = code_;
        event.xkey.state = state;
        Translated answer{-7, untouched};
        answer.result = grx_translate_touche(&event, &answer.code);
        state_after_ = event.xkey.state;
        return answer;
    }

    unsigned state_after_ = 0;

  private:
    KeyCode code_ = 0;
};

TEST_F(Symbols, FunctionKeysAreTheirSymbol) {
    for (KeySym symbol = 0xFFBE; symbol <= 0xFFE0; ++symbol)
        EXPECT_EQ(translate({symbol, symbol}), (Translated{1, static_cast<INT>(symbol)}));
}

TEST_F(Symbols, CursorKeysAreTheirSymbolAndTheirNeighboursNothing) {
    for (KeySym symbol = 0xFF50; symbol <= 0xFF57; ++symbol)
        EXPECT_EQ(translate({symbol, symbol}), (Translated{1, static_cast<INT>(symbol)}));
    for (KeySym symbol = 0xFF58; symbol <= 0xFF5F; ++symbol)
        EXPECT_EQ(translate({symbol, symbol}), (Translated{0, 0})) << std::hex << symbol;
}

TEST_F(Symbols, DeleteAndInsert) {
    EXPECT_EQ(translate({0xFFFF, 0xFFFF}), (Translated{1, 0xFFFF}));
    EXPECT_EQ(translate({0xFF63, 0xFF63}), (Translated{1, 0xFF63}));
}

TEST_F(Symbols, MiscellaneousKeysAreNothing) {
    for (KeySym symbol = 0xFF60; symbol <= 0xFF6B; ++symbol)
        if (symbol != 0xFF63) {
            EXPECT_EQ(translate({symbol, symbol}), (Translated{0, 0})) << std::hex << symbol;
        }
}

TEST_F(Symbols, ModifiersAreNothing) {
    for (KeySym symbol = 0xFFE1; symbol <= 0xFFEE; ++symbol)
        EXPECT_EQ(translate({symbol, symbol}), (Translated{0, 0})) << std::hex << symbol;
    EXPECT_EQ(translate({0xFF7E, 0xFF7E}), (Translated{0, 0})) << "Mode_switch";
    EXPECT_EQ(translate({0xFF7F, 0xFF7F}), (Translated{0, 0})) << "Num_Lock";
}

TEST_F(Symbols, TabAndBackTab) {
    EXPECT_EQ(translate({0xFF09, 0xFE20}), (Translated{1, 9}));
    EXPECT_EQ(translate({0xFF09, 0xFE20}, ShiftMask), (Translated{1, 65396})) << "Tab with ISO_Left_Tab";
    EXPECT_EQ(translate({0xFF09, 0xFF09}, ShiftMask), (Translated{1, 65396})) << "plain Tab with Shift";
    EXPECT_EQ(translate({0x1000FF74, 0x1000FF74}), (Translated{1, 65396})) << "the vendor's key";
    EXPECT_EQ(translate({0x1000FF74, 0x1000FF74}, ShiftMask), (Translated{1, 65396}));
}

TEST_F(Symbols, CharactersAreTheirByte) {
    for (KeySym symbol : {0x20U, 0x61U, 0x7EU, 0xA0U, 0xE9U, 0xFFU})
        EXPECT_EQ(translate({symbol, symbol}), (Translated{1, static_cast<INT>(symbol)})) << std::hex << symbol;
    EXPECT_EQ(translate({XK_Return, XK_Return}), (Translated{1, 13}));
    EXPECT_EQ(translate({XK_Escape, XK_Escape}), (Translated{1, 27}));
    EXPECT_EQ(translate({XK_BackSpace, XK_BackSpace}), (Translated{1, 8}));
}

TEST_F(Symbols, KeysWithoutACharacterAreNothing) {
    for (KeySym symbol : {KeySym{XK_Pause}, KeySym{XK_Multi_key}, KeySym{XK_KP_Home}, KeySym{0x1008FF11}})
        EXPECT_EQ(translate({symbol, symbol}).result, 0) << std::hex << symbol;
}

TEST_F(Symbols, NoSymbolForTheStateAndAModifierHeldIsUntranslated) {
    EXPECT_EQ(translate({'a', 'A'}, ControlMask), (Translated{0, 0}));
    EXPECT_EQ(state_after_, ControlMask);
    EXPECT_EQ(translate({'a', 'A'}, Mod1Mask | Mod2Mask), (Translated{0, 0}));
    EXPECT_EQ(state_after_, Mod1Mask) << "only Shift, Control and Alt are left in the event";
    EXPECT_EQ(translate({'a', 'A'}, ShiftMask | ControlMask | LockMask), (Translated{0, 0}));
    EXPECT_EQ(state_after_, ShiftMask | ControlMask);
    EXPECT_EQ(translate({'a', 'A'}, ShiftMask | Mod2Mask), (Translated{0, 0})) << "Shift with NumLock";
    EXPECT_EQ(state_after_, ShiftMask);
}

TEST_F(Symbols, AStateThatHasASymbolIsTranslated) {
    EXPECT_EQ(translate({'a', 'A'}, ShiftMask), (Translated{1, 'A'}));
    EXPECT_EQ(state_after_, ShiftMask) << "the event stays as it is";
    EXPECT_EQ(translate({'a', 'A'}, Mod2Mask), (Translated{1, 'a'})) << "NumLock is none of the three";
    EXPECT_EQ(state_after_, Mod2Mask);
    EXPECT_EQ(translate({'a', 'A'}, LockMask), (Translated{1, 'A'}));
}

// --- keys of a real keyboard --------------------------------------------------------------------------------------------

class Keys : public DisplayTest {
  protected:
    void before_start() override { write_menu(""); }

    void SetUp() override {
        DisplayTest::SetUp();
        window_ = make(GRX_FEN_ALPHA);
        ASSERT_TRUE(wait_visible(widget_of(window_)));
        pointer().move_in(widget_of(window_), 30, 40);
        drain();
        events.clear();
    }

    // The code of the last record that pressing a key causes, 0 when there is none.
    INT code(KeySym symbol, unsigned modifiers = 0) {
        drain();
        events.clear();
        keyboard().key(symbol, modifiers);
        drain();
        INT result = 0;
        for (const GRX_EVENEMENT& e : events.seen())
            if (e.type_evenement == GRX_EVT_CARAC_APPUI) result = e.carac_appui.carac;
        EXPECT_LE(events.count(GRX_EVT_CARAC_APPUI), 1) << events.describe();
        return result;
    }

    // Pressed without the modifiers that the symbol needs.
    INT bare_code(KeySym symbol) {
        drain();
        events.clear();
        keyboard().press(symbol);
        keyboard().release(symbol);
        drain();
        return events.seen().empty() ? 0 : events.seen().back().carac_appui.carac;
    }

    INT window_ = 0;
};

TEST_F(Keys, FunctionAndCursorKeys) {
    for (KeySym symbol : {XK_F1, XK_F2, XK_F5, XK_F9, XK_F10, XK_F11, XK_F12, XK_Home, XK_Left, XK_Up, XK_Right,
             XK_Down, XK_Prior, XK_Next, XK_End, XK_Insert, XK_Delete})
        EXPECT_EQ(code(symbol), static_cast<INT>(symbol));
    EXPECT_EQ(code(XK_F12), 0xFFC9);
    EXPECT_EQ(code(XK_Home, ShiftMask), 0xFF50);
    EXPECT_EQ(code(XK_F3, ShiftMask), 0xFFC0);
}

TEST_F(Keys, LettersDigitsAndSigns) {
    for (KeySym symbol : {XK_a, XK_z, XK_A, XK_Z, XK_0, XK_9, XK_space, XK_plus, XK_at, XK_asciitilde, XK_numbersign})
        EXPECT_EQ(code(symbol), static_cast<INT>(symbol));
    EXPECT_EQ(code(XK_Return), 13);
    EXPECT_EQ(code(XK_Escape), 27);
    EXPECT_EQ(code(XK_BackSpace), 8);
}

TEST_F(Keys, TabAndShiftTab) {
    EXPECT_EQ(code(XK_Tab), 9);
    EXPECT_EQ(code(XK_Tab, ShiftMask), 65396);
}

TEST_F(Keys, BareModifiersPostNothing) {
    for (KeySym symbol : {XK_Shift_L, XK_Shift_R, XK_Control_L, XK_Control_R, XK_Alt_L, XK_Super_L}) {
        EXPECT_EQ(bare_code(symbol), 0);
        INT touche = 5;
        XEvent event = grx::Memo_event;
        EXPECT_EQ(event.type, KeyPress);
        EXPECT_EQ(grx_translate_touche(&event, &touche), 0);
        EXPECT_EQ(touche, 0);
    }
    for (KeySym lock : {XK_Caps_Lock, XK_Num_Lock}) {
        EXPECT_EQ(bare_code(lock), 0);
        bare_code(lock);
    }
    for (KeySym symbol : {XK_Pause, XK_Scroll_Lock, XK_Print, XK_Menu}) EXPECT_EQ(bare_code(symbol), 0) << symbol;
}

TEST_F(Keys, TheKeypadFollowsNumLock) {
    for (KeySym symbol : {XK_KP_Home, XK_KP_Left, XK_KP_Insert}) EXPECT_EQ(bare_code(symbol), 0) << "without NumLock";
    EXPECT_EQ(code(XK_KP_Add), '+');
    EXPECT_EQ(code(XK_KP_Multiply), '*');
    EXPECT_EQ(code(XK_KP_Enter), 13);
    keyboard().num_lock();
    EXPECT_EQ(bare_code(XK_KP_Home), '7');
    EXPECT_EQ(bare_code(XK_KP_Left), '4');
    EXPECT_EQ(bare_code(XK_KP_Insert), '0');
    EXPECT_EQ(bare_code(XK_KP_Add), '+');
    EXPECT_EQ(code(XK_a), 'a') << "letters do not mind";
    EXPECT_EQ(code(XK_F12), 0xFFC9);
    EXPECT_EQ(code(XK_a, ShiftMask), 'A') << "with Shift neither";
    keyboard().num_lock();
    EXPECT_EQ(code(XK_a, ShiftMask), 'A');
}

TEST_F(Keys, CapsLock) {
    keyboard().caps_lock();
    EXPECT_EQ(code(XK_a), 'A');
    EXPECT_EQ(code(XK_1), '1');
    EXPECT_EQ(code(XK_F1), 0xFFBE);
    EXPECT_EQ(code(XK_Tab), 9);
    keyboard().caps_lock();
    EXPECT_EQ(code(XK_a), 'a');
}

TEST_F(Keys, ControlAndAltGoToTheMenu) {
    for (const auto& [symbol, modifiers] : {std::pair<KeySym, unsigned>{XK_o, ControlMask}, {XK_x, Mod1Mask},
             {XK_Right, ControlMask}, {XK_F1, Mod1Mask}, {XK_s, ControlMask | ShiftMask}}) {
        grx::evt_menu = {};
        EXPECT_EQ(code(symbol, modifiers), 0) << symbol;
        EXPECT_EQ(grx::evt_menu.type, KeyPress) << symbol;
        EXPECT_EQ(grx::evt_menu.xkey.keycode, XKeysymToKeycode(x11_disp, symbol));
        EXPECT_EQ(grx::evt_menu.xkey.state & (ShiftMask | ControlMask | Mod1Mask), modifiers);
    }
    grx::evt_menu = {};
    code(XK_k);
    EXPECT_EQ(grx::evt_menu.type, 0) << "translated keys stay with the host";
}

TEST_F(Keys, ControlWithAFunctionKeyIsTranslated) {
    EXPECT_EQ(code(XK_F1, ControlMask), 0xFFBE) << "its fifth symbol is the key itself";
}

TEST_F(Keys, OnAFrenchKeyboard) {
    keyboard().layout("fr");
    drain();
    EXPECT_EQ(code(XK_a), 'a');
    EXPECT_EQ(code(XK_A), 'A');
    EXPECT_EQ(code(XK_q), 'q');
    EXPECT_EQ(code(XK_eacute), 0xE9);
    EXPECT_EQ(code(XK_agrave), 0xE0);
    EXPECT_EQ(code(XK_ccedilla), 0xE7);
    EXPECT_EQ(code(XK_1), '1') << "with Shift";
    EXPECT_EQ(code(XK_ampersand), '&');
    EXPECT_EQ(code(XK_at), '@') << "with AltGr";
    EXPECT_EQ(code(XK_F12), 0xFFC9);
    EXPECT_EQ(code(XK_Tab), 9);
    EXPECT_EQ(code(XK_Tab, ShiftMask), 65396);
    EXPECT_EQ(code(XK_Delete), 0xFFFF);
    EXPECT_EQ(bare_code(XK_dead_circumflex), '^') << "composing is not the library's";
    keyboard().num_lock();
    EXPECT_EQ(bare_code(XK_KP_Home), '7');
    keyboard().num_lock();
}

TEST_F(Keys, TheLastKeyIsKept) {
    code(XK_k);
    EXPECT_EQ(grx::Memo_event.type, KeyPress);
    EXPECT_EQ(grx::Memo_event.xkey.keycode, XKeysymToKeycode(x11_disp, XK_k));
    pointer().click();
    drain();
    EXPECT_EQ(grx::Memo_event.xkey.keycode, XKeysymToKeycode(x11_disp, XK_k)) << "only key presses";
}

TEST_F(Keys, ModifiersHeldNow) {
    EXPECT_EQ(grx_recup_etat_clavier(), 0);
    keyboard().press(XK_Alt_L);
    EXPECT_EQ(grx_recup_etat_clavier(), 3);
    keyboard().press(XK_Control_L);
    EXPECT_EQ(grx_recup_etat_clavier(), 2) << "before Alt";
    keyboard().press(XK_Shift_R);
    EXPECT_EQ(grx_recup_etat_clavier(), 1) << "before all";
    keyboard().release(XK_Control_L);
    keyboard().release(XK_Alt_L);
    EXPECT_EQ(grx_recup_etat_clavier(), 1);
    keyboard().release(XK_Shift_R);
    keyboard().caps_lock();
    keyboard().num_lock();
    EXPECT_EQ(grx_recup_etat_clavier(), 0);
    keyboard().caps_lock();
    keyboard().num_lock();
}

// --- searching ----------------------------------------------------------------------------------------------------------

class Search : public Keys {
  protected:
    // The server has sent all that was injected.
    void arrive() { XSync(x11_disp, False); }
};

TEST_F(Search, AnEmptyQueueGivesNothing) {
    for (INT type : {2, 3, 0, 1, 4, -1, INT_MAX}) {
        GRX_EVENEMENT event = patterned_event();
        EXPECT_EQ(grx_cherche_evenement(type, &event, 0), 0) << type;
        EXPECT_EQ(event.type_evenement, 0) << type;
    }
}

TEST_F(Search, AKeyIsFound) {
    pointer().move_in(widget_of(window_), 60, 70);
    keyboard().key(XK_k);
    arrive();
    GRX_EVENEMENT event{};
    EXPECT_EQ(grx_cherche_evenement(3, &event, 0), 1);
    EXPECT_EQ(event.type_evenement, GRX_EVT_CARAC_APPUI);
    EXPECT_EQ(event.carac_appui.nofen, window_);
    EXPECT_EQ(event.carac_appui.carac, 'k');
    EXPECT_EQ(std::memcmp(&event, &evt_global, sizeof event), 0) << "the whole record";
    EXPECT_EQ(grx_cherche_evenement(3, &event, 0), 0) << "once";
    EXPECT_EQ(event.type_evenement, 0);
    drain();
    EXPECT_GE(events.count(GRX_EVT_SOURIS_BOUGE), 1) << "what was before it waits still";
}

TEST_F(Search, AMousePressIsFoundBeforeAKey) {
    keyboard().key(XK_k);
    pointer().click();
    arrive();
    GRX_EVENEMENT event{};
    EXPECT_EQ(grx_cherche_evenement(2, &event, 0), 1);
    EXPECT_EQ(event.type_evenement, GRX_EVT_BOUTON_APPUI);
    EXPECT_EQ(event.bouton_appui.x, 30);
    EXPECT_EQ(grx_cherche_evenement(2, &event, 0), 2) << "then the key";
    EXPECT_EQ(event.type_evenement, GRX_EVT_CARAC_APPUI);
    EXPECT_EQ(event.carac_appui.carac, 'k');
    EXPECT_EQ(grx_cherche_evenement(2, &event, 0), 0);
}

TEST_F(Search, AMousePressIsNoKey) {
    pointer().click();
    arrive();
    GRX_EVENEMENT event = patterned_event();
    EXPECT_EQ(grx_cherche_evenement(3, &event, 0), 0);
    EXPECT_EQ(event.type_evenement, 0);
    drain();
    EXPECT_EQ(events.count(GRX_EVT_BOUTON_APPUI), 1) << "it is still there";
}

TEST_F(Search, OtherTypesTakeNothing) {
    pointer().click();
    keyboard().key(XK_k);
    arrive();
    for (INT type : {0, 1, 4, 6, 15, -3, INT_MAX, INT_MIN})
        for (INT blocking : {0, 1}) {
            GRX_EVENEMENT event = patterned_event();
            EXPECT_EQ(grx_cherche_evenement(type, &event, blocking), 0);
            EXPECT_EQ(event.type_evenement, 0);
        }
    drain();
    EXPECT_EQ(events.count(GRX_EVT_BOUTON_APPUI), 1);
    EXPECT_EQ(events.count(GRX_EVT_CARAC_APPUI), 1);
}

TEST_F(Search, AKeyThatPostsNothingDoesNotBringTheLastRecordBack) {
    keyboard().key(XK_k);
    arrive();
    GRX_EVENEMENT event{};
    ASSERT_EQ(grx_cherche_evenement(3, &event, 0), 1);
    keyboard().press(XK_Shift_L);
    keyboard().release(XK_Shift_L);
    arrive();
    EXPECT_EQ(grx_cherche_evenement(3, &event, 0), 1);
    EXPECT_EQ(event.type_evenement, 0);
}

TEST_F(Search, BlockingTakesWhatIsThere) {
    keyboard().key(XK_k);
    pointer().click();
    arrive();
    GRX_EVENEMENT event{};
    EXPECT_EQ(grx_cherche_evenement(2, &event, 1), 1);
    EXPECT_EQ(event.type_evenement, GRX_EVT_BOUTON_APPUI);
    EXPECT_EQ(grx_cherche_evenement(3, &event, 1), 1);
    EXPECT_EQ(event.type_evenement, GRX_EVT_CARAC_APPUI);
}

TEST_F(Search, BlockingWaits) {
    for (INT type : {2, 3}) {
        const std::string name = server().name();
        std::thread user([&] { // its own connection: input comes while the search waits
            const InputConnection connection(name);
            if (type == 2)
                Pointer(connection).click(3);
            else
                Keyboard(connection).key(XK_m);
        });
        GRX_EVENEMENT event{};
        EXPECT_EQ(grx_cherche_evenement(type, &event, 7), 1);
        user.join();
        EXPECT_EQ(event.type_evenement, type);
        if (type == 2) {
            EXPECT_EQ(event.bouton_appui.bouton, 3);
        } else {
            EXPECT_EQ(event.carac_appui.carac, 'm');
        }
        drain();
    }
}

// --- dropping and flushing ----------------------------------------------------------------------------------------------

class Pending : public Keys {
  protected:
    void expose(INT window) {
        XSync(x11_disp, False);
        XClearArea(test_display(), x_window(window), 0, 0, 10, 10, True);
        XSync(test_display(), False);
    }
};

TEST_F(Pending, RedrawsOfOneWindowAreDropped) {
    GRX_FENETRE beside = described(GRX_FEN_ALPHA);
    beside.x = 600;
    const INT other = make(beside);
    ASSERT_TRUE(wait_visible(widget_of(other)));
    drain();
    events.clear();
    expose(window_);
    expose(other);
    pointer().click();
    evt_global = patterned_event();
    EXPECT_EQ(grx_supprime_tous_evenement_pour_fenetre(GRX_EVT_AFFICHAGE, window_), 0);
    EXPECT_EQ(evt_global.type_evenement, untouched) << "they are absorbed";
    drain();
    EXPECT_EQ(events.count(GRX_EVT_AFFICHAGE), 1) << events.describe();
    EXPECT_EQ(events.count(GRX_EVT_BOUTON_APPUI), 1);
    events.clear();
    expose(window_);
    drain();
    EXPECT_EQ(events.count(GRX_EVT_AFFICHAGE), 1) << "later ones are handled again";
}

TEST_F(Pending, OtherTypesDropNothing) {
    for (INT type : {0, 1, 2, 3, 16, -1, INT_MAX}) {
        expose(window_);
        EXPECT_EQ(grx_supprime_tous_evenement_pour_fenetre(type, window_), 0);
        drain();
        EXPECT_EQ(events.count(GRX_EVT_AFFICHAGE), 1) << type;
        events.clear();
    }
}

TEST_F(Pending, UnknownWindowsDropNothing) {
    expose(window_);
    for (INT n : {0, -1, 50, 99, 100, INT_MAX, INT_MIN})
        EXPECT_EQ(grx_supprime_tous_evenement_pour_fenetre(GRX_EVT_AFFICHAGE, n), 0);
    drain();
    EXPECT_EQ(events.count(GRX_EVT_AFFICHAGE), 1);
}

TEST_F(Pending, FlushingHandlesEverything) {
    keyboard().key(XK_k);
    pointer().click();
    expose(window_);
    record_of(window_).affiche = 0;
    evt_global = patterned_event();
    EXPECT_EQ(grx_flush_tous_evenements(), 0);
    EXPECT_EQ(XEventsQueued(x11_disp, QueuedAfterReading), 0);
    EXPECT_EQ(record_of(window_).affiche, 1) << "the redraw was dispatched";
    EXPECT_NE(evt_global.type_evenement, untouched);
    drain();
    EXPECT_EQ(events.seen().size(), 0U) << events.describe();
}

TEST_F(Pending, FlushingDropsCloseRequests) {
    ask_to_close(test_display(), XtWindow(shell_of(window_)));
    pointer().click();
    EXPECT_EQ(grx_flush_tous_evenements(), 0);
    EXPECT_EQ(evt_global.type_evenement, GRX_EVT_BOUTON_RELACHE);
    drain();
    ASSERT_NE(widget_of(window_), nullptr);
    EXPECT_TRUE(visible(x_window(window_)));
    EXPECT_EQ(events.count(GRX_EVT_DESTRUCTION), 0);
}

TEST_F(Pending, FlushingNothingReturns) {
    EXPECT_EQ(grx_flush_tous_evenements(), 0);
}

TEST(NoDisplayYet, SearchAndFlushAnswerNothing) {
    GRX_EVENEMENT event = patterned_event();
    EXPECT_EQ(grx_cherche_evenement(2, &event, 0), 0);
    EXPECT_EQ(event.type_evenement, 0);
    EXPECT_EQ(grx_cherche_evenement(3, &event, 1), 0);
    EXPECT_EQ(grx_flush_tous_evenements(), 0);
    EXPECT_EQ(grx_supprime_tous_evenement_pour_fenetre(4, 1), 0);
    EXPECT_EQ(grx_recup_etat_clavier(), 0);
}

} // namespace
