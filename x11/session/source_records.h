// The records of timers, watched descriptors and idle work.
#pragma once

#include "grx_plus_evenements.h"
#include "xt_ent_t.h"

namespace grx {

/// A record of a type about a number, of no window and no control.
GRX_EVENEMENT source_record(INT type, INT number, INT value = 0);

/// Forgets the record of a number that waits.
void drop_source_record(INT type, INT number);

} // namespace grx
