// What the error handler of the display connection has seen.
#pragma once

#include "host_t.h"

namespace grx {

const char* last_x_error_text(); // text of the last protocol error, "" = none yet
INT x_error_count();

} // namespace grx
