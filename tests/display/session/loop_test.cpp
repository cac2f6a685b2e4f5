// The digitizing loop: timers, close requests, the first redraw, keys sent again.
#include "tests/display/display/start_kit.h"
#include "tests/display/session/digitizer_kit.h"
#include "tests/support/window_kit.h"
#include "tests/support/bells.h"
#include "tests/support/controls.h"

#include "session/loop_state.h"

#include <X11/keysym.h>
#include <sys/resource.h>

#include <climits>
#include <thread>

namespace {

using namespace grxtest;

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

TEST(Record, TheRestrictingWindowIsKept) {
    EXPECT_EQ(grx_recup_fenetre_a_digitaliser(), -1);
    for (INT n : {7, 0, -5, INT_MAX}) {
        EXPECT_EQ(grx_affecte_fenetre_a_digitaliser(n), 0);
        EXPECT_EQ(grx_recup_fenetre_a_digitaliser(), n);
    }
}

// --- the loop -----------------------------------------------------------------------------------------------------

TEST_F(Digitizer, AnEmptyQueueIsType0WithoutWaiting) {
    for (auto* call : {grx_digitaliseur, grx_digitaliseur_fenetre}) {
        GRX_EVENEMENT event = patterned_event();
        evt_global = patterned_event();
        const auto start = Clock::now();
        EXPECT_EQ(call(&event, 0), 0);
        EXPECT_LT(Clock::now() - start, Milliseconds{1000});
        EXPECT_EQ(event.type_evenement, 0);
        EXPECT_EQ(event.bouton_appui.x, untouched) << "only the type is written";
        EXPECT_EQ(evt_global.bouton_appui.type_evenement, 0) << "the pending record is emptied first";
        EXPECT_EQ(evt_global.bouton_appui.nobou, -1);
        EXPECT_EQ(evt_global.bouton_appui.etat, 0);
        EXPECT_EQ(evt_global.bouton_appui.x, untouched);
    }
}

TEST_F(Digitizer, OneEventIsTakenAtATime) {
    pointer().click();
    arrive();
    GRX_EVENEMENT event{};
    EXPECT_EQ(grx_digitaliseur(&event, 0), 1);
    EXPECT_EQ(event.type_evenement, GRX_EVT_BOUTON_APPUI);
    EXPECT_EQ(std::memcmp(&event, &evt_global, sizeof event), 0) << "the whole record is copied";
    EXPECT_EQ(grx_digitaliseur(&event, 0), 1);
    EXPECT_EQ(event.type_evenement, GRX_EVT_BOUTON_RELACHE);
    EXPECT_EQ(grx_digitaliseur(&event, 0), 0);
    EXPECT_EQ(event.type_evenement, 0);
}

TEST_F(Digitizer, AnEventThatPostsNothingIsResult0) {
    keyboard().press(XK_Shift_L);
    keyboard().release(XK_Shift_L);
    arrive();
    GRX_EVENEMENT event = patterned_event();
    EXPECT_EQ(grx_digitaliseur(&event, 1), 0) << "waiting or not";
    EXPECT_EQ(event.type_evenement, 0);
    EXPECT_EQ(event.bouton_appui.nobou, -1) << "the record is copied all the same";
    settle();
}

TEST_F(Digitizer, WaitingReturnsWhenInputComes) {
    for (auto* call : {grx_digitaliseur, grx_digitaliseur_fenetre}) {
        const std::string name = server().name();
        std::thread user([&] {
            const InputConnection connection(name);
            Pointer(connection).click(2);
        });
        GRX_EVENEMENT event{};
        while (call(&event, 1) == 0 || event.type_evenement != GRX_EVT_BOUTON_APPUI) {
        }
        user.join();
        EXPECT_EQ(event.bouton_appui.bouton, 2);
        settle();
    }
}

double used_seconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& t) {
        return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_usec) * 1e-6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

TEST_F(Digitizer, WaitingUsesNoProcessor) {
    const std::string name = server().name();
    XtAppAddTimeOut(
        contexte, 300, [](XtPointer client, XtIntervalId*) { static_cast<Pointer*>(client)->click(); }, &pointer());
    const double before = used_seconds();
    GRX_EVENEMENT event{};
    while (grx_digitaliseur(&event, 1) == 0) {
    }
    EXPECT_LT(used_seconds() - before, 0.15);
    EXPECT_EQ(event.type_evenement, GRX_EVT_BOUTON_APPUI);
}

TEST_F(Digitizer, KeysAreRemembered) {
    for (auto* call : {grx_digitaliseur, grx_digitaliseur_fenetre}) {
        grx::Memo_event = {};
        keyboard().key(XK_k);
        arrive();
        GRX_EVENEMENT event{};
        EXPECT_TRUE(wait_until([&] { return call(&event, 0) == 1; }, [] {}));
        EXPECT_EQ(event.carac_appui.carac, 'k');
        EXPECT_EQ(grx::Memo_event.type, KeyPress);
        EXPECT_EQ(grx::Memo_event.xkey.keycode, XKeysymToKeycode(x11_disp, XK_k));
        EXPECT_EQ(grx::Memo_event.xkey.window, x_window(window_));
        EXPECT_EQ(grx::Memo_event.xkey.x, 100);
        settle();
    }
}

// --- timers -------------------------------------------------------------------------------------------------------

void count_timer(XtPointer client, XtIntervalId*) {
    ++*static_cast<int*>(client);
}

void post_by_timer(XtPointer client, XtIntervalId*) {
    evt_global.exec_fonction.type_evenement = GRX_EVT_ECHELLE;
    evt_global.exec_fonction.nofen = *static_cast<INT*>(client);
}

TEST_F(Digitizer, TimersLiveWhilePolling) {
    int fired = 0;
    XtAppAddTimeOut(contexte, 1, count_timer, &fired);
    GRX_EVENEMENT event{};
    const auto poll = [&] { grx_digitaliseur(&event, 0); };
    EXPECT_TRUE(wait_until([&] { return fired == 1; }, poll));
    XtAppAddTimeOut(contexte, 1, count_timer, &fired);
    const auto poll_restricted = [&] { grx_digitaliseur_fenetre(&event, 0); };
    EXPECT_TRUE(wait_until([&] { return fired == 2; }, poll_restricted));
}

TEST_F(Digitizer, WhatATimerPostsIsDelivered) {
    INT number = 7;
    XtAppAddTimeOut(contexte, 1, post_by_timer, &number);
    GRX_EVENEMENT event{};
    EXPECT_TRUE(wait_until([&] { return grx_digitaliseur(&event, 0) == 1; }, [] {}));
    EXPECT_EQ(event.exec_fonction.type_evenement, GRX_EVT_ECHELLE);
    EXPECT_EQ(event.exec_fonction.nofen, 7);
    EXPECT_EQ(grx_digitaliseur(&event, 0), 0) << "once";
}

TEST_F(Digitizer, ATimerThatIsNotDueDoesNotHoldUp) {
    int fired = 0;
    const XtIntervalId timer = XtAppAddTimeOut(contexte, 20000, count_timer, &fired);
    GRX_EVENEMENT event{};
    const auto start = Clock::now();
    EXPECT_EQ(grx_digitaliseur(&event, 0), 0);
    EXPECT_LT(Clock::now() - start, Milliseconds{1000});
    EXPECT_EQ(fired, 0);
    XtRemoveTimeOut(timer);
}

// --- close requests -----------------------------------------------------------------------------------------------

TEST_F(Digitizer, ACloseRequestOfAWindowOfA3DRendererIsOnlyTold) {
    for (const bool child : {false, true}) {
        GRX_FENETRE description = described(GRX_FEN_GRAPHIQUE);
        if (child) description.fen_mere = window_;
        const INT n = make(description);
        ASSERT_TRUE(wait_visible(widget_of(n)));
        settle();
        record_of(n).fen_opengl = 1;
        ask_to_close(test_display(), XtWindow(shell_of(n)));
        arrive();
        GRX_EVENEMENT event{};
        EXPECT_EQ(grx_digitaliseur(&event, 0), 1);
        EXPECT_EQ(event.destruction.type_evenement, GRX_EVT_DESTRUCTION);
        EXPECT_EQ(event.destruction.nofen, n);
        EXPECT_EQ(evt_global.destruction.type_evenement, GRX_EVT_DESTRUCTION);
        EXPECT_EQ(evt_global.destruction.nofen, n);
        drain();
        ASSERT_NE(widget_of(n), nullptr) << "the request is not dispatched";
        EXPECT_TRUE(visible(x_window(n)));
        EXPECT_EQ(events.count(GRX_EVT_DESTRUCTION), 0);
        record_of(n).fen_opengl = 0;
        ask_to_close(test_display(), XtWindow(shell_of(n)));
        EXPECT_TRUE(events.wait(GRX_EVT_DESTRUCTION));
        EXPECT_EQ(widget_of(n), nullptr);
        settle();
    }
}

void tell(Display* display, Window window, const char* type, long value) {
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(display, type, False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = value;
    XSendEvent(display, window, False, NoEventMask, &event);
    XSync(display, False);
}

TEST_F(Digitizer, OtherClientMessagesAreNoCloseRequests) {
    record_of(window_).fen_opengl = 1;
    const INT other = shown(GRX_FEN_ALPHA, 700);
    grx_affecte_fenetre_a_digitaliser(other);
    Bells bells(test_display());
    tell(test_display(), XtWindow(shell_of(window_)), "_MOTIF_WM_MESSAGES", 1);
    tell(test_display(), XtWindow(shell_of(window_)), "WM_PROTOCOLS",
        static_cast<long>(XInternAtom(test_display(), "WM_TAKE_FOCUS", False)));
    drain();
    tell(test_display(), XtWindow(shell_of(window_)), "_MOTIF_WM_MESSAGES", 1);
    arrive();
    GRX_EVENEMENT event{};
    while (XEventsQueued(x11_disp, QueuedAfterReading) > 0) grx_digitaliseur_fenetre(&event, 0);
    EXPECT_EQ(events.count(GRX_EVT_DESTRUCTION), 0) << events.describe();
    EXPECT_NE(widget_of(window_), nullptr);
    EXPECT_EQ(bells.rung().size(), 0U);
}

class Restricted : public Digitizer {
  protected:
    // Results of the restricted loop until nothing is pending.
    std::vector<INT> results() {
        std::vector<INT> all;
        arrive();
        while (XEventsQueued(x11_disp, QueuedAfterReading) > 0) {
            last_ = patterned_event();
            all.push_back(grx_digitaliseur_fenetre(&last_, 0));
            arrive();
        }
        return all;
    }

    GRX_EVENEMENT last_{};
};

TEST_F(Restricted, TheCloseRequestOfAnotherWindowIsDroppedWithABeep) {
    const INT other = shown(GRX_FEN_ALPHA, 700);
    grx_affecte_fenetre_a_digitaliser(window_);
    Bells bells(test_display());
    ask_to_close(test_display(), XtWindow(shell_of(other)));
    EXPECT_EQ(results(), (std::vector<INT>{0}));
    EXPECT_EQ(last_.type_evenement, 0);
    EXPECT_EQ(bells.rung(), (std::vector<int>{bells.volume(20)}));
    ASSERT_NE(widget_of(other), nullptr);
    EXPECT_TRUE(visible(x_window(other)));
}

TEST_F(Restricted, ItsOwnCloseRequestIsTaken) {
    const INT other = shown(GRX_FEN_ALPHA, 700);
    grx_affecte_fenetre_a_digitaliser(window_);
    Bells bells(test_display());
    ask_to_close(test_display(), XtWindow(shell_of(window_)));
    arrive();
    EXPECT_EQ(grx_digitaliseur_fenetre(&last_, 0), 1);
    EXPECT_EQ(last_.destruction.type_evenement, GRX_EVT_DESTRUCTION);
    EXPECT_EQ(last_.destruction.nofen, window_);
    EXPECT_EQ(widget_of(window_), nullptr);
    EXPECT_NE(widget_of(other), nullptr);
    EXPECT_EQ(bells.rung().size(), 0U);
}

TEST_F(Restricted, OtherEventsOfOtherWindowsPass) {
    const INT other = shown(GRX_FEN_ALPHA, 700);
    grx_affecte_fenetre_a_digitaliser(window_);
    pointer().click();
    arrive();
    EXPECT_EQ(grx_digitaliseur_fenetre(&last_, 0), 1);
    EXPECT_EQ(last_.bouton_appui.type_evenement, GRX_EVT_BOUTON_APPUI);
    EXPECT_EQ(last_.bouton_appui.nofen, other);
}

TEST_F(Restricted, WithoutARestrictionEveryCloseRequestIsTaken) {
    ASSERT_EQ(grx_recup_fenetre_a_digitaliser(), -1);
    const INT other = shown(GRX_FEN_ALPHA, 700);
    Bells bells(test_display());
    ask_to_close(test_display(), XtWindow(shell_of(other)));
    arrive();
    EXPECT_EQ(grx_digitaliseur_fenetre(&last_, 0), 1);
    EXPECT_EQ(last_.destruction.nofen, other);
    EXPECT_EQ(bells.rung().size(), 0U);
}

TEST_F(Restricted, AWindowThatIsGoneRestrictsNothing) {
    for (INT n : {50, 0, 100, INT_MAX, INT_MIN}) {
        const INT other = shown(GRX_FEN_ALPHA, 700);
        grx_affecte_fenetre_a_digitaliser(n);
        ask_to_close(test_display(), XtWindow(shell_of(other)));
        arrive();
        EXPECT_EQ(grx_digitaliseur_fenetre(&last_, 0), 1) << n;
        EXPECT_EQ(last_.destruction.nofen, other);
        settle();
    }
}

TEST_F(Restricted, A3DRenderersWindowIsClosedLikeAnyOther) {
    const INT n = shown(GRX_FEN_GRAPHIQUE, 700);
    record_of(n).fen_opengl = 1;
    grx_affecte_fenetre_a_digitaliser(n);
    ask_to_close(test_display(), XtWindow(shell_of(n)));
    arrive();
    EXPECT_EQ(grx_digitaliseur_fenetre(&last_, 0), 1);
    EXPECT_EQ(last_.destruction.type_evenement, GRX_EVT_DESTRUCTION);
    EXPECT_EQ(widget_of(n), nullptr);
}

TEST_F(Restricted, ANestedWindowStandsForItsShell) {
    const INT nested = make(nested_in(window_, GRX_FEN_ALPHA));
    const INT other = shown(GRX_FEN_ALPHA, 700);
    grx_affecte_fenetre_a_digitaliser(nested);
    Bells bells(test_display());
    ask_to_close(test_display(), XtWindow(shell_of(other)));
    EXPECT_EQ(results(), (std::vector<INT>{0}));
    EXPECT_EQ(bells.rung().size(), 1U);
    ask_to_close(test_display(), XtWindow(shell_of(window_)));
    arrive();
    EXPECT_EQ(grx_digitaliseur_fenetre(&last_, 0), 1);
    EXPECT_EQ(widget_of(window_), nullptr);
}

TEST_F(Digitizer, ThePlainLoopKnowsNoRestriction) {
    const INT other = shown(GRX_FEN_ALPHA, 700);
    grx_affecte_fenetre_a_digitaliser(window_);
    Bells bells(test_display());
    ask_to_close(test_display(), XtWindow(shell_of(other)));
    const auto end = events.wait(GRX_EVT_DESTRUCTION);
    ASSERT_TRUE(end);
    EXPECT_EQ(end->destruction.nofen, other);
    EXPECT_EQ(bells.rung().size(), 0U);
}

// --- the pointer, the first redraw ------------------------------------------------------------------------------------

TEST_F(Digitizer, ThePointersPlaceOnTheScreen) {
    for (const Point& at : {Point{0, 0}, Point{640, 300}, Point{1279, 1023}}) {
        pointer().move(at.x, at.y);
        INT x = -1, y = -1;
        EXPECT_EQ(grx_recup_position_absolue_souris(&x, &y), 1024);
        EXPECT_EQ(x, at.x);
        EXPECT_EQ(y, 1024 - at.y) << "from the bottom edge";
    }
    EXPECT_EQ(grx_recup_position_absolue_souris(nullptr, nullptr), 1024);
}

TEST_F(Digitizer, TheFirstRedrawIsWaitedFor) {
    for (INT kind : all_kinds) {
        const INT n = make(kind);
        ASSERT_EQ(record_of(n).affiche, 0);
        EXPECT_EQ(grx_attend_creation_fenetre(n), 0);
        EXPECT_EQ(record_of(n).affiche, 1) << kind;
        EXPECT_TRUE(visible(x_window(n)));
        grx_detruit_fenetre(n);
        settle();
    }
}

TEST_F(Digitizer, AWindowThatIsNotShownIsWaitedForOneSecond) {
    const INT hidden = make(GRX_FEN_ALPHA, 0);
    settle();
    for (INT n : {hidden, 50, -1}) {
        const auto start = Clock::now();
        EXPECT_EQ(grx_attend_creation_fenetre(n), 0);
        EXPECT_GE(Clock::now() - start, Milliseconds{990}) << n;
        EXPECT_LT(Clock::now() - start, Milliseconds{4000}) << n;
    }
}

TEST_F(Digitizer, TheRedrawOfAnotherWindowDoesNotEndTheWait) {
    const INT hidden = make(GRX_FEN_ALPHA, 0);
    make(GRX_FEN_ALPHA);
    const auto start = Clock::now();
    grx_attend_creation_fenetre(hidden);
    EXPECT_GE(Clock::now() - start, Milliseconds{990});
}

// --- re-sending a key ---------------------------------------------------------------------------------------------------

class Resending : public Digitizer {
  protected:
    INT field(INT y) {
        GRX_BOUTON button = button_at(GRX_BOU_TEXTE, window_, {10, y, -1, -1});
        button.tabi[0] = 10;
        EXPECT_EQ(grx_cree_bouton(&button), 0);
        EXPECT_TRUE(wait_visible(grx_recup_objet_bout(button.nobou)));
        return button.nobou;
    }

    static std::string text(INT nobou) {
        const std::unique_ptr<char, void (*)(char*)> value(XmTextFieldGetString(grx_recup_objet_bout(nobou)), XtFree);
        return value.get();
    }

    // The library remembers the key as pressed in the window itself.
    void press_in_window(KeySym symbol) {
        keyboard().key(symbol);
        settle();
        grx::Memo_event.xkey.window = x_window(window_);
    }
};

TEST_F(Resending, TheLastKeyGoesToTheButtonAndTheFocusWithIt) {
    pointer().move_in(widget_of(window_), 300, 200);
    settle();
    press_in_window(XK_k);
    const INT first = field(10), second = field(60);
    settle();
    EXPECT_EQ(grx_envoie_dernier_evenement_a_bouton(second), 0);
    EXPECT_TRUE(wait_for([&] { return text(second) == "k"; })) << text(second);
    EXPECT_EQ(XmGetFocusWidget(widget_of(window_)), grx_recup_objet_bout(second));
    EXPECT_EQ(text(first), "");
    EXPECT_EQ(grx::Memo_event.xkey.window, XtWindow(grx_recup_objet_bout(second)));
    drain();
    keyboard().key(XK_m);
    EXPECT_TRUE(wait_for([&] { return text(second) == "km"; })) << "typing goes on there: " << text(second);
}

TEST_F(Resending, AKeyIsNotSentBackToWhereItCameFrom) {
    const INT only = field(10);
    press_in_window(XK_k);
    grx::Memo_event.xkey.window = XtWindow(grx_recup_objet_bout(only));
    const std::string before = text(only);
    grx_envoie_dernier_evenement_a_bouton(only);
    drain();
    EXPECT_EQ(text(only), before);
}

TEST_F(Resending, UnknownButtonsGetNothing) {
    press_in_window(XK_k);
    const XEvent before = grx::Memo_event;
    for (INT n : {0, 5, -1, 999, 1000, INT_MAX, INT_MIN}) EXPECT_EQ(grx_envoie_dernier_evenement_a_bouton(n), 0);
    EXPECT_EQ(std::memcmp(&before, &grx::Memo_event, sizeof(XKeyEvent)), 0);
}

// --- before the display is open -----------------------------------------------------------------------------------------

TEST(NoDisplayForTheLoop, AnswersNothing) {
    GRX_EVENEMENT event = patterned_event();
    EXPECT_EQ(grx_digitaliseur(&event, 0), 0);
    EXPECT_EQ(event.type_evenement, 0);
    EXPECT_EQ(grx_digitaliseur(&event, 1), 0);
    EXPECT_EQ(grx_digitaliseur_fenetre(&event, 1), 0);
    INT x = 5, y = 6;
    EXPECT_EQ(grx_recup_position_absolue_souris(&x, &y), 0);
    EXPECT_EQ(grx_init_double_clic(), 0);
    EXPECT_EQ(grx_envoie_dernier_evenement_a_bouton(0), 0);
}

} // namespace
