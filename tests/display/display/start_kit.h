// The library started with nothing done yet.
#pragma once

#include "tests/support/window_kit.h"

namespace grxtest {

class StartUp : public DisplayTest {};

} // namespace grxtest
