// The triangle fill told once more, apart from the library: what a fill of rows must look like.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <map>
#include <utility>
#include <vector>

namespace grxtest {

class TriangleModel {
  public:
    struct Corner {
        int x = 0, y = 0;
    };
    using Spans = std::map<int, std::pair<int, int>>; // row -> first and last x as drawn, in either order

    // Rows that a triangle paints in a target of that height. What rows keep from one call to the next is part of it.
    Spans fill(int height, std::array<Corner, 3> corners) {
        std::stable_sort(corners.begin(), corners.end(), [](Corner a, Corner b) { return a.y > b.y; });
        const auto& [top, middle, bottom] = corners; // by the value of y
        height_ = height;
        for (Table* table : {&long_, &short_})
            table->resize(std::max(table->size(), static_cast<std::size_t>(std::max(height, 0))));
        walk(long_, top, bottom);
        walk(short_, top, middle);
        walk(short_, middle, bottom);
        Spans result;
        if (bottom.y >= height || top.y <= 0) return result;
        for (int y = std::max(bottom.y, 0); y <= std::min(top.y, height - 1); ++y) result[y] = row(short_, long_, y);
        return result;
    }

  private:
    using Table = std::vector<int>; // a row never stored reads 0

    void store(Table& table, int x, int y) const {
        if (y > 0 && y < height_) table[static_cast<std::size_t>(y)] = x;
    }
    static std::pair<int, int> row(const Table& first, const Table& last, int y) {
        return {first[static_cast<std::size_t>(y)], last[static_cast<std::size_t>(y)]};
    }

    void walk(Table& table, Corner from, Corner to) const {
        const int dx = std::abs(to.x - from.x);
        const int dy = std::abs(to.y - from.y);
        const Corner step{to.x < from.x ? -1 : 1, to.y < from.y ? -1 : 1};
        dx > dy ? walk_wide(table, from, step, dx, dy) : walk_steep(table, from, step, dx, dy);
    }

    void walk_wide(Table& table, Corner at, Corner step, int dx, int dy) const {
        int error = 2 * dy - dx;
        store(table, at.x, at.y);
        for (int i = 0; i <= dx; ++i, at.x += step.x) {
            if (error > 0) {
                at.y += step.y;
                error += 2 * (dy - dx);
                store(table, at.x, at.y);
            } else {
                error += 2 * dy;
            }
        }
    }

    void walk_steep(Table& table, Corner at, Corner step, int dx, int dy) const {
        int error = 2 * dx - dy;
        for (int i = 0; i <= dy; ++i, at.y += step.y) {
            store(table, at.x, at.y);
            if (error > 0) {
                at.x += step.x;
                error += 2 * (dx - dy);
            } else {
                error += 2 * dx;
            }
        }
    }

    int height_ = 0;
    Table short_, long_;
};

} // namespace grxtest
