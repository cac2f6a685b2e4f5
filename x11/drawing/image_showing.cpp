// Shows pictures of the application in any form and size, with what is transparent laid on what is there.
#include <algorithm>
#include <optional>

#include "display/pixmaps.h"
#include "display/screen.h"
#include "drawing/backing.h"
#include "drawing/receiver.h"
#include "drawing/screen_colours.h"
#include "drawing/transfer.h"
#include "grx_plus_erreurs.h"
#include "grx_plus_images.h"
#include "pure/pixels.h"
#include "pure/size.h"
#include "pure/true_colour.h"
#include "registry/window_table.h"
#include "system/block.h"
#include "system/picture_record.h"
#include "system/trace.h"
#include "xt_gfx_f.h"
#include "xt_ini_f.h"

namespace {

constexpr INT kLongestShown = 32767;

// -- where it goes

struct Target {
    INT type, number;
    Pixmap backing = None;
    grx::Size size{};
};

INT find_window(Target& target) {
    const grx::Backing backing = grx::backing_of(target.number);
    if (backing.window == None) return grx::refused(GRX_ECHEC_NUMERO, "bou_fen", target.number);
    if (!backing || *backing.holder == None || grx::holds_dead_pixmap(target.number)) return GRX_ECHEC_ABSENT;
    target.backing = *backing.holder;
    return 1;
}

INT find_button(Target& target) {
    const grx::ButtonBacking backing = grx::button_backing(target.number);
    if (backing.window == None || backing.record == nullptr)
        return grx::refused(GRX_ECHEC_NUMERO, "bou_fen", target.number);
    if (!backing) return GRX_ECHEC_ABSENT;
    target.backing = backing.record->image;
    return 1;
}

INT find_target(Target& target) {
    if (x11_disp == nullptr || x11_vis == nullptr) return GRX_ECHEC_AFFICHAGE;
    const INT result = target.type == GRX_CIBLE_FENETRE ? find_window(target) : find_button(target);
    if (result != 1) return result;
    target.size = grx::pixmap_size(target.backing);
    return target.size == grx::Size{} ? GRX_ECHEC_ABSENT : 1;
}

// -- how it is made

struct Area {
    int64_t x, y, width, height;
};

// The part of a picture that is on the target, in the picture as it is shown.
Area part_on(const grx::Size& target, const Area& shown) {
    const int64_t left = std::max<int64_t>(0, -shown.x), top = std::max<int64_t>(0, -shown.y);
    const int64_t right = std::min(shown.width, target.width - shown.x);
    const int64_t bottom = std::min(shown.height, target.height - shown.y);
    return {left, top, std::max<int64_t>(0, right - left), std::max<int64_t>(0, bottom - top)};
}

bool lets_through(const GRX_IMAGE& image) {
    if (image.octets_par_pixel != 1) return image.octets_par_pixel == 4;
    return std::any_of(image.palette, image.palette + image.nb_couleurs, [](const auto& c) { return c[3] != 255; });
}

std::size_t row_bytes(const GRX_IMAGE& image) {
    return static_cast<std::size_t>(image.largeur) * static_cast<std::size_t>(image.octets_par_pixel);
}

// The colours that drawing has on 8 planes, by their indices.
grx::NearestColour drawing_colours(const grx::PixelColours& screen) {
    grx::NearestColour nearest;
    const INT count =
        std::clamp<INT>(grx_recup_max_couleur_reserve() + grx_recup_max_couleur_trace(), 0, GRX_NB_COULEURS);
    for (INT i = 0; i < count; ++i)
        if (trace_pix[i] >= 0)
            nearest.add(screen.colour_of(static_cast<unsigned long>(trace_pix[i])), static_cast<unsigned int>(i));
    return nearest;
}

// Makes rows of a picture as they are shown, in the form that the screen's functions take.
class RowMaker {
  public:
    RowMaker(const GRX_IMAGE& image, const Target& target, const Area& shown)
        : image_(image), target_(target), shown_(shown), part_(part_on(target.size, shown)),
          through_(lets_through(image)) {}

    const Area& part() const { return part_; }
    std::size_t bytes() const { return grx::deep_screen() ? grx::kTrueBytes : 1; }

    bool prepare() {
        columns_ = grx::Block<int32_t>::raw(static_cast<std::size_t>(part_.width));
        row_ = grx::Block<uchar>::raw(static_cast<std::size_t>(part_.width) * grx::kTrueBytes);
        if (!columns_ || !row_) return false;
        grx::scale_map(columns_.span(), {image_.largeur, shown_.width, part_.x});
        if (through_ || !grx::deep_screen()) screen_.emplace(grx::window_colours());
        if (!grx::deep_screen()) nearest_ = drawing_colours(*screen_);
        return true;
    }

    // What the target has where the next rows go.
    void look_behind(int64_t first, int64_t rows, grx::Block<uchar>& behind) const {
        if (!through_) return;
        grx::read_rectangle(target_.backing, static_cast<int>(shown_.x + part_.x),
            static_cast<int>(shown_.y + part_.y + first), {static_cast<int>(part_.width), static_cast<int>(rows)},
            [&](const XImage* image, int at) {
                for (int y = 0; y < image->height; ++y)
                    screen_->row(behind.data() + row_.size() * static_cast<std::size_t>(at + y), image, y);
            });
    }

    // Row y of the part; `behind` is what the target has there.
    void make(uchar* out, int64_t y, const uchar* behind) {
        const int64_t source = (part_.y + y) * image_.hauteur / shown_.height;
        uchar* const colours = grx::deep_screen() ? out : row_.data();
        colour(colours, image_.pixels + row_bytes(image_) * static_cast<std::size_t>(source), behind);
        if (grx::deep_screen()) return;
        for (std::size_t i = 0; i < columns_.size(); ++i)
            out[i] = static_cast<uchar>(nearest_.value_of(grx::bgr_at(colours + grx::kTrueBytes * i)));
    }

  private:
    void colour(uchar* out, const uchar* source, const uchar* behind) const {
        const auto bytes = static_cast<std::size_t>(image_.octets_par_pixel);
        for (const int32_t column : columns_.span()) {
            const uchar* const from = source + bytes * static_cast<std::size_t>(column);
            const uchar* const pixel = bytes == 1 ? image_.palette[*from] : from;
            grx::put_bgr(out, through_ ? grx::over(grx::bgra_at(pixel), grx::bgr_at(behind)) : grx::bgr_at(pixel));
            out += grx::kTrueBytes;
            behind += through_ ? grx::kTrueBytes : 0;
        }
    }

    const GRX_IMAGE& image_;
    Target target_;
    Area shown_, part_;
    bool through_;
    grx::Block<int32_t> columns_;
    grx::Block<uchar> row_;
    std::optional<grx::PixelColours> screen_;
    grx::NearestColour nearest_;
};

int64_t rows_at_once(const RowMaker& rows) {
    constexpr int64_t strip = 256 * 1024;
    return std::clamp<int64_t>(strip / (rows.part().width * 3), 1, rows.part().height);
}

// Colours with their alpha, as receivers take them.
UNSIGNED_INT argb_at(const GRX_IMAGE& image, std::size_t i) {
    const auto size = static_cast<std::size_t>(image.octets_par_pixel);
    const unsigned char* const pixel = image.pixels + i * size;
    const unsigned char* const bgra = size == 1 ? image.palette[*pixel] : pixel;
    const UNSIGNED_INT alpha = size == 3 ? 255U : bgra[3];
    return alpha << 24U | UNSIGNED_INT{bgra[2]} << 16U | UNSIGNED_INT{bgra[1]} << 8U | bgra[0];
}

INT hand_over(const GRX_IMAGE& image, INT type, INT number, const Area& shown) {
    auto argb = grx::Block<UNSIGNED_INT>::raw(
        static_cast<std::size_t>(image.largeur) * static_cast<std::size_t>(image.hauteur));
    if (!argb) return GRX_ECHEC_MEMOIRE;
    for (std::size_t i = 0; i < argb.size(); ++i) argb[i] = argb_at(image, i);
    grx::received_picture(
        type, {0, number, image.largeur, image.hauteur, static_cast<INT>(shown.x), static_cast<INT>(shown.y),
                  static_cast<INT>(shown.width), static_cast<INT>(shown.height), nullptr, nullptr, argb.data()});
    return 1;
}

INT show(const GRX_IMAGE& image, const Target& target, const Area& shown) {
    RowMaker rows(image, target, shown);
    const Area& part = rows.part();
    if (part.width == 0 || part.height == 0) return 1;
    const int64_t most = rows_at_once(rows);
    const std::size_t room = static_cast<std::size_t>(most * part.width);
    auto strip = grx::Block<uchar>::raw(room * rows.bytes());
    grx::Block<uchar> behind(room * grx::kTrueBytes);
    if (!strip || !behind || !rows.prepare()) return GRX_ECHEC_MEMOIRE;
    const auto width = static_cast<std::size_t>(part.width);
    for (int64_t first = 0; first < part.height; first += most) {
        const int64_t count = std::min(most, part.height - first);
        rows.look_behind(first, count, behind);
        for (int64_t y = 0; y < count; ++y) {
            const std::size_t at = static_cast<std::size_t>(y) * width;
            rows.make(strip.data() + at * rows.bytes(), first + y, behind.data() + at * grx::kTrueBytes);
        }
        grx_trace_image_dans_widget(target.type, target.number, strip.data(), static_cast<INT>(part.width),
            static_cast<INT>(count), static_cast<INT>(shown.x + part.x), static_cast<INT>(shown.y + part.y + first));
    }
    return 1;
}

} // namespace

extern "C" {

INT grx_affiche_image_etiree(INT type, INT bou_fen, const GRX_IMAGE* image, INT x, INT y, INT largeur, INT hauteur) {
    const bool sides = largeur >= 1 && hauteur >= 1 && largeur <= kLongestShown && hauteur <= kLongestShown;
    if (grx::receiver != nullptr && sides && grx::is_image(image))
        return hand_over(*image, type, bou_fen, {x, y, largeur, hauteur});
    Target target{type, bou_fen, None, {}};
    if (const INT fault = find_target(target); fault != 1) return fault;
    if (!sides || !grx::is_image(image)) return grx::refused(GRX_ECHEC_PARAMETRE, "image, largeur, hauteur");
    return show(*image, target, {x, y, largeur, hauteur});
}

INT grx_affiche_image(INT type, INT bou_fen, const GRX_IMAGE* image, INT x, INT y) {
    if (grx::receiver != nullptr && grx::is_image(image))
        return hand_over(*image, type, bou_fen, {x, y, image->largeur, image->hauteur});
    Target target{type, bou_fen, None, {}};
    if (const INT fault = find_target(target); fault != 1) return fault;
    if (!grx::is_image(image)) return grx::refused(GRX_ECHEC_PARAMETRE, "image");
    return show(*image, target, {x, y, image->largeur, image->hauteur});
}
}
