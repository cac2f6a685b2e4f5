// What the tests of drawing share: graphic windows, and the same primitives drawn by the library and by plain Xlib.
#pragma once

#include "tests/support/display_test.h"

#include "xt_prive.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace grxtest {

constexpr INT xor_mode = GRX_MODE_XOR;
constexpr INT erase_mode = GRX_MODE_EFFACE;

inline GRX_ATTRIBUTS_TRACER attributes(INT colour, INT background = 0, INT mode = 0, INT style = 0, INT width = 0) {
    return {background, colour, mode, 0, style, width};
}

inline std::uint32_t drawn_pixel(INT colour_index) {
    return static_cast<std::uint32_t>(trace_pix[colour_index]);
}

// What a context holds.
inline XGCValues values_of(GC context) {
    XGCValues values{};
    XGetGCValues(x11_disp, context,
        GCFunction | GCForeground | GCBackground | GCLineWidth | GCLineStyle | GCCapStyle | GCJoinStyle | GCFillStyle
            | GCFillRule | GCArcMode | GCPlaneMask | GCGraphicsExposures | GCSubwindowMode,
        &values);
    return values;
}

// --- primitives as data -------------------------------------------------------------------------------------

struct Primitive {
    enum class Kind { point, segment, rectangle, filled_rectangle, arc, filled_arc, polyline, polygon, triangle };
    static constexpr int kinds = 9;

    Kind kind = Kind::point;
    GRX_ATTRIBUTS_TRACER attrib{};
    std::array<INT, 6> v{}; // coordinates, in the order of the record
    std::vector<GRX_POINT_POLY> points;
};

inline Primitive point(const GRX_ATTRIBUTS_TRACER& attrib, INT x, INT y) {
    return {Primitive::Kind::point, attrib, {x, y}, {}};
}
inline Primitive segment(const GRX_ATTRIBUTS_TRACER& attrib, INT x1, INT y1, INT x2, INT y2) {
    return {Primitive::Kind::segment, attrib, {x1, y1, x2, y2}, {}};
}
inline Primitive rectangle(const GRX_ATTRIBUTS_TRACER& attrib, INT x1, INT y1, INT x2, INT y2) {
    return {Primitive::Kind::rectangle, attrib, {x1, y1, x2, y2}, {}};
}
inline Primitive filled(const GRX_ATTRIBUTS_TRACER& attrib, INT x1, INT y1, INT x2, INT y2) {
    return {Primitive::Kind::filled_rectangle, attrib, {x1, y1, x2, y2}, {}};
}
inline Primitive arc(const GRX_ATTRIBUTS_TRACER& attrib, INT x, INT y, INT across, INT down, INT from, INT to) {
    return {Primitive::Kind::arc, attrib, {x, y, across, down, from, to}, {}};
}

inline GRX_TEXTE text_at(INT target, INT x, INT y, const char* text, INT colour, INT background = 0) {
    GRX_TEXTE record{};
    record.nofen = target;
    record.x = x;
    record.y = y;
    std::strncpy(record.chaine, text, sizeof record.chaine - 1);
    record.coul_trace = colour;
    record.coul_fond = background;
    record.attrib = attributes(colour, background);
    return record;
}

// Draws it with the library: in a window, or with the twin for buttons, where there is one.
void draw(INT nofen, const Primitive& primitive);
void draw_on_button(INT nobou, const Primitive& primitive);
bool has_button_twin(Primitive::Kind kind);

// Xlib's own call for it, with a context that is ready. Nothing joins the request to the next one: an empty one follows.
void draw_plainly(Display* display, Drawable target, GC context, const Primitive& primitive);

// A pixmap on which plain Xlib draws what the library should: each primitive alone, each with its context set whole.
class PlainPicture {
  public:
    PlainPicture(Display* display, int width, int height, unsigned long background);
    ~PlainPicture();
    PlainPicture(const PlainPicture&) = delete;
    PlainPicture& operator=(const PlainPicture&) = delete;

    void apply(const GRX_ATTRIBUTS_TRACER& attrib);
    void draw(const Primitive& primitive);
    void clear(unsigned long background);
    Pixels pixels() const { return grab(display_, pixmap_); }
    Pixmap pixmap() const { return pixmap_; }
    GC context() const { return context_; }

  private:
    Display* display_;
    int width_, height_;
    Pixmap pixmap_;
    GC context_;
};

// Primitives at random places in and around a picture of that size. Exclusive-or ones keep one background, for a change
// of background alone does not reach them.
class RandomPrimitives {
  public:
    RandomPrimitives(unsigned seed, int width, int height) : random_(seed), width_(width), height_(height) {}

    Primitive next();
    Primitive next(Primitive::Kind kind);
    int number(int first, int last) { return std::uniform_int_distribution<int>(first, last)(random_); }
    GRX_ATTRIBUTS_TRACER any_attributes();
    void keep_attributes(int percent) { kept_ = percent; } // how often the attributes of the one before are taken

  private:
    std::vector<GRX_POINT_POLY> any_points(int least, int most);

    std::mt19937 random_;
    int width_, height_;
    int kept_ = 60;
    GRX_ATTRIBUTS_TRACER last_{};
};

// --- windows ------------------------------------------------------------------------------------------------

class DrawingTest : public DisplayTest {
  protected:
    static constexpr int width = 240;
    static constexpr int height = 180;

    // A graphic window on the screen, its first exposure behind it.
    INT graphic_window(const Area& area = {40, 60, width, height});
    INT active_window(const Area& area = {40, 60, width, height}); // the same, made the active one
    INT window_of(INT kind, const Area& area);
    INT label_in(INT window, const Area& area); // a label control with a size of its own

    static Window x_window(INT window) { return XtWindow(grx_recup_objet_fen(window)); }
    static Window x_button(INT button) { return XtWindow(grx_recup_objet_bout(button)); }
    static Pixels screen(INT window) { return grab(x11_disp, x_window(window)); }
    static Pixels button_screen(INT button) { return grab(x11_disp, x_button(button)); }
    static STRUCTURE_FENETRE& record(INT window);
    static Pixels memory(INT window) { return grab(x11_disp, *record(window).image); }
    static std::uint32_t background() { return drawn_pixel(grx_recup_couleur_fond()); }
};

} // namespace grxtest
