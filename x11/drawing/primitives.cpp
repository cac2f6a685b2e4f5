// Draws the points, segments, rectangles, arcs and polygons of the application.
#include <X11/Xlib.h>

#include <algorithm>

#include "pure/axis.h"
#include "pure/clip.h"
#include "display/pixmaps.h"
#include "display/screen.h"
#include "drawing/attributes.h"
#include "drawing/batch.h"
#include "drawing/outlines.h"
#include "drawing/receiver.h"
#include "drawing/target.h"
#include "xt_bou_f.h"
#include "xt_fen_f.h"
#include "xt_gfx_f.h"
#include "xt_ini_f.h"

namespace {

void draw_segment(Drawable target, const GRX_SEGMENT& s) {
    if (target == None) return;
    const grx::Line line{s.x1, s.y1, s.x2, s.y2};
    if (grx::fits16({s.x1, s.y1, s.x2, s.y2})) {
        grx::draw_line(target, line);
    } else if (const auto part = grx::clip_segment(line, grx::dashes_of(s.attrib))) {
        grx::draw_line(target, *part);
    }
}

grx::Outline corners_of(const GRX_RECTANGLE& r) {
    const auto [left, right] = std::minmax(r.x1, r.x2);
    const auto [top, bottom] = std::minmax(r.y1, r.y2);
    if (grx::fits16({left, right, top, bottom})) return {left, top, right, bottom};
    return {grx::into_box(left), grx::into_box(top), grx::into_box(right), grx::into_box(bottom)};
}

unsigned int span(INT from, INT to) {
    return static_cast<unsigned int>(to - from);
}

// The width from one pixel to another, both included. The widest that the protocol can say is one pixel less than its
// coordinates reach.
unsigned int covering(INT from, INT to) {
    return std::min<unsigned int>(span(from, to) + 1, UINT16_MAX);
}

void outline_rectangle(Drawable target, const GRX_RECTANGLE& r) {
    if (target == None) return;
    const auto draw = grx::in_memory(target) ? grx::draw_outline_in_memory : grx::draw_outline_on_screen;
    draw(target, corners_of(r));
}

void fill_rectangle(Drawable target, const GRX_RECTANGLE& r) {
    if (target == None) return;
    const grx::Outline c = corners_of(r);
    grx::fill_rectangle(target, c.left, c.top, covering(c.left, c.right), covering(c.top, c.bottom));
}

// An arc whose box does not fit the protocol is drawn as chords, which are cut like segments.
bool box_fits(const GRX_ARC& arc) {
    constexpr UNSIGNED_INT widest = UINT16_MAX;
    return grx::fits16({arc.x, arc.y}) && arc.lar <= widest && arc.hau <= widest;
}

constexpr INT kFullTurn = 360;

// A larger extent is cut to the full turn that X draws.
INT extent_of(const GRX_ARC& arc) {
    return static_cast<INT>(std::clamp<int64_t>(int64_t{arc.angle_arr} - arc.angle_dep, -kFullTurn, kFullTurn));
}

grx::Ellipse ellipse_of(const GRX_ARC& arc) {
    const double rx = arc.lar / 2.0;
    const double ry = arc.hau / 2.0;
    return {arc.x + rx, arc.y + ry, rx, ry};
}

void draw_chords(Drawable target, const GRX_ARC& arc) {
    const grx::Ellipse ellipse = ellipse_of(arc);
    const double extent = extent_of(arc);
    const std::size_t steps = grx::arc_steps(ellipse, extent);
    grx::Vertex from = grx::point_on(ellipse, arc.angle_dep);
    for (std::size_t i = 1; i <= steps; ++i) {
        const double share = static_cast<double>(i) / static_cast<double>(steps);
        const grx::Vertex to = grx::point_on(ellipse, arc.angle_dep + extent * share);
        if (const auto part = grx::clip_segment(from, to)) grx::draw_line(target, *part);
        from = to;
    }
}

constexpr INT kArcUnits = 64; // X counts angles in 64ths of a degree

INT start_of(const GRX_ARC& arc) {
    return arc.angle_dep % kFullTurn * kArcUnits;
}

grx::ArcBox box_of(const GRX_ARC& arc) {
    return {arc.x, arc.y, arc.lar, arc.hau, start_of(arc), extent_of(arc) * kArcUnits};
}

XPoint* points_of(const GRX_POLY& poly) {
    return reinterpret_cast<XPoint*>(poly.points); // both types are laid out alike
}

bool has_points(const GRX_POLY& poly) {
    return poly.points != nullptr && poly.npoints > 0;
}

void fill_polygon(Drawable target, const GRX_POLY& poly, int shape) {
    if (target == None || !has_points(poly)) return;
    XFillPolygon(x11_disp, target, g_c, points_of(poly), poly.npoints, shape, CoordModeOrigin);
}

} // namespace

extern "C" {

void grx_trace_point(GRX_POINT point) {
    if (grx::received(&GRX_RECEPTEUR::point, GRX_CIBLE_FENETRE, point)) return;
    if (grx::kept_in_layer<grx_trace_point>(point)) return;
    const Drawable target = grx::window_target(point.nofen, point.attrib);
    if (target != None && grx::fits16({point.x, point.y})) grx::draw_point(target, point.x, point.y);
}

void grx_trace_segment(GRX_SEGMENT segment) {
    if (grx::received(&GRX_RECEPTEUR::segment, GRX_CIBLE_FENETRE, segment)) return;
    if (grx::kept_in_layer<grx_trace_segment>(segment)) return;
    draw_segment(grx::window_target(segment.nofen, segment.attrib), segment);
}

void grx_trace_segment_bouton(GRX_SEGMENT segment) {
    if (grx::received(&GRX_RECEPTEUR::segment, GRX_CIBLE_BOUTON, segment)) return;
    draw_segment(grx::button_target(segment.nofen, segment.attrib), segment);
}

void grx_trace_rectangle(GRX_RECTANGLE rectangle) {
    if (grx::received(&GRX_RECEPTEUR::rectangle, GRX_CIBLE_FENETRE, rectangle)) return;
    if (grx::kept_in_layer<grx_trace_rectangle>(rectangle)) return;
    outline_rectangle(grx::window_target(rectangle.nofen, rectangle.attrib), rectangle);
}

void grx_trace_rectangle_bouton(GRX_RECTANGLE rectangle) {
    if (grx::received(&GRX_RECEPTEUR::rectangle, GRX_CIBLE_BOUTON, rectangle)) return;
    outline_rectangle(grx::button_target(rectangle.nofen, rectangle.attrib), rectangle);
}

void grx_remplit_rectangle(GRX_RECTANGLE rectangle) {
    if (grx::received(&GRX_RECEPTEUR::rectangle_plein, GRX_CIBLE_FENETRE, rectangle)) return;
    if (grx::kept_in_layer<grx_remplit_rectangle>(rectangle)) return;
    fill_rectangle(grx::window_target(rectangle.nofen, rectangle.attrib), rectangle);
}

void grx_remplit_rectangle_bouton(GRX_RECTANGLE rectangle) {
    if (grx::received(&GRX_RECEPTEUR::rectangle_plein, GRX_CIBLE_BOUTON, rectangle)) return;
    fill_rectangle(grx::button_target(rectangle.nofen, rectangle.attrib), rectangle);
}

void grx_trace_arc(GRX_ARC arc) {
    if (grx::received(&GRX_RECEPTEUR::arc, GRX_CIBLE_FENETRE, arc)) return;
    if (grx::kept_in_layer<grx_trace_arc>(arc)) return;
    const Drawable target = grx::window_target(arc.nofen, arc.attrib);
    if (target == None) return;
    if (!box_fits(arc)) {
        draw_chords(target, arc);
        return;
    }
    grx::draw_arc(target, box_of(arc));
}

void grx_remplit_arc(GRX_ARC arc) {
    if (grx::received(&GRX_RECEPTEUR::arc_plein, GRX_CIBLE_FENETRE, arc)) return;
    if (grx::kept_in_layer<grx_remplit_arc>(arc)) return;
    const Drawable target = grx::window_target(arc.nofen, arc.attrib);
    if (target == None || !box_fits(arc)) return;
    grx::fill_arc(target, box_of(arc));
}

void grx_trace_polyline(GRX_POLY poly) {
    if (grx::received_points(&GRX_RECEPTEUR::polyline, GRX_CIBLE_FENETRE, poly)) return;
    if (grx::kept_in_layer<grx_trace_polyline>(poly)) return;
    const Drawable target = grx::window_target(poly.nofen, poly.attrib);
    if (target == None || !has_points(poly)) return;
    grx::draw_polyline(target, {points_of(poly), static_cast<std::size_t>(poly.npoints)});
}

void grx_remplit_polygone(GRX_POLY poly) {
    if (grx::received_points(&GRX_RECEPTEUR::polygone, GRX_CIBLE_FENETRE, poly)) return;
    if (grx::kept_in_layer<grx_remplit_polygone>(poly)) return;
    fill_polygon(grx::window_target(poly.nofen, poly.attrib), poly, Complex);
}

void grx_remplit_polygone_bouton(GRX_POLY poly) {
    if (grx::received_points(&GRX_RECEPTEUR::polygone, GRX_CIBLE_BOUTON, poly)) return;
    fill_polygon(grx::button_target(poly.nofen, poly.attrib), poly, Complex);
}

void grx_remplit_triangle(GRX_POLY poly) {
    if (grx::received_points(&GRX_RECEPTEUR::polygone, GRX_CIBLE_FENETRE, poly)) return;
    if (grx::kept_in_layer<grx_remplit_triangle>(poly)) return;
    fill_polygon(grx::window_target(poly.nofen, poly.attrib), poly, Nonconvex);
}

void grx_efface_zone_graphique(INT nofen) {
    if (grx::received_clearing(GRX_CIBLE_FENETRE, nofen)) return;
    const Window window = grx::window_of(grx_recup_objet_fen(nofen));
    if (window == None) return;
    grx::take_layers_off(nofen);
    test_trace_memoire(window);
    XClearWindow(x11_disp, window); // KEEP: clears the screen, whatever the drawing target is
}

void grx_efface_zone_graphique_bouton(INT nobou) {
    if (grx::received_clearing(GRX_CIBLE_BOUTON, nobou)) return;
    if (const Window window = grx::window_of(grx_recup_objet_bout(nobou))) XClearWindow(x11_disp, window);
}

void dessine_rect(INT x, INT y, INT lar, INT hau) {
    if (gc == nullptr || lar < 0 || hau < 0) return;
    const INT top = grx::turn_over_y(grx_recup_hau_ecran(), y);
    if (!grx::fits16({x, top})) return;
    const auto width = static_cast<unsigned int>(std::min<INT>(lar, UINT16_MAX));
    const auto height = static_cast<unsigned int>(std::min<INT>(hau, UINT16_MAX));
    XDrawRectangle(x11_disp, grx::root_window(), gc, x, top, width, height);
    XFlush(x11_disp);
}
}
