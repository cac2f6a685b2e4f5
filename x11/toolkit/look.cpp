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

void set_background(Args& args, INT colour_index) {
    const std::optional<Pixel> own =
        colour_index >= 0 ? std::optional(static_cast<Pixel>(grx_recup_couleur(colour_index))) : std::nullopt;
    if (const auto pixel = own ? own : application_pixel()) args.set(XmNbackground, *pixel);
}

void set_foreground(Args& args, INT colour_index) {
    if (colour_index >= 0) args.set(XmNforeground, static_cast<Pixel>(grx_recup_couleur(colour_index)));
}

} // namespace grx
