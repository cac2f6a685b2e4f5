// Waits for another program's answer about a selection without holding anything else up.
#pragma once

#include "events/selection_fetch.h"

namespace grx {

/// Waits for the end of a request. Windows are redrawn and other programs that ask for selections are answered meanwhile;
/// input stays in the queue. Records of the redrawing go to the queue of the additions' records, and the pending record
/// is left as it is.
void wait_for(SelectionFetch& fetch);

} // namespace grx
