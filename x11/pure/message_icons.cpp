// Draws the pictures of messages: a disc with a sign, for warnings a triangle.
#include "pure/message_icons.h"

#include <algorithm>
#include <cmath>

namespace grx {

namespace {

struct Spot {
    double x, y;
};

double distance(Spot a, Spot b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

// From a point to a stroke with round ends.
double distance_to_stroke(Spot p, Spot from, Spot to) {
    const double dx = to.x - from.x, dy = to.y - from.y;
    const double along = std::clamp(((p.x - from.x) * dx + (p.y - from.y) * dy) / (dx * dx + dy * dy), 0.0, 1.0);
    return distance(p, {from.x + along * dx, from.y + along * dy});
}

constexpr double kPen = 0.07; // half the width of a stroke
constexpr double kEdge = 0.035;

bool in_stroke(Spot p, Spot from, Spot to, double pen = kPen) {
    return distance_to_stroke(p, from, to) <= pen;
}

bool in_letter_i(Spot p) {
    return distance(p, {0.5, 0.27}) <= 0.08 || in_stroke(p, {0.5, 0.47}, {0.5, 0.74});
}

bool in_exclamation_mark(Spot p) {
    return distance(p, {0.5, 0.8}) <= 0.065 || in_stroke(p, {0.5, 0.42}, {0.5, 0.63}, 0.06);
}

bool in_cross(Spot p) {
    return in_stroke(p, {0.32, 0.32}, {0.68, 0.68}) || in_stroke(p, {0.68, 0.32}, {0.32, 0.68});
}

// Three quarters of a ring, open at the lower left, and what is below it.
bool in_question_mark(Spot p) {
    constexpr Spot centre{0.5, 0.37};
    constexpr double radius = 0.15, pen = 0.055;
    const bool open = p.x < centre.x && p.y > centre.y;
    const bool in_ring = !open && std::abs(distance(p, centre) - radius) <= pen;
    const bool in_start = distance(p, {centre.x - radius, centre.y}) <= pen;
    return in_ring || in_start || in_stroke(p, {0.5, 0.52}, {0.5, 0.6}, pen) || distance(p, {0.5, 0.77}) <= 0.07;
}

bool in_sign(MessageKind kind, Spot p) {
    switch (kind) {
    case MessageKind::Information: return in_letter_i(p);
    case MessageKind::Warning: return in_exclamation_mark(p);
    case MessageKind::Error: return in_cross(p);
    case MessageKind::Question: return in_question_mark(p);
    }
    return false;
}

// How far inside the triangle, whose corners are round.
double depth_in_triangle(Spot p) {
    constexpr Spot top{0.5, 0.12}, left{0.1, 0.88}, right{0.9, 0.88};
    constexpr double round = 0.07;
    const double height = left.y - top.y, half = left.x - top.x;
    const double slope = std::hypot(height, half);
    const auto beside = [&](double x) { return (height * x - std::abs(half) * (p.y - top.y)) / slope; };
    const double outside = std::max({beside(p.x - top.x), beside(top.x - p.x), p.y - left.y});
    if (outside <= 0) return round - outside;
    return round
           - std::min({distance_to_stroke(p, top, left), distance_to_stroke(p, top, right),
               distance_to_stroke(p, left, right)});
}

double depth_in_disc(Spot p) {
    return 0.48 - distance(p, {0.5, 0.5});
}

} // namespace

IconLayer icon_layer(MessageKind kind, double x, double y) {
    const Spot p{x, y};
    const double depth = kind == MessageKind::Warning ? depth_in_triangle(p) : depth_in_disc(p);
    if (depth <= 0) return IconLayer::Background;
    if (depth <= kEdge) return IconLayer::Edge;
    return in_sign(kind, p) ? IconLayer::Sign : IconLayer::Fill;
}

IconColour icon_colour(MessageKind kind, IconLayer layer) {
    const bool warning = kind == MessageKind::Warning;
    if (layer == IconLayer::Sign) return warning ? IconColour{0, 0, 0} : IconColour{255, 255, 255};
    const bool edge = layer == IconLayer::Edge;
    if (warning) return edge ? IconColour{128, 96, 0} : IconColour{255, 208, 32};
    if (kind == MessageKind::Error) return edge ? IconColour{112, 0, 0} : IconColour{204, 32, 32};
    return edge ? IconColour{0, 32, 96} : IconColour{32, 96, 176};
}

} // namespace grx
