// Functions of the application for the server as a whole: its bell, the requests waiting to be sent, its two fixed
// colours.
#include <X11/Xlib.h>

#include "xt_gfx_f.h"
#include "xt_ini_t.h"
#include "xt_uti_f.h"

extern "C" {

INT grx_noir_systeme(void) {
    return x11_disp != nullptr ? static_cast<INT>(BlackPixel(x11_disp, x11_screen)) : 0;
}

INT grx_blanc_systeme(void) {
    return x11_disp != nullptr ? static_cast<INT>(WhitePixel(x11_disp, x11_screen)) : 0;
}
}

namespace {

constexpr int kBellVolume = 20;

} // namespace

extern "C" {

// Pitch and length are ignored: the server's own serve for every bell.
void grx_bipbip(INT, INT) {
    if (x11_disp != nullptr) XBell(x11_disp, kBellVolume);
}

void grx_flush_server(void) {
    if (x11_disp != nullptr) XFlush(x11_disp);
}

void grx_sync_server(void) {
    if (x11_disp != nullptr) XSync(x11_disp, False);
}

void grx_synchronise(INT etat) {
    if (x11_disp != nullptr) XSynchronize(x11_disp, etat != 0 ? True : False);
}
}
