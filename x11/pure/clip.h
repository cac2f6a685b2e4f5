// Coordinates beyond the 16 bits of the X protocol. What fits is never touched; what does not is cut to a box
// that lies well outside any window, so that a deep zoom shows no stray lines.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>

namespace grx {

inline constexpr int32_t kBox = 30000; // half side of the box; leaves room for wide lines inside 16 bits

// The same of dashed lines: servers lose the dashes of wide ones whose length is above 46340, the root of 2^31.
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

/// How the dashes of a line repeat. Those of a thin line are counted in steps of its longer axis, as it is drawn, those
/// of a wide one along the line.
struct Dashes {
    int32_t period = 0; // pixels; 0 = a solid line
    bool wide = false;
};

/// The part of a segment inside the box, nothing when it passes outside. That of a dashed one may begin a little before,
/// at a multiple of its period from the true start: its dashes lie where those of the whole segment would.
std::optional<Line> clip_segment(const Line& line, const Dashes& dashes = {});
std::optional<Line> clip_segment(Vertex a, Vertex b, const Dashes& dashes = {});

inline constexpr std::size_t kMaxArcSteps = 16384;

struct Ellipse {
    double cx, cy, rx, ry;
};

/// Points on an arc, angles in degrees, counter-clockwise, y downwards.
Vertex point_on(const Ellipse& e, double degrees);

/// Number of chords that keep an arc of `degrees` within a quarter of a pixel of the true curve.
std::size_t arc_steps(const Ellipse& e, double degrees);

} // namespace grx
