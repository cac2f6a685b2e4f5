// Texts of the application for fonts that have the characters of Latin-1 and no others: UTF-8 is recognised and turned
// into Latin-1, for labels and titles of the library's boxes.
#pragma once

#include <cstddef>
#include <string_view>

namespace grx {

/// True for a text with characters beyond ASCII, all of them well-formed UTF-8.
bool is_clearly_utf8(std::string_view text);

/// Writes `text` in Latin-1 to `out`, which has room for text.size() + 1 bytes, and ends it with a zero. Latin-1 stays as
/// it is; a character that Latin-1 lacks becomes the nearest one, or '?'.
void to_latin1(std::string_view text, char* out);

/// The longest beginning of `text` of at most `most` bytes that cuts no character of UTF-8.
std::size_t whole_characters(std::string_view text, std::size_t most);

} // namespace grx
