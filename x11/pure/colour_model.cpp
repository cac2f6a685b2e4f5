// Converts colours between red, green, blue and hue, luminance, saturation, for applications that let users mix them.
#include "pure/colour_model.h"

#include <algorithm>
#include <climits>
#include <cmath>

namespace grx {

namespace {

constexpr double kFullComponent = 255.0;
constexpr double kPercent = 100.0;
constexpr double kSector = 60.0; // degrees between two of the six pure colours
constexpr double kCircle = 360.0;

struct Colour {
    double r, g, b;
};

double hue_of(const Colour& c, double max, double d) {
    double h = 0;
    if (c.r == max)
        h = (c.g - c.b) / d;
    else if (c.g == max)
        h = 2 + (c.b - c.r) / d;
    else
        h = 4 + (c.r - c.g) / d;
    h *= kSector;
    return h < 0 ? h + kCircle : h;
}

// KEEP: fractions are cut, not rounded, so that a conversion there and back may lose one.
int cut(double value) {
    return static_cast<int>(std::clamp<double>(value, INT_MIN, INT_MAX));
}

// Turns any hue into the same one inside the circle.
double inside_circle(double h) {
    h = std::fmod(h, kCircle); // 360 is the hue 0
    return h < 0 ? h + kCircle : h;
}

Colour colour_of(double h, double v, double s) {
    const double sixth = h / kSector;
    const int i = cut(sixth);
    const double f = sixth - i;
    const double p = v * (1 - s);
    const double q = v * (1 - s * f);
    const double t = v * (1 - s * (1 - f));
    const std::array<Colour, 6> sectors{{{v, t, p}, {q, v, p}, {p, v, t}, {p, q, v}, {t, p, v}, {v, p, q}}};
    return sectors[static_cast<std::size_t>(std::clamp(i, 0, 5))];
}

} // namespace

Triple hls_of(const Triple& rgb) {
    const Colour c{rgb[0] / kFullComponent, rgb[1] / kFullComponent, rgb[2] / kFullComponent};
    const double max = std::max({c.r, c.g, c.b}), min = std::min({c.r, c.g, c.b});
    const double s = max == 0 ? 0 : (max - min) / max;
    const double h = s == 0 ? 0 : hue_of(c, max, max - min);
    return {cut(h), cut(max * kPercent), cut(s * kPercent)};
}

std::optional<Triple> rgb_of(const Triple& hls) {
    const double v = hls[1] / kPercent, s = hls[2] / kPercent;
    if (s == 0 && hls[0] != 0) return std::nullopt;
    const Colour c = s == 0 ? Colour{v, v, v} : colour_of(inside_circle(hls[0]), v, s);
    return Triple{cut(c.r * kFullComponent), cut(c.g * kFullComponent), cut(c.b * kFullComponent)};
}

} // namespace grx
