// The end of the library's work and its start again: on the same display and on another, as often as one likes, and who may
// not ask for it.
#include "tests/display/session/ending_kit.h"
#include "tests/support/fake_visual.h"

#include <malloc.h>
#include <cstdio>

namespace {

using namespace grxtest;

class Ending : public Sessions {};

TEST_F(Ending, TheNextSessionShowsTheSame) {
    const Album first = everything();
    for (int session = 2; session <= 3; ++session) {
        end();
        start_again();
        ASSERT_FALSE(HasFatalFailure());
        expect_same(everything(), first);
        ASSERT_FALSE(HasFailure()) << "session " << session;
    }
}

TEST_F(Ending, NothingOfTheLibraryIsLeft) {
    const NoLeak no_leak;
    const auto before = open_descriptors();
    everything();
    end();
    EXPECT_EQ(heap().bytes(), 0U) << heap().living_since(0);
    EXPECT_LT(open_descriptors(), before);
    EXPECT_EQ(x11_disp, nullptr);
    EXPECT_EQ(contexte, nullptr);
    EXPECT_EQ(fontlist, nullptr);
    EXPECT_EQ(fontstruct, nullptr);
    EXPECT_EQ(gc, nullptr);
    EXPECT_EQ(g_c, nullptr);
    EXPECT_EQ(MAXOBJETFEN, 0);
}

TEST_F(Ending, TwiceIsFine) {
    end();
    end();
    start_again();
}

TEST_F(Ending, WindowsLeaveTheScreen) {
    const Window shell = XtWindow(shell_of(main_));
    end();
    XWindowAttributes attributes{};
    XErrorHandler const before = XSetErrorHandler([](Display*, XErrorEvent*) { return 0; });
    EXPECT_EQ(XGetWindowAttributes(test_display(), shell, &attributes), 0);
    XSetErrorHandler(before);
    forget_x_errors();
}

} // namespace
