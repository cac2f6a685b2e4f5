// A loop inside that of the application, for dialogs that return with an answer.
#pragma once

#include <X11/Intrinsic.h>

#include <bitset>

#include "events/queue.h"
#include "xt_ent_t.h"
#include "xt_ini_t.h"

namespace grx {

using WindowNumbers = std::bitset<GRX_NB_FENETRES>;

/// The numbers that have a window now.
WindowNumbers windows_in_use();

/// Remembers windows that ended while such a loop ran. The application does not know of it yet.
void note_untold_ends(const WindowNumbers& gone);

/// Returns the first of the windows remembered and forgets it; 0 when there is none. A window whose number is in use
/// again is left out.
INT take_untold_end();

/// Handles events until `done` returns true. Then the pending record of the application is restored, because what
/// happened since concerned the dialog. Ends of windows are remembered, so that the application is told later.
template <class Done>
void run_until(Done done) {
    const InLoop inside;
    const GRX_EVENEMENT pending = evt_global;
    const WindowNumbers before = windows_in_use();
    while (!done()) XtAppProcessEvent(contexte, XtIMAll); // one at a time: a timer may end the loop
    note_untold_ends(before & ~windows_in_use());
    evt_global = pending;
}

/// Takes the dialog of such a loop off the screen at once. Its destruction may have to wait for the end of a callback.
/// `shell` is null when the dialog is gone already.
void take_off_screen(Widget shell);

} // namespace grx
