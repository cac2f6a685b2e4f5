// Reads and writes the numbers of prompts.
#include "pure/typed_number.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "pure/text.h"

namespace grx {

namespace {

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

bool only(std::string_view text, std::string_view allowed) {
    return std::all_of(text.begin(), text.end(),
        [allowed](char c) { return is_digit(c) || allowed.find(c) != std::string_view::npos; });
}

// Blanks of any kind around a number: a no-break space is typed by habit in French.
std::string_view without_blanks(std::string_view text) {
    constexpr std::string_view utf8 = "\302\240";
    for (;;) {
        const std::size_t before = text.size();
        text = trimmed(text);
        if (text.starts_with(utf8)) text.remove_prefix(utf8.size());
        if (text.ends_with(utf8)) text.remove_suffix(utf8.size());
        if (text.starts_with('\240')) text.remove_prefix(1);
        if (text.ends_with('\240')) text.remove_suffix(1);
        if (text.size() == before) return text;
    }
}

} // namespace

std::optional<double> typed_number(std::string_view text, bool decimals_allowed) {
    text = without_blanks(text);
    NumberText copy{};
    if (text.starts_with('+')) {
        text.remove_prefix(1);
        if (text.starts_with('-') || text.starts_with('+')) return std::nullopt;
    }
    if (text.empty() || !only(text, decimals_allowed ? "+-.,eE" : "-") || !copy_text(copy.data(), copy.size(), text))
        return std::nullopt;
    std::replace(copy.begin(), copy.end(), ',', '.');
    const char* const end = copy.data() + text.size();
    double value = 0.0;
    const auto [stop, error] = std::from_chars(copy.data(), end, value);
    if (error != std::errc() || stop != end || !std::isfinite(value)) return std::nullopt;
    return value;
}

NumberText number_text(double value, int decimals) {
    NumberText text{};
    const auto format = std::chars_format::fixed;
    char* const first = text.data();
    char* const last = first + text.size() - 1;
    const bool shown_plainly = std::abs(value) < 1e15 && (value == 0.0 || std::abs(value) >= 1e-5);
    if (decimals >= 0)
        std::to_chars(first, last, value, format, decimals);
    else if (shown_plainly)
        std::to_chars(first, last, value, format);
    else
        std::to_chars(first, last, value);
    return text;
}

NumberText bounds_text(double least, double most, double widest) {
    NumberText text{};
    const NumberText low = number_text(least, -1), high = number_text(most, -1);
    const bool has_least = least > -widest, has_most = most < widest;
    if (has_least && has_most)
        std::snprintf(text.data(), text.size(), "Entre %.60s et %.60s", low.data(), high.data());
    else if (has_least)
        std::snprintf(text.data(), text.size(), "Au moins %.60s", low.data());
    else if (has_most)
        std::snprintf(text.data(), text.size(), "Au plus %.60s", high.data());
    return text;
}

} // namespace grx
