// Writes words of a shell command. A word that the shell would change or divide is quoted.
#pragma once

#include <cstddef>
#include <string_view>

namespace grx {

/// True when the shell takes the word as it is.
bool is_plain_word(std::string_view word);

/// The number of characters that write_word writes.
std::size_t word_length(std::string_view word);

/// Writes a word, in quotes when it is not plain, without a terminator. Returns the end of what was written.
char* write_word(char* out, std::string_view word);

} // namespace grx
