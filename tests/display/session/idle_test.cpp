// Idle work of the application.
#include "tests/display/session/waiting_kit.h"

namespace {

using namespace grxtest;

using IdleTest = WaitingTest;

TEST_F(IdleTest, ItGoesOnWhenNothingElseWaits) {
    const INT work = grx_cree_tache_oisive();
    EXPECT_EQ(work, 1);
    for (auto* call : {grx_digitaliseur, grx_digitaliseur_fenetre}) {
        for (const INT waits : {0, 1, 1, 0}) {
            while (call(&got_, waits) == 0) {
            }
            EXPECT_TRUE(is(GRX_EVT_OISIF, work));
            EXPECT_EQ(got_.exec_fonction.valeur, 0);
        }
    }
    EXPECT_EQ(within(0), 1);
    EXPECT_EQ(within(1000), 1);
    EXPECT_EQ(grx_detruit_tache_oisive(work), 1);
    EXPECT_EQ(within(10), 0);
}

TEST_F(IdleTest, TheUserAndTimersGoFirst) {
    const INT work = grx_cree_tache_oisive();
    Pipe pipe;
    pipe.put();
    const INT watch = grx_surveille_descripteur(pipe.reading(), GRX_DESCRIPTEUR_LECTURE);
    const INT timer = grx_cree_minuterie(0, 0);
    press();
    int presses = 0, timers = 0, watches = 0;
    while (within(1000) == 1 && !is(GRX_EVT_OISIF, work)) {
        if (is(GRX_EVT_MINUTERIE, timer)) ++timers;
        if (got_.type_evenement == GRX_EVT_BOUTON_APPUI || got_.type_evenement == GRX_EVT_BOUTON_RELACHE) ++presses;
        if (is(GRX_EVT_DESCRIPTEUR, watch)) {
            ++watches;
            pipe.take();
        }
    }
    EXPECT_EQ(presses, 2);
    EXPECT_EQ(timers, 1);
    EXPECT_EQ(watches, 1);
    press();
    ASSERT_EQ(within(1000), 1);
    EXPECT_EQ(got_.type_evenement, GRX_EVT_BOUTON_APPUI) << "whatever was idle before";
    settle();
}

TEST_F(IdleTest, SeveralTakeTurns) {
    for (INT number = 1; number <= 5; ++number) EXPECT_EQ(grx_cree_tache_oisive(), number);
    EXPECT_EQ(grx_detruit_tache_oisive(2), 1);
    EXPECT_EQ(grx_detruit_tache_oisive(4), 1);
    std::vector<int> turns(6);
    for (int i = 0; i < 300; ++i) {
        ASSERT_EQ(within(1000), 1);
        ++turns[static_cast<std::size_t>(got_.exec_fonction.no_fo)];
    }
    EXPECT_EQ(turns, (std::vector<int>{0, 100, 0, 100, 0, 100}));
    EXPECT_EQ(grx_cree_tache_oisive(), 2);
}

TEST_F(IdleTest, WhatTheApplicationHasInTheContextGoesOn) {
    static int timers = 0, procedures = 0, inputs = 0;
    timers = procedures = inputs = 0;
    Pipe pipe;
    pipe.put();
    const XtInputId input = XtAppAddInput(
        contexte, pipe.reading(), reinterpret_cast<XtPointer>(XtInputReadMask),
        [](XtPointer client, int*, XtInputId*) {
            ++inputs;
            static_cast<Pipe*>(client)->take();
        },
        &pipe);
    XtAppAddTimeOut(
        contexte, 1, [](XtPointer, XtIntervalId*) { ++timers; }, nullptr);
    XtAppAddWorkProc(
        contexte, [](XtPointer) -> Boolean { return ++procedures == 3; }, nullptr);
    grx_cree_tache_oisive();
    const auto start = Clock::now();
    while ((timers < 1 || procedures < 3 || inputs < 1) && since(start) < 10'000) {
        ASSERT_EQ(within(1000), 1);
        ASSERT_EQ(got_.type_evenement, GRX_EVT_OISIF);
    }
    EXPECT_EQ(timers, 1);
    EXPECT_EQ(procedures, 3);
    EXPECT_EQ(inputs, 1);
    XtRemoveInput(input);
}

TEST_F(IdleTest, FunctionsThatLoseEventsHaveNoneOfIt) {
    const INT work = grx_cree_tache_oisive();
    EXPECT_EQ(grx_double_clic(GRX_DCLIC_MODE_APPUI, 0, 0, 1), GRX_DCLIC_DELAI);
    grx_flush_tous_evenements();
    GRX_EVENEMENT event{};
    EXPECT_EQ(grx_cherche_evenement(GRX_EVT_BOUTON_APPUI, &event, 0), 0);
    ASSERT_EQ(within(0), 1);
    EXPECT_TRUE(is(GRX_EVT_OISIF, work));
}

TEST_F(IdleTest, BadNumbersAndShortMemoryAreSaid) {
    EXPECT_GT(fail_each_allocation([] {
        const INT work = grx_cree_tache_oisive();
        EXPECT_TRUE(work == GRX_ECHEC_MEMOIRE || work == 1) << work;
        if (work > 0) EXPECT_EQ(grx_detruit_tache_oisive(work), 1);
    }),
        0);
    for (const INT number : numbers_of_nothing) EXPECT_EQ(grx_detruit_tache_oisive(number), GRX_ECHEC_NUMERO);
    const NoLeak no_leak;
    for (int round = 0; round < 500; ++round) {
        const INT work = grx_cree_tache_oisive();
        ASSERT_EQ(work, 1);
        ASSERT_EQ(within(1000), 1);
        ASSERT_EQ(grx_detruit_tache_oisive(work), 1);
    }
}

} // namespace
