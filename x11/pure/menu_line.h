// Reads the lines of menu files, their labels and their accelerator texts, for the menu bar and its keys.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

#include "pure/text.h"

namespace grx {

inline constexpr std::size_t kMostMenuFields = 4;

/// The first `count` fields after the keyword. A bar ends each; nothing when one of them has no bar.
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

struct MenuKeyword {
    std::string_view word;
    std::size_t fields;
};

// KEEP: POPUP is looked for first, anywhere in the line.
inline constexpr std::array<MenuKeyword, 2> kMenuKeywords{{{"POPUP", 2}, {"ITEM", kMostMenuFields}}};

/// What a menu line says. `keyword` is null when the line has none; there are no fields when one of them has no bar.
struct MenuContent {
    const MenuKeyword* keyword = nullptr;
    std::optional<std::array<std::string_view, kMostMenuFields>> fields;
};

constexpr MenuContent menu_content(std::string_view line) {
    for (const auto& keyword : kMenuKeywords) {
        const auto at = line.find(keyword.word);
        if (at != std::string_view::npos)
            return {&keyword, menu_fields(line.substr(at + keyword.word.size()), keyword.fields)};
    }
    return {};
}

inline constexpr std::string_view kMenuZone = "#:ZONE_MENU_BAR";

enum class MenuLine { comment, skip_word, zone, before_zone, opening, closing, unbalanced, content };

/// What a line is to a reader that has passed the line with the marker of the zone (`in_zone`) or not, and that stands
/// inside `depth` open braces.
constexpr MenuLine menu_line(std::string_view line, std::string_view zone, bool in_zone, int depth) {
    const auto has = [line](std::string_view word) { return line.find(word) != std::string_view::npos; };
    if (in_zone && line.substr(0, 1) == "#") return MenuLine::comment;
    // KEEP: a line with DEBUT or FIN anywhere is skipped.
    if (has("DEBUT") || has("FIN")) return MenuLine::skip_word;
    if (zone.data() != nullptr && has(zone)) return MenuLine::zone;
    if (!in_zone) return MenuLine::before_zone;
    const std::string_view sign = trimmed(line);
    if (sign == "{") return MenuLine::opening;
    if (sign == "}") return depth > 0 ? MenuLine::closing : MenuLine::unbalanced;
    return MenuLine::content;
}

/// Label and mnemonic of a menu text. The mark '&' is taken out; the letter after it is the mnemonic.
struct MenuLabel {
    std::string_view before; // the text before the mark
    std::string_view behind;
    std::optional<char> mnemonic;
};

constexpr MenuLabel menu_label(std::string_view text) {
    const auto mark = text.find('&');
    if (mark == std::string_view::npos) return {text, {}, std::nullopt};
    const std::string_view behind = text.substr(mark + 1);
    return {text.substr(0, mark), behind, behind.empty() ? std::nullopt : std::optional(behind.front())};
}

/// The first of several accelerators: commas separate them.
constexpr std::string_view first_accelerator(std::string_view text) {
    return trimmed(text.substr(0, text.find(',')));
}

/// Modifiers and key of an accelerator text: "Ctrl+S" gives "Ctrl" and "S", "F5" gives "" and "F5". The key may be '+'.
struct KeyText {
    std::string_view modifiers;
    std::string_view key;
};

constexpr KeyText split_accelerator(std::string_view text) {
    const auto last = text.size() > 1 ? text.rfind('+', text.size() - 2) : std::string_view::npos;
    if (last == std::string_view::npos) return {{}, trimmed(text)};
    return {trimmed(text.substr(0, last)), trimmed(text.substr(last + 1))};
}

struct KeyModifiers {
    bool control = false, shift = false, alt = false;
};

/// Adds the modifier of a name, in capitals or small letters. False when no modifier has that name.
constexpr bool add_modifier(KeyModifiers& held, std::string_view name) {
    struct Named {
        std::string_view name;
        bool KeyModifiers::*held;
    };
    constexpr std::array<Named, 6> known{
        {{"ctrl", &KeyModifiers::control}, {"control", &KeyModifiers::control}, {"shift", &KeyModifiers::shift},
            {"alt", &KeyModifiers::alt}, {"meta", &KeyModifiers::alt}, {"mod1", &KeyModifiers::alt}}};
    const auto alike = [](char a, char lower) {
        return a == lower || (a >= 'A' && a <= 'Z' && a - 'A' + 'a' == lower);
    };
    for (const auto& row : known) {
        if (!std::equal(name.begin(), name.end(), row.name.begin(), row.name.end(), alike)) continue;
        held.*row.held = true;
        return true;
    }
    return false;
}

/// The modifiers of a list of names with '+' or blanks between them. Nothing when a name is unknown, for without that
/// modifier the accelerator would be another key.
constexpr std::optional<KeyModifiers> key_modifiers(std::string_view names) {
    KeyModifiers held;
    while (!names.empty()) {
        const auto end = names.find_first_of("+ ");
        const std::string_view name = trimmed(names.substr(0, end));
        if (!name.empty() && !add_modifier(held, name)) return std::nullopt;
        names = end == std::string_view::npos ? std::string_view{} : names.substr(end + 1);
    }
    return held;
}

} // namespace grx
