#include "tests/support/xlib_calls.h"

#include "tests/support/next_function.h"

#include <utility>

namespace {

grxtest::LastSent* noting = nullptr;
std::function<void(Window)> look_before_mapping;

void before_mapping(Display* display, Window window) {
    if (!look_before_mapping) return;
    XSync(display, False);
    look_before_mapping(window);
}

} // namespace

// --- in front of Xlib -------------------------------------------------------------------------------
extern "C" Status XSendEvent(Display* display, Window to, Bool propagate, long mask, XEvent* event) {
    static const auto next = grxtest::next_function<decltype(XSendEvent)>("XSendEvent");
    if (noting) {
        noting->to = to;
        noting->propagate = propagate;
        noting->mask = mask;
    }
    return next(display, to, propagate, mask, event);
}

extern "C" int XMapWindow(Display* display, Window window) {
    static const auto next = grxtest::next_function<decltype(XMapWindow)>("XMapWindow");
    before_mapping(display, window);
    return next(display, window);
}

extern "C" int XMapRaised(Display* display, Window window) {
    static const auto next = grxtest::next_function<decltype(XMapRaised)>("XMapRaised");
    before_mapping(display, window);
    return next(display, window);
}

namespace grxtest {

LastSent::LastSent() {
    noting = this;
}

LastSent::~LastSent() {
    noting = nullptr;
}

BeforeMapping::BeforeMapping(std::function<void(Window)> look) {
    look_before_mapping = std::move(look);
}

BeforeMapping::~BeforeMapping() {
    look_before_mapping = nullptr;
}

} // namespace grxtest
