// The creation of windows: the description, shown or not, refusals, main windows, memory.
#include "tests/display/windows/window_creation_kit.h"
#include "tests/support/sanitized.h"
#include "tests/support/stdout_capture.h"

#include <climits>

namespace {

using namespace grxtest;

constexpr INT visible_bit = GRX_FEN_ATT_VISIBLE;
constexpr INT scroll_bit = GRX_FEN_ATT_SCROLL;
constexpr INT main_bit = GRX_FEN_ATT_PRINCIPALE;
constexpr INT nested_bit = GRX_FEN_ATT_FILLE;
constexpr const char* overflow_line = "Depassement de taille de la base des fenetres\n";

// --- the description ------------------------------------------------------------------------------------------

TEST(Description, HasItsDefaults) {
    GRX_FENETRE window;
    std::memset(static_cast<void*>(&window), 0x5A, sizeof window);
    grx_init_fenetre(&window);
    EXPECT_EQ(window.nofen, -1);
    EXPECT_EQ(window.x, 0);
    EXPECT_EQ(window.y, 0);
    EXPECT_EQ(window.droite, -1);
    EXPECT_EQ(window.haut, -1);
    EXPECT_EQ(window.type, untouched) << "the caller always gives it";
    EXPECT_EQ(window.attrib, 16);
    EXPECT_STREQ(window.titre, "");
    EXPECT_EQ(window.coul_fond, -1);
    EXPECT_EQ(window.coul_trace, -1);
    EXPECT_EQ(window.curseur, -1);
    EXPECT_EQ(window.fen_mere, -1);
    EXPECT_EQ(window.lar_util, -1);
    EXPECT_EQ(window.hau_util, -1);
    EXPECT_EQ(window.attache, 0);
    for (INT value : window.tabi) EXPECT_EQ(value, 0);
}

// --- shown or not ---------------------------------------------------------------------------------------------

TEST_F(Creation, WithoutItsBitAWindowIsMadeAndNotShown) {
    for (INT kind : all_kinds)
        for (const INT extra : {0, scroll_bit, main_bit, main_bit | scroll_bit})
            for (const bool child : {false, true}) {
                SCOPED_TRACE(testing::Message() << "kind " << kind << " extra " << extra << (child ? " child" : ""));
                const INT parent = child ? make(GRX_FEN_ALPHA) : -1;
                GRX_FENETRE window = described(kind, extra);
                window.fen_mere = parent;
                const INT n = make(window);
                ASSERT_GT(n, 0);
                drain();
                EXPECT_FALSE(visible(x_window(n)));
                XWindowAttributes attributes{};
                if (XtWindow(shell_of(n)) != None) {
                    XGetWindowAttributes(test_display(), XtWindow(shell_of(n)), &attributes);
                    EXPECT_EQ(attributes.map_state, IsUnmapped);
                }
                grx_affiche_fenetre(n);
                EXPECT_TRUE(wait_visible(widget_of(n)));
                grx_detruit_fenetre(n);
                if (child) grx_detruit_fenetre(parent);
                drain();
            }
}

TEST_F(Creation, ANestedWindowWithoutItsBitIsMadeAndNotShown) {
    const INT outer = make(GRX_FEN_ALPHA, visible_bit, 400, 300);
    for (INT kind : {GRX_FEN_BOUTONS, GRX_FEN_GRAPHIQUE, GRX_FEN_ALPHA, GRX_FEN_MESSAGE, GRX_FEN_MENU}) {
        GRX_FENETRE window = nested_in(outer, kind);
        window.attrib = nested_bit;
        const INT inner = make(window);
        ASSERT_GT(inner, 0);
        drain();
        EXPECT_FALSE(visible(x_window(inner))) << kind;
        grx_affiche_fenetre_fille(inner);
        EXPECT_TRUE(wait_visible(widget_of(inner))) << kind;
    }
}

// --- refusals -------------------------------------------------------------------------------------------------

class Refusal : public Creation {
  protected:
    void SetUp() override {
        Creation::SetUp();
        make(GRX_FEN_ALPHA);
        drain();
        blocks_ = heap().blocks();
        gather_windows(test_display(), DefaultRootWindow(test_display()), windows_);
    }

    void expect_refused(const GRX_FENETRE& description, INT result) {
        GRX_FENETRE window = description;
        EXPECT_EQ(grx_cree_fenetre(&window), result);
        drain();
        EXPECT_EQ(heap().blocks(), blocks_);
        std::vector<Window> now;
        gather_windows(test_display(), DefaultRootWindow(test_display()), now);
        EXPECT_EQ(now, windows_) << "no widget is left on the server";
        EXPECT_EQ(grx_recup_objet_fen(2), nullptr) << "no number is taken";
        EXPECT_EQ(grx_recup_indice_objet_fen_libre(), 2);
    }

  private:
    std::size_t blocks_ = 0;
    std::vector<Window> windows_;
};

TEST_F(Refusal, OfUnknownKinds) {
    for (INT kind : {0, 6, 8, -1, 9, 16, 256, INT_MAX, INT_MIN})
        for (const INT extra : {0, scroll_bit, main_bit}) expect_refused(described(kind, visible_bit | extra), -1);
    for (INT kind : {0, 6, 8}) expect_refused(nested_in(1, kind), -1);
}

TEST_F(Refusal, OfUnknownParents) {
    for (INT parent : {0, 2, 50, 99, 100, 101, INT_MAX}) {
        GRX_FENETRE window = described(GRX_FEN_ALPHA);
        window.fen_mere = parent;
        expect_refused(window, -1);
        expect_refused(nested_in(parent, GRX_FEN_ALPHA), -1);
    }
    for (INT parent : {-1, -2, INT_MIN}) expect_refused(nested_in(parent, GRX_FEN_ALPHA), -1);
}

TEST_F(Refusal, OfNoRecord) {
    EXPECT_EQ(grx_cree_fenetre(nullptr), -1);
    grx_init_fenetre(nullptr);
    EXPECT_EQ(grx_recup_objet_fen(2), nullptr);
}

TEST_F(Creation, AFullBaseGivesMinus2AndItsLine) {
    const INT first = make(GRX_FEN_ALPHA);
    for (INT n = 2; n < 100; ++n) grx_affecte_objet_fen(n, widget_of(first));
    drain();
    std::vector<Window> before, after;
    gather_windows(test_display(), DefaultRootWindow(test_display()), before);
    for (INT kind : all_kinds) {
        GRX_FENETRE window = described(kind);
        const Outcome outcome = outcome_of([&] { return grx_cree_fenetre(&window); });
        EXPECT_EQ(outcome.result, -2);
        EXPECT_EQ(outcome.printed, overflow_line);
    }
    drain();
    gather_windows(test_display(), DefaultRootWindow(test_display()), after);
    EXPECT_EQ(before, after);
    grx_affecte_objet_fen(42, nullptr);
    EXPECT_EQ(make(GRX_FEN_ALPHA), 42);
    for (INT n = 2; n < 100; ++n)
        if (n != 42) grx_affecte_objet_fen(n, nullptr);
}

TEST_F(Creation, NinetyNineRealWindowsFitAndTheNextDoesNot) {
    for (INT n = 1; n < 100; ++n) ASSERT_EQ(make(GRX_FEN_ALPHA, 0, 20, 20), n);
    GRX_FENETRE window = described(GRX_FEN_ALPHA);
    EXPECT_EQ(outcome_of([&] { return grx_cree_fenetre(&window); }).result, -2);
    grx_detruit_fenetre(57);
    EXPECT_EQ(make(GRX_FEN_ALPHA), 57);
}

// --- main windows ---------------------------------------------------------------------------------------------

TEST_F(Creation, AMainWindowHasAnEmptyMenuBar) {
    write_menu("#:ZONE_MENU_BAR\n{\n}\n");
    for (INT kind : all_kinds) {
        const INT n = make(kind, visible_bit | main_bit, 400, 300);
        ASSERT_TRUE(wait_visible(widget_of(n)));
        Widget main = widget_of(n);
        while (main && !XmIsMainWindow(main)) main = XtParent(main);
        ASSERT_NE(main, nullptr);
        EXPECT_STREQ(XtName(main), "main");
        EXPECT_TRUE(XtIsManaged(main));
        EXPECT_TRUE(XtIsShell(XtParent(main)));
        Widget bar = resource<Widget>(main, XmNmenuBar);
        ASSERT_NE(bar, nullptr);
        EXPECT_STREQ(XtName(bar), "Menu_bar");
        EXPECT_TRUE(XtIsManaged(bar));
        EXPECT_EQ(XtParent(bar), main);
        EXPECT_EQ(resource<unsigned char>(bar, XmNrowColumnType), XmMENU_BAR);
        EXPECT_EQ(grx_get_Glob_menu_bar(), bar);
        Widget work = resource<Widget>(main, XmNworkWindow);
        ASSERT_NE(work, nullptr);
        bool inside = false;
        for (Widget w = widget_of(n); w != main; w = XtParent(w)) inside = inside || w == work;
        EXPECT_TRUE(inside) << "the work area holds the window";
        grx_detruit_fenetre(n);
        drain();
    }
}

TEST_F(Creation, WindowsWithoutTheBitHaveNoMenuBar) {
    make(GRX_FEN_ALPHA);
    EXPECT_EQ(grx_get_Glob_menu_bar(), nullptr);
    EXPECT_EQ(grx_recup_tamenubar(), 0);
}

// --- events and cursor ------------------------------------------------------------------------------------------

TEST_F(Creation, TheEventMasksAreSelected) {
    const INT outer = make(GRX_FEN_ALPHA, visible_bit, 400, 300);
    const INT inner = make(nested_in(outer, GRX_FEN_GRAPHIQUE));
    for (INT n : {outer, inner, make(GRX_FEN_GRAPHIQUE), make(GRX_FEN_BOUTONS), make(GRX_FEN_MENU)}) {
        EXPECT_EQ(XtBuildEventMask(widget_of(n)) & 0x2877DU, 0x2877DU) << n;
        XWindowAttributes attributes{};
        XGetWindowAttributes(x11_disp, x_window(n), &attributes);
        EXPECT_EQ(attributes.your_event_mask & 0x2877D, 0x2877D) << n;
        EXPECT_EQ(XtBuildEventMask(shell_of(n)) & 0x90000U, 0x90000U) << n;
    }
}

// --- memory and server resources --------------------------------------------------------------------------------

TEST_F(Creation, EachFailingAllocationIsSurvived) {
    make(GRX_FEN_ALPHA, visible_bit, 400, 300);
    drain();
    for (INT kind : all_kinds)
        for (const INT extra : {0, scroll_bit, main_bit, nested_bit}) {
            const auto attempt = [&] {
                const NoLeak no_leak;
                GRX_FENETRE window = extra == nested_bit ? nested_in(1, kind) : described(kind, visible_bit | extra);
                StdoutCapture silence;
                const INT result = grx_cree_fenetre(&window);
                silence.restore();
                EXPECT_TRUE(result == 0 || result == -1 || result == -2) << result;
                if (result == 0) {
                    EXPECT_EQ(window.nofen, 2);
                    EXPECT_NE(widget_of(2), nullptr);
                    if (extra == nested_bit)
                        grx_detruit_fenetre_fille(2);
                    else
                        grx_detruit_fenetre(2);
                }
                drain();
                EXPECT_EQ(grx_recup_objet_fen(2), nullptr);
            };
            SCOPED_TRACE(testing::Message() << "kind " << kind << " extra " << extra);
            fail_each_allocation(attempt);
        }
}

TEST_F(Creation, TwoHundredWindowsOfEachKindLeaveNothing) {
    for (INT kind : all_kinds) {
        SCOPED_TRACE(testing::Message() << "kind " << kind);
        const auto round = [&] {
            const INT n = make(kind, visible_bit | scroll_bit);
            ASSERT_EQ(n, 1);
            grx_detruit_fenetre(n);
            drain();
        };
        const auto resources = [&] {
            auto counted = server_resources(test_display(), XtWindow(XmGetXmDisplay(x11_disp)));
            return counted;
        };
        for (int i = 0; i < 3; ++i) round();
        const auto blocks = heap().blocks();
        const auto bytes = heap().bytes();
        const auto before = resources();
        ASSERT_GT(before.size(), 0U);
        for (int i = 0; i < amount(200); ++i) round();
        EXPECT_EQ(heap().blocks(), blocks);
        EXPECT_EQ(heap().bytes(), bytes);
        EXPECT_EQ(resources(), before);
    }
}

TEST_F(Creation, TwoHundredNestedWindowsLeaveNothing) {
    const INT outer = make(GRX_FEN_ALPHA, visible_bit, 400, 300);
    for (INT kind : all_kinds) {
        const auto round = [&] {
            const INT n = make(nested_in(outer, kind));
            ASSERT_EQ(n, 2);
            grx_detruit_fenetre_fille(n);
            drain();
        };
        const auto resources = [&] { return server_resources(test_display(), XtWindow(XmGetXmDisplay(x11_disp))); };
        for (int i = 0; i < 3; ++i) round();
        const auto blocks = heap().blocks();
        const auto before = resources();
        for (int i = 0; i < amount(200); ++i) round();
        EXPECT_EQ(heap().blocks(), blocks) << kind;
        EXPECT_EQ(resources(), before) << kind;
    }
}

} // namespace
