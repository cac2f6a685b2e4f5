// How a paper is to be: what the application's record says, checked and copied, and how the drawing lies on it.
#pragma once

#include <array>

#include "grx_plus_papier.h"
#include "papier/growing.h"
#include "papier/marks.h"

namespace papier {

/// Reads the record; 1, or the code of what is wrong with it. Texts and tables still point at the application's.
INT read_record(const GRX_PAPIER* given, GRX_PAPIER& into);

/// How the drawing lies on its sheets. The drawing has its own origin, the top left of its rectangle.
struct Layout {
    double sheet_width, sheet_height;
    Box printable;       // of a sheet, from its corner
    double mm_per_pixel; // on the paper
    double width, height;
    INT columns, rows;
    double step_x, step_y; // from sheet to sheet
    double left, top;      // where the drawing begins on the first sheet
    int32_t x, y;          // pixel at the drawing's origin

    INT sheets() const { return columns * rows; }
    Box drawing() const { return {0, 0, width, height}; }
    /// The part of the drawing that the sheet shows, in the drawing's millimetres.
    Box shown(INT column, INT row) const;
    /// The millimetres from the sheet's corner to the drawing's origin.
    Point origin(INT column, INT row) const { return {left - column * step_x, top - row * step_y}; }
};

/// Lays the drawing of a record that was read on sheets; 1 or a code.
INT lay_out(const GRX_PAPIER& paper, Layout& into);

} // namespace papier
