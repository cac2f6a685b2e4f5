// The test frame tried on itself: input, pixels, counters, errors and visuals, with plain Xlib and Motif.
#include "tests/support/counters.h"
#include "tests/support/fake_visual.h"
#include "tests/support/input.h"
#include "tests/support/pixels.h"
#include "tests/support/temp_dir.h"
#include "tests/support/wait.h"
#include "tests/support/x_errors.h"
#include "tests/support/xserver.h"

#include <gtest/gtest.h>

#include <Xm/Form.h>
#include <Xm/PushB.h>
#include <Xm/TextF.h>

#include <X11/Intrinsic.h>
#include <X11/StringDefs.h>
#include <X11/Xutil.h>

#include <cstdlib>
#include <memory>
#include <optional>
#include <string>

namespace {

using namespace grxtest;

constexpr std::uint32_t red = 0xFF0000, blue = 0x0000FF;

// A mapped window of plain Xlib, 200 x 100 at the top left of the screen, all blue.
class PlainWindow : public testing::Test {
  protected:
    void SetUp() override {
        display_ = XOpenDisplay(server_.name().c_str());
        ASSERT_NE(display_, nullptr);
        window_ = XCreateSimpleWindow(display_, DefaultRootWindow(display_), 0, 0, 200, 100, 0, 0, blue);
        gc_ = XCreateGC(display_, window_, 0, nullptr);
        XSetForeground(display_, gc_, red);
        XSelectInput(display_, window_, KeyPressMask | ButtonPressMask | ButtonReleaseMask | PointerMotionMask);
        XMapWindow(display_, window_);
        XSync(display_, False);
    }

    void TearDown() override {
        if (!display_) return;
        XFreeGC(display_, gc_);
        XCloseDisplay(display_);
    }

    XEvent next(int type) {
        XEvent event{};
        const auto look = [&] { return XCheckTypedEvent(display_, type, &event) != 0; };
        const auto step = [&] { wait_readable(ConnectionNumber(display_), Milliseconds{5}); };
        EXPECT_TRUE(wait_until(look, step)) << "no event " << type;
        return event;
    }

    // What the server turns the next key press into.
    std::pair<KeySym, unsigned> next_key() {
        XEvent event = next(KeyPress);
        KeySym symbol = NoSymbol;
        XLookupString(&event.xkey, nullptr, 0, &symbol, nullptr);
        return {symbol, event.xkey.state};
    }

    XServer server_;
    InputConnection input_{server_.name()};
    Pointer pointer_{input_};
    Keyboard keyboard_{input_};
    Display* display_ = nullptr;
    Window window_ = None;
    GC gc_ = nullptr;
};

TEST_F(PlainWindow, PointerMovesAndPresses) {
    pointer_.move_in(window_, 30, 40);
    EXPECT_EQ(pointer_.position(), (Point{30, 40}));
    EXPECT_EQ(next(MotionNotify).xmotion.x, 30);
    pointer_.click(50, 60, 3);
    EXPECT_EQ(next(ButtonPress).xbutton.button, 3U);
    EXPECT_EQ(next(ButtonRelease).xbutton.y, 60);
    pointer_.wheel(-1);
    EXPECT_EQ(next(ButtonPress).xbutton.button, 5U);
    pointer_.wheel(1);
    EXPECT_EQ(next(ButtonPress).xbutton.button, 4U);
}

TEST_F(PlainWindow, DragMovesWhileTheButtonIsDown) {
    int pauses = 0;
    pointer_.drag({10, 10}, {90, 50}, 1, 4, [&] { ++pauses; });
    EXPECT_EQ(pauses, 7);
    EXPECT_EQ(next(ButtonPress).xbutton.x, 10);
    XEvent release = next(ButtonRelease);
    EXPECT_EQ(release.xbutton.x, 90);
    EXPECT_EQ(release.xbutton.y, 50);
    XEvent motion{};
    unsigned dragged = 0;
    while (XCheckTypedEvent(display_, MotionNotify, &motion)) dragged += (motion.xmotion.state & Button1Mask) != 0;
    EXPECT_GE(dragged, 1U);
}

TEST_F(PlainWindow, InputComesWhileTheServerIsGrabbed) {
    pointer_.move_in(window_, 5, 5);
    XGrabServer(display_);
    XSync(display_, False);
    pointer_.click();
    EXPECT_EQ(next(ButtonPress).xbutton.x, 5);
    XUngrabServer(display_);
}

TEST_F(PlainWindow, KeysCarryTheirModifiers) {
    pointer_.move_in(window_, 5, 5);
    keyboard_.key(XK_a);
    EXPECT_EQ(next_key(), (std::pair<KeySym, unsigned>{XK_a, 0}));
    keyboard_.key(XK_x, ControlMask | Mod1Mask);
    EXPECT_EQ(next_key().first, XK_Control_L);
    EXPECT_EQ(next_key().first, XK_Alt_L);
    EXPECT_EQ(next_key().second, unsigned{ControlMask | Mod1Mask});
    keyboard_.key(XK_A);
    EXPECT_EQ(next_key().first, XK_Shift_L);
    EXPECT_EQ(next_key(), (std::pair<KeySym, unsigned>{XK_A, ShiftMask}));
    EXPECT_THROW(keyboard_.key(0xda1), std::runtime_error);
}

TEST_F(PlainWindow, LocksStayDown) {
    pointer_.move_in(window_, 5, 5);
    keyboard_.num_lock();
    next_key();
    keyboard_.key(XK_a);
    EXPECT_EQ(next_key().second, unsigned{Mod2Mask});
    keyboard_.caps_lock();
    next_key();
    keyboard_.key(XK_a);
    EXPECT_EQ(next_key(), (std::pair<KeySym, unsigned>{XK_A, Mod2Mask | LockMask}));
}

TEST_F(PlainWindow, LayoutsChange) {
    pointer_.move_in(window_, 5, 5);
    keyboard_.key(XK_q);
    const unsigned us_code = next(KeyPress).xkey.keycode;
    keyboard_.layout("fr");
    keyboard_.key(XK_a);
    EXPECT_EQ(next(KeyPress).xkey.keycode, us_code) << "a and q change places between us and fr";
    keyboard_.type("é");
    keyboard_.layout("us");
    keyboard_.key(XK_q);
    next(KeyPress);
    EXPECT_EQ(next(KeyPress).xkey.keycode, us_code);
    EXPECT_THROW(keyboard_.layout("no such layout"), std::runtime_error);
}

TEST_F(PlainWindow, PixelsAreReadBack) {
    XFillRectangle(display_, window_, gc_, 10, 20, 5, 4);
    const Pixels all = grab(display_, window_);
    EXPECT_EQ(all.width, 200);
    EXPECT_EQ(all.height, 100);
    EXPECT_EQ(all.at(10, 20), red);
    EXPECT_EQ(all.at(9, 20), blue);
    EXPECT_EQ(all.count(red), 20);
    EXPECT_EQ(all.count_other(blue), 20);
    EXPECT_EQ(all.bounds(red), (Area{10, 20, 5, 4}));
    EXPECT_EQ(all.bounds_other(blue), (Area{10, 20, 5, 4}));
    EXPECT_EQ(all.bounds(0x123456), (Area{}));
    EXPECT_THROW(all.at(200, 0), std::out_of_range);
    EXPECT_EQ(grab(display_, window_, {10, 20, 5, 4}), all.part({10, 20, 5, 4}));
    EXPECT_EQ(grab_root(display_).part({0, 0, 200, 100}), all);
}

TEST_F(PlainWindow, DifferencesAreFound) {
    const Pixels before = grab(display_, window_);
    EXPECT_TRUE(same(before, grab(display_, window_)));
    XDrawPoint(display_, window_, gc_, 7, 8);
    const Pixels after = grab(display_, window_);
    EXPECT_EQ(differences(before, after), 1);
    const auto told = same(before, after);
    EXPECT_FALSE(told);
    EXPECT_NE(std::string(told.message()).find("first at 7,8"), std::string::npos) << told.message();
    EXPECT_FALSE(same(before, before.part({0, 0, 10, 10})));
}

TEST_F(PlainWindow, UnreadableIsEmptyAndNoError) {
    XUnmapWindow(display_, window_);
    EXPECT_TRUE(grab(display_, window_).empty());
}

TEST_F(PlainWindow, PicturesAreWritten) {
    const TempDir folder;
    XFillRectangle(display_, window_, gc_, 0, 0, 1, 1);
    write_ppm(display_, grab(display_, window_, {0, 0, 2, 1}), folder.text() + "/p.ppm");
    EXPECT_EQ(folder.read("p.ppm"), std::string("P6\n2 1\n255\n\xFF\0\0\0\0\xFF", 17));
}

TEST_F(PlainWindow, RequestsAndRoundTripsAreCounted) {
    XDrawPoint(display_, window_, gc_, 0, 0); // takes the pending change of the context with it
    Cost cost(display_);
    for (int i = 0; i < 100; ++i) XDrawLine(display_, window_, gc_, 0, 0, i, 9);
    EXPECT_EQ(cost.requests(), 1U) << "Xlib merges lines of one context";
    EXPECT_EQ(cost.round_trips(), 0U);
    cost.restart();
    XSync(display_, False);
    XInternAtom(display_, "FRAME_TEST_COST", False);
    EXPECT_EQ(cost.requests(), 2U);
    EXPECT_EQ(cost.round_trips(), 2U);
}

TEST_F(PlainWindow, ContextChangesAreCounted) {
    const char dashes[] = {4, 4};
    Cost cost(display_);
    XGCValues values{};
    XChangeGC(display_, gc_, GCForeground, &values);
    XSetLineAttributes(display_, gc_, 2, LineSolid, CapButt, JoinMiter);
    EXPECT_EQ(cost.gc_changes(), 2U);
    XSetDashes(display_, gc_, 0, dashes, 2);
    EXPECT_EQ(cost.dash_changes(), 1U);
}

int handled = 0;
int own_handler(Display*, XErrorEvent*) {
    return ++handled;
}
int other_handler(Display*, XErrorEvent*) {
    return 0;
}

TEST_F(PlainWindow, XErrorsAreCountedBesideTheHandler) {
    XSetErrorHandler(own_handler);
    forget_x_errors();
    XMapWindow(display_, 0x12345);
    EXPECT_EQ(x_error_count(display_), 1);
    EXPECT_EQ(handled, 1);
    EXPECT_EQ(last_x_error(), "BadWindow (invalid Window parameter), request 8.0");
    EXPECT_EQ(XSetErrorHandler(other_handler), own_handler) << "the code under test sees its own handlers only";
}

TEST_F(PlainWindow, XErrorsOfTheTestItselfAreNobodys) {
    XSetErrorHandler(own_handler);
    forget_x_errors();
    handled = 0;
    XMapWindow(input_.display(), 0x12345);
    XSync(input_.display(), False);
    EXPECT_EQ(x_error_count(display_), 0);
    EXPECT_EQ(handled, 0);
}

// --- visuals ---------------------------------------------------------------------------------------------

class Visuals : public testing::Test {
  protected:
    XVisualInfo match(Display* display) {
        XVisualInfo found{};
        matched_ = XMatchVisualInfo(display, DefaultScreen(display), 24, TrueColor, &found) != 0;
        return found;
    }

    XServer server_;
    bool matched_ = false;
};

TEST_F(Visuals, Default8LooksLikePseudoColor) {
    const FakeVisual fake(FakeVisual::Kind::default8);
    Display* display = XOpenDisplay(server_.name().c_str());
    ASSERT_NE(display, nullptr);
    EXPECT_EQ(DefaultDepth(display, 0), 8);
    EXPECT_EQ(DefaultVisual(display, 0)->c_class, PseudoColor);
    EXPECT_EQ(match(display).c_class, TrueColor);
    EXPECT_TRUE(matched_);
    forget_x_errors();
    XSetErrorHandler(own_handler);
    XCreateWindow(
        display, DefaultRootWindow(display), 0, 0, 9, 9, 0, 8, InputOutput, DefaultVisual(display, 0), 0, nullptr);
    EXPECT_EQ(x_error_count(display), 0) << last_x_error();
    XCloseDisplay(display);
    Display* own = open_connection(server_.name());
    EXPECT_EQ(DefaultDepth(own, 0), 24);
    XCloseDisplay(own);
}

TEST_F(Visuals, OthersThanTheRootsAreMatched) {
    Display* display = XOpenDisplay(server_.name().c_str());
    ASSERT_NE(display, nullptr);
    EXPECT_EQ(match(display).visualid, DefaultVisual(display, 0)->visualid);
    {
        const FakeVisual fake(FakeVisual::Kind::alt24);
        EXPECT_NE(match(display).visualid, DefaultVisual(display, 0)->visualid);
        EXPECT_EQ(match(display).depth, 24);
    }
    {
        const FakeVisual fake(FakeVisual::Kind::alt32);
        EXPECT_EQ(match(display).depth, 32);
    }
    {
        const FakeVisual fake(FakeVisual::Kind::no_match);
        match(display);
        EXPECT_FALSE(matched_);
    }
    XCloseDisplay(display);
}

// --- Motif with real input ----------------------------------------------------------------------------------

void count_activation(Widget, XtPointer closure, XtPointer) {
    ++*static_cast<int*>(closure);
}

TEST(Motif, ButtonAndFieldTakeRealInput) {
    const XServer server;
    setenv("DISPLAY", server.name().c_str(), 1);
    const InputConnection input(server.name());
    Pointer pointer(input);
    Keyboard keyboard(input);

    XtToolkitInitialize();
    XtAppContext context = XtCreateApplicationContext();
    char name[] = "frame";
    char* argv[] = {name, nullptr};
    int argc = 1;
    Display* display = XtOpenDisplay(context, nullptr, nullptr, nullptr, nullptr, 0, &argc, argv);
    ASSERT_NE(display, nullptr);
    Widget shell = XtVaAppCreateShell(
        nullptr, "Frame", applicationShellWidgetClass, display, XtNwidth, 300, XtNheight, 200, nullptr);
    Widget form = XmCreateForm(shell, name, nullptr, 0);
    Widget button = XmCreatePushButton(form, name, nullptr, 0);
    XtVaSetValues(button, XmNx, 10, XmNy, 10, nullptr);
    Widget field = XmCreateTextField(form, name, nullptr, 0);
    XtVaSetValues(field, XmNx, 10, XmNy, 100, nullptr);
    int activations = 0;
    XtAddCallback(button, XmNactivateCallback, count_activation, &activations);
    XtManageChild(button);
    XtManageChild(field);
    XtManageChild(form);
    XtRealizeWidget(shell);

    const auto step = [&] {
        if (XtAppPending(context))
            XtAppProcessEvent(context, XtIMAll);
        else
            wait_readable(ConnectionNumber(display), Milliseconds{5});
    };
    const auto viewable = [&] {
        XWindowAttributes attributes{};
        XGetWindowAttributes(display, XtWindow(field), &attributes);
        return attributes.map_state == IsViewable;
    };
    ASSERT_TRUE(wait_until(viewable, step));
    pointer.click_in(button);
    EXPECT_TRUE(wait_until([&] { return activations == 1; }, step));

    pointer.click_in(field);
    keyboard.type("Ab c");
    const auto typed = [&] {
        const std::unique_ptr<char, void (*)(char*)> text(XmTextFieldGetString(field), XtFree);
        return std::string(text.get()) == "Ab c";
    };
    EXPECT_TRUE(wait_until(typed, step));
    XtDestroyWidget(shell);
}

} // namespace
