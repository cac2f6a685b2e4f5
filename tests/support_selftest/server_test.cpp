// The test frame tried on itself: servers and window managers.
#include "tests/support/cell_hog.h"
#include "tests/support/temp_dir.h"
#include "tests/support/wait.h"
#include "tests/support/window_manager.h"
#include "tests/support/xserver.h"

#include <gtest/gtest.h>

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>

namespace {

using namespace grxtest;
using Connection = std::unique_ptr<Display, decltype(&XCloseDisplay)>;

Connection connect(const XServer& server) {
    return {open_connection(server.name()), XCloseDisplay};
}

struct Planes {
    int planes;
    int visual_class;
};

class EachServer : public testing::TestWithParam<Planes> {};

TEST_P(EachServer, HasTheDefaultVisualAskedFor) {
    XServerOptions options;
    options.planes = GetParam().planes;
    const XServer server(options);
    const auto display = connect(server);
    const int screen = DefaultScreen(display.get());
    EXPECT_EQ(DefaultDepth(display.get(), screen), GetParam().planes);
    EXPECT_EQ(DefaultVisual(display.get(), screen)->c_class, GetParam().visual_class);
    EXPECT_EQ(DisplayWidth(display.get(), screen), 1280);
    EXPECT_EQ(DisplayHeight(display.get(), screen), 1024);
}

INSTANTIATE_TEST_SUITE_P(Frame, EachServer,
    testing::Values(Planes{24, TrueColor}, Planes{16, TrueColor}, Planes{8, PseudoColor}),
    [](const auto& instance) { return std::to_string(instance.param.planes); });

TEST(Server, TwoAtOnceHaveDifferentNames) {
    const XServer first, second;
    EXPECT_NE(first.name(), second.name());
}

TEST(Server, MoreArgumentsReachIt) {
    XServerOptions options;
    options.arguments = {"-extension", "RENDER"};
    const XServer server(options);
    int opcode = 0, event = 0, error = 0;
    EXPECT_FALSE(XQueryExtension(connect(server).get(), "RENDER", &opcode, &event, &error));
}

TEST(Server, SurvivesItsLastClient) {
    const XServer server;
    Atom made = None;
    {
        const auto display = connect(server);
        made = XInternAtom(display.get(), "FRAME_TEST_ATOM", False);
    }
    EXPECT_EQ(XInternAtom(connect(server).get(), "FRAME_TEST_ATOM", True), made);
}

TEST(Server, BadArgumentsAreToldInItsOwnWords) {
    XServerOptions options;
    options.arguments = {"-nosuchoption"};
    try {
        const XServer server(options);
        FAIL() << "the server started";
    } catch (const std::runtime_error& error) {
        EXPECT_NE(std::string(error.what()).find("nosuchoption"), std::string::npos) << error.what();
    }
}

TEST(Server, EndsWithItsObject) {
    pid_t pid = 0;
    {
        const XServer server;
        pid = server.pid();
        EXPECT_EQ(kill(pid, 0), 0);
    }
    EXPECT_NE(kill(pid, 0), 0);
}

// A child process starts a server and dies without ending it; this process inherits the server.
TEST(Server, EndsWhenTheTestDies) {
    ASSERT_EQ(prctl(PR_SET_CHILD_SUBREAPER, 1), 0);
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0) {
        const XServer server;
        const pid_t pid = server.pid();
        if (write(ends[1], &pid, sizeof pid) != sizeof pid) _exit(1);
        raise(SIGKILL);
    }
    close(ends[1]);
    pid_t server = 0;
    ASSERT_EQ(read(ends[0], &server, sizeof server), static_cast<ssize_t>(sizeof server));
    close(ends[0]);
    const auto ended = [server] { return waitpid(server, nullptr, WNOHANG) == server; };
    EXPECT_TRUE(wait_until(ended, [] { poll(nullptr, 0, 1); }));
    EXPECT_EQ(waitpid(child, nullptr, 0), child);
}

TEST(Manager, MwmFramesAWindow) {
    const TempDir home;
    setenv("HOME", home.text().c_str(), 1);
    const XServer server;
    WindowManager manager(server);
    const auto display = connect(server);
    const Window root = DefaultRootWindow(display.get());
    const Window window = XCreateSimpleWindow(display.get(), root, 0, 0, 200, 150, 0, 0, 0);
    XSelectInput(display.get(), window, StructureNotifyMask);
    XMapWindow(display.get(), window);
    XEvent event;
    do XWindowEvent(display.get(), window, StructureNotifyMask, &event);
    while (event.type != MapNotify);
    Window parent = None, *children = nullptr;
    unsigned count = 0;
    Window answered_root = None;
    XQueryTree(display.get(), window, &answered_root, &parent, &children, &count);
    if (children) XFree(children);
    EXPECT_NE(parent, root);
    EXPECT_TRUE(manager.running());
    manager.end();
    EXPECT_FALSE(manager.running());
}

TEST(Manager, MwmOpenboxAndFvwmTakeTheScreen) {
    const TempDir home;
    setenv("HOME", home.text().c_str(), 1);
    for (const auto kind : {WindowManager::Kind::mwm, WindowManager::Kind::openbox, WindowManager::Kind::fvwm}) {
        const XServer server;
        WindowManager manager(server, kind);
        const auto display = connect(server);
        XWindowAttributes attributes{};
        XGetWindowAttributes(display.get(), DefaultRootWindow(display.get()), &attributes);
        EXPECT_TRUE(attributes.all_event_masks & SubstructureRedirectMask);
    }
}

TEST(Hog, LeavesExactlyTheCellsAskedFor) {
    XServerOptions options;
    options.planes = 8;
    const XServer server(options);
    const int all = free_cells(server.name());
    EXPECT_GT(all, 100);
    CellHog hog(server.name(), 31);
    EXPECT_EQ(free_cells(server.name()), 31);
    EXPECT_EQ(hog.held(), all - 31);
    hog.leave(32);
    EXPECT_EQ(free_cells(server.name()), 32);
    hog.leave(0);
    EXPECT_EQ(free_cells(server.name()), 0);
    hog.release();
    EXPECT_EQ(free_cells(server.name()), all);
    EXPECT_THROW(hog.leave(1000), std::runtime_error);
}

} // namespace
