// Texts of drawings: bytes of some encoding with control codes, turned into characters and strokes.
#ifndef ATELIER_TEXTE_H
#define ATELIER_TEXTE_H

#include <string>
#include <string_view>
#include <vector>

#include "geometrie.h"

namespace atelier {

// UTF-8 where the bytes are valid as such, else the Latin-1 of Western code pages.
std::u32string en_unicode(std::string_view octets);

// UTF-8 of the same.
std::string en_utf8(std::string_view octets);
std::string en_utf8(std::u32string_view caracteres);

struct TexteSimple {
    std::u32string texte;
    bool souligne = false;
    bool surligne = false;
};

// One line: %%d degree, %%c diameter, %%p plus-minus, %%u underlined, %%o overlined, %%nnn, \U+XXXX.
TexteSimple decode_texte(std::string_view octets);

// A paragraph text with its inline codes, cut into lines at \P.
std::vector<TexteSimple> decode_paragraphe(std::string_view octets);

// Cuts lines at blanks so that none is longer than largeur, in units of the font.
std::vector<TexteSimple> coupe(const std::vector<TexteSimple>& lignes, double largeur);

// Strokes in units of the font, the baseline starting at the origin.
Chemin traits(const TexteSimple& texte);

} // namespace atelier

#endif
