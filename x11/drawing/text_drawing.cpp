// Draws texts that scale and turn into windows and controls: filled letters soft or hard, outlines and strokes as lines.
#include <X11/Xlib.h>
#include <X11/extensions/Xrender.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "pure/clip.h"
#include "display/render.h"
#include "display/screen.h"
#include "drawing/attributes.h"
#include "drawing/bit_runs.h"
#include "drawing/large_letters.h"
#include "drawing/layer_content.h"
#include "drawing/layers.h"
#include "drawing/outlines.h"
#include "drawing/receiver.h"
#include "drawing/strikes.h"
#include "drawing/text_target.h"
#include "fonts/text_layout.h"
#include "fonts/text_outlines.h"
#include "system/never_destroyed.h"
#include "system/shut_down.h"
#include "system/trace.h"
#include "grx_plus_erreurs.h"
#include "grx_plus_textes.h"
#include "xt_ini_f.h"

namespace {

using grx::Ink;

// -- lines

grx::NeverDestroyed<grx::PathBuffer> drawn;
grx::NeverDestroyed<grx::Block<XPoint>> corners;

void forget_drawn() {
    drawn.value.reset();
    corners.value.reset();
}

bool fits(const GRX_POINT_REEL& p) {
    return std::abs(p.x) <= INT16_MAX && std::abs(p.y) <= INT16_MAX;
}

XPoint corner(const GRX_POINT_REEL& p) {
    return {static_cast<short>(std::lround(p.x)), static_cast<short>(std::lround(p.y))};
}

bool draw_near_path(const grx::TextTarget& target, std::span<const GRX_POINT_REEL> path, bool closed) {
    grx::Block<XPoint>& block = corners.value;
    const std::size_t count = path.size() + (closed ? 1 : 0);
    if (block.size() < count && !block.resize(count)) return false;
    std::transform(path.begin(), path.end(), block.begin(), corner);
    if (closed) block[count - 1] = block[0];
    grx::draw_polyline(target.drawable, block.span().first(count));
    return true;
}

void draw_far_path(
    const grx::TextTarget& target, std::span<const GRX_POINT_REEL> path, bool closed, const grx::Dashes& dashes) {
    for (std::size_t i = closed ? 0 : 1; i < path.size(); ++i) {
        const GRX_POINT_REEL &from = path[i != 0 ? i - 1 : path.size() - 1], &to = path[i];
        const auto part = grx::clip_segment(grx::Vertex{from.x, from.y}, grx::Vertex{to.x, to.y}, dashes);
        if (part) grx::draw_line(target.drawable, *part);
    }
}

bool draw_lines(const grx::TextTarget& target, const grx::TextLayout& layout, const GRX_ATTRIBUTS_TRACER& attrib) {
    constexpr double tolerance = 0.25;
    grx::at_shut_down(forget_drawn);
    if (!grx::trace_text(layout, tolerance, drawn.value)) return false;
    const bool closed = !layout.font->strokes();
    for (std::size_t i = 0; i < drawn.value.paths(); ++i) {
        const auto path = drawn.value.path(i);
        if (!std::all_of(path.begin(), path.end(), fits))
            draw_far_path(target, path, closed, grx::dashes_of(attrib));
        else if (!draw_near_path(target, path, closed))
            return false;
    }
    return true;
}

// -- letters

// Where the pen is: a pixel, and the place within it.
struct Pen {
    double x, y; // whole
    int phase_x, phase_y;
};

void split(double v, double& whole, int& phase) {
    const double steps = std::floor(v * grx::kPhases + 0.5);
    whole = std::floor(steps / grx::kPhases);
    phase = static_cast<int>(steps - whole * grx::kPhases);
}

Pen pen_at(grx::Vertex v, Ink ink) {
    Pen pen{};
    if (ink == Ink::Hard) return {std::floor(v.x + 0.5), std::floor(v.y + 0.5), 0, 0};
    split(v.x, pen.x, pen.phase_x);
    split(v.y, pen.y, pen.phase_y);
    return pen;
}

// A letter in its place, which may be out of the target.
struct Spot {
    double left, top;
    bool seen;
};

Spot spot_of(const grx::TextTarget& target, const Pen& pen, const grx::StrikeGlyph& glyph) {
    const double left = pen.x + glyph.left, top = pen.y + glyph.top;
    const bool seen = glyph.width > 0 && left < target.size.width && top < target.size.height && left + glyph.width > 0
                      && top + glyph.height > 0;
    return {left, top, seen};
}

// Gathers the soft letters of a text, which are drawn with one request.
class SoftText {
  public:
    SoftText(const grx::TextTarget& target, unsigned long colour) : target_(target), colour_(colour) {}

    void add(const grx::Strike& strike, const grx::StrikeGlyph& glyph, const Spot& spot) {
        const int x = static_cast<int>(spot.left) - glyph.left, y = static_cast<int>(spot.top) - glyph.top;
        numbers_[count_] = static_cast<unsigned short>(glyph.where);
        letters_[count_] = {strike.set, &numbers_[count_], 1, x - x_, y - y_};
        ++count_;
        x_ = x;
        y_ = y;
    }
    void draw() {
        if (count_ == 0) return;
        const grx::SoftTarget target(target_);
        XRenderCompositeText16(x11_disp, PictOpOver, grx::colour_picture(colour_), target.picture(), nullptr, 0, 0,
            letters_[0].xOff, letters_[0].yOff, letters_.data(), static_cast<int>(count_));
        count_ = 0;
        x_ = y_ = 0;
    }

  private:
    const grx::TextTarget& target_;
    unsigned long colour_;
    std::size_t count_ = 0;
    int x_ = 0, y_ = 0;
    std::array<XGlyphElt16, GRX_TEXTE_CHAINE_MAX> letters_;
    std::array<unsigned short, GRX_TEXTE_CHAINE_MAX> numbers_;
};

class HardText {
  public:
    explicit HardText(const grx::TextTarget& target) : runs_(target.drawable) {}
    void add(const grx::Strike& strike, const grx::StrikeGlyph& glyph, const Spot& spot) {
        const std::size_t pitch = (std::size_t{glyph.width} + 7) / 8;
        runs_.add_bits(strike.bits.data() + glyph.where, pitch, glyph.width, glyph.height, static_cast<int>(spot.left),
            static_cast<int>(spot.top));
    }
    void draw() {}

  private:
    grx::RunDrawer runs_;
};

struct Drawing {
    const grx::TextTarget& target;
    const grx::TextLayout& layout;
    Ink ink;
    unsigned long colour;
};

bool are_large(const grx::TextFrame& frame) {
    constexpr double largest = 100; // a capital whose letters are kept
    return std::max(frame.width, frame.height) > largest;
}

bool draw_large(const Drawing& d, std::size_t i) {
    return grx::draw_large_letter(d.target, *d.layout.font, d.layout.letters[i], d.layout.place(i), d.ink, d.colour);
}

// False when memory is short.
template <class Text>
bool draw_letters(const Drawing& d, Text text) {
    grx::Strike& strike = grx::strike_for(*d.layout.font, d.layout.frame.letters(), d.ink);
    const grx::Vertex origin = d.layout.frame.origin;
    bool complete = true;
    for (std::size_t i = 0; i < d.layout.count && complete; ++i) {
        const grx::Vertex start = d.layout.start(i);
        const Pen pen = pen_at({origin.x + start.x, origin.y + start.y}, d.ink);
        const grx::StrikeGlyph* const glyph =
            grx::strike_glyph(strike, *d.layout.font, d.layout.letters[i], pen.phase_x, pen.phase_y);
        if (glyph == nullptr)
            complete = false;
        else if (glyph->large)
            complete = draw_large(d, i);
        else if (const Spot spot = spot_of(d.target, pen, *glyph); spot.seen)
            text.add(strike, *glyph, spot);
    }
    text.draw();
    return complete;
}

bool draw_large_letters(const Drawing& d) {
    for (std::size_t i = 0; i < d.layout.count; ++i)
        if (!draw_large(d, i)) return false;
    return true;
}

// What erases takes away whatever soft letters have touched.
Ink ink_for(const GRX_ATTRIBUTS_TRACER& attrib) {
    if (attrib.mode == GRX_MODE_XOR || !grx::has_render()) return Ink::Hard;
    return attrib.mode == GRX_MODE_EFFACE ? Ink::Touched : Ink::Soft;
}

bool fill_letters(const grx::TextTarget& target, const grx::TextLayout& layout, const GRX_ATTRIBUTS_TRACER& attrib) {
    const Drawing d{target, layout, ink_for(attrib), grx::drawing_pixel(attrib.coul_trace)};
    if (are_large(layout.frame)) return draw_large_letters(d);
    if (d.ink == Ink::Soft) return draw_letters(d, SoftText(target, d.colour));
    return draw_letters<HardText>(d, HardText(target));
}

INT draw_text(const GRX_TEXTE& text, const grx::TextTarget& target) {
    if (target.result != 1) return target.result;
    grx::TextLayout layout;
    const INT result = grx::lay_out(text, layout);
    if (result < 0) return result;
    const bool lines = layout.font->strokes() || text.filllabel == 0;
    const auto draw = lines ? draw_lines : fill_letters;
    return draw(target, layout, text.attrib) ? result : GRX_ECHEC_MEMOIRE;
}

void draw_in_window(GRX_TEXTE text) {
    grx_trace_texte_dessin(&text);
}

// In a layer; what it covers is a little more than its ink, because of hinting and the width of strokes.
INT keep_text(grx::LayerContent& layer, const GRX_TEXTE& text) {
    GRX_BOITE_TEXTE box;
    grx_init_boite_texte(&box);
    const INT result = grx_recup_boite_texte(&text, &box);
    if (result < 0) return result;
    const grx::Area ink{std::llround(std::floor(box.x_min)), std::llround(std::floor(box.y_min)),
        std::llround(std::ceil(box.x_max)), std::llround(std::ceil(box.y_max))};
    grx::keep_primitive<draw_in_window>(layer, text, ink.grown(2 + grx_recup_epaisseur(text.attrib.epaisseur)));
    return result;
}

} // namespace

extern "C" {

INT grx_trace_texte_dessin(const GRX_TEXTE* texte) {
    if (texte == nullptr) return grx::refused(GRX_ECHEC_PARAMETRE, "texte");
    if (grx::received(&GRX_RECEPTEUR::texte_dessin, GRX_CIBLE_FENETRE, *texte)) return 1;
    grx::LayerContent* const layer = grx::layers_there ? grx::layer_being_drawn(texte->nofen) : nullptr;
    if (layer != nullptr) return keep_text(*layer, *texte);
    return draw_text(*texte, grx::text_target(texte->nofen, texte->attrib));
}

INT grx_trace_texte_dessin_bouton(const GRX_TEXTE* texte) {
    if (texte == nullptr) return grx::refused(GRX_ECHEC_PARAMETRE, "texte");
    if (grx::received(&GRX_RECEPTEUR::texte_dessin, GRX_CIBLE_BOUTON, *texte)) return 1;
    return draw_text(*texte, grx::button_text_target(texte->nofen, texte->attrib));
}
}
