// What the tests look into of the colours.
#pragma once

#include "xt_ini_t.h"

namespace grx {

extern INT icone_pix[GRX_NB_COULEURS]; // pixel of each icon colour

} // namespace grx
