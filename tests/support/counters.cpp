#include "tests/support/counters.h"

#include "tests/support/next_function.h"
#include "tests/support/reply_hook.h"

namespace {
grxtest::XTotals totals;
}

// --- in front of Xlib -------------------------------------------------------------------------------
extern "C" {

Status _XReply(Display* display, void* reply, int extra, Bool discard);
Status _XReply(Display* display, void* reply, int extra, Bool discard) {
    static const auto next = grxtest::next_function<decltype(_XReply)>("_XReply");
    ++totals.round_trips;
    if (grxtest::before_reply) grxtest::before_reply(totals.round_trips);
    return next(display, reply, extra, discard);
}

int XChangeGC(Display* display, GC gc, unsigned long mask, XGCValues* values) {
    static const auto next = grxtest::next_function<decltype(XChangeGC)>("XChangeGC");
    ++totals.gc_changes;
    return next(display, gc, mask, values);
}

int XSetForeground(Display* display, GC gc, unsigned long pixel) {
    static const auto next = grxtest::next_function<decltype(XSetForeground)>("XSetForeground");
    ++totals.gc_changes;
    return next(display, gc, pixel);
}

int XSetBackground(Display* display, GC gc, unsigned long pixel) {
    static const auto next = grxtest::next_function<decltype(XSetBackground)>("XSetBackground");
    ++totals.gc_changes;
    return next(display, gc, pixel);
}

int XSetFunction(Display* display, GC gc, int function) {
    static const auto next = grxtest::next_function<decltype(XSetFunction)>("XSetFunction");
    ++totals.gc_changes;
    return next(display, gc, function);
}

int XSetLineAttributes(Display* display, GC gc, unsigned int width, int line, int cap, int join) {
    static const auto next = grxtest::next_function<decltype(XSetLineAttributes)>("XSetLineAttributes");
    ++totals.gc_changes;
    return next(display, gc, width, line, cap, join);
}

int XSetDashes(Display* display, GC gc, int offset, const char* dashes, int count) {
    static const auto next = grxtest::next_function<decltype(XSetDashes)>("XSetDashes");
    ++totals.dash_changes;
    return next(display, gc, offset, dashes, count);
}

} // extern "C"

namespace grxtest {

void (*before_reply)(unsigned long number) = nullptr;

const XTotals& x_totals() {
    return totals;
}

Cost::Cost(Display* display) : display_(display) {
    restart();
}

void Cost::restart() {
    XSync(display_, False);
    first_request_ = NextRequest(display_);
    start_ = totals;
}

unsigned long Cost::requests() const {
    return NextRequest(display_) - first_request_;
}
unsigned long Cost::round_trips() const {
    return totals.round_trips - start_.round_trips;
}
unsigned long Cost::gc_changes() const {
    return totals.gc_changes - start_.gc_changes;
}
unsigned long Cost::dash_changes() const {
    return totals.dash_changes - start_.dash_changes;
}

} // namespace grxtest
