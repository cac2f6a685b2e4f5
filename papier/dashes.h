// The dashes of line styles, in the units that the styles are stated in.
#pragma once

#include <span>

#include "host_t.h"

namespace papier {

/// What is drawn and skipped in turn; empty for a solid line.
std::span<const double> dashes_of(INT style);

/// How long the dashes are until they come again, 0 for a solid line.
double dash_period(INT style);

} // namespace papier
