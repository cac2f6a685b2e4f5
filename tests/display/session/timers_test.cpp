// Timers of the application.
#include "tests/display/session/waiting_kit.h"

#include <X11/keysym.h>

#include "session/nested_loop.h"

namespace {

using namespace grxtest;

using TimersTest = WaitingTest;

TEST_F(TimersTest, OneIsDueOnce) {
    const auto start = Clock::now();
    const INT timer = grx_cree_minuterie(40, 0);
    EXPECT_EQ(timer, 1);
    GRX_EVENEMENT event{};
    while (grx_digitaliseur(&event, 1) == 0) {
    }
    EXPECT_GE(since(start), 40);
    EXPECT_LT(since(start), 100);
    got_ = event;
    EXPECT_TRUE(is(GRX_EVT_MINUTERIE, timer));
    EXPECT_EQ(got_.exec_fonction.valeur, 1);
    EXPECT_EQ(within(100), 0);
    EXPECT_EQ(grx_detruit_minuterie(timer), GRX_ECHEC_NUMERO) << "its number is free";
    EXPECT_EQ(grx_cree_minuterie(0, 0), timer);
    EXPECT_EQ(grx_digitaliseur_fenetre(&event, 0), 1) << "due at once, and for those who poll";
}

TEST_F(TimersTest, OneThatRepeatsDoesNotDrift) {
    const auto start = Clock::now();
    const INT timer = grx_cree_minuterie(20, 1);
    INT periods = 0;
    while (periods < 10) {
        ASSERT_EQ(within(1000), 1);
        ASSERT_TRUE(is(GRX_EVT_MINUTERIE, timer));
        periods += got_.exec_fonction.valeur;
        EXPECT_GE(since(start), periods * 20);
        usleep(7000); // the application works on it
    }
    EXPECT_LT(since(start), periods * 20 + 60);
}

TEST_F(TimersTest, PeriodsMissedComeInOneRecord) {
    const INT timer = grx_cree_minuterie(5, 1);
    usleep(52'000);
    ASSERT_EQ(within(0), 1);
    ASSERT_TRUE(is(GRX_EVT_MINUTERIE, timer));
    EXPECT_GE(got_.exec_fonction.valeur, 10);
    EXPECT_EQ(grx_detruit_minuterie(timer), 1);
    EXPECT_EQ(within(20), 0) << "no burst, and nothing of one that was stopped";
}

TEST_F(TimersTest, TheRecordOfOneThatWasStoppedNeverComes) {
    const INT first = grx_cree_minuterie(0, 0), second = grx_cree_minuterie(0, 0);
    grx_flush_tous_evenements();
    evt_global = GRX_EVENEMENT{};
    usleep(1000);
    XEvent event{};
    XSendEvent(x11_disp, x_window(window_), False, 0, &event); // so that the flush lets timers post
    arrive();
    grx_flush_tous_evenements();
    EXPECT_EQ(grx_detruit_minuterie(first), 1);
    EXPECT_EQ(grx_cree_minuterie(60'000, 0), first) << "the same number means another now";
    ASSERT_EQ(within(100), 1);
    EXPECT_TRUE(is(GRX_EVT_MINUTERIE, second));
    EXPECT_EQ(within(20), 0);
}

TEST_F(TimersTest, NumbersAreGivenLowestFirst) {
    for (INT number = 1; number <= 300; ++number) ASSERT_EQ(grx_cree_minuterie(60'000, number % 2), number);
    for (const INT number : {250, 3, 77}) EXPECT_EQ(grx_detruit_minuterie(number), 1);
    for (const INT number : {3, 77, 250, 301}) EXPECT_EQ(grx_cree_minuterie(60'000, 0), number);
    for (INT number = 1; number <= 301; ++number) EXPECT_EQ(grx_detruit_minuterie(number), 1);
    EXPECT_EQ(grx_cree_minuterie(60'000, 0), 1);
}

TEST_F(TimersTest, HundredsAreAllTold) {
    std::vector<int> told(401);
    for (INT number = 1; number <= 400; ++number) ASSERT_EQ(grx_cree_minuterie(number % 40, 0), number);
    for (int i = 0; i < 400; ++i) {
        ASSERT_EQ(within(2000), 1);
        ASSERT_EQ(got_.type_evenement, GRX_EVT_MINUTERIE);
        ++told[static_cast<std::size_t>(got_.exec_fonction.no_fo)];
    }
    EXPECT_EQ(within(60), 0);
    for (INT number = 1; number <= 400; ++number) EXPECT_EQ(told[static_cast<std::size_t>(number)], 1) << number;
}

TEST_F(TimersTest, AFastOneDoesNotKeepTheUserWaiting) {
    grx_cree_minuterie(1, 1);
    usleep(2000);
    for (int i = 0; i < 20; ++i) pointer().click();
    arrive();
    int clicks = 0, calls = 0;
    while (clicks < 40 && calls < 400) {
        ++calls;
        if (within(1000) == 1 && got_.type_evenement != GRX_EVT_MINUTERIE) ++clicks;
        usleep(1500); // longer than a period
    }
    EXPECT_EQ(clicks, 40);
    EXPECT_LE(calls, 100) << "an event of the user after each of the timer";
}

TEST_F(TimersTest, TheUserDoesNotKeepItWaiting) {
    for (int i = 0; i < 100; ++i) pointer().click();
    arrive();
    const INT timer = grx_cree_minuterie(0, 0);
    int before = 0;
    while (within(1000) == 1 && !is(GRX_EVT_MINUTERIE, timer)) ++before;
    EXPECT_LE(before, 2);
    settle();
}

TEST_F(TimersTest, WhileADialogWaitsRecordsWaitAndPeriodsCount) {
    const INT once = grx_cree_minuterie(5, 0), again = grx_cree_minuterie(5, 1);
    static bool over = false;
    over = false;
    XtAppAddTimeOut(
        contexte, 60, [](XtPointer, XtIntervalId*) { over = true; }, nullptr);
    const double before = used_milliseconds();
    grx::run_until([] { return over; });
    EXPECT_LT(used_milliseconds() - before, 30);
    ASSERT_EQ(within(0), 1);
    EXPECT_TRUE(is(GRX_EVT_MINUTERIE, once));
    ASSERT_EQ(within(0), 1);
    EXPECT_TRUE(is(GRX_EVT_MINUTERIE, again));
    EXPECT_GE(got_.exec_fonction.valeur, 11);
}

TEST_F(TimersTest, TheMainLoopGoesOnWithOneThatNobodyHears) {
    grx_cree_minuterie(1, 1);
    XtAppAddTimeOut(
        contexte, 60, [](XtPointer, XtIntervalId*) { XtAppSetExitFlag(contexte); }, nullptr);
    const double before = used_milliseconds();
    grx_gere_application();
    EXPECT_LT(used_milliseconds() - before, 30);
    ASSERT_EQ(within(0), 1);
    EXPECT_GE(got_.exec_fonction.valeur, 59);
}

TEST_F(TimersTest, WaitingForThemUsesNoProcessor) {
    for (int i = 0; i < 200; ++i) ASSERT_GT(grx_cree_minuterie(3'600'000 + i, 1), 0);
    const double before = used_milliseconds();
    EXPECT_EQ(within(300), 0);
    EXPECT_LT(used_milliseconds() - before, 20);
}

TEST_F(TimersTest, BadTimesAndNumbersAreRefused) {
    for (const INT time : {-1, INT_MIN}) {
        EXPECT_EQ(grx_cree_minuterie(time, 0), GRX_ECHEC_PARAMETRE);
        EXPECT_EQ(grx_cree_minuterie(time, 1), GRX_ECHEC_PARAMETRE);
    }
    EXPECT_EQ(grx_cree_minuterie(0, 1), GRX_ECHEC_PARAMETRE);
    EXPECT_EQ(grx_cree_minuterie(INT_MAX, INT_MIN), 1);
    for (const INT number : numbers_of_nothing) EXPECT_EQ(grx_detruit_minuterie(number), GRX_ECHEC_NUMERO);
}

TEST_F(TimersTest, ShortMemoryIsSaidAndRecordsComeLater) {
    EXPECT_GT(fail_each_allocation([] {
        const INT timer = grx_cree_minuterie(1, 0);
        EXPECT_TRUE(timer == GRX_ECHEC_MEMOIRE || timer == 1) << timer;
        if (timer > 0) EXPECT_EQ(grx_detruit_minuterie(timer), 1);
    }),
        0);
    const INT timer = grx_cree_minuterie(1, 0);
    heap().fail_from(1);
    EXPECT_EQ(within(20), 0);
    heap().fail_never();
    ASSERT_EQ(within(2000), 1);
    EXPECT_TRUE(is(GRX_EVT_MINUTERIE, timer));
}

TEST_F(TimersTest, MadeAndStoppedTheyLeaveNothing) {
    grx_detruit_minuterie(grx_cree_minuterie(1, 1));
    const NoLeak no_leak;
    for (int round = 0; round < 500; ++round) {
        const INT timer = grx_cree_minuterie(0, 0), other = grx_cree_minuterie(1, 1);
        ASSERT_EQ(within(1000), 1);
        ASSERT_TRUE(is(GRX_EVT_MINUTERIE, timer));
        ASSERT_EQ(grx_detruit_minuterie(other), 1);
    }
    EXPECT_EQ(within(5), 0);
}

} // namespace
