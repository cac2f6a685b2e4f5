// The built-in font of single strokes, for pens and thin lines.
#pragma once

#include <cstdint>

#include "pure/path_sink.h"
#include "pure/text_frame.h"

namespace grx {

// In capitals.
inline constexpr double kStrokeAbove = 1.3; // capitals with accents
inline constexpr double kStrokeBelow = 0.3;

/// True when the font has the character; for others it draws a box.
bool has_strokes(uint32_t character);

/// From the start of a letter to that of the next one, in capitals.
double stroke_advance(uint32_t character);

/// Hands over the strokes of a letter; `place` takes them from capitals, y upwards, to the sink's measure, in which curves
/// become lines within `tolerance`.
void walk_strokes(uint32_t character, const Affine& place, double tolerance, PathSink& sink);

} // namespace grx
