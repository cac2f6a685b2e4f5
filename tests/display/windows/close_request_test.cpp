// Asking before a window closes: by the window manager's request, in every loop, for every kind of window.
#include "tests/display/dialogs/file_dialog_kit.h"
#include "tests/display/session/digitizer_kit.h"
#include "tests/support/bells.h"
#include "tests/support/controls.h"

#include "grx_plus.h"

#include <X11/keysym.h>

#include <climits>

namespace {

using namespace grxtest;

class CloseRequest : public Digitizer {
  protected:
    void ask(INT nofen) { ask_to_close(test_display(), XtWindow(shell_of(nofen))); }

    std::vector<INT> asked_for() {
        drain();
        while (events.poll()) {
        }
        std::vector<INT> numbers;
        for (const GRX_EVENEMENT& e : events.seen())
            if (e.type_evenement == GRX_EVT_FERMETURE) numbers.push_back(e.destruction.nofen);
        events.clear();
        return numbers;
    }
    bool gone(INT nofen) { return grx_recup_objet_fen(nofen) == nullptr; }
};

using Numbers = std::vector<INT>;

TEST_F(CloseRequest, WindowsOfEveryKindStayAndAsk) {
    for (const INT kind : all_kinds) {
        for (const INT parent : {-1, window_}) {
            GRX_FENETRE description = described(kind);
            description.fen_mere = parent;
            const INT n = make(description);
            ASSERT_TRUE(wait_visible(widget_of(n))) << kind;
            settle();
            EXPECT_EQ(grx_recup_demande_fermeture(n), 0);
            ASSERT_EQ(grx_affecte_demande_fermeture(n, 1), 1);
            EXPECT_EQ(grx_recup_demande_fermeture(n), 1);
            for (int again = 0; again < 2; ++again) {
                ask(n);
                EXPECT_EQ(asked_for(), Numbers{n}) << kind << ", parent " << parent;
                EXPECT_TRUE(visible(XtWindow(shell_of(n))));
            }
            ASSERT_EQ(grx_affecte_demande_fermeture(n, 0), 1);
            EXPECT_EQ(grx_recup_demande_fermeture(n), 0);
            ask(n);
            EXPECT_TRUE(events.wait([n](const GRX_EVENEMENT& e) {
                return e.type_evenement == GRX_EVT_DESTRUCTION && e.destruction.nofen == n;
            })) << events.describe();
            EXPECT_TRUE(gone(n));
            settle();
        }
    }
}

TEST_F(CloseRequest, MainWindowsAsk) {
    write_menu("");
    const INT n = make(GRX_FEN_BOUTONS, GRX_FEN_ATT_VISIBLE | GRX_FEN_ATT_PRINCIPALE);
    ASSERT_TRUE(wait_visible(widget_of(n)));
    settle();
    ASSERT_EQ(grx_affecte_demande_fermeture(n, 7), 1);
    ask(n);
    EXPECT_EQ(asked_for(), Numbers{n});
    EXPECT_EQ(grx_detruit_fenetre(n), 0);
    EXPECT_EQ(grx_recup_demande_fermeture(n), GRX_ECHEC_NUMERO);
}

TEST_F(CloseRequest, ManyRequestsAreOneRecordWhileItWaits) {
    const INT other = shown(GRX_FEN_GRAPHIQUE, 600);
    for (const INT n : {window_, other}) ASSERT_EQ(grx_affecte_demande_fermeture(n, 1), 1);
    for (int i = 0; i < 5; ++i) {
        ask(window_);
        ask(other);
    }
    XEvent event;
    for (arrive(); XPending(x11_disp) > 0; XtDispatchEvent(&event)) XtAppNextEvent(contexte, &event);
    auto numbers = asked_for();
    std::ranges::sort(numbers);
    EXPECT_EQ(numbers, (Numbers{window_, other}));
}

TEST_F(CloseRequest, ARecordIsWithdrawnWithItsWindowAndWithTheSetting) {
    ASSERT_EQ(grx_affecte_demande_fermeture(window_, 1), 1);
    const INT other = shown(GRX_FEN_ALPHA, 600);
    ASSERT_EQ(grx_affecte_demande_fermeture(other, 1), 1);
    for (const INT n : {window_, other}) ask(n);
    XEvent event;
    for (arrive(); XPending(x11_disp) > 0; XtDispatchEvent(&event)) XtAppNextEvent(contexte, &event);
    grx_detruit_fenetre(window_);
    grx_affecte_demande_fermeture(other, 0);
    EXPECT_EQ(asked_for(), Numbers{});
}

TEST_F(CloseRequest, ALaterWindowOfTheNumberBeginsWithout) {
    ASSERT_EQ(grx_affecte_demande_fermeture(window_, 1), 1);
    grx_detruit_fenetre(window_);
    settle();
    ASSERT_EQ(shown(), window_);
    EXPECT_EQ(grx_recup_demande_fermeture(window_), 0);
    ask(window_);
    EXPECT_TRUE(events.wait(GRX_EVT_DESTRUCTION)) << events.describe();
}

TEST_F(CloseRequest, AWindowWhoseNumberWasFreedCloses) {
    ASSERT_EQ(grx_affecte_demande_fermeture(window_, 1), 1);
    const Window shell = XtWindow(shell_of(window_));
    ASSERT_EQ(grx_libere_indice_objet_fen(window_), 1);
    ask_to_close(test_display(), shell);
    EXPECT_TRUE(wait_for([&] { return !visible(shell); }));
    EXPECT_EQ(asked_for(), Numbers{});
}

TEST_F(CloseRequest, NumbersWithoutAShellOfTheirOwnAreRefused) {
    const INT nested = make(nested_in(window_, GRX_FEN_GRAPHIQUE));
    ASSERT_GT(nested, 0);
    ASSERT_EQ(grx_affecte_demande_fermeture(window_, 1), 1);
    EXPECT_EQ(grx_affecte_demande_fermeture(nested, 1), GRX_ECHEC_GENRE);
    EXPECT_EQ(grx_recup_demande_fermeture(nested), 0);
    for (const INT n : {INT_MIN, -2, -1, 0, nested + 1, MAXOBJETFEN - 1, MAXOBJETFEN, MAXOBJETFEN + 1, INT_MAX}) {
        for (const INT state : {0, 1, INT_MIN})
            EXPECT_EQ(grx_affecte_demande_fermeture(n, state), GRX_ECHEC_NUMERO) << n;
        EXPECT_EQ(grx_recup_demande_fermeture(n), GRX_ECHEC_NUMERO) << n;
    }
}

TEST_F(CloseRequest, OneWindowDigitizedDropsTheRequestsForOthersWithABeep) {
    const INT other = shown(GRX_FEN_ALPHA, 600);
    for (const INT n : {window_, other}) ASSERT_EQ(grx_affecte_demande_fermeture(n, 1), 1);
    grx_affecte_fenetre_a_digitaliser(window_);
    Bells bells(test_display());
    for (const INT n : {other, window_}) ask(n);
    arrive();
    Numbers told;
    GRX_EVENEMENT event{};
    while (XPending(x11_disp) > 0) {
        if (grx_digitaliseur_fenetre(&event, 0) == 1 && event.type_evenement == GRX_EVT_FERMETURE)
            told.push_back(event.destruction.nofen);
    }
    EXPECT_EQ(told, Numbers{window_});
    EXPECT_EQ(bells.rung().size(), 1U);
    EXPECT_FALSE(gone(other));
    EXPECT_EQ(asked_for(), Numbers{});
}

TEST_F(CloseRequest, TheFlagOfTheRecordGoesOn) {
    ASSERT_EQ(grx_affecte_demande_fermeture(window_, 1), 1);
    record_of(window_).fen_opengl = 1;
    ask(window_);
    const auto record = events.wait(GRX_EVT_DESTRUCTION);
    ASSERT_TRUE(record) << events.describe();
    EXPECT_EQ(record->destruction.nofen, window_);
    EXPECT_FALSE(gone(window_));
    EXPECT_EQ(asked_for(), Numbers{});
}

TEST_F(CloseRequest, WaitsOfTheLibraryLeaveTheRecord) {
    ASSERT_EQ(grx_affecte_demande_fermeture(window_, 1), 1);
    ask(window_);
    grx_double_clic(0, 10, 10, 1);
    const INT hidden = make(GRX_FEN_ALPHA, 0);
    grx_attend_creation_fenetre(hidden);
    EXPECT_EQ(asked_for(), Numbers{window_});
}

TEST_F(CloseRequest, FiveHundredRoundsLeaveNothing) {
    const NoLeak no_leak;
    for (int i = 0; i < 500; ++i) {
        ASSERT_EQ(grx_affecte_demande_fermeture(window_, 1), 1);
        ask(window_);
        ASSERT_EQ(asked_for(), Numbers{window_});
        ASSERT_EQ(grx_affecte_demande_fermeture(window_, 0), 1);
    }
    grx_detruit_fenetre(window_);
    settle();
}

TEST_F(CloseRequest, WithoutMemoryTheWindowStaysAndTheNextRequestIsTold) {
    ASSERT_EQ(grx_affecte_demande_fermeture(window_, 1), 1);
    heap().fail_from(1);
    ask(window_);
    EXPECT_EQ(asked_for(), Numbers{});
    heap().fail_never();
    EXPECT_FALSE(gone(window_));
    ask(window_);
    EXPECT_EQ(asked_for(), Numbers{window_});
}

TEST_F(CloseRequest, AWindowThatDoesNotAskCostsTheLoopNothingMore) {
    const INT other = shown(GRX_FEN_ALPHA, 600);
    const auto cost_of_a_poll = [&] {
        Cost cost(x11_disp);
        GRX_EVENEMENT event{};
        grx_digitaliseur(&event, 0);
        return std::pair(cost.requests(), cost.round_trips());
    };
    const auto before = cost_of_a_poll();
    ASSERT_EQ(grx_affecte_demande_fermeture(other, 1), 1);
    settle();
    EXPECT_EQ(cost_of_a_poll(), before);
}

TEST(CloseRequestEarly, NumbersAreRefusedBeforeTheStart) {
    for (const INT n : {-1, 0, 1, INT_MAX}) {
        EXPECT_EQ(grx_affecte_demande_fermeture(n, 1), GRX_ECHEC_NUMERO);
        EXPECT_EQ(grx_recup_demande_fermeture(n), GRX_ECHEC_NUMERO);
    }
}

// --- while a dialog has the loop

class CloseRequestInDialog : public FileDialogs<DisplayTest> {};

TEST_F(CloseRequestInDialog, TheDialogStaysAndTheRecordComesAfterIt) {
    ASSERT_EQ(grx_affecte_demande_fermeture(main_, 1), 1);
    when_open("the user closes the main window", [&] { ask_to_close(test_display(), XtWindow(shell_of(main_))); });
    when_open("it is still there", [&] { cancel(); });
    EXPECT_EQ(choose({}).result, 0);
    EXPECT_NE(grx_recup_objet_fen(main_), nullptr);
    const auto record = events.wait(GRX_EVT_FERMETURE);
    ASSERT_TRUE(record) << events.describe();
    EXPECT_EQ(record->destruction.nofen, main_);
}

// --- by window managers

template <WindowManager::Kind kind>
class Managed : public WmTest {
  protected:
    WindowManager::Kind manager_kind() const override { return kind; }

    void SetUp() override {
        WmTest::SetUp();
        window_ = make(GRX_FEN_ALPHA);
        ASSERT_TRUE(wait_visible(widget_of(window_)));
        ASSERT_TRUE(wait_for([&] { return frame(shell_of(window_)) != None; }));
        settle();
        pointer().click_in(widget_of(window_), 20, 20);
        settle();
        ASSERT_EQ(grx_affecte_demande_fermeture(window_, 1), 1);
    }

    void expect_request() {
        const auto record = events.wait(GRX_EVT_FERMETURE);
        ASSERT_TRUE(record) << events.describe();
        EXPECT_EQ(record->destruction.nofen, window_);
        EXPECT_TRUE(visible(XtWindow(shell_of(window_))));
    }

    long viewable() {
        return std::ranges::count_if(children_of(test_display(), DefaultRootWindow(test_display())),
            [this](Window window) { return visible(window); });
    }

    // Opens the manager's menu and waits until it is there.
    void choose_close(KeySym key, unsigned modifiers) {
        const long before = viewable();
        keyboard().key(key, modifiers);
        ASSERT_TRUE(wait_for([&] { return viewable() > before; }));
        keyboard().key(XK_c);
        expect_request();
    }

    INT window_ = 0;
};

class MwmCloseWmTest : public Managed<WindowManager::Kind::mwm> {};
class OpenboxCloseWmTest : public Managed<WindowManager::Kind::openbox> {};

TEST_F(MwmCloseWmTest, ByKey) {
    keyboard().key(XK_F4, Mod1Mask);
    expect_request();
}

TEST_F(MwmCloseWmTest, ByMenu) {
    choose_close(XK_Escape, ShiftMask);
}

TEST_F(OpenboxCloseWmTest, ByKey) {
    keyboard().key(XK_F4, Mod1Mask);
    expect_request();
    grx_affecte_demande_fermeture(window_, 0);
    keyboard().key(XK_F4, Mod1Mask);
    EXPECT_TRUE(events.wait(GRX_EVT_DESTRUCTION)) << events.describe();
}

TEST_F(OpenboxCloseWmTest, ByMenu) {
    choose_close(XK_space, Mod1Mask);
}

} // namespace
