// What a stretch of code costs on the wire: requests, round trips, changes of graphics contexts.
#pragma once

#include <X11/Xlib.h>

namespace grxtest {

// Totals of the process since it started; the test program stands in front of Xlib's own functions.
struct XTotals {
    unsigned long round_trips = 0;  // replies waited for, on any connection
    unsigned long gc_changes = 0;   // XChangeGC and the XSet... shorthands of it
    unsigned long dash_changes = 0; // XSetDashes
};
const XTotals& x_totals();

// Counts from its construction on (or from restart()). Requests are those of one connection. Xlib merges neighbouring
// XDrawLine, XFillRectangle and the like, and sends a changed context only with the next drawing.
class Cost {
  public:
    explicit Cost(Display* display);
    void restart();
    unsigned long requests() const;
    unsigned long round_trips() const;
    unsigned long gc_changes() const;
    unsigned long dash_changes() const;

  private:
    Display* display_;
    unsigned long first_request_ = 0;
    XTotals start_;
};

} // namespace grxtest
