// Waits for events of the display connection, for loops of the library that poll.
#pragma once

#include <X11/Intrinsic.h>

namespace grx {

/// While one lives the library waits for events or handles them: what is called then is called from inside. Timers of the
/// toolkit run there too, which are no dispatching.
class InLoop {
  public:
    InLoop() { ++running_; }
    ~InLoop() { --running_; }
    InLoop(const InLoop&) = delete;
    InLoop& operator=(const InLoop&) = delete;

    static bool any() { return running_ > 0; }

  private:
    static inline int running_ = 0;
};

constexpr int kPollRest = 1; // milliseconds that a polling loop rests

/// Sleeps until something arrives on the connection, at most `ms` milliseconds.
void rest_until_input(int ms);

bool queue_empty();

/// Runs the timers of the toolkit that are due, without waiting, so that cursors blink and scroll bars repeat in a loop
/// that polls.
void run_due_timers();

/// The same, and the inputs of the toolkit that are ready.
void run_due_sources();

/// True for the window manager's request to close a window. The window manager sends other client messages too.
bool is_close_request(const XEvent& event);

} // namespace grx
