// Starts the library for the application: opens the connection, loads the font, allocates colours and tables, measures.
#include <X11/Intrinsic.h>
#include <Xm/DisplayP.h>
#include <Xm/DragDrop.h>
#include <Xm/DropSMgrP.h>
#include <Xm/Xm.h>

#include <iterator>

#include "system/inventory.h"
#include "display/arguments.h"
#include "display/connection.h"
#include "display/exact_calls.h"
#include "display/identity.h"
#include "toolkit/application_font.h"
#include "toolkit/args.h"
#include "toolkit/forget_toolkit.h"
#include "registry/alive.h"
#include "registry/window_table.h"
#include "menus/alive_menus.h"
#include "windows/manners.h"
#include "windows/shell_place.h"
#include "grx_plus_application.h"
#include "xt_err_f.h"
#include "xt_fen_f.h"
#include "xt_gfx_f.h"
#include "xt_ini_f.h"
#include "xt_mot_t.h"

namespace {

const Widget kReservedWindow = reinterpret_cast<Widget>(-2L);

// Counts one shell more than there are, so that the toolkit never destroys its display object. It would do so with the
// last shell, everything set on the object would be lost, and the next shell would wait for forty answers of the
// server.
void keep_display_object() {
    ++reinterpret_cast<XmDisplayRec*>(XmGetXmDisplay(x11_disp))->display.shellCount;
}

// Asks for all these names in one go. The toolkit and Xlib would ask for one after the other and wait for each answer.
void intern_names_at_once() {
    static const char* const names[] = {
        "_MOTIF_DEFAULT_BINDINGS", "WM_LOCALE_NAME", "WM_CLIENT_LEADER", "UTF8_STRING", "STRING"};
    Atom atoms[std::size(names)];
    XInternAtoms(x11_disp, const_cast<char**>(names), std::size(names), False, atoms);
}

void no_drop_site(XmDropSiteManagerObject, Widget, ArgList, Cardinal) {}
void no_drop_site_there(XmDropSiteManagerObject, Widget) {}

// Keeps text fields from offering themselves to drags, which they do even when nothing can be dropped. The first field
// would ask the server for tables that all applications share, and would make them on a connection of its own when they
// are missing.
void offer_no_drop_sites() {
    XmDropSiteManagerClassPart& sites = xmDropSiteManagerClassRec.dropManager_class;
    sites.createInfo = sites.updateInfo = sites.retrieveInfo = no_drop_site;
    sites.destroyInfo = sites.startUpdate = sites.endUpdate = no_drop_site_there;
}

// If this were on, a press of the second mouse button on a label would start a drag that takes over the event loop.
void turn_off_drag_and_drop() {
    Widget display_object = XmGetXmDisplay(x11_disp);
    grx::set_resource(display_object, XmNdragInitiatorProtocolStyle, XmDRAG_NONE);
    grx::set_resource(display_object, XmNdragReceiverProtocolStyle, XmDRAG_NONE);
    offer_no_drop_sites();
}

void tell_what_is_alive() {
    grx::tell_of_windows_and_controls();
    grx::tell_of_menus();
    grx::inventory_wanted();
}

bool choose_true_colour() {
    constexpr int planes = 24;
    if (prof_24 == 0 || !XMatchVisualInfo(x11_disp, x11_screen, planes, TrueColor, &vtemp)) return false;
    profondeur_ecran = vtemp.depth;
    dec_red = decode_decalage(vtemp.red_mask);
    dec_green = decode_decalage(vtemp.green_mask);
    dec_blue = decode_decalage(vtemp.blue_mask);
    x11_vis = vtemp.visual;
    grx_init_colormap_24_plans();
    return true;
}

bool choose_pseudo_colour() {
    if (!XMatchVisualInfo(x11_disp, x11_screen, GRX_PROFONDEUR_8, PseudoColor, &vtemp)) return false;
    profondeur_ecran = GRX_PROFONDEUR_8;
    dec_red = dec_green = dec_blue = 0;
    x11_vis = vtemp.visual;
    grx_init_colormap_8_plans(); // KEEP: start-up goes on with the cells that were had
    return true;
}

bool open_as_asked() {
    if (!grx::open_display({.display = grx::given_argument(GRX_ARG_DISPLAY),
            .name = grx::application_name(),
            .application_class = grx::application_class()}))
        return false;
    grx::put_given_resources(XtScreenDatabase(DefaultScreenOfDisplay(x11_disp)));
    return true;
}

} // namespace

extern "C" {

INT grx_init_application(void) {
    if (!open_as_asked()) {
        grx_erreur(GRX_ERR_DISPLAY);
        return 0;
    }
    grx::follow_exact_calls();
    tell_what_is_alive();
    intern_names_at_once();
    turn_off_drag_and_drop();
    grx::renew_display_in_toolkit();
    keep_display_object();
    grx::watch_places_of_shells(x11_disp);
    grx::begin_manners();
    if (grx_init_graphique() == 0) return 0;
    grx_recup_taille_ecran(&lar_ecran, &hau_ecran);
    grx_recup_taille_ecran_mm(&lar_ecran_mm, &hau_ecran_mm);
    grx_init_param_graphique();
    grx_init_objet_fen();
    grx_affecte_objet_fen(0, kReservedWindow);
    grx_affecte_carac_fenetre_systeme();
    return 1;
}

INT grx_init_graphique(void) {
    if (x11_disp == nullptr) return 0;
    grx::load_application_font();
    if (!choose_true_colour() && !choose_pseudo_colour()) {
        grx_erreur(GRX_ERR_TABLE_COULEURS);
        return 0;
    }
    grx_definit_tous_curseurs();
    grx_change_couleur_curseur(GRX_CURS_CROIX, recup_couleur_mire());
    grx::install_error_handlers();
    return 1;
}

INT grx_init_param_graphique(void) {
    grx_init_memo_attrib();
    grx_init_sauvegarde_fenetre();
    return 0;
}

INT grx_init_sauvegarde_fenetre(void) {
    for (INT nofen = 0; nofen < MAXOBJETFEN; ++nofen) {
        if (GRX_SAUVE_ZONE* slot = grx::save_slot(nofen)) *slot = GRX_SAUVE_ZONE{};
    }
    return 0;
}
}
