// Double clicks.
#include "tests/display/session/digitizer_kit.h"

#include <X11/keysym.h>

namespace {

using namespace grxtest;

constexpr INT long_time = 20000; // milliseconds: no test reaches it
constexpr INT no_time = 0;

class DoubleClick : public Digitizer {
  protected:
    void SetUp() override {
        Digitizer::SetUp();
        grx_init_double_clic();
        limit(long_time);
    }

    static void limit(INT milliseconds) {
        grx_affecte_cst_dc(milliseconds);
        grx_reinit_double_clic();
    }

    // The first press has been read, at 100,100 of the window (y from the bottom: 200).
    void first_press(unsigned button = 1) {
        pointer().press(button);
        settle();
    }

    // The clock moves on while the next event of the window is handled: by less than a tick it would still be in time.
    void handle_slowly() {
        const auto until_the_clock_moved = [](Widget, XtPointer, XEvent*, Boolean*) {
            const auto start = Clock::now();
            while (Clock::now() - start < std::chrono::microseconds(10)) continue;
        };
        XtAddEventHandler(
            widget_of(window_), ButtonPressMask | ButtonReleaseMask, False, until_the_clock_moved, nullptr);
    }

    INT decide(INT mode, INT button = 1, INT x = 100, INT y = 200) {
        arrive();
        const INT outcome = grx_double_clic(mode, x, y, button);
        arrive();
        left_over_ = XEventsQueued(x11_disp, QueuedAfterReading);
        return outcome;
    }

    int left_over_ = 0;
};

TEST_F(DoubleClick, TheSecondPressOfTheSameButtonInTime) {
    first_press();
    pointer().release();
    pointer().press();
    EXPECT_EQ(decide(3), 0);
    EXPECT_EQ(left_over_, 0) << "what was read is consumed";
}

TEST_F(DoubleClick, APressOfAnotherButton) {
    for (INT mode : {3, 0, 1, 2, 7, -1}) {
        first_press();
        pointer().release();
        if (mode == 0) settle(); // the release would decide
        pointer().press(2);
        EXPECT_EQ(decide(mode), 5) << mode;
        pointer().release(2);
        settle();
    }
}

TEST_F(DoubleClick, TheSamePressTooLate) {
    limit(no_time);
    first_press();
    pointer().release();
    settle();
    handle_slowly();
    pointer().press();
    EXPECT_EQ(decide(3), 3);
}

TEST_F(DoubleClick, TheReleaseInTime) {
    first_press();
    pointer().release();
    EXPECT_EQ(decide(0), 0);
}

TEST_F(DoubleClick, TheReleaseTooLate) {
    limit(no_time);
    first_press();
    handle_slowly();
    pointer().release();
    EXPECT_EQ(decide(0), 3);
}

TEST_F(DoubleClick, ThePointerMovesAway) {
    struct Move {
        int dx, dy;
        INT outcome;
    };
    for (const Move& m : {Move{10, 0, 0}, Move{-10, 0, 0}, Move{11, 0, 1}, Move{-11, 0, 1}, Move{0, 12, 0},
             Move{0, -12, 0}, Move{0, 13, 1}, Move{0, -13, 1}, Move{10, 12, 0}, Move{11, 13, 1}}) {
        pointer().move_in(widget_of(window_), 100, 100);
        settle();
        first_press();
        pointer().move_in(widget_of(window_), 100 + m.dx, 100 + m.dy);
        pointer().release();
        EXPECT_EQ(decide(0), m.outcome) << m.dx << "," << m.dy;
        settle();
    }
}

TEST_F(DoubleClick, MotionDecidesInMode0Only) {
    for (INT mode : {3, 1}) {
        pointer().move_in(widget_of(window_), 100, 100);
        settle();
        first_press();
        pointer().release();
        pointer().move_in(widget_of(window_), 180, 180);
        pointer().press(3);
        EXPECT_EQ(decide(mode), 5) << "the motion was passed over";
        pointer().release(3);
        settle();
    }
}

TEST_F(DoubleClick, APressOfTheSameButtonGoesOnInOtherModes) {
    for (INT mode : {1, 2, 0}) {
        first_press();
        pointer().release();
        settle();
        pointer().press();
        settle(); // read by the application, not by the detector
        pointer().release();
        settle();
        pointer().press(1);
        pointer().press(3);
        EXPECT_EQ(decide(mode), 5) << "mode " << mode << ": the same button went on, the other one decides";
        pointer().release(1);
        pointer().release(3);
        settle();
    }
}

TEST_F(DoubleClick, AnyOtherEventAfterTheTime) {
    limit(no_time);
    first_press();
    keyboard().key(XK_k);
    EXPECT_EQ(decide(0), 2);
    settle();
    pointer().release();
    EXPECT_EQ(decide(3), 2) << "a release is any other in mode 3";
    settle();
    first_press();
    EXPECT_EQ(decide(1), 2);
}

TEST_F(DoubleClick, AnyOtherEventInTimeIsPassedOver) {
    first_press();
    keyboard().key(XK_k);
    pointer().release();
    EXPECT_EQ(decide(0), 0);
}

TEST_F(DoubleClick, NothingAtAllTimesOut) {
    for (INT mode : {0, 3, 1}) {
        limit(200);
        const auto start = Clock::now();
        EXPECT_EQ(decide(mode), 2) << mode;
        EXPECT_GE(Clock::now() - start, Milliseconds{200});
        EXPECT_LT(Clock::now() - start, Milliseconds{2000});
    }
}

TEST_F(DoubleClick, TheTimeIsTheSettingWhenItWasTaken) {
    grx_affecte_cst_dc(250);
    EXPECT_EQ(grx_reinit_double_clic(), 0);
    grx_affecte_cst_dc(20000);
    const auto start = Clock::now();
    EXPECT_EQ(decide(3), 2) << "a changed setting counts after the next call only";
    EXPECT_GE(Clock::now() - start, Milliseconds{250});
    EXPECT_LT(Clock::now() - start, Milliseconds{5000});
}

TEST_F(DoubleClick, ARealDoubleClickAfterAHundredAndFiftyMilliseconds) {
    limit(200);
    first_press();
    pointer().release();
    settle();
    XtAppAddTimeOut(
        contexte, 150, [](XtPointer client, XtIntervalId*) { static_cast<Pointer*>(client)->press(); }, &pointer());
    const auto start = Clock::now();
    const INT outcome = decide(3);
    const auto took = Clock::now() - start;
    EXPECT_GE(took, Milliseconds{149});
    if (took < Milliseconds{200}) {
        EXPECT_EQ(outcome, 0);
    } else {
        EXPECT_NE(outcome, 0) << "a machine too slow for the time";
    }
    pointer().release();
}

void activate(Widget, XtPointer client, XtPointer) {
    evt_global.exec_fonction.type_evenement = GRX_EVT_EXEC_FONCTION;
    evt_global.exec_fonction.nofen = *static_cast<INT*>(client);
}

TEST_F(DoubleClick, APushButtonInTimeAndTooLate) {
    static INT number = window_;
    Widget button = XmCreatePushButton(widget_of(window_), const_cast<char*>("push"), nullptr, 0);
    XtAddCallback(button, XmNactivateCallback, activate, &number);
    XtManageChild(button);
    ASSERT_TRUE(wait_visible(button));
    for (const auto& [time, outcome] : {std::pair{long_time, 0}, std::pair{no_time, 4}})
        for (INT mode : {0, 3, 1}) {
            limit(time);
            pointer().move_in(button, 3, 3);
            pointer().press();
            settle();
            pointer().release();
            EXPECT_EQ(decide(mode), outcome) << "mode " << mode << " time " << time;
            settle();
        }
}

TEST_F(Digitizer, BeforeItsStartADoubleClickToleratesNoMove) {
    grx_affecte_cst_dc(long_time);
    grx_reinit_double_clic();
    pointer().press();
    settle();
    pointer().move_in(widget_of(window_), 101, 100);
    pointer().release();
    arrive();
    EXPECT_EQ(grx_double_clic(0, 100, 200, 1), 1);
    settle();
    EXPECT_EQ(grx_init_double_clic(), 0);
    pointer().press();
    settle();
    pointer().move_in(widget_of(window_), 105, 100);
    pointer().release();
    arrive();
    EXPECT_EQ(grx_double_clic(0, 101, 200, 1), 0);
}

class SmallScreenDoubleClick : public DoubleClick {
    XServerOptions server_options() const override {
        XServerOptions options;
        options.width = 1024;
        options.height = 768;
        return options;
    }
};

TEST_F(SmallScreenDoubleClick, TheVerticalToleranceIs13) {
    for (const auto& [dy, outcome] : {std::pair{13, 0}, std::pair{14, 1}}) {
        pointer().move_in(widget_of(window_), 100, 100);
        settle();
        first_press();
        pointer().move_in(widget_of(window_), 100, 100 + dy);
        pointer().release();
        EXPECT_EQ(decide(0), outcome) << dy;
        settle();
    }
}

} // namespace
