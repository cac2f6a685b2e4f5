// The text of a panel item: title and choices in one string, separated by '-'.
#pragma once

#include <cstddef>
#include <string_view>

namespace grx {

inline constexpr std::size_t kItemLineSize = 80;
using ItemLine = char[kItemLineSize];

/// Cuts a text into at most `most` lines without blanks at their ends; gives how many were made.
int cut_item_text(std::string_view text, int most, ItemLine* lines);

/// The longest line behind the title, the earliest of equals; 0, the title, when no other has a character.
int longest_choice(const ItemLine* lines, int count);

/// Fills a line with blanks up to `width` characters; a longer one stays as it is.
void pad_item_line(ItemLine& line, int width);

} // namespace grx
