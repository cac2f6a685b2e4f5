// Timers, watched descriptors and idle work together, for the digitizing loop.
#include "session/sources.h"

#include <utility>

#include "events/added_records.h"
#include "session/wake_up.h"

namespace grx {

GRX_EVENEMENT source_record(INT type, INT number, INT value) {
    GRX_EVENEMENT record{};
    record.exec_fonction.type_evenement = type;
    record.exec_fonction.nofen = record.exec_fonction.nobou = -1;
    record.exec_fonction.no_fo = number;
    record.exec_fonction.valeur = value;
    return record;
}

void drop_source_record(INT type, INT number) {
    using Key = std::pair<INT, INT>;
    const Key key{type, number};
    drop_added(
        [](const GRX_EVENEMENT& record, const void* what) {
            return Key{record.type_evenement, record.exec_fonction.no_fo} == *static_cast<const Key*>(what);
        },
        &key);
}

bool has_sources() {
    return has_timers() || has_watches() || has_idle_work();
}

void serve_sources() {
    if (watched_set() < 0) return;
    serve_alarms();
    serve_timers();
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
