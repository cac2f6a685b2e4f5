// Controls whose widget is not all there is to them.
#pragma once

#include <Xm/Xm.h>

namespace grx {

/// A scrolled list or text stands in a scrolled window of its own: that is what is placed, shown and hidden.
Widget with_scroll_bars(Widget w);

/// A one-line field or a text of several lines: the text functions of the toolkit take both.
bool holds_text(Widget w);

/// Inserts at the insertion point, which then stands behind the text, in view.
void insert_text(Widget w, const char* texte);

void show_pixmap(Widget w, Pixmap pixmap);

} // namespace grx
