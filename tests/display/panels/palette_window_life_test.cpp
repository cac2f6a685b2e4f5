// The events that the palette window takes or leaves alone, and each way in which it ends.
#include "tests/display/panels/palette_kit.h"
#include "tests/support/stdout_capture.h"

#include <climits>

namespace {

using namespace grxtest;

// --- events given one by one --------------------------------------------------------------------------------------

TEST_F(PaletteWindow, BothEventsOfEverySliderAreTaken) {
    open();
    for (INT type : {64, 6})
        for (INT n : {Rouge, Vert, Bleu, Bou_h, Bou_l, Bou_s})
            for (INT value : {100, 0, 42}) {
                const bool coloured = n == Rouge || n == Vert || n == Bleu;
                const auto own = coloured ? rvb_sliders() : hls_sliders();
                const Triple before = slider_values(own);
                EXPECT_EQ(given(slider_event(type, n, value)), 1) << type << " " << n << " " << value;
                EXPECT_EQ(slider_values(own), before) << "the user moves them";
                EXPECT_EQ(rgb_of(colour), read_back(values(rvb_glob)));
                if (coloured) {
                    EXPECT_EQ(values(hls_glob), in_hls(values(rvb_glob)));
                    EXPECT_EQ(slider_values(hls_sliders()), values(hls_glob));
                } else {
                    EXPECT_EQ(slider_values(rvb_sliders()), values(rvb_glob));
                }
            }
}

// The state that events are to leave alone.
std::vector<INT> state() {
    std::vector<INT> all;
    for (const INT* three : {rvb_glob, hls_glob, memo_rvb}) all.insert(all.end(), three, three + 3);
    for (INT n : {Rouge, Vert, Bleu, Bou_h, Bou_l, Bou_s}) all.push_back(slider_value(n));
    const Triple now = rgb_of(colour);
    all.insert(all.end(), now.begin(), now.end());
    return all;
}

TEST_F(PaletteWindow, WhatIsNotItsOwnIsLeftAlone) {
    open();
    given(slider_event(64, Rouge, 33));
    const auto before = state();
    for (INT n : {Rouge, Vert, Bleu, Bou_h, Bou_l, Bou_s})
        for (INT type : {64, 6}) {
            for (INT value : {-1, -2, INT_MIN}) EXPECT_EQ(given(slider_event(type, n, value)), 0) << n << " " << value;
            for (INT window : {main_window, -1, 0, No_fen_mod_coul + 1, INT_MAX})
                EXPECT_EQ(given(slider_event(type, n, 77, window)), 0) << n << " of window " << window;
        }
    for (INT n : {-1, 999, 1000, INT_MIN, INT_MAX, Bou_s + 1})
        for (INT type : {64, 6}) EXPECT_EQ(given(slider_event(type, n, 77)), 0) << n;
    EXPECT_EQ(given(slider_event(64, Bou_reset, 0)), 0) << "the reset button acts when it is released";
    for (INT type : {0, 1, 2, 3, 4, 5, 8, 10, 11, 12, 13, 14, 15, 16, 32, 48, 80, 96, -1, INT_MAX})
        for (INT n : all_controls()) EXPECT_EQ(given(slider_event(type, n, 77)), 0) << "type " << type;
    for (INT window : {main_window, -1, 0, No_fen_mod_coul + 1}) EXPECT_EQ(given(end_of(window)), 0) << window;
    EXPECT_EQ(state(), before);
    EXPECT_EQ(grx_is_fenetre_modif_palette_ouverte(), 1);
}

TEST_F(PaletteWindow, ResettingIsForTheActivationOnly) {
    open();
    given(slider_event(6, Rouge, 33));
    EXPECT_EQ(given(slider_event(64, Bou_reset, 5)), 0);
    EXPECT_EQ(rvb_glob[0], 33);
    EXPECT_EQ(given(slider_event(6, Bou_reset, 5)), 1);
    EXPECT_EQ(values(rvb_glob), read_back(start_rvb));
}

TEST_F(PaletteWindow, ValuesBeyondAnEndAreSurvived) {
    open();
    for (INT n : {Rouge, Vert, Bleu, Bou_h, Bou_l, Bou_s}) given(slider_event(6, n, INT_MAX));
    EXPECT_EQ(given(slider_event(6, Bou_reset, 0)), 1);
    expect_sliders_agree();
}

TEST_F(PaletteWindow, ARefusedColourLeavesTheValuesAndMovesTheSliders) {
    open();
    given(slider_event(6, Bou_h, 120));
    const Triple rvb = values(rvb_glob);
    grx_affecte_palette_rvb(1, 2, 3);
    Triple other{9, 9, 9};
    grx_modif_rgb(colour, other.data());
    EXPECT_EQ(given(slider_event(6, Bou_s, 0)), 1);
    EXPECT_EQ(hls_glob[0], 120);
    EXPECT_EQ(hls_glob[2], 0);
    EXPECT_EQ(values(rvb_glob), rvb);
    EXPECT_EQ(slider_values(rvb_sliders()), rvb);
    EXPECT_EQ(rgb_of(colour), read_back(rvb)) << "written all the same";
}

TEST_F(PaletteWindow, NothingIsTakenWhileItIsClosed) {
    open();
    const auto controls = all_controls();
    const INT number = No_fen_mod_coul;
    grx_detruit_fenetre_modif_palette_couleurs();
    const Triple before = rgb_of(colour);
    for (INT type : {64, 6, 7, 4})
        for (INT window : {number, -1})
            for (INT n : controls) EXPECT_EQ(given(slider_event(type, n, 11, window)), 0);
    EXPECT_EQ(given(slider_event(6, -1, 11, -1)), 0) << "a number that is not there is no number";
    EXPECT_EQ(rgb_of(colour), before);
    grx_affecte_palette_rvb(1, 2, 3);
    grx_affecte_palette_hls(1, 2, 3);
    Triple rvb{1, 2, 3};
    EXPECT_EQ(grx_affecte_palette(rvb.data()), 1);
}

// --- closing ------------------------------------------------------------------------------------------------------

std::vector<std::string> destroyed;
void note_end(Widget, XtPointer name, XtPointer) {
    destroyed.emplace_back(static_cast<const char*>(name));
}

TEST_F(PaletteWindow, IsDestroyedControlByControl) {
    open();
    const auto controls = all_controls();
    constexpr std::array names{"red", "green", "blue", "reset", "hue", "luminance", "saturation"};
    for (std::size_t k = 0; k < controls.size(); ++k)
        XtAddCallback(control(controls[k]), XmNdestroyCallback, note_end, const_cast<char*>(names[k]));
    XtAddCallback(shell_of(No_fen_mod_coul), XmNdestroyCallback, note_end, const_cast<char*>("window"));
    const INT number = No_fen_mod_coul;
    EXPECT_EQ(grx_detruit_fenetre_modif_palette_couleurs(), 1);
    expect_closed();
    EXPECT_EQ(destroyed,
        (std::vector<std::string>{"red", "green", "blue", "reset", "hue", "luminance", "saturation", "window"}));
    for (INT n : controls) expect_free(n);
    EXPECT_EQ(grx_recup_objet_fen(number), nullptr);
    EXPECT_EQ(grx_detruit_fenetre_modif_palette_couleurs(), 0);
    follow();
    expect_closed();
    EXPECT_TRUE(consumed.empty());
}

TEST_F(PaletteWindow, OpenedAtOnceAfterClosingItIsNotTakenForTheOldOne) {
    open();
    grx_detruit_fenetre_modif_palette_couleurs();
    open();
    follow();
    EXPECT_EQ(grx_is_fenetre_modif_palette_ouverte(), 1);
    for (INT n : all_controls()) EXPECT_NE(n, -1);
}

TEST_F(PaletteWindow, ClosedByTheUserItGivesItsNumbersBack) {
    open();
    const auto controls = all_controls();
    ask_to_close(test_display(), XtWindow(shell_of(No_fen_mod_coul)));
    ASSERT_TRUE(events.wait(GRX_EVT_DESTRUCTION)) << events.describe();
    follow();
    ASSERT_EQ(consumed.size(), 1U);
    EXPECT_EQ(consumed[0].type_evenement, 7);
    expect_closed();
    for (INT n : controls) expect_free(n);
    open();
    EXPECT_EQ(all_controls(), controls);
}

TEST_F(PaletteWindow, DestroyedBehindItsBackItNoticesByTheEvent) {
    open();
    const INT number = No_fen_mod_coul;
    const auto controls = all_controls();
    grx_detruit_fenetre(number);
    EXPECT_EQ(given(end_of(number)), 1);
    expect_closed();
    for (INT n : controls) expect_free(n);
    EXPECT_EQ(given(end_of(number)), 0);
}

TEST_F(PaletteWindow, DestroyedBehindItsBackEveryCallIsSurvived) {
    open();
    grx_detruit_fenetre(No_fen_mod_coul);
    Triple rvb{1, 2, 3};
    grx_affecte_palette(rvb.data());
    grx_affecte_palette_hls(1, 2, 3);
    grx_cache_retrace_fenetre_modif_palette_couleurs(1);
    grx_cache_retrace_fenetre_modif_palette_couleurs(0);
    grx_retrace_fenetre_modif_palette_couleurs();
    given(slider_event(6, Rouge, 5));
    given(slider_event(6, Bou_reset, 5));
    grx_detruit_fenetre_modif_palette_couleurs();
    expect_closed();
    open();
    expect_sliders_agree();
}

TEST_F(PaletteWindow, AWindowThatTookItsNumberIsNotTakenForIt) {
    open();
    const INT number = No_fen_mod_coul;
    grx_detruit_fenetre(number);
    ASSERT_EQ(make(GRX_FEN_ALPHA), number);
    ASSERT_TRUE(wait_visible(widget_of(number)));
    drain();
    grx_cache_retrace_fenetre_modif_palette_couleurs(1);
    drain();
    EXPECT_TRUE(visible(x_window(number)));
    EXPECT_EQ(grx_detruit_fenetre_modif_palette_couleurs(), 1);
    expect_closed();
    drain();
    ASSERT_NE(widget_of(number), nullptr);
    EXPECT_TRUE(visible(x_window(number)));
}

TEST_F(PaletteWindow, DyingWithItsParentItIsClosedAndOpenedAgain) {
    open();
    grx_detruit_fenetre(main_window);
    follow();
    grx_affecte_palette_rvb(1, 2, 3);
    grx_detruit_fenetre_modif_palette_couleurs();
    expect_closed();
    open();
    expect_sliders_agree();
}

TEST_F(PaletteWindow, WithoutRoomForItsControlsItWorksWithWhatItGot) {
    std::vector<INT> taken;
    for (INT n = grx_recup_indice_objet_bout_libre(); n >= 0 && n < 998; n = grx_recup_indice_objet_bout_libre()) {
        grx_affecte_objet_bout(n, widget_of(main_window));
        grx_affecte_structure_bouton(n, 1, 1, main_window);
    }
    char title[256] = "Palette";
    grx_affecte_couleur_active(colour);
    {
        const StdoutCapture silence;
        grx_affiche_fenetre_modif_palette_couleurs(10, 10, title, main_window);
    }
    EXPECT_EQ(Bou_s, -1);
    EXPECT_EQ(Bou_reset, -1);
    Triple rvb{1, 2, 3};
    EXPECT_EQ(grx_affecte_palette(rvb.data()), 1);
    for (INT type : {64, 6}) EXPECT_EQ(given(slider_event(type, -1, 7)), 0) << "no control has the number -1";
    EXPECT_EQ(rgb_of(colour), read_back(start_rvb));
    grx_detruit_fenetre_modif_palette_couleurs();
    expect_closed();
}

TEST_F(PaletteWindow, WithoutAWindowNumberItStaysClosed) {
    while (make(GRX_FEN_ALPHA, 0) > 0) {
    }
    char title[256] = "Palette";
    const StdoutCapture silence;
    grx_affiche_fenetre_modif_palette_couleurs(10, 10, title, main_window);
    expect_closed();
    EXPECT_EQ(grx_detruit_fenetre_modif_palette_couleurs(), 0);
}

TEST_F(PaletteWindow, TwoHundredLivesLeaveNothingBehind) {
    const auto live = [&](int turn) {
        open();
        given(slider_event(64, turn % 2 ? Rouge : Bou_h, turn % 100));
        if (turn % 2) {
            const INT number = No_fen_mod_coul;
            grx_detruit_fenetre(number);
            given(end_of(number));
        } else {
            grx_detruit_fenetre_modif_palette_couleurs();
        }
        forget();
    };
    for (int turn = 0; turn < 4; ++turn) live(turn);
    const auto resources = server_resources(test_display(), x_window(main_window));
    const std::size_t blocks = heap().blocks(), bytes = heap().bytes();
    const INT first_free = Rouge == -1 ? grx_recup_indice_objet_bout_libre() : -2;
    for (int turn = 0; turn < 200; ++turn) live(turn);
    EXPECT_EQ(heap().blocks(), blocks);
    EXPECT_EQ(heap().bytes(), bytes);
    EXPECT_EQ(server_resources(test_display(), x_window(main_window)), resources);
    grx_libere_indice_objet_bout(first_free);
    EXPECT_EQ(grx_recup_indice_objet_bout_libre(), first_free);
}

TEST_F(PaletteWindow, FailingMemoryIsSurvived) {
    char title[256] = "Palette";
    grx_affecte_couleur_active(colour);
    fail_each_allocation([&] {
        grx_affiche_fenetre_modif_palette_couleurs(10, 10, title, main_window);
        given(slider_event(6, Rouge, 5));
        grx_detruit_fenetre_modif_palette_couleurs();
    });
    expect_closed();
    open();
    expect_sliders_agree();
}

// --- under a window manager ---------------------------------------------------------------------------------------

class PaletteWmTest : public WithPalette<WmTest> {
  protected:
    void before_start() override { write_menu(""); }
    void SetUp() override {
        WithPalette<WmTest>::SetUp();
        if (HasFatalFailure()) return;
        main_window = make(GRX_FEN_ALPHA);
        ASSERT_TRUE(wait_visible(widget_of(main_window)));
    }
};

TEST_F(PaletteWmTest, IsClosedByTheManager) {
    open();
    const auto controls = all_controls();
    Widget shell = shell_of(No_fen_mod_coul);
    ASSERT_TRUE(wait_for([&] { return frame(shell) != None; }));
    pointer().click_in(XtWindow(shell), 3, 3);
    drain();
    ASSERT_TRUE(wait_for([&] {
        keyboard().key(XK_F4, Mod1Mask);
        follow();
        return !grx_is_fenetre_modif_palette_ouverte();
    }));
    expect_closed();
    for (INT n : controls) expect_free(n);
    ASSERT_EQ(consumed.size(), 1U);
    EXPECT_EQ(consumed[0].type_evenement, 7);
    EXPECT_NE(grx_recup_objet_fen(main_window), nullptr);
    open();
}

TEST_F(PaletteWmTest, IsHiddenAndShown) {
    open();
    grx_cache_retrace_fenetre_modif_palette_couleurs(1);
    EXPECT_TRUE(wait_for([&] { return !visible(x_window(No_fen_mod_coul)); }));
    follow();
    EXPECT_EQ(grx_is_fenetre_modif_palette_ouverte(), 1);
    grx_cache_retrace_fenetre_modif_palette_couleurs(0);
    EXPECT_TRUE(wait_visible(widget_of(No_fen_mod_coul)));
}

} // namespace
