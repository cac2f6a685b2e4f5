// Texts between UTF-8 and Latin-1: characters taken one by one from the front.
#include "pure/utf8.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace grx {

namespace {

constexpr uint32_t kFollowingBits = 6;
constexpr uint32_t kLastLatin1 = 0xFF;

// The forms of a character, by their first byte.
struct Form {
    uint32_t mask, mark; // of the first byte
    std::size_t bytes;
    uint32_t least; // smaller characters have a shorter form
};
constexpr std::array<Form, 4> kForms{
    {{0x80, 0x00, 1, 0}, {0xE0, 0xC0, 2, 0x80}, {0xF0, 0xE0, 3, 0x800}, {0xF8, 0xF0, 4, 0x10000}}};

uint32_t byte_of(char c) {
    return static_cast<unsigned char>(c);
}

bool follows(char c) {
    constexpr uint32_t mask = 0xC0, mark = 0x80;
    return (byte_of(c) & mask) == mark;
}

bool exists(uint32_t character) {
    constexpr uint32_t last = 0x10FFFF, first_surrogate = 0xD800, last_surrogate = 0xDFFF;
    return character <= last && (character < first_surrogate || character > last_surrogate);
}

uint32_t value_of(std::string_view bytes, const Form& form) {
    constexpr uint32_t following = 0x3F;
    uint32_t value = byte_of(bytes[0]) & ~form.mask;
    for (std::size_t i = 1; i < form.bytes; ++i) value = value << kFollowingBits | (byte_of(bytes[i]) & following);
    return value;
}

} // namespace

uint32_t take_character(std::string_view& text) {
    const auto* const form = std::find_if(
        kForms.begin(), kForms.end(), [first = byte_of(text[0])](const Form& f) { return (first & f.mask) == f.mark; });
    if (form == kForms.end() || text.size() < form->bytes) return kNoCharacter;
    if (!std::all_of(text.begin() + 1, text.begin() + static_cast<std::ptrdiff_t>(form->bytes), follows))
        return kNoCharacter;
    const uint32_t value = value_of(text, *form);
    if (value < form->least || !exists(value)) return kNoCharacter;
    text.remove_prefix(form->bytes);
    return value;
}

namespace {

// Hands over each character; false when it comes to bytes that are none, or when `use` returns false.
template <class Use>
bool for_each_character(std::string_view text, Use use) {
    while (!text.empty()) {
        const uint32_t character = take_character(text);
        if (character == kNoCharacter || !use(character)) return false;
    }
    return true;
}

} // namespace

bool is_utf8(std::string_view text) {
    return for_each_character(text, [](uint32_t) { return true; });
}

bool fits_latin1(std::string_view utf8) {
    return for_each_character(utf8, [](uint32_t character) { return character <= kLastLatin1; });
}

std::size_t characters_of(std::string_view utf8) {
    return static_cast<std::size_t>(std::count_if(utf8.begin(), utf8.end(), [](char c) { return !follows(c); }));
}

void write_latin1(std::string_view utf8, char* out) {
    for_each_character(utf8, [&out](uint32_t character) {
        *out++ = character <= kLastLatin1 ? static_cast<char>(character) : '?';
        return true;
    });
}

std::size_t utf8_size(std::string_view latin1) {
    constexpr uint32_t first_beyond_ascii = 0x80;
    const auto beyond =
        std::count_if(latin1.begin(), latin1.end(), [](char c) { return byte_of(c) >= first_beyond_ascii; });
    return latin1.size() + static_cast<std::size_t>(beyond);
}

void write_utf8(std::string_view latin1, char* out) {
    constexpr uint32_t first_beyond_ascii = 0x80, lead = 0xC0, low = 0x3F;
    for (const char c : latin1) {
        const uint32_t character = byte_of(c);
        if (character < first_beyond_ascii) {
            *out++ = c;
            continue;
        }
        *out++ = static_cast<char>(lead | character >> kFollowingBits);
        *out++ = static_cast<char>(first_beyond_ascii | (character & low));
    }
}

} // namespace grx
