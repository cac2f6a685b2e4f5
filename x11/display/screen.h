// Size and depth of the screen.
#pragma once

namespace grx {

bool deep_screen();

} // namespace grx
