// Every kind of key, under every lock and layout, pressed in every kind of place: one effect, in one place.
#include "tests/support/window_kit.h"
#include "tests/support/controls.h"

#include <X11/XKBlib.h>
#include <X11/extensions/XTest.h>
#include <Xm/XmAll.h>

#include <clocale>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

namespace {

using namespace grxtest;

const std::string menu_file = "#:ZONE_MENU_BAR\n{\nPOPUP||&Fichier|\n{\nITEM||a|Ctrl+A|11|\nITEM||f5|F5|12|\n"
                              "ITEM||x|Alt+X|13|\nITEM||&quitter||14|\n}\nPOPUP||&Mesure|\n{\nITEM||&aire||15|\n"
                              "ITEM||qua&drant||16|\n}\n}\n";

constexpr unsigned alt = Mod1Mask;
constexpr unsigned group_bits = 3U << 13;

enum Place { in_main, in_second, in_field, in_panel, on_push, on_scale };
constexpr std::array<const char*, 6> place_names{"main", "second", "field", "panel", "push", "scale"};
bool is_field(Place place) {
    return place == in_field || place == in_panel;
}

// A state of the keyboard, and what the keys of q and 2 on a US keyboard then give, alone and with Shift.
struct Keyboards {
    const char* name;
    const char* layout; // what setxkbmap takes
    unsigned locks;
    unsigned group;
    bool fifth_symbols; // its letters have symbols beyond the fourth place of the core mapping
    std::array<INT, 4> letter_and_digit;
};

constexpr std::array<Keyboards, 8> keyboards{{
    {"UsPlain", "us", 0, 0, false, {'q', 'Q', '2', '@'}},
    {"UsNumLock", "us", Mod2Mask, 0, false, {'q', 'Q', '2', '@'}},
    {"UsCapsLock", "us", LockMask, 0, false, {'Q', 'q', '2', '@'}},
    {"UsSecondGroup", "us,fr", 0, 1, true, {'a', 'A', 0xE9, '2'}},
    {"FrPlain", "fr", 0, 0, true, {'a', 'A', 0xE9, '2'}},
    {"FrNumLock", "fr", Mod2Mask, 0, true, {'a', 'A', 0xE9, '2'}},
    {"FrCapsLock", "fr", LockMask, 0, true, {'A', 'a', 0xC9, '2'}},
    {"FrSecondGroup", "fr,us", 0, 1, true, {'q', 'Q', '2', '@'}},
}};

// What the other keys do; symbols are those of the layout in force.
struct Row {
    KeySym symbol;
    unsigned held;
    std::array<const char*, 6> effect; // main, second, field, panel, push, scale
};

constexpr std::array<Row, 5> rows{{
    {XK_Tab, ShiftMask,
        {"key main 65396", "key second 65396", "backtab field, field 'un deux' 7", // it is the only one: selected again
            "backtab panel, panel 'un deux' 7", "key push 65396", "key scale 65396"}},
    {XK_a, ControlMask, {"menu 11", "menu 11", "menu 11", "menu 11", "menu 11", "menu 11"}},
    {XK_x, alt, {"menu 13", "menu 13", "menu 13", "menu 13", "menu 13", "menu 13"}},
    {XK_Right, ControlMask, {"", "", "field 'un deux' 3", "panel 'un deux' 3", "", "done scale 60"}},
    {XK_F5, 0, {"menu 12", "key second 65474", "menu 12", "key panel 65474", "key push 65474", "key scale 65474"}},
}};

// A letter with Alt that no entry has; fields do not mind Alt.
constexpr Row alt_letter{XK_k, alt, {"", "", "field 'kun deux' 1", "panel 'kun deux' 1", "", ""}};
constexpr Row alt_capital{XK_k, alt, {"", "", "field 'Kun deux' 1", "panel 'Kun deux' 1", "", ""}};

// A letter with Control that no entry has. Its code is a control character where the layout has a fifth symbol.
constexpr Row other_letter{XK_q, ControlMask, {"", "", "field '\021un deux' 1", "panel '\021un deux' 1", "", ""}};
constexpr std::array<const char*, 6> other_letter_fifth{"key main 17", "key second 17",
    "key field 17, field '\021un deux' 1", "key panel 17, panel '\021un deux' 1", "key push 17", "key scale 17"};

// Main window, second window, window of a panel, of a push button and of a scale, side by side.
class KeyboardMatrix : public testing::WithParamInterface<Keyboards>, public DisplayTest {
  protected:
    void before_start() override { write_menu(menu_file); }

    void SetUp() override {
        DisplayTest::SetUp();
        if (HasFatalFailure()) return;
        build();
    }

    void build() {
        main_ = window(GRX_FEN_ALPHA, 20, 60, GRX_FEN_ATT_VISIBLE | GRX_FEN_ATT_PRINCIPALE);
        grx_affecte_nofen_principale(main_);
        second_ = window(GRX_FEN_GRAPHIQUE, 340, 60);
        const INT panel = window(GRX_FEN_MENU, 660, 60);
        const INT pushes = window(GRX_FEN_BOUTONS, 20, 400);
        const INT scales = window(GRX_FEN_BOUTONS, 340, 400);
        field_ = control(GRX_BOU_TEXTE, main_, {20, 60, 200, 40});
        panel_ = control(GRX_BOU_TEXTE, panel, {20, 60, 200, 40});
        push_ = control(GRX_BOU_SIMPLE, pushes, {20, 20, 100, 40});
        scale_ = control(GRX_BOU_ECHELLE, scales, {20, 20, 220, 60});
        drain();
    }

    INT window(INT type, INT x, INT top, INT attrib = GRX_FEN_ATT_VISIBLE) {
        GRX_FENETRE description = described(type, attrib, 280, 220);
        description.x = x;
        description.y = grx_recup_hau_ecran() - top - description.haut;
        const INT n = make(description);
        EXPECT_GT(n, 0);
        EXPECT_TRUE(wait_visible(widget_of(n)));
        return n;
    }

    INT control(INT type, INT holder, const Area& area) {
        GRX_BOUTON button = button_at(type, holder, area);
        if (type == GRX_BOU_ECHELLE) button.attrib |= GRX_BOU_ATT_ECHELLE_HORIZ;
        set_title(button, "un deux");
        if (type == GRX_BOU_ECHELLE) {
            button.tabi[1] = 0;
            button.tabi[2] = 100;
            button.tabi[3] = 50;
        }
        EXPECT_EQ(grx_cree_bouton(&button), 0);
        EXPECT_TRUE(wait_visible(grx_recup_objet_bout(button.nobou)));
        return button.nobou;
    }

    void keyboard_as(const Keyboards& k) {
        keyboard().layout(k.layout);
        press(XKeysymToKeycode(test_display(), XK_Shift_L), 0); // the server reads the layout with its first key
        XkbLockModifiers(test_display(), XkbUseCoreKbd, LockMask | Mod2Mask, k.locks);
        XkbLockGroup(test_display(), XkbUseCoreKbd, k.group);
        XSync(test_display(), False);
        drain();
    }

    Widget widget_at(Place place) {
        switch (place) {
        case in_main: return widget_of(main_);
        case in_second: return widget_of(second_);
        case in_field: return grx_recup_objet_bout(field_);
        case in_panel: return grx_recup_objet_bout(panel_);
        case on_push: return grx_recup_objet_bout(push_);
        default: return grx_recup_objet_bout(scale_);
        }
    }

    // Brings the keyboard to a place; the field of the main window has its focus unless the window itself is meant.
    virtual void go_to(Place place) {
        grx_desactive_bouton(field_, place == in_main ? 1 : 0);
        Widget w = widget_at(place);
        pointer().move_in(w, 10, place == in_main ? 180 : 10);
        drain();
        if (place != in_main) grx_force_focus_sur_bouton(field_);
        if (place != in_main && place != in_second) XmProcessTraversal(w, XmTRAVERSE_CURRENT);
        drain();
    }

    void reset() {
        for (INT n : {field_, panel_}) {
            grx_change_texte(n, const_cast<char*>("un deux"));
            XmTextSetInsertionPosition(grx_recup_objet_bout(n), 0);
        }
        grx_change_valeur_echelle(scale_, 50);
        drain();
        events.clear();
    }

    // -- pressing

    void send(KeyCode code, bool down) {
        XTestFakeKeyEvent(test_display(), code, down, CurrentTime);
        XSync(test_display(), False);
    }

    void hold(unsigned modifiers, bool down) {
        const std::array<std::pair<unsigned, KeySym>, 3> keys{
            {{ShiftMask, XK_Shift_L}, {ControlMask, XK_Control_L}, {Mod1Mask, XK_Alt_L}}};
        for (const auto& [mask, symbol] : keys)
            if (modifiers & mask) send(XKeysymToKeycode(test_display(), symbol), down);
    }

    void press(KeyCode code, unsigned held) {
        hold(held, true);
        send(code, true);
        send(code, false);
        hold(held, false);
        drain();
        drain(); // what was sent on has come back
    }

    // The key that carries a symbol in a layout group.
    KeyCode key_with(KeySym symbol, unsigned group) {
        for (unsigned code = 8; code < 256; ++code) {
            unsigned used = 0;
            KeySym found = NoSymbol;
            if (XkbLookupKeySym(test_display(), static_cast<KeyCode>(code), group << 13, &used, &found)
                && found == symbol)
                return static_cast<KeyCode>(code);
        }
        ADD_FAILURE() << "no key for " << symbol;
        return 0;
    }

    // -- what came of it

    std::string place_of(INT nofen, INT nobou) {
        for (int p = in_main; p <= on_scale; ++p) {
            const auto place = static_cast<Place>(p);
            const bool window = place == in_main || place == in_second;
            if (window ? nobou == -1 && widget_of(nofen) == widget_at(place)
                       : nobou >= 0 && grx_recup_objet_bout(nobou) == widget_at(place))
                return place_names[static_cast<std::size_t>(p)];
        }
        return "window " + std::to_string(nofen) + " control " + std::to_string(nobou);
    }

    std::string told(const GRX_EVENEMENT& e) {
        const GRX_DIGIT& d = e.carac_appui;
        const GRX_EXEC_FONCTION& f = e.exec_fonction;
        switch (e.type_evenement) {
        case GRX_EVT_BOUTON_APPUI: return "menu " + std::to_string(d.no_fo);
        case GRX_EVT_CARAC_APPUI: return "key " + place_of(d.nofen, d.nobou) + " " + std::to_string(d.carac);
        case GRX_EVT_EXEC_FONCTION: return "done " + place_of(f.nofen, f.nobou) + " " + std::to_string(f.valeur);
        case GRX_EVT_ECHELLE: return "moved " + place_of(f.nofen, f.nobou) + " " + std::to_string(f.valeur);
        case GRX_EVT_TAB: return "tab " + place_of(f.nofen, f.nobou);
        case GRX_EVT_BACKTAB: return "backtab " + place_of(f.nofen, f.nobou);
        default: return "";
        }
    }

    std::string change_of(Place place) {
        Widget w = widget_at(place);
        char* const own = XmTextGetString(w);
        const std::string text = own;
        XtFree(own);
        const long cursor = XmTextGetInsertionPosition(w);
        if (text == "un deux" && cursor == 0) return "";
        return std::string(place_names[place]) + " '" + text + "' " + std::to_string(cursor);
    }

    std::string effect() {
        std::vector<std::string> parts;
        for (const GRX_EVENEMENT& e : events.seen()) parts.push_back(told(e));
        parts.push_back(change_of(in_field));
        parts.push_back(change_of(in_panel));
        std::string result;
        for (const auto& part : parts) result += (result.empty() || part.empty() ? "" : ", ") + part;
        return result;
    }

    // -- the tables

    static std::string typed(Place place, INT code) {
        const std::string name = place_names[place];
        std::string result = "key " + name + " " + std::to_string(code);
        if (is_field(place)) result += ", " + name + " '" + static_cast<char>(code) + "un deux' 1";
        return result;
    }

    void expect(KeyCode code, unsigned held, const std::string& wanted, const std::string& what) {
        reset();
        press(code, held);
        EXPECT_EQ(effect(), wanted) << what << ": " << events.describe();
    }

    void expect_row(const Row& row, unsigned group, const std::string& wanted, const std::string& where) {
        expect(key_with(row.symbol, group), row.held, wanted,
            where + ", " + XKeysymToString(row.symbol) + " with " + std::to_string(row.held));
    }

    void all_keys(const Keyboards& k, Place place) {
        const std::string where = std::string(k.name) + ", " + place_names[place];
        const KeyCode letter = 24, digit = 11; // q and 2 of a US keyboard
        go_to(place);
        const auto& codes = k.letter_and_digit;
        expect(letter, 0, typed(place, codes[0]), where + ", letter");
        expect(letter, ShiftMask, typed(place, codes[1]), where + ", Shift+letter");
        expect(digit, 0, typed(place, codes[2]), where + ", digit");
        expect(digit, ShiftMask, typed(place, codes[3]), where + ", Shift+digit");
        expect_row(other_letter, k.group, (k.fifth_symbols ? other_letter_fifth : other_letter.effect)[place], where);
        const Row& with_alt = (k.locks & LockMask) != 0 ? alt_capital : alt_letter;
        expect_row(with_alt, k.group, with_alt.effect[place], where);
        for (const Row& row : rows) {
            go_to(place); // Tab goes away
            expect_row(row, k.group, row.effect[place], where);
        }
    }

    INT main_ = 0, second_ = 0, field_ = 0, panel_ = 0, push_ = 0, scale_ = 0;
};

TEST_P(KeyboardMatrix, EachKeyHasOneEffectInOnePlace) {
    keyboard_as(GetParam());
    for (const Place place : {in_main, in_second, in_field, in_panel, on_push, on_scale}) all_keys(GetParam(), place);
}

INSTANTIATE_TEST_SUITE_P(
    All, KeyboardMatrix, testing::ValuesIn(keyboards), [](const auto& info) { return std::string(info.param.name); });

// Letters with Alt open the menus of the bar, alone they choose in an open one: those of the layout in force.
class MnemonicMatrix : public KeyboardMatrix {
  protected:
    bool open() {
        const auto windows = children_of(test_display(), DefaultRootWindow(test_display()));
        return std::ranges::any_of(windows, [&](Window w) {
            Widget const shell = XtWindowToWidget(x11_disp, w);
            return shell != nullptr && XtIsSubclass(shell, xmMenuShellWidgetClass) && visible(w);
        });
    }

    // Opens a menu with Alt and its letter, chooses with a letter alone: that choice is all that happens.
    void choose(Place place, const Keyboards& k, KeySym menu, KeySym letter, const char* wanted) {
        const std::string where = std::string(k.name) + ", " + place_names[place];
        reset();
        press(key_with(menu, k.group), alt);
        ASSERT_TRUE(wait_for([&] { return open(); })) << where;
        EXPECT_EQ(effect(), "") << where;
        press(key_with(letter, k.group), 0);
        ASSERT_TRUE(wait_for([&] { return !open(); })) << where;
        EXPECT_EQ(effect(), wanted) << where;
    }

    void all_menus(const Keyboards& k, Place place) {
        go_to(place);
        choose(place, k, XK_f, XK_q, "menu 14");
        choose(place, k, XK_m, XK_a, "menu 15");
        choose(place, k, XK_m, XK_d, "menu 16");
        reset();
        press(key_with(XK_q, k.group), alt); // no menu of the bar has it, nor where the other layout has m
        EXPECT_FALSE(open()) << k.name << place_names[place];
    }
};

TEST_P(MnemonicMatrix, EachLetterChoosesOnce) {
    keyboard_as(GetParam());
    for (const Place place : {in_main, in_second, in_field, in_panel, on_push, on_scale}) all_menus(GetParam(), place);
}

INSTANTIATE_TEST_SUITE_P(
    All, MnemonicMatrix, testing::ValuesIn(keyboards), [](const auto& info) { return std::string(info.param.name); });

// --- single cases -------------------------------------------------------------------------------------------------

class SingleKeys : public KeyboardMatrix {
  protected:
    // Makes Num_Lock another modifier, alone.
    void give_num_lock(int index) {
        const KeyCode key = XKeysymToKeycode(test_display(), XK_Num_Lock);
        XModifierKeymap* map = XGetModifierMapping(test_display());
        map = XDeleteModifiermapEntry(map, key, Mod2MapIndex);
        map = XInsertModifiermapEntry(map, key, index);
        EXPECT_EQ(XSetModifierMapping(test_display(), map), MappingSuccess);
        XFreeModifiermap(map);
        XSync(test_display(), False);
        drain();
    }
};

constexpr Keyboards plain_us = keyboards[0];

INSTANTIATE_TEST_SUITE_P(
    Us, SingleKeys, testing::Values(plain_us), [](const auto&) { return std::string("Keyboard"); });

// A user types ahead while the application is busy: none of what is sent on is typed when it comes back.
TEST_P(SingleKeys, TypedAheadAreTypedOnce) {
    go_to(in_field);
    reset();
    const KeyCode q = 24, shift = XKeysymToKeycode(test_display(), XK_Shift_L);
    for (int i = 0; i < 300; ++i) {
        send(shift, true);
        send(q, true);
        send(q, false);
        send(shift, false);
    }
    drain();
    drain();
    EXPECT_EQ(change_of(in_field), "field '" + std::string(300, 'Q') + "un deux' 300");
    EXPECT_EQ(events.count(GRX_EVT_CARAC_APPUI), 300);
    go_to(in_panel);
    reset();
    for (int i = 0; i < 300; ++i) {
        send(shift, true);
        send(q, true);
        send(q, false);
        send(shift, false);
    }
    drain();
    drain();
    EXPECT_EQ(change_of(in_panel), "panel '" + std::string(300, 'Q') + "un deux' 300");
    EXPECT_EQ(change_of(in_field), "");
}

// Ctrl+space is no key of the main window's button that has the focus there.
TEST_P(SingleKeys, ControlSpaceRunsNoButtonOfTheMainWindow) {
    const INT other = control(GRX_BOU_SIMPLE, main_, {20, 120, 100, 40});
    pointer().move_in(grx_recup_objet_bout(other), 10, 10);
    drain();
    grx_force_focus_sur_bouton(other);
    for (const Place place : {on_push, on_scale, in_second}) {
        pointer().move_in(widget_at(place), 10, 10);
        drain();
        reset();
        press(key_with(XK_space, 0), ControlMask);
        const std::string name = place_names[static_cast<std::size_t>(place)];
        EXPECT_EQ(effect(), place == on_push ? "done push 0" : "") << name << ": " << events.describe();
    }
}

// The modifier of Num_Lock is the one that the keyboard says.
TEST_P(SingleKeys, NumLockMayBeAnotherModifier) {
    give_num_lock(Mod3MapIndex);
    XkbLockModifiers(test_display(), XkbUseCoreKbd, Mod2Mask | Mod3Mask, Mod3Mask);
    XSync(test_display(), False);
    for (const Place place : {in_main, in_second, in_field, on_push}) {
        go_to(place);
        expect(24, ShiftMask, typed(place, 'Q'), place_names[static_cast<std::size_t>(place)]);
        expect_row(rows[1], 0, "menu 11", place_names[static_cast<std::size_t>(place)]);
        expect_row(rows[2], 0, "menu 13", place_names[static_cast<std::size_t>(place)]);
    }
}

// A letter that no key of the group in force has stays where the first group has it.
TEST_P(SingleKeys, LettersMissingInAGroupStayWhereTheFirstHasThem) {
    keyboard().layout("us,gr");
    press(XKeysymToKeycode(test_display(), XK_Shift_L), 0);
    XkbLockGroup(test_display(), XkbUseCoreKbd, 1);
    XSync(test_display(), False);
    drain();
    for (const Place place : {in_main, in_second, in_field, in_panel, on_push, on_scale}) {
        go_to(place);
        expect_row(rows[1], 0, "menu 11", place_names[static_cast<std::size_t>(place)]);
        expect_row(rows[2], 0, "menu 13", place_names[static_cast<std::size_t>(place)]);
    }
}

// A layout that came while the bar was there: menus open and choose by its letters.
class NewLayout : public MnemonicMatrix {};
INSTANTIATE_TEST_SUITE_P(Us, NewLayout, testing::Values(plain_us), [](const auto&) { return std::string("Keyboard"); });

TEST_P(NewLayout, MnemonicsFollow) {
    for (const auto& k : {keyboards[4], keyboards[0]}) { // fr, and back to us
        keyboard_as(k);
        for (const Place place : {in_main, in_second}) all_menus(k, place);
    }
}

// Accented letters in a locale whose characters are more than one byte.
class Utf8Keys : public KeyboardMatrix {
  protected:
    void before_start() override {
        ASSERT_NE(std::setlocale(LC_ALL, "C.UTF-8"), nullptr);
        KeyboardMatrix::before_start();
    }
};
INSTANTIATE_TEST_SUITE_P(Fr, Utf8Keys, testing::Values(keyboards[4], keyboards[6]),
    [](const auto& info) { return std::string(info.param.name); });

TEST_P(Utf8Keys, AccentedLettersArrive) {
    keyboard_as(GetParam());
    const INT accented = GetParam().letter_and_digit[2];
    for (const Place place : {in_main, in_second, on_push, on_scale}) {
        go_to(place);
        expect(11, 0, typed(place, accented), place_names[static_cast<std::size_t>(place)]);
    }
    for (const Place place : {in_field, in_panel}) {
        go_to(place);
        reset();
        press(11, 0);
        EXPECT_EQ(events.count(GRX_EVT_CARAC_APPUI), 1);
        char text[64] = "";
        grx_recup_texte_bouton(place == in_field ? field_ : panel_, text);
        EXPECT_EQ(std::string(text), (accented == 0xE9 ? "\u00e9" : "\u00c9") + std::string("un deux"));
    }
}

// What applications ask themselves: the same for accented letters, and the state is written into the event.
TEST_P(Utf8Keys, AccentedLettersTranslate) {
    keyboard_as(GetParam());
    XEvent event{};
    event.xkey.type = KeyPress;
    event.xkey.display = x11_disp;
    event.xkey.keycode = 11;
    event.xkey.state = GetParam().locks;
    INT code = 0;
    EXPECT_EQ(grx_translate_touche(&event, &code), 1);
    EXPECT_EQ(code, GetParam().letter_and_digit[2]);
}

// --- under a window manager -----------------------------------------------------------------------------------------

class KeysWmTest : public KeyboardMatrix {
  protected:
    void before_start() override {
        KeyboardMatrix::before_start();
        manager_.emplace(server());
    }
    // mwm gives the keys to the window that was clicked.
    void go_to(Place place) override {
        KeyboardMatrix::go_to(place);
        Widget shell = grx_recherche_shell(widget_at(place));
        pointer().click_in(shell, 270, 210);
        ASSERT_TRUE(wait_for([&] {
            Window owner = None;
            int revert = 0;
            XGetInputFocus(test_display(), &owner, &revert);
            return owner == XtWindow(shell);
        }));
        KeyboardMatrix::go_to(place);
        drain();
    }

  private:
    std::optional<WindowManager> manager_;
};

INSTANTIATE_TEST_SUITE_P(All, KeysWmTest, testing::Values(keyboards[1], keyboards[3], keyboards[4]),
    [](const auto& info) { return std::string(info.param.name); });

TEST_P(KeysWmTest, EachKeyHasOneEffectInOnePlace) {
    keyboard_as(GetParam());
    for (const Place place : {in_main, in_second, in_field, in_panel, on_push, on_scale}) all_keys(GetParam(), place);
}

} // namespace
