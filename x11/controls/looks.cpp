// Lets the application change the colours, the icons and the pressed look of controls.
#include "controls/looks.h"

#include <X11/Intrinsic.h>
#include <Xm/DrawnB.h>
#include <Xm/Label.h>
#include <Xm/PushB.h>
#include <Xm/Xm.h>

#include <array>

#include "system/table.h"
#include "toolkit/args.h"
#include "toolkit/control_parts.h"
#include "drawing/control_icons.h"
#include "drawing/control_pictures.h"
#include "controls/forget_controls.h"
#include "xt_bou_f.h"
#include "xt_gfx_f.h"
#include "xt_ini_f.h"
#include "xt_mot_t.h"

namespace {

// True for a push button that is shown pressed. The toolkit's push buttons have no shadow type that says so.
std::array<bool, GRX_NB_BOUTONS> shown_pressed{};

void set_pixel(INT nobou, const char* resource, INT pixel) {
    if (Widget w = grx_recup_objet_bout(nobou))
        grx::set_resource(w, resource, static_cast<Pixel>(static_cast<UNSIGNED_INT>(pixel)));
}

INT read_pixel(INT nobou, const char* resource) {
    Widget w = grx_recup_objet_bout(nobou);
    return w != nullptr ? static_cast<INT>(grx::resource<Pixel>(w, resource)) : 0;
}

// The toolkit cannot draw a push button pressed, so its two shadow colours change places.
void swap_shadows(Widget w) {
    const auto top = grx::resource<Pixel>(w, XmNtopShadowColor);
    const auto bottom = grx::resource<Pixel>(w, XmNbottomShadowColor);
    grx::Args args;
    args.set(XmNtopShadowColor, bottom).set(XmNbottomShadowColor, top);
    XtSetValues(w, args.list(), args.count());
}

void set_look(INT nobou, unsigned char shadow) {
    Widget w = grx_recup_objet_bout(nobou);
    if (w == nullptr || (!XmIsDrawnButton(w) && !XmIsPushButton(w))) return;
    const bool pressed = shadow == XmSHADOW_IN;
    if (XmIsPushButton(w) && pressed != shown_pressed[grx::as_index(nobou)]) swap_shadows(w);
    shown_pressed[grx::as_index(nobou)] = pressed;
    grx::Args args;
    args.set(XmNpushButtonEnabled, False).set(XmNshadowType, shadow);
    XtSetValues(w, args.list(), args.count());
    grx::hold_icon_pressed(nobou, pressed);
}

// Replaces the icon by the named one. True when there is a picture to show.
bool reinstall_icon(Widget w, INT nobou, char* nom_icone) {
    STRUCTURE_BOUTON* record = nullptr;
    grx_recup_structure_bouton(nobou, &record);
    if (w == nullptr || record == nullptr || nom_icone == nullptr) return false;
    grx_desinstalle_bitmap(nobou);
    record->image = None; // if the installation fails, a freed picture must not be shown
    grx_installe_bitmap(nom_icone, nobou);
    return record->image != None;
}

Pixmap picture_of(INT nobou) {
    STRUCTURE_BOUTON* record = nullptr;
    grx_recup_structure_bouton(nobou, &record);
    return record != nullptr ? record->image : None;
}

} // namespace

namespace grx {

void forget_look(INT nobou) {
    shown_pressed[grx::as_index(nobou)] = false;
}

void forget_pressed() {
    shown_pressed = {};
}

} // namespace grx

extern "C" {

INT grx_change_couleur_bouton(INT nobou, INT couleur) {
    set_pixel(nobou, XmNarmColor, grx_recup_couleur(couleur));
    set_pixel(nobou, XmNbackground, grx_recup_couleur(couleur));
    return 0;
}

INT grx_change_couleur_trace_bouton(INT nobou, INT couleur) {
    set_pixel(nobou, XmNforeground, grx_recup_couleur(couleur));
    return 0;
}

INT grx_change_couleur_bouton_indice_direct(INT nobou, INT index) {
    set_pixel(nobou, XmNbackground, index);
    return 0;
}

INT grx_change_couleur_trace_bouton_indice_direct(INT nobou, INT couleur) {
    set_pixel(nobou, XmNforeground, couleur);
    return 0;
}

INT grx_remet_couleur_initiale_bouton(INT nobou, INT couleur_x11) {
    set_pixel(nobou, XmNforeground, couleur_x11);
    return 0;
}

INT grx_recup_couleur_bouton(INT nobou) {
    return read_pixel(nobou, XmNbackground);
}

INT grx_recup_couleur_trace_bouton(INT nobou) {
    return read_pixel(nobou, XmNforeground);
}

INT grx_enfonce_bouton(INT nobou) {
    set_look(nobou, XmSHADOW_IN);
    return 0;
}

INT grx_relache_bouton(INT nobou) {
    set_look(nobou, XmSHADOW_OUT);
    return 0;
}

INT grx_souligne_bouton(INT nobou) {
    set_look(nobou, XmSHADOW_ETCHED_IN);
    return 0;
}

INT grx_relache_bouton_ras(INT nobou) {
    set_look(nobou, XmSHADOW_ETCHED_IN); // KEEP: grx_souligne_bouton gives the same look
    return 0;
}

INT grx_bouton_est_il_enfonce(INT nobou) {
    Widget w = grx_recup_objet_bout(nobou);
    if (w == nullptr) return 0;
    if (!XmIsDrawnButton(w)) return shown_pressed[grx::as_index(nobou)] ? 1 : 0;
    return grx::resource<unsigned char>(w, XmNshadowType) == XmSHADOW_IN ? 1 : 0;
}

INT grx_change_icone_bouton(INT nobou, char* nom_icone) {
    Widget w = grx_recup_objet_bout(nobou);
    if (reinstall_icon(w, nobou, nom_icone)) grx::show_pixmap(w, picture_of(nobou));
    return 0;
}

INT grx_change_couleur_fond_icone_bouton(INT nobou, char* nom_icone, int couleur) {
    Widget w = grx_recup_objet_bout(nobou);
    if (w == nullptr) return 0;
    if (couleur != GRX_AUCUN) grx_change_couleur_8_icone(couleur);
    if (reinstall_icon(w, nobou, nom_icone)) grx::set_resource(w, XmNlabelPixmap, picture_of(nobou));
    if (couleur != GRX_AUCUN) grx_restore_couleur_8_icone();
    return 0;
}

INT grx_affecte_icone_bouton1_bouton2(INT nobou1, INT nobou2) {
    Widget from = grx_recup_objet_bout(nobou1);
    Widget to = grx_recup_objet_bout(nobou2);
    if (from == nullptr || to == nullptr || !XmIsLabel(from) || !XmIsLabel(to)) return 0;
    grx::set_resource(to, XmNlabelPixmap, grx::resource<Pixmap>(from, XmNlabelPixmap));
    grx::share_picture(nobou1);
    return 0;
}
}
