// The event queue of the connection.
#include <X11/Intrinsic.h>

#include "toolkit/late_layout.h"
#include "xt_ent_f.h"
#include "xt_ini_t.h"

extern "C" {

INT grx_flush_tous_evenements(void) {
    XEvent event;
    grx::lay_out_pending();
    while (x11_disp != nullptr && XEventsQueued(x11_disp, QueuedAfterFlush) != 0) {
        XtAppNextEvent(contexte, &event);
        if (event.type != ClientMessage) XtDispatchEvent(&event);
    }
    return 0;
}
}
