// Draws letters that are too large to be kept, as far as they can be seen: their lines are cut to the target and rendered a
// band of rows at a time.
#include "drawing/large_letters.h"

#include FT_OUTLINE_H

#include <X11/Xutil.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "pure/polygon_clip.h"
#include "display/render.h"
#include "drawing/bit_runs.h"
#include "drawing/text_target.h"
#include "fonts/path_buffer.h"

namespace grx {

namespace {

constexpr int kBandRows = 64;
constexpr double kTolerance = 0.2;
constexpr std::size_t kMostPoints = 30000; // FreeType counts them in 16 bits

// Closed lines as FreeType wants them, in 64ths of a pixel, y upwards, where the band's last row begins at 0.
struct Lines {
    Block<FT_Vector> points;
    Block<char> tags;
    Block<short> ends;
    std::size_t nb_points = 0, nb_ends = 0;
    double x_min = 0, x_max = 0, y_min = 0, y_max = 0; // pixels, y downwards

    bool make(std::size_t most_points, std::size_t most_ends) {
        points = Block<FT_Vector>(most_points);
        tags = Block<char>(most_points);
        ends = Block<short>(most_ends);
        return points && tags && ends;
    }
    void take(std::span<const Vertex> polygon) {
        if (polygon.size() < 3) return;
        for (const Vertex& p : polygon) {
            note(p, nb_points == 0);
            tags[nb_points] = FT_CURVE_TAG_ON;
            points[nb_points++] = {std::lround(p.x * 64), -std::lround(p.y * 64)};
        }
        ends[nb_ends++] = static_cast<short>(nb_points - 1);
    }
    FT_Outline outline() {
        FT_Outline o{};
        o.n_contours = static_cast<short>(nb_ends);
        o.n_points = static_cast<short>(nb_points);
        o.points = points.data();
        o.tags = tags.data();
        o.contours = ends.data();
        return o;
    }

  private:
    void note(Vertex p, bool first) {
        x_min = first ? p.x : std::min(x_min, p.x);
        x_max = first ? p.x : std::max(x_max, p.x);
        y_min = first ? p.y : std::min(y_min, p.y);
        y_max = first ? p.y : std::max(y_max, p.y);
    }
};

// Cuts polygons to a box; needs room for each side's result.
class Cutter {
  public:
    explicit Cutter(Size size) {
        constexpr double margin = 2;
        sides_ = {HalfPlane{1, 0, margin}, HalfPlane{-1, 0, size.width + margin}, HalfPlane{0, 1, margin},
            HalfPlane{0, -1, size.height + margin}};
    }
    // What is left of a polygon, or false when memory is short.
    bool cut(std::span<const GRX_POINT_REEL> polygon, std::span<const Vertex>& left) {
        if (!room(now_, polygon.size())) return false;
        std::transform(polygon.begin(), polygon.end(), now_.begin(), [](const GRX_POINT_REEL& p) {
            return Vertex{p.x, p.y};
        });
        std::size_t count = polygon.size();
        for (const HalfPlane& side : sides_) {
            if (!room(next_, 2 * count)) return false;
            count = clip_polygon(now_.span().first(count), side, next_.data());
            std::swap(now_, next_);
        }
        left = now_.span().first(count);
        return true;
    }

  private:
    static bool room(Block<Vertex>& block, std::size_t wanted) {
        return wanted <= block.size() || wanted == 0 || block.resize(wanted);
    }

    std::array<HalfPlane, 4> sides_;
    Block<Vertex> now_, next_;
};

// Only what lies in the target is left. True also when nothing is.
bool cut_lines(const PathBuffer& paths, Size size, Lines& lines) {
    Cutter cutter(size);
    std::size_t most = 0;
    for (std::size_t i = 0; i < paths.paths(); ++i) most = std::max(most, paths.path(i).size());
    if (!lines.make(std::max<std::size_t>(kMostPoints, 1), std::max<std::size_t>(paths.paths(), 1))) return false;
    for (std::size_t i = 0; i < paths.paths(); ++i) {
        std::span<const Vertex> left;
        if (!cutter.cut(paths.path(i), left)) return false;
        if (lines.nb_points + left.size() > kMostPoints) return true; // no letter: a damaged font
        lines.take(left);
    }
    return true;
}

// What soft bands go through: a picture of the server's of one byte a pixel.
class SoftBand {
  public:
    SoftBand(const TextTarget& target, unsigned long colour, int width, std::size_t pitch)
        : target_(target), colour_(colour_picture(colour)),
          pixmap_(XCreatePixmap(x11_disp, target.drawable, static_cast<unsigned int>(width), kBandRows, 8)),
          context_(XCreateGC(x11_disp, pixmap_, 0, nullptr)),
          mask_(XRenderCreatePicture(
              x11_disp, pixmap_, XRenderFindStandardFormat(x11_disp, PictStandardA8), 0, nullptr)) {
        image_.width = width;
        image_.height = kBandRows;
        image_.format = ZPixmap;
        image_.byte_order = image_.bitmap_bit_order = LSBFirst;
        image_.bitmap_unit = image_.bitmap_pad = 32;
        image_.depth = image_.bits_per_pixel = 8;
        image_.bytes_per_line = static_cast<int>(pitch);
        XInitImage(&image_);
    }
    ~SoftBand() {
        XRenderFreePicture(x11_disp, mask_);
        XFreeGC(x11_disp, context_);
        XFreePixmap(x11_disp, pixmap_);
    }
    SoftBand(const SoftBand&) = delete;
    SoftBand& operator=(const SoftBand&) = delete;

    void show(GlyphImage& band, int x, int y) {
        image_.data = reinterpret_cast<char*>(band.rows.data());
        const auto width = static_cast<unsigned int>(band.width);
        XPutImage(x11_disp, pixmap_, context_, &image_, 0, 0, 0, 0, width, kBandRows);
        XRenderComposite(x11_disp, PictOpOver, colour_, mask_, target_.picture(), 0, 0, 0, 0, x, y, width, kBandRows);
    }

  private:
    SoftTarget target_;
    Picture colour_;
    Pixmap pixmap_;
    GC context_;
    Picture mask_;
    XImage image_{};
};

struct Area {
    int left, top, width, height;
};

Area pixels_of(const Lines& lines) {
    const int left = static_cast<int>(std::floor(lines.x_min)), top = static_cast<int>(std::floor(lines.y_min));
    return {left, top, static_cast<int>(std::ceil(lines.x_max)) - left, static_cast<int>(std::ceil(lines.y_max)) - top};
}

// Renders band after band and hands each to `show` with its top.
template <class Show>
bool for_each_band(Lines& lines, const Area& area, Ink ink, Show show) {
    GlyphImage band;
    FT_Outline outline = lines.outline();
    FT_Outline_Translate(&outline, -area.left * 64, (area.top + kBandRows) * 64);
    for (int top = area.top; top < area.top + area.height; top += kBandRows) {
        if (!size_image(band, area.width, kBandRows, ink)) return false;
        if (render_outline(outline, ink, band) == Rendered::NoMemory) return false;
        show(band, top);
        FT_Outline_Translate(&outline, 0, kBandRows * 64);
    }
    return true;
}

bool draw_lines(const TextTarget& target, Lines& lines, Ink ink, unsigned long colour) {
    if (lines.nb_ends == 0) return true;
    const Area area = pixels_of(lines);
    if (area.width <= 0 || area.height <= 0) return true;
    if (ink != Ink::Soft) {
        RunDrawer runs(target.drawable);
        return for_each_band(lines, area, ink, [&](GlyphImage& band, int top) {
            runs.add_bits(band.rows.data(), band.pitch, band.width, band.height, area.left, top);
        });
    }
    SoftBand soft(target, colour, area.width, (static_cast<std::size_t>(area.width) + 3) / 4 * 4);
    return for_each_band(lines, area, ink, [&](GlyphImage& band, int top) { soft.show(band, area.left, top); });
}

} // namespace

bool draw_large_letter(const TextTarget& target, const Font& font, const Letter& letter, const Affine& place, Ink ink,
    unsigned long colour) {
    PathBuffer paths;
    walk_letter(font, letter, place, kTolerance, paths);
    Lines lines;
    if (!paths.end(true) || freetype_was_refused() || !cut_lines(paths, target.size, lines)) return false;
    return draw_lines(target, lines, ink, colour);
}

} // namespace grx
