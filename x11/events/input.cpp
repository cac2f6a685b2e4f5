// Event records, and the search for pending events.
#include "xt_prive.h"

#include <X11/Intrinsic.h>
#include <X11/Xutil.h>
#include <X11/keysym.h>

#include "events/keyboard.h"
#include "toolkit/look.h"
#include "pure/keys.h"
#include "xt_ent_f.h"
#include "xt_fen_f.h"

// Zero but for the button number: what grx_init_evenement gives.
GRX_EVENEMENT evt_global = {};

namespace {

constexpr INT kHandled = 1;
constexpr INT kKeyInstead = 2; // asked for a mouse press, found a key

INT fenetre_a_digitaliser = GRX_AUCUN;

long mask_for(INT type) {
    if (type == GRX_EVT_CARAC_APPUI) return KeyPressMask;
    if (type == GRX_EVT_BOUTON_APPUI) return ButtonPressMask;
    return NoEventMask;
}

INT handle(XEvent& event, GRX_EVENEMENT* evt, INT result) {
    evt_global.type_evenement = GRX_EVT_AUCUN; // an event that posts nothing must not bring back the last record
    XtDispatchEvent(&event);
    *evt = evt_global;
    return result;
}

INT nothing(GRX_EVENEMENT* evt) {
    evt->type_evenement = GRX_EVT_AUCUN;
    return 0;
}

INT wait_for_event(INT type, GRX_EVENEMENT* evt) {
    XEvent event;
    XMaskEvent(x11_disp, mask_for(type), &event);
    return handle(event, evt, kHandled);
}

INT take_pending(INT type, GRX_EVENEMENT* evt) {
    XEvent event;
    if (XEventsQueued(x11_disp, QueuedAfterReading) == 0) return nothing(evt);
    if (XCheckMaskEvent(x11_disp, mask_for(type), &event)) return handle(event, evt, kHandled);
    if (type == GRX_EVT_BOUTON_APPUI && XCheckMaskEvent(x11_disp, KeyPressMask, &event))
        return handle(event, evt, kKeyInstead);
    return nothing(evt);
}

void absorb_exposures(Window window) {
    XEvent event;
    while (XCheckWindowEvent(x11_disp, window, ExposureMask, &event)) XtDispatchEvent(&event);
}

INT code(INT* touche, INT value) {
    *touche = value;
    return 1;
}

INT no_code(INT* touche) {
    *touche = 0;
    return 0;
}

// A character of Latin-1 is more than one byte in some locales: the lookup then gives none in the one there is.
INT translate_text(XKeyEvent key, INT* touche) {
    char byte = 0;
    KeySym symbol = NoSymbol;
    if (XLookupString(&key, &byte, 1, &symbol, nullptr) > 0) return code(touche, static_cast<unsigned char>(byte));
    return grx::is_accented(static_cast<UNSIGNED_INT>(symbol)) ? code(touche, static_cast<INT>(symbol))
                                                               : no_code(touche);
}

// KEEP: the modifier state is used as the index of the keysym. A modified key that has none there is left to the
// menus and translates to nothing.
bool left_to_menus(const XKeyEvent& event, unsigned int state) {
    XKeyEvent key = event;
    return (state & grx::kMenuModifiers) != 0 && XLookupKeysym(&key, static_cast<int>(state)) == NoSymbol;
}

INT translate(const XKeyEvent& event, INT* touche) {
    XKeyEvent key = event;
    const KeySym keysym = XLookupKeysym(&key, 0);
    switch (grx::classify_key(static_cast<UNSIGNED_INT>(keysym))) {
    case grx::KeyClass::Itself: return code(touche, static_cast<INT>(keysym));
    case grx::KeyClass::Tab: return code(touche, (key.state & ShiftMask) != 0 ? GRX_TOUCHE_BACKTAB : GRX_TOUCHE_TAB);
    case grx::KeyClass::BackTab: return code(touche, GRX_TOUCHE_BACKTAB);
    case grx::KeyClass::Untaken: return no_code(touche);
    case grx::KeyClass::Character: break;
    }
    return translate_text(key, touche);
}

} // namespace

namespace grx {

INT code_of_key(const XKeyEvent& key) {
    INT touche = 0;
    if (!left_to_menus(key, held_modifiers(key.state))) translate(key, &touche);
    return touche;
}

} // namespace grx

extern "C" {

INT grx_init_evenement(GRX_EVENEMENT* evt) {
    if (evt == nullptr) return 0;
    evt->type_evenement = GRX_EVT_AUCUN;
    evt->bouton_appui.nobou = GRX_AUCUN;
    evt->bouton_appui.etat = GRX_ETAT_AUCUN;
    return 0;
}

INT grx_cherche_evenement(INT type, GRX_EVENEMENT* evt, INT bloquant) {
    if (evt == nullptr) return 0;
    if (x11_disp == nullptr || mask_for(type) == NoEventMask) return nothing(evt);
    grx::lay_out_pending();
    return bloquant != 0 ? wait_for_event(type, evt) : take_pending(type, evt);
}

INT grx_supprime_tous_evenement_pour_fenetre(INT type, INT nofen) {
    Widget w = grx_recup_objet_fen(nofen);
    if (x11_disp == nullptr || w == nullptr) return 0;
    grx::lay_out_pending();
    supprime_gestion_expose_pour_fenetre(nofen);
    XSync(x11_disp, False);
    const Window window = grx::window_of(w);
    const bool pending = XEventsQueued(x11_disp, QueuedAlready) != 0;
    if (type == GRX_EVT_AFFICHAGE && pending && window != None) absorb_exposures(window);
    ajoute_gestion_expose_pour_fenetre(nofen);
    return 0;
}

INT grx_flush_tous_evenements(void) {
    XEvent event;
    grx::lay_out_pending();
    while (x11_disp != nullptr && XEventsQueued(x11_disp, QueuedAfterFlush) != 0) {
        XtAppNextEvent(contexte, &event);
        if (event.type != ClientMessage) XtDispatchEvent(&event);
    }
    return 0;
}

INT grx_translate_touche(XEvent* ev, INT* touche) {
    INT unread = 0;
    if (touche == nullptr) touche = &unread;
    const bool is_key = ev != nullptr && (ev->type == KeyPress || ev->type == KeyRelease);
    if (!is_key || ev->xkey.display == nullptr) return no_code(touche);
    XKeyEvent& key = ev->xkey;
    if (!left_to_menus(key, key.state)) return translate(key, touche);
    key.state &= grx::kMenuModifiers;
    return no_code(touche);
}

INT grx_recup_etat_clavier(void) {
    if (x11_disp == nullptr) return GRX_CLAVIER_AUCUN;
    Window root = None, child = None;
    int root_x = 0, root_y = 0, x = 0, y = 0;
    unsigned int state = 0;
    XQueryPointer(x11_disp, grx::root_window(), &root, &child, &root_x, &root_y, &x, &y, &state);
    if ((state & ShiftMask) != 0) return GRX_CLAVIER_SHIFT;
    if ((state & ControlMask) != 0) return GRX_CLAVIER_CONTROL;
    return (state & Mod1Mask) != 0 ? GRX_CLAVIER_ALT : GRX_CLAVIER_AUCUN;
}

INT grx_affecte_fenetre_a_digitaliser(INT nofen) {
    fenetre_a_digitaliser = nofen;
    return 0;
}

INT grx_recup_fenetre_a_digitaliser(void) {
    return fenetre_a_digitaliser;
}
}
