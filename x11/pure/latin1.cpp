// Recognises UTF-8 and turns it into Latin-1.
#include "pure/latin1.h"

#include <algorithm>
#include <array>

namespace grx {

namespace {

constexpr char32_t kBad = 0xFFFFFFFF;
constexpr char32_t kLastLatin1 = 0xFF;

struct Nearest {
    char32_t character;
    char latin1;
};

// What word processors put into texts, and what French needs beyond Latin-1.
constexpr std::array<Nearest, 17> kNearest{{{0x152, 'O'}, {0x153, 'o'}, {0x178, 'Y'}, {0x2010, '-'}, {0x2011, '-'},
    {0x2012, '-'}, {0x2013, '-'}, {0x2014, '-'}, {0x2018, '\''}, {0x2019, '\''}, {0x201C, '"'}, {0x201D, '"'},
    {0x2022, '\267'}, {0x2026, '.'}, {0x202F, '\240'}, {0x20AC, 'E'}, {0x2212, '-'}}};

unsigned char byte_at(std::string_view text, std::size_t i) {
    return static_cast<unsigned char>(text[i]);
}

std::size_t length_of(unsigned char first) {
    if (first < 0x80) return 1;
    if (first < 0xC2) return 0;
    if (first < 0xE0) return 2;
    if (first < 0xF0) return 3;
    return first < 0xF5 ? 4 : 0;
}

bool continues(std::string_view text, std::size_t i) {
    return (byte_at(text, i) & 0xC0U) == 0x80U;
}

// Takes the first character off `text`; kBad, with nothing taken, when it is not well formed.
char32_t take_character(std::string_view& text) {
    constexpr std::array<char32_t, 5> least{0, 0, 0x80, 0x800, 0x10000};
    const unsigned char first = byte_at(text, 0);
    const std::size_t length = length_of(first);
    if (length == 0 || length > text.size()) return kBad;
    char32_t character = length == 1 ? first : first & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        if (!continues(text, i)) return kBad;
        character = character << 6 | (byte_at(text, i) & 0x3FU);
    }
    const bool surrogate = character >= 0xD800 && character < 0xE000;
    if (character < least[length] || character > 0x10FFFF || surrogate) return kBad;
    text.remove_prefix(length);
    return character;
}

char latin1_of(char32_t character) {
    if (character <= kLastLatin1) return static_cast<char>(character);
    const auto* const found = std::find_if(
        kNearest.begin(), kNearest.end(), [character](const Nearest& near) { return near.character == character; });
    return found != kNearest.end() ? found->latin1 : '?';
}

} // namespace

bool is_utf8(std::string_view text) {
    bool beyond_ascii = false;
    while (!text.empty()) {
        const char32_t character = take_character(text);
        if (character == kBad) return false;
        beyond_ascii = beyond_ascii || character >= 0x80;
    }
    return beyond_ascii;
}

void to_latin1(std::string_view text, char* out) {
    if (is_utf8(text)) {
        while (!text.empty()) *out++ = latin1_of(take_character(text));
    } else {
        out = std::copy(text.begin(), text.end(), out);
    }
    *out = '\0';
}

std::size_t whole_characters(std::string_view text, std::size_t most) {
    if (text.size() <= most) return text.size();
    if (!is_utf8(text)) return most;
    while (most > 0 && continues(text, most)) --most;
    return most;
}

} // namespace grx
