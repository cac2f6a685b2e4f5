// The digitizing loop with a time limit.
#include "tests/display/session/waiting_kit.h"

#include <X11/keysym.h>

#include <atomic>
#include <thread>

namespace {

using namespace grxtest;

constexpr double slack = 60; // milliseconds: the machine may be busy

TEST_F(WaitingTest, TheLimitEndsTheWait) {
    for (auto* call : {grx_digitaliseur_delai, grx_digitaliseur_fenetre_delai}) {
        for (const INT limit : {1, 20, 150}) {
            GRX_EVENEMENT event = patterned_event();
            const auto start = Clock::now();
            EXPECT_EQ(call(&event, limit), 0);
            EXPECT_GE(since(start), limit);
            EXPECT_LT(since(start), limit + slack);
            EXPECT_EQ(event.type_evenement, 0);
        }
    }
}

TEST_F(WaitingTest, WithoutATimeItHandlesWhatWaits) {
    press();
    EXPECT_EQ(within(0), 1);
    EXPECT_EQ(got_.type_evenement, GRX_EVT_BOUTON_APPUI);
    EXPECT_EQ(within(0), 1);
    EXPECT_EQ(got_.type_evenement, GRX_EVT_BOUTON_RELACHE);
    const auto start = Clock::now();
    EXPECT_EQ(within(0), 0);
    EXPECT_LT(since(start), slack);
}

TEST_F(WaitingTest, EventsThatPostNothingAreHandledWithinOneCall) {
    for (int i = 0; i < 20; ++i) keyboard().key(XK_Shift_L);
    press();
    EXPECT_EQ(within(0), 1);
    EXPECT_EQ(got_.type_evenement, GRX_EVT_BOUTON_APPUI);
    EXPECT_EQ(grx_digitaliseur_delai(nullptr, 0), 1) << "the release, lost";
    EXPECT_EQ(within(10), 0);
}

TEST_F(WaitingTest, ManyEventsThatPostNothingDoNotProlongIt) {
    const std::string name = server().name();
    std::atomic<bool> enough = false;
    std::thread user([&] {
        const InputConnection connection(name);
        Keyboard keys(connection);
        while (!enough) keys.key(XK_Shift_L);
    });
    const auto start = Clock::now();
    EXPECT_EQ(within(200), 0);
    const double took = since(start);
    enough = true;
    user.join();
    EXPECT_GE(took, 200);
    EXPECT_LT(took, 200 + slack);
    settle();
}

TEST_F(WaitingTest, NegativeWaitsUntilThereIsARecord) {
    const std::string name = server().name();
    for (const INT limit : {-1, INT_MIN}) {
        std::thread user([&] {
            const InputConnection connection(name);
            Keyboard(connection).key(XK_Shift_L); // posts nothing
            Pointer(connection).click(2);
        });
        EXPECT_EQ(within(limit), 1);
        user.join();
        EXPECT_EQ(got_.bouton_appui.bouton, 2);
        settle();
    }
}

TEST_F(WaitingTest, ARecordEndsALongWait) {
    XtAppAddTimeOut(
        contexte, 30, [](XtPointer client, XtIntervalId*) { static_cast<Pointer*>(client)->click(3); }, &pointer());
    const auto start = Clock::now();
    EXPECT_EQ(within(INT_MAX), 1);
    EXPECT_LT(since(start), 5000);
    EXPECT_EQ(got_.bouton_appui.bouton, 3);
    settle();
    EXPECT_EQ(within(30), 0) << "the long limit is forgotten";
}

TEST_F(WaitingTest, TheApplicationsOwnTimersAndInputsRunMeanwhile) {
    static int timer_runs = 0, input_runs = 0;
    timer_runs = input_runs = 0;
    Pipe pipe;
    pipe.put();
    const XtInputId input = XtAppAddInput(
        contexte, pipe.reading(), reinterpret_cast<XtPointer>(XtInputReadMask),
        [](XtPointer client, int*, XtInputId*) {
            ++input_runs;
            static_cast<Pipe*>(client)->take();
        },
        &pipe);
    XtAppAddTimeOut(
        contexte, 10, [](XtPointer, XtIntervalId*) { ++timer_runs; }, nullptr);
    EXPECT_EQ(within(60), 0);
    EXPECT_EQ(timer_runs, 1);
    EXPECT_EQ(input_runs, 1);
    XtRemoveInput(input);
}

TEST_F(WaitingTest, AWaitInsideAWaitKeepsBothLimits) {
    static double inner = 0;
    XtAppAddTimeOut(
        contexte, 10,
        [](XtPointer, XtIntervalId*) {
            GRX_EVENEMENT event{};
            const auto start = Clock::now();
            EXPECT_EQ(grx_digitaliseur_delai(&event, 40), 0);
            inner = since(start);
        },
        nullptr);
    const auto start = Clock::now();
    EXPECT_EQ(within(120), 0);
    EXPECT_GE(inner, 40);
    EXPECT_LT(inner, 40 + slack);
    EXPECT_GE(since(start), 120);
    EXPECT_LT(since(start), 120 + slack);
}

TEST_F(WaitingTest, RecordsThatWaitOutliveFunctionsThatLoseEvents) {
    for (int i = 0; i < 3; ++i) EXPECT_EQ(grx_cree_minuterie(1, 1), i + 1);
    usleep(3000);
    GRX_EVENEMENT event{};
    EXPECT_EQ(grx_cherche_evenement(GRX_EVT_BOUTON_APPUI, &event, 0), 0);
    grx_flush_tous_evenements();
    grx_attend_creation_fenetre(98);
    EXPECT_EQ(grx_double_clic(GRX_DCLIC_MODE_APPUI, 0, 0, 1), GRX_DCLIC_DELAI);
    pointer().press();
    arrive();
    EXPECT_EQ(grx_cherche_evenement(GRX_EVT_BOUTON_APPUI, &event, 1), 1);
    pointer().release();
    for (INT number = 1; number <= 3; ++number) {
        ASSERT_EQ(within(1000), 1);
        EXPECT_TRUE(is(GRX_EVT_MINUTERIE, number)) << got_.type_evenement << " " << got_.exec_fonction.no_fo;
        EXPECT_GE(got_.exec_fonction.valeur, 200) << "a whole second and the time of a double click went by";
        EXPECT_EQ(grx_detruit_minuterie(number), 1);
    }
}

TEST_F(WaitingTest, TheRestrictedOneBeepsAndGoesOnWaiting) {
    const INT other = shown(GRX_FEN_ALPHA, 600);
    grx_affecte_fenetre_a_digitaliser(window_);
    XEvent request{};
    request.xclient.type = ClientMessage;
    request.xclient.display = x11_disp;
    request.xclient.window = XtWindow(shell_of(other));
    request.xclient.message_type = XInternAtom(x11_disp, "WM_PROTOCOLS", False);
    request.xclient.format = 32;
    request.xclient.data.l[0] = static_cast<long>(XInternAtom(x11_disp, "WM_DELETE_WINDOW", False));
    XSendEvent(x11_disp, request.xclient.window, False, 0, &request);
    arrive();
    const auto start = Clock::now();
    GRX_EVENEMENT event{};
    EXPECT_EQ(grx_digitaliseur_fenetre_delai(&event, 50), 0);
    EXPECT_GE(since(start), 50);
    EXPECT_NE(widget_of(other), nullptr);
}

TEST(LoopLimit, WithoutADisplayItSaysSo) {
    GRX_EVENEMENT event{};
    event.type_evenement = 7;
    EXPECT_EQ(grx_digitaliseur_delai(&event, 1000), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(event.type_evenement, 0);
    EXPECT_EQ(grx_digitaliseur_fenetre_delai(nullptr, -1), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_cree_minuterie(10, 0), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_surveille_descripteur(0, 1), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_cree_tache_oisive(), GRX_ECHEC_AFFICHAGE);
    EXPECT_EQ(grx_detruit_minuterie(1), GRX_ECHEC_NUMERO);
    EXPECT_EQ(grx_arrete_surveillance(1), GRX_ECHEC_NUMERO);
    EXPECT_EQ(grx_change_surveillance(1, 1), GRX_ECHEC_NUMERO);
    EXPECT_EQ(grx_detruit_tache_oisive(1), GRX_ECHEC_NUMERO);
}

} // namespace
