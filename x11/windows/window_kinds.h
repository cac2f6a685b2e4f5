// Makes the work widget of a window, for the steps of its creation.
#pragma once

#include <X11/Intrinsic.h>

#include "windows/window_build.h"
#include "xt_fen_t.h"

namespace grx {

constexpr bool is_window_kind(INT type) {
    return (type >= GRX_FEN_BOUTONS && type <= GRX_FEN_MESSAGE) || type == GRX_FEN_MENU;
}

/// Makes the widget that the kind of the window wants. False when it could not be made.
bool make_work_widget(WindowBuild& b, Widget container);

} // namespace grx
