// What the steps of making a window hand from one to the next.
#pragma once

#include <X11/Intrinsic.h>

#include "xt_fen_t.h"

namespace grx {

/// The window that is being made: what the application asked for and the widgets made so far.
struct WindowBuild {
    const GRX_FENETRE& fen;
    INT nofen;
    bool nested;
    Widget parent;        // the widget of fen_mere, null for a top-level window
    int32_t x = 0, y = 0; // position for the toolkit, y from the top
    Widget shell = nullptr;
    Widget main = nullptr;
    Widget scrolled = nullptr;
    Widget outer = nullptr; // the outermost widget inside shell, main window or parent
    Widget work = nullptr;

    bool has(INT bit) const { return (fen.attrib & bit) != 0; }
    bool visible() const { return has(GRX_FEN_ATT_VISIBLE); }
    /// True when the work widget is as large as the window. Otherwise the toolkit decides on its size.
    bool sized() const { return fen.droite >= 0 && fen.haut >= 0 && !scrolls(); }
    bool scrolls() const { return has(GRX_FEN_ATT_SCROLL); }
};

} // namespace grx
