// Timers, watched descriptors and idle work, as the digitizing loop sees them: what besides the display may have records.
#pragma once

#include <cstdint>

#include "grx_plus_evenements.h"
#include "xt_ent_t.h"

namespace grx {

/// An empty record of a type about a number.
GRX_EVENEMENT source_record(INT type, INT number, INT value = 0);

/// Forgets the record of a number that waits.
void drop_source_record(INT type, INT number);

// -- all of them

bool has_sources();

/// Posts what is due or ready, once for each source: the next comes after its record was delivered and the source was
/// resumed.
void serve_sources();

/// The sources whose records were delivered may have others.
void resume_sources();

/// A record is about to be delivered: completes it when a source made it.
void deliver_source(GRX_EVENEMENT& record);

// -- each kind

bool has_timers();
void serve_timers();
void resume_timers();
void deliver_timer(GRX_EVENEMENT& record);

bool has_watches();
void watch_ready(uint64_t key, uint32_t events);
void resume_watches();
void deliver_watch(const GRX_EVENEMENT& record);

bool has_idle_work();
INT next_idle_work();

} // namespace grx
