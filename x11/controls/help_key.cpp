// The help key: tells the application on what the user wants help, wherever the key is pressed.
#include <X11/Intrinsic.h>
#include <X11/keysym.h>

#include "controls/key_watch.h"
#include "controls/menu_texts.h"
#include "controls/under_pointer.h"
#include "display/pixmaps.h"
#include "display/screen.h"
#include "events/added_records.h"
#include "events/layout_groups.h"
#include "grx_plus_aide.h"
#include "grx_plus_erreurs.h"
#include "grx_plus_evenements.h"
#include "grx_plus_menus.h"
#include "menus/armed_entry.h"
#include "menus/menu_widgets.h"
#include "menus/posted_menu.h"
#include "pure/axis.h"
#include "registry/control_table.h"
#include "registry/window_table.h"
#include "system/shut_down.h"
#include "system/trace.h"
#include "xt_fen_f.h"
#include "xt_ini_t.h"

namespace {

INT sources = 0; // GRX_AIDE_... bits

bool is_help_key(const XKeyEvent& event) {
    if ((event.state & grx::kMenuModifiers) != 0) return false;
    XKeyEvent key = event;
    const KeySym symbol = XLookupKeysym(&key, 0);
    return symbol == XK_F1 || symbol == XK_Help;
}

GRX_EVENEMENT help_record(INT nofen, INT nobou, INT no_fo) {
    GRX_EVENEMENT record{};
    GRX_EXEC_FONCTION& member = record.exec_fonction;
    member.type_evenement = GRX_EVT_AIDE;
    member.nofen = nofen;
    member.nobou = nobou;
    member.no_fo = no_fo;
    member.valeur = GRX_AIDE_TOUCHE;
    return record;
}

// The pointer's place in a window, y upwards; 0,0 without a window.
grx::Detail place_in(INT nofen, const grx::UnderPointer& at) {
    grx::Detail detail;
    Widget work = grx_recup_objet_fen(nofen);
    Window child = None;
    int x = 0, y = 0;
    if (grx::window_of(work) == None) return detail;
    XTranslateCoordinates(x11_disp, grx::root_window(), grx::window_of(work), at.x, at.y, &x, &y, &child);
    detail.x = x;
    detail.y = grx::turn_over_y(grx::height_of(work), y);
    return detail;
}

INT function_of(INT nobou) {
    const STRUCTURE_BOUTON* const control = grx::control_record(nobou);
    return control != nullptr ? control->no_fo : GRX_AUCUN;
}

void ask_about_menu() {
    const INT no_fo = grx::armed_entry();
    const INT context = grx_recup_fenetre_menu_contextuel();
    const INT nofen = context != GRX_AUCUN ? context : grx_recup_nofen_principale();
    const grx::Detail detail = place_in(nofen, grx::pointer_alone());
    grx_ferme_menu_contextuel();
    grx::close_menus(grx::menu_bar());
    grx::post_added(help_record(nofen, GRX_AUCUN, no_fo), detail);
}

void ask_about_pointer(const XKeyEvent& event) {
    const grx::UnderPointer at = grx::under_pointer();
    const INT nofen = at.widget != nullptr ? at.nofen : grx::window_of_widget(XtWindowToWidget(x11_disp, event.window));
    grx::post_added(help_record(nofen, at.nobou, function_of(at.nobou)), place_in(nofen, at));
}

bool on_press(const XKeyEvent& event, bool of_entry) {
    const bool asked = (sources & GRX_AIDE_TOUCHE) != 0 && !of_entry && is_help_key(event);
    if (!asked) return false;
    if (grx::open_context_menu() != nullptr || grx::has_open_menu(grx::menu_bar()))
        ask_about_menu();
    else
        ask_about_pointer(event);
    return true;
}

void forget_help() {
    sources = 0;
}

} // namespace

extern "C" {

INT grx_affecte_demande_aide(INT wanted) {
    if ((wanted & ~(GRX_AIDE_TOUCHE | GRX_AIDE_MENU)) != 0) return grx::refused(GRX_ECHEC_PARAMETRE, "sources", wanted);
    if (x11_disp == nullptr) return grx::refused(GRX_ECHEC_AFFICHAGE, "sources", wanted);
    grx::at_shut_down(forget_help);
    sources = wanted;
    if (wanted != 0) grx::watch_key_presses(on_press);
    if ((wanted & GRX_AIDE_TOUCHE) != 0) grx::follow_armed_entries();
    grx::tell_armed_entries((wanted & GRX_AIDE_MENU) != 0);
    return 1;
}
}
