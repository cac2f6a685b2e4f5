// Waits for another program's answer about a selection: the events that are handled meanwhile, and their records.
#include "events/selection_wait.h"

#include "events/added_records.h"
#include "events/queue.h"
#include "xt_ent_f.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

Bool is_handled_meanwhile(Display*, XEvent* event, XPointer) {
    switch (event->type) {
    case SelectionNotify:
    case SelectionRequest:
    case SelectionClear:
    case PropertyNotify:
    case Expose:
    case GraphicsExpose: return True;
    default: return False;
    }
}

// Of several exposures of a window the last tells all.
bool is_same_exposure(const GRX_EVENEMENT& waiting, const void* record) {
    const auto& other = *static_cast<const GRX_EVENEMENT*>(record);
    return waiting.type_evenement == GRX_EVT_AFFICHAGE && other.type_evenement == GRX_EVT_AFFICHAGE
           && waiting.affichage.nofen == other.affichage.nofen;
}

void dispatch(XEvent& event) {
    const GRX_EVENEMENT pending = evt_global;
    grx_init_evenement(&evt_global);
    XtDispatchEvent(&event);
    if (evt_global.type_evenement != GRX_EVT_AUCUN) {
        drop_added(is_same_exposure, &evt_global);
        post_added(evt_global);
    }
    evt_global = pending;
}

} // namespace

void wait_for(SelectionFetch& fetch) {
    while (fetch.waiting()) {
        const int left = fetch.patience();
        if (left == 0) return fetch.give_up();
        XEvent event;
        if (XCheckIfEvent(x11_disp, &event, is_handled_meanwhile, nullptr) == True)
            dispatch(event);
        else
            rest_until_input(left);
    }
}

} // namespace grx
