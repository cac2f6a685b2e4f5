// Draws the marks of ticked menu entries. The entries are push buttons, which the toolkit draws without a mark: it is
// drawn after them, into their left margin. The toolkit gives all entries of a menu the widest left margin of them.
#include "menus/entry_marks.h"

#include <Xm/Xm.h>

#include <algorithm>
#include <array>
#include <cstddef>

#include "display/pixmaps.h"
#include "fonts/interface_font.h"
#include "toolkit/args.h"
#include "toolkit/widgets.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

constexpr int kGap = 4; // between mark and text

// As large as a capital of the application's font.
int mark_size() {
    constexpr int least = 7, most = 31;
    return std::clamp(interface_ascent() - 1, least, most);
}

int column_width() {
    return mark_size() + kGap;
}

// An upright bar for each column of pixels: down for a third of the width, then up.
struct Mark {
    std::array<XRectangle, 31> bars;
    int count;
};

Mark mark_at(int left, int top) {
    const int size = mark_size(), turn = size / 3, thick = std::max(2, size / 4);
    const int lowest = size - thick;
    Mark mark{{}, size};
    for (int x = 0; x < size; ++x) {
        const int y = x < turn ? lowest - (turn - x) : std::max(0, lowest - (x - turn));
        mark.bars[static_cast<std::size_t>(x)] = {
            static_cast<short>(left + x), static_cast<short>(top + y), 1, static_cast<unsigned short>(thick)};
    }
    return mark;
}

int left_of_mark(Widget entry) {
    return resource<Dimension>(entry, XmNshadowThickness) + resource<Dimension>(entry, XmNhighlightThickness)
           + resource<Dimension>(entry, XmNmarginWidth);
}

void draw(Widget entry, Mark mark, Pixel pixel) {
    XGCValues values{};
    values.foreground = pixel;
    GC context = XtGetGC(entry, GCForeground, &values);
    XFillRectangles(XtDisplay(entry), window_of(entry), context, mark.bars.data(), mark.count);
    XtReleaseGC(entry, context);
}

// In the colours in which the toolkit shows the text of such an entry.
void draw_mark(Widget entry, XtPointer, XEvent*, Boolean*) {
    if (window_of(entry) == None) return;
    const int left = left_of_mark(entry), top = (given_size(entry).height - mark_size()) / 2;
    if (XtIsSensitive(entry)) {
        draw(entry, mark_at(left, top), resource<Pixel>(entry, XmNforeground));
        return;
    }
    draw(entry, mark_at(left + 1, top + 1), resource<Pixel>(entry, XmNtopShadowColor));
    draw(entry, mark_at(left, top), resource<Pixel>(entry, XmNbottomShadowColor));
}

} // namespace

void make_mark_column(Widget entry) {
    const auto margin = resource<Dimension>(entry, XmNmarginLeft);
    if (margin < column_width()) set_resource(entry, XmNmarginLeft, static_cast<Dimension>(margin + column_width()));
}

void show_mark(Widget entry, bool ticked) {
    XtRemoveEventHandler(entry, ExposureMask, False, draw_mark, nullptr);
    if (ticked) XtAddEventHandler(entry, ExposureMask, False, draw_mark, nullptr);
    redraw(entry);
}

} // namespace grx
