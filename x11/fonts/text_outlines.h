// All lines of a text, for drawing outlines and strokes and for handing them to the application.
#pragma once

#include "fonts/path_buffer.h"
#include "fonts/text_layout.h"

namespace grx {

/// Hands over all outlines or strokes of a text; curves become lines within `tolerance` pixels.
void walk_text(const TextLayout& layout, double tolerance, PathSink& sink);

/// Puts them into a buffer. False when memory is short.
bool trace_text(const TextLayout& layout, double tolerance, PathBuffer& into);

} // namespace grx
