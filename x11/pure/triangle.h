// Steps along triangles and lines in whole pixels, for fills and lines in pictures that the application holds.
#pragma once

#include <array>
#include <cstdint>
#include <cstdlib>

namespace grx {

inline constexpr int kTriangleRows = 1500;

struct GridPoint {
    int x, y;
};

/// One x for each row. A row that no edge passes keeps what the previous triangle left.
using EdgeTable = std::array<int, kTriangleRows>;

/// Stores one x for each row of an edge. Only rows y with 0 < y < height are stored.
void step_edge(EdgeTable& table, int height, GridPoint from, GridPoint to);

struct TriangleSpans {
    int first_row; // nothing is to be drawn when it is above last_row
    int last_row;
};

/// Steps along the three edges and returns the rows to fill. The edge that passes all these rows goes into `long_edge`,
/// the two others go into `short_edges`.
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
