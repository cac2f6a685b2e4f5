// Looks in the queue for the type of event that the application asks for.
#include <X11/Intrinsic.h>

#include "toolkit/late_layout.h"
#include "xt_ent_f.h"
#include "xt_ini_t.h"

namespace {

constexpr INT kHandled = 1;
constexpr INT kKeyInstead = 2; // the application asked for a mouse press and a key came

long mask_for(INT type) {
    if (type == GRX_EVT_CARAC_APPUI) return KeyPressMask;
    if (type == GRX_EVT_BOUTON_APPUI) return ButtonPressMask;
    return NoEventMask;
}

INT handle(XEvent& event, GRX_EVENEMENT* evt, INT result) {
    evt_global.type_evenement = GRX_EVT_AUCUN; // an event that posts nothing must not give the last record again
    XtDispatchEvent(&event);
    *evt = evt_global;
    return result;
}

INT nothing(GRX_EVENEMENT* evt) {
    evt->type_evenement = GRX_EVT_AUCUN;
    return 0;
}

INT wait_for_event(INT type, GRX_EVENEMENT* evt) {
    XEvent event;
    XMaskEvent(x11_disp, mask_for(type), &event);
    return handle(event, evt, kHandled);
}

INT take_pending(INT type, GRX_EVENEMENT* evt) {
    XEvent event;
    if (XEventsQueued(x11_disp, QueuedAfterReading) == 0) return nothing(evt);
    if (XCheckMaskEvent(x11_disp, mask_for(type), &event)) return handle(event, evt, kHandled);
    if (type == GRX_EVT_BOUTON_APPUI && XCheckMaskEvent(x11_disp, KeyPressMask, &event))
        return handle(event, evt, kKeyInstead);
    return nothing(evt);
}

} // namespace

extern "C" {

INT grx_cherche_evenement(INT type, GRX_EVENEMENT* evt, INT bloquant) {
    if (evt == nullptr) return 0;
    if (x11_disp == nullptr || mask_for(type) == NoEventMask) return nothing(evt);
    grx::lay_out_pending();
    return bloquant != 0 ? wait_for_event(type, evt) : take_pending(type, evt);
}
}
