// The palette window: opened, and its sliders moved by the program and dragged by a real pointer.
#include "tests/support/cursor_kit.h"
#include "tests/display/panels/palette_kit.h"

#include <climits>

namespace {

using namespace grxtest;

// --- opening ------------------------------------------------------------------------------------------------------

TEST_F(PaletteWindow, IsClosedAtFirst) {
    expect_closed();
    EXPECT_EQ(grx_detruit_fenetre_modif_palette_couleurs(), 0);
    EXPECT_EQ(grx_retrace_fenetre_modif_palette_couleurs(), 0);
    EXPECT_EQ(grx_cache_retrace_fenetre_modif_palette_couleurs(0), 0);
    EXPECT_EQ(grx_cache_retrace_fenetre_modif_palette_couleurs(1), 0);
}

TEST_F(PaletteWindow, OpensWithItsControlsInOrder) {
    const INT number = open();
    EXPECT_EQ(grx_recup_no_fenetre_modif_palette(), number);
    EXPECT_EQ(grx_is_fenetre_modif_palette_ouverte(), 1);
    const auto controls = all_controls();
    for (std::size_t k = 0; k < controls.size(); ++k)
        EXPECT_EQ(controls[k], controls[0] + static_cast<INT>(k)) << "made in this order";
    const std::array<INT, 7> maxima{255, 255, 255, 0, 360, 100, 100};
    for (std::size_t k = 0; k < controls.size(); ++k) {
        EXPECT_EQ(button_record(controls[k]).nofen, No_fen_mod_coul) << k;
        EXPECT_TRUE(on_screen(controls[k])) << k;
        if (controls[k] == Bou_reset) continue;
        ASSERT_TRUE(is_a(control(controls[k]), xmScaleWidgetClass)) << k;
        EXPECT_EQ(resource<int>(control(controls[k]), XmNminimum), 0) << k;
        EXPECT_EQ(resource<int>(control(controls[k]), XmNmaximum), maxima[k]) << k;
    }
    EXPECT_STRNE(resource<char*>(shell_of(No_fen_mod_coul), XmNtitle), "");
    expect_sliders_agree();
    EXPECT_EQ(values(rvb_glob), read_back(start_rvb));
}

TEST_F(PaletteWindow, TheControlsAreApartAndInsideTheWindow) {
    open();
    const Area frame = server_area(test_display(), x_window(No_fen_mod_coul));
    std::vector<Area> seen;
    for (INT n : all_controls()) {
        const Area area = server_area(test_display(), XtWindow(control(n)));
        EXPECT_GE(area.width, 20) << n;
        EXPECT_GE(area.height, 10) << n;
        EXPECT_TRUE(area.x >= frame.x && area.y >= frame.y && area.x + area.width <= frame.x + frame.width
                    && area.y + area.height <= frame.y + frame.height)
            << n;
        for (const Area& other : seen)
            EXPECT_TRUE(area.x + area.width <= other.x || other.x + other.width <= area.x
                        || area.y + area.height <= other.y || other.y + other.height <= area.y)
                << n;
        seen.push_back(area);
    }
}

TEST_F(PaletteWindow, TheColourSlidersHaveColoursOfTheirOwn) {
    open();
    std::set<Pixel> traces;
    for (INT n : rvb_sliders()) traces.insert(resource<Pixel>(control(n), XmNforeground));
    EXPECT_EQ(traces.size(), 3U);
    for (INT n : hls_sliders()) EXPECT_FALSE(traces.contains(resource<Pixel>(control(n), XmNforeground)));
}

TEST_F(PaletteWindow, StandsWhereTheFirstTwoArgumentsSay) {
    open(colour, 321, 234);
    const Area area = server_area(test_display(), x_window(No_fen_mod_coul));
    EXPECT_EQ(area.x, 321);
    EXPECT_EQ(area.y + area.height, grx_recup_hau_ecran() - 234);
}

TEST_F(PaletteWindow, HasItsTitle) {
    char title[256];
    std::memset(title, 'x', sizeof title); // without end
    grx_affiche_fenetre_modif_palette_couleurs(10, 10, title, main_window);
    char shown_title[GRX_TITRE_MAX] = "";
    grx_recup_titre_fenetre(No_fen_mod_coul, shown_title);
    EXPECT_EQ(std::string(shown_title), std::string(GRX_TITRE_MAX - 1, 'x'));
    grx_detruit_fenetre_modif_palette_couleurs();
    grx_affiche_fenetre_modif_palette_couleurs(10, 10, nullptr, main_window);
    EXPECT_EQ(grx_is_fenetre_modif_palette_ouverte(), 1);
    grx_detruit_fenetre_modif_palette_couleurs();
    open();
    grx_recup_titre_fenetre(No_fen_mod_coul, shown_title);
    EXPECT_STREQ(shown_title, "Palette");
}

TEST_F(PaletteWindow, OpensForAnyParent) {
    char title[256] = "Palette";
    for (INT parent : {-1, 0, 50, 99, 100, INT_MIN, INT_MAX}) {
        grx_affiche_fenetre_modif_palette_couleurs(-1, -1, title, parent);
        ASSERT_EQ(grx_is_fenetre_modif_palette_ouverte(), 1) << parent;
        EXPECT_TRUE(wait_visible(widget_of(No_fen_mod_coul))) << parent;
        EXPECT_EQ(grx_detruit_fenetre_modif_palette_couleurs(), 1) << parent;
        drain();
    }
}

TEST_F(PaletteWindow, OpeningReadsTheColourAsItIsThen) {
    grx_affecte_couleur_active(colour);
    Triple changed{10, 20, 30};
    grx_modif_rgb(colour, changed.data());
    char title[256] = "Palette";
    grx_affiche_fenetre_modif_palette_couleurs(10, 10, title, main_window);
    EXPECT_EQ(values(rvb_glob), read_back(changed));
    expect_sliders_agree();
}

TEST_F(PaletteWindow, SlidersReachBothEnds) {
    for (Triple rvb : {Triple{0, 0, 0}, Triple{255, 255, 255}, Triple{255, 0, 0}}) {
        grx_modif_rgb(colour, rvb.data());
        open();
        EXPECT_EQ(slider_values(rvb_sliders()), read_back(rvb));
        EXPECT_EQ(slider_values(hls_sliders()), in_hls(read_back(rvb)));
        grx_detruit_fenetre_modif_palette_couleurs();
        drain();
    }
}

TEST_F(PaletteWindow, OpeningAgainRedrawsTheOpenOne) {
    open();
    const auto before = all_controls();
    const INT number = No_fen_mod_coul;
    const auto windows = server_resources(test_display(), x_window(number)).at("WINDOW");
    const Pixels picture_before = grab(x11_disp, x_window(number));
    GC pen = XCreateGC(test_display(), x_window(number), 0, nullptr);
    for (INT n : all_controls()) XFillRectangle(test_display(), XtWindow(control(n)), pen, 0, 0, 2000, 2000);
    XSync(test_display(), False);
    EXPECT_NE(picture_before, grab(x11_disp, x_window(number)));
    char title[256] = "Another";
    grx_affiche_fenetre_modif_palette_couleurs(0, 0, title, -1);
    EXPECT_TRUE(wait_for([&] { return grab(x11_disp, x_window(number)) == picture_before; }));
    EXPECT_EQ(No_fen_mod_coul, number);
    EXPECT_EQ(all_controls(), before);
    EXPECT_EQ(server_resources(test_display(), x_window(number)).at("WINDOW"), windows);
    for (INT n : all_controls()) XFillRectangle(test_display(), XtWindow(control(n)), pen, 0, 0, 2000, 2000);
    XFreeGC(test_display(), pen);
    XSync(test_display(), False);
    EXPECT_EQ(grx_retrace_fenetre_modif_palette_couleurs(), 0);
    EXPECT_TRUE(wait_for([&] { return grab(x11_disp, x_window(number)) == picture_before; }));
}

TEST_F(PaletteWindow, IsHiddenAndShown) {
    open();
    const INT number = No_fen_mod_coul;
    for (INT hide : {1, -1, 7}) {
        EXPECT_EQ(grx_cache_retrace_fenetre_modif_palette_couleurs(hide), 0);
        EXPECT_TRUE(wait_for([&] { return !visible(x_window(number)); })) << hide;
        EXPECT_EQ(grx_is_fenetre_modif_palette_ouverte(), 1) << "hidden, not closed";
        EXPECT_EQ(grx_cache_retrace_fenetre_modif_palette_couleurs(0), 0);
        EXPECT_TRUE(wait_visible(widget_of(number))) << hide;
    }
    EXPECT_EQ(No_fen_mod_coul, number);
    drag(Rouge, inwards(Rouge));
    EXPECT_FALSE(consumed.empty()) << "works as before";
}

TEST_F(PaletteWindow, IsTheOneToDigitizeWhileItIsOpen) {
    for (INT before : {-1, main_window}) {
        for (bool by_user : {false, true}) {
            grx_affecte_fenetre_a_digitaliser(before);
            open();
            EXPECT_EQ(grx_recup_fenetre_a_digitaliser(), No_fen_mod_coul);
            if (by_user) {
                ask_to_close(test_display(), XtWindow(shell_of(No_fen_mod_coul)));
                ASSERT_TRUE(wait_for([&] {
                    follow();
                    return !grx_is_fenetre_modif_palette_ouverte();
                }));
            } else {
                grx_detruit_fenetre_modif_palette_couleurs();
            }
            EXPECT_EQ(grx_recup_fenetre_a_digitaliser(), before) << by_user;
            forget();
        }
    }
}

TEST_F(PaletteWindow, LeavesAnotherChoiceOfTheWindowToDigitize) {
    grx_affecte_fenetre_a_digitaliser(-1);
    open();
    grx_affecte_fenetre_a_digitaliser(main_window);
    grx_detruit_fenetre_modif_palette_couleurs();
    EXPECT_EQ(grx_recup_fenetre_a_digitaliser(), main_window);
}

TEST_F(PaletteWindow, OpenedAgainItStillRemembersTheFormerWindowToDigitize) {
    grx_affecte_fenetre_a_digitaliser(main_window);
    open();
    open();
    EXPECT_EQ(grx_recup_fenetre_a_digitaliser(), No_fen_mod_coul);
    grx_detruit_fenetre_modif_palette_couleurs();
    EXPECT_EQ(grx_recup_fenetre_a_digitaliser(), main_window);
}

// --- the active colour --------------------------------------------------------------------------------------------

TEST_F(PaletteWindow, ChoosingTheColourReadsIt) {
    EXPECT_EQ(grx_affecte_couleur_active(colour), 1);
    EXPECT_EQ(Couleur_active, colour);
    EXPECT_EQ(grx_recup_couleur_active(), colour);
    EXPECT_EQ(values(rvb_glob), rgb_of(colour));
    EXPECT_EQ(values(memo_rvb), rgb_of(colour));
    EXPECT_EQ(values(hls_glob), in_hls(rgb_of(colour)));
}

TEST_F(PaletteWindow, ChoosingAnotherColourDoesNotMoveTheSliders) {
    open();
    const Triple rvb = slider_values(rvb_sliders()), hls = slider_values(hls_sliders());
    Triple other{1, 2, 3};
    grx_modif_rgb(colour + 1, other.data());
    EXPECT_EQ(grx_affecte_couleur_active(colour + 1), 1);
    EXPECT_EQ(slider_values(rvb_sliders()), rvb);
    EXPECT_EQ(slider_values(hls_sliders()), hls);
    EXPECT_EQ(values(memo_rvb), read_back(other));
    EXPECT_EQ(given(slider_event(64, Rouge, 90)), 1);
    EXPECT_EQ(rgb_of(colour + 1), read_back({90, read_back(other)[1], read_back(other)[2]}));
    EXPECT_EQ(rgb_of(colour), read_back(start_rvb)) << "the other one is let alone";
}

TEST_F(PaletteWindow, AnUnknownColourIsSurvived) {
    for (INT index : {-1, 256, 1000, INT_MIN, INT_MAX}) {
        EXPECT_EQ(grx_affecte_couleur_active(index), 1) << index;
        EXPECT_EQ(grx_recup_couleur_active(), index);
        for (INT c : rvb_glob) EXPECT_EQ(c, 0);
        char title[256] = "Palette";
        grx_affiche_fenetre_modif_palette_couleurs(10, 10, title, -1);
        EXPECT_EQ(given(slider_event(6, Vert, 9)), 1);
        grx_detruit_fenetre_modif_palette_couleurs();
    }
}

// --- moving sliders by program ------------------------------------------------------------------------------------

TEST_F(PaletteWindow, TheSlidersOfOneModelAreSet) {
    open();
    const Triple hls = slider_values(hls_sliders());
    grx_affecte_palette_rvb(7, 255, 0);
    EXPECT_EQ(slider_values(rvb_sliders()), (Triple{7, 255, 0}));
    EXPECT_EQ(slider_values(hls_sliders()), hls);
    grx_affecte_palette_hls(360, 0, 100);
    EXPECT_EQ(slider_values(hls_sliders()), (Triple{360, 0, 100}));
    EXPECT_EQ(slider_values(rvb_sliders()), (Triple{7, 255, 0}));
    EXPECT_EQ(values(rvb_glob), read_back(start_rvb)) << "only the sliders";
    EXPECT_EQ(rgb_of(colour), read_back(start_rvb));
}

TEST_F(PaletteWindow, ASliderThatIsNotThereIsPassedOver) {
    open();
    grx_affecte_palette_rvb(1, 2, 3);
    grx_affecte_palette_hls(1, 2, 3);
    for (INT* missing : {&Rouge, &Vert, &Bleu}) {
        const INT number = *missing;
        *missing = -1;
        grx_affecte_palette_rvb(50, 60, 70);
        *missing = number;
        Triple expected{50, 60, 70};
        for (std::size_t k = 0; k < 3; ++k)
            if (rvb_sliders()[k] == number) expected[k] = static_cast<INT>(k) + 1;
        EXPECT_EQ(slider_values(rvb_sliders()), expected);
        grx_affecte_palette_rvb(1, 2, 3);
    }
    for (INT* missing : {&Bou_h, &Bou_l, &Bou_s}) {
        const INT number = *missing;
        *missing = -1;
        grx_affecte_palette_hls(50, 60, 70);
        *missing = number;
        Triple expected{50, 60, 70};
        for (std::size_t k = 0; k < 3; ++k)
            if (hls_sliders()[k] == number) expected[k] = static_cast<INT>(k) + 1;
        EXPECT_EQ(slider_values(hls_sliders()), expected);
        grx_affecte_palette_hls(1, 2, 3);
    }
}

TEST_F(PaletteWindow, AllSixAreSetFromOneTriple) {
    open();
    Triple rvb{255, 128, 0};
    EXPECT_EQ(grx_affecte_palette(rvb.data()), 1);
    EXPECT_EQ(slider_values(rvb_sliders()), (Triple{255, 128, 0}));
    EXPECT_EQ(slider_values(hls_sliders()), (Triple{30, 100, 100}));
    EXPECT_EQ(rvb, (Triple{255, 128, 0}));
    EXPECT_EQ(rgb_of(colour), read_back(start_rvb)) << "only the sliders";
}

// --- dragging -----------------------------------------------------------------------------------------------------

TEST_F(PaletteWindow, DraggingAColourSliderMovesTheOtherModelAndWritesTheColourAtOnce) {
    open();
    for (std::size_t k = 0; k < 3; ++k) {
        const INT n = rvb_sliders()[k];
        forget();
        const Triple before = values(rvb_glob);
        std::set<INT> on_the_way;
        drag(n, inwards(n), [&] {
            on_the_way.insert(rvb_glob[k]);
            expect_sliders_agree();
            if (!consumed.empty()) expect_written();
            EXPECT_EQ(values(hls_glob), in_hls(values(rvb_glob)));
        });
        EXPECT_GE(on_the_way.size(), 5U) << "while it is dragged";
        ASSERT_GE(consumed.size(), 5U);
        EXPECT_EQ(consumed.front().type_evenement, 64);
        EXPECT_EQ(consumed.back().type_evenement, 6);
        EXPECT_EQ(consumed.back().exec_fonction.nobou, n);
        EXPECT_EQ(rvb_glob[k], consumed.back().exec_fonction.valeur);
        EXPECT_EQ(rvb_glob[k], slider_value(n));
        for (std::size_t other = 0; other < 3; ++other) {
            if (other != k) {
                EXPECT_EQ(rvb_glob[other], before[other]);
            }
        }
        EXPECT_NE(rvb_glob[k], before[k]);
        expect_sliders_agree();
        expect_written();
    }
    EXPECT_EQ(values(memo_rvb), read_back(start_rvb));
}

TEST_F(PaletteWindow, DraggingASliderOfTheOtherModelMovesTheColoursAndWritesAtOnce) {
    open();
    for (std::size_t k = 0; k < 3; ++k) {
        const INT n = hls_sliders()[k];
        forget();
        const Triple before = values(hls_glob);
        std::set<INT> on_the_way;
        drag(n, inwards(n), [&] {
            on_the_way.insert(hls_glob[k]);
            expect_sliders_agree();
            if (!consumed.empty()) expect_written();
            EXPECT_EQ(values(rvb_glob), consumed.empty() ? read_back(start_rvb) : in_rvb(values(hls_glob)));
        });
        EXPECT_GE(on_the_way.size(), 5U) << "while it is dragged";
        ASSERT_GE(consumed.size(), 5U);
        EXPECT_EQ(consumed.back().type_evenement, 6);
        EXPECT_EQ(hls_glob[k], consumed.back().exec_fonction.valeur);
        for (std::size_t other = 0; other < 3; ++other) {
            if (other != k) {
                EXPECT_EQ(hls_glob[other], before[other]) << "not computed back from the cut colours";
            }
        }
        EXPECT_EQ(values(rvb_glob), in_rvb(values(hls_glob)));
        expect_sliders_agree();
        expect_written();
        grx_affecte_couleur_active(colour);
        Triple again = start_rvb;
        grx_modif_rgb(colour, again.data());
        grx_affecte_couleur_active(colour);
        grx_affecte_palette(rvb_glob);
    }
}

TEST_F(PaletteWindow, TheResetButtonBringsTheColourBack) {
    open();
    drag(Rouge, inwards(Rouge));
    drag(Bou_s, inwards(Bou_s));
    ASSERT_NE(values(rvb_glob), read_back(start_rvb));
    forget();
    pointer().click_in(control(Bou_reset));
    ASSERT_TRUE(wait_for([&] {
        follow();
        return !consumed.empty();
    }));
    EXPECT_EQ(consumed.size(), 1U) << "the press and the release are not the window's";
    EXPECT_EQ(consumed[0].type_evenement, 6);
    EXPECT_EQ(consumed[0].exec_fonction.nobou, Bou_reset);
    const Triple expected = read_back(start_rvb);
    EXPECT_EQ(values(rvb_glob), expected);
    EXPECT_EQ(values(hls_glob), in_hls(expected));
    EXPECT_EQ(slider_values(rvb_sliders()), expected);
    EXPECT_EQ(slider_values(hls_sliders()), in_hls(expected));
    EXPECT_EQ(rgb_of(colour), read_back(expected));
    drag(Bou_h, inwards(Bou_h));
    EXPECT_EQ(values(rvb_glob), in_rvb(values(hls_glob))) << "from where the reset left off";
    EXPECT_EQ(hls_glob[1], in_hls(expected)[1]);
}

// --- the crosshair ------------------------------------------------------------------------------------------------

TEST_F(PaletteWindow, TheCrosshairFollowsItsColour) {
    ASSERT_NE(in_xfixes<decltype(XFixesGetCursorImage)>("XFixesGetCursorImage"), nullptr) << "no libXfixes.so.3";
    grx_change_curseur(GRX_CURS_CROIX, main_window);
    open(recup_couleur_mire(), 700, 100);
    pointer().move_in(widget_of(main_window), 100, 75);
    const auto before = shown_cursor(test_display()).colours();
    ASSERT_EQ(before, (std::set{cursor_colour(recup_couleur_mire())}));
    given(slider_event(64, Vert, 77));
    const auto dragged = shown_cursor(test_display()).colours();
    EXPECT_NE(dragged, before);
    EXPECT_EQ(dragged, (std::set{cursor_colour(recup_couleur_mire())}));
    given(slider_event(6, Bou_reset, 0));
    EXPECT_EQ(shown_cursor(test_display()).colours(), before) << "by the reset button too";
    grx_affecte_couleur_active(colour);
    given(slider_event(64, Vert, 99));
    EXPECT_EQ(shown_cursor(test_display()).colours(), before) << "another colour is not the crosshair's";
}

// --- planes -------------------------------------------------------------------------------------------------------

TEST_F(PaletteWindowOn24, AStepOfASliderWaitsForNothing) {
    open();
    given(slider_event(64, Rouge, 1));
    Cost cost(x11_disp);
    for (INT step = 0; step < 500; ++step) {
        ASSERT_EQ(given(slider_event(64, Rouge, step % 256)), 1);
        ASSERT_EQ(given(slider_event(64, Bou_l, step % 101)), 1);
    }
    EXPECT_EQ(cost.round_trips(), 0U);
}

TEST_F(PaletteWindowOn24, TheNextDrawingHasTheNewColour) {
    open();
    given(slider_event(64, Rouge, 0x12));
    given(slider_event(64, Vert, 0x34));
    given(slider_event(64, Bleu, 0x56));
    EXPECT_EQ(grx_recup_couleur(colour), 0x123456);
    given(slider_event(6, Bou_reset, 0));
    EXPECT_EQ(grx_recup_couleur(colour), 0xC86432);
}

XColor cell_of(INT index) {
    XColor cell{};
    cell.pixel = pixel_of(index);
    XQueryColor(x11_disp, x11_cmap, &cell);
    return cell;
}

TEST_F(PaletteWindowOn8, WhatIsDrawnChangesWhileTheSliderMoves) {
    open();
    const INT pixel = grx_recup_couleur(colour);
    drag(Vert, inwards(Vert), [&] {
        if (!consumed.empty()) {
            EXPECT_EQ(cell_of(colour).green >> 8, rvb_glob[1] * 255 >> 8);
        }
    });
    ASSERT_GE(consumed.size(), 5U);
    EXPECT_NE(cell_of(colour).green >> 8, start_rvb[1] * 255 >> 8);
    EXPECT_EQ(grx_recup_couleur(colour), pixel) << "the cell stays";
}

TEST_F(PaletteWindowOn8, FullIntensityIsBroughtBackWhole) {
    XColor cell{};
    cell.pixel = pixel_of(colour);
    cell.red = cell.green = 65535;
    cell.blue = 0;
    cell.flags = DoRed | DoGreen | DoBlue;
    XStoreColor(x11_disp, x11_cmap, &cell);
    ASSERT_EQ(rgb_of(colour), (Triple{257, 257, 0}));
    open();
    EXPECT_EQ(values(memo_rvb), (Triple{257, 257, 0}));
    EXPECT_EQ(slider_values(rvb_sliders()), (Triple{255, 255, 0}));
    EXPECT_EQ(slider_values(hls_sliders()), (Triple{60, 100, 100}));
    given(slider_event(6, Bleu, 200));
    given(slider_event(6, Rouge, 3));
    EXPECT_NE(rgb_of(colour), (Triple{257, 257, 0}));
    EXPECT_EQ(given(slider_event(6, Bou_reset, 0)), 1);
    EXPECT_EQ(rgb_of(colour), (Triple{257, 257, 0}));
    EXPECT_EQ(cell_of(colour).red, 65535);
    EXPECT_EQ(slider_values(rvb_sliders()), (Triple{255, 255, 0}));
    EXPECT_EQ(slider_values(hls_sliders()), (Triple{60, 100, 100}));
}

} // namespace
