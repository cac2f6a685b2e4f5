// What windows tell a window manager once the application has said who it is, and that they tell nothing before.
#include "tests/display/windows/manners_kit.h"
#include "tests/support/counters.h"
#include "tests/support/xlib_calls.h"

#include <Xm/MessageB.h>
#include <unistd.h>

namespace {

using namespace grxtest;

const std::vector<const char*> ours{
    "_NET_WM_NAME", "_NET_WM_ICON_NAME", "_NET_WM_PID", "_NET_WM_WINDOW_TYPE", "_NET_WM_ICON"};

class Manners : public Creation {
  protected:
    void before_start() override {
        Creation::before_start();
        const GRX_IDENTITE who = identity("plan", "Plan");
        ASSERT_EQ(grx_affecte_identite(&who), 1);
    }
    Property read(INT nofen, const char* name) { return property_of(test_display(), shell_window(nofen), name); }
    std::string kind(INT nofen) {
        const auto kinds = atoms_in(test_display(), shell_window(nofen), "_NET_WM_WINDOW_TYPE");
        return kinds.empty() ? "" : kinds.front().substr(sizeof "_NET_WM_WINDOW_TYPE_" - 1);
    }
};

GRX_FENETRE titled(const char* title, INT parent = -1, INT type = GRX_FEN_ALPHA) {
    GRX_FENETRE window = described(type);
    std::snprintf(window.titre, sizeof window.titre, "%s", title);
    window.fen_mere = parent;
    return window;
}

const std::string class_of_all("plan\0Plan\0", 10);

TEST_F(Manners, EveryWindowSaysWhoItIs) {
    const INT top = make(titled("Plan"));
    const INT child = make(titled("Layers", top));
    for (INT n : {top, child}) {
        EXPECT_EQ(read(n, "WM_CLASS").bytes, class_of_all);
        EXPECT_EQ(read(n, "_NET_WM_PID").longs, std::vector<long>{getpid()});
        EXPECT_EQ(read(n, "_NET_WM_PID").type, "CARDINAL");
        char host[256] = "";
        gethostname(host, sizeof host - 1);
        EXPECT_EQ(read(n, "WM_CLIENT_MACHINE").bytes, host);
    }
    EXPECT_EQ(read(child, "WM_TRANSIENT_FOR").longs, std::vector<long>{static_cast<long>(shell_window(top))});
    EXPECT_FALSE(read(top, "WM_TRANSIENT_FOR").there);
}

TEST_F(Manners, DialogsOfTheToolkitToo) {
    const INT top = make(titled("Plan"));
    char name[] = "question";
    Widget box = XmCreateQuestionDialog(widget_of(top), name, nullptr, 0);
    XmString title = XmStringCreateLocalized(writable("Effacer"));
    XtVaSetValues(box, XmNdialogTitle, title, nullptr);
    XtManageChild(box);
    const Window window = XtWindow(XtParent(box));
    EXPECT_EQ(property_of(test_display(), window, "WM_CLASS").bytes, class_of_all);
    EXPECT_EQ(property_of(test_display(), window, "_NET_WM_NAME").bytes, "Effacer");
    EXPECT_EQ(atoms_in(test_display(), window, "_NET_WM_WINDOW_TYPE"),
        std::vector<std::string>{"_NET_WM_WINDOW_TYPE_DIALOG"});
    XmString accents = XmStringCreateLocalized(writable("D\xE9truire"));
    XtVaSetValues(box, XmNdialogTitle, accents, nullptr);
    EXPECT_EQ(property_of(test_display(), window, "_NET_WM_NAME").bytes, "D\xC3\xA9truire");
    XmStringFree(title);
    XmStringFree(accents);
}

TEST_F(Manners, MenusAreNotToldOfForNoManagerSeesThem) {
    const INT top = make(titled("Plan"));
    char name[] = "menu";
    Widget menu = XmCreatePopupMenu(widget_of(top), name, nullptr, 0);
    XtRealizeWidget(XtParent(menu));
    EXPECT_FALSE(property_of(test_display(), XtWindow(XtParent(menu)), "_NET_WM_PID").there);
}

TEST_F(Manners, TitlesAreUtf8AndKeptWhenTheyChange) {
    struct Row {
        const char* given;
        const char* told;
    };
    const Row rows[] = {{"Plan", "Plan"}, {"\xC9l\xE9vation N\xB0 1", "\xC3\x89l\xC3\xA9vation N\xC2\xB0 1"},
        {"\xC3\x89l\xC3\xA9vation", "\xC3\x89l\xC3\xA9vation"}, {"\xE2\x82\xAC", "\xE2\x82\xAC"}, {"", ""}};
    const INT changing = make(titled("first"));
    for (const Row& row : rows) {
        const INT n = make(titled(row.given));
        grx_change_titre_fenetre(changing, writable(row.given));
        for (INT window : {n, changing}) {
            EXPECT_EQ(read(window, "_NET_WM_NAME").bytes, row.told);
            EXPECT_EQ(read(window, "_NET_WM_NAME").type, "UTF8_STRING");
            EXPECT_EQ(read(window, "WM_NAME").bytes, row.given) << "the old one beside it";
        }
        EXPECT_EQ(read(n, "_NET_WM_ICON_NAME").bytes, row.told);
        grx_detruit_fenetre(n);
    }
    const std::string longest(300, '\xE9');
    grx_change_titre_fenetre(changing, writable(longest.c_str()));
    EXPECT_EQ(read(changing, "_NET_WM_NAME").bytes.size(), 600U);
}

TEST_F(Manners, TheKindFollowsTheWindow) {
    for (INT type : all_kinds) {
        const INT top = make(type);
        EXPECT_EQ(kind(top), type == GRX_FEN_MESSAGE ? "DIALOG" : "NORMAL") << type;
        const INT child = make(titled("", 1, type));
        EXPECT_EQ(kind(child), type == GRX_FEN_MENU ? "UTILITY" : "DIALOG") << type;
    }
}

TEST_F(Manners, ThePlaceIsTheProgramsEvenAfterTheWindowMoved) {
    const INT top = make(titled("Plan"));
    const INT child = make(titled("Layers", top));
    for (INT n : {top, child}) {
        EXPECT_EQ(position_flags(test_display(), n), PPosition);
        XSizeHints hints{};
        long supplied = 0;
        ASSERT_TRUE(XGetWMNormalHints(test_display(), shell_window(n), &hints, &supplied));
        EXPECT_EQ(hints.x, 100);
        EXPECT_EQ(hints.y, 120);
        EXPECT_EQ(hints.width, 200);
        EXPECT_EQ(hints.height, 150);
        EXPECT_EQ(hints.win_gravity, NorthWestGravity);
        grx_deplace_fenetre(n, 300, 800);
        EXPECT_EQ(position_flags(test_display(), n), PPosition);
        EXPECT_EQ(area(n).x, 300);
    }
}

// Everything is there when the window is mapped, for a manager reads it then.
TEST_F(Manners, AllIsToldBeforeTheWindowIsMapped) {
    int mapped = 0;
    const BeforeMapping looking([&](Window window) {
        if (!property_of(test_display(), window, "WM_CLASS").there) return; // no shell
        ++mapped;
        EXPECT_EQ(property_of(test_display(), window, "WM_CLASS").bytes, class_of_all);
        EXPECT_TRUE(property_of(test_display(), window, "_NET_WM_PID").there);
        EXPECT_TRUE(property_of(test_display(), window, "_NET_WM_NAME").there);
        EXPECT_TRUE(property_of(test_display(), window, "_NET_WM_WINDOW_TYPE").there);
        const auto protocols = atoms_in(test_display(), window, "WM_PROTOCOLS");
        EXPECT_EQ(std::ranges::count(protocols, "_NET_WM_PING"), 1);
        EXPECT_EQ(std::ranges::count(protocols, "WM_DELETE_WINDOW"), 1);
    });
    const INT top = make(titled("Plan"));
    make(titled("Layers", top));
    EXPECT_EQ(mapped, 2);
}

// --- pings --------------------------------------------------------------------------------------------------

void ping(Display* display, Window window, long when) {
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "_NET_WM_PING", False));
    event.xclient.data.l[1] = when;
    event.xclient.data.l[2] = static_cast<long>(window);
    XSendEvent(display, window, False, NoEventMask, &event);
    XSync(display, False);
}

// The answer as it comes to a manager, which listens at the root.
std::optional<XClientMessageEvent> taken_answer(Display* display) {
    XEvent event{};
    while (XPending(display) > 0) {
        XNextEvent(display, &event);
        if (event.type == ClientMessage) return event.xclient;
    }
    return std::nullopt;
}

TEST_F(Manners, PingsAreAnsweredByTheLoop) {
    const INT top = make(titled("Plan"));
    const INT child = make(titled("Layers", top));
    XSelectInput(test_display(), DefaultRootWindow(test_display()), SubstructureNotifyMask);
    settle();
    long when = 1000;
    for (INT n : {top, child, top}) {
        ping(test_display(), shell_window(n), ++when);
        std::optional<XClientMessageEvent> answer;
        ASSERT_TRUE(wait_for([&] { return (answer = taken_answer(test_display())).has_value(); }));
        EXPECT_EQ(answer->window, DefaultRootWindow(test_display()));
        EXPECT_EQ(answer->message_type, XInternAtom(test_display(), "WM_PROTOCOLS", False));
        EXPECT_EQ(answer->data.l[0], static_cast<long>(XInternAtom(test_display(), "_NET_WM_PING", False)));
        EXPECT_EQ(answer->data.l[1], when);
        EXPECT_EQ(answer->data.l[2], static_cast<long>(shell_window(n)));
    }
    drain();
    EXPECT_FALSE(taken_answer(test_display())) << "one answer for one question";
    EXPECT_EQ(events.count(GRX_EVT_DESTRUCTION), 0) << "it is no wish to close the window";
    EXPECT_NE(grx_recup_objet_fen(top), nullptr);
}

// --- nothing before, and what it costs ------------------------------------------------------------------------

class NoManners : public Creation {};

TEST_F(NoManners, WindowsTellNothingNew) {
    const INT top = make(titled("\xC9l\xE9vation"));
    const INT child = make(titled("Layers", top));
    grx_change_titre_fenetre(top, writable("Plan"));
    for (INT n : {top, child}) {
        for (const char* name : ours) EXPECT_FALSE(property_of(test_display(), shell_window(n), name).there) << name;
        const auto protocols = atoms_in(test_display(), shell_window(n), "WM_PROTOCOLS");
        EXPECT_EQ(std::ranges::count(protocols, "_NET_WM_PING"), 0);
        EXPECT_EQ(position_flags(test_display(), n), USPosition);
    }
    EXPECT_EQ(property_of(test_display(), shell_window(top), "WM_CLASS").bytes, std::string("HB\0TopLevelShell\0", 17));
    EXPECT_EQ(property_of(test_display(), shell_window(child), "WM_CLASS").bytes,
        std::string("TransientShell\0TopLevelShell\0", 29));
}

struct Price {
    unsigned long requests, round_trips;
};

// What the third window of its kind costs: the first ones ask for fonts and names.
Price price_of_a_window() {
    make(titled("one", make(titled("none"))));
    make(titled("two", 1));
    Cost cost(x11_disp);
    make(titled("three", 1));
    return {cost.requests(), cost.round_trips()};
}

constexpr unsigned long plain_requests = 19, plain_round_trips = 0; // as it was before there were manners

TEST_F(NoManners, AWindowCostsWhatItAlwaysDid) {
    const Price price = price_of_a_window();
    EXPECT_EQ(price.requests, plain_requests);
    EXPECT_EQ(price.round_trips, plain_round_trips);
}

TEST_F(Manners, AWindowCostsPropertiesAndTheQuestionForTheWorkArea) {
    const Price price = price_of_a_window();
    EXPECT_EQ(price.requests, plain_requests + 7);
    EXPECT_EQ(price.round_trips, plain_round_trips + 1);
}

class MannersWithoutZone : public Manners {
    void before_start() override {
        Creation::before_start();
        GRX_IDENTITE who = identity("plan", "Plan");
        who.zone = 0;
        ASSERT_EQ(grx_affecte_identite(&who), 1);
    }
};

TEST_F(MannersWithoutZone, AWindowCostsNoRoundTripMore) {
    const Price price = price_of_a_window();
    EXPECT_EQ(price.requests, plain_requests + 6) << "class, process, title, kind, place, protocols";
    EXPECT_EQ(price.round_trips, plain_round_trips);
}

// --- memory ---------------------------------------------------------------------------------------------------

TEST_F(Manners, FiveHundredWindowsLeaveNothingBehind) {
    make(titled("Plan"));
    settle();
    const NoLeak no_leak;
    for (int round = 0; round < 500; ++round) {
        const INT n = make(titled("\xC9l\xE9vation", 1));
        ASSERT_GT(n, 1);
        grx_change_titre_fenetre(n, writable("\xE9"));
        grx_detruit_fenetre(n);
        grx_digitaliseur(nullptr, 0);
    }
    drain();
}

TEST_F(Manners, MemoryThatFailsLeavesTheWindow) {
    make(titled("Plan"));
    settle();
    fail_each_allocation([&] {
        const INT n = make(titled("\xC9l\xE9vation", 1));
        if (n > 0) {
            EXPECT_EQ(read(n, "WM_CLASS").bytes, class_of_all);
            grx_detruit_fenetre(n);
        }
        drain();
    });
}

} // namespace
