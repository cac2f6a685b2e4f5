// What is put on paper: paths, texts, pictures, links, in millimetres, y downwards. For what makes them of the
// primitives, what keeps them, and what writes them.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <span>

#include "host_t.h"

namespace papier {

struct Point {
    double x, y;
};

struct Box {
    double left, top, right, bottom;

    double width() const { return right - left; }
    double height() const { return bottom - top; }
    bool empty() const { return !(left < right && top < bottom); }
    bool holds(Point p) const { return p.x >= left && p.x <= right && p.y >= top && p.y <= bottom; }
    bool meets(const Box& other) const {
        return left <= other.right && other.left <= right && top <= other.bottom && other.top <= bottom;
    }
    Box grown(double by) const { return {left - by, top - by, right + by, bottom + by}; }
    Box moved(double x, double y) const { return {left + x, top + y, right + x, bottom + y}; }
    Box common(const Box& o) const {
        return {std::max(left, o.left), std::max(top, o.top), std::min(right, o.right), std::min(bottom, o.bottom)};
    }
    void take_in(Point p) {
        left = std::min(left, p.x);
        right = std::max(right, p.x);
        top = std::min(top, p.y);
        bottom = std::max(bottom, p.y);
    }
    static Box nothing() {
        constexpr double far = std::numeric_limits<double>::max();
        return {far, far, -far, -far};
    }
};

/// A step of a path. An arc is three steps: its centre, its half axes, and where it begins and how far it goes, in
/// degrees, counter-clockwise for who looks at the paper. A line leads to its beginning unless the path begins there.
enum class Step : uint8_t { move, line, close, arc, half_axes, angles };

struct PathStep {
    float x, y;
    Step step;
};

using Path = std::span<const PathStep>;

/// The box of a path, that of the whole ellipse for arcs.
Box box_of(Path path);

/// What lines are drawn with. `dash` is the style of the attributes, `unit` the millimetres of one of its units.
struct Pen {
    double width;
    uint32_t rgb;
    INT number; // of a plotter; 0 draws nothing
    INT dash;
    double unit;
    bool operator==(const Pen&) const = default;
};

/// What areas are filled with.
struct Ink {
    uint32_t rgb;
    INT number;
    bool even_odd;
    bool operator==(const Ink&) const = default;
};

/// A line of text from the begin of its baseline. `height` is that of the font, above and below the baseline together;
/// `width` is what the text is stretched to, 0 for none.
struct TextMark {
    double x, y;
    double height, width;
    uint32_t rgb;
    INT number;
};

/// A picture of width x height pixels, four bytes each: alpha, red, green, blue, multiplied by alpha.
struct PictureMark {
    Box place;
    INT width, height;
    INT number; // of the pen that draws its frame
};

/// Something that takes marks. Texts and URIs end with a zero.
class Marked {
  public:
    virtual void stroke(const Pen& pen, Path path) = 0;
    virtual void fill(const Ink& ink, Path path) = 0;
    virtual void text(const TextMark& mark, std::span<const char> utf8) = 0;
    virtual void picture(const PictureMark& mark, std::span<const uint32_t> pixels) = 0;
    virtual void link(const Box& place, std::span<const char> uri) = 0;

  protected:
    Marked() = default;
    ~Marked() = default;
};

} // namespace papier
