#include "pure/clip.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace grx {

namespace {

/// One side of the box: narrows the span [t0, t1] of a segment; false when nothing is left.
bool narrow(double direction, double distance, double& t0, double& t1) {
    if (direction == 0.0) return distance >= 0.0;
    const double t = distance / direction;
    if (direction < 0.0) {
        t0 = std::max(t0, t);
    } else {
        t1 = std::min(t1, t);
    }
    return t0 <= t1;
}

int32_t rounded(double v) {
    return into_box(std::llround(v));
}

} // namespace

std::optional<Line> clip_segment(Vertex a, Vertex b) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    double t0 = 0.0;
    double t1 = 1.0;
    const bool inside = narrow(-dx, a.x + kBox, t0, t1) && narrow(dx, kBox - a.x, t0, t1)
                        && narrow(-dy, a.y + kBox, t0, t1) && narrow(dy, kBox - a.y, t0, t1);
    if (!inside) return std::nullopt;
    return Line{rounded(a.x + t0 * dx), rounded(a.y + t0 * dy), rounded(a.x + t1 * dx), rounded(a.y + t1 * dy)};
}

std::optional<Line> clip_segment(const Line& line) {
    const Vertex a{static_cast<double>(line.x1), static_cast<double>(line.y1)};
    const Vertex b{static_cast<double>(line.x2), static_cast<double>(line.y2)};
    return clip_segment(a, b);
}

Vertex point_on(const Ellipse& e, double degrees) {
    const double angle = degrees * std::numbers::pi / 180.0;
    return {e.cx + e.rx * std::cos(angle), e.cy - e.ry * std::sin(angle)};
}

std::size_t arc_steps(const Ellipse& e, double degrees) {
    const double radius = std::max({e.rx, e.ry, 1.0});
    const double step = std::sqrt(2.0 / radius) * 180.0 / std::numbers::pi;
    const double steps = std::ceil(std::fabs(degrees) / step);
    return static_cast<std::size_t>(std::clamp(steps, 1.0, static_cast<double>(kMaxArcSteps)));
}

} // namespace grx
