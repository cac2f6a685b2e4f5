// The loop in which a dialog waits for its answer. It remembers the windows that ended meanwhile, so that the
// digitizing loop tells the application later.
#include "session/nested_loop.h"

#include <cstddef>

#include "registry/window_table.h"
#include "session/forget_session.h"
#include "xt_fen_f.h"

namespace grx {

namespace {

WindowNumbers untold_ends;

} // namespace

WindowNumbers windows_in_use() {
    WindowNumbers numbers;
    for (INT nofen = 1; nofen < GRX_NB_FENETRES; ++nofen)
        numbers[static_cast<std::size_t>(nofen)] = window_widget_if_any(nofen) != nullptr;
    return numbers;
}

void note_untold_ends(const WindowNumbers& gone) {
    untold_ends |= gone;
}

void forget_untold_ends() {
    untold_ends.reset();
}

INT take_untold_end() {
    if (untold_ends.none()) return 0;
    untold_ends &= ~windows_in_use();
    if (untold_ends.none()) return 0;
    std::size_t first = 1;
    while (!untold_ends.test(first)) ++first;
    untold_ends.reset(first);
    return static_cast<INT>(first);
}

void take_off_screen(Widget shell) {
    if (shell != nullptr) XtPopdown(shell);
    if (x11_disp != nullptr) XFlush(x11_disp);
}

} // namespace grx
