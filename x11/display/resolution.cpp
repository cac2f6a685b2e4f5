// Finds out how many dots the screen has per inch, for the application and for fonts.
#include "display/resolution.h"

#include <X11/Intrinsic.h>
#include <X11/Xresource.h>

#include <cstring>

#include "pure/font_name.h"
#include "grx_plus_erreurs.h"
#include "grx_plus_polices.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

int resolution_of_resources() {
    char* type = nullptr;
    XrmValue value{};
    if (!XrmGetResource(XtDatabase(x11_disp), "Xft.dpi", "Xft.Dpi", &type, &value) || value.addr == nullptr) return 0;
    return resolution_in({value.addr, strnlen(value.addr, value.size)});
}

} // namespace

int screen_resolution() {
    const int told = resolution_of_resources();
    return told > 0 ? told : resolution_of(DisplayHeight(x11_disp, x11_screen), DisplayHeightMM(x11_disp, x11_screen));
}

} // namespace grx

extern "C" {

INT grx_recup_resolution_ecran(void) {
    return x11_disp != nullptr ? grx::screen_resolution() : GRX_ECHEC_AFFICHAGE;
}
}
