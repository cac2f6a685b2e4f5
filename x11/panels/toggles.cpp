// Toggles that applications press and release, and drop-down choices in dialogs.
#include <Xm/ToggleB.h>
#include <Xm/Xm.h>

#include "toolkit/option_menu.h"
#include "windows/window_events.h"
#include "xt_bou_f.h"
#include "xt_ent_f.h"
#include "xt_err_f.h"
#include "xt_msg_f.h"

namespace {

Widget toggle_of(INT nobou) {
    Widget w = grx_recup_objet_bout(nobou);
    return w != nullptr && XmIsToggleButton(w) ? w : nullptr;
}

void set_toggle(INT nobou, Boolean pressed) {
    Widget w = toggle_of(nobou);
    if (w != nullptr && XmToggleButtonGetState(w) != pressed) XmToggleButtonSetState(w, pressed, False);
}

void on_title_press(Widget, XtPointer, XEvent* event, Boolean*) {
    GRX_DIGIT& record = evt_global.bouton_appui; // KEEP: the window is what the last event left
    record.type_evenement = GRX_EVT_BOUTON_APPUI;
    record.x = event->xbutton.x;
    record.y = event->xbutton.y;
    char trace[] = "Digit sur titre bascule\n";
    grx_affiche_chaine(trace);
}

} // namespace

extern "C" {

INT grx_relache_bascule(INT nobou) {
    set_toggle(nobou, False);
    return 0;
}

INT grx_enfonce_bascule(INT nobou) {
    set_toggle(nobou, True);
    return 0;
}

Widget grx_cree_support_bascule_liste(Widget pere) {
    return grx::make_pulldown(pere, "Support bascule liste");
}

Widget grx_cree_titre_bascule_liste(Widget support, Widget menu, Widget btn_def, char* titre) {
    Widget box = grx::make_option_menu(support, "Bascule liste", titre, menu, btn_def, grx::key_over_part);
    if (box != nullptr) XtAddEventHandler(box, ButtonPressMask, False, on_title_press, nullptr);
    return box;
}
}
