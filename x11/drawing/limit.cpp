// Holds the drawing into one window to a rectangle, as long as the application wants it.
#include "drawing/limit.h"

#include <X11/Xlib.h>
// Xlib first: the next header defines min and max
#include <X11/Xlibint.h>
#undef min
#undef max

#include "display/context.h"
#include "display/pixmaps.h"
#include "registry/window_table.h"
#include "system/shut_down.h"
#include "system/trace.h"
#include "grx_plus_calques.h"
#include "grx_plus_erreurs.h"
#include "xt_ini_t.h"

namespace {

Window limited_window = None;
grx::Area limit;

// A context that the application changed may have lost the rectangle.
bool held() {
    return grx::limited_context == g_c && g_c->rects != False;
}

XRectangle as_rectangle(const grx::Area& area) {
    return {static_cast<short>(area.left), static_cast<short>(area.top), static_cast<unsigned short>(area.width()),
        static_cast<unsigned short>(area.height())};
}

void forget_limit() {
    if (x11_disp != nullptr) grx::lift_limit();
    grx::limited_context = nullptr;
    grx::limit_set = false;
    limited_window = None;
    limit = {};
}

} // namespace

namespace grx {

bool limit_set = false;

void change_limit(Window window) {
    if (window != limited_window) {
        lift_limit();
        return;
    }
    if (held()) return;
    lift_limit();
    XRectangle rectangle = as_rectangle(limit);
    XSetClipRectangles(x11_disp, g_c, 0, 0, &rectangle, limit.empty() ? 0 : 1, Unsorted);
    limited_context = g_c;
}

bool limit_rectangle(Window window, XRectangle& rectangle) {
    if (!limit_set || window != limited_window) return false;
    rectangle = as_rectangle(limit);
    return true;
}

Area limit_of(Window window) {
    return limit_set && window == limited_window ? limit : kEverywhere;
}

} // namespace grx

extern "C" {

INT grx_limite_trace(INT nofen, INT x, INT y, INT lar, INT hau) {
    if (x11_disp == nullptr) return grx::refused(GRX_ECHEC_AFFICHAGE, "nofen", nofen);
    const Window window = grx::window_of(grx::window_widget_if_any(nofen));
    if (window == None) return grx::refused(GRX_ECHEC_NUMERO, "nofen", nofen);
    if (lar < 1) return grx::refused(GRX_ECHEC_PARAMETRE, "lar", lar);
    if (hau < 1) return grx::refused(GRX_ECHEC_PARAMETRE, "hau", hau);
    constexpr grx::Area sayable{0, 0, INT16_MAX, INT16_MAX}; // as large as windows and pictures can be
    grx::lift_limit();
    grx::at_shut_down(forget_limit);
    limit = grx::cut_area(grx::Area{x, y, int64_t{x} + lar, int64_t{y} + hau}, sayable);
    if (limit.empty()) limit = {};
    limited_window = window;
    grx::limit_set = true;
    return 1;
}

INT grx_libere_limite_trace(void) {
    if (x11_disp == nullptr) return grx::refused(GRX_ECHEC_AFFICHAGE, "limite");
    forget_limit();
    return 1;
}
}
