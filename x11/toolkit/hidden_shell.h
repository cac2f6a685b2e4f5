// A window of the library's own that is never shown and never destroyed.
#pragma once

#include <X11/Intrinsic.h>

namespace grx {

/// A top-level one: the toolkit complains about labels in others when they go.
Widget hidden_shell();

} // namespace grx
