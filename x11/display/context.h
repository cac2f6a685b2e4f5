// The drawing context, and what drawing remembers of it and of where it draws.
#pragma once

#include <X11/Intrinsic.h>

#include "xt_gfx_t.h"

namespace grx {

extern GRX_ATTRIBUTS_TRACER memo_attrib; // attributes last applied to g_c
extern INT grx_trace_memoire, grx_trace_memoire_bouton;
extern Pixmap *image_redess, *image_redess_bouton;
extern Drawable win_bidon, win_bidon_bouton;

inline constexpr INT kForgotten = -1;

/// What memo_attrib cannot say: the context no longer has the width, style or function that it remembers.
extern bool context_stale;
void context_changed(); // g_c was changed outside grx_affecte_gc: send everything with the next drawing
void colours_changed(); // pixels of colour indices changed: send the colours again
void forget_drawing_target(const Pixmap* image);

void give_context(Widget shell); // grx_init_gc for a window of the library's: its drawing context goes with it

} // namespace grx
