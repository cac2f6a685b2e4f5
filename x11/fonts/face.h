// One face of a font file: opened, measured, and its outlines as lines, for the fonts of texts.
#pragma once

#include "fonts/freetype.h"
#include "fonts/font_files.h"
#include "host_t.h"
#include "pure/path_sink.h"
#include "pure/text_frame.h"

namespace grx {

/// Opens the font of a file. Gives 1, GRX_ECHEC_FORMAT or GRX_ECHEC_MEMOIRE; `face` is set only then.
INT open_face(const FontFile& file, FT_Face& face);

/// The height of a capital in the face's units.
double capital_height(FT_Face face);

/// The number of a character's glyph, 0 when the face has none.
FT_UInt glyph_of(FT_Face face, FT_ULong character);

/// Loads the outline of a glyph in the face's units into its slot; false when it has none that can be read.
bool load_outline(FT_Face face, FT_UInt glyph);

/// Hands over the outline in the face's slot; `place` takes it from the face's units to the sink's measure.
void walk_outline(FT_Face face, const Affine& place, double tolerance, PathSink& sink);

} // namespace grx
