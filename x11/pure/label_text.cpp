// Reads the characters of a text of the application, UTF-8 or Latin-1, for texts in drawings.
#include "pure/label_text.h"

#include "pure/latin1.h"
#include "pure/utf8.h"

namespace grx {

namespace {

bool is_control(uint32_t character) {
    constexpr uint32_t blank = 0x20, del = 0x7F, after_controls = 0xA0;
    return character < blank || (character >= del && character < after_controls);
}

uint32_t take_latin1(std::string_view& text) {
    const uint32_t character = static_cast<unsigned char>(text.front());
    text.remove_prefix(1);
    return character;
}

} // namespace

std::size_t read_characters(std::string_view text, std::span<uint32_t> out) {
    const bool utf8 = is_clearly_utf8(text);
    std::size_t count = 0;
    while (!text.empty() && count < out.size()) {
        uint32_t character = utf8 ? take_character(text) : take_latin1(text);
        if (character == '\t') character = ' ';
        if (!is_control(character)) out[count++] = character;
    }
    return count;
}

} // namespace grx
