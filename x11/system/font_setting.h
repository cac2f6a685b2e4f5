// The name of the interface's font, as it was set: for start-up.
#pragma once

namespace grx {

/// The whole name, "" at first; kept here until another is set.
const char* font_setting();

} // namespace grx
