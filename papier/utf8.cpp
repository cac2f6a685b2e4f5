// Texts of the application as UTF-8, for cairo.
#include "papier/utf8.h"

#include <array>
#include <cstdint>

namespace {

// The bytes of a character by its first one, and the least code that may take so many.
struct Form {
    uint8_t mask, first;
    std::size_t bytes;
    uint32_t least;
};
constexpr std::array<Form, 4> kForms{
    {{0x80, 0, 1, 0}, {0xE0, 0xC0, 2, 0x80}, {0xF0, 0xE0, 3, 0x800}, {0xF8, 0xF0, 4, 0x10000}}};

uint8_t byte_at(std::string_view text, std::size_t i) {
    return static_cast<uint8_t>(text[i]);
}

// The bytes that the first character takes, 0 when it is none.
std::size_t character(std::string_view text) {
    const uint8_t lead = byte_at(text, 0);
    for (const auto& [mask, first, bytes, least] : kForms) {
        if ((lead & mask) != first) continue;
        if (text.size() < bytes) return 0;
        uint32_t code = lead & static_cast<uint8_t>(~mask);
        for (std::size_t i = 1; i < bytes; ++i) {
            if ((byte_at(text, i) & 0xC0) != 0x80) return 0;
            code = code << 6 | (byte_at(text, i) & 0x3FU);
        }
        const bool good = code >= least && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
        return good ? bytes : 0;
    }
    return 0;
}

constexpr bool is_control(uint8_t byte) {
    return byte < 0x20 || byte == 0x7F;
}

// The controls U+0080 to U+009F in Latin-1, which no font shows.
constexpr bool is_high_control(uint8_t byte) {
    return byte >= 0x80 && byte < 0xA0;
}

} // namespace

namespace papier {

bool is_utf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t bytes = character(text);
        if (bytes == 0) return false;
        text.remove_prefix(bytes);
    }
    return true;
}

bool take_text(std::string_view text, Growing<char>& into) {
    const bool converted = !is_utf8(text);
    bool complete = true;
    const auto add = [&](unsigned byte) { complete = into.append(static_cast<char>(byte)) && complete; };
    into.clear();
    for (const char c : text) {
        const auto byte = static_cast<uint8_t>(c);
        if (is_control(byte) || (converted && is_high_control(byte))) {
            add(' ');
        } else if (converted && byte >= 0x80) {
            add(0xC0U | byte >> 6);
            add(0x80U | (byte & 0x3FU));
        } else {
            add(byte);
        }
    }
    add(0);
    return complete;
}

} // namespace papier
