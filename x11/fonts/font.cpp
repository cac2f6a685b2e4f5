// Fonts of texts in drawings: the built-in one, and those of files, kept by name with what they have for each character.
#include "fonts/font.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

#include "fonts/face.h"
#include "fonts/font_files.h"
#include "pure/stroke_font.h"
#include "pure/text.h"
#include "system/never_destroyed.h"
#include "system/shut_down.h"
#include "grx_plus_erreurs.h"
#include "grx_plus_textes.h"

namespace grx {

namespace {

constexpr std::size_t kMostFonts = 32;
NeverDestroyed<std::array<Font, kMostFonts>> fonts;
Font* last_font = nullptr;
uint64_t serials = 0;
uint64_t uses = 0;

void release(Font& font) {
    if (font.face != nullptr) FT_Done_Face(font.face);
    font = Font{};
    last_font = nullptr;
}

void forget_fonts() {
    for (Font& font : fonts.value) release(font);
    end_freetype();
    serials = uses = 0;
}

bool is_named(const Font& font, const char* name) {
    return font.result != 0 && std::strncmp(font.name.data(), name, font.name.size()) == 0;
}

Font* known_font(const char* name) {
    if (last_font != nullptr && is_named(*last_font, name)) return last_font;
    const auto found =
        std::find_if(fonts.value.begin(), fonts.value.end(), [name](const Font& font) { return is_named(font, name); });
    return found != fonts.value.end() ? &*found : nullptr;
}

// An entry that is free, else the one that was not used for longest; the default font stays, because others borrow.
Font& free_entry() {
    const auto age = [](const Font& font) {
        if (font.result == 0) return uint64_t{0};
        return font.name[0] == '\0' ? UINT64_MAX : font.last_use;
    };
    Font& oldest = *std::min_element(
        fonts.value.begin(), fonts.value.end(), [age](const Font& a, const Font& b) { return age(a) < age(b); });
    if (oldest.result != 0) release(oldest);
    return oldest;
}

void measure(Font& font) {
    font.above = kStrokeAbove;
    font.below = kStrokeBelow;
    if (font.face == nullptr) return;
    font.unit = 1 / capital_height(font.face);
    font.above = std::max(0.0, font.face->ascender * font.unit);
    font.below = std::max(0.0, -font.face->descender * font.unit);
}

INT open_named(const char* name, FT_Face& face) {
    if (std::strcmp(name, GRX_FONTE_TRAIT) == 0) return 1;
    FontFile file;
    const INT found = find_font_file(name, file);
    return found == 1 ? open_face(file, face) : found;
}

Font* open_font(const char* name) {
    std::array<char, sizeof Font::name + 1> whole{};
    copy_text(whole.data(), whole.size(), std::string_view(name, strnlen(name, sizeof Font::name)));
    FT_Face face = nullptr;
    const INT result = open_named(whole.data(), face);
    if (result == GRX_ECHEC_MEMOIRE) return nullptr;
    at_shut_down(forget_fonts);
    Font& font = free_entry();
    std::copy_n(whole.begin(), font.name.size(), font.name.begin());
    font.face = face;
    font.result = result;
    font.serial = ++serials;
    measure(font);
    if (!freetype_was_refused()) return &font;
    release(font);
    return nullptr;
}

// -- letters

std::size_t slot_of(const Font& font, uint32_t character) {
    constexpr uint32_t spread = 2654435761U;
    const std::size_t mask = font.letters.size() - 1;
    std::size_t slot = (character * spread >> 8) & mask;
    while (font.letters[slot].known && font.letters[slot].character != character) slot = (slot + 1) & mask;
    return slot;
}

// Doubles the table when it is half full; false when memory is short.
bool has_room(Font& font) {
    constexpr std::size_t first = 256;
    if (font.letters.size() > 2 * font.nb_letters) return true;
    Block<Letter> wider(std::max(first, 2 * font.letters.size()));
    if (!wider) return static_cast<bool>(font.letters) && font.letters.size() > font.nb_letters + 1;
    std::swap(font.letters, wider);
    for (const Letter& letter : wider)
        if (letter.known) font.letters[slot_of(font, letter.character)] = letter;
    return true;
}

double outline_advance(FT_Face face, uint32_t glyph) {
    if (FT_Load_Glyph(face, glyph, FT_LOAD_NO_SCALE | FT_LOAD_NO_BITMAP) != 0) return 0;
    return static_cast<double>(face->glyph->advance.x);
}

// The default font if it has outlines and the character.
const Font* lender(const Font& font, uint32_t character) {
    if (font.name[0] == '\0') return nullptr;
    Font* const before = last_font;
    const Font* lends = known_font("");
    if (lends == nullptr) lends = open_font("");
    last_font = before;
    return lends != nullptr && lends->face != nullptr && glyph_of(lends->face, character) != 0 ? lends : nullptr;
}

Letter find_letter(const Font& font, uint32_t character) {
    Letter letter{character, character, false, true, 0};
    if (font.strokes()) {
        letter.advance = stroke_advance(character);
        return letter;
    }
    letter.glyph = glyph_of(font.face, character);
    const Font* const lends = letter.glyph == 0 ? lender(font, character) : nullptr;
    if (lends != nullptr) {
        letter.glyph = glyph_of(lends->face, character);
        letter.borrowed = true;
    }
    letter.advance = outline_advance(face_of(font, letter), letter.glyph) * unit_of(font, letter);
    letter.known = !freetype_was_refused();
    return letter;
}

} // namespace

Font* font_named(const char* name) {
    Font* font = known_font(name);
    if (font == nullptr) font = open_font(name);
    last_font = font;
    if (font != nullptr) font->last_use = ++uses;
    return font;
}

INT look_for_font(const char* name) {
    Font* const known = known_font(name);
    if (known != nullptr && known->result != 1) release(*known);
    const Font* const font = font_named(name);
    return font != nullptr ? font->result : GRX_ECHEC_MEMOIRE;
}

Letter letter_of(Font& font, uint32_t character) {
    if (font.letters) {
        const Letter& kept = font.letters[slot_of(font, character)];
        if (kept.known) return kept;
    }
    const Letter letter = find_letter(font, character);
    if (!letter.known || !has_room(font)) return letter;
    ++font.nb_letters;
    return font.letters[slot_of(font, character)] = letter;
}

FT_Face face_of(const Font& font, const Letter& letter) {
    if (!letter.borrowed) return font.face;
    const Font* const lends = known_font("");
    return lends != nullptr ? lends->face : font.face;
}

double unit_of(const Font& font, const Letter& letter) {
    if (!letter.borrowed) return font.unit;
    const Font* const lends = known_font("");
    return lends != nullptr ? lends->unit : font.unit;
}

void walk_letter(const Font& font, const Letter& letter, const Affine& place, double tolerance, PathSink& sink) {
    const FT_Face face = face_of(font, letter);
    if (face == nullptr)
        walk_strokes(letter.character, place, tolerance, sink);
    else if (load_outline(face, letter.glyph))
        walk_outline(face, place.scaled(unit_of(font, letter)), tolerance, sink);
}

} // namespace grx
