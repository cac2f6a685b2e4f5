// Writes marks in the language of pen plotters.
#pragma once

#include <bitset>

#include "grx_plus_papier.h"
#include "papier/growing.h"
#include "papier/lines.h"
#include "papier/marks.h"
#include "papier/recorder.h"
#include "papier/setup.h"
#include "papier/target_file.h"

namespace papier {

class HpglPaper final : public Marked {
  public:
    void begin(const GRX_PAPIER& paper, const Layout& layout, TargetFile& file);

    /// Writes a sheet of a page, pen after pen.
    void put_sheet(const Recorder& page, bool signs, INT column, INT row);
    void finish();

    bool complete() const { return complete_; } // false when memory was short

    void stroke(const Pen& pen, Path path) override;
    void fill(const Ink& ink, Path path) override;
    void text(const TextMark& mark, std::span<const char> utf8) override;
    void picture(const PictureMark& mark, std::span<const uint32_t> pixels) override;
    void link(const Box& place, std::span<const char> uri) override;

  private:
    static constexpr std::size_t kPens = 100;
    bool takes(INT pen);
    void stroke_lines(const Pen& pen, Path path);
    void hatch(const Ink& ink);
    void hatch_line(double across, const Ink& ink);
    void line(Point from, Point to);
    void draw(std::span<const Point> points, bool closed, const Pen& pen);
    void put_signs(INT column, INT row);
    void write_point(Point p);

    TargetFile* file_ = nullptr;
    Layout layout_{};
    double hatching_ = 0;
    Point origin_{};
    Box visible_{};
    std::bitset<kPens> used_;
    INT pen_ = 0, selected_ = 0; // that is written now, 0 while they are found; and that the plotter holds
    int64_t at_x_ = -1, at_y_ = -1;
    bool drawing_ = false, complete_ = true, any_sheet_ = false;
    Growing<Point> points_;
    Growing<PathStep> signs_;
    struct Edge {
        Point from, to;
    };
    struct Crossing {
        double along;
        int turn;
    };
    Growing<Edge> edges_;
    Growing<Crossing> crossings_;
};

} // namespace papier
