// Writes marks in the language of pen plotters.
#include "papier/hpgl_paper.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "papier/dashes.h"
#include "papier/sheet_signs.h"

namespace papier {

namespace {

constexpr double kUnits = 40;      // of the plotter in a millimetre
constexpr double kTolerance = .02; // mm by which chords may be off: less than a unit
constexpr double kRoot = .70710678118654752440;

double distance(Point a, Point b) {
    return std::hypot(b.x - a.x, b.y - a.y);
}

// Dashes along a line through points.
class Dasher {
  public:
    Dasher(const Pen& pen) : lengths_(dashes_of(pen.dash)), unit_(pen.unit), period_(dash_period(pen.dash) * pen.unit) {
        left_ = solid() ? 0 : lengths_[0] * unit_;
    }

    bool solid() const { return lengths_.empty(); }

    /// Passes over a part of the line.
    void skip(double length) {
        double rest = std::fmod(length, period_);
        for (; rest > left_; step()) rest -= left_;
        left_ -= rest;
    }

    template <class Use>
    void along(const Line& part, Use use) {
        const double length = distance(part.from, part.to);
        const auto at = [&](double t) {
            const double share = length > 0 ? t / length : 0;
            return Point{
                part.from.x + (part.to.x - part.from.x) * share, part.from.y + (part.to.y - part.from.y) * share};
        };
        double done = 0;
        for (; length - done > left_; step()) {
            if (drawn()) use(at(done), at(done + left_));
            done += left_;
        }
        if (drawn() && length > done) use(at(done), part.to);
        left_ -= length - done;
    }

  private:
    bool drawn() const { return index_ % 2 == 0; }
    void step() {
        index_ = (index_ + 1) % lengths_.size();
        left_ = lengths_[index_] * unit_;
    }

    std::span<const double> lengths_;
    double unit_, period_;
    std::size_t index_ = 0;
    double left_ = 0;
};

// Areas are hatched along one diagonal.
double along(Point p) {
    return (p.x + p.y) * kRoot;
}
double across(Point p) {
    return (p.y - p.x) * kRoot;
}
Point from_diagonal(double along_it, double across_it) {
    return {(along_it - across_it) * kRoot, (along_it + across_it) * kRoot};
}

} // namespace

void HpglPaper::begin(const GRX_PAPIER& paper, const Layout& layout, TargetFile& file) {
    file_ = &file;
    layout_ = layout;
    hatching_ = paper.hachures;
    file.write("IN;PA;\n");
}

void HpglPaper::finish() {
    file_->write(drawing_ ? ";PU;SP0;\n" : "PU;SP0;\n");
}

// --- lines ----------------------------------------------------------------------------------------------------------

// The lower left of the sheet within its margins is the plotter's origin; y counts upwards there.
void HpglPaper::write_point(Point p) {
    std::array<char, 64> text{};
    const long x = std::lround((p.x + origin_.x - layout_.printable.left) * kUnits);
    const long y = std::lround((layout_.printable.bottom - p.y - origin_.y) * kUnits);
    std::snprintf(text.data(), text.size(), "%ld,%ld", x, y);
    file_->write(text.data());
}

void HpglPaper::line(Point from, Point to) {
    const auto part = clipped({from, to}, visible_);
    if (!part) return;
    if (selected_ != pen_) {
        std::array<char, 32> text{};
        std::snprintf(text.data(), text.size(), "%sSP%d;\n", drawing_ ? ";" : "", static_cast<int>(pen_));
        file_->write(text.data());
        selected_ = pen_;
        drawing_ = false;
    }
    const auto x = std::lround(part->from.x * kUnits * 16), y = std::lround(part->from.y * kUnits * 16);
    if (!drawing_ || x != at_x_ || y != at_y_) {
        file_->write(drawing_ ? ";\nPU" : "PU");
        write_point(part->from);
        file_->write(";PD");
    } else {
        file_->write(",");
    }
    write_point(part->to);
    drawing_ = true;
    at_x_ = std::lround(part->to.x * kUnits * 16);
    at_y_ = std::lround(part->to.y * kUnits * 16);
}

void HpglPaper::draw(std::span<const Point> points, bool closed, const Pen& pen) {
    Dasher dasher(pen);
    const std::size_t count = points.size() + (closed ? 1 : 0);
    if (points.size() == 1) line(points[0], points[0]);
    for (std::size_t i = 1; i < count; ++i) {
        const Point from = points[i - 1], to = points[i % points.size()];
        if (dasher.solid()) {
            line(from, to);
        } else if (const auto part = clipped({from, to}, visible_)) {
            dasher.skip(distance(from, part->from));
            dasher.along(*part, [this](Point a, Point b) { line(a, b); });
            dasher.skip(distance(part->to, to));
        } else {
            dasher.skip(distance(from, to));
        }
    }
}

// --- marks ----------------------------------------------------------------------------------------------------------

// While no pen is chosen, those that are needed are noted.
bool HpglPaper::takes(INT pen) {
    if (pen <= 0 || static_cast<std::size_t>(pen) >= kPens) return false;
    used_.set(static_cast<std::size_t>(pen));
    return pen == pen_;
}

void HpglPaper::stroke_lines(const Pen& pen, Path path) {
    const bool complete = flatten(
        path, kTolerance, points_, [&](std::span<const Point> points, bool closed) { draw(points, closed, pen); });
    complete_ = complete && complete_;
}

void HpglPaper::stroke(const Pen& pen, Path path) {
    if (takes(pen.number)) stroke_lines(pen, path);
}

void HpglPaper::fill(const Ink& ink, Path path) {
    if (!takes(ink.number)) return;
    stroke_lines({0, 0, ink.number, 0, 0}, path);
    if (hatching_ <= 0) return;
    edges_.clear();
    const bool complete = flatten(path, kTolerance, points_, [&](std::span<const Point> points, bool) {
        for (std::size_t i = 0; i < points.size(); ++i)
            complete_ = edges_.append({points[i], points[(i + 1) % points.size()]}) && complete_;
    });
    complete_ = complete && complete_;
    hatch(ink);
}

void HpglPaper::hatch(const Ink& ink) {
    double least = INFINITY, most = -INFINITY;
    for (const Edge& edge : edges_.span()) {
        least = std::min({least, across(edge.from), across(edge.to)});
        most = std::max({most, across(edge.from), across(edge.to)});
    }
    // beyond the sheet nothing is to be seen
    const double first = std::max(least, across({visible_.right, visible_.top}));
    const double last = std::min(most, across({visible_.left, visible_.bottom}));
    for (double k = std::ceil(first / hatching_); k * hatching_ <= last; ++k) hatch_line(k * hatching_, ink);
}

void HpglPaper::hatch_line(double at, const Ink& ink) {
    crossings_.clear();
    for (const auto& [from, to] : edges_.span()) {
        const double a = across(from), b = across(to);
        if ((a <= at) == (b <= at)) continue;
        const double t = (at - a) / (b - a);
        const double place = along(from) + (along(to) - along(from)) * t;
        complete_ = crossings_.append({place, a <= at ? 1 : -1}) && complete_;
    }
    const auto found = crossings_.span();
    std::sort(found.begin(), found.end(), [](const Crossing& a, const Crossing& b) { return a.along < b.along; });
    int inside = 0;
    for (std::size_t i = 0; i + 1 < found.size(); ++i) {
        inside += ink.even_odd ? (inside != 0 ? -1 : 1) : found[i].turn;
        if (inside != 0) line(from_diagonal(found[i].along, at), from_diagonal(found[i + 1].along, at));
    }
}

void HpglPaper::text(const TextMark&, std::span<const char>) {
    // letters come as strokes
}

void HpglPaper::picture(const PictureMark& mark, std::span<const uint32_t>) {
    if (!takes(mark.number)) return;
    const Box& b = mark.place;
    const std::array<Point, 4> corners{{{b.left, b.top}, {b.right, b.top}, {b.right, b.bottom}, {b.left, b.bottom}}};
    draw(corners, true, {});
}

void HpglPaper::link(const Box&, std::span<const char>) {
    // paper has none
}

// --- sheets ---------------------------------------------------------------------------------------------------------

void HpglPaper::put_sheet(const Recorder& page, bool signs, INT column, INT row) {
    if (any_sheet_) file_->write(drawing_ ? ";\nPG;\n" : "PG;\n");
    drawing_ = false;
    any_sheet_ = true;
    used_.reset();
    pen_ = 0;
    origin_ = layout_.origin(column, row);
    visible_ = layout_.shown(column, row);
    page.replay(*this, visible_);
    for (std::size_t pen = 1; pen < kPens; ++pen) {
        if (!used_.test(pen)) continue;
        pen_ = static_cast<INT>(pen);
        page.replay(*this, visible_);
    }
    if (signs) put_signs(column, row);
}

// Crop marks stand in the margins, with the first pen.
void HpglPaper::put_signs(INT column, INT row) {
    pen_ = 1;
    origin_ = {};
    visible_ = {0, 0, layout_.sheet_width, layout_.sheet_height};
    if (crop_marks(layout_, column, row, signs_)) stroke_lines({}, signs_.span());
}

} // namespace papier
