// Tells window managers who chose the place of a window. The toolkit calls every place that it was given as text the
// user's.
#include "windows/place_marks.h"

#include <X11/IntrinsicP.h>
#include <X11/Shell.h>
#include <X11/ShellP.h>
#include <X11/Xutil.h>

#include "display/pixmaps.h"
#include "grx_plus_application.h"
#include "xt_ini_t.h"

namespace {

// The hints as the toolkit tells them, which knows them in a shorter form.
void tell_hints(const WMShellPart& manager, Window window) {
    const auto& known = manager.size_hints;
    XSizeHints hints{};
    hints.flags = known.flags;
    hints.x = known.x;
    hints.y = known.y;
    hints.width = known.width;
    hints.height = known.height;
    hints.min_width = known.min_width;
    hints.min_height = known.min_height;
    hints.max_width = known.max_width;
    hints.max_height = known.max_height;
    hints.width_inc = known.width_inc;
    hints.height_inc = known.height_inc;
    hints.min_aspect = {known.min_aspect.x, known.min_aspect.y};
    hints.max_aspect = {known.max_aspect.x, known.max_aspect.y};
    hints.base_width = manager.base_width;
    hints.base_height = manager.base_height;
    hints.win_gravity = manager.win_gravity;
    XSetWMNormalHints(x11_disp, window, &hints);
}

} // namespace

namespace grx {

void mark_place(Widget shell, INT mark) {
    WMShellPart& manager = reinterpret_cast<WMShellWidget>(shell)->wm;
    auto flags = manager.size_hints.flags & ~(USPosition | PPosition);
    if (mark == GRX_PLACE_PROGRAMME) flags |= PPosition;
    if (mark == GRX_PLACE_UTILISATEUR) flags |= USPosition;
    if (flags == manager.size_hints.flags) return;
    // The toolkit notes place and size only when it tells them itself.
    manager.size_hints.flags = flags;
    manager.size_hints.x = shell->core.x;
    manager.size_hints.y = shell->core.y;
    manager.size_hints.width = shell->core.width;
    manager.size_hints.height = shell->core.height;
    tell_hints(manager, window_of(shell));
}

} // namespace grx
