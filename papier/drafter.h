// Makes marks of the primitives that a paper receives.
#pragma once

#include "grx_plus_papier.h"
#include "grx_plus_recepteur.h"
#include "grx_plus_textes.h"
#include "papier/growing.h"
#include "papier/inks.h"
#include "papier/lines.h"
#include "papier/marks.h"
#include "papier/setup.h"

namespace papier {

/// Lines of one pen that follow each other make one mark, and so do rectangles of one ink. flush() gives the last mark.
class Drafter {
  public:
    /// Takes the application's choices. `most_steps` is how long a mark may get. False when memory is short.
    bool begin(const GRX_PAPIER& paper, const Layout& layout, Marked& marks, std::size_t most_steps);

    bool wants(INT target, INT number) const {
        return number_ == kAnyNumber || (target == target_ && number == number_);
    }

    void point(const GRX_POINT& point);
    void segment(const GRX_SEGMENT& segment);
    void rectangle(const GRX_RECTANGLE& rectangle);
    void filled_rectangle(const GRX_RECTANGLE& rectangle);
    void arc(const GRX_ARC& arc);
    void filled_arc(const GRX_ARC& arc);
    void polyline(const GRX_POLY& poly);
    void polygon(const GRX_POLY& poly);
    void text(INT target, const GRX_TEXTE& text);
    void drawing_text(const GRX_TEXTE& text);
    void picture(const GRX_IMAGE_RECUE& picture);
    void link(INT x, INT y, INT width, INT height, const char* uri);

    void flush();

    /// False once memory was short, or a picture too large for the paper.
    bool complete() const { return complete_; }
    bool pictures_fit() const { return pictures_fit_; }

  private:
    static constexpr INT kAnyNumber = -1;
    enum class Kind { none, stroke, fill };

    // Where the middle of a pixel lies on the paper.
    Point at(double x, double y) const {
        return {(x - layout_.x + .5) * layout_.mm_per_pixel, (y - layout_.y + .5) * layout_.mm_per_pixel};
    }
    void begin_stroke(const GRX_ATTRIBUTS_TRACER& attrib);
    void begin_fill(const GRX_ATTRIBUTS_TRACER& attrib, bool even_odd);
    void add(Step step, Point p);
    void add_line(const Line& line);
    void add_lines(std::span<const Point> points, bool closed);
    void add_joined(std::span<const Point> points, bool closed);
    void add_ellipse(const Ellipse& ellipse);
    void add_arc(Point from, const Ellipse& ellipse);
    void add_chords(const Ellipse& ellipse);
    void add_area(Growing<Point>& area);
    bool take_points(const GRX_POLY& poly);
    bool exact(Point p) const { return exact_.holds(p); }
    bool exact(const Ellipse& e) const;
    bool all_exact(std::span<const Point> points) const;
    bool take_pixels(const GRX_IMAGE_RECUE& picture);
    void take_row(const GRX_IMAGE_RECUE& picture, std::size_t first, uint32_t* out);
    void add_contours(const GRX_CONTOURS_TEXTE& contours);
    void letters(const GRX_TEXTE& text, Point base, double height, double width, INT colour);
    void plotted_letters(GRX_TEXTE text, INT x, INT y, double height, double width, INT colour);

    Marked* marks_ = nullptr;
    Layout layout_{};
    Inks inks_;
    INT target_ = 0, number_ = kAnyNumber;
    double text_height_ = 0;
    bool strokes_only_ = false;
    Box visible_{}, near_{}, exact_{};
    Kind kind_ = Kind::none;
    Pen pen_{};
    Ink ink_{};
    std::size_t most_steps_ = 0;
    Growing<PathStep> path_;
    Growing<Point> points_, work_;
    Growing<char> text_;
    Growing<uint32_t> pixels_;
    bool complete_ = true, pictures_fit_ = true;
};

} // namespace papier
