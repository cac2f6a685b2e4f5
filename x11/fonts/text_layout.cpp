// The characters of a text in their places along the baseline, for drawing it and for asking about it.
#include "fonts/text_layout.h"

#include <cmath>
#include <cstring>

#include "pure/label_text.h"
#include "grx_plus_erreurs.h"
#include "grx_plus_textes.h"

namespace grx {

namespace {

constexpr double kMostSlant = 10;

bool is_size(double value) {
    return value >= 0 && value <= GRX_HAUTEUR_TEXTE_MAX; // false for what is no number
}

// Cosine and sine may be of any length that their squares can be added of.
bool is_direction(double value) {
    constexpr double most = 1e100;
    return std::abs(value) <= most;
}

bool read_frame(const GRX_TEXTE& text, TextFrame& frame) {
    if (!is_size(text.hauteurlabel) || !is_size(text.largeurlabel) || text.hauteurlabel == 0) return false;
    if (!is_direction(text.cosinuslabel) || !is_direction(text.sinuslabel)) return false;
    if (!(std::abs(text.slantlabel) <= kMostSlant)) return false;
    frame.origin = {static_cast<double>(text.x), static_cast<double>(text.y)};
    frame.height = text.hauteurlabel;
    frame.width = text.largeurlabel > 0 ? text.largeurlabel : text.hauteurlabel;
    frame.cosine = text.cosinuslabel;
    frame.sine = text.sinuslabel;
    frame.slant = text.slantlabel;
    frame.mirrored = text.mirorlabel != 0;
    normalise(frame);
    return true;
}

std::size_t read_text(const GRX_TEXTE& text, std::span<uint32_t> characters) {
    return read_characters({text.chaine, strnlen(text.chaine, sizeof text.chaine)}, characters);
}

double given_advance(const GRX_TEXTE& text, std::size_t i, Advances advances) {
    return advances == Advances::OfText ? text.extentslabel[i] : 0;
}

// Places beyond what pixels can be are as good as infinite.
bool is_place(double along) {
    constexpr double most = 1e12;
    return std::abs(along) <= most;
}

bool place_letters(const GRX_TEXTE& text, TextLayout& layout, Advances advances) {
    double along = 0;
    for (std::size_t i = 0; i < layout.count; ++i) {
        const double given = given_advance(text, i, advances);
        layout.starts[i] = along;
        along += given != 0 ? given : layout.letters[i].advance * layout.frame.width;
        if (!is_place(along)) return false;
    }
    layout.length = along;
    return true;
}

} // namespace

INT lay_out(const GRX_TEXTE& text, TextLayout& layout, Advances advances) {
    if (!read_frame(text, layout.frame)) return GRX_ECHEC_PARAMETRE;
    std::array<uint32_t, GRX_TEXTE_CHAINE_MAX> characters;
    layout.count = read_text(text, characters);
    layout.font = font_named(text.fontlabel);
    if (layout.font == nullptr) return GRX_ECHEC_MEMOIRE;
    for (std::size_t i = 0; i < layout.count; ++i) {
        layout.letters[i] = letter_of(*layout.font, characters[i]);
        if (!layout.letters[i].known) return GRX_ECHEC_MEMOIRE;
    }
    if (!place_letters(text, layout, advances)) return GRX_ECHEC_PARAMETRE;
    return layout.font->result == 1 ? 1 : GRX_TEXTE_REMPLACE;
}

} // namespace grx
