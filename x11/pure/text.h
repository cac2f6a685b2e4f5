// Small safe handling of C strings and file names.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string_view>

namespace grx {

// A null string reads as the empty one.
inline std::string_view view(const char* text) {
    return text != nullptr ? std::string_view(text) : std::string_view();
}

constexpr bool is_blank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

constexpr bool is_control(char c) {
    constexpr char del = 0x7F;
    return (c >= 0 && c < ' ') || c == del;
}

constexpr std::string_view trimmed(std::string_view text) {
    while (!text.empty() && is_blank(text.front())) text.remove_prefix(1);
    while (!text.empty() && is_blank(text.back())) text.remove_suffix(1);
    return text;
}

// Copies what fits in size bytes, terminator included, and ends it; true when nothing was cut. The two may overlap.
inline bool copy_text(char* destination, std::size_t size, std::string_view source) {
    if (destination == nullptr || size == 0) return false;
    const auto length = std::min(source.size(), size - 1);
    if (length > 0) std::memmove(destination, source.data(), length);
    destination[length] = '\0';
    return length == source.size();
}

// The same for a fixed field.
template <std::size_t N>
bool copy_text(char (&field)[N], std::string_view text) {
    return copy_text(field, N, text);
}

// True when the text after the last '.' of name is exactly extension. A name without '.' has none.
inline bool has_extension(std::string_view name, std::string_view extension) {
    const auto dot = name.rfind('.');
    return dot != std::string_view::npos && name.substr(dot + 1) == extension;
}

} // namespace grx
