// What the tests look into of the creation of controls.
#pragma once

#include "host_t.h"

namespace grx {

extern INT Premier_bouton; // 1 until the first control was made

} // namespace grx
