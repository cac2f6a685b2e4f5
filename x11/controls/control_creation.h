// Makes controls for the application: widget, number, record and callbacks.
#pragma once

#include "host_t.h"

namespace grx {

extern INT Premier_bouton;

inline constexpr INT kNoParent = -1;

} // namespace grx
