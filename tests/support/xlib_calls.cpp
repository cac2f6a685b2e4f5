#include "tests/support/xlib_calls.h"

#include "tests/support/next_function.h"

namespace {
grxtest::LastSent* noting = nullptr;
}

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

namespace grxtest {

LastSent::LastSent() {
    noting = this;
}

LastSent::~LastSent() {
    noting = nullptr;
}

} // namespace grxtest
