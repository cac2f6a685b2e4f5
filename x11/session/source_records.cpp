// The records of timers, watched descriptors and idle work.
#include "session/source_records.h"

#include <utility>

#include "events/added_records.h"
#include "xt_ini_t.h"

namespace grx {

GRX_EVENEMENT source_record(INT type, INT number, INT value) {
    GRX_EVENEMENT record{};
    record.exec_fonction.type_evenement = type;
    record.exec_fonction.nofen = record.exec_fonction.nobou = GRX_AUCUN;
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

} // namespace grx
