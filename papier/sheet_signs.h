// What is put on a sheet besides the drawing: crop marks and, on one of several, its place among them.
#pragma once

#include <array>

#include "papier/growing.h"
#include "papier/setup.h"

namespace papier {

/// The lines of the crop marks, from the sheet's corner: two at each corner of what the sheet shows.
bool crop_marks(const Layout& layout, INT column, INT row, Growing<PathStep>& into);

inline constexpr double kSignWidth = .18; // mm
inline constexpr double kSignHeight = 3;  // of the font

/// The place of the sheet as text, and where its baseline begins; empty when the margin has no room.
struct SheetName {
    std::array<char, 80> text;
    Point base;
};
SheetName sheet_name(const Layout& layout, INT column, INT row);

} // namespace papier
