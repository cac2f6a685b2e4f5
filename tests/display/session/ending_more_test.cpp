// The end of the library's work from where it may not be asked for, and with displays that change or fail.
#include "tests/display/session/ending_kit.h"

#include <unistd.h>

#include <functional>

namespace {

using namespace grxtest;

class EndingFromInside : public Sessions {
  protected:
    void expect_refused(const std::function<void()>& inside) {
        answers_.clear();
        inside();
        ASSERT_EQ(answers_, std::vector<INT>{GRX_ECHEC_OCCUPE});
        EXPECT_NE(x11_disp, nullptr);
        EXPECT_TRUE(visible(XtWindow(shell_of(main_))));
    }
    static void on_timer(XtPointer, XtIntervalId*) { answers_.push_back(grx_termine_application()); }
    static Boolean on_work(XtPointer) {
        answers_.push_back(grx_termine_application());
        return True;
    }
    static void on_death(Widget, XtPointer, XtPointer) { answers_.push_back(grx_termine_application()); }
    bool wait_answer() {
        return wait_for([] { return !answers_.empty(); });
    }

    static inline std::vector<INT> answers_;
};

TEST_F(EndingFromInside, IsRefusedInAHandler) {
    expect_refused([&] { inside_a_callback([] { answers_.push_back(grx_termine_application()); }); });
}

TEST_F(EndingFromInside, IsRefusedInATimerOfTheLoop) {
    expect_refused([&] {
        XtAppAddTimeOut(contexte, 1, on_timer, nullptr);
        wait_answer();
    });
}

TEST_F(EndingFromInside, IsRefusedInATimerOfTheMainLoop) {
    expect_refused([&] {
        XtAppAddTimeOut(contexte, 1, on_timer, nullptr);
        XtAppAddTimeOut(
            contexte, 50, [](XtPointer, XtIntervalId*) { XtAppSetExitFlag(contexte); }, nullptr);
        grx_gere_application();
    });
}

TEST_F(EndingFromInside, IsRefusedInAWorkProcedure) {
    expect_refused([&] {
        pointer().move_in(widget_of(main_), 20, 20);
        XtAppAddWorkProc(contexte, on_work, nullptr);
        XtAppAddTimeOut(
            contexte, 100, [](XtPointer user, XtIntervalId*) { static_cast<Pointer*>(user)->click(); }, &pointer());
        GRX_EVENEMENT event{};
        while (answers_.empty()) grx_digitaliseur(&event, 1);
    });
}

TEST_F(EndingFromInside, IsRefusedWhileAWidgetIsDestroyed) {
    const INT window = make(GRX_FEN_ALPHA);
    XtAddCallback(shell_of(window), XmNdestroyCallback, on_death, nullptr);
    expect_refused([&] { grx_detruit_fenetre(window); });
}

TEST_F(EndingFromInside, IsRefusedInADialog) {
    expect_refused([&] {
        when_open("end", [&] {
            answers_.push_back(grx_termine_application());
            cancel();
        });
        choose({});
    });
}

TEST_F(EndingFromInside, IsRefusedWhileItGoesOn) {
    XtAddCallback(shell_of(main_), XmNdestroyCallback, on_death, nullptr);
    end();
    EXPECT_EQ(answers_, std::vector<INT>{GRX_ECHEC_OCCUPE});
    EXPECT_EQ(x11_disp, nullptr);
}

TEST_F(EndingFromInside, ComesRightAfterARefusal) {
    inside_a_callback([] { answers_.push_back(grx_termine_application()); });
    end();
    start_again();
    pointer().click_in(widget_of(main_), 30, 30);
    EXPECT_TRUE(events.wait(GRX_EVT_BOUTON_APPUI)) << events.describe();
}

// --- displays

class EndingElsewhereOn24 : public Sessions {
  protected:
    static XServerOptions with_planes(int planes) {
        XServerOptions options;
        options.planes = planes;
        return options;
    }

    // A session on another server, seen by a connection of its own.
    void session_on(const XServer& other, INT planes) {
        setenv("DISPLAY", other.name().c_str(), 1);
        ASSERT_EQ(grx_initialise_globales(), 0);
        ASSERT_TRUE(start_up());
        EXPECT_EQ(grx_recup_profondeur_ecran(), planes);
        Display* const seen = open_connection(other.name());
        const INT window = make(GRX_FEN_GRAPHIQUE);
        ASSERT_GT(window, 0);
        EXPECT_TRUE(wait_until(
            [&] {
                XWindowAttributes a{};
                return XGetWindowAttributes(seen, x_window(window), &a) != 0 && a.map_state == IsViewable;
            },
            [&] { events.step(); }));
        XCloseDisplay(seen);
        end();
        setenv("DISPLAY", server().name().c_str(), 1);
    }
};

TEST_F(EndingElsewhereOn24, AnotherDepthInBetweenChangesNothing) {
    const Album first = everything();
    end();
    const XServer other(with_planes(8));
    session_on(other, 8);
    ASSERT_FALSE(HasFailure());
    start_again();
    expect_same(everything(), first);
}

TEST_F(EndingElsewhereOn24, AServerThatCannotServeIsGotOver) {
    end();
    const XServer other(with_planes(16));
    setenv("DISPLAY", other.name().c_str(), 1);
    EXPECT_FALSE(start_up());
    end();
    setenv("DISPLAY", ":12345", 1);
    EXPECT_FALSE(start_up());
    EXPECT_EQ(x11_disp, nullptr);
    end();
    EXPECT_EQ(heap().bytes(), 0U);
    setenv("DISPLAY", server().name().c_str(), 1);
    start_again();
}

TEST_F(EndingElsewhereOn24, TheFormerServerMayBeGone) {
    end();
    {
        XServer other;
        session_on(other, 24);
        other.end();
    }
    const XServer third;
    session_on(third, 24);
}

// The server dies while the library works: the process ends, but not before the application's handler, where this is refused.
TEST_F(EndingElsewhereOn24, IsRefusedWhenTheServerIsGone) {
    end();
    XServer other;
    setenv("DISPLAY", other.name().c_str(), 1);
    EXPECT_EXIT(
        {
            XSetIOErrorHandler(
                [](Display*) -> int { std::_Exit(grx_termine_application() == GRX_ECHEC_OCCUPE ? 33 : 34); });
            if (!start_up() || make(GRX_FEN_ALPHA) <= 0) std::_Exit(35);
            kill(other.pid(), SIGKILL);
            GRX_EVENEMENT event{};
            for (;;) grx_digitaliseur(&event, 0);
        },
        testing::ExitedWithCode(33), "");
    setenv("DISPLAY", server().name().c_str(), 1);
}

// --- handlers

class EndingHandlers : public XTest {};

int host_errors(Display*, XErrorEvent*) {
    return 0;
}

TEST_F(EndingHandlers, AreTheApplicationsAgain) {
    XErrorHandler const at_first = XSetErrorHandler(host_errors);
    for (int i = 0; i < 3; ++i) {
        ASSERT_TRUE(start_up());
        ASSERT_EQ(grx_termine_application(), 1);
        EXPECT_EQ(XSetErrorHandler(host_errors), host_errors);
    }
    XSetErrorHandler(at_first);
}

} // namespace
