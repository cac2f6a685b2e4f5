// Cuts the texts of panel items into title and choices, for the drop-down choices and radio boxes of panels.
#include "pure/item_text.h"

#include <algorithm>
#include <cstring>

#include "pure/text.h"

namespace grx {

int cut_item_text(std::string_view text, int most, ItemLine* lines) {
    int count = 0;
    for (bool more = true; more && count < most; ++count) {
        const auto end = text.find('-');
        more = end != std::string_view::npos;
        copy_text(lines[count], kItemLineSize, trimmed(text.substr(0, end)));
        if (more) text.remove_prefix(end + 1);
    }
    return count;
}

int longest_choice(const ItemLine* lines, int count) {
    int longest = 0;
    std::size_t length = 0;
    for (int i = 1; i < count; ++i) {
        if (std::strlen(lines[i]) <= length) continue;
        length = std::strlen(lines[i]);
        longest = i;
    }
    return longest;
}

void pad_item_line(ItemLine& line, int width) {
    const std::size_t end = std::min(static_cast<std::size_t>(std::max(width, 0)), kItemLineSize - 1);
    const std::size_t length = std::strlen(line);
    if (length >= end) return;
    std::memset(line + length, ' ', end - length);
    line[end] = '\0';
}

} // namespace grx
