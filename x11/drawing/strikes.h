// Letters of a font in one size and direction, rendered once and kept, for drawing texts: soft ones in the server, others here.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include <X11/extensions/Xrender.h>

#include "fonts/font.h"
#include "fonts/glyph_image.h"
#include "system/block.h"

namespace grx {

/// A letter that was rendered. Its place is that of its top left pixel from the pen.
struct StrikeGlyph {
    uint32_t key;
    bool known;
    bool large; // too large to be kept
    int16_t left, top;
    uint16_t width, height;
    uint32_t where; // its number in the server's set, or where its bits begin
};

struct Strike {
    uint64_t font = 0; // its serial; 0 for an entry that is free
    std::array<int32_t, 4> matrix{};
    Ink ink = Ink::Soft;
    uint64_t last_use = 0;
    GlyphSet set = None;
    Block<StrikeGlyph> glyphs; // by key, open addressing
    std::size_t nb_glyphs = 0;
    Block<unsigned char> bits;
    std::size_t nb_bits = 0;
    std::size_t bytes = 0; // of all pixels
};

inline constexpr int kPhases = 4; // places of the pen within a pixel, across and down

/// The letters of a font as `letters` places them, whose shift is left out. It is good until another is asked for.
Strike& strike_for(const Font& font, const Affine& letters, Ink ink);

/// A letter, rendered if it was not; null when memory is short. It is good until the next call.
const StrikeGlyph* strike_glyph(Strike& strike, const Font& font, const Letter& letter, int phase_x, int phase_y);

} // namespace grx
