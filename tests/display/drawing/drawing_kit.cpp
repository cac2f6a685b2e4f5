#include "tests/display/drawing/drawing_kit.h"

#include "tests/support/controls.h"

#include <algorithm>
#include <iterator>

namespace grxtest {
namespace {

using Kind = Primitive::Kind;

const std::array<std::vector<char>, 8> dashes{
    {{}, {16, 6, 6, 6}, {8, 8}, {4, 4}, {16, 16}, {16, 4, 1, 4}, {16, 4, 1, 4, 1, 4}, {16, 8, 4, 8, 4, 8}}};
constexpr std::array<int, 8> line_widths{0, 2, 3, 4, 5, 6, 7, 8};

GRX_POINT point_record(INT target, const Primitive& p) {
    return {target, p.v[0], p.v[1], 0, 0, 0, p.attrib};
}
GRX_SEGMENT segment_record(INT target, const Primitive& p) {
    return {target, p.v[0], p.v[1], p.v[2], p.v[3], 0, 0, 0, p.attrib};
}
GRX_RECTANGLE rectangle_record(INT target, const Primitive& p) {
    return {target, p.v[0], p.v[1], p.v[2], p.v[3], 0, 0, 0, p.attrib};
}
GRX_ARC arc_record(INT target, const Primitive& p) {
    return {target, p.v[0], p.v[1], static_cast<UNSIGNED_INT>(p.v[2]), static_cast<UNSIGNED_INT>(p.v[3]), p.v[4],
        p.v[5], 0, 0, 0, p.attrib};
}
GRX_POLY poly_record(INT target, const Primitive& p) {
    return {target, const_cast<GRX_POINT_POLY*>(p.points.data()), static_cast<INT>(p.points.size()), 0, 0, 0, p.attrib};
}

} // namespace

void draw(INT nofen, const Primitive& p) {
    switch (p.kind) {
    case Kind::point: return grx_trace_point(point_record(nofen, p));
    case Kind::segment: return grx_trace_segment(segment_record(nofen, p));
    case Kind::rectangle: return grx_trace_rectangle(rectangle_record(nofen, p));
    case Kind::filled_rectangle: return grx_remplit_rectangle(rectangle_record(nofen, p));
    case Kind::arc: return grx_trace_arc(arc_record(nofen, p));
    case Kind::filled_arc: return grx_remplit_arc(arc_record(nofen, p));
    case Kind::polyline: return grx_trace_polyline(poly_record(nofen, p));
    case Kind::polygon: return grx_remplit_polygone(poly_record(nofen, p));
    case Kind::triangle: return grx_remplit_triangle(poly_record(nofen, p));
    }
}

bool has_button_twin(Kind kind) {
    return kind == Kind::segment || kind == Kind::rectangle || kind == Kind::filled_rectangle || kind == Kind::polygon;
}

void draw_on_button(INT nobou, const Primitive& p) {
    switch (p.kind) {
    case Kind::segment: return grx_trace_segment_bouton(segment_record(nobou, p));
    case Kind::rectangle: return grx_trace_rectangle_bouton(rectangle_record(nobou, p));
    case Kind::filled_rectangle: return grx_remplit_rectangle_bouton(rectangle_record(nobou, p));
    case Kind::polygon: return grx_remplit_polygone_bouton(poly_record(nobou, p));
    default: FAIL() << "no such primitive for buttons";
    }
}

// --- plain Xlib ---------------------------------------------------------------------------------------------

PlainPicture::PlainPicture(Display* display, int width, int height, unsigned long background)
    : display_(display), width_(width), height_(height),
      pixmap_(XCreatePixmap(display, DefaultRootWindow(display), static_cast<unsigned>(width),
          static_cast<unsigned>(height), static_cast<unsigned>(DefaultDepth(display, DefaultScreen(display))))),
      context_(XCreateGC(display, pixmap_, 0, nullptr)) {
    XSetGraphicsExposures(display_, context_, False);
    clear(background);
}

PlainPicture::~PlainPicture() {
    XFreeGC(display_, context_);
    XFreePixmap(display_, pixmap_);
}

void PlainPicture::clear(unsigned long background) {
    XSetFunction(display_, context_, GXcopy);
    XSetForeground(display_, context_, background);
    XFillRectangle(display_, pixmap_, context_, 0, 0, static_cast<unsigned>(width_), static_cast<unsigned>(height_));
}

void PlainPicture::apply(const GRX_ATTRIBUTS_TRACER& a) {
    const bool dashed = a.type_trait >= 1 && a.type_trait <= 7;
    const INT shown = a.mode == erase_mode ? grx_recup_couleur_fond() : a.coul_trace;
    const unsigned long mixed = a.mode == xor_mode ? drawn_pixel(a.coul_fond) : 0;
    XSetFunction(display_, context_, a.mode == xor_mode ? GXxor : GXcopy);
    XSetForeground(display_, context_, drawn_pixel(shown) ^ mixed);
    XSetBackground(display_, context_, drawn_pixel(a.coul_fond));
    XSetLineAttributes(display_, context_,
        static_cast<unsigned>(line_widths.at(static_cast<std::size_t>(a.epaisseur % 8))),
        dashed ? LineDoubleDash : LineSolid, CapButt, JoinMiter);
    if (!dashed) return;
    const auto& list = dashes.at(static_cast<std::size_t>(a.type_trait));
    XSetDashes(display_, context_, 0, list.data(), static_cast<int>(list.size()));
}

void draw_plainly(Display* display, Drawable target, GC context, const Primitive& p) {
    const auto& v = p.v;
    const int left = std::min(v[0], v[2]), top = std::min(v[1], v[3]);
    const auto across = static_cast<unsigned>(std::abs(v[0] - v[2])),
               down = static_cast<unsigned>(std::abs(v[1] - v[3]));
    auto points = p.points;
    auto* list = reinterpret_cast<XPoint*>(points.data());
    const int count = static_cast<int>(points.size());
    const auto wide = static_cast<unsigned>(v[2]), high = static_cast<unsigned>(v[3]);
    switch (p.kind) {
    case Kind::point: XDrawPoint(display, target, context, v[0], v[1]); break;
    case Kind::segment: XDrawLine(display, target, context, v[0], v[1], v[2], v[3]); break;
    case Kind::rectangle: XDrawRectangle(display, target, context, left, top, across, down); break;
    case Kind::filled_rectangle: XFillRectangle(display, target, context, left, top, across + 1, down + 1); break;
    case Kind::arc: XDrawArc(display, target, context, v[0], v[1], wide, high, v[4] * 64, (v[5] - v[4]) * 64); break;
    case Kind::filled_arc:
        XFillArc(display, target, context, v[0], v[1], wide, high, v[4] * 64, (v[5] - v[4]) * 64);
        break;
    case Kind::polyline: XDrawLines(display, target, context, list, count, CoordModeOrigin); break;
    case Kind::polygon: XFillPolygon(display, target, context, list, count, Complex, CoordModeOrigin); break;
    case Kind::triangle: XFillPolygon(display, target, context, list, count, Nonconvex, CoordModeOrigin); break;
    }
    XNoOp(display);
}

void PlainPicture::draw(const Primitive& p) {
    apply(p.attrib);
    draw_plainly(display_, pixmap_, context_, p);
}

// --- at random ----------------------------------------------------------------------------------------------

GRX_ATTRIBUTS_TRACER RandomPrimitives::any_attributes() {
    constexpr std::array<INT, 6> modes{0, 0, 0, 5, xor_mode, erase_mode};
    auto result = attributes(number(0, 39), number(0, 39), modes[static_cast<std::size_t>(number(0, 5))]);
    if (result.mode == xor_mode) result.coul_fond = 0;
    result.intensite = number(-5, 5);
    result.type_trait = number(0, 2) == 0 ? number(-1, 8) : 0;
    result.epaisseur = number(0, 2) == 0 ? number(0, 9) : 0;
    return result;
}

std::vector<GRX_POINT_POLY> RandomPrimitives::any_points(int least, int most) {
    std::vector<GRX_POINT_POLY> points(static_cast<std::size_t>(number(least, most)));
    for (auto& p : points)
        p = {static_cast<short>(number(-30, width_ + 30)), static_cast<short>(number(-30, height_ + 30))};
    return points;
}

Primitive RandomPrimitives::next(Kind kind) {
    Primitive p;
    p.kind = kind;
    if (number(1, 100) > kept_) last_ = any_attributes();
    p.attrib = last_;
    for (std::size_t i = 0; i < 4; ++i) p.v[i] = i % 2 == 0 ? number(-30, width_ + 30) : number(-30, height_ + 30);
    if (kind == Kind::arc || kind == Kind::filled_arc) {
        const int start = number(-140, 140); // 16 bits hold 511 degrees
        p.v = {p.v[0], p.v[1], number(0, width_), number(0, height_), start, start + number(-360, 360)};
    }
    if (kind == Kind::polyline || kind == Kind::polygon) p.points = any_points(1, 7);
    if (kind == Kind::triangle) p.points = any_points(3, 3);
    return p;
}

Primitive RandomPrimitives::next() {
    return next(static_cast<Kind>(number(0, Primitive::kinds - 1)));
}

// --- windows ------------------------------------------------------------------------------------------------

INT DrawingTest::window_of(INT kind, const Area& area) {
    GRX_FENETRE window{};
    grx_init_fenetre(&window);
    window.type = kind;
    window.droite = area.width;
    window.haut = area.height;
    window.x = area.x;
    window.y = grx_recup_hau_ecran() - area.y - area.height;
    EXPECT_EQ(grx_cree_fenetre(&window), 0);
    EXPECT_TRUE(wait_visible(grx_recup_objet_fen(window.nofen)));
    drain();
    events.clear();
    return window.nofen;
}

INT DrawingTest::graphic_window(const Area& area) {
    return window_of(GRX_FEN_GRAPHIQUE, area);
}

INT DrawingTest::active_window(const Area& area) {
    const INT window = graphic_window(area);
    grx_affecte_nofen_active(window);
    return window;
}

INT DrawingTest::label_in(INT window, const Area& area) {
    GRX_BOUTON label = button_at(GRX_BOU_LABEL, window, area);
    EXPECT_EQ(grx_cree_bouton(&label), 0);
    EXPECT_TRUE(wait_visible(grx_recup_objet_bout(label.nobou)));
    drain();
    events.clear();
    return label.nobou;
}

STRUCTURE_FENETRE& DrawingTest::record(INT window) {
    STRUCTURE_FENETRE* found = nullptr;
    grx_recup_structure_fenetre(window, &found);
    return *found;
}

} // namespace grxtest
