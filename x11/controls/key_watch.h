// Key presses anywhere in the application, before anybody has them: they end tips and may ask for help.
#pragma once

namespace grx {

/// From now on; again changes nothing.
void watch_key_presses();

} // namespace grx
