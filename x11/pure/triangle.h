// Integer stepping of a triangle into two tables of one x per row, and of a line into an array of pixels.
#pragma once

#include <array>
#include <cstdint>
#include <cstdlib>

namespace grx {

inline constexpr int kTriangleRows = 1500;

struct GridPoint {
    int x, y;
};

/// One x per row. Rows not stepped keep what the previous triangle left.
using EdgeTable = std::array<int, kTriangleRows>;

/// Steps an edge into the table; an x is stored only for rows y with 0 < y < height.
void step_edge(EdgeTable& table, int height, GridPoint from, GridPoint to);

struct TriangleSpans {
    int first_row; // first_row > last_row: nothing to draw
    int last_row;
};

/// Steps the three edges (long edge into `long_edge`, short ones into `short_edges`) and gives the rows to fill.
TriangleSpans step_triangle(EdgeTable& short_edges, EdgeTable& long_edge, int height, std::array<GridPoint, 3> points);

/// Calls `plot(x, y)` for every pixel of the line, both ends included.
template <class Plot>
void step_line(GridPoint from, GridPoint to, Plot plot) {
    const int dx = std::abs(to.x - from.x);
    const int dy = -std::abs(to.y - from.y);
    const int sx = from.x < to.x ? 1 : -1;
    const int sy = from.y < to.y ? 1 : -1;
    int error = dx + dy;
    for (;;) {
        plot(from.x, from.y);
        if (from.x == to.x && from.y == to.y) return;
        const int twice = 2 * error;
        if (twice >= dy) {
            error += dy;
            from.x += sx;
        }
        if (twice <= dx) {
            error += dx;
            from.y += sy;
        }
    }
}

} // namespace grx
