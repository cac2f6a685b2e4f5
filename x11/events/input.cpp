// Tells the application where the pointer is and which keys are held, and turns key presses into its key codes.
#include "events/input.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include "pure/axis.h"
#include "pure/keys.h"
#include "display/screen.h"
#include "events/layout_groups.h"
#include "xt_ent_f.h"
#include "xt_ini_f.h"

namespace {

INT code(INT* touche, INT value) {
    *touche = value;
    return 1;
}

INT no_code(INT* touche) {
    *touche = 0;
    return 0;
}

// In some locales a character of Latin-1 takes more than one byte. The lookup has room for one only and then gives
// none, so that the keysym is used.
INT translate_text(XKeyEvent key, INT* touche) {
    char byte = 0;
    KeySym symbol = NoSymbol;
    if (XLookupString(&key, &byte, 1, &symbol, nullptr) > 0) return code(touche, static_cast<unsigned char>(byte));
    return grx::is_accented(static_cast<UNSIGNED_INT>(symbol)) ? code(touche, static_cast<INT>(symbol))
                                                               : no_code(touche);
}

// KEEP: the modifier state is used as the index of the keysym. A modified key without a keysym at that index has no key
// code, because it is left to the menus.
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

INT grx_recup_position_absolue_souris(INT* x, INT* y) {
    const INT height = grx_recup_hau_ecran();
    if (x11_disp == nullptr) return height;
    Window root = None, child = None;
    int root_x = 0, root_y = 0, own_x = 0, own_y = 0;
    unsigned int state = 0;
    XQueryPointer(x11_disp, grx::root_window(), &root, &child, &root_x, &root_y, &own_x, &own_y, &state);
    if (x != nullptr) *x = root_x;
    if (y != nullptr) *y = grx::turn_over_y(height, root_y);
    return height;
}
}
