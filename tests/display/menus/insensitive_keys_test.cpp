// Keys of entries that the application made insensitive: they do nothing, from every window and control.
#include "tests/display/menus/context_kit.h"
#include "tests/support/controls.h"

#include <string>
#include <vector>

namespace {

using namespace grxtest;

enum Place { in_main, in_second, in_field, in_panel, on_push, on_scale };
constexpr std::array places{in_main, in_second, in_field, in_panel, on_push, on_scale};

struct KeyboardState {
    const char* name;
    const char* layout;
    unsigned locks;
};

constexpr std::array<KeyboardState, 6> keyboard_states{
    {{"Us", "us", 0}, {"UsNumLock", "us", Mod2Mask}, {"UsCapsLock", "us", LockMask}, {"Fr", "fr", 0},
        {"FrNumLock", "fr", Mod2Mask}, {"FrBoth", "fr", Mod2Mask | LockMask}}};

// Main window with a field, a second window, windows of a field, a push button and a scale.
class InsensitiveKeys : public testing::WithParamInterface<KeyboardState>, public ContextMenuTest {
  protected:
    void SetUp() override {
        ContextMenuTest::SetUp();
        write_menu(menu_zone("POPUP||&Fichier|\n{\nITEM||a|Ctrl+A|11|\nITEM||f5|F5|12|\nITEM||x|Alt+X|13|\n"
                             "ITEM||q|Ctrl+Q|14|\nITEM||k|Alt+K|15|\nITEM||premier|Ctrl+D|16|\n"
                             "ITEM||second|Ctrl+D|17|\n}\n"));
        main_ = main_window();
        second_ = graphic_window(640, 60, 280, 220);
        panel_ = control(GRX_BOU_TEXTE, window(20, 420));
        push_ = control(GRX_BOU_SIMPLE, window(340, 420));
        scale_ = control(GRX_BOU_ECHELLE, window(660, 420));
        field_ = control(GRX_BOU_TEXTE, main_);
        keyboard().layout(GetParam().layout);
        keyboard().key(XK_Shift_L);
        XkbLockModifiers(test_display(), XkbUseCoreKbd, LockMask | Mod2Mask, GetParam().locks);
        XSync(test_display(), False);
        drain();
    }
    INT window(INT x, INT top) { return graphic_like(GRX_FEN_BOUTONS, x, top); }
    INT graphic_like(INT type, INT x, INT top) {
        GRX_FENETRE description = described(type, GRX_FEN_ATT_VISIBLE, 280, 180);
        description.x = x;
        description.y = grx_recup_hau_ecran() - top - description.haut;
        const INT made = make(description);
        EXPECT_TRUE(wait_visible(widget_of(made)));
        return made;
    }
    INT control(INT type, INT holder) {
        GRX_BOUTON button = button_at(type, holder, {20, 20, 200, 50});
        set_title(button, "un");
        EXPECT_EQ(grx_cree_bouton(&button), 0);
        EXPECT_TRUE(wait_visible(grx_recup_objet_bout(button.nobou)));
        return button.nobou;
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
    void go_to(Place place) {
        grx_desactive_bouton(field_, place == in_main ? 1 : 0);
        Widget w = widget_at(place);
        pointer().move_in(w, 10, place == in_main ? 150 : 10);
        drain();
        if (place != in_main && place != in_second) XmProcessTraversal(w, XmTRAVERSE_CURRENT);
        for (const INT field : {field_, panel_}) grx_change_texte(field, writable("un"));
        drain();
        events.clear();
    }
    std::string texts() {
        std::string all;
        for (const INT field : {field_, panel_}) {
            char text[GRX_EVT_CHAINE_MAX] = "";
            grx_recup_texte_bouton(field, text);
            all += std::string(text) + " ";
        }
        return all;
    }
    // What a key press causes: records of keys and menus, and other texts.
    std::string effect(KeySym symbol, unsigned modifiers) {
        keyboard().key(symbol, modifiers);
        drain();
        drain();
        std::string all;
        for (const auto& e : events.seen()) {
            if (e.type_evenement == GRX_EVT_BOUTON_APPUI) all += "menu " + std::to_string(e.bouton_appui.no_fo);
            if (e.type_evenement == GRX_EVT_CARAC_APPUI) all += "key " + std::to_string(e.carac_appui.carac);
        }
        events.clear();
        return texts() == "un un " ? all : all + " typed " + texts();
    }

    INT main_ = 0, second_ = 0, field_ = 0, panel_ = 0, push_ = 0, scale_ = 0;
};

TEST_P(InsensitiveKeys, DoNothingAnywhere) {
    struct Key {
        INT number;
        KeySym symbol;
        unsigned modifiers;
    };
    for (const auto& [number, symbol, modifiers] : std::vector<Key>{
             {11, XK_a, ControlMask}, {13, XK_x, Mod1Mask}, {14, XK_q, ControlMask}, {15, XK_k, Mod1Mask}}) {
        for (const Place place : places) {
            go_to(place);
            EXPECT_EQ(effect(symbol, modifiers), "menu " + std::to_string(number)) << place;
            grx_desactive_entree_menu(number, 1, 0);
            EXPECT_EQ(effect(symbol, modifiers), "") << number << " at " << place;
            grx_desactive_entree_menu(number, 0, 0);
            EXPECT_EQ(effect(symbol, modifiers), "menu " + std::to_string(number)) << place;
        }
    }
}

TEST_P(InsensitiveKeys, FunctionKeysAreTheApplicationsElsewhere) {
    for (const Place place : places) {
        go_to(place);
        const std::string before = effect(XK_F5, 0);
        grx_desactive_entree_menu(12, 1, 0);
        EXPECT_EQ(effect(XK_F5, 0), before == "menu 12" ? "" : before) << place;
        EXPECT_EQ(before, place == in_main || place == in_field ? "menu 12" : "key 65474") << place;
        grx_desactive_entree_menu(12, 0, 0);
    }
}

TEST_P(InsensitiveKeys, AnotherEntryOfTheSameKeyAnswers) {
    for (const Place place : places) {
        go_to(place);
        EXPECT_EQ(effect(XK_d, ControlMask), "menu 16") << place;
        grx_desactive_entree_menu(16, 1, 0);
        EXPECT_EQ(effect(XK_d, ControlMask), "menu 17") << place;
        grx_desactive_entree_menu(17, 1, 0);
        EXPECT_EQ(effect(XK_d, ControlMask), "") << place;
        grx_initialise_entrees_menu();
    }
}

INSTANTIATE_TEST_SUITE_P(All, InsensitiveKeys, testing::ValuesIn(keyboard_states),
    [](const auto& info) { return std::string(info.param.name); });

} // namespace
