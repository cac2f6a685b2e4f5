// Draws outlines, arcs and polylines with the requests that cost the server least. A server that saves what windows
// show notes a place for every request, and for an outline one for each of its four sides. The more places it has
// noted, the longer the next request takes. So outlines and polylines are sent as joined segments and filled rectangles
// where these certainly give the same pixels. All others are sent as what they are.
#pragma once

#include <array>
#include <span>

#include "drawing/batch.h"
#include "xt_ini_t.h"

namespace grx {

/// The values that the context really has. They need not be ours, because the application may change the context.
inline const XGCValues& context_values() {
    return g_c->values;
}

inline bool solid_lines() {
    return context_values().line_style == LineSolid;
}

inline bool thin_lines() {
    return context_values().line_width == 0;
}

/// True when the sides of a line may be drawn as segments, although each corner is then drawn twice.
inline bool segments_will_do() {
    return solid_lines() && thin_lines() && context_values().cap_style != CapNotLast
           && context_values().function == GXcopy;
}

/// The four sides of a rectangle.
struct Outline {
    int left, top, right, bottom; // the middle of the lines; each fits 16 bits

    unsigned int width() const { return static_cast<unsigned int>(right - left); }
    unsigned int height() const { return static_cast<unsigned int>(bottom - top); }
};

inline void draw_sides(Drawable target, const Outline& o) {
    const INT16 left = p16(o.left), top = p16(o.top), right = p16(o.right), bottom = p16(o.bottom);
    const std::array<xSegment, 4> sides{{{left, top, right, top}, {right, top, right, bottom},
        {right, bottom, left, bottom}, {left, bottom, left, top}}};
    if (join(X_PolySegment, target, sides)) return;
    for (const xSegment& side : sides) draw_line(target, side.x1, side.y1, side.x2, side.y2);
}

/// Draws a wide outline as four filled rectangles that do not overlap. False when that would give other pixels, for
/// instance when the outline has no hole.
inline bool fill_sides(Drawable target, const Outline& o) {
    const auto wide = context_values().line_width;
    const int before = wide / 2, after = wide - before;
    const auto thick = static_cast<unsigned int>(wide);
    const bool mitred = solid_lines() && wide > 0 && context_values().join_style == JoinMiter;
    if (!mitred || o.width() <= thick || o.height() <= thick) return false;
    if (o.left - before < INT16_MIN || o.top - before < INT16_MIN || o.width() + thick > UINT16_MAX) return false;
    fill_rectangle(target, o.left - before, o.top - before, o.width() + thick, thick);
    fill_rectangle(target, o.left - before, o.top + after, thick, o.height() - thick);
    fill_rectangle(target, o.right - before, o.top + after, thick, o.height() - thick);
    fill_rectangle(target, o.left - before, o.bottom - before, o.width() + thick, thick);
    return true;
}

/// Draws a thin or dashed outline as a line through five points, for which the server notes one place instead of four.
inline void draw_closed_line(Drawable target, const Outline& o) {
    XPoint points[] = {{p16(o.left), p16(o.top)}, {p16(o.right), p16(o.top)}, {p16(o.right), p16(o.bottom)},
        {p16(o.left), p16(o.bottom)}, {p16(o.left), p16(o.top)}};
    XDrawLines(x11_disp, target, g_c, points, 5, CoordModeOrigin);
}

inline void draw_outline_on_screen(Drawable target, const Outline& o) {
    if (segments_will_do()) {
        draw_sides(target, o);
    } else if (!solid_lines() || thin_lines()) {
        draw_closed_line(target, o);
    } else if (!fill_sides(target, o)) {
        draw_rectangle(target, o.left, o.top, o.width(), o.height());
    }
}

/// Draws an outline into a picture. The server notes no places there, so that the shortest request is the best.
inline void draw_outline_in_memory(Drawable target, const Outline& o) {
    draw_rectangle(target, o.left, o.top, o.width(), o.height());
}

/// Draws an arc. Only thin solid arcs may share a request: the server would join wide or dashed ones where they touch.
inline void draw_arc(Drawable target, const ArcBox& a) {
    if (!solid_lines() || !thin_lines() || !join_arc(X_PolyArc, target, a))
        XDrawArc(x11_disp, target, g_c, a.x, a.y, a.width, a.height, a.start, a.extent);
}

/// The most points of a polyline that is drawn as segments. For a longer one a request of its own is better, because it
/// is half as long.
inline constexpr std::size_t kShortPolyline = 256;

/// True when a polyline has two different points. Servers show one without any length now this way and now another.
inline bool has_length(std::span<const XPoint> points) {
    return std::ranges::any_of(points, [&](const XPoint& p) { return p.x != points[0].x || p.y != points[0].y; });
}

inline void draw_polyline(Drawable target, std::span<XPoint> points) {
    if (!segments_will_do() || points.size() > kShortPolyline || !has_length(points)) {
        XDrawLines(x11_disp, target, g_c, points.data(), static_cast<int>(points.size()), CoordModeOrigin);
        return;
    }
    for (std::size_t i = 1; i < points.size(); ++i)
        draw_line(target, points[i - 1].x, points[i - 1].y, points[i].x, points[i].y);
}

} // namespace grx
