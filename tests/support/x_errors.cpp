#include "tests/support/x_errors.h"

#include "tests/support/next_function.h"

#include <algorithm>
#include <array>
#include <vector>

namespace {

int count = 0;
std::string last;
XErrorHandler installed = nullptr; // what the code under test asked for; null is Xlib's default, which ends the process
XErrorHandler of_xlib = nullptr;

std::vector<const Display*>& own_connections() {
    static std::vector<const Display*> list;
    return list;
}

int counting_handler(Display* display, XErrorEvent* error) {
    if (std::ranges::count(own_connections(), display) > 0) return 0;
    std::array<char, 128> text{};
    XGetErrorText(display, error->error_code, text.data(), static_cast<int>(text.size()));
    ++count;
    last = std::string(text.data()) + ", request " + std::to_string(error->request_code) + "."
           + std::to_string(error->minor_code);
    const XErrorHandler handler = installed ? installed : of_xlib;
    return handler ? handler(display, error) : 0;
}

XErrorHandler install(XErrorHandler handler) {
    static const auto next = grxtest::next_function<XErrorHandler(XErrorHandler)>("XSetErrorHandler");
    return next(handler);
}

} // namespace

// --- in front of Xlib -------------------------------------------------------------------------------
extern "C" XErrorHandler XSetErrorHandler(XErrorHandler handler) {
    const XErrorHandler before = install(counting_handler);
    if (before != counting_handler) of_xlib = before;
    const XErrorHandler answer = installed ? installed : of_xlib;
    installed = handler;
    return answer;
}

// The next connection may come to lie at the same address.
extern "C" int XCloseDisplay(Display* display) {
    static const auto next = grxtest::next_function<decltype(XCloseDisplay)>("XCloseDisplay");
    std::erase(own_connections(), display);
    return next(display);
}

namespace grxtest {

int x_error_count(Display* display) {
    if (display) XSync(display, False);
    return count;
}

std::string last_x_error() {
    return last;
}

void forget_x_errors() {
    count = 0;
    last.clear();
}

void ignore_x_errors_of(const Display* display) {
    own_connections().push_back(display);
}

} // namespace grxtest
