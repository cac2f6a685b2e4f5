// Where texts of drawings go, and what of it can be seen.
#include "drawing/text_target.h"

#include <algorithm>

#include "display/pixmaps.h"
#include "drawing/backing.h"
#include "drawing/limit.h"
#include "drawing/target.h"
#include "registry/window_table.h"
#include "system/trace.h"
#include "xt_bou_f.h"
#include "xt_fen_f.h"
#include "xt_ini_f.h"
#include "grx_plus_erreurs.h"

namespace grx {

namespace {

Size widget_size(Widget w) {
    return {static_cast<int32_t>(w->core.width), static_cast<int32_t>(w->core.height)};
}

Size larger(Size a, Size b) {
    return {std::max(a.width, b.width), std::max(a.height, b.height)};
}

// A picture may be that of another window; none is larger than the screen and the active window.
Size picture_size(Widget w) {
    const Size screen{grx_recup_lar_ecran(), grx_recup_hau_ecran()};
    const Widget active = window_widget_if_any(grx_recup_nofen_active());
    const Size seen = active != nullptr ? larger(widget_size(active), widget_size(w)) : widget_size(w);
    return larger(screen, seen);
}

TextTarget none(INT code) {
    TextTarget target;
    target.result = code;
    return target;
}

TextTarget described(Widget w, Drawable target) {
    if (target == None) return none(GRX_ECHEC_AFFICHAGE);
    TextTarget result;
    result.drawable = target;
    result.owner = target == window_of(w) ? w : nullptr;
    result.size = result.owner != nullptr ? widget_size(w) : picture_size(w);
    return result;
}

} // namespace

SoftTarget::SoftTarget(const TextTarget& target)
    : picture_(target_picture(target.drawable, target.owner)), held_(target.held) {
    if (held_) hold_target_picture(picture_, &target.rectangle);
}

SoftTarget::~SoftTarget() {
    if (held_) hold_target_picture(picture_, nullptr);
}

TextTarget text_target(INT nofen, const GRX_ATTRIBUTS_TRACER& attrib) {
    if (x11_disp == nullptr || g_c == nullptr) return none(GRX_ECHEC_AFFICHAGE);
    const Widget w = window_widget(nofen);
    if (w == nullptr) return none(refused(GRX_ECHEC_NUMERO, "nofen", nofen));
    TextTarget target = described(w, window_target(nofen, attrib));
    if (layer_target() != None) return target;
    target.held = limit_rectangle(window_of(w), target.rectangle);
    return target;
}

TextTarget button_text_target(INT nobou, const GRX_ATTRIBUTS_TRACER& attrib) {
    if (x11_disp == nullptr || g_c == nullptr) return none(GRX_ECHEC_AFFICHAGE);
    const Widget w = grx_recup_objet_bout(nobou);
    if (w == nullptr) return none(refused(GRX_ECHEC_NUMERO, "nobou", nobou));
    return described(w, button_target(nobou, attrib));
}

} // namespace grx
