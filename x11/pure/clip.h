// Fits coordinates into the 16 bits of the X protocol, so that a deep zoom shows no stray lines. Coordinates that fit
// are never changed. A line that does not fit is cut to a box that lies well outside any window.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>

namespace grx {

inline constexpr int32_t kBox = 30000; // half the side, in pixels: wide lines stay inside 16 bits

/// Half the side of the box for dashed lines. It is smaller because servers lose the dashes of a wide line that is
/// longer than 46340 pixels, the root of 2^31.
inline constexpr int32_t kDashedBox = 16000;

constexpr bool fits16(int32_t v) {
    return v >= INT16_MIN && v <= INT16_MAX;
}

constexpr bool fits16(std::initializer_list<int32_t> values) {
    for (const int32_t v : values) {
        if (!fits16(v)) return false;
    }
    return true;
}

constexpr int32_t into_box(int64_t v) {
    return v < -kBox ? -kBox : v > kBox ? kBox : static_cast<int32_t>(v);
}

struct Vertex {
    double x, y;
};

struct Line {
    int32_t x1, y1, x2, y2;
};

/// How the dashes of a line repeat. The server counts the dashes of a thin line in steps of its longer axis, and those
/// of a wide line along the line.
struct Dashes {
    int32_t period = 0; // pixels; 0 = a solid line
    bool wide = false;
};

/// The part of a segment inside the box, nothing when the segment passes outside. The part of a dashed segment may
/// begin a little before the box, at a multiple of the period from the true start: so its dashes lie where those of the
/// whole segment would.
std::optional<Line> clip_segment(const Line& line, const Dashes& dashes = {});
std::optional<Line> clip_segment(Vertex a, Vertex b, const Dashes& dashes = {});

inline constexpr std::size_t kMaxArcSteps = 16384;

struct Ellipse {
    double cx, cy, rx, ry;
};

/// The point on an ellipse at an angle: degrees, counter-clockwise, where y counts downwards.
Vertex point_on(const Ellipse& e, double degrees);

/// Number of chords that keep an arc of `degrees` within a quarter of a pixel of the true curve.
std::size_t arc_steps(const Ellipse& e, double degrees);

} // namespace grx
