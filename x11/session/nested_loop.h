// A loop inside the application's own, for a dialog that returns with its answer.
#pragma once

#include <X11/Intrinsic.h>

#include <bitset>

#include "xt_ent_t.h"
#include "xt_ini_t.h"

namespace grx {

using WindowNumbers = std::bitset<GRX_NB_FENETRES>;

/// The window numbers that stand for a window now.
WindowNumbers windows_in_use();

/// Remembers windows that went while such a loop ran: the application has not been told yet.
void note_untold_ends(const WindowNumbers& gone);

/// The first of them, which is forgotten; 0 when there is none. One whose number is in use again is left out.
INT take_untold_end();

/// Handles events until `done` returns true. Afterwards the application's pending record is as it was before: what
/// happened meanwhile concerned the dialog. Ends of windows are noted, for the application to be told later.
template <class Done>
void run_until(Done done) {
    const GRX_EVENEMENT pending = evt_global;
    const WindowNumbers before = windows_in_use();
    while (!done()) XtAppProcessEvent(contexte, XtIMAll); // one at a time: a timer may end the loop
    note_untold_ends(before & ~windows_in_use());
    evt_global = pending;
}

/// Takes the dialog of such a loop off the screen at once: its destruction waits for the end of a callback. `shell` is
/// null when the dialog is gone already.
void take_off_screen(Widget shell);

} // namespace grx
