// Geometry of lines and areas that may reach far beyond the paper, and of curves as lines.
#pragma once

#include <optional>

#include "papier/growing.h"
#include "papier/marks.h"

namespace papier {

struct Line {
    Point from, to;
};

/// The part of a line in a box. With a period it may begin before the box, a whole number of periods from the true
/// start, so that dashes lie as on the whole line.
std::optional<Line> clipped(const Line& line, const Box& box, double period = 0);

/// The part of an area in a box; `work` is changed too. False when memory is short.
bool clip_area(Growing<Point>& area, Growing<Point>& work, const Box& box);

struct Ellipse {
    Point centre;
    double rx, ry;
    double start, extent; // degrees, counter-clockwise
    Point at(double degrees) const;
};

/// How many chords stay within a distance of the curve.
int chords(const Ellipse& ellipse, double within);

/// Calls `use(points, closed)` for each part of a path that hangs together, curves as chords. False when memory is short.
template <class Use>
bool flatten(Path path, double within, Growing<Point>& points, Use use);

/// The ellipse that begins with a step.
Ellipse ellipse_at(Path path, std::size_t i);

inline Point point_of(const PathStep& step) {
    return {step.x, step.y};
}

template <class Use>
bool flatten(Path path, double within, Growing<Point>& points, Use use) {
    bool complete = true;
    const auto end_part = [&](bool closed) {
        if (!points.empty()) use(points.span(), closed);
        points.clear();
    };
    points.clear();
    for (std::size_t i = 0; i < path.size(); ++i) {
        if (path[i].step == Step::move) end_part(false);
        if (path[i].step == Step::close) end_part(true);
        if (path[i].step == Step::move || path[i].step == Step::line)
            complete = points.append(point_of(path[i])) && complete;
        if (path[i].step != Step::arc) continue;
        const Ellipse ellipse = ellipse_at(path, i);
        const int count = chords(ellipse, within);
        for (int k = 0; k <= count; ++k)
            complete = points.append(ellipse.at(ellipse.start + ellipse.extent * k / count)) && complete;
        i += 2;
    }
    end_part(false);
    return complete;
}

} // namespace papier
