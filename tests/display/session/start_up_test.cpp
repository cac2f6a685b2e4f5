// Start-up: when it is refused, what it leaves, what it asks the server.
#include "tests/display/display/start_kit.h"
#include "tests/support/cell_hog.h"
#include "tests/support/controls.h"
#include "tests/support/counters.h"
#include "tests/support/fake_visual.h"
#include "tests/support/stdout_capture.h"

#include "controls/control_creation_state.h"
#include "display/context.h"
#include "registry/window_table.h"

#include <unistd.h>

#include <cstdlib>

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
