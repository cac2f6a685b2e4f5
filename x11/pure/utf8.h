// Texts in UTF-8: knowing them, and making them of Latin-1. For what other programs are told.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace grx {

namespace utf8 {

/// Bytes that follow a first byte; 4 for a byte that begins no character.
constexpr std::size_t followers(unsigned char first) {
    if (first < 0x80) return 0;
    if (first >= 0xC2 && first < 0xE0) return 1;
    if (first >= 0xE0 && first < 0xF0) return 2;
    return first >= 0xF0 && first < 0xF5 ? 3 : 4;
}

/// False for the forms that are longer than needed, for surrogates and for what lies beyond the last character.
constexpr bool second_fits(unsigned char first, unsigned char second) {
    if (first == 0xE0) return second >= 0xA0;
    if (first == 0xED) return second < 0xA0;
    if (first == 0xF0) return second >= 0x90;
    return first != 0xF4 || second < 0x90;
}

} // namespace utf8

/// True when the bytes are UTF-8, as ASCII is.
constexpr bool is_utf8(std::string_view text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto first = static_cast<unsigned char>(text[i]);
        const std::size_t more = utf8::followers(first);
        if (more > 3 || more >= text.size() - i) return false;
        if (more > 0 && !utf8::second_fits(first, static_cast<unsigned char>(text[i + 1]))) return false;
        for (std::size_t end = i + more; i < end;)
            if ((static_cast<unsigned char>(text[++i]) & 0xC0) != 0x80) return false;
    }
    return true;
}

/// Writes Latin-1 as UTF-8, without a final zero, into room for two bytes for each; returns the number of bytes.
constexpr std::size_t latin1_to_utf8(std::string_view text, char* out) {
    std::size_t length = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x80) out[length++] = static_cast<char>(0xC0 | (byte >> 6));
        out[length++] = static_cast<char>(byte < 0x80 ? byte : 0x80 | (byte & 0x3F));
    }
    return length;
}

} // namespace grx
