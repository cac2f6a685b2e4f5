// The digitizing loop for functions of the library that read events and lose them.
#pragma once

#include "xt_ent_t.h"

namespace grx {

/// Handles one event, if there is one; true when it gave a record of the contract. The additions' records stay.
bool poll_event(GRX_EVENEMENT& evt);

} // namespace grx
