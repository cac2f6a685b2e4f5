// Pictures of icons, as values 0xAARRGGBB: made smaller, and in black and white. For icons that are shown as pixmaps.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>

#include "pure/size.h"

namespace grx {

/// A picture of an icon, rows from the top. It owns no pixels.
struct IconPicture {
    Size size;
    std::span<const uint32_t> pixels;

    uint32_t at(int32_t x, int32_t y) const {
        return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(size.width) + static_cast<std::size_t>(x)];
    }
};

namespace argb {
constexpr uint32_t alpha(uint32_t pixel) {
    return pixel >> 24;
}
constexpr uint32_t red(uint32_t pixel) {
    return pixel >> 16 & 0xFF;
}
constexpr uint32_t green(uint32_t pixel) {
    return pixel >> 8 & 0xFF;
}
constexpr uint32_t blue(uint32_t pixel) {
    return pixel & 0xFF;
}
constexpr bool opaque(uint32_t pixel) {
    return alpha(pixel) >= 0x80;
}

/// The pixel laid over a background, which shows through as much as the pixel lets it.
constexpr uint32_t over(uint32_t pixel, uint32_t background) {
    const auto mixed = [&](uint32_t front, uint32_t behind) {
        return (front * alpha(pixel) + behind * (0xFF - alpha(pixel)) + 0x7F) / 0xFF;
    };
    return 0xFF000000 | mixed(red(pixel), red(background)) << 16 | mixed(green(pixel), green(background)) << 8
           | mixed(blue(pixel), blue(background));
}
} // namespace argb

/// The size itself, or the largest of its shape with no side above `most`.
constexpr Size fitted(Size size, int32_t most) {
    const int32_t longest = std::max(size.width, size.height);
    if (longest <= most) return size;
    const auto part = [&](int32_t side) {
        return std::max<int32_t>(1, static_cast<int32_t>(int64_t{side} * most / longest));
    };
    return {part(size.width), part(size.height)};
}

/// One pixel of the picture made `size` large: the mean of the pixels under it, each as much as it is opaque.
inline uint32_t sampled(const IconPicture& picture, Size size, int32_t x, int32_t y) {
    const auto edge = [](int32_t at, int32_t from, int32_t to) {
        return static_cast<int32_t>(int64_t{at} * from / to);
    };
    const int32_t left = edge(x, picture.size.width, size.width), top = edge(y, picture.size.height, size.height);
    const int32_t right = std::max(left + 1, edge(x + 1, picture.size.width, size.width));
    const int32_t bottom = std::max(top + 1, edge(y + 1, picture.size.height, size.height));
    uint64_t alpha = 0, red = 0, green = 0, blue = 0, count = 0;
    for (int32_t row = top; row < bottom; ++row)
        for (int32_t column = left; column < right; ++column, ++count) {
            const uint32_t pixel = picture.at(column, row);
            const uint64_t weight = argb::alpha(pixel);
            alpha += weight;
            red += weight * argb::red(pixel);
            green += weight * argb::green(pixel);
            blue += weight * argb::blue(pixel);
        }
    if (alpha == 0) return 0;
    return static_cast<uint32_t>((alpha / count) << 24 | (red / alpha) << 16 | (green / alpha) << 8 | blue / alpha);
}

/// True for a pixel that is black when the picture is shown in black and white: greys become patterns.
constexpr bool black_at(uint32_t pixel, int32_t x, int32_t y) {
    constexpr uint32_t pattern[4][4] = {{0, 8, 2, 10}, {12, 4, 14, 6}, {3, 11, 1, 9}, {15, 7, 13, 5}};
    const uint32_t light = (299 * argb::red(pixel) + 587 * argb::green(pixel) + 114 * argb::blue(pixel)) / 1000;
    return light < pattern[y & 3][x & 3] * 16 + 8;
}

} // namespace grx
