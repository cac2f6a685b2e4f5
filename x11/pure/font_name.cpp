// Names of fonts and resolutions, taken apart.
#include "pure/font_name.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace grx {

namespace {

constexpr std::string_view kOutline = "xft:";
constexpr int kUsualResolution = 96;
constexpr int kLeastResolution = 40, kMostResolution = 1000;

constexpr int kFamilyField = 2, kPixelField = 7;

// A field of the name of an X font, counted from 1; empty when the name has fewer.
std::string_view field_of(std::string_view name, int wanted) {
    for (int field = 0; field < wanted; ++field) {
        const auto dash = name.find('-');
        if (dash == std::string_view::npos) return {};
        name.remove_prefix(dash + 1);
    }
    return name.substr(0, name.find('-'));
}

bool can_be_resolution(double dots) {
    return dots >= kLeastResolution && dots <= kMostResolution;
}

char small(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool same_word(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return small(x) == small(y); });
}

} // namespace

bool names_outline_font(std::string_view name) {
    return name.starts_with(kOutline);
}

std::string_view outline_pattern(std::string_view name) {
    name.remove_prefix(std::min(name.size(), kOutline.size()));
    return name.substr(std::min(name.size(), name.find_first_not_of(' ')));
}

bool is_generic_family(std::string_view family) {
    constexpr std::array<std::string_view, 5> generic{"sans", "sans-serif", "serif", "mono", "monospace"};
    return std::any_of(generic.begin(), generic.end(), [=](std::string_view g) { return same_word(g, family); });
}

int pixel_height_in(std::string_view x_name) {
    const std::string_view text = field_of(x_name, kPixelField);
    int height = 0;
    const auto end = std::from_chars(text.data(), text.data() + text.size(), height);
    return end.ec == std::errc{} && end.ptr == text.data() + text.size() ? std::max(height, 0) : 0;
}

std::size_t nearest_in_height(std::span<const char* const> names, int height) {
    std::size_t nearest = names.size();
    int least = 0;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const int has = pixel_height_in(names[i]);
        if (has == 0) continue;
        const bool fixed = same_word(field_of(names[i], kFamilyField), "fixed");
        const int distance = 2 * std::abs(has - height) + (fixed ? 0 : 1);
        if (nearest != names.size() && distance >= least) continue;
        nearest = i;
        least = distance;
    }
    return nearest;
}

int resolution_of(int pixels, int millimetres) {
    constexpr double inch = 25.4;
    const double dots = millimetres > 0 ? pixels * inch / millimetres : 0;
    return can_be_resolution(dots) ? static_cast<int>(std::lround(dots)) : kUsualResolution;
}

int resolution_in(std::string_view text) {
    const auto begin = std::min(text.size(), text.find_first_not_of(" \t"));
    double dots = 0;
    const auto read = std::from_chars(text.data() + begin, text.data() + text.size(), dots);
    const bool alone = std::all_of(read.ptr, text.data() + text.size(), [](char c) { return c == ' ' || c == '\t'; });
    return read.ec == std::errc{} && alone && can_be_resolution(dots) ? static_cast<int>(std::lround(dots)) : 0;
}

} // namespace grx
