// The fields of a menu line, and what a label and an accelerator text say.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

#include "pure/text.h"

namespace grx {

inline constexpr std::size_t kMostMenuFields = 4;

/// The first `count` fields behind the keyword, each ended by a bar; nothing when one of them is not closed.
constexpr std::optional<std::array<std::string_view, kMostMenuFields>> menu_fields(
    std::string_view after_keyword, std::size_t count) {
    std::array<std::string_view, kMostMenuFields> fields{};
    const auto first = after_keyword.find('|');
    if (first == std::string_view::npos) return std::nullopt;
    std::string_view rest = after_keyword.substr(first + 1);
    for (std::size_t i = 0; i < count; ++i) {
        const auto end = rest.find('|');
        if (end == std::string_view::npos) return std::nullopt;
        fields[i] = trimmed(rest.substr(0, end));
        rest.remove_prefix(end + 1);
    }
    return fields;
}

/// An accelerator as far as its first comma.
constexpr std::string_view first_accelerator(std::string_view text) {
    return trimmed(text.substr(0, text.find(',')));
}

/// Modifiers and key of an accelerator text: "Ctrl+S" gives "Ctrl" and "S", "F5" nothing and "F5". The key may be '+'.
struct KeyText {
    std::string_view modifiers;
    std::string_view key;
};

constexpr KeyText split_accelerator(std::string_view text) {
    const auto last = text.size() > 1 ? text.rfind('+', text.size() - 2) : std::string_view::npos;
    if (last == std::string_view::npos) return {{}, trimmed(text)};
    return {trimmed(text.substr(0, last)), trimmed(text.substr(last + 1))};
}

} // namespace grx
