// Makes marks of the lines and areas that a paper receives.
#include "papier/drafter.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "papier/dashes.h"

namespace {

using papier::Ellipse;
using papier::Line;
using papier::Point;

constexpr double kNear = 150;      // mm around the drawing where lines may go on: more than half a line is wide
constexpr double kExact = 100000;  // mm up to which coordinates are given on as they are
constexpr double kTolerance = .01; // mm by which chords may be off
constexpr INT kFullTurn = 360;

double extent_of(const GRX_ARC& arc) {
    return std::clamp(static_cast<double>(arc.angle_arr) - arc.angle_dep, -double{kFullTurn}, double{kFullTurn});
}

bool full(const Ellipse& e) {
    return std::fabs(e.extent) >= kFullTurn;
}

} // namespace

namespace papier {

bool Drafter::begin(const GRX_PAPIER& paper, const Layout& layout, Marked& marks, std::size_t most_steps) {
    marks_ = &marks;
    layout_ = layout;
    target_ = paper.cible;
    number_ = paper.numero;
    text_height_ = paper.hauteur_texte;
    strokes_only_ = paper.genre == GRX_PAPIER_HPGL;
    visible_ = layout.drawing();
    near_ = visible_.grown(kNear);
    exact_ = {-kExact, -kExact, kExact, kExact};
    most_steps_ = most_steps;
    return inks_.take(paper);
}

// --- paths ----------------------------------------------------------------------------------------------------------

void Drafter::flush() {
    if (kind_ == Kind::stroke && !path_.empty()) marks_->stroke(pen_, path_.span());
    if (kind_ == Kind::fill && !path_.empty()) marks_->fill(ink_, path_.span());
    path_.clear();
    kind_ = Kind::none;
}

void Drafter::begin_stroke(const GRX_ATTRIBUTS_TRACER& attrib) {
    const Pen pen = inks_.pen(attrib);
    if (kind_ == Kind::stroke && pen == pen_ && path_.size() < most_steps_) return;
    flush();
    kind_ = Kind::stroke;
    pen_ = pen;
}

void Drafter::begin_fill(const GRX_ATTRIBUTS_TRACER& attrib, bool even_odd) {
    const Ink ink = inks_.ink(attrib, even_odd);
    if (kind_ == Kind::fill && !even_odd && ink == ink_ && path_.size() < most_steps_) return;
    flush();
    kind_ = Kind::fill;
    ink_ = ink;
}

void Drafter::add(Step step, Point p) {
    complete_ = path_.append({static_cast<float>(p.x), static_cast<float>(p.y), step}) && complete_;
}

void Drafter::add_line(const Line& line) {
    Box box = Box::nothing();
    box.take_in(line.from);
    box.take_in(line.to);
    if (!box.meets(near_)) return;
    std::optional<Line> part = line;
    if (!exact(line.from) || !exact(line.to)) part = clipped(line, near_, dash_period(pen_.dash) * pen_.unit);
    if (!part) return;
    add(Step::move, part->from);
    add(Step::line, part->to);
}

bool Drafter::all_exact(std::span<const Point> points) const {
    return std::all_of(points.begin(), points.end(), [this](Point p) { return exact(p); });
}

void Drafter::add_joined(std::span<const Point> points, bool closed) {
    for (std::size_t i = 0; i < points.size(); ++i) add(i == 0 ? Step::move : Step::line, points[i]);
    if (closed) add(Step::close, points[0]);
}

// What reaches too far is drawn line by line.
void Drafter::add_lines(std::span<const Point> points, bool closed) {
    Box box = Box::nothing();
    for (const Point p : points) box.take_in(p);
    if (!box.meets(near_)) return;
    if (points.size() == 1) add_line({points[0], points[0]});
    if (points.size() < 2) return;
    if (all_exact(points)) {
        add_joined(points, closed);
        return;
    }
    for (std::size_t i = 1; i < points.size(); ++i) add_line({points[i - 1], points[i]});
    if (closed) add_line({points.back(), points.front()});
}

void Drafter::add_area(Growing<Point>& area) {
    if (!all_exact(area.span())) complete_ = clip_area(area, work_, near_) && complete_;
    if (area.size() > 2) add_joined(area.span(), true);
}

bool Drafter::exact(const Ellipse& e) const {
    return exact(Point{e.centre.x - e.rx, e.centre.y - e.ry}) && exact(Point{e.centre.x + e.rx, e.centre.y + e.ry});
}

// A flat ellipse has no matrix.
void Drafter::add_ellipse(const Ellipse& e) {
    if (!exact(e) || e.rx <= 0 || e.ry <= 0) {
        add_chords(e);
        return;
    }
    add_arc(e.at(e.start), e);
    if (full(e)) add(Step::close, e.at(e.start));
}

void Drafter::add_arc(Point from, const Ellipse& e) {
    add(Step::move, from);
    add(Step::arc, e.centre);
    add(Step::half_axes, {e.rx, e.ry});
    add(Step::angles, {e.start, e.extent});
}

void Drafter::add_chords(const Ellipse& e) {
    const int count = chords(e, kTolerance);
    for (int i = 0; i < count; ++i)
        add_line({e.at(e.start + e.extent * i / count), e.at(e.start + e.extent * (i + 1) / count)});
}

// --- primitives -----------------------------------------------------------------------------------------------------

void Drafter::point(const GRX_POINT& p) {
    if (!Inks::draws(p.attrib)) return;
    begin_stroke(p.attrib);
    add_line({at(p.x, p.y), at(p.x, p.y)});
}

void Drafter::segment(const GRX_SEGMENT& s) {
    if (!Inks::draws(s.attrib)) return;
    begin_stroke(s.attrib);
    add_line({at(s.x1, s.y1), at(s.x2, s.y2)});
}

void Drafter::rectangle(const GRX_RECTANGLE& r) {
    if (!Inks::draws(r.attrib)) return;
    begin_stroke(r.attrib);
    const std::array corners{at(r.x1, r.y1), at(r.x2, r.y1), at(r.x2, r.y2), at(r.x1, r.y2)};
    add_lines(corners, true);
}

// All go round in the same way, so that those of one path do not undo each other.
void Drafter::filled_rectangle(const GRX_RECTANGLE& r) {
    if (!Inks::draws(r.attrib)) return;
    const Point a = at(std::min(r.x1, r.x2), std::min(r.y1, r.y2)), b = at(std::max(r.x1, r.x2), std::max(r.y1, r.y2));
    const Box seen = Box{a.x, a.y, b.x, b.y}.common(near_);
    if (seen.left > seen.right || seen.top > seen.bottom) return;
    begin_fill(r.attrib, false);
    const std::array corners{Point{seen.left, seen.top}, Point{seen.right, seen.top}, Point{seen.right, seen.bottom},
        Point{seen.left, seen.bottom}};
    add_joined(corners, true);
}

namespace {

Ellipse ellipse_of(const GRX_ARC& arc, Point corner, double mm_per_pixel) {
    const double rx = arc.lar * mm_per_pixel / 2, ry = arc.hau * mm_per_pixel / 2;
    return {{corner.x + rx, corner.y + ry}, rx, ry, static_cast<double>(arc.angle_dep % kFullTurn), extent_of(arc)};
}

Box around(const Ellipse& e) {
    return {e.centre.x - e.rx, e.centre.y - e.ry, e.centre.x + e.rx, e.centre.y + e.ry};
}

} // namespace

void Drafter::arc(const GRX_ARC& arc) {
    const Ellipse e = ellipse_of(arc, at(arc.x, arc.y), layout_.mm_per_pixel);
    if (!Inks::draws(arc.attrib) || !around(e).meets(near_)) return;
    begin_stroke(arc.attrib);
    add_ellipse(e);
}

void Drafter::filled_arc(const GRX_ARC& arc) {
    const Ellipse e = ellipse_of(arc, at(arc.x, arc.y), layout_.mm_per_pixel);
    if (!Inks::draws(arc.attrib) || !around(e).meets(near_) || e.rx <= 0 || e.ry <= 0) return;
    begin_fill(arc.attrib, true);
    if (exact(e)) {
        add_arc(full(e) ? e.at(e.start) : e.centre, e);
        add(Step::close, e.centre);
        return;
    }
    points_.clear();
    if (!full(e)) complete_ = points_.append(e.centre) && complete_;
    const int count = chords(e, kTolerance);
    for (int i = 0; i <= count; ++i) complete_ = points_.append(e.at(e.start + e.extent * i / count)) && complete_;
    add_area(points_);
}

bool Drafter::take_points(const GRX_POLY& poly) {
    points_.clear();
    for (INT i = 0; i < poly.npoints; ++i)
        complete_ = points_.append(at(poly.points[i].x, poly.points[i].y)) && complete_;
    return Inks::draws(poly.attrib) && !points_.empty();
}

void Drafter::polyline(const GRX_POLY& poly) {
    if (!take_points(poly)) return;
    begin_stroke(poly.attrib);
    add_lines(points_.span(), false);
}

void Drafter::polygon(const GRX_POLY& poly) {
    if (!take_points(poly)) return;
    begin_fill(poly.attrib, true);
    add_area(points_);
}

} // namespace papier
