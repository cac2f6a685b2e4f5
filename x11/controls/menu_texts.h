// What menu entries do, in words, for the information strip and the help key.
#pragma once

#include "host_t.h"

namespace grx {

/// The message field of the information strip: shows the texts when the application names no other control.
void note_message_field(INT nobou);

/// Whether highlighted entries come as records.
void tell_armed_entries(bool tell);

} // namespace grx
