// Reads numbers from text as atoi does, for the readers of files and records.
#pragma once

#include <cstddef>
#include <string_view>

namespace grx {

/// The number at the start of a text, after blanks and a sign; 0 when there is no digit. A number that does not fit 32
/// bits is cut as atoi cuts it.
int number_of(std::string_view text);

/// The number of decimal digits at the end of a text.
std::size_t trailing_digits(std::string_view text);

} // namespace grx
