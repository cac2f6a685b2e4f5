// What showing and reading back pictures share.
#pragma once

#include "host_t.h"

namespace grx {

bool usable_picture(const uchar* pixels, INT width, INT height);

} // namespace grx
