// Nested windows as a whole, scroll bars included; windows that another client destroys; what windows leave behind.
#include "tests/display/control_kit.h"

namespace {

using namespace grxtest;

class Whole : public ControlsInWindowTest {
  protected:
    static Widget outermost_in(Widget parent, Widget w) {
        while (w != nullptr && XtParent(w) != parent) w = XtParent(w);
        return w;
    }
    Widget whole(INT nofen) { return outermost_in(widget_of(window), widget_of(nofen)); }
    Area place(INT nofen) { return server_area(test_display(), XtWindow(whole(nofen))); }

    // Windows of the screen in the nested window that can be seen.
    bool anything_seen(INT nofen) {
        XWindowAttributes attributes{};
        XSync(x11_disp, False);
        return XGetWindowAttributes(test_display(), XtWindow(whole(nofen)), &attributes) != 0
               && attributes.map_state == IsViewable;
    }
};

constexpr std::array bars{0, GRX_FEN_ATT_SCROLL};

TEST_F(Whole, HasThePlaceAndSizeAskedFor) {
    const Area around = server_area(test_display(), x_window(window));
    for (const INT kind : all_kinds)
        for (const INT extra : bars) {
            SCOPED_TRACE(testing::Message() << "kind " << kind << " extra " << extra);
            GRX_FENETRE inner = nested_in(window, kind, 30, 0, 180, 140);
            inner.attrib |= extra;
            const INT n = make(inner);
            ASSERT_TRUE(wait_visible(widget_of(n)));
            drain();
            EXPECT_EQ(place(n), (Area{around.x + 30, around.y + around.height - 140, 180, 140}));
            INT x = 0, y = 0, width = 0, height = 0;
            grx_recup_taille_fenetre_fille(n, &width, &height);
            EXPECT_EQ(width, 180);
            EXPECT_EQ(height, 140);
            grx_recup_position_fenetre_fille(n, &x, &y);
            EXPECT_EQ(x, 30);
            EXPECT_EQ(y, around.height - 140);
            grx_change_taille_fenetre_fille(n, 150, 120);
            EXPECT_TRUE(wait_for([&] { return place(n).width == 150 && place(n).height == 120; }));
            grx_detruit_fenetre_fille(n);
            settle();
        }
}

TEST_F(Whole, IsHiddenWithoutItsBitAndShownByItsNumber) {
    for (const INT kind : all_kinds)
        for (const INT extra : bars) {
            SCOPED_TRACE(testing::Message() << "kind " << kind << " extra " << extra);
            GRX_FENETRE inner = nested_in(window, kind, 30, 0, 180, 140);
            inner.attrib = GRX_FEN_ATT_FILLE | extra;
            const INT n = make(inner);
            ASSERT_GT(n, 0);
            drain();
            EXPECT_FALSE(anything_seen(n));
            for (int turn = 0; turn < 2; ++turn) {
                grx_affiche_fenetre_fille(n);
                EXPECT_TRUE(wait_for([&] { return anything_seen(n) && visible(x_window(n)); }));
                EXPECT_EQ(place(n).width, 180);
                EXPECT_EQ(place(n).height, 140);
                grx_cache_fenetre_fille(n);
                EXPECT_TRUE(wait_for([&] { return !anything_seen(n); }));
            }
            grx_detruit_fenetre_fille(n);
            settle();
        }
}

// --- destroyed by another client ----------------------------------------------------------------------------------

class DestroyedByOthers : public ControlsTest {
  protected:
    void SetUp() override {
        ControlsTest::SetUp();
        permit_x_errors(); // of what was asked before the news came
    }
    void destroy(Window of_ours) {
        XDestroyWindow(test_display(), of_ours);
        XSync(test_display(), False);
    }
    void expect_the_end(INT n) {
        const auto end = events.wait(GRX_EVT_DESTRUCTION, Milliseconds(3000));
        ASSERT_TRUE(end) << events.describe();
        EXPECT_EQ(end->destruction.nofen, n);
        EXPECT_EQ(widget_of(n), nullptr);
        EXPECT_EQ(record_of(n).nofen, MAXOBJETFEN);
        for (INT (*call)(INT) : {grx_affiche_fenetre, grx_cache_fenetre, grx_reaffiche_fenetre, grx_iconifie_fenetre,
                 grx_affiche_fenetre_fille, grx_cache_fenetre_fille, grx_supprime_titre_fenetre, grx_detruit_fenetre})
            EXPECT_EQ(call(n), 0);
        settle();
    }
};

TEST_F(DestroyedByOthers, AreToldAndTheirNumbersFreed) {
    for (const INT kind : all_kinds)
        for (const bool child : {false, true}) {
            SCOPED_TRACE(testing::Message() << "kind " << kind << (child ? " child" : ""));
            const INT parent = child ? shown() : -1;
            GRX_FENETRE description = described(kind);
            description.fen_mere = parent;
            const INT n = make(description);
            ASSERT_TRUE(wait_visible(widget_of(n)));
            settle();
            destroy(XtWindow(shell_of(n)));
            expect_the_end(n);
            if (!child) continue;
            EXPECT_TRUE(visible(x_window(parent)));
            grx_detruit_fenetre(parent);
            settle();
        }
}

TEST_F(DestroyedByOthers, NestedOnesLeaveTheirWindow) {
    const INT outer = shown();
    const INT n = make(nested_in(outer, GRX_FEN_GRAPHIQUE));
    ASSERT_TRUE(wait_visible(widget_of(n)));
    settle();
    destroy(x_window(n));
    expect_the_end(n);
    EXPECT_TRUE(visible(x_window(outer)));
}

TEST_F(DestroyedByOthers, AreSurvivedBeforeTheNewsIsRead) {
    const INT n = shown(GRX_FEN_GRAPHIQUE);
    destroy(XtWindow(shell_of(n)));
    INT x = 0, y = 0;
    grx_recup_position_fenetre(n, &x, &y);
    grx_change_taille_fenetre(n, 222, 111);
    grx_supprime_titre_fenetre(n);
    grx_coord_relative_to_absolues(n, 1, 2, &x, &y);
    grx_sauve_fenetre(n);
    grx_restore_fenetre(n);
    drain();
    EXPECT_EQ(widget_of(n), nullptr);
    EXPECT_GE(events.count(GRX_EVT_DESTRUCTION), 1);
    EXPECT_EQ(shown(GRX_FEN_GRAPHIQUE), n);
}

TEST_F(DestroyedByOthers, WaitingForOneEnds) {
    const INT n = shown();
    destroy(XtWindow(shell_of(n)));
    const auto start = Clock::now();
    grx_attend_creation_fenetre(n);
    EXPECT_LT(Clock::now() - start, Milliseconds(900));
    EXPECT_EQ(widget_of(n), nullptr);
}

// --- what windows leave -------------------------------------------------------------------------------------------

class Leaving : public DisplayTest {
  protected:
    void before_start() override {
        write_menu("#:ZONE_MENU_BAR\n{\nPOPUP||&File|\n{\nITEM||&Save|Ctrl+S|102|\n}\n}\n");
    }
    std::map<std::string, unsigned> resources() {
        drain();
        return server_resources(test_display(), XtWindow(XmGetXmDisplay(x11_disp)));
    }
};

TEST_F(Leaving, AThousandWindowsLeaveNothingInTheServer) {
    const auto round = [&](INT extra) {
        const INT n = make(GRX_FEN_ALPHA, GRX_FEN_ATT_VISIBLE | extra);
        grx_detruit_fenetre(n);
        XSync(x11_disp, False);
    };
    for (const INT extra : {0, GRX_FEN_ATT_SCROLL}) {
        for (int i = 0; i < 3; ++i) round(extra);
        const auto before = resources();
        for (int i = 0; i < 1000; ++i) round(extra);
        EXPECT_EQ(resources(), before) << "extra " << extra;
    }
}

TEST_F(Leaving, TheExclusiveOrContextIsMadeOnceAndTheDrawingOneEachTime) {
    make(GRX_FEN_GRAPHIQUE);
    const GC drawing = g_c, rubber = gc;
    ASSERT_NE(rubber, nullptr);
    const INT n = make(GRX_FEN_GRAPHIQUE);
    EXPECT_NE(g_c, drawing);
    EXPECT_EQ(gc, rubber);
    const GC last = g_c;
    grx_detruit_fenetre(n);
    EXPECT_EQ(g_c, last) << "in use still";
    make(GRX_FEN_GRAPHIQUE);
    XSetForeground(x11_disp, last, 5); // the one before stays usable
    XSetForeground(x11_disp, drawing, 5);
    XFillRectangle(x11_disp, x_window(1), last, 0, 0, 1, 1);
    XFillRectangle(x11_disp, x_window(1), drawing, 0, 0, 1, 1);
    XSync(x11_disp, False);
}

} // namespace
