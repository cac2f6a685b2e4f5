// Numbers out of text, as atoi reads them.
#pragma once

#include <cstddef>
#include <string_view>

namespace grx {

// Leading blanks, a sign, digits; 0 when there is no digit. What 32 bits cannot hold is cut as atoi cuts it.
int number_of(std::string_view text);

// How many characters at the end of text are decimal digits.
std::size_t trailing_digits(std::string_view text);

} // namespace grx
