// Start-up: the display, the visual, the font, the screen, the measured character cell, and what is left behind.
#include "tests/display/window_kit.h"
#include "tests/support/cell_hog.h"
#include "tests/support/controls.h"
#include "tests/support/counters.h"
#include "tests/support/fake_visual.h"
#include "tests/support/stdout_capture.h"

#include "xt_prive.h"

#include <csignal>
#include <cstdlib>
#include <unistd.h>
#include <vector>

namespace {

using namespace grxtest;

// --- refusals ---------------------------------------------------------------------------------------------

class StartRefusedTest : public XTest {
  protected:
    void SetUp() override {
        XTest::SetUp();
        ASSERT_EQ(grx_alloue_base_fenetres(), 0);
        ASSERT_EQ(grx_alloue_base_boutons(), 0);
    }

    void expect_no_display() {
        const Outcome outcome = outcome_of(grx_init_application);
        EXPECT_EQ(outcome.result, 0);
        EXPECT_EQ(outcome.printed, "GFX ERROR\nCode 11: Error opening DISPLAY\n");
        EXPECT_EQ(x11_disp, nullptr);
        EXPECT_EQ(x11_vis, nullptr);
        EXPECT_EQ(fontlist, nullptr);
        EXPECT_EQ(grx_recup_profondeur_ecran(), 0);
        EXPECT_EQ(grx_recup_lar_ecran(), 0);
        EXPECT_EQ(grx_recup_hau_ecran(), 0);
    }
};

TEST_F(StartRefusedTest, WithoutDisplayVariable) {
    unsetenv("DISPLAY");
    expect_no_display();
}

TEST_F(StartRefusedTest, WithAServerThatIsNotThere) {
    setenv("DISPLAY", ":61234", 1);
    expect_no_display();
}

TEST_F(StartRefusedTest, WithADisplayNameThatIsNone) {
    setenv("DISPLAY", "no display at all", 1);
    expect_no_display();
}

// The authority file of a server that lets nobody in without this cookie.
std::string authority() {
    const std::string name = "MIT-MAGIC-COOKIE-1";
    std::string file{"\xFF\xFF\0\0\0\0\0\x12", 8}; // any host, no display number, length of the name
    file += name;
    file += std::string("\0\x10", 2) + std::string(16, 'k');
    return file;
}

TEST_F(StartRefusedTest, WithAServerThatRefusesTheConnection) {
    const auto file = home().write("authority", authority());
    XServerOptions options;
    options.arguments = {"-auth", file.string()};
    const XServer closed(options);
    setenv("XAUTHORITY", file.c_str(), 1);
    Display* allowed = XOpenDisplay(closed.name().c_str());
    ASSERT_NE(allowed, nullptr) << "the cookie opens it";
    XCloseDisplay(allowed);
    setenv("XAUTHORITY", (home().text() + "/none").c_str(), 1);
    setenv("DISPLAY", closed.name().c_str(), 1);
    expect_no_display();
}

TEST_F(StartRefusedTest, NothingElseIsDoneWithoutDisplay) {
    unsetenv("DISPLAY");
    outcome_of(grx_init_application);
    EXPECT_EQ(grx::Tableau_objet_fen[0], nullptr) << "number 0 is reserved by a start that gets that far";
    EXPECT_EQ(grx_recup_lar_carac_alpha(), 0);
    EXPECT_EQ(grx_recup_max_objet(), 0);
}

class StartUpOn16 : public On16 {};

TEST_F(StartUpOn16, NoVisualIsError5) {
    ASSERT_EQ(grx_alloue_base_fenetres(), 0);
    ASSERT_EQ(grx_alloue_base_boutons(), 0);
    const Outcome outcome = outcome_of(grx_init_application);
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.printed, "GFX ERROR\nCode 5: Error on table color allocation\n");
    EXPECT_EQ(grx_recup_lar_ecran(), 0) << "the screen is measured after the visual is chosen";
    EXPECT_EQ(grx::Tableau_objet_fen[0], nullptr);
}

TEST_F(StartUpOn16, TheSameWithoutBases) {
    const Outcome outcome = outcome_of(grx_init_application);
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.printed, "GFX ERROR\nCode 5: Error on table color allocation\n");
}

class NoMatchTest : public XTest {};

TEST_F(NoMatchTest, NeitherVisualIsError5WhateverTheDefaultIs) {
    const FakeVisual fake(FakeVisual::Kind::no_match);
    ASSERT_EQ(grx_alloue_base_fenetres(), 0);
    const Outcome outcome = outcome_of(grx_init_application);
    EXPECT_EQ(outcome.result, 0);
    EXPECT_EQ(outcome.printed, "GFX ERROR\nCode 5: Error on table color allocation\n");
}

// --- bases that are not there -------------------------------------------------------------------------------

class StartWithoutBasesTest : public XTest {};

TEST_F(StartWithoutBasesTest, WithoutWindowBaseTheMeasuringIsGivenUp) {
    ASSERT_EQ(grx_alloue_base_boutons(), 0);
    const Outcome outcome = outcome_of(grx_init_application);
    EXPECT_EQ(outcome.result, 1) << "the display is open and usable";
    EXPECT_EQ(outcome.printed, "Depassement de taille de la base des fenetres\n");
    EXPECT_EQ(grx_recup_lar_carac_alpha(), 0);
    XSync(x11_disp, False);
    const auto windows = children_of(test_display(), DefaultRootWindow(test_display()));
    GRX_FENETRE window = described(GRX_FEN_ALPHA);
    EXPECT_EQ(outcome_of([&] { return grx_cree_fenetre(&window); }).result, -2);
    XSync(x11_disp, False);
    EXPECT_EQ(children_of(test_display(), DefaultRootWindow(test_display())), windows) << "nothing is left behind";
    EXPECT_EQ(grx_recup_objet_fen(1), nullptr);
}

TEST_F(StartWithoutBasesTest, WithoutButtonBaseTheWindowsWork) {
    ASSERT_EQ(grx_alloue_base_fenetres(), 0);
    const Outcome start = outcome_of(grx_init_application);
    EXPECT_EQ(start.result, 1);
    EXPECT_EQ(make(GRX_FEN_ALPHA), 1);
    GRX_BOUTON button{};
    grx_init_bouton(&button);
    button.type = GRX_BOU_LABEL;
    button.fen_mere = 1;
    const Outcome creation = outcome_of([&] { return grx_cree_bouton(&button); });
    EXPECT_EQ(creation.result, -3);
    EXPECT_EQ(creation.printed, "Depassement de taille de la base des boutons\n");
    EXPECT_EQ(start.printed.find("fenetres"), std::string::npos) << start.printed;
}

TEST_F(StartWithoutBasesTest, WithoutAnyBase) {
    const Outcome outcome = outcome_of(grx_init_application);
    EXPECT_EQ(outcome.result, 1);
    EXPECT_EQ(outcome.printed, "Depassement de taille de la base des fenetres\n");
    EXPECT_EQ(grx_init_sauvegarde_fenetre(), 0);
}

// --- what a start-up leaves ---------------------------------------------------------------------------------

class StartUp : public DisplayTest {};

TEST_F(StartUp, OpensTheDisplayOfTheEnvironmentUnderItsName) {
    ASSERT_NE(x11_disp, nullptr);
    EXPECT_EQ(XDisplayString(x11_disp), server().name());
    EXPECT_NE(contexte, nullptr);
    EXPECT_EQ(XtDisplayToApplicationContext(x11_disp), contexte);
    EXPECT_EQ(x11_screen, DefaultScreen(x11_disp));
    String name = nullptr, class_name = nullptr;
    XtGetApplicationNameAndClass(x11_disp, &name, &class_name);
    EXPECT_STREQ(name, "HB");
}

TEST_F(StartUp, RecordsTheScreen) {
    EXPECT_EQ(lar_ecran, 1280);
    EXPECT_EQ(hau_ecran, 1024);
    EXPECT_EQ(lar_ecran_mm, DisplayWidthMM(x11_disp, x11_screen));
    EXPECT_EQ(hau_ecran_mm, DisplayHeightMM(x11_disp, x11_screen));
    EXPECT_EQ(grx_recup_lar_ecran(), lar_ecran);
    EXPECT_EQ(grx_recup_hau_ecran(), hau_ecran);
    EXPECT_EQ(grx_recup_lar_ecran_mm(), lar_ecran_mm);
    EXPECT_EQ(grx_recup_hau_ecran_mm(), hau_ecran_mm);
}

TEST_F(StartUp, TheRecordedSizeIsNotReadAgainAndTheOtherIs) {
    lar_ecran = 11;
    hau_ecran = 12;
    lar_ecran_mm = 13;
    hau_ecran_mm = 14;
    EXPECT_EQ(grx_recup_lar_ecran(), 11);
    EXPECT_EQ(grx_recup_hau_ecran(), 12);
    EXPECT_EQ(grx_recup_lar_ecran_mm(), 13);
    EXPECT_EQ(grx_recup_hau_ecran_mm(), 14);
    INT width = 0, height = 0;
    grx_recup_taille_ecran(&width, &height);
    EXPECT_EQ(width, 1280);
    EXPECT_EQ(height, 1024);
    grx_recup_taille_ecran_mm(&width, &height);
    EXPECT_EQ(width, DisplayWidthMM(x11_disp, x11_screen));
    EXPECT_EQ(height, DisplayHeightMM(x11_disp, x11_screen));
}

class SmallScreen : public DisplayTest {
    XServerOptions server_options() const override {
        XServerOptions options;
        options.width = 1024;
        options.height = 768;
        return options;
    }
};

TEST_F(SmallScreen, IsTheSizeThatIsRecorded) {
    EXPECT_EQ(grx_recup_lar_ecran(), 1024);
    EXPECT_EQ(grx_recup_hau_ecran(), 768);
}

TEST_F(StartUp, TheDepthIsStoredAndReadBack) {
    EXPECT_EQ(grx_recup_profondeur_ecran(), test_planes());
    EXPECT_EQ(profondeur_ecran, test_planes());
    grx_affecte_profondeur_ecran(17);
    EXPECT_EQ(grx_recup_profondeur_ecran(), 17);
    EXPECT_EQ(profondeur_ecran, 17);
    grx_affecte_profondeur_ecran(test_planes());
    EXPECT_EQ(prof_24, 1);
}

TEST_F(StartUp, TheApplicationsPixelCountsAreOnlyKept) {
    EXPECT_EQ(grx_get_nbr_xpel_crt(), 0);
    EXPECT_EQ(grx_get_nbr_ypel_crt(), 0);
    grx_put_nbr_xpel_crt(-7);
    grx_put_nbr_ypel_crt(2000000000);
    EXPECT_EQ(grx_get_nbr_xpel_crt(), -7);
    EXPECT_EQ(grx_get_nbr_ypel_crt(), 2000000000);
    EXPECT_EQ(nbr_xpel_crt, -7);
    EXPECT_EQ(nbr_ypel_crt, 2000000000);
}

TEST_F(StartUp, SmallAnswersThatDoNothing) {
    EXPECT_EQ(grx_charge_icones(), 1);
    EXPECT_EQ(grx_selection_fonte_dialogue(), 0);
    EXPECT_EQ(grx_selection_fonte_status(), 0);
    EXPECT_EQ(grx_is_objet_valide(nullptr), 0);
    EXPECT_EQ(grx_is_objet_valide(widget_of(make(GRX_FEN_ALPHA))), 1);
    EXPECT_EQ(grx_is_objet_valide(reinterpret_cast<Widget>(-2)), 1) << "any pointer but null";
}

TEST_F(StartUp, TheLowestBitOfAMask) {
    EXPECT_EQ(decode_decalage(0), 32);
    for (int bit = 0; bit < 32; ++bit) {
        EXPECT_EQ(decode_decalage(1UL << bit), bit);
        EXPECT_EQ(decode_decalage(0xFFFFFFFFUL << bit & 0xFFFFFFFFUL), bit);
    }
}

class StartUpOn24 : public On24 {};

TEST_F(StartUpOn24, TakesTrueColour) {
    EXPECT_EQ(grx_recup_profondeur_ecran(), 24);
    EXPECT_EQ(x11_vis->c_class, TrueColor);
    EXPECT_EQ(vtemp.depth, 24);
    EXPECT_EQ(vtemp.visual, x11_vis);
    EXPECT_EQ(dec_red, 16);
    EXPECT_EQ(dec_green, 8);
    EXPECT_EQ(dec_blue, 0);
    EXPECT_NE(x11_cmap, None);
}

class StartUpOn8 : public On8 {};

TEST_F(StartUpOn8, TakesPseudoColour) {
    EXPECT_EQ(grx_recup_profondeur_ecran(), 8);
    EXPECT_EQ(x11_vis->c_class, PseudoColor);
    EXPECT_EQ(vtemp.depth, 8);
    EXPECT_EQ(vtemp.visual, x11_vis);
    EXPECT_EQ(dec_red, 0);
    EXPECT_EQ(dec_green, 0);
    EXPECT_EQ(dec_blue, 0);
    EXPECT_NE(x11_cmap, None);
}

class DefaultOf8PlanesOn24 : public On24 {
    void before_start() override { fake_.emplace(FakeVisual::Kind::default8); }
    std::optional<FakeVisual> fake_;
};

TEST_F(DefaultOf8PlanesOn24, TrueColourWins) {
    ASSERT_EQ(DefaultVisual(x11_disp, x11_screen)->c_class, PseudoColor);
    EXPECT_EQ(grx_recup_profondeur_ecran(), 24);
    EXPECT_EQ(x11_vis->c_class, TrueColor);
    EXPECT_EQ(dec_red, 16);
    const INT window = make(GRX_FEN_GRAPHIQUE);
    ASSERT_TRUE(wait_visible(widget_of(window)));
    XWindowAttributes attributes{};
    XGetWindowAttributes(test_display(), x_window(window), &attributes);
    EXPECT_EQ(attributes.depth, 24);
}

class TooFewCellsOn8 : public On8 {
    void before_start() override {
        hog_.emplace(server().name(), 20);
        capture_.emplace();
    }

  protected:
    std::optional<CellHog> hog_;
    std::optional<StdoutCapture> capture_;
};

TEST_F(TooFewCellsOn8, StartUpGoesOnAfterError5) {
    const auto lines = capture_->lines();
    ASSERT_GE(lines.size(), 2U);
    EXPECT_EQ(lines[0], "GFX ERROR");
    EXPECT_EQ(lines[1], "Code 5: Error on table color allocation");
    EXPECT_EQ(grx_recup_lar_ecran(), 1280);
    EXPECT_GT(grx_recup_lar_carac_alpha(), 0) << "the measuring was done";
    EXPECT_EQ(make(GRX_FEN_ALPHA), 1);
}

TEST_F(StartUp, DragAndDropIsOff) {
    Widget display = XmGetXmDisplay(x11_disp);
    EXPECT_EQ(resource<unsigned char>(display, XmNdragInitiatorProtocolStyle), XmDRAG_NONE);
    EXPECT_EQ(resource<unsigned char>(display, XmNdragReceiverProtocolStyle), XmDRAG_NONE);
}

TEST_F(StartUp, DragAndDropStaysOffWhenAllWindowsWereDestroyed) {
    for (int round = 0; round < 3; ++round) {
        const INT window = make(GRX_FEN_ALPHA);
        ASSERT_TRUE(wait_visible(widget_of(window)));
        grx_detruit_fenetre(window);
        drain();
        Widget display = XmGetXmDisplay(x11_disp);
        EXPECT_EQ(resource<unsigned char>(display, XmNdragInitiatorProtocolStyle), XmDRAG_NONE);
        EXPECT_EQ(resource<unsigned char>(display, XmNdragReceiverProtocolStyle), XmDRAG_NONE);
    }
}

// --- window and button numbers ------------------------------------------------------------------------------

TEST_F(StartUp, TheFirstWindowIsNumber1AndNumber0IsNeverGiven) {
    EXPECT_EQ(grx::Tableau_objet_fen[0], reinterpret_cast<Widget>(-2));
    EXPECT_EQ(grx_recup_objet_fen(0), nullptr);
    for (INT n = 1; n < MAXOBJETFEN; ++n) EXPECT_EQ(grx_recup_objet_fen(n), nullptr);
    EXPECT_EQ(make(GRX_FEN_ALPHA), 1);
    EXPECT_EQ(make(GRX_FEN_ALPHA), 2);
    grx_detruit_fenetre(1);
    EXPECT_EQ(make(GRX_FEN_ALPHA), 1);
}

TEST_F(StartUp, TheFirstButtonIsNumber0) {
    EXPECT_EQ(grx_recup_indice_objet_bout_libre(), 0);
    GRX_BOUTON button{};
    grx_init_bouton(&button);
    button.type = GRX_BOU_LABEL;
    button.fen_mere = make(GRX_FEN_ALPHA);
    ASSERT_EQ(grx_cree_bouton(&button), 0);
    EXPECT_EQ(button.nobou, 0);
    EXPECT_EQ(grx::Premier_bouton, 0);
}

TEST_F(StartUp, SavedPicturesAreCleared) {
    for (INT n = 0; n < MAXOBJETFEN; ++n) {
        GRX_SAUVE_ZONE* slot = grx::save_slot(n);
        ASSERT_NE(slot, nullptr);
        EXPECT_EQ(slot->image, 0U);
        EXPECT_EQ(slot->lar, 0);
        EXPECT_EQ(slot->hau, 0);
        *slot = {77, 78, 79};
    }
    EXPECT_EQ(grx_init_sauvegarde_fenetre(), 0);
    for (INT n = 0; n < MAXOBJETFEN; ++n) {
        EXPECT_EQ(grx::save_slot(n)->image, 0U);
        EXPECT_EQ(grx::save_slot(n)->lar, 0);
        EXPECT_EQ(grx::save_slot(n)->hau, 0);
    }
}

TEST_F(StartUp, DrawingParametersAreForgottenTogether) {
    grx::memo_attrib.coul_trace = 3;
    *grx::save_slot(5) = {0, 78, 79};
    EXPECT_EQ(grx_init_param_graphique(), 0);
    EXPECT_EQ(grx::memo_attrib.coul_trace, -1);
    EXPECT_EQ(grx::save_slot(5)->lar, 0);
}

// --- font and character cell --------------------------------------------------------------------------------

TEST_F(StartUp, TheOneFontHasTheTag) {
    ASSERT_NE(fontlist, nullptr);
    XmFontContext context = nullptr;
    ASSERT_TRUE(XmFontListInitFontContext(&context, fontlist));
    XmFontListEntry entry = XmFontListNextEntry(context);
    ASSERT_NE(entry, nullptr);
    char* tag = XmFontListEntryGetTag(entry);
    EXPECT_STREQ(tag, "tag1");
    XtFree(tag);
    XmFontType type = XmFONT_IS_FONTSET;
    EXPECT_EQ(XmFontListEntryGetFont(entry, &type), fontstruct);
    EXPECT_EQ(type, XmFONT_IS_FONT);
    EXPECT_EQ(XmFontListNextEntry(context), nullptr) << "one font only";
    XmFontListFreeFontContext(context);
}

struct Cell {
    const char* font;
    INT width, extra, field_height, label_height;
};

class CellTest : public DisplayTest {
  protected:
    void start_with(const Cell& cell) {
        write_ini(std::string("FONT_CARACTERE ") + cell.font + "\nLARG_CARACTERE 91\nHAUT_CARACTERE 92\n"
                  + "ESPA_CARACTERE 93\nLARG_SCROLLBAR 94\n");
        XTest::SetUp();
        ASSERT_EQ(grx_initialise_globales(), 0);
        ASSERT_EQ(grx_recup_lar_carac_alpha(), 91);
        ASSERT_TRUE(start_up());
        expect(cell);
    }

    static void expect(const Cell& cell) {
        EXPECT_EQ(grx_recup_lar_carac_alpha(), cell.width);
        EXPECT_EQ(grx_recup_lar_sup_alpha(), cell.extra);
        EXPECT_EQ(grx_recup_hau_carac_alpha(), cell.field_height);
        EXPECT_EQ(grx_recup_hau_exact_carac_alpha(), cell.label_height);
    }

    void SetUp() override {}
};

TEST_F(CellTest, OfFixedReplacesWhatTheFileSays) {
    start_with({"fixed", 6, 8, 21, 13});
    EXPECT_EQ(fontstruct->max_bounds.width, 6);
    EXPECT_NE(grx_recup_largeur_scrollbar(), 94);
}

TEST_F(CellTest, Of9x15) {
    start_with({"9x15", 9, 8, 23, 15});
}

TEST_F(CellTest, Of10x20) {
    start_with({"10x20", 10, 8, 28, 20});
}

TEST_F(CellTest, IsMeasuredAgainByTheFontProbe) {
    start_with({"8x13", 8, 8, 21, 13});
    grx_affecte_lar_carac_alpha(0);
    grx_affecte_hau_carac_alpha(0);
    grx_affecte_lar_sup_alpha(0);
    grx_affecte_hau_exact_carac_alpha(0);
    affecte_carac_font(widget_of(make(GRX_FEN_ALPHA)));
    expect({"8x13", 8, 8, 21, 13});
    EXPECT_EQ(grx_recup_indice_objet_bout_libre(), 0) << "the probes gave their numbers back";
}

TEST_F(StartUp, TheScrollBarIsMeasured) {
    const INT window = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE | GRX_FEN_ATT_SCROLL);
    ASSERT_TRUE(wait_visible(widget_of(window)));
    Widget scrolled = widget_of(window);
    while (!XmIsScrolledWindow(scrolled)) scrolled = XtParent(scrolled);
    Widget bar = resource<Widget>(scrolled, XmNverticalScrollBar);
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(grx_recup_largeur_scrollbar(), resource<Dimension>(bar, XmNwidth));
    EXPECT_EQ(grx_recup_taille_scrollbar(window), grx_recup_largeur_scrollbar());
    EXPECT_EQ(grx_recup_taille_scrollbar(make(GRX_FEN_ALPHA)), 0) << "a window without scroll bars";
    EXPECT_EQ(grx_recup_taille_scrollbar(99), 0);
}

TEST_F(StartUp, MeasuringLeavesNoTrace) {
    EXPECT_EQ(evt_global.type_evenement, 0);
    EXPECT_EQ(grx_recup_max_objet(), 1) << "the probe was number 1";
    EXPECT_EQ(grx_recup_indice_objet_bout_libre(), 0);
    drain();
    EXPECT_EQ(events.seen().size(), 0U) << events.describe();
}

TEST_F(StartUp, MeasuringASecondTimeGivesTheSameAndLeavesNoTrace) {
    const INT width = grx_recup_lar_carac_alpha(), height = grx_recup_hau_carac_alpha();
    const INT extra = grx_recup_lar_sup_alpha(), exact = grx_recup_hau_exact_carac_alpha();
    const INT bar = grx_recup_largeur_scrollbar();
    ASSERT_GT(width, 0);
    ASSERT_GT(bar, 0);
    make(GRX_FEN_ALPHA);
    drain();
    const auto windows = children_of(test_display(), DefaultRootWindow(test_display())).size();
    const auto blocks = heap().blocks();
    grx_affecte_lar_carac_alpha(1);
    grx_affecte_hau_carac_alpha(1);
    grx_affecte_lar_sup_alpha(1);
    grx_affecte_hau_exact_carac_alpha(1);
    grx_affecte_largeur_scrollbar(1);
    evt_global = patterned_event();
    grx_affecte_carac_fenetre_systeme();
    const GRX_EVENEMENT pattern = patterned_event();
    EXPECT_EQ(std::memcmp(&evt_global, &pattern, sizeof evt_global), 0) << "the pending record is not the measuring's";
    EXPECT_EQ(grx_recup_lar_carac_alpha(), width);
    EXPECT_EQ(grx_recup_hau_carac_alpha(), height);
    EXPECT_EQ(grx_recup_lar_sup_alpha(), extra);
    EXPECT_EQ(grx_recup_hau_exact_carac_alpha(), exact);
    EXPECT_EQ(grx_recup_largeur_scrollbar(), bar);
    drain();
    EXPECT_EQ(heap().blocks(), blocks);
    EXPECT_EQ(children_of(test_display(), DefaultRootWindow(test_display())).size(), windows);
    EXPECT_EQ(grx_recup_objet_fen(2), nullptr);
}

TEST_F(StartUp, TheProbeIsNeverShown) {
    XSelectInput(test_display(), DefaultRootWindow(test_display()), SubstructureNotifyMask);
    XSync(test_display(), False);
    grx_affecte_carac_fenetre_systeme();
    drain();
    XSync(test_display(), False);
    int created = 0;
    while (XPending(test_display()) > 0) {
        XEvent event{};
        XNextEvent(test_display(), &event);
        if (event.type == CreateNotify) ++created;
        EXPECT_NE(event.type, MapNotify);
    }
    EXPECT_GT(created, 0) << "there was a probe";
}

// --- graphics contexts --------------------------------------------------------------------------------------

constexpr unsigned long context_values = GCFunction | GCForeground | GCLineWidth | GCLineStyle | GCCapStyle
                                         | GCJoinStyle | GCFont | GCSubwindowMode | GCGraphicsExposures;

TEST_F(StartUp, TheDrawingContextIsMadeWithEachWindowOfItsOwn) {
    const GC probes = g_c;
    make(GRX_FEN_ALPHA);
    const GC first = g_c;
    ASSERT_NE(first, nullptr);
    EXPECT_NE(first, probes);
    XGCValues values{};
    ASSERT_TRUE(XGetGCValues(x11_disp, g_c, context_values, &values));
    EXPECT_EQ(values.function, GXcopy);
    EXPECT_EQ(values.line_width, 0);
    EXPECT_EQ(values.font, fontstruct->fid);
    EXPECT_EQ(values.graphics_exposures, False) << "copies queue no events";
    make(GRX_FEN_ALPHA);
    EXPECT_NE(g_c, first);
    XGCValues old{};
    EXPECT_TRUE(XGetGCValues(x11_disp, first, GCFont, &old)) << "the one before is not freed";
    EXPECT_EQ(old.font, fontstruct->fid);
    const GC second = g_c;
    GRX_FENETRE child = described(GRX_FEN_ALPHA);
    child.fen_mere = 1;
    ASSERT_EQ(grx_cree_fenetre(&child), 0);
    EXPECT_EQ(g_c, second) << "a child window makes none";
}

TEST_F(StartUp, TheRubberBandContext) {
    make(GRX_FEN_ALPHA);
    ASSERT_NE(gc, nullptr);
    XGCValues values{};
    ASSERT_TRUE(XGetGCValues(x11_disp, gc, context_values, &values));
    EXPECT_EQ(values.function, GXxor);
    EXPECT_EQ(values.foreground, WhitePixel(x11_disp, x11_screen));
    EXPECT_EQ(values.line_width, 0);
    EXPECT_EQ(values.line_style, LineSolid);
    EXPECT_EQ(values.cap_style, CapNotLast);
    EXPECT_EQ(values.join_style, JoinRound);
    EXPECT_EQ(values.subwindow_mode, IncludeInferiors);
}

TEST_F(StartUp, AContextOfAWidgetThatIsNoWindowChangesNothing) {
    make(GRX_FEN_ALPHA);
    const GC before = g_c;
    EXPECT_EQ(grx_init_gc(nullptr), 0);
    EXPECT_EQ(g_c, before);
}

// --- X errors -------------------------------------------------------------------------------------------------

TEST_F(StartUp, ProtocolErrorsAreSilent) {
    permit_x_errors();
    const INT before = grx::x_error_count();
    const Outcome error = outcome_of([] {
        XMapWindow(x11_disp, 0x12345);
        return XSync(x11_disp, False);
    });
    EXPECT_EQ(error.printed, "");
    EXPECT_EQ(x_error_count(), 1);
    EXPECT_EQ(grx::x_error_count(), before + 1);
    EXPECT_STREQ(grx::last_x_error_text(), "BadWindow (invalid Window parameter)");
    EXPECT_EQ(make(GRX_FEN_ALPHA), 1) << "and the program goes on";
}

// An application's own, there before the library.
std::vector<int> codes_told;

int tell_code(Display*, XErrorEvent* error) {
    codes_told.push_back(error->error_code);
    return 0;
}

void cause_error() {
    XMapWindow(x11_disp, 0x12345);
    XSync(x11_disp, False);
}

class OwnErrorHandler : public DisplayTest {
  protected:
    void before_start() override {
        codes_told.clear();
        XSetErrorHandler(tell_code);
    }
};

TEST_F(OwnErrorHandler, IsToldTheProtocolErrors) {
    permit_x_errors();
    const INT before = grx::x_error_count();
    const Outcome error = outcome_of([] {
        cause_error();
        return 0;
    });
    EXPECT_EQ(codes_told, (std::vector<int>{BadWindow}));
    EXPECT_EQ(error.printed, "");
    EXPECT_EQ(grx::x_error_count(), before + 1);
    EXPECT_EQ(grx_init_graphique(), 1);
    cause_error();
    EXPECT_EQ(codes_told, (std::vector<int>{BadWindow, BadWindow})) << "however often the library installs its own";
}

XErrorHandler behind = nullptr;

int pass_on(Display* display, XErrorEvent* error) {
    codes_told.push_back(error->error_code);
    return behind(display, error);
}

// One installed later, that calls the one before it, which is the library's.
TEST_F(StartUp, AHandlerThatCallsTheLibrarysIsCalledOnce) {
    permit_x_errors();
    codes_told.clear();
    behind = XSetErrorHandler(pass_on);
    EXPECT_EQ(grx_init_graphique(), 1);
    cause_error();
    EXPECT_EQ(codes_told, (std::vector<int>{BadWindow}));
}

// --- the end of the connection --------------------------------------------------------------------------------

struct Ending {
    const char* name;
    void (*meet)(INT window); // what the application is doing then
};

void wait_for_events(INT) {
    GRX_EVENEMENT event{};
    for (;;) grx_digitaliseur(&event, 1);
}

void poll_for_events(INT) {
    GRX_EVENEMENT event{};
    for (;;) grx_digitaliseur(&event, 0);
}

void draw_on(INT window) {
    GRX_SEGMENT segment{};
    segment.nofen = window;
    segment.attrib.coul_trace = 9;
    for (;;) {
        segment.x2 = (segment.x2 + 7) % 100;
        segment.attrib.coul_trace ^= 1;
        grx_trace_segment(segment);
    }
}

void choose_a_directory(INT) {
    char title[] = "Choose", directory[GRX_CHEMIN_DIALOGUE_MAX] = "/tmp";
    for (;;) select_repertoire_x11(title, directory);
}

void edit_a_text(INT) {
    char directory[GRX_MEMO_FILENAME_MAX] = "", name[GRX_MEMO_FILENAME_MAX] = "";
    grx_debut_editeur();
    grx_editeur();
    for (;;) grx_file_editeur_bloquant(directory, name);
}

void run_the_toolkits_loop(INT) {
    grx_gere_application();
}

constexpr Ending endings[] = {{"waits", wait_for_events}, {"polls", poll_for_events}, {"draws", draw_on},
    {"chooses", choose_a_directory}, {"edits", edit_a_text}, {"leaves it to the toolkit", run_the_toolkits_loop}};

// Kills the server a moment after the application began to do something; all that is printed counts.
[[noreturn]] void lose_server(const XServer& server, const Ending& ending, XIOErrorHandler own = nullptr) {
    dup2(STDERR_FILENO, STDOUT_FILENO);
    setenv("DISPLAY", server.name().c_str(), 1);
    if (own != nullptr) XSetIOErrorHandler(own);
    if (!start_up()) std::_Exit(3);
    const INT window = make(GRX_FEN_GRAPHIQUE, GRX_FEN_ATT_VISIBLE);
    grx_affecte_nofen_principale(window);
    static pid_t victim;
    victim = server.pid();
    XtAppAddTimeOut(
        contexte, 100, [](XtPointer, XtIntervalId*) { kill(victim, SIGKILL); }, nullptr);
    if (ending.meet == draw_on) kill(victim, SIGKILL); // it runs no timer
    ending.meet(window);
    std::_Exit(4);
}

int say_saved(Display*) {
    return write(STDERR_FILENO, "saved\n", 6) == 6 ? 0 : 1;
}

[[noreturn]] int save_and_leave(Display*) {
    std::_Exit(7);
}

TEST(LostServer, EndsTheProcessByXlibWithoutAWordOfTheLibrary) {
    for (const auto& ending : endings) {
        SCOPED_TRACE(ending.name);
        const XServer server({.planes = test_planes(), .arguments = {}});
        EXPECT_EXIT(lose_server(server, ending), testing::ExitedWithCode(1), "^$");
    }
}

TEST(LostServer, IsToldToTheApplicationsHandlerOnce) {
    for (const auto& ending : endings) {
        SCOPED_TRACE(ending.name);
        const XServer server({.planes = test_planes(), .arguments = {}});
        EXPECT_EXIT(lose_server(server, ending, say_saved), testing::ExitedWithCode(1), "^saved\n$");
    }
}

TEST(LostServer, TheHandlerMayEndTheProcessItself) {
    const XServer server({.planes = test_planes(), .arguments = {}});
    EXPECT_EXIT(lose_server(server, endings[0], save_and_leave), testing::ExitedWithCode(7), "^$");
}

// --- the toolkit's own loop -----------------------------------------------------------------------------------

void leave_loop(XtPointer, XtIntervalId*) {
    XtAppSetExitFlag(contexte);
}

TEST_F(StartUp, TheMainLoopDispatches) {
    const INT window = make(GRX_FEN_ALPHA);
    ASSERT_TRUE(wait_visible(widget_of(window)));
    drain();
    evt_global = patterned_event();
    pointer().click_in(widget_of(window), 30, 40);
    XtAppAddTimeOut(contexte, 200, leave_loop, nullptr);
    grx_gere_application();
    EXPECT_EQ(evt_global.type_evenement, GRX_EVT_BOUTON_RELACHE);
    EXPECT_EQ(evt_global.bouton_relache.nofen, window);
    EXPECT_EQ(evt_global.bouton_relache.x, 30);
}

// --- what start-up asks the server and waits for ------------------------------------------------------------------

class StartTripsOn24 : public XTest {}; // on 8 planes every colour cell is asked for by itself

TEST_F(StartTripsOn24, AreFewUntilTheFirstPicture) {
    const unsigned long before = x_totals().round_trips;
    ASSERT_EQ(grx_alloue_base_fenetres(), 0);
    ASSERT_EQ(grx_alloue_base_boutons(), 0);
    ASSERT_EQ(outcome_of(grx_init_application).result, 1);
    EXPECT_LE(x_totals().round_trips - before, 70U);
    GRX_FENETRE window;
    grx_init_fenetre(&window);
    window.type = GRX_FEN_GRAPHIQUE;
    window.droite = 600;
    window.haut = 400;
    ASSERT_EQ(grx_cree_fenetre(&window), 0);
    GRX_EVENEMENT event{};
    while (event.type_evenement != GRX_EVT_AFFICHAGE) grx_digitaliseur(&event, 1);
    EXPECT_LE(x_totals().round_trips - before, 77U);
}

class NoDropSites : public DisplayTest {};

// Nothing can be dropped on it, so it asks nothing about drags.
TEST_F(NoDropSites, ATextFieldAsksTheServerNothing) {
    GRX_FENETRE window;
    grx_init_fenetre(&window);
    window.type = GRX_FEN_ALPHA;
    window.droite = window.haut = 300;
    ASSERT_EQ(grx_cree_fenetre(&window), 0);
    GRX_BOUTON field = button_at(GRX_BOU_TEXTE, window.nofen, {10, 10, 100, 30});
    field.attrib |= GRX_BOU_ATT_TEXTE_LECTURE; // an editable one opens an input method
    const Cost cost(x11_disp);
    ASSERT_EQ(grx_cree_bouton(&field), 0);
    EXPECT_EQ(cost.round_trips(), 0U);
    Widget w = grx_recup_objet_bout(field.nobou);
    XtVaSetValues(w, XmNeditable, True, nullptr);
    XtVaSetValues(w, XmNeditable, False, nullptr);
    EXPECT_EQ(grx_detruit_bouton(field.nobou), 0);
    drain();
    const Atom drags = XInternAtom(test_display(), "_MOTIF_DRAG_WINDOW", False);
    Atom type = None;
    int format = 0;
    unsigned long items = 0, left = 0;
    unsigned char* value = nullptr;
    XGetWindowProperty(test_display(), DefaultRootWindow(test_display()), drags, 0, 1, False, AnyPropertyType, &type,
        &format, &items, &left, &value);
    EXPECT_EQ(type, Atom{None}); // the window of all drags was made for nobody
}

} // namespace
