// The event queue of the display connection.
#pragma once

#include <X11/Intrinsic.h>

namespace grx {

constexpr int kPollRest = 1; // milliseconds, for a loop that polls

/// Gives the processor away until something arrives on the connection, for a loop that must not block: at most `ms`.
void rest_until_input(int ms);

bool queue_empty();

/// Runs the toolkit timers that are due, which cannot block: cursors blink and scroll bars repeat while one polls.
void run_due_timers();

/// The window manager's close request. It sends other client messages too.
bool is_close_request(const XEvent& event);

} // namespace grx
