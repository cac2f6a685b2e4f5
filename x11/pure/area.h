// Rectangles of pixels that primitives cover, for layers: they are joined, moved and cut to a window.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

namespace grx {

/// Pixels from left to right and from top to bottom, right and bottom not included.
struct Area {
    int64_t left = 0;
    int64_t top = 0;
    int64_t right = 0;
    int64_t bottom = 0;
    bool operator==(const Area&) const = default;

    constexpr bool empty() const { return right <= left || bottom <= top; }
    constexpr int64_t width() const { return right - left; }
    constexpr int64_t height() const { return bottom - top; }
    constexpr Area moved(int64_t dx, int64_t dy) const { return {left + dx, top + dy, right + dx, bottom + dy}; }
    constexpr Area grown(int64_t by) const { return {left - by, top - by, right + by, bottom + by}; }
};

/// The smallest area with both pixels.
constexpr Area area_between(int64_t x1, int64_t y1, int64_t x2, int64_t y2) {
    return {std::min(x1, x2), std::min(y1, y2), std::max(x1, x2) + 1, std::max(y1, y2) + 1};
}

/// The smallest area that holds both; an empty one adds nothing.
constexpr Area join_areas(const Area& a, const Area& b) {
    if (a.empty()) return b;
    if (b.empty()) return a;
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right), std::max(a.bottom, b.bottom)};
}

/// What two areas have in common.
constexpr Area cut_area(const Area& a, const Area& b) {
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right), std::min(a.bottom, b.bottom)};
}

/// Adds an area to a list of limited room; when it is full, the last of the list grows.
constexpr void add_area(std::span<Area> list, std::size_t& count, const Area& area) {
    if (area.empty() || list.empty()) return;
    if (count < list.size()) {
        list[count++] = area;
    } else {
        list.back() = join_areas(list.back(), area);
    }
}

/// What comes to light of an area `width` x `height` that is scrolled by dx, dy: at most two areas that do not overlap.
struct Uncovered {
    Area parts[2];
    std::size_t count = 0;
};

constexpr Uncovered uncovered_by(int64_t dx, int64_t dy, int64_t width, int64_t height) {
    Uncovered result;
    const Area all{0, 0, width, height};
    const Area rest = cut_area(all, all.moved(dx, dy)); // where something comes from
    if (rest.empty()) {
        add_area(result.parts, result.count, all);
        return result;
    }
    add_area(result.parts, result.count, dx > 0 ? Area{0, 0, dx, height} : Area{width + dx, 0, width, height});
    add_area(result.parts, result.count,
        dy > 0 ? Area{rest.left, 0, rest.right, dy} : Area{rest.left, height + dy, rest.right, height});
    return result;
}

} // namespace grx
