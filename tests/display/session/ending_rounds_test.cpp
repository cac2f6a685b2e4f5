// The library's work ended and begun fifty times: what each round leaves in the process, beside what the toolkit alone leaves.
#include "tests/display/session/ending_additions_kit.h"
#include "tests/support/sanitized.h"

#include <Xm/CascadeB.h>
#include <Xm/DrawingA.h>
#include <Xm/MainW.h>
#include <Xm/PushB.h>
#include <Xm/RowColumn.h>

#include <malloc.h>

#include <cstdio>

#ifdef __SANITIZE_ADDRESS__
extern "C" std::size_t __sanitizer_get_current_allocated_bytes(); // the compiler's headers do not declare it
#endif

namespace {

using namespace grxtest;

class EndingRounds : public AddingSessions {
  protected:
    static constexpr int warm = 10;
    static constexpr int rounds = warm + amount(40);
    static constexpr long share = 8; // a session has so many more widgets, fonts and names than the toolkit's window

    static long in_use() {
#ifdef __SANITIZE_ADDRESS__
        return static_cast<long>(__sanitizer_get_current_allocated_bytes());
#else
        const auto info = mallinfo2();
        return static_cast<long>(info.uordblks + info.hblkhd);
#endif
    }

    // Bytes that a round keeps, after the first ones.
    template <class Round>
    static long kept_of(Round round) {
        long before = 0;
        for (int i = 0; i < rounds; ++i) {
            if (i == warm) before = in_use();
            round();
            if (HasFatalFailure()) return 0;
        }
        return (in_use() - before) / (rounds - warm);
    }

    static Widget menu_with(Widget bar, int entries) {
        char pull[] = "menu", title[] = "titre";
        Widget menu = XmCreatePulldownMenu(bar, pull, nullptr, 0);
        for (int i = 0; i < entries; ++i) XtVaCreateManagedWidget("entree", xmPushButtonWidgetClass, menu, nullptr);
        XtVaCreateManagedWidget(title, xmCascadeButtonWidgetClass, bar, XmNsubMenuId, menu, nullptr);
        return menu;
    }

    // A main window with menus and an area to draw in, shown by the toolkit without the library.
    static void toolkit_alone() {
        XtAppContext const context = XtCreateApplicationContext();
        char program[] = "plain", bar_name[] = "bar";
        char* words[] = {program, nullptr};
        int count = 1;
        Display* const display = XtOpenDisplay(context, nullptr, nullptr, nullptr, nullptr, 0, &count, words);
        ASSERT_NE(display, nullptr);
        Widget shell = XtVaAppCreateShell(
            "plain", "Plain", applicationShellWidgetClass, display, XmNwidth, 300, XmNheight, 200, nullptr);
        Widget main = XtVaCreateManagedWidget("main", xmMainWindowWidgetClass, shell, nullptr);
        Widget bar = XmCreateMenuBar(main, bar_name, nullptr, 0);
        menu_with(menu_with(bar, 2), 1);
        menu_with(bar, 1);
        XtManageChild(bar);
        XtVaCreateManagedWidget("area", xmDrawingAreaWidgetClass, main, nullptr);
        XtRealizeWidget(shell);
        XSync(display, False);
        while ((XtAppPending(context) & XtIMXEvent) != 0) XtAppProcessEvent(context, XtIMXEvent);
        XtDestroyWidget(shell);
        XtDestroyApplicationContext(context);
    }

    void expect_flat(const std::function<void()>& session) {
        const long plain = kept_of(toolkit_alone);
        long descriptors = 0;
        int i = 0;
        const long kept = kept_of([&] {
            session();
            end();
            ASSERT_EQ(heap().bytes(), 0U) << "round " << i;
            if (++i == warm) descriptors = open_descriptors();
        });
        EXPECT_EQ(open_descriptors(), descriptors);
        std::printf("kept of a round: %ld bytes, by the toolkit alone %ld\n", kept, plain);
        EXPECT_LT(kept, share * plain);
    }
};

TEST_F(EndingRounds, FiftyAreFlat) {
    end();
    expect_flat([&] { start_again(); });
}

TEST_F(EndingRounds, FiftyWithAdditionsAreFlat) {
    end();
    expect_flat([&] {
        say_who();
        start_again();
        ASSERT_FALSE(HasFatalFailure());
        use_additions();
    });
}

class EndingShort : public AddingSessions {};

TEST_F(EndingShort, OfMemoryTakesEverythingBack) {
    use_additions();
    heap().fail_from(1);
    const INT ended = grx_termine_application();
    heap().fail_never();
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(heap().bytes(), 0U);
    events.clear();
    start_again();
}

TEST_F(EndingShort, OfTimeDropsTheTimersOfTheApplication) {
    static bool came = false;
    came = false;
    XtAppAddTimeOut(
        contexte, 1, [](XtPointer, XtIntervalId*) { came = true; }, nullptr);
    XtAppAddWorkProc(
        contexte, [](XtPointer) -> Boolean { return came = true; }, nullptr);
    end();
    start_again();
    const INT timer = grx_cree_minuterie(50, 0);
    ASSERT_GT(timer, 0);
    ASSERT_TRUE(events.wait(GRX_EVT_MINUTERIE)) << events.describe();
    EXPECT_FALSE(came);
}

} // namespace
