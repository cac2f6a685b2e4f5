// Letters as pixels, by FreeType, for drawing texts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "fonts/font.h"
#include "system/block.h"

namespace grx {

/// How letters cover pixels: by how much, or wholly or not; or each pixel that is covered at all.
enum class Ink : char { Soft, Hard, Touched };

/// The pixels of a letter. Its place is that of the top left one from the pen, y downwards.
struct GlyphImage {
    int left = 0, top = 0, width = 0, height = 0;
    std::size_t pitch = 0;
    Block<unsigned char>
        rows; // Soft: a byte a pixel, from 0 to 255; else a bit, the first one highest. Kept for the next letter

    std::size_t bytes() const { return pitch * static_cast<std::size_t>(height); }
    std::span<const unsigned char> pixels() const { return rows.span().first(bytes()); }
};

enum class Rendered : char { Done, TooLarge, NoMemory };

inline constexpr int kLargestImage = 256; // pixels of a side

/// Renders a letter of a font with outlines. `place` takes it from capitals to pixels.
Rendered render_letter(const Font& font, const Letter& letter, const Affine& place, Ink ink, GlyphImage& image);

/// Renders lines, in 64ths of a pixel, y upwards, into an image that has its size and is cleared.
Rendered render_outline(FT_Outline& outline, Ink ink, GlyphImage& image);

/// Gives an image its size and clears it; false when memory is short.
bool size_image(GlyphImage& image, int width, int height, Ink ink);

} // namespace grx
