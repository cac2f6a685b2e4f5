// Drawing: the graphics context and its memory, the primitives, the backing pictures.
#include "xt_prive.h"

#include <X11/Xlib.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <numeric>
#include <span>

#include "display/pixmaps.h"
#include "display/images.h"
#include "drawing/outlines.h"
#include "toolkit/look.h"
#include "drawing/transfer.h"
#include "pure/axis.h"
#include "pure/clip.h"
#include "pure/pixels.h"
#include "pure/triangle.h"
#include "xt_bou_f.h"
#include "xt_fen_f.h"
#include "xt_gfx_f.h"
#include "xt_ini_f.h"
#include "xt_uti_f.h"

// --------------------------------------------------------------------------- graphics context and drawing target

namespace grx {

GRX_ATTRIBUTS_TRACER memo_attrib{};
INT grx_trace_memoire = 0;
INT grx_trace_memoire_bouton = 0;
Pixmap* image_redess = nullptr;
Pixmap* image_redess_bouton = nullptr;
Drawable win_bidon = None;
Drawable win_bidon_bouton = None;

} // namespace grx

using grx::grx_trace_memoire;
using grx::grx_trace_memoire_bouton;
using grx::image_redess;
using grx::image_redess_bouton;
using grx::memo_attrib;
using grx::win_bidon;
using grx::win_bidon_bouton;

namespace {

constexpr INT kForgotten = -1;

// What memo_attrib cannot say: the context no longer has the width, style or function that it remembers.
bool context_stale = true;

struct DashList {
    const char* lengths;
    int count;
};

constexpr char format_mixte[] = {16, 6, 6, 6};
constexpr char format_pointille[] = {8, 8};
constexpr char format_pointille_court[] = {4, 4};
constexpr char format_pointille_long[] = {16, 16};
constexpr char format_mixte_1_point[] = {16, 4, 1, 4};
constexpr char format_mixte_2_points[] = {16, 4, 1, 4, 1, 4};
constexpr char format_mixte_2_tirets[] = {16, 8, 4, 8, 4, 8};

template <int N>
constexpr DashList dashes(const char (&lengths)[N]) {
    return {lengths, N};
}

constexpr std::array<DashList, 8> kDashLists{DashList{nullptr, 0}, dashes(format_mixte), dashes(format_pointille),
    dashes(format_pointille_court), dashes(format_pointille_long), dashes(format_mixte_1_point),
    dashes(format_mixte_2_points), dashes(format_mixte_2_tirets)};

unsigned long pixel_of(INT colour) {
    return static_cast<unsigned long>(static_cast<UNSIGNED_INT>(grx_recup_couleur(colour)));
}

GRX_ATTRIBUTS_TRACER plain(INT background, INT foreground) {
    return {background, foreground, GRX_MODE_NORMAL, 0, GRX_TRAIT_CONTINU, 0};
}

GRX_ATTRIBUTS_TRACER background_attributes() {
    return plain(grx_recup_couleur_fond(), grx_recup_couleur_fond());
}

// One set of changes to the context, sent with one request.
struct Changes {
    XGCValues values{};
    unsigned long mask = 0;
};

void change_background(Changes& c, const GRX_ATTRIBUTS_TRACER& att) {
    if (att.coul_fond == memo_attrib.coul_fond && !context_stale) return;
    c.values.background = pixel_of(att.coul_fond);
    c.mask |= GCBackground;
    memo_attrib.coul_fond = att.coul_fond;
}

bool is_dashed(const GRX_ATTRIBUTS_TRACER& att) {
    return att.type_trait >= GRX_TRAIT_MIXTE && att.type_trait <= GRX_TRAIT_MIXTE_2_TIRETS;
}

void change_style(Changes& c, const GRX_ATTRIBUTS_TRACER& att) {
    if (att.type_trait == memo_attrib.type_trait && !context_stale) return;
    const bool dashed = is_dashed(att);
    if (dashed) {
        const DashList& list = kDashLists[static_cast<std::size_t>(att.type_trait)];
        XSetDashes(x11_disp, g_c, 0, list.lengths, list.count);
    }
    c.values.line_style = dashed ? LineDoubleDash : LineSolid; // KEEP: gaps in the background colour
    c.mask |= GCLineStyle;
    memo_attrib.type_trait = att.type_trait;
}

void change_width(Changes& c, const GRX_ATTRIBUTS_TRACER& att) {
    if (att.epaisseur == memo_attrib.epaisseur && !context_stale) return;
    c.values.line_width = grx_recup_epaisseur(att.epaisseur);
    c.mask |= GCLineWidth;
    memo_attrib.epaisseur = att.epaisseur;
}

unsigned long foreground_for(const GRX_ATTRIBUTS_TRACER& att) {
    if (att.mode == GRX_MODE_EFFACE) return pixel_of(grx_recup_couleur_fond());
    if (att.mode == GRX_MODE_XOR) return pixel_of(att.coul_trace) ^ pixel_of(memo_attrib.coul_fond);
    return pixel_of(att.coul_trace);
}

// KEEP: a change of background alone does not send the exclusive-or foreground again; erasing leaves the memorised
// drawing colour as it was.
void change_foreground(Changes& c, const GRX_ATTRIBUTS_TRACER& att) {
    if (att.coul_trace == memo_attrib.coul_trace && att.mode == memo_attrib.mode && !context_stale) return;
    c.values.foreground = foreground_for(att);
    c.values.function = att.mode == GRX_MODE_XOR ? GXxor : GXcopy;
    c.mask |= GCForeground | GCFunction;
    if (att.mode != GRX_MODE_EFFACE) memo_attrib.coul_trace = att.coul_trace;
    memo_attrib.mode = att.mode;
}

void forget_background() {
    memo_attrib.coul_fond = kForgotten;
}

void set_copy_function() {
    XSetFunction(x11_disp, g_c, GXcopy);
    grx::context_changed();
}

} // namespace

namespace grx {

void context_changed() {
    context_stale = true;
}

void colours_changed() {
    memo_attrib.coul_fond = memo_attrib.coul_trace = kForgotten;
}

void forget_drawing_target(const Pixmap* image) {
    if (image == nullptr) return;
    if (image == image_redess) {
        image_redess = nullptr;
        grx_trace_memoire = 0;
    }
    if (image == image_redess_bouton) {
        image_redess_bouton = nullptr;
        grx_trace_memoire_bouton = 0;
    }
}

} // namespace grx

namespace {

bool applied(const GRX_ATTRIBUTS_TRACER& att) {
    return !context_stale && att.coul_fond == memo_attrib.coul_fond && att.coul_trace == memo_attrib.coul_trace
           && att.mode == memo_attrib.mode && att.type_trait == memo_attrib.type_trait
           && att.epaisseur == memo_attrib.epaisseur;
}

void send_changes(const GRX_ATTRIBUTS_TRACER& att) {
    Changes c;
    change_background(c, att);
    change_style(c, att);
    change_width(c, att);
    change_foreground(c, att);
    context_stale = false;
    if (c.mask == 0) return;
    c.values.graphics_exposures = False;
    XChangeGC(x11_disp, g_c, c.mask | GCGraphicsExposures, &c.values);
}

void apply(const GRX_ATTRIBUTS_TRACER& att) {
    if (!applied(att)) send_changes(att);
}

void apply_background() {
    apply(background_attributes());
}

void select_target(Window window) {
    win_bidon = grx_trace_memoire != 0 && image_redess != nullptr ? *image_redess : window;
}

void select_button_target(Window window) {
    const bool unseen = grx_trace_memoire_bouton != 0 && image_redess_bouton != nullptr && *image_redess_bouton != None;
    win_bidon_bouton = unseen ? *image_redess_bouton : window;
}

} // namespace

extern "C" {

void grx_affecte_gc(GRX_ATTRIBUTS_TRACER att) {
    if (g_c != nullptr) apply(att);
}

void grx_reinit_gc(void) {
    if (g_c != nullptr) apply_background();
}

void grx_init_memo_attrib(void) {
    memo_attrib = {kForgotten, kForgotten, GRX_MODE_NORMAL, 0, kForgotten, 0};
    context_stale = true;
}

INT test_trace_memoire(Window win) {
    select_target(win);
    return 0;
}

INT test_trace_memoire_bouton(Window win) {
    select_button_target(win);
    return 0;
}
}

// ---------------------------------------------------------------------------------------------------- primitives

namespace {

using grx::fits16;
using grx::into_box;

// Ready to draw into a window: the target selected and the attributes applied. None: there is nothing to draw into.
Drawable open_window(INT nofen, const GRX_ATTRIBUTS_TRACER& attrib) {
    const Window window = g_c != nullptr ? grx::window_of(grx::window_widget(nofen)) : None;
    if (window == None) return None;
    select_target(window);
    apply(attrib);
    return win_bidon;
}

Drawable open_button(INT nobou, const GRX_ATTRIBUTS_TRACER& attrib) {
    const Window window = g_c != nullptr ? grx::window_of(grx_recup_objet_bout(nobou)) : None;
    if (window == None) return None;
    select_button_target(window);
    apply(attrib);
    return win_bidon_bouton;
}

void draw_line(Drawable target, const grx::Line& line) {
    grx::draw_line(target, line.x1, line.y1, line.x2, line.y2);
}

grx::Dashes dashes_of(const GRX_ATTRIBUTS_TRACER& att) {
    if (!is_dashed(att)) return {};
    const DashList& list = kDashLists[static_cast<std::size_t>(att.type_trait)];
    return {std::accumulate(list.lengths, list.lengths + list.count, 0), grx_recup_epaisseur(att.epaisseur) > 0};
}

void draw_segment(Drawable target, const GRX_SEGMENT& s) {
    if (target == None) return;
    const grx::Line line{s.x1, s.y1, s.x2, s.y2};
    if (fits16({s.x1, s.y1, s.x2, s.y2})) {
        draw_line(target, line);
    } else if (const auto part = grx::clip_segment(line, dashes_of(s.attrib))) {
        draw_line(target, *part);
    }
}

grx::Outline corners_of(const GRX_RECTANGLE& r) {
    const auto [left, right] = std::minmax(r.x1, r.x2);
    const auto [top, bottom] = std::minmax(r.y1, r.y2);
    if (fits16({left, right, top, bottom})) return {left, top, right, bottom};
    return {into_box(left), into_box(top), into_box(right), into_box(bottom)};
}

unsigned int span(INT from, INT to) {
    return static_cast<unsigned int>(to - from);
}

// Both ends included; the widest that the protocol has reaches one pixel less far than its coordinates do.
unsigned int covering(INT from, INT to) {
    return std::min<unsigned int>(span(from, to) + 1, UINT16_MAX);
}

bool in_memory(Drawable target) {
    return (image_redess != nullptr && target == *image_redess)
           || (image_redess_bouton != nullptr && target == *image_redess_bouton);
}

void outline_rectangle(Drawable target, const GRX_RECTANGLE& r) {
    if (target == None) return;
    const auto draw = in_memory(target) ? grx::draw_outline_in_memory : grx::draw_outline_on_screen;
    draw(target, corners_of(r));
}

void fill_rectangle(Drawable target, const GRX_RECTANGLE& r) {
    if (target == None) return;
    const grx::Outline c = corners_of(r);
    grx::fill_rectangle(target, c.left, c.top, covering(c.left, c.right), covering(c.top, c.bottom));
}

// Arcs whose box does not fit the protocol are drawn as chords, cut like segments.
bool box_fits(const GRX_ARC& arc) {
    constexpr UNSIGNED_INT widest = UINT16_MAX;
    return fits16({arc.x, arc.y}) && arc.lar <= widest && arc.hau <= widest;
}

constexpr INT kFullTurn = 360;

// X stops at a full turn whatever the extent.
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
        if (const auto part = grx::clip_segment(from, to)) draw_line(target, *part);
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
    return reinterpret_cast<XPoint*>(poly.points); // laid out alike
}

bool has_points(const GRX_POLY& poly) {
    return poly.points != nullptr && poly.npoints > 0;
}

void fill_polygon(Drawable target, const GRX_POLY& poly, int shape) {
    if (target == None || !has_points(poly)) return;
    XFillPolygon(x11_disp, target, g_c, points_of(poly), poly.npoints, shape, CoordModeOrigin);
}

int text_length(const GRX_TEXTE& texte) {
    return static_cast<int>(strnlen(texte.chaine, sizeof texte.chaine));
}

INT font_descent() {
    return fontstruct != nullptr ? fontstruct->descent : 0;
}

grx::EdgeTable short_edges{};
grx::EdgeTable long_edge{};

INT active_window_height() {
    INT width = 0, height = 0;
    grx_recup_taille_fenetre(grx_recup_nofen_active(), &width, &height);
    return height;
}

std::array<grx::GridPoint, 3> triangle_of(GRX_POINT_POLY p0, GRX_POINT_POLY p1, GRX_POINT_POLY p2) {
    return {{{p0.x, p0.y}, {p1.x, p1.y}, {p2.x, p2.y}}};
}

// A picture held by the application: one byte a pixel, top row first.
struct PixelArray {
    uchar* pixels;
    int width, height;

    bool usable() const { return pixels != nullptr && width > 0 && height > 0; }
    uchar& at(int x, int y) const {
        return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)];
    }
    void plot(int x, int y, uchar colour) const {
        if (x >= 0 && x < width && y >= 0 && y < height) at(x, y) = colour;
    }
    void fill_row(int y, int x1, int x2, uchar colour) const {
        const int first = std::max(std::min(x1, x2), 0);
        const int last = std::min(std::max(x1, x2), width - 1);
        for (int x = first; x <= last; ++x) at(x, y) = colour;
    }
};

} // namespace

extern "C" {

void grx_trace_point(GRX_POINT point) {
    const Drawable target = open_window(point.nofen, point.attrib);
    if (target != None && fits16({point.x, point.y})) grx::draw_point(target, point.x, point.y);
}

void grx_trace_segment(GRX_SEGMENT segment) {
    draw_segment(open_window(segment.nofen, segment.attrib), segment);
}

void grx_trace_segment_bouton(GRX_SEGMENT segment) {
    draw_segment(open_button(segment.nofen, segment.attrib), segment);
}

void grx_trace_rectangle(GRX_RECTANGLE rectangle) {
    outline_rectangle(open_window(rectangle.nofen, rectangle.attrib), rectangle);
}

void grx_trace_rectangle_bouton(GRX_RECTANGLE rectangle) {
    outline_rectangle(open_button(rectangle.nofen, rectangle.attrib), rectangle);
}

void grx_remplit_rectangle(GRX_RECTANGLE rectangle) {
    fill_rectangle(open_window(rectangle.nofen, rectangle.attrib), rectangle);
}

void grx_remplit_rectangle_bouton(GRX_RECTANGLE rectangle) {
    fill_rectangle(open_button(rectangle.nofen, rectangle.attrib), rectangle);
}

void grx_trace_arc(GRX_ARC arc) {
    const Drawable target = open_window(arc.nofen, arc.attrib);
    if (target == None) return;
    if (!box_fits(arc)) {
        draw_chords(target, arc);
        return;
    }
    grx::draw_arc(target, box_of(arc));
}

void grx_remplit_arc(GRX_ARC arc) {
    const Drawable target = open_window(arc.nofen, arc.attrib);
    if (target == None || !box_fits(arc)) return;
    grx::fill_arc(target, box_of(arc));
}

void grx_trace_polyline(GRX_POLY poly) {
    const Drawable target = open_window(poly.nofen, poly.attrib);
    if (target == None || !has_points(poly)) return;
    grx::draw_polyline(target, {points_of(poly), static_cast<std::size_t>(poly.npoints)});
}

void grx_remplit_polygone(GRX_POLY poly) {
    fill_polygon(open_window(poly.nofen, poly.attrib), poly, Complex);
}

void grx_remplit_polygone_bouton(GRX_POLY poly) {
    fill_polygon(open_button(poly.nofen, poly.attrib), poly, Complex);
}

void grx_remplit_triangle(GRX_POLY poly) {
    fill_polygon(open_window(poly.nofen, poly.attrib), poly, Nonconvex);
}

void grx_trace_texte_bouton(GRX_TEXTE texte) {
    const Drawable target = open_button(texte.nofen, texte.attrib);
    if (target == None || !fits16({texte.x, texte.y})) return;
    XDrawString(x11_disp, target, g_c, texte.x, texte.y - font_descent(), texte.chaine, text_length(texte));
}

void grx_trace_texte(GRX_TEXTE) {
    // KEEP: texts of windows are written by grx_ecrit_fenetre
}

void grx_efface_zone_graphique(INT nofen) {
    const Window window = grx::window_of(grx_recup_objet_fen(nofen));
    if (window == None) return;
    test_trace_memoire(window);
    XClearWindow(x11_disp, window); // KEEP: the screen, whatever the drawing target
}

void grx_efface_zone_graphique_bouton(INT nobou) {
    if (const Window window = grx::window_of(grx_recup_objet_bout(nobou))) XClearWindow(x11_disp, window);
}

void grx_ecrit_fenetre(GRX_TEXTE texte) {
    constexpr unsigned long low_byte = 0xFF; // KEEP: a pixel of a deep screen loses all but its low eight bits
    const Window window = g_c != nullptr ? grx::window_of(grx_recup_objet_fen(texte.nofen)) : None;
    if (window == None) return;
    XGCValues values{};
    values.function = GXcopy;
    values.foreground = pixel_of(texte.coul_trace) & low_byte;
    values.background = pixel_of(texte.coul_fond) & low_byte;
    XChangeGC(x11_disp, g_c, GCFunction | GCForeground | GCBackground, &values);
    grx::context_changed();
    if (fits16({texte.x, texte.y}))
        XDrawString(x11_disp, window, g_c, texte.x, texte.y, texte.chaine, text_length(texte));
}

void grx_recup_taille_chaine(char* chaine, INT* largeur, INT* haut, INT* bas) {
    int direction = 0, ascent = 0, descent = 0;
    XCharStruct overall{};
    if (fontstruct != nullptr && chaine != nullptr)
        XTextExtents(
            fontstruct, chaine, static_cast<int>(std::strlen(chaine)), &direction, &ascent, &descent, &overall);
    if (largeur != nullptr) *largeur = overall.width;
    if (haut != nullptr) *haut = ascent;
    if (bas != nullptr) *bas = descent;
}

void grx_efface_chaine(GRX_TEXTE texte) {
    INT width = 0, above = 0, below = 0;
    char* const text = texte.chaine;
    text[sizeof texte.chaine - 1] = '\0';
    grx_recup_taille_chaine(text, &width, &above, &below);
    const auto add = [](INT a, INT b) { return grx::saturated(int64_t{a} + b); };
    GRX_RECTANGLE box{};
    box.nofen = texte.nofen;
    box.x1 = texte.x;
    box.x2 = add(texte.x, width);
    box.y1 = add(texte.y, below);
    box.y2 = add(texte.y, -(above + below)); // KEEP: one descent higher than the letters
    box.coul_trace = box.coul_fond = texte.coul_fond;
    box.attrib = plain(texte.coul_fond, texte.coul_fond);
    grx_remplit_rectangle(box);
}

void dessine_rect(INT x, INT y, INT lar, INT hau) {
    if (gc == nullptr || lar < 0 || hau < 0) return;
    const INT top = grx::turn_over_y(grx_recup_hau_ecran(), y);
    if (!fits16({x, top})) return;
    const auto width = static_cast<unsigned int>(std::min<INT>(lar, UINT16_MAX));
    const auto height = static_cast<unsigned int>(std::min<INT>(hau, UINT16_MAX));
    XDrawRectangle(x11_disp, grx::root_window(), gc, x, top, width, height);
    XFlush(x11_disp);
}

int remplit_tableau_polygone(GRX_POINT_POLY* p, int nbelt, uchar coul) {
    if (p == nullptr || nbelt < 2 || g_c == nullptr || win_bidon == None) return 0;
    grx_affecte_gc(plain(grx_recup_couleur_fond(), coul));
    for (int k = 0; k + 1 < nbelt; ++k) draw_line(win_bidon, {p[k].x, p[k].y, p[k + 1].x, p[k + 1].y});
    return 0;
}

int remplit_tableau_triangles(GRX_POINT_POLY p0, GRX_POINT_POLY p1, GRX_POINT_POLY p2, uchar coul) {
    if (g_c == nullptr || win_bidon == None) return 0;
    grx_affecte_gc(plain(grx_recup_couleur_fond(), coul));
    const auto spans = grx::step_triangle(short_edges, long_edge, active_window_height(), triangle_of(p0, p1, p2));
    for (int y = spans.first_row; y <= spans.last_row; ++y) {
        const auto row = static_cast<std::size_t>(y);
        draw_line(win_bidon, {short_edges[row], y, long_edge[row], y});
    }
    return 0;
}

int remplit_tableau_triangles_reel(
    uchar* tab, int lar, int hau, GRX_POINT_POLY p0, GRX_POINT_POLY p1, GRX_POINT_POLY p2, uchar coul) {
    const PixelArray picture{tab, lar, hau};
    if (!picture.usable()) return 0;
    const auto spans = grx::step_triangle(short_edges, long_edge, hau, triangle_of(p0, p1, p2));
    for (int y = spans.first_row; y <= spans.last_row; ++y) {
        const auto row = static_cast<std::size_t>(y);
        picture.fill_row(y, short_edges[row], long_edge[row], coul);
    }
    return 0;
}

int remplit_tableau_polygone_reel(uchar* tab, int lar, int hau, GRX_POINT_POLY* p, int nbelt, uchar coul) {
    const PixelArray picture{tab, lar, hau};
    if (!picture.usable() || p == nullptr) return 0;
    const auto plot = [&picture, coul](int x, int y) { picture.plot(x, y, coul); };
    for (int k = 0; k + 1 < nbelt; ++k) grx::step_line({p[k].x, p[k].y}, {p[k + 1].x, p[k + 1].y}, plot);
    return 0;
}

INT grx_noir_systeme(void) {
    return x11_disp != nullptr ? static_cast<INT>(BlackPixel(x11_disp, x11_screen)) : 0;
}

INT grx_blanc_systeme(void) {
    return x11_disp != nullptr ? static_cast<INT>(WhitePixel(x11_disp, x11_screen)) : 0;
}
}

// -------------------------------------------------------------------------------------- backing pictures, saving

namespace {

// A window that can have a backing picture; null holder: it has none.
struct Backing {
    Window window = None;
    Pixmap* holder = nullptr;
    STRUCTURE_FENETRE* record = nullptr;
    explicit operator bool() const { return window != None && holder != nullptr && g_c != nullptr; }
};

Backing backing_of(INT nofen) {
    const Window window = grx::window_of(grx_recup_objet_fen(nofen));
    if (window == None) return {};
    STRUCTURE_FENETRE* const record = grx::window_record(nofen);
    return {window, record->image, record};
}

grx::Size window_size(INT nofen) {
    grx::Size size;
    grx_recup_taille_fenetre(nofen, &size.width, &size.height);
    return size;
}

struct ButtonBacking {
    Window window = None;
    STRUCTURE_BOUTON* record = nullptr;
    grx::Size size;
    explicit operator bool() const { return window != None && record->image != None && g_c != nullptr; }
};

ButtonBacking button_backing(INT nobou) {
    Widget w = grx_recup_objet_bout(nobou);
    ButtonBacking result;
    if (w == nullptr) return result;
    result.window = grx::window_of(w);
    grx_recup_structure_bouton(nobou, &result.record);
    result.size = grx::size_of(w);
    return result;
}

// Forces the background to be sent with the fill of a whole picture.
void clear_picture(Pixmap picture, grx::Size size) {
    forget_background();
    apply_background();
    grx::fill_drawable(picture, g_c, size);
}

} // namespace

extern "C" {

INT grx_cree_bitmap_backingstore(INT nofen) {
    const Backing backing = backing_of(nofen);
    if (!backing) return 0;
    XSync(x11_disp, False);
    const grx::Size size = window_size(nofen);
    grx_supprime_bitmap_backingstore(nofen);
    *backing.holder = grx::make_pixmap(backing.window, size);
    grx::mark_dead_pixmap(nofen, false);
    apply_background();
    grx::fill_drawable(*backing.holder, g_c, size);
    return 1;
}

void grx_supprime_bitmap_backingstore(INT nofen) {
    const Backing backing = backing_of(nofen);
    if (!backing || grx::holds_dead_pixmap(nofen)) return;
    grx::free_pixmap(*backing.holder); // KEEP: the stored value is left as it is
    grx::mark_dead_pixmap(nofen, true);
}

void grx_recree_bitmap_backingstore(INT nofen) {
    grx_cree_bitmap_backingstore(nofen); // which frees the one before
}

INT grx_affiche_bitmap_backingstore(INT nofen) {
    const Backing backing = backing_of(nofen);
    if (!backing || backing.record->backingstorable == 0) return 1;
    apply_background();
    grx::copy_drawable(*backing.holder, backing.window, g_c, window_size(nofen));
    XSync(x11_disp, False);
    return 0;
}

void grx_memorise_bitmap_backingstore(INT nofen) {
    const Backing backing = backing_of(nofen);
    if (!backing) return;
    apply_background();
    grx::copy_drawable(backing.window, *backing.holder, g_c, window_size(nofen));
}

INT grx_interdit_backingstore(INT nofen, INT interdire) {
    const Backing backing = backing_of(nofen);
    if (backing.record == nullptr) return 0;
    backing.record->backingstorable = interdire == 0 ? 1 : 0;
    if (interdire != 0) {
        grx_supprime_sauvegarde_auto(nofen);
    } else {
        grx_autorise_sauvegarde_auto(nofen);
    }
    return 0;
}

INT grx_enable_backingstore(INT, INT activer) {
    grx_trace_memoire = activer != 0 ? 1 : 0;
    return 0;
}

INT grx_backingstore_deja_cours(void) {
    return grx_trace_memoire > 0 ? 1 : 0;
}

INT grx_redess_necessaire(void) {
    return 0;
}

INT grx_alloue_image(INT) {
    const INT active = grx_recup_nofen_active(); // KEEP: the active window, whatever the argument
    const Backing backing = backing_of(active);
    if (!backing) return 0;
    image_redess = backing.holder;
    grx_trace_memoire = 1;
    clear_picture(*backing.holder, window_size(active));
    return 0;
}

INT grx_desalloue_image(void) {
    grx_trace_memoire = 0;
    return 0;
}

INT grx_alloue_image_bouton(INT, INT efface_pas) {
    const ButtonBacking backing = button_backing(grx_recup_nobou_actif()); // KEEP: the active button
    if (!backing) return 0;
    image_redess_bouton = &backing.record->image;
    grx_trace_memoire_bouton = 1;
    if (efface_pas == 0) clear_picture(backing.record->image, backing.size);
    return 0;
}

INT grx_desalloue_image_bouton(void) {
    grx_trace_memoire_bouton = 0;
    return 0;
}

void grx_cree_bitmap_backingstore_bouton(INT nobou, INT lar, INT hau, INT coul_trace, INT coul_fond) {
    const Window window = grx::window_of(grx_recup_objet_bout(nobou));
    if (window == None || g_c == nullptr || lar <= 0 || hau <= 0) return;
    STRUCTURE_BOUTON* record = nullptr;
    grx_recup_structure_bouton(nobou, &record);
    const grx::Size size{lar, hau};
    grx::give_pixmap(nobou, grx::make_pixmap(window, size));
    grx_affecte_gc(plain(coul_fond, coul_trace));
    grx::fill_drawable(record->image, g_c, size);
}

void grx_detruit_bitmap_backingstore_bouton(INT nobou) {
    if (button_backing(nobou)) grx::give_pixmap(nobou, None);
}

INT grx_affiche_bitmap_backingstore_bouton(INT nobou) {
    const ButtonBacking backing = button_backing(nobou);
    if (!backing) return 0;
    apply_background();
    grx::copy_drawable(backing.record->image, backing.window, g_c, backing.size);
    XSync(x11_disp, False);
    return 1; // KEEP: 1 is shown here, 0 is shown for windows
}

void grx_memorise_bitmap_backingstore_bouton(INT nobou) {
    const ButtonBacking backing = button_backing(nobou);
    if (backing) {
        apply_background();
        grx::copy_drawable(backing.window, backing.record->image, g_c, backing.size);
    }
    if (x11_disp != nullptr) XSync(x11_disp, False);
}

INT grx_sauve_fenetre(INT nofen) {
    const Window window = grx::window_of(grx_recup_objet_fen(nofen));
    GRX_SAUVE_ZONE* const slot = grx::save_slot(nofen);
    if (window == None || slot == nullptr || g_c == nullptr) return 0;
    set_copy_function();
    const grx::Size size = window_size(nofen);
    grx_flush_server();
    grx::free_pixmap(slot->image);
    *slot = {grx::make_pixmap(window, size), size.width, size.height};
    if (slot->image == None) return 0;
    grx::copy_drawable(window, slot->image, g_c, size);
    return 1;
}

INT grx_restore_fenetre(INT nofen) {
    const Window window = grx::window_of(grx_recup_objet_fen(nofen));
    GRX_SAUVE_ZONE* const slot = grx::save_slot(nofen);
    if (window == None || slot == nullptr || g_c == nullptr) return 0;
    set_copy_function();
    const grx::Size size = window_size(nofen);
    if (size != grx::Size{slot->lar, slot->hau}) {
        grx::free_pixmap(slot->image); // a picture of another size is discarded, never stretched
        *slot = GRX_SAUVE_ZONE{};
        return 0;
    }
    if (slot->image == None) return 0;
    grx::copy_drawable(slot->image, window, g_c, size);
    return 1;
}
}

// -------------------------------------------------------------------------------------------------------- pictures

namespace {

Window win_reel = None;
Pixmap* pix_back = nullptr;

// Where a picture goes: both the screen and the backing picture of a window or a control. A control's may have another
// size than the control: it is not made anew when the control is given another.
struct PictureTarget {
    Window window = None;
    Pixmap* backing = nullptr;
    grx::Size size; // the larger of both
    bool alike = true;
};

PictureTarget target_of(INT type, INT bou_fen) {
    if (type == GRX_CIBLE_FENETRE) {
        const Backing backing = backing_of(bou_fen);
        return {backing.window, backing.holder, window_size(bou_fen)};
    }
    const ButtonBacking backing = button_backing(bou_fen);
    if (backing.window == None || backing.record->image == None) return {backing.window, nullptr, backing.size};
    const grx::Size held = grx::pixmap_size(backing.record->image);
    Pixmap* const image =
        held == grx::Size{} ? nullptr : &backing.record->image; // the id of a freed one may stay there
    return {backing.window, image,
        {std::max(held.width, backing.size.width), std::max(held.height, backing.size.height)}, held == backing.size};
}

bool select_picture_target(INT type, INT bou_fen, PictureTarget& target) {
    target = target_of(type, bou_fen);
    if (target.window == None || g_c == nullptr) return false;
    win_reel = target.window;
    pix_back = target.backing;
    forget_background();
    apply_background();
    return true;
}

// The part of a picture at (x, y) that lies on its target.
struct Part {
    int from_x, from_y; // in the picture
    int x, y;           // on the target
    grx::ImageSize size;
    bool empty() const { return size.width <= 0 || size.height <= 0; }
};

Part part_on(const grx::Size& target, INT x, INT y, INT width, INT height) {
    const int64_t left = std::max<int64_t>(x, 0);
    const int64_t top = std::max<int64_t>(y, 0);
    const int64_t right = std::min<int64_t>(int64_t{x} + width, target.width);
    const int64_t bottom = std::min<int64_t>(int64_t{y} + height, target.height);
    if (right <= left || bottom <= top) return {0, 0, 0, 0, {0, 0}};
    return {static_cast<int>(left - x), static_cast<int>(top - y), static_cast<int>(left), static_cast<int>(top),
        {static_cast<int>(right - left), static_cast<int>(bottom - top)}};
}

bool deep_screen() {
    return grx_recup_profondeur_ecran() > GRX_PROFONDEUR_8;
}

std::size_t source_bytes() {
    return deep_screen() ? 3 : 1;
}

template <class T>
T* image_row(const XImage* image, int y) {
    return reinterpret_cast<T*>(image->data + static_cast<std::ptrdiff_t>(y) * image->bytes_per_line);
}

// A strip of rows, once into the backing picture and from there to the window: the same pixels in both. What only one of
// them has room for does not take that way.
void show_strip(grx::Transfer& t, const PictureTarget& target, const Part& part, int first, int rows) {
    const int y = part.y + first;
    grx::put_rows(t, *target.backing, g_c, part.x, part.y, first, rows);
    if (target.alike) {
        XCopyArea(x11_disp, *target.backing, target.window, g_c, part.x, y, static_cast<unsigned int>(part.size.width),
            static_cast<unsigned int>(rows), part.x, y);
    } else {
        grx::put_rows(t, target.window, g_c, part.x, part.y, first, rows);
    }
    if (t.shared()) XFlush(x11_disp); // pixels that are sent flush by themselves
}

// Makes and shows a picture; `make_row(image, row, y)` fills a row of the image with row y of the picture.
template <class MakeRow>
void show_picture(const PictureTarget& target, const Part& part, MakeRow make_row) {
    grx::Transfer t = grx::begin_transfer(part.size);
    if (t.image == nullptr) return;
    for (int first = 0; first < part.size.height; first += t.strip_rows) {
        const int rows = std::min(t.strip_rows, part.size.height - first);
        for (int i = 0; i < rows; ++i) make_row(t.image, t.place_of(first) + i, first + i);
        show_strip(t, target, part, first, rows);
    }
    XFlush(x11_disp);
    grx::end_transfer(t);
}

// One row of the application's picture in the screen's form.
class RowPacker {
  public:
    RowPacker() : deep_({dec_red, dec_green, dec_blue}) {}
    void pack(const XImage* image, int y, const uchar* source, std::size_t count) const {
        if (!deep_screen()) {
            auto* const out = image_row<uchar>(image, y);
            for (std::size_t i = 0; i < count; ++i) out[i] = static_cast<uchar>(trace_pix[source[i]]);
        } else if (image->bits_per_pixel == 32) {
            deep_.row(image_row<uint32_t>(image, y), source, count);
        } else {
            pack_narrow(image, y, source, count);
        }
    }

    // The pixel values themselves, whatever the image holds them in.
    void pack_values(uint32_t* out, const uchar* source, std::size_t count) const {
        if (deep_screen()) {
            deep_.row(out, source, count);
            return;
        }
        for (std::size_t i = 0; i < count; ++i) out[i] = static_cast<uint32_t>(trace_pix[source[i]]) & 255U;
    }

  private:
    void pack_narrow(const XImage* image, int y, const uchar* source, std::size_t count) const {
        auto* out = image_row<uchar>(image, y);
        const auto bytes = static_cast<std::size_t>(image->bits_per_pixel / 8);
        for (std::size_t i = 0; i < count; ++i, out += bytes) {
            uint32_t pixel = 0;
            deep_.row(&pixel, source + 3 * i, 1);
            grx::store_pixel(out, pixel, bytes);
        }
    }
    grx::DeepPacker deep_;
};

bool usable_picture(const uchar* pixels, INT width, INT height) {
    return pixels != nullptr && width > 0 && height > 0;
}

void draw_picture(const PictureTarget& target, const uchar* pixels, INT width, const Part& part) {
    const RowPacker packer;
    const std::size_t row_bytes = static_cast<std::size_t>(width) * source_bytes();
    const uchar* const first = pixels + static_cast<std::size_t>(part.from_y) * row_bytes
                               + static_cast<std::size_t>(part.from_x) * source_bytes();
    show_picture(target, part, [&](const XImage* image, int row, int y) {
        const uchar* const source = first + static_cast<std::size_t>(y) * row_bytes;
        packer.pack(image, row, source, static_cast<std::size_t>(part.size.width));
    });
}

// A picture of the application and the sizes it is to be shown in.
class Stretch {
  public:
    Stretch(const uchar* pixels, INT width, INT height) : pixels_(pixels), width_(width), height_(height) {}

    // Of the whole, however large, only the part on the target is worked out.
    bool prepare(INT final_width, INT final_height, const Part& part) {
        columns_ = grx::Block<int32_t>::raw(static_cast<std::size_t>(part.size.width));
        rows_ = grx::Block<int32_t>::raw(static_cast<std::size_t>(part.size.height));
        source_row_ = grx::Block<uint32_t>(static_cast<std::size_t>(width_) + grx::kSpreadSlack);
        if (!columns_ || !rows_ || !source_row_) return false;
        grx::scale_map(columns_.span(), {width_, final_width, part.from_x});
        grx::scale_map(rows_.span(), {height_, final_height, part.from_y});
        prepare_steps();
        return true;
    }

    // A destination row that takes the same source row as the one before is copied from it.
    void fill_row(const XImage* image, int row, int destination) {
        const int32_t source = rows_[static_cast<std::size_t>(destination)];
        if (row > 0 && source == made_from_) {
            std::memcpy(image_row<uchar>(image, row), image_row<uchar>(image, row - 1),
                static_cast<std::size_t>(image->bytes_per_line));
            return;
        }
        made_from_ = source;
        packer_.pack_values(source_row_.data(), row_of(source), static_cast<std::size_t>(width_));
        spread(image, row);
    }

  private:
    const uchar* row_of(int32_t source) const {
        return pixels_ + static_cast<std::size_t>(source) * static_cast<std::size_t>(width_) * source_bytes();
    }
    // Without steps (memory is short, or the picture is reduced) the columns are taken one by one.
    void prepare_steps() {
        constexpr std::size_t group = 4;
        if (columns_.size() < group) return;
        steps_ = grx::Block<grx::SpreadStep>(columns_.size() / group);
        if (steps_ && !grx::make_spread_steps(steps_.span(), columns_.span())) steps_.reset();
    }
    void spread(const XImage* image, int y) const {
        if (image->bits_per_pixel == 32) {
            grx::spread_row(image_row<uint32_t>(image, y), source_row_.data(), columns_.span(), steps_.span());
            return;
        }
        auto* out = image_row<uchar>(image, y);
        const auto bytes = static_cast<std::size_t>(image->bits_per_pixel / 8);
        for (const int32_t column : columns_.span()) {
            grx::store_pixel(out, source_row_[static_cast<std::size_t>(column)], bytes);
            out += bytes;
        }
    }

    const uchar* pixels_;
    INT width_, height_;
    RowPacker packer_;
    grx::Block<int32_t> columns_, rows_; // of the part that is on the target
    grx::Block<grx::SpreadStep> steps_;
    grx::Block<uint32_t> source_row_; // the pixel values of one source row
    int32_t made_from_ = -1;
};

// What memory drawing left is shown, and the picture made ready for the next.
void show_memory_drawing(Window window, Pixmap picture, grx::Size size, INT efface_pas) {
    forget_background();
    apply_background();
    grx::copy_drawable(picture, window, g_c, size);
    XSync(x11_disp, False);
    if (efface_pas == 0) grx::fill_drawable(picture, g_c, size);
}

uint32_t colour_mask() {
    constexpr uint32_t component = 255;
    return component << dec_red | component << dec_green | component << dec_blue;
}

// Rows of what the screen shows, as colour indices.
class RowReader {
  public:
    RowReader() : finder_(trace_pix, known_colours(), colour_mask()) {}
    void read(uchar* out, const XImage* image, int y) const {
        const auto count = static_cast<std::size_t>(image->width);
        if (!deep_screen()) { // KEEP: 8 planes give the pixel values as they are.
            std::memcpy(out, image_row<uchar>(image, y), count);
        } else if (image->bits_per_pixel == 32 && image->byte_order == grx::native_byte_order()) {
            finder_.row(out, image_row<uint32_t>(image, y), count);
        } else {
            read_pixels(out, image, y);
        }
    }

  private:
    static std::size_t known_colours() {
        const INT known = grx_recup_max_couleur_reserve() + grx_recup_max_couleur_trace();
        return static_cast<std::size_t>(std::clamp<INT>(known, 0, GRX_NB_COULEURS));
    }
    void read_pixels(uchar* out, const XImage* image, int y) const {
        for (int x = 0; x < image->width; ++x)
            *out++ = finder_.find(static_cast<uint32_t>(XGetPixel(const_cast<XImage*>(image), x, y)));
    }
    grx::IndexFinder finder_;
};

// The part of a window that is on the screen, in the window's coordinates: the server gives no more.
struct Readable {
    int64_t left, top, right, bottom;
};

Readable readable_part(Widget w, Window window) {
    const grx::Size size = grx::size_of(w);
    int x = 0, y = 0;
    Window child = None;
    XTranslateCoordinates(x11_disp, window, grx::root_window(), 0, 0, &x, &y, &child);
    return {std::max(0, -x), std::max(0, -y), std::min(size.width, grx_recup_lar_ecran() - x),
        std::min(size.height, grx_recup_hau_ecran() - y)};
}

} // namespace

extern "C" {

void grx_trace_image(INT efface_pas) {
    if (grx_trace_memoire == 0) return;
    const INT active = grx_recup_nofen_active();
    const Backing backing = backing_of(active);
    if (backing) show_memory_drawing(backing.window, *backing.holder, window_size(active), efface_pas);
}

void grx_trace_image_bouton(INT efface_pas) {
    if (grx_trace_memoire_bouton == 0) return;
    const ButtonBacking backing = button_backing(grx_recup_nobou_actif());
    if (backing) show_memory_drawing(backing.window, backing.record->image, backing.size, efface_pas);
}

void grx_alloue_image_reel(INT type, INT bou_fen) {
    PictureTarget target;
    select_picture_target(type, bou_fen, target);
}

void grx_desalloue_image_reel(INT, INT) {
    // the target stays selected
}

void grx_trace_image_dans_widget(INT type, INT bou_fen, uchar* tab_pix_fac, INT largeur, INT hauteur, INT x, INT y) {
    PictureTarget target;
    if (!select_picture_target(type, bou_fen, target)) return;
    if (target.backing == nullptr || !usable_picture(tab_pix_fac, largeur, hauteur)) return;
    const Part part = part_on(target.size, x, y, largeur, hauteur);
    if (!part.empty()) draw_picture(target, tab_pix_fac, largeur, part);
}

void grx_trace_image_reel_xy(
    INT type, INT bou_fen, uchar* tab_pixfac_24, uchar* tab_pixfac_8, INT largeur, INT hauteur, INT x, INT y) {
    grx_trace_image_dans_widget(type, bou_fen, deep_screen() ? tab_pixfac_24 : tab_pixfac_8, largeur, hauteur, x, y);
}

void grx_recup_image(INT x, INT y, INT largeur, INT hauteur, uchar* tab_pix) {
    Widget w = grx_recup_objet_fen(grx_recup_nofen_active());
    const Window window = grx::window_of(w);
    if (window == None || g_c == nullptr || !usable_picture(tab_pix, largeur, hauteur)) return;
    set_copy_function();
    const int64_t left = std::max<INT>(x, 0);
    const int64_t top = std::max<INT>(y, 0);
    const Readable part = readable_part(w, window);
    const int64_t from_x = std::max(left, part.left);
    const int64_t from_y = std::max(top, part.top);
    const int64_t width = std::min(left + largeur, part.right) - from_x;
    const int64_t height = std::min(top + hauteur, part.bottom) - from_y;
    if (width <= 0 || height <= 0) return;
    const RowReader reader;
    const auto row_bytes = static_cast<std::size_t>(largeur);
    uchar* const out = tab_pix + static_cast<std::size_t>(from_y - top) * row_bytes + (from_x - left);
    grx::read_rectangle(window, static_cast<int>(from_x), static_cast<int>(from_y),
        {static_cast<int>(width), static_cast<int>(height)}, [&](const XImage* image, int first) {
            for (int row = 0; row < image->height; ++row)
                reader.read(out + static_cast<std::size_t>(first + row) * row_bytes, image, row);
        });
}

void grx_stretch_image(INT type, INT bou_fen, uchar* tab_pix_fac_24, uchar* tab_pix_fac_8, INT largeur, INT hauteur,
    INT dx, INT dy, INT l_finale, INT h_finale) {
    if (l_finale == largeur && h_finale == hauteur) {
        grx_trace_image_reel_xy(type, bou_fen, tab_pix_fac_24, tab_pix_fac_8, largeur, hauteur, dx, dy);
        return;
    }
    PictureTarget target;
    if (!select_picture_target(type, bou_fen, target) || target.backing == nullptr) return;
    const uchar* const pixels = deep_screen() ? tab_pix_fac_24 : tab_pix_fac_8;
    if (!usable_picture(pixels, largeur, hauteur) || l_finale <= 0 || h_finale <= 0) return;
    const Part part = part_on(target.size, dx, dy, l_finale, h_finale);
    Stretch stretch(pixels, largeur, hauteur);
    if (part.empty() || !stretch.prepare(l_finale, h_finale, part)) return;
    show_picture(target, part, [&](const XImage* image, int row, int y) { stretch.fill_row(image, row, y); });
}
}

// --------------------------------------------------------------------------------------------------- TrueType text
// No outline font is to be had on this platform: the application falls back to its own vector text.

extern "C" {

INT get_contours_texte_truetype(GRX_TEXTE, DEF_CONTOURS**) {
    return 0;
}

int grx_select_font_truetype(char*) {
    return -1;
}

void grx_texte_extent_truetype(INT, char*, DOUBLE, DOUBLE, char*, DOUBLE*) {
    // the advances stay as the caller filled them
}

INT grx_verifie_truetype(char*) {
    return 0;
}
}
