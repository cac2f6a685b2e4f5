// What a layer holds: the primitives of the application as they were asked for, to be drawn again, and what they cover.
#pragma once

#include <cstddef>
#include <cstring>

#include "pure/area.h"
#include "pure/axis.h"
#include "system/block.h"
#include "xt_gfx_t.h"

namespace grx {

struct Shift {
    INT dx = 0;
    INT dy = 0;
};

/// The primitives of a layer. They are bytes in one block.
struct LayerContent {
    static constexpr std::size_t kAreas = 16;

    Block<uchar> bytes;
    std::size_t used = 0;
    Block<Area> areas; // kAreas of them
    std::size_t area_count = 0;
    bool complete = true; // false when memory was short

    bool empty() const { return used == 0; }

    /// Room for a primitive that is drawn by `draw`; null when memory is short.
    uchar* add(void (*draw)(uchar*, Shift), std::size_t size, const Area& area);

    /// Draws all of it, so far from where it was.
    void draw(Shift shift);
};

// -- what primitives cover, at least

Area covered_area(const GRX_POINT& p);
Area covered_area(const GRX_SEGMENT& p);
Area covered_area(const GRX_RECTANGLE& p);
Area covered_area(const GRX_ARC& p);
Area covered_area(const GRX_POLY& p);

// -- moving them

inline void shift_coordinate(INT& v, INT by) {
    v = saturated(int64_t{v} + by);
}

template <class Primitive>
void shift_primitive(Primitive& p, Shift s) {
    if constexpr (requires { p.x1; }) {
        shift_coordinate(p.x1, s.dx);
        shift_coordinate(p.y1, s.dy);
        shift_coordinate(p.x2, s.dx);
        shift_coordinate(p.y2, s.dy);
    } else {
        shift_coordinate(p.x, s.dx);
        shift_coordinate(p.y, s.dy);
    }
}

/// Copies points, moved. What 16 bits do not hold stays at their end.
void shift_points(const GRX_POINT_POLY* from, GRX_POINT_POLY* to, INT count, Shift s);

// -- keeping them

template <auto Draw, class Primitive>
void draw_again(uchar* bytes, Shift s) {
    Primitive p;
    std::memcpy(&p, bytes, sizeof p);
    shift_primitive(p, s);
    Draw(p);
}

// The points come behind the record, and behind them room for the moved ones.
template <auto Draw>
void draw_points_again(uchar* bytes, Shift s) {
    GRX_POLY poly;
    std::memcpy(&poly, bytes, sizeof poly);
    const auto* const points = reinterpret_cast<const GRX_POINT_POLY*>(bytes + sizeof poly);
    poly.points = reinterpret_cast<GRX_POINT_POLY*>(bytes + sizeof poly) + poly.npoints;
    shift_points(points, poly.points, poly.npoints, s);
    Draw(poly);
}

template <auto Draw, class Primitive>
void keep_primitive(LayerContent& content, const Primitive& p, const Area& area) {
    uchar* const room = content.add(draw_again<Draw, Primitive>, sizeof p, area);
    if (room != nullptr) std::memcpy(room, &p, sizeof p);
}

template <auto Draw>
void keep_primitive(LayerContent& content, const GRX_POLY& poly, const Area& area) {
    if (poly.points == nullptr || poly.npoints <= 0) return;
    const std::size_t points = static_cast<std::size_t>(poly.npoints) * sizeof *poly.points;
    uchar* const room = content.add(draw_points_again<Draw>, sizeof poly + 2 * points, area);
    if (room == nullptr) return;
    std::memcpy(room, &poly, sizeof poly);
    std::memcpy(room + sizeof poly, poly.points, points);
}

} // namespace grx
