// Recognises UTF-8 and turns it into Latin-1.
#include "pure/latin1.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "pure/utf8.h"

namespace grx {

namespace {

constexpr uint32_t kLastLatin1 = 0xFF;

struct Nearest {
    uint32_t character;
    char latin1;
};

// What word processors put into texts, and what French needs beyond Latin-1.
constexpr std::array<Nearest, 17> kNearest{{{0x152, 'O'}, {0x153, 'o'}, {0x178, 'Y'}, {0x2010, '-'}, {0x2011, '-'},
    {0x2012, '-'}, {0x2013, '-'}, {0x2014, '-'}, {0x2018, '\''}, {0x2019, '\''}, {0x201C, '"'}, {0x201D, '"'},
    {0x2022, '\267'}, {0x2026, '.'}, {0x202F, '\240'}, {0x20AC, 'E'}, {0x2212, '-'}}};

bool continues(std::string_view text, std::size_t i) {
    return (static_cast<unsigned char>(text[i]) & 0xC0U) == 0x80U;
}

char latin1_of(uint32_t character) {
    if (character <= kLastLatin1) return static_cast<char>(character);
    const auto* const found = std::find_if(
        kNearest.begin(), kNearest.end(), [character](const Nearest& near) { return near.character == character; });
    return found != kNearest.end() ? found->latin1 : '?';
}

} // namespace

bool is_clearly_utf8(std::string_view text) {
    bool beyond_ascii = false;
    while (!text.empty()) {
        const uint32_t character = take_character(text);
        if (character == kNoCharacter) return false;
        beyond_ascii = beyond_ascii || character >= 0x80;
    }
    return beyond_ascii;
}

void to_latin1(std::string_view text, char* out) {
    if (is_clearly_utf8(text)) {
        while (!text.empty()) *out++ = latin1_of(take_character(text));
    } else {
        out = std::copy(text.begin(), text.end(), out);
    }
    *out = '\0';
}

std::size_t whole_characters(std::string_view text, std::size_t most) {
    if (text.size() <= most) return text.size();
    if (!is_clearly_utf8(text)) return most;
    while (most > 0 && continues(text, most)) --most;
    return most;
}

} // namespace grx
