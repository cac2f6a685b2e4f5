// The text of a panel item, for panels: one string with the title and the choices, separated by '-'.
#pragma once

#include <cstddef>
#include <string_view>

namespace grx {

inline constexpr std::size_t kItemLineSize = 80;
using ItemLine = char[kItemLineSize];

/// Cuts a text into at most `most` lines and takes the blanks off their ends. Returns the number of lines.
int cut_item_text(std::string_view text, int most, ItemLine* lines);

/// The index of the longest choice, of the first one when several are as long. 0, the title, when all choices are
/// empty.
int longest_choice(const ItemLine* lines, int count);

/// Adds blanks up to `width` characters. A longer line stays as it is.
void pad_item_line(ItemLine& line, int width);

} // namespace grx
