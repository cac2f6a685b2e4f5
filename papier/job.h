// One paper from its beginning to its end.
#pragma once

#include <span>

#include "grx_plus_papier.h"
#include "papier/cairo_paper.h"
#include "papier/drafter.h"
#include "papier/hpgl_paper.h"
#include "papier/recorder.h"
#include "papier/setup.h"
#include "papier/target_file.h"

namespace papier {

class Job {
  public:
    /// 1 or a code; `told` gets more about it.
    INT begin(const GRX_PAPIER& paper, const Layout& layout, std::span<char> told);

    Drafter& drafter() { return drafter_; }
    bool has_pages() const { return kind_ != GRX_PAPIER_SVG; }

    /// Ends the page, and begins another one. 1 or a code of what went wrong so far.
    INT next_page();
    void bookmark(const char* utf8);

    /// Ends the last page, writes the file or prints it. 1 or a code.
    INT finish(std::span<char> told);

  private:
    bool plotted() const { return kind_ == GRX_PAPIER_HPGL; }
    bool recorded() const { return plotted() || layout_.sheets() > 1; }
    bool printed() const { return kind_ == GRX_PAPIER_IMPRIMANTE; }
    INT keep_order(const GRX_PAPIER& paper);
    void begin_page();
    void end_page();
    void put_sheet(INT column, INT row);
    INT code_so_far() const;
    INT deliver(std::span<char> told);

    INT kind_ = 0, copies_ = 1, signs_ = 0;
    Layout layout_{};
    Growing<char> printer_, title_;
    TargetFile file_;
    Recorder recorder_;
    CairoPaper cairo_;
    HpglPaper hpgl_;
    Drafter drafter_;
};

} // namespace papier
