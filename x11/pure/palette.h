// Colour arithmetic that needs no display, for the palettes and for the pixels of deep screens.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace grx {

inline constexpr int32_t kMaxComponent = 255;
inline constexpr int32_t kShades = 16; // shades of the drawing palette, and hues in each

inline constexpr std::array<std::array<int32_t, 3>, 16> degrade{{
    {0, 0, 0},
    {0, 0, 2},
    {0, 2, 0},
    {0, 2, 2},
    {2, 0, 0},
    {2, 0, 2},
    {2, 2, 0},
    {2, 2, 2},
    {1, 1, 1},
    {0, 0, 4},
    {0, 4, 0},
    {0, 4, 4},
    {4, 0, 0},
    {4, 0, 4},
    {4, 4, 0},
    {4, 4, 4},
}};

constexpr int32_t tint(int32_t hue, int32_t factor, std::size_t component) {
    return std::min(degrade[static_cast<std::size_t>(hue)][component] * factor, kMaxComponent);
}

constexpr int32_t icon_component(int32_t index, std::size_t component) {
    return tint(index, 64, component);
}

constexpr int32_t shade_factor(int32_t shade) {
    return (shade % 2 == 0 ? 64 : 32) - 4 * (shade / 2);
}

constexpr int32_t shade_component(int32_t shade, int32_t hue, std::size_t component) {
    return tint(hue, shade_factor(shade), component);
}

/// The number of the lowest set bit of a colour mask, 32 when no bit is set.
constexpr int32_t lowest_bit(unsigned long mask) {
    for (int32_t bit = 0; bit < 32; ++bit) {
        if ((mask >> bit) & 1UL) return bit;
    }
    return 32;
}

struct Shifts {
    int32_t red, green, blue;
};

constexpr uint32_t component_at(int32_t component, int32_t shift) {
    const auto bounded = static_cast<uint32_t>(std::clamp(component, 0, kMaxComponent));
    return shift < 32 ? bounded << shift : 0U;
}

constexpr int32_t compose_pixel(const Shifts& s, const int32_t* rgb) {
    return static_cast<int32_t>(
        component_at(rgb[0], s.red) + component_at(rgb[1], s.green) + component_at(rgb[2], s.blue));
}

constexpr int32_t component_of(int32_t pixel, int32_t shift) {
    return shift < 32 ? static_cast<int32_t>((static_cast<uint32_t>(pixel) >> shift) & 255U) : 0;
}

} // namespace grx
