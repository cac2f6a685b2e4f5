// Fonts of texts in drawings: the built-in one, and those of files; what each has for a character.
#pragma once

#include <array>
#include <cstdint>

#include "fonts/freetype.h"
#include "host_t.h"
#include "pure/path_sink.h"
#include "pure/text_frame.h"
#include "system/block.h"

namespace grx {

/// What a font has for a character. Lengths are in capitals.
struct Letter {
    uint32_t character;
    uint32_t glyph; // of the face; of the built-in font the character
    bool borrowed;  // of the default font's face
    bool known;
    double advance;
};

struct Font {
    std::array<char, 80> name{};
    INT result = 0;         // 1, or why the built-in font is in its place; 0 in an entry that is free
    FT_Face face = nullptr; // null: the built-in font
    double unit = 0;        // of the face, in capitals
    double above = 0, below = 0;
    uint64_t serial = 0; // none is given twice
    uint64_t last_use = 0;
    Block<Letter> letters; // by character, open addressing; its size is a power of 2
    std::size_t nb_letters = 0;

    bool strokes() const { return face == nullptr; }
};

/// The font of a name as in a text's record, which need not be ended by a zero. It is good until the next call. Null when
/// memory is short.
Font* font_named(const char* name);

/// Looks for the font again if it could not be had before. Gives its result, or GRX_ECHEC_MEMOIRE.
INT look_for_font(const char* name);

/// What a font has for a character; not `known` when memory is short.
Letter letter_of(Font& font, uint32_t character);

/// The face that a letter is taken from; null: it is of strokes.
FT_Face face_of(const Font& font, const Letter& letter);

/// The size of a face's unit in capitals of the font.
double unit_of(const Font& font, const Letter& letter);

/// Hands over the outline or strokes of a letter; curves become lines within `tolerance` of the sink's measure.
void walk_letter(const Font& font, const Letter& letter, const Affine& place, double tolerance, PathSink& sink);

} // namespace grx
