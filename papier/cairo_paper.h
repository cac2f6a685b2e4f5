// Writes marks as PDF, SVG or PostScript, by cairo.
#pragma once

#include <cairo.h>

#include "grx_plus_papier.h"
#include "papier/growing.h"
#include "papier/marks.h"
#include "papier/setup.h"
#include "papier/target_file.h"

namespace papier {

class CairoPaper final : public Marked {
  public:
    CairoPaper() = default;
    CairoPaper(const CairoPaper&) = delete;
    CairoPaper& operator=(const CairoPaper&) = delete;
    ~CairoPaper() { drop(); }

    /// Begins a document that goes into the file. 1 or a code.
    INT begin(const GRX_PAPIER& paper, const Layout& layout, TargetFile& file);

    /// Between these, marks go on a sheet, in the drawing's millimetres.
    void begin_sheet(INT column, INT row);
    void end_sheet(INT column, INT row);

    void stroke(const Pen& pen, Path path) override;
    void fill(const Ink& ink, Path path) override;
    void text(const TextMark& mark, std::span<const char> utf8) override;
    void picture(const PictureMark& mark, std::span<const uint32_t> pixels) override;
    void link(const Box& place, std::span<const char> uri) override;

    /// A bookmark that leads to the present sheet.
    void bookmark(const char* utf8);

    /// Writes what is left. 1 or a code.
    INT finish();

    /// Without writing what can be left away.
    void drop();

    /// What cairo says, for who asks.
    const char* status_text() const { return cairo_status_to_string(status_); }

  private:
    cairo_surface_t* surface_for(const GRX_PAPIER& paper, TargetFile& file) const;
    INT take_texts(const GRX_PAPIER& paper);
    void set_colour(uint32_t rgb);
    void set_pen(const Pen& pen);
    void trace(Path path);
    double stretch(const TextMark& mark, const char* text);
    void put_signs(INT column, INT row);
    void keep_status();

    cairo_surface_t* surface_ = nullptr;
    cairo_t* cairo_ = nullptr;
    INT kind_ = 0, signs_ = 0;
    Layout layout_{};
    Growing<char> font_, work_;
    Growing<PathStep> marks_;
    Pen pen_{};
    double font_height_ = 1; // of the family, at size 1
    INT sheets_ = 0;         // ended
    cairo_status_t status_ = CAIRO_STATUS_SUCCESS;
};

} // namespace papier
