// The end of windows: closed, destroyed by the application or by another client, and what they leave.
#include "tests/support/control_kit.h"
#include "tests/display/registry/windows_kit.h"

namespace {

using namespace grxtest;

constexpr INT scroll_bit = GRX_FEN_ATT_SCROLL;
constexpr INT main_bit = GRX_FEN_ATT_PRINCIPALE;

TEST_F(WindowsTest, ACloseRequestEndsTheWindowAndIsRecord7) {
    for (INT kind : all_kinds)
        for (const INT extra : {0, scroll_bit, main_bit}) {
            const INT other = make(GRX_FEN_ALPHA, 0);
            const INT n = shown(kind, visible_bit | extra);
            ask_to_close(test_display(), XtWindow(shell_of(n)));
            const auto end = next(GRX_EVT_DESTRUCTION, n);
            ASSERT_TRUE(end) << kind << ": " << events.describe();
            EXPECT_EQ(events.count(GRX_EVT_DESTRUCTION), 1);
            EXPECT_EQ(widget_of(n), nullptr) << "the number is free";
            EXPECT_EQ(record_of(n).nofen, MAXOBJETFEN);
            EXPECT_NE(widget_of(other), nullptr);
            EXPECT_EQ(make(GRX_FEN_ALPHA), n) << "and given again";
            grx_detruit_fenetre(n);
            grx_detruit_fenetre(other);
            settle();
        }
}

TEST_F(WindowsTest, ClosingAChildLeavesItsParent) {
    const INT top = shown();
    const INT child = shown_child(top);
    ask_to_close(test_display(), XtWindow(shell_of(child)));
    ASSERT_TRUE(next(GRX_EVT_DESTRUCTION, child)) << events.describe();
    drain();
    EXPECT_EQ(widget_of(child), nullptr);
    ASSERT_NE(widget_of(top), nullptr);
    EXPECT_TRUE(visible(x_window(top)));
}

TEST_F(WindowsTest, ClosingAParentFreesItsChildrenAndNestedWindows) {
    const INT top = shown();
    const INT child = shown_child(top);
    const INT nested = make(nested_in(top, GRX_FEN_GRAPHIQUE));
    ASSERT_GT(nested, 0);
    settle();
    ask_to_close(test_display(), XtWindow(shell_of(top)));
    drain();
    EXPECT_GE(events.count(GRX_EVT_DESTRUCTION), 1) << events.describe();
    for (INT n : {top, child, nested}) {
        EXPECT_EQ(widget_of(n), nullptr) << n;
        EXPECT_EQ(record_of(n).nofen, MAXOBJETFEN) << n;
    }
}

TEST_F(WindowsTest, DestroyingFreesTheNumberAtOnceAndPosts7) {
    const INT first = shown(), second = shown();
    Window shell = XtWindow(shell_of(first));
    evt_global = patterned_event();
    EXPECT_EQ(grx_detruit_fenetre(first), 0);
    EXPECT_EQ(evt_global.destruction.type_evenement, GRX_EVT_DESTRUCTION);
    EXPECT_EQ(evt_global.destruction.nofen, first);
    EXPECT_EQ(widget_of(first), nullptr);
    EXPECT_EQ(grx_recup_indice_objet_fen_libre(), first);
    drain();
    XWindowAttributes attributes{};
    EXPECT_FALSE(XGetWindowAttributes(test_display(), shell, &attributes));
    EXPECT_NE(widget_of(second), nullptr);
    EXPECT_EQ(grx_detruit_fenetre(first), 0) << "a second time is nothing";
}

TEST_F(WindowsTest, DestroyingANestedWindowLeavesTheShell) {
    const INT outer = shown();
    for (INT kind : all_kinds)
        for (const INT extra : {0, scroll_bit}) {
            GRX_FENETRE window = nested_in(outer, kind);
            window.attrib |= extra;
            const INT inner = make(window);
            ASSERT_TRUE(wait_visible(widget_of(inner))) << kind;
            evt_global = patterned_event();
            EXPECT_EQ(grx_detruit_fenetre_fille(inner), 0);
            EXPECT_EQ(evt_global.destruction.type_evenement, GRX_EVT_DESTRUCTION) << kind;
            EXPECT_EQ(evt_global.destruction.nofen, inner);
            EXPECT_EQ(widget_of(inner), nullptr);
            drain();
            EXPECT_TRUE(visible(x_window(outer)));
            EXPECT_EQ(children_of(test_display(), x_window(outer)).size(), 0U) << "kind " << kind << " extra " << extra;
        }
}

// Destroys a window while one of its events is dispatched, and makes the next one at once.
struct Replace {
    INT window, replacement;
};

void replace_window(Widget, XtPointer client, XEvent*, Boolean*) {
    auto* job = static_cast<Replace*>(client);
    grx_detruit_fenetre(job->window);
    job->replacement = make(GRX_FEN_GRAPHIQUE);
}

TEST_F(WindowsTest, ANumberReusedDuringTheDestructionStaysWithTheNewWindow) {
    Replace job{shown(), 0};
    XtAddEventHandler(widget_of(job.window), ButtonPressMask, False, replace_window, &job);
    pointer().click_in(widget_of(job.window), 30, 40);
    ASSERT_TRUE(wait_for([&] { return job.replacement != 0; }));
    drain();
    EXPECT_EQ(job.replacement, job.window) << "the lowest free number";
    ASSERT_NE(widget_of(job.replacement), nullptr) << "the old window's end does not free it";
    EXPECT_EQ(record_of(job.replacement).nofen, job.replacement);
    ASSERT_NE(record_of(job.replacement).image, nullptr);
    EXPECT_TRUE(wait_visible(widget_of(job.replacement)));
    settle();
    pointer().click_in(widget_of(job.replacement), 10, 10);
    EXPECT_TRUE(next(GRX_EVT_BOUTON_APPUI, job.replacement));
}

TEST_F(WindowsTest, ButtonsOfADestroyedWindowKeepTheirNumbersAndDoNothing) {
    const INT n = shown();
    GRX_BOUTON button{};
    grx_init_bouton(&button);
    button.type = GRX_BOU_TEXTE;
    button.fen_mere = n;
    ASSERT_EQ(grx_cree_bouton(&button), 0);
    const INT nobou = button.nobou;
    ASSERT_NE(grx_recup_objet_bout(nobou), nullptr);
    grx_detruit_fenetre(n);
    drain();
    EXPECT_EQ(grx_recup_objet_bout(nobou), nullptr) << "there is no widget any more";
    EXPECT_EQ(grx_recup_indice_objet_bout_libre(), nobou + 1) << "but the number is not given again";
    INT width = 7, height = 8;
    grx_recup_taille_bouton(nobou, &width, &height);
    EXPECT_EQ(width, 7);
    EXPECT_EQ(height, 8);
    grx_force_focus_sur_bouton(nobou);
    grx_detruit_bouton(nobou);
    EXPECT_EQ(grx_recup_indice_objet_bout_libre(), nobou) << "until it is destroyed";
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
