// Texts between UTF-8 and Latin-1, for what programs give each other on the clipboard.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace grx {

constexpr uint32_t kNoCharacter = UINT32_MAX;

/// Takes the first character of a text that is not empty; kNoCharacter, with nothing taken, for bytes that are none.
uint32_t take_character(std::string_view& text);

/// True for characters of at most U+10FFFF, each in its shortest form, without surrogates.
bool is_utf8(std::string_view text);

/// True when Latin-1 has every character of a text that is UTF-8.
bool fits_latin1(std::string_view utf8);

/// The characters of a text that is UTF-8: the bytes that it takes in Latin-1.
std::size_t characters_of(std::string_view utf8);

/// Writes a text that is UTF-8 in Latin-1, '?' for what Latin-1 lacks. `out` has room for characters_of().
void write_latin1(std::string_view utf8, char* out);

/// The bytes that a text of Latin-1 takes in UTF-8.
std::size_t utf8_size(std::string_view latin1);

/// Writes a text of Latin-1 in UTF-8. `out` has room for utf8_size().
void write_utf8(std::string_view latin1, char* out);

} // namespace grx
