// Ctrl+C, X, V and A in fields and lists, typed by a real keyboard.
#include "tests/display/session/clipboard_kit.h"
#include "tests/display/menus/menu_kit.h"
#include "tests/support/control_kit.h"

#include <clocale>

namespace {

using namespace grxtest;

constexpr INT copy_entry = 301, paste_entry = 302;
const std::string key_menu = menu_zone("POPUP||&Edit|\n{\nITEM||Copy|Ctrl+C|301|\nITEM||Paste|Ctrl+V|302|\n}\n");

// A window with a field, the keyboard in it.
template <class Base>
class KeysOn : public ClipboardOn<Base> {
  protected:
    void SetUp() override {
        ClipboardOn<Base>::SetUp();
        if (this->HasFatalFailure()) return;
        window_ = this->make_window();
        field_ = add(GRX_BOU_TEXTE, 0, "abcdef");
        focus(field_);
    }
    virtual INT make_window() {
        const INT window = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE, 500, 300);
        EXPECT_TRUE(this->wait_visible(widget_of(window)));
        return window;
    }
    INT add(INT type, INT bits, const char* title, int y = 30) {
        GRX_BOUTON description = control_of(type, bits, window_, title);
        description.y = y;
        description.hauteur = 30;
        if (type != GRX_BOU_TEXTE || bits != 0) description.hauteur = 80;
        const INT n = make(description);
        EXPECT_GE(n, 0);
        EXPECT_TRUE(this->wait_visible(control(n)));
        this->settle();
        return n;
    }
    void focus(INT nobou) {
        this->pointer().move_in(control(nobou), 5, 5);
        grx_force_focus_sur_bouton(nobou);
        EXPECT_TRUE(this->wait_for([&] { return XmGetFocusWidget(control(nobou)) == control(nobou); }));
        this->settle();
    }
    void ctrl(KeySym symbol) {
        this->keyboard().key(symbol, ControlMask);
        this->drain();
        this->drain();
    }
    void select(int from, int to) {
        XmTextSetSelection(control(field_), from, to, XtLastTimestampProcessed(x11_disp));
        this->drain();
    }
    std::string content(INT nobou = -1) { return text_of(nobou < 0 ? field_ : nobou); }
    std::string on_clipboard() { return get_text(GRX_CODAGE_LATIN1).text; }
    INT window_ = 0;
    INT field_ = -1;
};

class ClipboardKeys : public KeysOn<DisplayTest> {
  protected:
    void before_start() override { write_menu(""); }
    void SetUp() override {
        KeysOn::SetUp();
        if (x11_disp) ASSERT_EQ(grx_affecte_touches_presse_papiers(1), 1);
    }
};

class ClipboardKeysOff : public KeysOn<DisplayTest> {
    void before_start() override { write_menu(""); }
};

TEST_F(ClipboardKeysOff, AreWhatTheyWere) {
    EXPECT_EQ(grx_recup_touches_presse_papiers(), 0);
    ASSERT_EQ(put_text("other"), 1);
    select(0, 3);
    for (const KeySym key : {XK_c, XK_x, XK_v, XK_a}) ctrl(key);
    EXPECT_EQ(on_clipboard(), "other");
    EXPECT_EQ(content(), "\x03\x18\x16\x01"
                         "def"); // the toolkit types them
    const auto seen = events.types();
    XmTextFieldSetString(control(field_), writable("abcdef"));
    events.clear();
    ASSERT_EQ(grx_affecte_touches_presse_papiers(1), 1);
    EXPECT_EQ(grx_recup_touches_presse_papiers(), 1);
    ctrl(XK_a); // the field hears of keys from now on
    ASSERT_EQ(grx_affecte_touches_presse_papiers(0), 1);
    XmTextClearSelection(control(field_), CurrentTime);
    select(0, 3);
    events.clear();
    for (const KeySym key : {XK_c, XK_x, XK_v, XK_a}) ctrl(key);
    EXPECT_EQ(on_clipboard(), "other");
    EXPECT_EQ(content(), "\x03\x18\x16\x01"
                         "def");
    EXPECT_EQ(events.types(), seen);
}

TEST_F(ClipboardKeys, CopyCutPasteAndAll) {
    select(1, 3);
    ctrl(XK_c);
    EXPECT_EQ(on_clipboard(), "bc");
    EXPECT_EQ(content(), "abcdef");
    ctrl(XK_x);
    EXPECT_EQ(on_clipboard(), "bc");
    EXPECT_EQ(content(), "adef");
    keyboard().key(XK_End);
    ctrl(XK_v);
    EXPECT_EQ(content(), "adefbc");
    ctrl(XK_v);
    EXPECT_EQ(content(), "adefbcbc");
    ctrl(XK_a);
    ctrl(XK_c);
    EXPECT_EQ(on_clipboard(), "adefbcbc");
    ASSERT_EQ(put_text("new"), 1);
    ctrl(XK_v); // in the place of what is selected
    EXPECT_EQ(content(), "new");
    keyboard().type("x");
    drain();
    EXPECT_EQ(content(), "newx");
    EXPECT_EQ(events.count(GRX_EVT_EXEC_FONCTION), 0) << events.describe();
}

TEST_F(ClipboardKeys, WithoutASelectionTheClipboardKeepsWhatItHas) {
    ASSERT_EQ(put_text("kept"), 1);
    ctrl(XK_c);
    ctrl(XK_x);
    EXPECT_EQ(on_clipboard(), "kept");
    EXPECT_EQ(content(), "abcdef");
}

TEST_F(ClipboardKeys, OtherProgramsGiveAndGet) {
    ctrl(XK_a);
    ctrl(XK_c);
    EXPECT_EQ(asked("STRING")->bytes, "abcdef");
    const OtherOwner owner(server().name(), {{"UTF8_STRING", {"", "n\xC3\xA9 one\nand two"}}});
    ctrl(XK_v);
    EXPECT_EQ(content(), "n\xE9 one"); // the first line
}

TEST_F(ClipboardKeys, ASilentOwnerCostsASecondAndWhatIsTypedComesAfter) {
    const OtherOwner owner(server().name(), {}, Manner::never);
    keyboard().key(XK_End);
    keyboard().key(XK_v, ControlMask);
    keyboard().type("xyz");
    drain();
    EXPECT_EQ(content(), "abcdefxyz");
}

TEST_F(ClipboardKeys, ByTheLetterWhateverTheLayoutAndTheLocks) {
    for (const char* layout : {"us", "fr", "de"}) {
        keyboard().layout(layout);
        drain();
        for (const bool lock : {false, true}) {
            if (lock) keyboard().num_lock();
            if (lock) keyboard().caps_lock();
            ASSERT_EQ(grx_vide_presse_papiers(0), 1);
            ctrl(XK_a);
            ctrl(XK_c);
            EXPECT_EQ(on_clipboard(), "abcdef") << layout << lock;
            ctrl(XK_x);
            EXPECT_EQ(content(), "") << layout << lock;
            ctrl(XK_v);
            EXPECT_EQ(content(), "abcdef") << layout << lock;
            if (lock) keyboard().num_lock();
            if (lock) keyboard().caps_lock();
        }
    }
}

TEST_F(ClipboardKeys, WithShiftOrAltTheyAreOthers) {
    ASSERT_EQ(put_text("other"), 1);
    select(0, 3);
    for (const unsigned modifiers : {ControlMask | ShiftMask, ControlMask | Mod1Mask, 0 | Mod1Mask}) {
        keyboard().key(XK_c, modifiers);
        drain();
    }
    EXPECT_EQ(on_clipboard(), "other");
}

TEST_F(ClipboardKeys, APasteKeepsToTheGreatestLength) {
    XmTextFieldSetMaxLength(control(field_), 8);
    ASSERT_EQ(put_text("123456"), 1);
    keyboard().key(XK_End);
    ctrl(XK_v);
    EXPECT_EQ(content(), "abcdef12");
    ctrl(XK_v);
    EXPECT_EQ(content(), "abcdef12");
    select(0, 3);
    ctrl(XK_v);
    EXPECT_EQ(content(), "123def12");
}

TEST_F(ClipboardKeys, AFieldThatIsOnlyReadCanBeCopied) {
    const INT read_only = add(GRX_BOU_TEXTE, GRX_BOU_ATT_TEXTE_LECTURE, "fixed", 120);
    focus(read_only);
    ASSERT_EQ(put_text("other"), 1);
    ctrl(XK_v);
    ctrl(XK_a);
    ctrl(XK_x);
    EXPECT_EQ(content(read_only), "fixed");
    EXPECT_EQ(on_clipboard(), "other");
    ctrl(XK_c);
    EXPECT_EQ(on_clipboard(), "fixed");
}

TEST_F(ClipboardKeys, ATextOfLinesTakesLines) {
    const INT text = add(GRX_BOU_TEXTE, GRX_BOU_ATT_TEXTE_MULTI, "", 120);
    focus(text);
    ASSERT_EQ(put_text("one\r\ntwo\n"), 1);
    ctrl(XK_v);
    EXPECT_EQ(content(text), "one\ntwo\n");
    ctrl(XK_a);
    ctrl(XK_x);
    EXPECT_EQ(content(text), "");
    EXPECT_EQ(on_clipboard(), "one\ntwo\n");
}

TEST_F(ClipboardKeys, AListOfOneGivesItsEntry) {
    const INT list = add(GRX_BOU_LISTE, 0, "", 120);
    for (const char* entry : {"first", "n\xE9", "third"}) grx_ajoute_element_dans_liste(list, writable(entry));
    XmListSelectPos(control(list), 2, False);
    focus(list);
    ctrl(XK_c);
    EXPECT_EQ(on_clipboard(), "n\xE9");
    ctrl(XK_a); // it takes one
    EXPECT_EQ(resource<int>(control(list), XmNselectedItemCount), 1);
    ctrl(XK_x);
    ctrl(XK_v);
    EXPECT_EQ(resource<int>(control(list), XmNitemCount), 3);
    XmListDeselectAllItems(control(list));
    ASSERT_EQ(put_text("kept"), 1);
    ctrl(XK_c);
    EXPECT_EQ(on_clipboard(), "kept");
}

TEST_F(ClipboardKeys, OtherControlsLeaveTheKeysAlone) {
    const INT push = add(GRX_BOU_POUSSOIR, GRX_BOU_ATT_VRAI_POUSSOIR, "Push", 120);
    ASSERT_EQ(put_text("kept"), 1);
    focus(push);
    ctrl(XK_a);
    ctrl(XK_c);
    ctrl(XK_v);
    EXPECT_EQ(on_clipboard(), "kept");
    EXPECT_EQ(content(), "abcdef");
}

TEST_F(ClipboardKeys, WindowsOfTextKeepTheirOwn) {
    const INT text = make(GRX_FEN_TEXTE);
    ASSERT_TRUE(wait_visible(widget_of(text)));
    settle();
    ASSERT_EQ(put_text("other"), 1);
    pointer().click_in(widget_of(text), 20, 20);
    drain();
    ctrl(XK_v);
    char* is = XmTextGetString(widget_of(text));
    EXPECT_STREQ(is, "\x16"); // as the toolkit has it
    XtFree(is);
}

TEST_F(ClipboardKeys, GreekSurvivesInUtf8) {
    ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr);
    ASSERT_EQ(put_text("\xCE\xB1\xCE\xB2\xCE\xB3"), 1);
    XmTextFieldSetMaxLength(control(field_), 8);
    keyboard().key(XK_End);
    ctrl(XK_v);
    ctrl(XK_a);
    ctrl(XK_c);
    EXPECT_EQ(get_text().text, "abcdef\xCE\xB1\xCE\xB2"); // characters count, not bytes
}

TEST_F(ClipboardKeys, FiveHundredRoundsDoNotGrow) {
    const auto round = [&] {
        ctrl(XK_a);
        ctrl(XK_c);
        ctrl(XK_v);
    };
    round();
    const auto blocks = heap().blocks();
    for (int i = 0; i < 500; ++i) round();
    EXPECT_EQ(heap().blocks(), blocks);
    EXPECT_EQ(content(), "abcdef");
}

TEST_F(ClipboardKeys, ShortMemoryLeavesTheField) {
    ASSERT_EQ(put_text("12"), 1);
    heap().fail_from(1);
    ctrl(XK_v);
    heap().fail_never();
    EXPECT_EQ(content(), "abcdef");
    ctrl(XK_a);
    heap().fail_from(1);
    ctrl(XK_x);
    heap().fail_never();
    EXPECT_EQ(content(), "abcdef"); // what could not be copied stays
    EXPECT_EQ(on_clipboard(), "12");
    ctrl(XK_x);
    EXPECT_EQ(content(), "");
}

// -- menus with the same keys

class ClipboardKeysOfMenu : public KeysOn<MenuTest> {
  protected:
    void SetUp() override {
        KeysOn::SetUp();
        if (x11_disp) ASSERT_EQ(grx_affecte_touches_presse_papiers(1), 1);
    }
    INT make_window() override { return main_window(key_menu); }
    void expect_field_first() {
        ASSERT_EQ(put_text("X"), 1);
        keyboard().key(XK_End);
        events.clear();
        ctrl(XK_v);
        EXPECT_EQ(content(), "abcdefX");
        EXPECT_EQ(chosen(paste_entry), 0) << events.describe();
        ctrl(XK_a);
        ctrl(XK_c);
        EXPECT_EQ(on_clipboard(), "abcdefX");
        EXPECT_EQ(chosen(copy_entry), 0) << events.describe();
    }
};

TEST_F(ClipboardKeysOfMenu, TheFieldWithTheKeyboardHasThemFirst) {
    expect_field_first();
    const INT push = add(GRX_BOU_POUSSOIR, GRX_BOU_ATT_VRAI_POUSSOIR, "Push", 120);
    focus(push);
    EXPECT_EQ(chosen_by_key(paste_entry, XK_v, ControlMask), 1);
    EXPECT_EQ(chosen_by_key(copy_entry, XK_c, ControlMask), 1);
    EXPECT_EQ(content(), "abcdefX");
}

TEST_F(ClipboardKeysOfMenu, WithTheFrenchLayoutAndLocksToo) {
    new_layout("fr");
    keyboard().num_lock();
    keyboard().caps_lock();
    expect_field_first();
}

TEST_F(ClipboardKeysOfMenu, SwitchedOffTheyAreTheMenus) {
    ASSERT_EQ(grx_affecte_touches_presse_papiers(0), 1);
    EXPECT_EQ(chosen_by_key(paste_entry, XK_v, ControlMask), 1);
    EXPECT_EQ(content(), "abcdef");
}

TEST_F(ClipboardKeysOfMenu, InAnotherWindowTheFieldHasThemFirst) {
    window_ = make(GRX_FEN_BOUTONS, GRX_FEN_ATT_VISIBLE, 300, 200);
    ASSERT_TRUE(wait_visible(widget_of(window_)));
    field_ = add(GRX_BOU_TEXTE, 0, "abcdef");
    focus(field_);
    expect_field_first();
}

} // namespace
