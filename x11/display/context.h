// The drawing context, and what drawing remembers of it and of its target.
#pragma once

#include <X11/Intrinsic.h>

#include "xt_gfx_t.h"

namespace grx {

extern GRX_ATTRIBUTS_TRACER memo_attrib; // attributes last applied to g_c
// Where windows and buttons are drawn: whether in memory, into which picture then, and the target chosen last.
extern INT grx_trace_memoire, grx_trace_memoire_bouton;
extern Pixmap *image_redess, *image_redess_bouton;
extern Drawable win_bidon, win_bidon_bouton;

inline constexpr INT kForgotten = -1;

/// True when the context no longer has the width, style or function that memo_attrib remembers.
extern bool context_stale;

/// To be called when g_c was changed outside grx_affecte_gc: the next drawing sends all attributes.
void context_changed();

/// The context that holds what is drawn to a rectangle, null when none does.
extern GC limited_context;

/// Takes the rectangle off that context.
void end_context_limit();

inline void lift_limit() {
    if (limited_context != nullptr) end_context_limit();
}

/// To be called when the pixel of a colour index changed: the next drawing sends the colours again.
void colours_changed();

/// Ends drawing in memory when this picture is its target, because the picture goes.
void forget_drawing_target(const Pixmap* image);

/// Makes the drawing context as grx_init_gc does. It is freed when the shell is destroyed, or later if it is still in
/// use then.
void give_context(Widget shell);

} // namespace grx
