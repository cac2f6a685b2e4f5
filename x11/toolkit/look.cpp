// What every window and widget shares: visual, depth, colormap and the application's colour.
#include "toolkit/look.h"

#include <Xm/Xm.h>

#include "xt_ini_f.h"
#include "xt_ini_t.h"

namespace grx {

void set_screen(Args& args) {
    args.set(XmNcolormap, x11_cmap);
    args.set(XmNdepth, grx_recup_profondeur_ecran());
    args.set(XmNvisual, x11_vis);
}

std::optional<Pixel> application_pixel() {
    const INT colour = grx_recup_couleur_application();
    if (colour == 0) return std::nullopt;
    const bool is_index = colour > 0 && colour < grx_dernier_index_rendu();
    return static_cast<Pixel>(is_index ? grx_recup_couleur(colour) : colour);
}

std::optional<Pixel> background_pixel(INT colour_index) {
    if (colour_index < 0) return application_pixel();
    return static_cast<Pixel>(grx_recup_couleur(colour_index));
}

void set_background(Args& args, INT colour_index) {
    if (const auto pixel = background_pixel(colour_index)) args.set(XmNbackground, *pixel);
}

void set_foreground(Args& args, INT colour_index) {
    if (colour_index >= 0) args.set(XmNforeground, static_cast<Pixel>(grx_recup_couleur(colour_index)));
}

} // namespace grx
