// Waits for events of the display connection and handles those that are queued, for the application and for loops of
// the library that poll.
#include "events/queue.h"

#include <X11/Intrinsic.h>

#include <poll.h>

#include "toolkit/late_layout.h"
#include "xt_ent_f.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

void run_due(XtInputMask kinds) {
    const InLoop inside;
    constexpr int most = 32; // a timer that is always due must not hold the loop
    for (int i = 0; i < most && (XtAppPending(contexte) & kinds) != 0; ++i) XtAppProcessEvent(contexte, kinds);
}

} // namespace

void rest_until_input(int ms) {
    if (x11_disp == nullptr) return;
    pollfd connection{ConnectionNumber(x11_disp), POLLIN, 0};
    poll(&connection, 1, ms);
}

bool queue_empty() {
    return XEventsQueued(x11_disp, QueuedAfterFlush) == 0;
}

void run_due_timers() {
    run_due(XtIMTimer);
}

void run_due_sources() {
    run_due(XtIMTimer | XtIMAlternateInput);
}

bool is_close_request(const XEvent& event) {
    if (event.type != ClientMessage) return false;
    const Atom protocols = XInternAtom(x11_disp, "WM_PROTOCOLS", False);
    const Atom close = XInternAtom(x11_disp, "WM_DELETE_WINDOW", False);
    return event.xclient.message_type == protocols && static_cast<Atom>(event.xclient.data.l[0]) == close;
}

} // namespace grx

extern "C" {

INT grx_flush_tous_evenements(void) {
    const grx::InLoop inside;
    XEvent event;
    grx::lay_out_pending();
    while (x11_disp != nullptr && XEventsQueued(x11_disp, QueuedAfterFlush) != 0) {
        XtAppNextEvent(contexte, &event);
        if (event.type != ClientMessage) XtDispatchEvent(&event);
    }
    return 0;
}
}
