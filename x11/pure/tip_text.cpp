// Breaks a text into lines that are not too long, for tips.
#include "pure/tip_text.h"

#include <algorithm>

#include "pure/wrapped_text.h"

namespace grx {

namespace {

// A byte that goes on with a character of UTF-8.
bool continues(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

// Bytes of the first line, without the blank or line feed that ends it.
std::size_t line_length(std::string_view text) {
    const std::string_view line = text.substr(0, text.find('\n'));
    std::size_t length = wrapping::part_of_line(line, kWrapColumns, [](std::string_view) { return true; });
    while (length < line.size() && length > kWrapColumns / 2 && continues(line[length])) --length;
    return length;
}

bool ends_line(char c) {
    return c == '\n' || c == ' ';
}

} // namespace

void wrap_tip(std::string_view text, std::span<char, kWrappedMost> out) {
    auto at = out.begin();
    for (std::size_t line = 0; line < kWrapLines && !text.empty(); ++line) {
        if (line > 0) *at++ = '\n';
        const std::size_t length = line_length(text);
        at = std::copy_n(text.begin(), length, at);
        text.remove_prefix(length);
        if (!text.empty() && ends_line(text.front())) text.remove_prefix(1);
    }
    constexpr std::string_view more = "...";
    if (!text.empty()) at = std::copy(more.begin(), more.end(), at);
    *at = '\0';
}

} // namespace grx
