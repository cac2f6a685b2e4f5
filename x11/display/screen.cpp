// Tells the application and the library the size and the depth of the screen.
#include "display/screen.h"

#include "pure/palette.h"
#include "xt_ini_f.h"

namespace grx {

Window root_window() {
    return DefaultRootWindow(x11_disp);
}

bool deep_screen() {
    return grx_recup_profondeur_ecran() > GRX_PROFONDEUR_8;
}

} // namespace grx

extern "C" {

INT decode_decalage(unsigned long mask) {
    return grx::lowest_bit(mask);
}

INT grx_recup_taille_ecran(INT* lar, INT* hau) {
    if (x11_disp == nullptr) return 0;
    if (lar != nullptr) *lar = DisplayWidth(x11_disp, x11_screen);
    if (hau != nullptr) *hau = DisplayHeight(x11_disp, x11_screen);
    return 0;
}

INT grx_recup_taille_ecran_mm(INT* lar_mm, INT* hau_mm) {
    if (x11_disp == nullptr) return 0;
    if (lar_mm != nullptr) *lar_mm = DisplayWidthMM(x11_disp, x11_screen);
    if (hau_mm != nullptr) *hau_mm = DisplayHeightMM(x11_disp, x11_screen);
    return 0;
}

INT grx_recup_lar_ecran(void) {
    return lar_ecran;
}

INT grx_recup_hau_ecran(void) {
    return hau_ecran;
}

INT grx_recup_lar_ecran_mm(void) {
    return lar_ecran_mm;
}

INT grx_recup_hau_ecran_mm(void) {
    return hau_ecran_mm;
}

INT grx_recup_profondeur_ecran(void) {
    return profondeur_ecran;
}

INT grx_affecte_profondeur_ecran(INT profondeur) {
    profondeur_ecran = profondeur;
    return 0;
}

INT grx_put_nbr_xpel_crt(INT nbr) {
    nbr_xpel_crt = nbr;
    return 0;
}

INT grx_put_nbr_ypel_crt(INT nbr) {
    nbr_ypel_crt = nbr;
    return 0;
}

INT grx_get_nbr_xpel_crt(void) {
    return nbr_xpel_crt;
}

INT grx_get_nbr_ypel_crt(void) {
    return nbr_ypel_crt;
}
}
