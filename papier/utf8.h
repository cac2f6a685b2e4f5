// Texts of the application as UTF-8, for cairo.
#pragma once

#include <string_view>

#include "papier/growing.h"

namespace papier {

/// True for characters of at most U+10FFFF, each in its shortest form, without surrogates.
bool is_utf8(std::string_view text);

/// Takes a text as it is when it is UTF-8, else as Latin-1; control characters become blanks. A zero ends it. False when
/// memory is short.
bool take_text(std::string_view text, Growing<char>& into);

} // namespace papier
