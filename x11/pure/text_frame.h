// How a text stands in a drawing: from letters measured in capitals, y upwards, to pixels, y downwards.
#pragma once

#include <cmath>

#include "pure/clip.h"

namespace grx {

/// A linear map and a shift: x' = xx x + xy y + dx, y' = yx x + yy y + dy.
struct Affine {
    double xx = 1, xy = 0, yx = 0, yy = 1, dx = 0, dy = 0;

    Vertex operator()(Vertex p) const { return {xx * p.x + xy * p.y + dx, yx * p.x + yy * p.y + dy}; }
    Affine scaled(double by) const { return {xx * by, xy * by, yx * by, yy * by, dx, dy}; }
    Affine shifted(Vertex by) const { return {xx, xy, yx, yy, dx + by.x, dy + by.y}; }
};

struct TextFrame {
    Vertex origin{};              // start of the baseline
    double height = 0, width = 0; // of a capital
    double cosine = 1, sine = 0;  // of the direction, counter-clockwise; their length is 1
    double slant = 0;             // tangent
    bool mirrored = false;

    double side() const { return mirrored ? -1 : 1; }

    /// Where a place along the baseline is, in pixels from the origin.
    Vertex along(double length) const { return {cosine * side() * length, -sine * side() * length}; }

    /// Across the baseline, upwards, and leaning as the letters do.
    Vertex across(double length) const {
        const double lean = side() * slant * length;
        return {cosine * lean - sine * length, -sine * lean - cosine * length};
    }

    /// From letters, of which a capital is 1 high, to pixels.
    Affine letters() const {
        const Vertex u = along(width), v = across(height);
        return {u.x, v.x, u.y, v.y, origin.x, origin.y};
    }
};

/// Brings the direction of a frame to the length 1; both zero is from left to right.
inline void normalise(TextFrame& frame) {
    const double length = std::hypot(frame.cosine, frame.sine);
    if (length > 0) {
        frame.cosine /= length;
        frame.sine /= length;
    } else {
        frame.cosine = 1;
        frame.sine = 0;
    }
}

} // namespace grx
