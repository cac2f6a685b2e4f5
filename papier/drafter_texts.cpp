// Makes marks of the texts, pictures and links that a paper receives.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <string_view>

#include "grx_plus_erreurs.h"
#include "papier/drafter.h"
#include "papier/utf8.h"
#include "xt_gfx_f.h"

namespace {

constexpr double kTolerance = .01; // mm by which letters' curves may be off
constexpr INT kUsualHeight = 13;   // pixels of the application's font where there is none to measure
constexpr INT kUsualDescent = 3;
constexpr double kCapital = .62;   // of the height of a font, above and below its baseline together
constexpr INT kMostPixels = 32767; // of a side of a picture that cairo takes

std::string_view characters(const GRX_TEXTE& text) {
    return {text.chaine, strnlen(text.chaine, sizeof text.chaine)};
}

struct Measured {
    INT width = 0, height = kUsualHeight, descent = kUsualDescent;
};

// As large as the screen shows the text; without a screen the width stays 0.
Measured measured(const GRX_TEXTE& text) {
    char chaine[sizeof text.chaine + 1] = {};
    std::memcpy(chaine, text.chaine, sizeof text.chaine);
    INT width = 0, above = 0, below = 0;
    grx_recup_taille_chaine(chaine, &width, &above, &below);
    if (above + below <= 0) return {};
    return {width, above + below, below};
}

// How much wider than its font has it a text must be for a length.
double stretch(const GRX_TEXTE& text, double length) {
    constexpr double least = .25, most = 4;
    GRX_BOITE_TEXTE box;
    grx_init_boite_texte(&box);
    const bool known = grx_recup_boite_texte(&text, &box) >= 1 && box.longueur > 0;
    return known ? std::clamp(length / box.longueur, least, most) : 1;
}

uint32_t premultiplied(uint32_t alpha, uint32_t rgb) {
    const auto part = [&](int shift) { return ((rgb >> shift & 255) * alpha + 127) / 255 << shift; };
    return alpha << 24 | part(16) | part(8) | part(0);
}

constexpr uint32_t kOpaque = 255;

} // namespace

namespace papier {

// --- texts ----------------------------------------------------------------------------------------------------------

void Drafter::letters(const GRX_TEXTE& text, Point base, double height, double width, INT colour) {
    const double reach = height * GRX_TEXTE_CHAINE_MAX + width;
    if (!visible_.grown(reach).holds(base)) return;
    if (!take_text(characters(text), text_)) {
        complete_ = false;
        return;
    }
    flush();
    marks_->text({base.x, base.y, height, width, inks_.line_colour(colour), inks_.pen_number(colour)}, text_.span());
}

// A plotter writes with the font of single strokes.
void Drafter::plotted_letters(GRX_TEXTE text, INT x, INT y, double height, double width, INT colour) {
    text.x = x;
    text.y = y;
    std::memset(text.fontlabel, 0, sizeof text.fontlabel);
    std::memcpy(text.fontlabel, GRX_FONTE_TRAIT, sizeof GRX_FONTE_TRAIT);
    text.hauteurlabel = height / layout_.mm_per_pixel * kCapital;
    text.largeurlabel = text.sinuslabel = text.slantlabel = 0;
    text.cosinuslabel = 1;
    text.mirorlabel = text.filllabel = 0;
    std::fill(std::begin(text.extentslabel), std::end(text.extentslabel), 0.0);
    if (width > 0) text.largeurlabel = text.hauteurlabel * stretch(text, width / layout_.mm_per_pixel);
    text.attrib = {text.attrib.coul_fond, colour, GRX_MODE_NORMAL, 0, GRX_TRAIT_CONTINU, 0};
    drawing_text(text);
}

void Drafter::text(INT target, const GRX_TEXTE& text) {
    const bool window = target == GRX_CIBLE_FENETRE;
    if (!window && !Inks::draws(text.attrib)) return;
    const INT colour = window ? text.coul_trace : text.attrib.coul_trace;
    const Measured size = measured(text);
    const int64_t lowered = window ? text.y : int64_t{text.y} - size.descent;
    const auto y = static_cast<INT>(std::max<int64_t>(lowered, INT32_MIN));
    const bool own = text_height_ > 0;
    const double height = own ? text_height_ : size.height * layout_.mm_per_pixel;
    const double width = own ? 0 : size.width * layout_.mm_per_pixel;
    if (strokes_only_) {
        plotted_letters(text, text.x, y, height, width, colour);
    } else {
        letters(text, at(text.x, y), height, width, colour);
    }
}

// The outlines of a filled text are filled together: an inner one is a hole.
void Drafter::add_contours(const GRX_CONTOURS_TEXTE& contours) {
    for (INT i = 0; i < contours.nb_contours; ++i) {
        points_.clear();
        for (INT k = contours.debuts[i]; k < contours.debuts[i + 1]; ++k)
            complete_ = points_.append(at(contours.points[k].x, contours.points[k].y)) && complete_;
        if (kind_ == Kind::fill) {
            add_area(points_);
        } else {
            add_lines(points_.span(), contours.ferme != 0);
        }
    }
}

void Drafter::drawing_text(const GRX_TEXTE& text) {
    if (!Inks::draws(text.attrib)) return;
    GRX_CONTOURS_TEXTE contours;
    grx_init_contours_texte(&contours);
    const INT code = grx_recup_contours_texte(&text, kTolerance / layout_.mm_per_pixel, &contours);
    if (code == GRX_ECHEC_MEMOIRE) complete_ = false;
    if (code < 1 || contours.nb_contours <= 0) return;
    flush();
    begin_stroke(text.attrib);
    if (contours.ferme != 0 && text.filllabel != 0 && !strokes_only_) {
        kind_ = Kind::fill;
        ink_ = {pen_.rgb, pen_.number, false};
    }
    add_contours(contours);
    flush();
}

// --- pictures -------------------------------------------------------------------------------------------------------

void Drafter::take_row(const GRX_IMAGE_RECUE& p, std::size_t first, uint32_t* out) {
    const auto width = static_cast<std::size_t>(p.largeur);
    for (std::size_t x = 0; x < width; ++x) {
        const std::size_t i = first + x;
        if (p.pixels_argb != nullptr) {
            const uint32_t pixel = p.pixels_argb[i];
            out[x] = premultiplied(pixel >> 24, inks_.picture_colour(pixel & kWhite));
        } else if (p.pixels_24 != nullptr) {
            const unsigned char* const bgr = p.pixels_24 + 3 * i;
            const uint32_t rgb = uint32_t{bgr[2]} << 16 | uint32_t{bgr[1]} << 8 | bgr[0];
            out[x] = premultiplied(kOpaque, inks_.picture_colour(rgb));
        } else {
            out[x] = premultiplied(kOpaque, inks_.picture_colour(inks_.screen_colour(p.pixels_8[i])));
        }
    }
}

bool Drafter::take_pixels(const GRX_IMAGE_RECUE& p) {
    const auto width = static_cast<std::size_t>(p.largeur), height = static_cast<std::size_t>(p.hauteur);
    if (!pixels_.size_to(width * height)) return false;
    for (std::size_t y = 0; y < height; ++y) take_row(p, y * width, pixels_.data() + y * width);
    return true;
}

void Drafter::picture(const GRX_IMAGE_RECUE& p) {
    const Point corner = at(p.x - .5, p.y - .5);
    const Box place{corner.x, corner.y, corner.x + p.largeur_finale * layout_.mm_per_pixel,
        corner.y + p.hauteur_finale * layout_.mm_per_pixel};
    if (!place.meets(visible_)) return;
    if (p.largeur > kMostPixels || p.hauteur > kMostPixels) {
        pictures_fit_ = false;
        return;
    }
    flush();
    if (!strokes_only_ && !take_pixels(p)) {
        complete_ = false;
        return;
    }
    marks_->picture({place, p.largeur, p.hauteur, 1}, pixels_.span());
    pixels_.reset(); // a picture may be large
}

void Drafter::link(INT x, INT y, INT width, INT height, const char* uri) {
    const Point a = at(x - .5, y - .5);
    const Box place{a.x, a.y, a.x + width * layout_.mm_per_pixel, a.y + height * layout_.mm_per_pixel};
    if (place.common(visible_).empty()) return;
    flush();
    marks_->link(place.common(visible_), {uri, std::strlen(uri) + 1});
}

} // namespace papier
