// The display functions among the utilities: bell, flushing, synchronising.
#include "tests/support/display_test.h"

#include <X11/XKBlib.h>
#include <X11/Xatom.h>

#include <climits>
#include <string>

namespace {

using namespace grxtest;

class DisplayUtilities : public DisplayTest {
  protected:
    // Leaves a mark on the root window, unsent; another connection can see whether it got there.
    static void leave_mark(const std::string& text) {
        XChangeProperty(x11_disp, DefaultRootWindow(x11_disp), XA_CUT_BUFFER0, XA_STRING, 8, PropModeReplace,
            reinterpret_cast<const unsigned char*>(text.data()), static_cast<int>(text.size()));
    }

    std::string mark() {
        Atom type = None;
        int format = 0;
        unsigned long count = 0, rest = 0;
        unsigned char* data = nullptr;
        Display* display = test_display();
        XGetWindowProperty(display, DefaultRootWindow(display), XA_CUT_BUFFER0, 0, 100, False, XA_STRING, &type,
            &format, &count, &rest, &data);
        const std::string text = data ? std::string(reinterpret_cast<char*>(data), count) : "";
        if (data) XFree(data);
        return text;
    }

    void queue_an_event() {
        Widget widget = grx_recup_objet_fen(1);
        XClientMessageEvent event{};
        event.type = ClientMessage;
        event.window = XtWindow(widget);
        event.format = 32;
        XSendEvent(x11_disp, event.window, False, 0, reinterpret_cast<XEvent*>(&event));
    }

    void a_window() {
        GRX_FENETRE window{};
        grx_init_fenetre(&window);
        window.type = GRX_FEN_ALPHA;
        window.droite = 100;
        window.haut = 80;
        ASSERT_EQ(grx_cree_fenetre(&window), 0);
        ASSERT_TRUE(wait_visible(grx_recup_objet_fen(window.nofen)));
        drain();
    }
};

TEST_F(DisplayUtilities, FlushingSendsAndWaitsForNobody) {
    leave_mark("flushed");
    XSync(test_display(), False);
    ASSERT_EQ(mark(), "");
    const unsigned long trips = x_totals().round_trips;
    grx_flush_server();
    EXPECT_EQ(x_totals().round_trips, trips);
    EXPECT_TRUE(wait_until([&] { return mark() == "flushed"; }, [] {}));
}

TEST_F(DisplayUtilities, FlushingMakesNoRequest) {
    const Cost cost(x11_disp);
    grx_flush_server();
    EXPECT_EQ(cost.requests(), 0U);
}

TEST_F(DisplayUtilities, SynchronisingWaitsOnce) {
    leave_mark("synchronised");
    const unsigned long trips = x_totals().round_trips;
    grx_sync_server();
    EXPECT_EQ(x_totals().round_trips - trips, 1U);
    EXPECT_EQ(mark(), "synchronised");
}

TEST_F(DisplayUtilities, SynchronisingKeepsTheEvents) {
    a_window();
    queue_an_event();
    grx_sync_server();
    EXPECT_EQ(XEventsQueued(x11_disp, QueuedAlready), 1);
    grx_sync_server();
    EXPECT_EQ(XEventsQueued(x11_disp, QueuedAlready), 1);
    drain();
}

TEST_F(DisplayUtilities, SynchronousRequestsAreDoneWhenTheyReturn) {
    for (const INT on : {1, 7, -1}) {
        grx_synchronise(on);
        const auto text = "synchronous " + std::to_string(on);
        const unsigned long trips = x_totals().round_trips;
        leave_mark(text);
        EXPECT_GE(x_totals().round_trips - trips, 1U) << on;
        EXPECT_EQ(mark(), text);
        grx_synchronise(0);
        leave_mark("later");
        XSync(test_display(), False);
        EXPECT_EQ(mark(), text) << on;
        XSync(x11_disp, False);
    }
}

TEST_F(DisplayUtilities, TheBellRingsAt20PercentWhateverIsAsked) {
    Display* display = test_display();
    int opcode = 0, first_event = 0, error = 0, major = XkbMajorVersion, minor = XkbMinorVersion;
    ASSERT_TRUE(XkbQueryExtension(display, &opcode, &first_event, &error, &major, &minor));
    ASSERT_TRUE(XkbSelectEvents(display, XkbUseCoreKbd, XkbBellNotifyMask, XkbBellNotifyMask));
    XKeyboardControl control{}; // percents are of the user's own volume
    control.bell_percent = 50;
    XChangeKeyboardControl(display, KBBellPercent, &control);
    XSync(display, False);
    for (const auto& [frequency, duration] : {std::pair{0, 0}, {440, 100}, {INT_MAX, INT_MIN}, {-1, -1}}) {
        grx_bipbip(frequency, duration);
        grx_sync_server();
        XEvent event{};
        ASSERT_TRUE(wait_until([&] { return XCheckTypedEvent(display, first_event, &event) == True; }, [] {}));
        const auto& bell = reinterpret_cast<XkbBellNotifyEvent&>(event);
        EXPECT_EQ(bell.xkb_type, XkbBellNotify);
        EXPECT_EQ(bell.percent, 50 + 20 * (100 - 50) / 100); // base - base * p / 100 + p
    }
}

TEST_F(DisplayUtilities, TheBellIsOneRequest) {
    const Cost cost(x11_disp);
    grx_bipbip(0, 0);
    EXPECT_EQ(cost.requests(), 1U);
    EXPECT_EQ(cost.round_trips(), 0U);
}

} // namespace
