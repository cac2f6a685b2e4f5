// Letters as pixels, by FreeType, for drawing texts.
#include "fonts/glyph_image.h"

#include FT_OUTLINE_H

#include <algorithm>
#include <cmath>
#include <cstring>

#include "fonts/face.h"

namespace grx {

namespace {

constexpr double k64 = 64;

FT_Pos to_64ths(double pixels) {
    return static_cast<FT_Pos>(std::lround(pixels * k64));
}

// Small upright letters are fitted to the rows of pixels.
bool is_hinted(const Affine& place) {
    constexpr double least = 4, most = 40; // of a capital
    return place.xy == 0 && place.yx == 0 && place.xx > 0 && place.yy <= -least && place.yy >= -most;
}

bool load_hinted(FT_Face face, double unit, const Letter& letter, const Affine& place, Ink ink) {
    const double em = unit * face->units_per_EM; // in capitals
    if (FT_Set_Char_Size(face, to_64ths(place.xx * em), to_64ths(-place.yy * em), 0, 0) != 0) return false;
    const FT_Int32 target = ink == Ink::Hard ? FT_LOAD_TARGET_MONO : FT_LOAD_TARGET_LIGHT;
    if (FT_Load_Glyph(face, letter.glyph, FT_LOAD_NO_BITMAP | target) != 0) return false;
    if (face->glyph->format != FT_GLYPH_FORMAT_OUTLINE) return false;
    FT_Outline_Translate(&face->glyph->outline, to_64ths(place.dx), to_64ths(-place.dy));
    return true;
}

bool load_placed(FT_Face face, double unit, const Letter& letter, const Affine& place) {
    if (!load_outline(face, letter.glyph)) return false;
    FT_Outline& outline = face->glyph->outline;
    const Affine from_units = place.scaled(unit);
    for (FT_Vector& point : std::span(outline.points, static_cast<std::size_t>(outline.n_points))) {
        const Vertex v = from_units({static_cast<double>(point.x), static_cast<double>(point.y)});
        point = {to_64ths(v.x), to_64ths(-v.y)};
    }
    if (place.xx * place.yy - place.xy * place.yx > 0) FT_Outline_Reverse(&outline); // mirrored
    return true;
}

void mark_touched(GlyphImage& image) {
    const std::size_t soft_pitch = image.pitch, width = static_cast<std::size_t>(image.width);
    image.pitch = (width + 7) / 8;
    for (std::size_t y = 0; y < static_cast<std::size_t>(image.height); ++y) {
        const unsigned char* const from = image.rows.data() + y * soft_pitch;
        unsigned char* const to = image.rows.data() + y * image.pitch; // never behind `from`
        for (std::size_t x = 0; x < width; x += 8) {
            unsigned int bits = 0;
            for (std::size_t i = 0; i < 8; ++i) bits = bits << 1 | (x + i < width && from[x + i] != 0 ? 1U : 0U);
            to[x / 8] = static_cast<unsigned char>(bits);
        }
    }
}

FT_Pos floor_pixel(FT_Pos v) {
    return v >> 6;
}

FT_Pos ceil_pixel(FT_Pos v) {
    return (v + 63) >> 6;
}

} // namespace

bool size_image(GlyphImage& image, int width, int height, Ink ink) {
    image.width = width;
    image.height = height;
    const auto w = static_cast<std::size_t>(width);
    image.pitch = ink == Ink::Hard ? (w + 7) / 8 : (w + 3) / 4 * 4;
    if (image.bytes() == 0) return true;
    if (image.rows.size() < image.bytes() && !(image.rows = Block<unsigned char>(image.bytes()))) return false;
    std::memset(image.rows.data(), 0, image.bytes());
    return true;
}

Rendered render_outline(FT_Outline& outline, Ink ink, GlyphImage& image) {
    constexpr unsigned short shades = 256;
    FT_Bitmap bitmap{};
    bitmap.rows = static_cast<unsigned int>(image.height);
    bitmap.width = static_cast<unsigned int>(image.width);
    bitmap.pitch = static_cast<int>(image.pitch);
    bitmap.buffer = image.rows.data();
    bitmap.num_grays = shades;
    bitmap.pixel_mode = ink == Ink::Hard ? FT_PIXEL_MODE_MONO : FT_PIXEL_MODE_GRAY;
    FT_Outline_Get_Bitmap(freetype(), &outline, &bitmap);
    if (ink == Ink::Touched) mark_touched(image);
    return freetype_was_refused() ? Rendered::NoMemory : Rendered::Done;
}

Rendered render_letter(const Font& font, const Letter& letter, const Affine& place, Ink ink, GlyphImage& image) {
    image.left = image.top = image.width = image.height = 0;
    const FT_Face face = face_of(font, letter);
    const double unit = unit_of(font, letter);
    const bool loaded =
        (is_hinted(place) && load_hinted(face, unit, letter, place, ink)) || load_placed(face, unit, letter, place);
    if (freetype_was_refused()) return Rendered::NoMemory;
    if (!loaded || face->glyph->outline.n_points == 0) return Rendered::Done;
    FT_Outline& outline = face->glyph->outline;
    FT_BBox box{};
    FT_Outline_Get_CBox(&outline, &box);
    const FT_Pos left = floor_pixel(box.xMin), bottom = floor_pixel(box.yMin);
    const FT_Pos width = ceil_pixel(box.xMax) - left, height = ceil_pixel(box.yMax) - bottom;
    if (width > kLargestImage || height > kLargestImage || std::abs(left) > INT16_MAX || std::abs(bottom) > INT16_MAX)
        return Rendered::TooLarge;
    image.left = static_cast<int>(left);
    image.top = static_cast<int>(-(bottom + height));
    if (!size_image(image, static_cast<int>(width), static_cast<int>(height), ink)) return Rendered::NoMemory;
    if (image.bytes() == 0) return Rendered::Done;
    FT_Outline_Translate(&outline, -left * 64, -bottom * 64);
    return render_outline(outline, ink, image);
}

} // namespace grx
