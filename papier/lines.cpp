// Geometry of lines and areas that may reach far beyond the paper, and of curves as lines.
#include "papier/lines.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

using papier::Growing;
using papier::Point;

// Takes from the span [t0, t1] of a line what lies outside one side of the box. False when nothing is left.
bool narrow(double direction, double distance, double& t0, double& t1) {
    if (direction == 0) return distance >= 0;
    const double t = distance / direction;
    if (direction < 0) {
        t0 = std::max(t0, t);
    } else {
        t1 = std::min(t1, t);
    }
    return t0 <= t1;
}

Point between(Point a, Point b, double t) {
    return {a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t};
}

// One side of a box: what lies on the inner side of it has a distance of 0 or more.
struct Side {
    double a, b, c;
    double distance(Point p) const { return a * p.x + b * p.y + c; }
};

bool clip_by(const Side& side, std::span<const Point> from, Growing<Point>& to) {
    to.clear();
    bool complete = true;
    for (std::size_t i = 0; i < from.size(); ++i) {
        const Point p = from[i], next = from[(i + 1) % from.size()];
        const double here = side.distance(p), there = side.distance(next);
        if (here >= 0) complete = to.append(p) && complete;
        if ((here >= 0) != (there >= 0)) complete = to.append(between(p, next, here / (here - there))) && complete;
    }
    return complete;
}

} // namespace

namespace papier {

Box box_of(Path path) {
    Box box = Box::nothing();
    for (std::size_t i = 0; i < path.size(); ++i) {
        if (path[i].step == Step::move || path[i].step == Step::line) box.take_in(point_of(path[i]));
        if (path[i].step != Step::arc) continue;
        const Ellipse e = ellipse_at(path, i);
        box.take_in({e.centre.x - e.rx, e.centre.y - e.ry});
        box.take_in({e.centre.x + e.rx, e.centre.y + e.ry});
        i += 2;
    }
    return box;
}

std::optional<Line> clipped(const Line& line, const Box& box, double period) {
    const auto [a, b] = line;
    const double dx = b.x - a.x, dy = b.y - a.y;
    double t0 = 0, t1 = 1;
    const bool inside = narrow(-dx, a.x - box.left, t0, t1) && narrow(dx, box.right - a.x, t0, t1)
                        && narrow(-dy, a.y - box.top, t0, t1) && narrow(dy, box.bottom - a.y, t0, t1);
    if (!inside) return std::nullopt;
    const double length = std::hypot(dx, dy);
    if (period > 0 && t0 > 0) t0 = std::floor(t0 * length / period) * period / length;
    return Line{between(a, b, t0), between(a, b, t1)};
}

bool clip_area(Growing<Point>& area, Growing<Point>& work, const Box& box) {
    const Side left{1, 0, -box.left}, right{-1, 0, box.right}, top{0, 1, -box.top}, bottom{0, -1, box.bottom};
    return clip_by(left, area.span(), work) && clip_by(right, work.span(), area) && clip_by(top, area.span(), work)
           && clip_by(bottom, work.span(), area);
}

Point Ellipse::at(double degrees) const {
    const double angle = degrees * std::numbers::pi / 180;
    return {centre.x + rx * std::cos(angle), centre.y - ry * std::sin(angle)};
}

int chords(const Ellipse& ellipse, double within) {
    constexpr double most = 20000;
    const double radius = std::max({ellipse.rx, ellipse.ry, within});
    const double step = 2 * std::sqrt(2 * within / radius) * 180 / std::numbers::pi;
    return static_cast<int>(std::clamp(std::ceil(std::fabs(ellipse.extent) / step), 1.0, most));
}

Ellipse ellipse_at(Path path, std::size_t i) {
    return {point_of(path[i]), path[i + 1].x, path[i + 1].y, path[i + 2].x, path[i + 2].y};
}

} // namespace papier
