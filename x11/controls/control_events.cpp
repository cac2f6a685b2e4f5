// Turns what happens to controls into event records for the application.
#include <X11/Intrinsic.h>
#include <Xm/DrawnB.h>
#include <Xm/List.h>
#include <Xm/Scale.h>
#include <Xm/TextF.h>
#include <Xm/Xm.h>

#include "pure/text.h"
#include "toolkit/compound_string.h"
#include "toolkit/control_parts.h"
#include "events/input.h"
#include "events/record.h"
#include "registry/control_table.h"
#include "menus/menu_keys.h"
#include "controls/contents.h"
#include "xt_bou_f.h"
#include "xt_ent_t.h"
#include "xt_gfx_f.h"
#include "xt_ini_t.h"
#include "xt_mot_t.h"

namespace {

// The record of a live control, null when the table, the number or the widget is gone.
STRUCTURE_BOUTON* live_control(XtPointer client) {
    STRUCTURE_BOUTON* const record = grx::control_record_at(client);
    return record != nullptr && grx_recup_objet_bout(record->nobou) != nullptr ? record : nullptr;
}

// Fills what all records of controls have: window, control and function.
template <class Member>
Member& post_control(Member& member, INT type, const STRUCTURE_BOUTON& button) {
    Member& record = grx::post(member, type, button.nofen);
    record.nobou = button.nobou;
    record.no_fo = button.no_fo;
    return record;
}

void post_text(INT type, const STRUCTURE_BOUTON& button, Widget w) {
    const grx::FieldContent content(w, button.nobou);
    grx::copy_text(post_control(evt_global.exec_fonction, type, button).chaine, content.c_str());
}

bool pressed_by_key(XtPointer call) {
    const XEvent* const event = call != nullptr ? static_cast<XmAnyCallbackStruct*>(call)->event : nullptr;
    return event != nullptr && event->type == KeyPress;
}

void post_button(const STRUCTURE_BOUTON& button, const XButtonEvent& event, INT type) {
    GRX_DIGIT& record = post_control(evt_global.bouton_appui, type, button);
    record.x = event.x;
    record.y = event.y;
    record.bouton = static_cast<INT>(event.button);
    record.carac = button.valeur; // KEEP: this is the value that the application gave, not a character
    record.etat = grx::modifier_bits(event.state);
}

INT held_button(unsigned int state) {
    if ((state & Button1Mask) != 0) return GRX_SOURIS_GAUCHE;
    if ((state & Button2Mask) != 0) return GRX_SOURIS_MILIEU;
    return (state & Button3Mask) != 0 ? GRX_SOURIS_DROITE : 0;
}

void post_motion(const STRUCTURE_BOUTON& button, const XMotionEvent& event) {
    GRX_DIGIT& record = post_control(evt_global.souris_bouge, GRX_EVT_SOURIS_BOUGE, button);
    record.x = event.x;
    record.y = event.y;
    record.bouton = held_button(event.state);
    record.carac = GRX_AUCUN;
}

bool is_tab(INT key) {
    return key == GRX_TOUCHE_TAB || key == GRX_TOUCHE_BACKTAB;
}

void on_key(Widget w, const STRUCTURE_BOUTON& button, const XEvent& event, Boolean* go_on) {
    const INT key = grx::key_for_application(event, go_on);
    if (key == 0) return;
    if (is_tab(key) && XmIsTextField(w)) {
        post_text(key == GRX_TOUCHE_TAB ? GRX_EVT_TAB : GRX_EVT_BACKTAB, button, w);
        return;
    }
    GRX_DIGIT& record = post_control(evt_global.carac_appui, GRX_EVT_CARAC_APPUI, button);
    record.x = event.xkey.x;
    record.y = event.xkey.y;
    record.bouton = 0;
    record.carac = key;
}

// When Tab has just reached a field its text is selected, so that typing replaces it.
void on_key_release(Widget w, const STRUCTURE_BOUTON& button, const XEvent& event) {
    if (is_tab(grx::code_of_key(event.xkey)) && XmIsTextField(w)) grx_selectionne_champ_focus(button.nobou);
}

void dispatch(Widget w, const STRUCTURE_BOUTON& button, XEvent& event, Boolean* go_on) {
    switch (event.type) {
    case ButtonPress: post_button(button, event.xbutton, GRX_EVT_BOUTON_APPUI); break;
    case ButtonRelease: post_button(button, event.xbutton, GRX_EVT_BOUTON_RELACHE); break;
    case MotionNotify: post_motion(button, event.xmotion); break;
    case KeyPress: on_key(w, button, event, go_on); break;
    case KeyRelease: on_key_release(w, button, event); break;
    case EnterNotify: post_control(evt_global.sortie, GRX_EVT_ENTREE, button); break;
    case LeaveNotify: post_control(evt_global.sortie, GRX_EVT_SORTIE, button); break;
    case Expose:
        if (button.type == GRX_BOU_ZONE_DESSIN) grx_affiche_bitmap_backingstore_bouton(button.nobou);
        break;
    default: break;
    }
}

} // namespace

extern "C" {

void grx_bouton_est_enfonce(Widget, XtPointer client, XtPointer call) {
    const STRUCTURE_BOUTON* const button = live_control(client);
    if (button == nullptr) return;
    Widget w = grx_recup_objet_bout(button->nobou);
    if (XmIsDrawnButton(w) && pressed_by_key(call)) return; // drawn buttons obey the pointer only
    if (grx::holds_text(w)) {
        post_text(GRX_EVT_EXEC_FONCTION, *button, w);
        return;
    }
    const bool scale = XmIsScale(w) && call != nullptr;
    const INT value = scale ? static_cast<XmScaleCallbackStruct*>(call)->value : button->valeur;
    post_control(evt_global.exec_fonction, GRX_EVT_EXEC_FONCTION, *button).valeur = value;
}

void grx_echelle_bouge(Widget, XtPointer client, XtPointer call) {
    const STRUCTURE_BOUTON* const button = live_control(client);
    if (button == nullptr || call == nullptr) return;
    GRX_EXEC_FONCTION& record = post_control(evt_global.exec_fonction, GRX_EVT_ECHELLE, *button);
    record.valeur = static_cast<XmScaleCallbackStruct*>(call)->value;
}

void grx_element_liste_clique(Widget, XtPointer client, XtPointer call) {
    const STRUCTURE_BOUTON* const button = live_control(client);
    if (button == nullptr || call == nullptr) return;
    const auto* const choice = static_cast<XmListCallbackStruct*>(call);
    GRX_ELEMENT_CLIQUE& record = evt_global.element_clique;
    if (choice->reason == XmCR_BROWSE_SELECT || choice->reason == XmCR_DEFAULT_ACTION) {
        const grx::PlainText text(choice->item);
        post_control(record, GRX_EVT_ELEMENT_CLIQUE, *button).double_click =
            choice->reason == XmCR_DEFAULT_ACTION ? 1 : 0;
        grx::copy_text(record.chaine, text.c_str());
    }
    record.no_fo = GRX_AUCUN; // KEEP: only its number tells a list, for every reason of the callback
}

void grx_focus_quitte_bouton(Widget, XtPointer, XtPointer) {
    // KEEP: a field that is left posts no event
}

void grx_bouton_est_affiche(Widget, XtPointer client, XtPointer) {
    if (const STRUCTURE_BOUTON* const button = live_control(client))
        post_control(evt_global.bouton_affiche, GRX_EVT_BOUTON_AFFICHE, *button);
}

void grx_gere_evenements_bouton(Widget, XtPointer client, XEvent* ev, Boolean* cont) {
    const STRUCTURE_BOUTON* const button = live_control(client);
    if (button != nullptr && ev != nullptr) dispatch(grx_recup_objet_bout(button->nobou), *button, *ev, cont);
}
}
