// Writes marks as PDF, SVG or PostScript, by cairo.
#include "papier/cairo_paper.h"

#include <cairo-pdf.h>
#include <cairo-ps.h>
#include <cairo-svg.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <numbers>

#include "grx_plus_erreurs.h"
#include "papier/dashes.h"
#include "papier/inks.h"
#include "papier/lines.h"
#include "papier/sheet_signs.h"
#include "papier/utf8.h"

namespace papier {

namespace {

constexpr double kPoints = 72 / 25.4; // in a millimetre
constexpr double kTolerance = .005;   // mm by which cairo's curves may be off

cairo_status_t write_bytes(void* file, const unsigned char* bytes, unsigned int count) {
    const bool written = static_cast<TargetFile*>(file)->write(std::span(bytes, count));
    return written ? CAIRO_STATUS_SUCCESS : CAIRO_STATUS_WRITE_ERROR;
}

bool makes_pdf(INT kind) {
    return kind == GRX_PAPIER_PDF || kind == GRX_PAPIER_IMPRIMANTE;
}

double radians(double degrees) {
    return degrees * std::numbers::pi / 180;
}

INT code_of(cairo_status_t status) {
    if (status == CAIRO_STATUS_SUCCESS) return 1;
    if (status == CAIRO_STATUS_NO_MEMORY) return GRX_ECHEC_MEMOIRE;
    return status == CAIRO_STATUS_WRITE_ERROR ? GRX_ECHEC_FICHIER : GRX_ECHEC_FORMAT;
}

} // namespace

// --- the document ---------------------------------------------------------------------------------------------------

cairo_surface_t* CairoPaper::surface_for(const GRX_PAPIER& paper, TargetFile& file) const {
    const double width = layout_.sheet_width * kPoints, height = layout_.sheet_height * kPoints;
    if (paper.genre == GRX_PAPIER_SVG) return cairo_svg_surface_create_for_stream(write_bytes, &file, width, height);
    if (paper.genre == GRX_PAPIER_PS) return cairo_ps_surface_create_for_stream(write_bytes, &file, width, height);
    return cairo_pdf_surface_create_for_stream(write_bytes, &file, width, height);
}

namespace {

// Comments of PostScript take 255 characters, in ASCII.
void comment(cairo_surface_t* surface, const char* key, const char* text) {
    std::array<char, 200> line{};
    const int length = std::snprintf(line.data(), line.size(), "%%%%%s: %s", key, text);
    for (int i = 0; i < length && i < static_cast<int>(line.size()) - 1; ++i) {
        char& c = line[static_cast<std::size_t>(i)];
        if (c < ' ' || c > '~') c = '?';
    }
    cairo_ps_surface_dsc_comment(surface, line.data());
}

struct DocumentText {
    const char* text;
    cairo_pdf_metadata_t of_pdf;
    const char* of_ps;
};

} // namespace

INT CairoPaper::take_texts(const GRX_PAPIER& paper) {
    const std::array texts{DocumentText{paper.titre, CAIRO_PDF_METADATA_TITLE, "Title"},
        DocumentText{paper.auteur, CAIRO_PDF_METADATA_AUTHOR, "For"},
        DocumentText{paper.sujet, CAIRO_PDF_METADATA_SUBJECT, nullptr}};
    for (const auto& [text, of_pdf, of_ps] : texts) {
        if (text == nullptr || text[0] == '\0') continue;
        if (!take_text(text, work_)) return GRX_ECHEC_MEMOIRE;
        if (makes_pdf(kind_)) cairo_pdf_surface_set_metadata(surface_, of_pdf, work_.data());
        if (kind_ == GRX_PAPIER_PS && of_ps != nullptr) comment(surface_, of_ps, work_.data());
    }
    const bool named = paper.police != nullptr && paper.police[0] != '\0';
    return take_text(named ? paper.police : "sans-serif", font_) ? 1 : GRX_ECHEC_MEMOIRE;
}

INT CairoPaper::begin(const GRX_PAPIER& paper, const Layout& layout, TargetFile& file) {
    layout_ = layout;
    kind_ = paper.genre;
    const bool signs = paper.reperes == 2 || (paper.reperes == 1 && layout.sheets() > 1);
    signs_ = signs ? 1 : 0;
    surface_ = surface_for(paper, file);
    status_ = cairo_surface_status(surface_);
    if (status_ != CAIRO_STATUS_SUCCESS) return code_of(status_);
    if (const INT code = take_texts(paper); code != 1) return code;
    cairo_ = cairo_create(surface_);
    cairo_set_tolerance(cairo_, kTolerance * kPoints);
    cairo_set_line_cap(cairo_, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(cairo_, CAIRO_LINE_JOIN_ROUND);
    keep_status();
    return code_of(status_);
}

void CairoPaper::keep_status() {
    if (status_ == CAIRO_STATUS_SUCCESS && cairo_ != nullptr) status_ = cairo_status(cairo_);
    if (status_ == CAIRO_STATUS_SUCCESS && surface_ != nullptr) status_ = cairo_surface_status(surface_);
}

INT CairoPaper::finish() {
    keep_status();
    if (surface_ != nullptr) cairo_surface_finish(surface_);
    keep_status();
    const INT code = code_of(status_);
    drop();
    return code;
}

void CairoPaper::drop() {
    if (cairo_ != nullptr) cairo_destroy(cairo_);
    if (surface_ != nullptr) cairo_surface_destroy(surface_);
    cairo_ = nullptr;
    surface_ = nullptr;
}

// --- sheets ---------------------------------------------------------------------------------------------------------

void CairoPaper::begin_sheet(INT column, INT row) {
    const Point origin = layout_.origin(column, row);
    const Box shown = layout_.shown(column, row);
    set_colour(
        kWhite); // cairo adds up what the marks cover, which takes the square of their number unless all is covered
    cairo_paint(cairo_);
    cairo_save(cairo_);
    cairo_scale(cairo_, kPoints, kPoints);
    cairo_translate(cairo_, origin.x, origin.y);
    cairo_rectangle(cairo_, shown.left, shown.top, shown.width(), shown.height());
    cairo_clip(cairo_);
    cairo_select_font_face(cairo_, font_.data(), CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    pen_ = {};
}

void CairoPaper::end_sheet(INT column, INT row) {
    cairo_restore(cairo_);
    if (signs_ != 0) put_signs(column, row);
    cairo_show_page(cairo_);
    ++sheets_;
}

void CairoPaper::put_signs(INT column, INT row) {
    cairo_save(cairo_);
    cairo_scale(cairo_, kPoints, kPoints);
    if (crop_marks(layout_, column, row, marks_)) stroke({kSignWidth, 0, 1, 0, 0}, marks_.span());
    const SheetName name = sheet_name(layout_, column, row);
    cairo_select_font_face(cairo_, "sans-serif", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
    if (name.text[0] != '\0') text({name.base.x, name.base.y, kSignHeight, 0, 0, 1}, name.text);
    cairo_restore(cairo_);
}

// --- marks ----------------------------------------------------------------------------------------------------------

void CairoPaper::set_colour(uint32_t rgb) {
    constexpr double full = 255;
    cairo_set_source_rgb(cairo_, (rgb >> 16 & 255) / full, (rgb >> 8 & 255) / full, (rgb & 255) / full);
}

// Round ends would fill the gaps between dashes.
void CairoPaper::set_pen(const Pen& pen) {
    if (pen == pen_) return;
    std::array<double, 8> lengths{};
    const auto dashes = dashes_of(pen.dash);
    std::transform(dashes.begin(), dashes.end(), lengths.begin(), [&](double length) { return length * pen.unit; });
    cairo_set_dash(cairo_, lengths.data(), static_cast<int>(dashes.size()), 0);
    cairo_set_line_cap(cairo_, dashes.empty() ? CAIRO_LINE_CAP_ROUND : CAIRO_LINE_CAP_BUTT);
    cairo_set_line_width(cairo_, pen.width);
    pen_ = pen;
}

namespace {

void trace_arc(cairo_t* cairo, const Ellipse& e) {
    const double from = -radians(e.start), to = -radians(e.start + e.extent);
    cairo_save(cairo);
    cairo_translate(cairo, e.centre.x, e.centre.y);
    cairo_scale(cairo, e.rx, e.ry);
    if (e.extent >= 0) {
        cairo_arc_negative(cairo, 0, 0, 1, from, to);
    } else {
        cairo_arc(cairo, 0, 0, 1, from, to);
    }
    cairo_restore(cairo);
}

} // namespace

void CairoPaper::trace(Path path) {
    for (std::size_t i = 0; i < path.size(); ++i) {
        const PathStep& s = path[i];
        switch (s.step) {
        case Step::move: cairo_move_to(cairo_, s.x, s.y); break;
        case Step::line: cairo_line_to(cairo_, s.x, s.y); break;
        case Step::close: cairo_close_path(cairo_); break;
        case Step::arc:
            trace_arc(cairo_, ellipse_at(path, i));
            i += 2;
            break;
        case Step::half_axes:
        case Step::angles: break; // of an arc
        }
    }
}

void CairoPaper::stroke(const Pen& pen, Path path) {
    set_colour(pen.rgb);
    set_pen(pen);
    trace(path);
    cairo_stroke(cairo_);
}

void CairoPaper::fill(const Ink& ink, Path path) {
    set_colour(ink.rgb);
    cairo_set_fill_rule(cairo_, ink.even_odd ? CAIRO_FILL_RULE_EVEN_ODD : CAIRO_FILL_RULE_WINDING);
    trace(path);
    cairo_fill(cairo_);
}

// In steps of a hundredth, because each stretch makes a font of its own.
double CairoPaper::stretch(const TextMark& mark, const char* text) {
    constexpr double least = .25, most = 4, step = .01;
    cairo_text_extents_t extents{};
    cairo_text_extents(cairo_, text, &extents);
    if (mark.width <= 0 || extents.x_advance <= 0) return 1;
    return std::round(std::clamp(mark.width / extents.x_advance, least, most) / step) * step;
}

void CairoPaper::text(const TextMark& mark, std::span<const char> utf8) {
    cairo_font_extents_t font{};
    cairo_set_font_size(cairo_, mark.height);
    cairo_font_extents(cairo_, &font);
    const double high = font.ascent + font.descent;
    if (high > 0) cairo_set_font_size(cairo_, mark.height * mark.height / high);
    const double wider = stretch(mark, utf8.data());
    set_colour(mark.rgb);
    cairo_save(cairo_);
    cairo_translate(cairo_, mark.x, mark.y);
    cairo_scale(cairo_, wider, 1);
    cairo_move_to(cairo_, 0, 0);
    cairo_show_text(cairo_, utf8.data());
    cairo_restore(cairo_);
    cairo_new_path(cairo_);
}

void CairoPaper::picture(const PictureMark& mark, std::span<const uint32_t> pixels) {
    auto* const bytes = const_cast<unsigned char*>(reinterpret_cast<const unsigned char*>(pixels.data()));
    constexpr INT pixel_bytes = 4;
    cairo_surface_t* const image = cairo_image_surface_create_for_data(
        bytes, CAIRO_FORMAT_ARGB32, mark.width, mark.height, mark.width * pixel_bytes);
    cairo_save(cairo_);
    cairo_translate(cairo_, mark.place.left, mark.place.top);
    cairo_scale(cairo_, mark.place.width() / mark.width, mark.place.height() / mark.height);
    cairo_set_source_surface(cairo_, image, 0, 0);
    cairo_pattern_set_filter(cairo_get_source(cairo_), CAIRO_FILTER_NEAREST);
    cairo_rectangle(cairo_, 0, 0, mark.width, mark.height);
    cairo_fill(cairo_);
    cairo_restore(cairo_);
    cairo_surface_finish(image); // a copy is made of what is still needed
    cairo_surface_destroy(image);
}

namespace {

// A number whose point is one in every locale.
bool add_number(Growing<char>& to, double value) {
    std::array<char, 40> digits{};
    constexpr int64_t parts = 1000;
    const int64_t all = std::llround(std::max(value, 0.0) * parts);
    const int length = std::snprintf(digits.data(), digits.size(), "%lld.%03lld ", static_cast<long long>(all / parts),
        static_cast<long long>(all % parts));
    return to.append(std::span<const char>(digits.data(), static_cast<std::size_t>(length)));
}

bool add_characters(Growing<char>& to, std::string_view text) {
    return to.append(std::span<const char>(text.data(), text.size()));
}

// A URI between quotes. What would end it, for cairo or in the file, is written as its code.
bool add_uri(Growing<char>& to, const char* uri) {
    constexpr std::string_view special = "'\\()";
    bool complete = to.append('\'');
    for (; *uri != '\0'; ++uri) {
        std::array<char, 12> code{*uri};
        if (special.find(*uri) != std::string_view::npos)
            std::snprintf(code.data(), code.size(), "%%%02X", static_cast<unsigned>(*uri));
        complete = add_characters(to, code.data()) && complete;
    }
    return to.append('\'') && complete;
}

} // namespace

// Links are placed in points of the sheet, whatever the scale.
void CairoPaper::link(const Box& place, std::span<const char> uri) {
    if (!makes_pdf(kind_)) return;
    double x = place.left, y = place.top, width = place.width(), height = place.height();
    cairo_user_to_device(cairo_, &x, &y);
    cairo_user_to_device_distance(cairo_, &width, &height);
    work_.clear();
    bool complete = add_characters(work_, "rect=[");
    for (const double number : {x, y, width, height}) complete = add_number(work_, number) && complete;
    complete = add_characters(work_, "] uri=") && add_uri(work_, uri.data()) && work_.append('\0') && complete;
    if (!complete) {
        status_ = CAIRO_STATUS_NO_MEMORY;
        return;
    }
    cairo_save(cairo_);
    cairo_identity_matrix(cairo_);
    cairo_tag_begin(cairo_, CAIRO_TAG_LINK, work_.data());
    cairo_tag_end(cairo_, CAIRO_TAG_LINK);
    cairo_restore(cairo_);
}

void CairoPaper::bookmark(const char* utf8) {
    if (!makes_pdf(kind_)) return;
    std::array<char, 32> place{};
    std::snprintf(place.data(), place.size(), "page=%d", static_cast<int>(sheets_ + 1));
    cairo_pdf_surface_add_outline(
        surface_, CAIRO_PDF_OUTLINE_ROOT, utf8, place.data(), static_cast<cairo_pdf_outline_flags_t>(0));
}

} // namespace papier
