// Shows whole pictures of the application in a window or a control, as they are or stretched.
#include "drawing/pictures.h"

#include <X11/Xlib.h>

#include <algorithm>
#include <cstring>

#include "pure/pixels.h"
#include "pure/size.h"
#include "system/block.h"
#include "display/images.h"
#include "display/pixmaps.h"
#include "display/screen.h"
#include "drawing/attributes.h"
#include "drawing/backing.h"
#include "drawing/layers.h"
#include "drawing/limit.h"
#include "drawing/receiver.h"
#include "drawing/transfer.h"
#include "xt_gfx_f.h"
#include "xt_ini_t.h"

namespace {

Window win_reel = None;
Pixmap* pix_back = nullptr;

// Where a picture goes: to the screen and to the backing picture of a window or a control. The backing picture of a
// control may have another size than the control, because it stays when the control is resized.
struct PictureTarget {
    Window window = None;
    Pixmap* backing = nullptr;
    grx::Size size; // the larger of both
    bool alike = true;
};

PictureTarget target_of(INT type, INT bou_fen) {
    if (type == GRX_CIBLE_FENETRE) {
        const grx::Backing backing = grx::backing_of(bou_fen);
        return {backing.window, backing.holder, grx::window_size(bou_fen)};
    }
    const grx::ButtonBacking backing = grx::button_backing(bou_fen);
    if (backing.window == None || backing.record->image == None) return {backing.window, nullptr, backing.size};
    const grx::Size held = grx::pixmap_size(backing.record->image);
    Pixmap* const image =
        held == grx::Size{} ? nullptr : &backing.record->image; // the record may hold the id of a freed one
    return {backing.window, image,
        {std::max(held.width, backing.size.width), std::max(held.height, backing.size.height)}, held == backing.size};
}

bool select_picture_target(INT type, INT bou_fen, PictureTarget& target) {
    target = target_of(type, bou_fen);
    if (target.window == None || g_c == nullptr) return false;
    win_reel = target.window;
    pix_back = target.backing;
    grx::forget_background();
    grx::apply_background();
    if (type == GRX_CIBLE_FENETRE) grx::take_layers_off(bou_fen);
    grx::hold_to_limit(target.window);
    return true;
}

// The part of a picture that lies on its target.
struct VisiblePart {
    int from_x, from_y; // in the picture
    int x, y;           // on the target
    grx::ImageSize size;
    bool empty() const { return size.width <= 0 || size.height <= 0; }
};

VisiblePart visible_part(const grx::Size& target, INT x, INT y, INT width, INT height) {
    const int64_t left = std::max<int64_t>(x, 0);
    const int64_t top = std::max<int64_t>(y, 0);
    const int64_t right = std::min<int64_t>(int64_t{x} + width, target.width);
    const int64_t bottom = std::min<int64_t>(int64_t{y} + height, target.height);
    if (right <= left || bottom <= top) return {0, 0, 0, 0, {0, 0}};
    return {static_cast<int>(left - x), static_cast<int>(top - y), static_cast<int>(left), static_cast<int>(top),
        {static_cast<int>(right - left), static_cast<int>(bottom - top)}};
}

std::size_t source_bytes() {
    return grx::deep_screen() ? 3 : 1;
}

// Puts a strip of rows into the backing picture and copies it from there to the window. When the two have different
// sizes, one may have room for rows that the other lacks, so that the strip is put into both.
void show_strip(grx::Transfer& t, const PictureTarget& target, const VisiblePart& part, int first, int rows) {
    const int y = part.y + first;
    grx::put_rows(t, *target.backing, g_c, part.x, part.y, first, rows);
    if (target.alike) {
        XCopyArea(x11_disp, *target.backing, target.window, g_c, part.x, y, static_cast<unsigned int>(part.size.width),
            static_cast<unsigned int>(rows), part.x, y);
    } else {
        grx::put_rows(t, target.window, g_c, part.x, part.y, first, rows);
    }
    if (t.shared()) XFlush(x11_disp); // without shared memory the pixels themselves fill the buffer, which is then sent
}

// Makes and shows a picture; `make_row(image, row, y)` fills a row of the image with row y of the picture.
template <class MakeRow>
void show_picture(const PictureTarget& target, const VisiblePart& part, MakeRow make_row) {
    grx::Transfer t = grx::begin_transfer(part.size);
    if (t.image == nullptr) return;
    for (int first = 0; first < part.size.height; first += t.strip_rows) {
        const int rows = std::min(t.strip_rows, part.size.height - first);
        for (int i = 0; i < rows; ++i) make_row(t.image, t.row_of(first) + i, first + i);
        show_strip(t, target, part, first, rows);
    }
    XFlush(x11_disp);
    grx::end_transfer(t);
}

// Turns rows of the application's picture into the pixels of the screen.
class RowPacker {
  public:
    RowPacker() : deep_({dec_red, dec_green, dec_blue}) {}
    void pack(const XImage* image, int y, const uchar* source, std::size_t count) const {
        if (!grx::deep_screen()) {
            auto* const out = grx::image_row<uchar>(image, y);
            for (std::size_t i = 0; i < count; ++i) out[i] = static_cast<uchar>(trace_pix[source[i]]);
        } else if (image->bits_per_pixel == 32) {
            deep_.row(grx::image_row<uint32_t>(image, y), source, count);
        } else {
            pack_narrow(image, y, source, count);
        }
    }

    // Writes each pixel as a 32-bit value, whatever form the image has.
    void pack_values(uint32_t* out, const uchar* source, std::size_t count) const {
        if (grx::deep_screen()) {
            deep_.row(out, source, count);
            return;
        }
        for (std::size_t i = 0; i < count; ++i) out[i] = static_cast<uint32_t>(trace_pix[source[i]]) & 255U;
    }

  private:
    void pack_narrow(const XImage* image, int y, const uchar* source, std::size_t count) const {
        auto* out = grx::image_row<uchar>(image, y);
        const auto bytes = static_cast<std::size_t>(image->bits_per_pixel / 8);
        for (std::size_t i = 0; i < count; ++i, out += bytes) {
            uint32_t pixel = 0;
            deep_.row(&pixel, source + 3 * i, 1);
            grx::store_pixel(out, pixel, bytes);
        }
    }
    grx::DeepPacker deep_;
};

void draw_picture(const PictureTarget& target, const uchar* pixels, INT width, const VisiblePart& part) {
    const RowPacker packer;
    const std::size_t row_bytes = static_cast<std::size_t>(width) * source_bytes();
    const uchar* const first = pixels + static_cast<std::size_t>(part.from_y) * row_bytes
                               + static_cast<std::size_t>(part.from_x) * source_bytes();
    show_picture(target, part, [&](const XImage* image, int row, int y) {
        const uchar* const source = first + static_cast<std::size_t>(y) * row_bytes;
        packer.pack(image, row, source, static_cast<std::size_t>(part.size.width));
    });
}

// Stretches a picture of the application to the size it is shown in.
class Stretch {
  public:
    Stretch(const uchar* pixels, INT width, INT height) : pixels_(pixels), width_(width), height_(height) {}

    // Only the part on the target is worked out, because the whole may be very large.
    bool prepare(INT final_width, INT final_height, const VisiblePart& part) {
        columns_ = grx::Block<int32_t>::raw(static_cast<std::size_t>(part.size.width));
        rows_ = grx::Block<int32_t>::raw(static_cast<std::size_t>(part.size.height));
        source_row_ = grx::Block<uint32_t>(static_cast<std::size_t>(width_) + grx::kSpreadSlack);
        if (!columns_ || !rows_ || !source_row_) return false;
        grx::scale_map(columns_.span(), {width_, final_width, part.from_x});
        grx::scale_map(rows_.span(), {height_, final_height, part.from_y});
        prepare_steps();
        return true;
    }

    // A row that comes from the same source row as the one before is copied from that one.
    void fill_row(const XImage* image, int row, int destination) {
        const int32_t source = rows_[static_cast<std::size_t>(destination)];
        if (row > 0 && source == made_from_) {
            std::memcpy(grx::image_row<uchar>(image, row), grx::image_row<uchar>(image, row - 1),
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
    // There are no steps when memory is short or the picture is reduced. Then the columns are taken one by one.
    void prepare_steps() {
        constexpr std::size_t group = 4;
        if (columns_.size() < group) return;
        steps_ = grx::Block<grx::SpreadStep>(columns_.size() / group);
        if (steps_ && !grx::make_spread_steps(steps_.span(), columns_.span())) steps_.reset();
    }
    void spread(const XImage* image, int y) const {
        if (image->bits_per_pixel == 32) {
            grx::spread_row(grx::image_row<uint32_t>(image, y), source_row_.data(), columns_.span(), steps_.span());
            return;
        }
        auto* out = grx::image_row<uchar>(image, y);
        const auto bytes = static_cast<std::size_t>(image->bits_per_pixel / 8);
        for (const int32_t column : columns_.span()) {
            grx::store_pixel(out, source_row_[static_cast<std::size_t>(column)], bytes);
            out += bytes;
        }
    }

    const uchar* pixels_;
    INT width_, height_;
    RowPacker packer_;
    grx::Block<int32_t> columns_, rows_; // of the part on the target
    grx::Block<grx::SpreadStep> steps_;
    grx::Block<uint32_t> source_row_; // the pixel values of one source row
    int32_t made_from_ = -1;
};

} // namespace

namespace grx {

bool usable_picture(const uchar* pixels, INT width, INT height) {
    return pixels != nullptr && width > 0 && height > 0;
}

} // namespace grx

extern "C" {

void grx_alloue_image_reel(INT type, INT bou_fen) {
    if (grx::receiver != nullptr) return;
    PictureTarget target;
    select_picture_target(type, bou_fen, target);
}

void grx_desalloue_image_reel(INT, INT) {
    // the target stays selected
}

void grx_trace_image_dans_widget(INT type, INT bou_fen, uchar* tab_pix_fac, INT largeur, INT hauteur, INT x, INT y) {
    const bool deep = grx::deep_screen();
    if (grx::received_picture(type, {0, bou_fen, largeur, hauteur, x, y, largeur, hauteur, deep ? tab_pix_fac : nullptr,
                                        deep ? nullptr : tab_pix_fac, nullptr}))
        return;
    PictureTarget target;
    if (!select_picture_target(type, bou_fen, target)) return;
    if (target.backing == nullptr || !grx::usable_picture(tab_pix_fac, largeur, hauteur)) return;
    const VisiblePart part = visible_part(target.size, x, y, largeur, hauteur);
    if (!part.empty()) draw_picture(target, tab_pix_fac, largeur, part);
}

void grx_trace_image_reel_xy(
    INT type, INT bou_fen, uchar* tab_pixfac_24, uchar* tab_pixfac_8, INT largeur, INT hauteur, INT x, INT y) {
    if (grx::received_picture(
            type, {0, bou_fen, largeur, hauteur, x, y, largeur, hauteur, tab_pixfac_24, tab_pixfac_8, nullptr}))
        return;
    grx_trace_image_dans_widget(
        type, bou_fen, grx::deep_screen() ? tab_pixfac_24 : tab_pixfac_8, largeur, hauteur, x, y);
}

void grx_stretch_image(INT type, INT bou_fen, uchar* tab_pix_fac_24, uchar* tab_pix_fac_8, INT largeur, INT hauteur,
    INT dx, INT dy, INT l_finale, INT h_finale) {
    if (grx::received_picture(
            type, {0, bou_fen, largeur, hauteur, dx, dy, l_finale, h_finale, tab_pix_fac_24, tab_pix_fac_8, nullptr}))
        return;
    if (l_finale == largeur && h_finale == hauteur) {
        grx_trace_image_reel_xy(type, bou_fen, tab_pix_fac_24, tab_pix_fac_8, largeur, hauteur, dx, dy);
        return;
    }
    PictureTarget target;
    if (!select_picture_target(type, bou_fen, target) || target.backing == nullptr) return;
    const uchar* const pixels = grx::deep_screen() ? tab_pix_fac_24 : tab_pix_fac_8;
    if (!grx::usable_picture(pixels, largeur, hauteur) || l_finale <= 0 || h_finale <= 0) return;
    const VisiblePart part = visible_part(target.size, dx, dy, l_finale, h_finale);
    Stretch stretch(pixels, largeur, hauteur);
    if (part.empty() || !stretch.prepare(l_finale, h_finale, part)) return;
    show_picture(target, part, [&](const XImage* image, int row, int y) { stretch.fill_row(image, row, y); });
}
}
