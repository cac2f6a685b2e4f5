// Chooses where primitives are drawn: on the screen, or in memory into a backing picture.
#include "drawing/target.h"

#include <X11/Xlib.h>

#include "display/context.h"
#include "display/pixmaps.h"
#include "drawing/attributes.h"
#include "xt_bou_f.h"
#include "xt_gfx_f.h"
#include "xt_ini_t.h"

namespace {

void select_button_target(Window window) {
    const bool unseen =
        grx::grx_trace_memoire_bouton != 0 && grx::image_redess_bouton != nullptr && *grx::image_redess_bouton != None;
    grx::win_bidon_bouton = unseen ? *grx::image_redess_bouton : window;
}

} // namespace

extern "C" {

INT test_trace_memoire(Window win) {
    grx::select_target(win);
    return 0;
}

INT test_trace_memoire_bouton(Window win) {
    select_button_target(win);
    return 0;
}
}

namespace grx {

void choose_with_care(INT nofen, Window window) {
    if (layer_target() != None) {
        win_bidon = layer_target();
        lift_limit();
        return;
    }
    if (win_bidon == window) take_layers_off(nofen);
    hold_to_limit(window);
}

Drawable screen_target(INT nofen, Window window) {
    if (!care_wanted()) return window;
    if (layer_target() != None) return layer_target();
    take_layers_off(nofen);
    hold_to_limit(window);
    return window;
}

void prepare_last_target() {
    if (!care_wanted()) return;
    take_layers_off_window(win_bidon);
    hold_to_limit(win_bidon);
}

Drawable button_target(INT nobou, const GRX_ATTRIBUTS_TRACER& attrib) {
    const Window window = g_c != nullptr ? window_of(grx_recup_objet_bout(nobou)) : None;
    if (window == None) return None;
    select_button_target(window);
    lift_limit();
    apply_attributes(attrib);
    return win_bidon_bouton;
}

} // namespace grx
