// Timers, watched descriptors and idle work together, for the digitizing loop.
#include "session/sources.h"

#include "grx_plus_evenements.h"
#include "session/wake_up.h"

namespace grx {

bool has_sources() {
    return has_timers() || has_watches() || has_idle_work();
}

void serve_sources() {
    serve_wake_up();
}

void resume_sources() {
    if (watched_set() < 0) return;
    resume_timers();
    resume_watches();
}

void deliver_source(GRX_EVENEMENT& record) {
    if (record.type_evenement == GRX_EVT_MINUTERIE) deliver_timer(record);
    if (record.type_evenement == GRX_EVT_DESCRIPTEUR) deliver_watch(record);
}

} // namespace grx
