// The digitizing loop as other files of the room use it, and what the tests look into.
#pragma once

#include <X11/Xlib.h>

#include "xt_ent_t.h"

namespace grx {

extern XEvent Memo_event; // the last key press

/// Polls as grx_digitaliseur does, for waits of the library that drop what they do not want: records of the additions stay in
/// their queue.
bool digitise_leaving_added(GRX_EVENEMENT& evt);

} // namespace grx
