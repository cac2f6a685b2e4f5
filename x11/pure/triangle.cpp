// Steps along the edges of triangles, for the shaded views that the application fills row by row.
#include "pure/triangle.h"

#include <algorithm>
#include <utility>

namespace grx {

namespace {

void store(EdgeTable& table, int height, GridPoint p) {
    // KEEP: row 0 is never stored, so that a triangle that reaches it shows what the tables held before.
    if (p.y > 0 && p.y < height && p.y < kTriangleRows) table[static_cast<std::size_t>(p.y)] = p.x;
}

struct Step {
    int dx, dy, sx, sy;
};

void step_flat(EdgeTable& table, int height, GridPoint p, const Step& s) {
    int error = 2 * s.dy - s.dx;
    store(table, height, p);
    for (int i = 0; i <= s.dx; ++i) {
        if (error > 0) {
            p.y += s.sy;
            error += 2 * (s.dy - s.dx);
            store(table, height, p);
        } else {
            error += 2 * s.dy;
        }
        p.x += s.sx;
    }
}

void step_steep(EdgeTable& table, int height, GridPoint p, const Step& s) {
    int error = 2 * s.dx - s.dy;
    for (int i = 0; i <= s.dy; ++i) {
        store(table, height, p);
        if (error > 0) {
            p.x += s.sx;
            error += 2 * (s.dx - s.dy);
        } else {
            error += 2 * s.dx;
        }
        p.y += s.sy;
    }
}

} // namespace

void step_edge(EdgeTable& table, int height, GridPoint from, GridPoint to) {
    const Step s{std::abs(to.x - from.x), std::abs(to.y - from.y), to.x < from.x ? -1 : 1, to.y < from.y ? -1 : 1};
    if (s.dx > s.dy) {
        step_flat(table, height, from, s);
    } else {
        step_steep(table, height, from, s);
    }
}

TriangleSpans step_triangle(EdgeTable& short_edges, EdgeTable& long_edge, int height, std::array<GridPoint, 3> points) {
    auto& [t0, t1, t2] = points;
    if (t0.y < t1.y) std::swap(t0, t1);
    if (t1.y < t2.y) std::swap(t1, t2);
    if (t0.y < t1.y) std::swap(t0, t1);
    step_edge(long_edge, height, t0, t2);
    step_edge(short_edges, height, t0, t1);
    step_edge(short_edges, height, t1, t2);
    if (t2.y >= height || t0.y <= 0) return {1, 0};
    return {std::max(t2.y, 0), std::min({t0.y, height - 1, kTriangleRows - 1})};
}

} // namespace grx
