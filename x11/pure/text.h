// Reads and copies C strings safely, for all of the library: null pointers and long texts do no harm.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string_view>

namespace grx {

/// The text as a view. A null pointer gives an empty one.
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

/// Copies as much as fits in `size` bytes and always terminates it. True when nothing was cut. Source and destination
/// may overlap.
inline bool copy_text(char* destination, std::size_t size, std::string_view source) {
    if (destination == nullptr || size == 0) return false;
    const auto length = std::min(source.size(), size - 1);
    if (length > 0) std::memmove(destination, source.data(), length);
    destination[length] = '\0';
    return length == source.size();
}

/// The same for a fixed field.
template <std::size_t N>
bool copy_text(char (&field)[N], std::string_view text) {
    return copy_text(field, N, text);
}

/// True when the text after the last '.' of a name is exactly `extension`. A name without '.' has no extension.
inline bool has_extension(std::string_view name, std::string_view extension) {
    const auto dot = name.rfind('.');
    return dot != std::string_view::npos && name.substr(dot + 1) == extension;
}

} // namespace grx
