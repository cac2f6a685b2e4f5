// The application's functions that draw, move, hide and take away layers.
#include <algorithm>
#include <cstdlib>
#include <span>
#include <utility>

#include "display/pixmaps.h"
#include "drawing/backing.h"
#include "drawing/layered_windows.h"
#include "drawing/layers.h"
#include "registry/window_table.h"
#include "system/table.h"
#include "system/trace.h"
#include "grx_plus_calques.h"
#include "grx_plus_erreurs.h"
#include "xt_fen_t.h"
#include "xt_ini_t.h"

namespace {

using grx::Layer;
using grx::LayeredWindow;

constexpr int64_t kFarthest = 1000000;

// Layers that were drawn stay usable when the backing picture goes.
INT refusal_of_window(INT nofen) {
    if (x11_disp == nullptr) return grx::refused(GRX_ECHEC_AFFICHAGE, "nofen", nofen);
    if (grx::window_of(grx::window_widget_if_any(nofen)) == None) return grx::refused(GRX_ECHEC_NUMERO, "nofen", nofen);
    if (grx::layered_window(nofen) == nullptr && (g_c == nullptr || !grx::has_backing_picture(nofen)))
        return grx::refused(GRX_ECHEC_GENRE, "nofen", nofen);
    return 1;
}

INT refusal_of(INT nofen, INT calque, INT least) {
    const INT code = refusal_of_window(nofen);
    if (code != 1) return code;
    return calque >= least && calque < GRX_NB_CALQUES ? 1 : grx::refused(GRX_ECHEC_NUMERO, "calque", calque);
}

// The layers that a number means, of a window that has some.
std::span<Layer> layers_meant(LayeredWindow& w, INT calque) {
    return calque == GRX_TOUS_CALQUES ? std::span<Layer>(w.layers)
                                      : std::span<Layer>(&w.layers[grx::as_index(calque)], 1);
}

bool hold_something(std::span<const Layer> layers) {
    return std::ranges::any_of(layers, [](const Layer& layer) { return !layer.content.empty(); });
}

INT set_hidden(INT nofen, INT calque, bool hidden) {
    const INT code = refusal_of(nofen, calque, GRX_TOUS_CALQUES);
    if (code != 1) return code;
    LayeredWindow* const w = grx::layered_window(nofen);
    if (w == nullptr || !hold_something(layers_meant(*w, calque)))
        return grx::refused(GRX_ECHEC_ABSENT, "calque", calque);
    grx::Touched touched;
    for (Layer& layer : layers_meant(*w, calque)) {
        if (layer.content.empty() || layer.hidden == hidden) continue;
        touched.add(*w, layer);
        layer.hidden = hidden;
    }
    grx::show_touched(*w, touched);
    return 1;
}

void replace(LayeredWindow& w, Layer& layer, grx::LayerContent content) {
    grx::Touched touched;
    if (layer.visible()) touched.add(w, layer);
    layer.content = std::move(content);
    layer.shift = {};
    if (layer.content.empty()) layer.hidden = false;
    if (layer.visible()) touched.add(w, layer);
    grx::show_touched(w, touched);
}

} // namespace

extern "C" {

INT grx_commence_calque(INT nofen, INT calque) {
    const INT code = refusal_of(nofen, calque, 0);
    if (code != 1) return code;
    if (grx::layer_in_work.nofen != 0) return grx::refused(GRX_ECHEC_OCCUPE, "calque", calque);
    if (!grx::has_backing_picture(nofen)) return grx::refused(GRX_ECHEC_GENRE, "nofen", nofen);
    if (grx::begin_layers(nofen) == nullptr) return grx::refused(GRX_ECHEC_MEMOIRE, "nofen", nofen);
    grx::layer_in_work.nofen = nofen;
    grx::layer_in_work.number = calque;
    return 1;
}

INT grx_termine_calque(void) {
    if (x11_disp == nullptr) return grx::refused(GRX_ECHEC_AFFICHAGE, "calque");
    const INT nofen = grx::layer_in_work.nofen;
    grx::LayerInWork drawn = std::move(grx::layer_in_work);
    grx::forget_layer_in_work();
    LayeredWindow* const w = grx::layered_window(nofen);
    if (w == nullptr) return grx::refused(GRX_ECHEC_ABSENT, "calque");
    if (drawn.content.complete) replace(*w, w->layers[grx::as_index(drawn.number)], std::move(drawn.content));
    grx::end_layers_without_content(nofen);
    return drawn.content.complete ? 1 : grx::refused(GRX_ECHEC_MEMOIRE, "calque", drawn.number);
}

INT grx_deplace_calque(INT nofen, INT calque, INT dx, INT dy) {
    const INT code = refusal_of(nofen, calque, 0);
    if (code != 1) return code;
    LayeredWindow* const w = grx::layered_window(nofen);
    if (w == nullptr || w->layers[grx::as_index(calque)].content.empty())
        return grx::refused(GRX_ECHEC_ABSENT, "calque", calque);
    Layer& layer = w->layers[grx::as_index(calque)];
    const int64_t x = int64_t{layer.shift.dx} + dx, y = int64_t{layer.shift.dy} + dy;
    if (std::llabs(x) > kFarthest) return grx::refused(GRX_ECHEC_PARAMETRE, "dx", dx);
    if (std::llabs(y) > kFarthest) return grx::refused(GRX_ECHEC_PARAMETRE, "dy", dy);
    grx::Touched touched;
    touched.add(*w, layer);
    layer.shift = {static_cast<INT>(x), static_cast<INT>(y)};
    touched.add(*w, layer);
    if (layer.visible()) grx::show_touched(*w, touched);
    return 1;
}

INT grx_cache_calque(INT nofen, INT calque) {
    return set_hidden(nofen, calque, true);
}

INT grx_affiche_calque(INT nofen, INT calque) {
    return set_hidden(nofen, calque, false);
}

INT grx_efface_calque(INT nofen, INT calque) {
    const INT code = refusal_of(nofen, calque, GRX_TOUS_CALQUES);
    if (code != 1) return code;
    LayeredWindow* const w = grx::layered_window(nofen);
    if (w == nullptr) return 1;
    grx::Touched touched;
    for (Layer& layer : layers_meant(*w, calque)) {
        if (layer.visible()) touched.add(*w, layer);
        layer = Layer{};
    }
    grx::show_touched(*w, touched);
    grx::end_layers_without_content(nofen);
    return 1;
}
}
