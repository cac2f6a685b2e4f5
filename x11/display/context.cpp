// Makes and releases the drawing contexts of windows, for their creation and for drawing. What drawing remembers of the
// context and of its target is here too.
#include "display/context.h"

#include <X11/Intrinsic.h>
#include <X11/StringDefs.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <array>

#include "display/pixmaps.h"
#include "display/forget_display.h"
#include "xt_gfx_f.h"
#include "xt_ini_f.h"

namespace {

// The drawing context before the present one. An application may still use it.
GC former_g_c = nullptr;

// Contexts whose windows are gone but that are still in use.
std::array<GC, 2> contexts_left{};

GC new_drawing_context(Window window) {
    XGCValues values{};
    values.function = GXcopy;
    values.line_width = 0;
    values.graphics_exposures = False; // copies would queue events that a polling application sees
    unsigned long mask = GCFunction | GCLineWidth | GCGraphicsExposures;
    if (fontstruct != nullptr) {
        values.font = fontstruct->fid;
        mask |= GCFont;
    }
    return XCreateGC(x11_disp, window, mask, &values);
}

GC new_xor_context() {
    XGCValues values{};
    values.subwindow_mode = IncludeInferiors;
    values.foreground = WhitePixel(x11_disp, x11_screen);
    values.function = GXxor;
    values.line_width = 0;
    values.line_style = LineSolid;
    values.cap_style = CapNotLast;
    values.join_style = JoinRound;
    values.graphics_exposures = False;
    const unsigned long mask = GCSubwindowMode | GCForeground | GCFunction | GCLineWidth | GCLineStyle | GCCapStyle
                               | GCJoinStyle | GCGraphicsExposures;
    return XCreateGC(x11_disp, DefaultRootWindow(x11_disp), mask, &values);
}

bool context_in_use(GC context) {
    return context == g_c || context == former_g_c;
}

void free_contexts_left() {
    for (GC& context : contexts_left) {
        if (context == nullptr || context_in_use(context)) continue;
        XFreeGC(x11_disp, context);
        context = nullptr;
    }
}

void release_context(Widget, XtPointer client, XtPointer) {
    GC const context = static_cast<GC>(client);
    if (!context_in_use(context)) {
        XFreeGC(x11_disp, context);
        return;
    }
    for (GC& left : contexts_left) {
        if (left != nullptr) continue;
        left = context;
        return;
    }
}

} // namespace

namespace grx {

GRX_ATTRIBUTS_TRACER memo_attrib{};
INT grx_trace_memoire = 0;
INT grx_trace_memoire_bouton = 0;
Pixmap* image_redess = nullptr;
Pixmap* image_redess_bouton = nullptr;
Drawable win_bidon = None;
Drawable win_bidon_bouton = None;

bool context_stale = true;
GC limited_context = nullptr;

void end_context_limit() {
    XSetClipMask(x11_disp, limited_context, None);
    limited_context = nullptr;
}

void context_changed() {
    context_stale = true;
}

void colours_changed() {
    memo_attrib.coul_fond = memo_attrib.coul_trace = kForgotten;
}

void forget_drawing_target(const Pixmap* image) {
    if (image == nullptr) return;
    if (image == image_redess) {
        image_redess = nullptr;
        grx_trace_memoire = 0;
    }
    if (image == image_redess_bouton) {
        image_redess_bouton = nullptr;
        grx_trace_memoire_bouton = 0;
    }
}

void give_context(Widget shell) {
    GC const before = g_c;
    grx_init_gc(shell);
    if (g_c != before) XtAddCallback(shell, XmNdestroyCallback, release_context, g_c);
}

void forget_contexts() {
    const std::array<GC, 4> all{contexts_left[0], contexts_left[1], g_c, gc};
    for (std::size_t i = 0; i < all.size(); ++i) {
        const bool new_one = all[i] != nullptr && std::find(all.begin(), all.begin() + i, all[i]) == all.begin() + i;
        if (new_one) XFreeGC(x11_disp, all[i]);
    }
    former_g_c = g_c = gc = limited_context = nullptr;
    contexts_left = {};
    memo_attrib = {};
    context_stale = true;
    grx_trace_memoire = grx_trace_memoire_bouton = 0;
    image_redess = image_redess_bouton = nullptr;
    win_bidon = win_bidon_bouton = None;
}

} // namespace grx

extern "C" {

void grx_init_memo_attrib(void) {
    grx::memo_attrib = {grx::kForgotten, grx::kForgotten, GRX_MODE_NORMAL, 0, grx::kForgotten, 0};
    grx::context_stale = true;
}

INT grx_init_gc(Widget shell) {
    const Window window = grx::window_of(shell);
    if (window == None) return 0;
    grx::lift_limit();
    former_g_c = g_c; // KEEP: it stays usable
    g_c = new_drawing_context(window);
    free_contexts_left();
    if (gc == nullptr) gc = new_xor_context();
    grx_init_memo_attrib();
    return 0;
}
}
