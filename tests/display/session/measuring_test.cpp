// The character cell and the scroll bar, measured at the start and again.
#include "tests/display/controls/control_creation_kit.h"
#include "tests/display/display/start_kit.h"

namespace {

using namespace grxtest;

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

TEST_F(ControlCreation, TheCharacterCellIsMeasuredWithThrowAwayControls) {
    const auto measured = [&](INT type, INT columns, const char* title) {
        GRX_BOUTON description = a(type, 0, title);
        description.largeur = description.hauteur = -1;
        description.tabi[GRX_BOU_TABI_COLONNES] = columns;
        const INT n = placed(description);
        const Extent size = extent_of(control(n));
        grx_detruit_bouton(n);
        return size;
    };
    const Extent one = measured(GRX_BOU_TEXTE, 1, "test"), two = measured(GRX_BOU_TEXTE, 2, "test");
    const Extent label = measured(GRX_BOU_LABEL, 0, "A");
    for (auto set : {grx_affecte_lar_carac_alpha, grx_affecte_hau_carac_alpha, grx_affecte_hau_exact_carac_alpha,
             grx_affecte_lar_sup_alpha})
        set(-99);
    const std::size_t children = children_of(widget_of(window)).size();
    const INT free_number = grx_recup_indice_objet_bout_libre();
    asked.forget();
    affecte_carac_font(widget_of(window));
    ASSERT_EQ(asked.creations.size(), 3U);
    const auto made = [&](std::size_t i, const char* title, WidgetClass kind, INT place) {
        EXPECT_EQ(asked.creations[i].name, title) << i;
        EXPECT_EQ(asked.creations[i].widget_class, kind) << i;
        EXPECT_EQ(asked.creations[i].arguments.at(XmNx), place) << i;
        EXPECT_EQ(asked.creations[i].arguments.at(XmNy), place) << i;
    };
    made(0, "test", xmTextFieldWidgetClass, 0);
    made(1, "test", xmTextFieldWidgetClass, 10);
    made(2, "A", xmLabelWidgetClass, 0);
    EXPECT_EQ(asked.creations[0].arguments.at(XmNcolumns), 1);
    EXPECT_EQ(asked.creations[1].arguments.at(XmNcolumns), 2);
    EXPECT_EQ(grx_recup_hau_carac_alpha(), one.height);
    EXPECT_EQ(grx_recup_lar_carac_alpha(), two.width - one.width);
    EXPECT_EQ(grx_recup_lar_sup_alpha(), two.width - 2 * (two.width - one.width));
    EXPECT_EQ(grx_recup_hau_exact_carac_alpha(), label.height);
    EXPECT_GT(grx_recup_lar_carac_alpha(), 0);
    drain();
    EXPECT_EQ(children_of(widget_of(window)).size(), children);
    EXPECT_EQ(grx_recup_indice_objet_bout_libre(), free_number);
}

} // namespace
