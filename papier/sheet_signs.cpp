// What is put on a sheet besides the drawing: crop marks and, on one of several, its place among them.
#include "papier/sheet_signs.h"

#include <algorithm>
#include <cstdio>

namespace papier {

namespace {

constexpr double kGap = 1, kLength = 5; // mm
constexpr double kLeastMargin = 4.5;    // that takes a line of text

struct Corner {
    double x, y;
    double outward_x, outward_y; // 1 or -1
    double room_x, room_y;       // to the sheet's edge
};

bool add_line(Growing<PathStep>& into, Point a, Point b) {
    return into.append({static_cast<float>(a.x), static_cast<float>(a.y), Step::move})
           && into.append({static_cast<float>(b.x), static_cast<float>(b.y), Step::line});
}

bool add_marks(Growing<PathStep>& into, const Corner& c) {
    const double out_x = std::min(c.room_x, kGap + kLength), out_y = std::min(c.room_y, kGap + kLength);
    bool complete = true;
    if (out_x > kGap) complete = add_line(into, {c.x + c.outward_x * kGap, c.y}, {c.x + c.outward_x * out_x, c.y});
    if (out_y > kGap)
        complete = add_line(into, {c.x, c.y + c.outward_y * kGap}, {c.x, c.y + c.outward_y * out_y}) && complete;
    return complete;
}

Box shown_on_sheet(const Layout& layout, INT column, INT row) {
    const Point origin = layout.origin(column, row);
    return layout.shown(column, row).moved(origin.x, origin.y);
}

} // namespace

bool crop_marks(const Layout& layout, INT column, INT row, Growing<PathStep>& into) {
    const Box b = shown_on_sheet(layout, column, row);
    const double right = layout.sheet_width - b.right, below = layout.sheet_height - b.bottom;
    into.clear();
    return add_marks(into, {b.left, b.top, -1, -1, b.left, b.top})
           && add_marks(into, {b.right, b.top, 1, -1, right, b.top})
           && add_marks(into, {b.left, b.bottom, -1, 1, b.left, below})
           && add_marks(into, {b.right, b.bottom, 1, 1, right, below});
}

SheetName sheet_name(const Layout& layout, INT column, INT row) {
    SheetName name{};
    const Box b = shown_on_sheet(layout, column, row);
    if (layout.sheets() < 2 || layout.sheet_height - b.bottom < kLeastMargin) return name;
    std::snprintf(name.text.data(), name.text.size(), "Feuille %d/%d (colonne %d, ligne %d)",
        static_cast<int>(row * layout.columns + column + 1), static_cast<int>(layout.sheets()),
        static_cast<int>(column + 1), static_cast<int>(row + 1));
    name.base = {b.left + kGap + kLength, b.bottom + kLeastMargin - 1};
    return name;
}

} // namespace papier
