// One face of a font file: opened, measured, and its outlines as lines, for the fonts of texts.
#include "fonts/face.h"

#include FT_OUTLINE_H

#include <algorithm>
#include <cmath>

#include "grx_plus_erreurs.h"

namespace grx {

namespace {

// What FreeType says while it is refused memory is not about the file.
INT told(bool well, INT otherwise) {
    if (freetype_was_refused()) return GRX_ECHEC_MEMOIRE;
    return well ? 1 : otherwise;
}

bool usable(FT_Face face) {
    return FT_IS_SCALABLE(face) && face->units_per_EM > 0 && face->num_glyphs > 0;
}

// Unicode, else what the face has first.
void choose_characters(FT_Face face) {
    if (face->charmap == nullptr && face->num_charmaps > 0) FT_Set_Charmap(face, face->charmaps[0]);
}

Vertex vertex(const FT_Vector* v) {
    return {static_cast<double>(v->x), static_cast<double>(v->y)};
}

Vertex between(Vertex a, Vertex b, double t) {
    return {a.x + (b.x - a.x) * t, a.y + (b.y - a.y) * t};
}

double bend(Vertex a, Vertex b, Vertex c) {
    return std::hypot(a.x - 2 * b.x + c.x, a.y - 2 * b.y + c.y);
}

// Turns curves into lines on the way to a sink.
class Flattener {
  public:
    Flattener(const Affine& place, double tolerance, PathSink& sink)
        : place_(place), tolerance_(tolerance), sink_(sink) {}

    static int move(const FT_Vector* to, void* self) {
        auto& f = *static_cast<Flattener*>(self);
        f.sink_.move(f.last_ = f.place_(vertex(to)));
        return 0;
    }
    static int line(const FT_Vector* to, void* self) {
        auto& f = *static_cast<Flattener*>(self);
        f.sink_.line(f.last_ = f.place_(vertex(to)));
        return 0;
    }
    static int conic(const FT_Vector* by, const FT_Vector* to, void* self) {
        auto& f = *static_cast<Flattener*>(self);
        f.curve(f.place_(vertex(by)), f.place_(vertex(to)));
        return 0;
    }
    static int cubic(const FT_Vector* by, const FT_Vector* by2, const FT_Vector* to, void* self) {
        auto& f = *static_cast<Flattener*>(self);
        f.curve(f.place_(vertex(by)), f.place_(vertex(by2)), f.place_(vertex(to)));
        return 0;
    }

  private:
    // A curve that bends by `bent` stays within bent / n^2 of n chords.
    int chords(double bent) const {
        constexpr double most = 500;
        return static_cast<int>(std::clamp(std::ceil(std::sqrt(bent / tolerance_)), 1.0, most));
    }
    void curve(Vertex by, Vertex to) {
        const Vertex from = last_;
        const int n = chords(bend(from, by, to) / 4);
        for (int i = 1; i <= n; ++i) {
            const double t = static_cast<double>(i) / n;
            sink_.line(between(between(from, by, t), between(by, to, t), t));
        }
        last_ = to;
    }
    void curve(Vertex by, Vertex by2, Vertex to) {
        const Vertex from = last_;
        const int n = chords(std::max(bend(from, by, by2), bend(by, by2, to)) * 3 / 4);
        for (int i = 1; i <= n; ++i) {
            const double t = static_cast<double>(i) / n;
            const Vertex middle = between(by, by2, t);
            const Vertex a = between(between(from, by, t), middle, t), b = between(middle, between(by2, to, t), t);
            sink_.line(between(a, b, t));
        }
        last_ = to;
    }

    const Affine place_;
    const double tolerance_;
    PathSink& sink_;
    Vertex last_{};
};

// How high a face's outline of a letter is, 0 when it has none.
double letter_height(FT_Face face, FT_ULong character) {
    const FT_UInt glyph = FT_Get_Char_Index(face, character);
    if (glyph == 0 || !load_outline(face, glyph)) return 0;
    FT_BBox box{};
    FT_Outline_Get_CBox(&face->glyph->outline, &box);
    return static_cast<double>(box.yMax);
}

} // namespace

INT open_face(const FontFile& file, FT_Face& face) {
    if (freetype() == nullptr) return GRX_ECHEC_MEMOIRE;
    FT_Face opened = nullptr;
    const bool well = FT_New_Face(freetype(), file.path.data(), file.index, &opened) == 0;
    const INT result = told(well && usable(opened), GRX_ECHEC_FORMAT);
    if (result != 1) {
        if (well) FT_Done_Face(opened);
        return result;
    }
    choose_characters(opened);
    face = opened;
    return 1;
}

double capital_height(FT_Face face) {
    constexpr double usual = 0.7, least = 0.05, most = 4; // of the em
    const double em = face->units_per_EM;
    const double height = letter_height(face, 'H');
    return height > least * em && height < most * em ? height : usual * em;
}

FT_UInt glyph_of(FT_Face face, FT_ULong character) {
    constexpr FT_ULong symbols = 0xF000, last = 0xFF; // where fonts of symbols have theirs
    const FT_UInt glyph = FT_Get_Char_Index(face, character);
    if (glyph != 0 || character > last) return glyph;
    return face->charmap != nullptr && face->charmap->encoding == FT_ENCODING_MS_SYMBOL
               ? FT_Get_Char_Index(face, symbols + character)
               : 0;
}

bool load_outline(FT_Face face, FT_UInt glyph) {
    return FT_Load_Glyph(face, glyph, FT_LOAD_NO_SCALE | FT_LOAD_NO_BITMAP) == 0
           && face->glyph->format == FT_GLYPH_FORMAT_OUTLINE;
}

void walk_outline(FT_Face face, const Affine& place, double tolerance, PathSink& sink) {
    Flattener flattener(place, tolerance, sink);
    FT_Outline_Funcs functions{Flattener::move, Flattener::line, Flattener::conic, Flattener::cubic, 0, 0};
    FT_Outline_Decompose(&face->glyph->outline, &functions, &flattener);
}

} // namespace grx
