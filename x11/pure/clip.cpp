// Cuts segments to the box that the X protocol can say, and divides large arcs into chords, for the drawing functions.
#include "pure/clip.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace grx {

namespace {

/// Takes from the span [t0, t1] of a segment what lies outside one side of the box. False when nothing is left.
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
    return static_cast<int32_t>(std::llround(v));
}

/// How far the point at a fraction of the segment is from the nearest whole pixel.
double off_pixel(Vertex a, double dx, double dy, double fraction) {
    const double x = a.x + fraction * dx, y = a.y + fraction * dy;
    return std::fabs(x - std::round(x)) + std::fabs(y - std::round(y));
}

/// The fraction of the segment where a period of dashes begins, at or shortly before `t0`. Several periods are tried.
/// The one that begins nearest to a whole pixel is taken, because a cut there shifts the dashes least.
double period_before(Vertex a, double dx, double dy, double t0, const Dashes& dashes) {
    if (dashes.period <= 0 || t0 <= 0.0) return t0;
    constexpr double room = 1000.0; // before the box, in pixels
    const double length = dashes.wide ? std::hypot(dx, dy) : std::max(std::fabs(dx), std::fabs(dy));
    const double last = std::floor(t0 * length / dashes.period);
    const double first = std::max(0.0, last - std::floor(room / dashes.period));
    double best = last * dashes.period / length;
    for (double k = last - 1.0; k >= first && off_pixel(a, dx, dy, best) > 0.0; k -= 1.0) {
        const double t = k * dashes.period / length;
        if (off_pixel(a, dx, dy, t) < off_pixel(a, dx, dy, best)) best = t;
    }
    return best;
}

} // namespace

std::optional<Line> clip_segment(Vertex a, Vertex b, const Dashes& dashes) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double box = dashes.period > 0 ? kDashedBox : kBox;
    double t0 = 0.0;
    double t1 = 1.0;
    const bool inside = narrow(-dx, a.x + box, t0, t1) && narrow(dx, box - a.x, t0, t1)
                        && narrow(-dy, a.y + box, t0, t1) && narrow(dy, box - a.y, t0, t1);
    if (!inside) return std::nullopt;
    const double start = period_before(a, dx, dy, t0, dashes);
    return Line{rounded(a.x + start * dx), rounded(a.y + start * dy), rounded(a.x + t1 * dx), rounded(a.y + t1 * dy)};
}

std::optional<Line> clip_segment(const Line& line, const Dashes& dashes) {
    const Vertex a{static_cast<double>(line.x1), static_cast<double>(line.y1)};
    const Vertex b{static_cast<double>(line.x2), static_cast<double>(line.y2)};
    return clip_segment(a, b, dashes);
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
