// Codes of keys, one symbol at a time and on real keyboards.
#include "tests/display/events/keys_kit.h"

#include "menus/menu_keys_state.h"
#include "session/loop_state.h"

#include <X11/keysym.h>

namespace {

using namespace grxtest;

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

} // namespace
