// Chooses where primitives are drawn: on the screen, or in memory into a backing picture.
#pragma once

#include <X11/Xlib.h>

#include "display/context.h"
#include "display/pixmaps.h"
#include "registry/window_table.h"
#include "drawing/attributes.h"
#include "drawing/layers.h"
#include "drawing/limit.h"
#include "xt_gfx_t.h"
#include "xt_ini_t.h"

namespace grx {

inline void select_target(Window window) {
    win_bidon = grx_trace_memoire != 0 && image_redess != nullptr ? *image_redess : window;
}

/// Chooses while there are layers or a limit: what layers are drawn into when they are shown, else the target that
/// select_target has chosen, with the layers of that window taken off the screen, and held to the limit.
void choose_with_care(INT nofen, Window window);

inline bool care_wanted() {
    return layers_there || limit_set;
}

/// The target of what is always drawn on the screen.
Drawable screen_target(INT nofen, Window window);

/// Prepares drawing on the target chosen last.
void prepare_last_target();

/// Selects the target of a window and applies the attributes. Returns the target, None when the window has none.
inline Drawable window_target(INT nofen, const GRX_ATTRIBUTS_TRACER& attrib) {
    const Window window = g_c != nullptr ? window_of(window_widget(nofen)) : None;
    if (window == None) return None;
    select_target(window);
    if (care_wanted()) [[unlikely]]
        choose_with_care(nofen, window);
    apply_attributes(attrib);
    return win_bidon;
}

/// The same for a control.
Drawable button_target(INT nobou, const GRX_ATTRIBUTS_TRACER& attrib);

/// True when the target is a backing picture.
inline bool in_memory(Drawable target) {
    return (image_redess != nullptr && target == *image_redess)
           || (image_redess_bouton != nullptr && target == *image_redess_bouton);
}

} // namespace grx
