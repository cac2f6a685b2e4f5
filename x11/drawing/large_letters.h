// Draws letters that are too large to be kept, as far as they can be seen.
#pragma once

#include "drawing/text_target.h"
#include "fonts/font.h"
#include "fonts/glyph_image.h"

namespace grx {

/// Draws one letter. `colour` is a pixel, which hard letters do not need: theirs is that of the context. False when memory is
/// short.
bool draw_large_letter(const TextTarget& target, const Font& font, const Letter& letter, const Affine& place, Ink ink,
    unsigned long colour);

} // namespace grx
