// Reads the geometry that a user gives an X program as text, for its main window: "300x200-0+10".
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace grx {

/// One coordinate of a place: a distance from the left or upper edge of the screen, or from the opposite one.
struct EdgeDistance {
    bool from_far_edge = false;
    int32_t pixels = 0;
    bool operator==(const EdgeDistance&) const = default;
};

struct Geometry {
    int32_t width = 0; // 0 when no size is given
    int32_t height = 0;
    bool placed = false;
    EdgeDistance x, y;

    bool sized() const { return width > 0; }
    bool operator==(const Geometry&) const = default;
};

namespace geometry_words {

inline constexpr int32_t kMost = 32767; // what X holds

/// Takes a number from the beginning of the text; nothing for one without digits or above what X holds.
constexpr std::optional<int32_t> take_number(std::string_view& text) {
    int32_t number = 0;
    std::size_t digits = 0;
    for (; digits < text.size() && text[digits] >= '0' && text[digits] <= '9'; ++digits) {
        number = number * 10 + (text[digits] - '0');
        if (number > kMost) return std::nullopt;
    }
    text.remove_prefix(digits);
    return digits > 0 ? std::optional(number) : std::nullopt;
}

constexpr bool take(std::string_view& text, char wanted) {
    if (text.empty() || text.front() != wanted) return false;
    text.remove_prefix(1);
    return true;
}

/// Takes "+12", "-12", "+-12" or "--12".
constexpr std::optional<EdgeDistance> take_distance(std::string_view& text) {
    const bool far = take(text, '-');
    if (!far && !take(text, '+')) return std::nullopt;
    const bool negative = take(text, '-');
    const auto pixels = take_number(text);
    if (!pixels) return std::nullopt;
    return EdgeDistance{far, negative ? -*pixels : *pixels};
}

constexpr bool take_size(std::string_view& text, Geometry& into) {
    const auto width = take_number(text);
    if (!width || (!take(text, 'x') && !take(text, 'X'))) return false;
    const auto height = take_number(text);
    if (!height || *width == 0 || *height == 0) return false;
    into.width = *width;
    into.height = *height;
    return true;
}

constexpr bool take_place(std::string_view& text, Geometry& into) {
    const auto x = take_distance(text);
    const auto y = x ? take_distance(text) : std::nullopt;
    if (!y) return false;
    into.placed = true;
    into.x = *x;
    into.y = *y;
    return true;
}

} // namespace geometry_words

/// The geometry of a text, nothing when it is not one: a size, a place, or both.
constexpr std::optional<Geometry> read_geometry(std::string_view text) {
    Geometry result;
    geometry_words::take(text, '=');
    const bool begins_with_place = !text.empty() && (text.front() == '+' || text.front() == '-');
    if (!begins_with_place && !geometry_words::take_size(text, result)) return std::nullopt;
    if (!text.empty() && !geometry_words::take_place(text, result)) return std::nullopt;
    return text.empty() ? std::optional(result) : std::nullopt;
}

} // namespace grx
