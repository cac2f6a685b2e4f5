// Cuts polygons to a box, side by side, so that very large letters can be drawn. Inside the box what is wound around stays so.
#pragma once

#include <cstddef>
#include <span>

#include "pure/clip.h"

namespace grx {

/// A side of a box: the points with a x + b y + c >= 0 are inside.
struct HalfPlane {
    double a, b, c;
    double distance(Vertex p) const { return a * p.x + b * p.y + c; }
};

/// Writes the part of a closed polygon that lies inside; `out` has room for twice as many points. Returns their number.
inline std::size_t clip_polygon(std::span<const Vertex> polygon, const HalfPlane& side, Vertex* out) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Vertex from = polygon[i != 0 ? i - 1 : polygon.size() - 1], to = polygon[i];
        const double before = side.distance(from), after = side.distance(to);
        if ((before >= 0) != (after >= 0)) {
            const double t = before / (before - after);
            out[count++] = {from.x + (to.x - from.x) * t, from.y + (to.y - from.y) * t};
        }
        if (after >= 0) out[count++] = to;
    }
    return count;
}

} // namespace grx
