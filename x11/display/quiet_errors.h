// Requests about windows of other programs, which may be gone or may never have been: the errors that come of them are
// nobody's.
#pragma once

#include <X11/Xlib.h>

namespace grx {

/// While it lives, errors of the requests sent since are dropped before any handler hears of them. Its end waits for
/// the server.
class QuietErrors {
  public:
    QuietErrors();
    ~QuietErrors();
    QuietErrors(const QuietErrors&) = delete;
    QuietErrors& operator=(const QuietErrors&) = delete;

  private:
    struct Room { // of Xlib's handler and its state, which only the source knows
        alignas(void*) unsigned char bytes[128];
    };
    Room room_;
};

/// The time of the server now, asked for with one round trip.
Time server_time();

} // namespace grx
