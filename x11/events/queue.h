// The event queue of the display connection.
#pragma once

#include <X11/Intrinsic.h>
#include <poll.h>

#include "xt_ini_t.h"

namespace grx {

constexpr int kPollRest = 1; // milliseconds, for a loop that polls

/// Gives the processor away until something arrives on the connection, for a loop that must not block: at most `ms`.
inline void rest_until_input(int ms) {
    if (x11_disp == nullptr) return;
    pollfd connection{ConnectionNumber(x11_disp), POLLIN, 0};
    poll(&connection, 1, ms);
}

inline bool queue_empty() {
    return XEventsQueued(x11_disp, QueuedAfterFlush) == 0;
}

/// Runs the toolkit timers that are due, which cannot block: cursors blink and scroll bars repeat while one polls.
inline void run_due_timers() {
    constexpr int most = 32; // a timer that is always due must not hold the loop
    for (int i = 0; i < most && (XtAppPending(contexte) & XtIMTimer) != 0; ++i) XtAppProcessEvent(contexte, XtIMTimer);
}

/// The window manager's close request. It sends other client messages too.
inline bool is_close_request(const XEvent& event) {
    if (event.type != ClientMessage) return false;
    const Atom protocols = XInternAtom(x11_disp, "WM_PROTOCOLS", False);
    const Atom close = XInternAtom(x11_disp, "WM_DELETE_WINDOW", False);
    return event.xclient.message_type == protocols && static_cast<Atom>(event.xclient.data.l[0]) == close;
}

} // namespace grx
