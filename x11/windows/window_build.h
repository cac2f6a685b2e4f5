// What the making of a window hands from one step to the next.
#pragma once

#include <X11/Intrinsic.h>

#include "xt_fen_t.h"

namespace grx {

/// What creation works on, from one step to the next.
struct WindowBuild {
    const GRX_FENETRE& fen;
    INT nofen;
    bool nested;
    Widget parent;        // widget of fen_mere, null at top level
    int32_t x = 0, y = 0; // toolkit position
    Widget shell = nullptr;
    Widget main = nullptr;
    Widget scrolled = nullptr;
    Widget outer = nullptr; // outermost widget inside shell, main window or parent
    Widget work = nullptr;

    bool has(INT bit) const { return (fen.attrib & bit) != 0; }
    bool visible() const { return has(GRX_FEN_ATT_VISIBLE); }
    // The work widget is as large as its window; else the toolkit's margins and sizes hold.
    bool sized() const { return fen.droite >= 0 && fen.haut >= 0 && !scrolls(); }
    bool scrolls() const { return has(GRX_FEN_ATT_SCROLL); }
};

constexpr bool is_window_kind(INT type) {
    return (type >= GRX_FEN_BOUTONS && type <= GRX_FEN_MESSAGE) || type == GRX_FEN_MENU;
}

} // namespace grx
