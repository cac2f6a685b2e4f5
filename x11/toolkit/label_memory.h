// The text of a label, button or menu entry as it lies in memory: nothing is asked of the toolkit, so that it can be read
// when the display is closed.
#pragma once

#include <X11/Intrinsic.h>

#include <array>

namespace grx {

/// `, "text"`, cut where a line would get too long; empty for no text.
using QuotedText = std::array<char, 90>;
QuotedText quoted(const char* text);

/// The same of what a widget shows; empty for one that shows no text.
QuotedText quoted_label(Widget w);

} // namespace grx
