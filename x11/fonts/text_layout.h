// The characters of a text in their places along the baseline, for drawing it and for asking about it.
#pragma once

#include <array>
#include <cstddef>

#include "fonts/font.h"
#include "pure/text_frame.h"
#include "xt_gfx_t.h"

namespace grx {

struct TextLayout {
    Font* font = nullptr; // good until another is asked for
    TextFrame frame;
    std::size_t count = 0;
    std::array<Letter, GRX_TEXTE_CHAINE_MAX> letters;
    std::array<double, GRX_TEXTE_CHAINE_MAX> starts; // along the baseline, in pixels
    double length = 0;

    Vertex start(std::size_t i) const { return frame.along(starts[i]); } // from the origin
    Affine place(std::size_t i) const { return frame.letters().shifted(start(i)); }
};

/// Which advances a text has.
enum class Advances : char { OfText, OfFont };

/// Gives 1, GRX_TEXTE_REMPLACE, GRX_ECHEC_PARAMETRE or GRX_ECHEC_MEMOIRE.
INT lay_out(const GRX_TEXTE& text, TextLayout& layout, Advances advances = Advances::OfText);

} // namespace grx
