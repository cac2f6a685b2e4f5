// Timers, watched descriptors and idle work, as the digitizing loop sees them: what besides the display may have records.
#pragma once

#include "xt_ent_t.h"

namespace grx {

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
void resume_timers();
void deliver_timer(GRX_EVENEMENT& record);

bool has_watches();
void resume_watches();
void deliver_watch(const GRX_EVENEMENT& record);

bool has_idle_work();
INT next_idle_work();

} // namespace grx
