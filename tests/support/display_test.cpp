#include "tests/support/display_test.h"

#include <clocale>
#include <cstdlib>

namespace grxtest {
namespace {

// What could make the toolkit behave as the developer's own desktop wants it.
constexpr const char* foreign_settings[] = {"XENVIRONMENT", "XAPPLRESDIR", "XUSERFILESEARCHPATH", "XFILESEARCHPATH",
    "RESOURCE_NAME", "SESSION_MANAGER", "XMODIFIERS", "MWMRCFILE", "ZZCUR"};

Window parent_of(Display* display, Window window) {
    Window root = None, parent = None, *children = nullptr;
    unsigned count = 0;
    if (!XQueryTree(display, window, &root, &parent, &children, &count)) return None;
    if (children) XFree(children);
    return parent;
}

} // namespace

int test_planes() {
    const char* planes = std::getenv("GRX_TEST_PLANES");
    return planes ? std::atoi(planes) : 24;
}

XTest::XTest() {
    for (const char* name : foreign_settings) unsetenv(name);
    setenv("HOME", home_.text().c_str(), 1);
    setenv("LC_ALL", "C", 1);
    set_system_directory(home_.text());
    set_menu_directory(home_.text());
}

XTest::~XTest() {
    sstate[SST_REP_SYSTEME] = nullptr;
    sstate[SST_REP_MENU] = nullptr;
}

void XTest::SetUp() {
    XServerOptions options = server_options();
    options.planes = test_planes();
    server_.emplace(options);
    setenv("DISPLAY", server_->name().c_str(), 1);
    input_.emplace(server_->name());
    pointer_.emplace(*input_);
    keyboard_.emplace(*input_);
    forget_x_errors();
}

void XTest::TearDown() {
    if (!server_) return;
    const int errors = x_error_count(x11_disp);
    if (!x_errors_permitted_) {
        EXPECT_EQ(errors, 0) << "X protocol errors, the last: " << last_x_error();
    }
}

void XTest::set_system_directory(const std::string& path) {
    system_directory_ = path;
    sstate[SST_REP_SYSTEME] = system_directory_.data();
}

void XTest::set_menu_directory(const std::string& path) {
    menu_directory_ = path;
    sstate[SST_REP_MENU] = menu_directory_.data();
}

bool start_up() {
    return grx_alloue_base_fenetres() == 0 && grx_alloue_base_boutons() == 0 && grx_init_application() == 1;
}

void DisplayTest::SetUp() {
    XTest::SetUp();
    before_start();
    ASSERT_TRUE(start_up());
}

bool DisplayTest::wait_for(const std::function<bool()>& condition, Milliseconds deadline) {
    return wait_until(
        condition, [this] { events.step(); }, deadline);
}

void DisplayTest::settle() {
    drain();
    events.clear();
}

bool DisplayTest::visible(Window window) {
    XWindowAttributes attributes{};
    XSync(x11_disp, False); // what the library asked for has reached the server
    return window != None && XGetWindowAttributes(test_display(), window, &attributes)
           && attributes.map_state == IsViewable;
}

bool DisplayTest::wait_visible(Widget widget) {
    return wait_for([&] { return visible(XtWindow(widget)); });
}

Point DisplayTest::root_position(Widget widget) const {
    Point result;
    Window child = None;
    XTranslateCoordinates(
        XtDisplay(widget), XtWindow(widget), DefaultRootWindow(XtDisplay(widget)), 0, 0, &result.x, &result.y, &child);
    return result;
}

void On24::SetUp() {
    ASSERT_EQ(test_planes(), 24) << "the name of the suite must end in On24";
    DisplayTest::SetUp();
}

void On8::SetUp() {
    ASSERT_EQ(test_planes(), 8) << "the name of the suite must end in On8";
    DisplayTest::SetUp();
}

void On16::SetUp() {
    ASSERT_EQ(test_planes(), 16) << "the name of the suite must end in On16";
    XTest::SetUp();
}

void WmTest::SetUp() {
    ASSERT_EQ(test_planes(), 24) << "the name of the suite must end in WmTest";
    XTest::SetUp();
    manager_.emplace(server(), manager_kind());
    before_start();
    ASSERT_TRUE(start_up());
}

Window WmTest::frame(Widget shell) {
    Display* display = test_display();
    const Window root = DefaultRootWindow(display);
    Window window = XtWindow(shell);
    for (Window up = parent_of(display, window); up != root; up = parent_of(display, window)) {
        if (up == None) return None;
        window = up;
    }
    return window == XtWindow(shell) ? None : window;
}

Area WmTest::frame_area(Widget shell) {
    XWindowAttributes attributes{};
    const Window window = frame(shell);
    if (window == None || !XGetWindowAttributes(test_display(), window, &attributes)) return {};
    return {attributes.x, attributes.y, attributes.width, attributes.height};
}

} // namespace grxtest
