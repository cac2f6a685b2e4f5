// A loop inside the application's own, for a dialog that returns with its answer.
#pragma once

#include <bitset>
#include <cstddef>

#include "toolkit/widgets.h"
#include "xt_ent_t.h"
#include "xt_fen_f.h"
#include "xt_ini_t.h"

namespace grx {

using WindowNumbers = std::bitset<GRX_NB_FENETRES>;

/// Windows that went while such a loop ran: the application has not been told yet.
inline WindowNumbers untold_ends;

inline WindowNumbers windows_in_use() {
    WindowNumbers numbers;
    for (INT nofen = 1; nofen < GRX_NB_FENETRES; ++nofen)
        numbers[static_cast<std::size_t>(nofen)] = grx_recup_objet_fen(nofen) != nullptr;
    return numbers;
}

/// Handles events until `done` says so. The application's pending record is as it was afterwards: what happened in the
/// meantime was the dialog's, but for the ends of windows.
template <class Done>
void run_until(Done done) {
    const GRX_EVENEMENT pending = evt_global;
    const WindowNumbers before = windows_in_use();
    while (!done()) XtAppProcessEvent(contexte, XtIMAll); // one at a time: a timer may be what ends it
    untold_ends |= before & ~windows_in_use();
    evt_global = pending;
}

/// Takes what such a loop had on show off the screen: inside a callback its destruction waits for the end of that.
/// `shell` may be null, when it is gone.
inline void take_off_screen(Widget shell) {
    if (shell != nullptr) XtPopdown(shell);
    if (x11_disp != nullptr) XFlush(x11_disp);
}

} // namespace grx
