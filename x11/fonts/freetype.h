// The one instance of FreeType, for texts in drawings. Its memory is the application's, like all of the library.
#pragma once

#include <ft2build.h>
#include FT_FREETYPE_H

namespace grx {

/// Null when memory is short.
FT_Library freetype();

/// Frees the instance, and all faces that it opened.
void end_freetype();

/// True when FreeType was refused memory since the last call: what it then says of a font does not count.
bool freetype_was_refused();

} // namespace grx
