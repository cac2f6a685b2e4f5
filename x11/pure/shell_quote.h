// Words of a shell command: plain ones as they are, others quoted so that the shell takes them as one word.
#pragma once

#include <cstddef>
#include <string_view>

namespace grx {

/// True for a word that means itself to the shell.
bool is_plain_word(std::string_view word);

/// Characters that write_word writes.
std::size_t word_length(std::string_view word);

/// Writes a word, quoted when it is not plain; gives the end of what was written. No terminator.
char* write_word(char* out, std::string_view word);

} // namespace grx
