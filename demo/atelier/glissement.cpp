#include "glissement.h"

#include <X11/Xlib.h>

#include <algorithm>
#include <cstdlib>

#include "xt_fen_f.h"
#include "xt_gfx_f.h"
#include "xt_ini_t.h"

namespace atelier {

namespace {

struct Bande {
    int debut, fin;
};

// Between 0 and taille, what nothing comes from when all moves by ecart.
Bande decouverte(int ecart, int taille) {
    return ecart > 0 ? Bande{0, std::min(ecart, taille)} : Bande{std::max(taille + ecart, 0), taille};
}

Boite boite(Bande x, Bande y) {
    return {{1.0 * x.debut, 1.0 * y.debut}, {1.0 * x.fin, 1.0 * y.fin}};
}

} // namespace

// A copy onto itself. The library's context draws plainly after grx_reinit_gc.
bool glisse_image(INT nofen, const Vue& vue, Ecart ecart) {
    STRUCTURE_FENETRE* fenetre = nullptr;
    grx_recup_structure_fenetre(nofen, &fenetre);
    if (fenetre == nullptr || fenetre->image == nullptr || g_c == nullptr) return false;
    const int largeur = vue.largeur() - std::abs(ecart.x), hauteur = vue.hauteur() - std::abs(ecart.y);
    if (largeur <= 0 || hauteur <= 0) return false;
    grx_reinit_gc();
    XCopyArea(x11_disp, *fenetre->image, *fenetre->image, g_c, std::max(-ecart.x, 0), std::max(-ecart.y, 0),
        static_cast<unsigned>(largeur), static_cast<unsigned>(hauteur), std::max(ecart.x, 0), std::max(ecart.y, 0));
    return true;
}

std::vector<Boite> parties_decouvertes(const Vue& vue, Ecart ecart) {
    std::vector<Boite> r;
    if (ecart.x != 0) r.push_back(boite(decouverte(ecart.x, vue.largeur()), {0, vue.hauteur()}));
    if (ecart.y != 0) r.push_back(boite({0, vue.largeur()}, decouverte(ecart.y, vue.hauteur())));
    return r;
}

Decoupe::Decoupe(const Boite& partie) {
    XRectangle r{static_cast<short>(partie.min.x), static_cast<short>(partie.min.y),
        static_cast<unsigned short>(partie.largeur()), static_cast<unsigned short>(partie.hauteur())};
    XSetClipRectangles(x11_disp, g_c, 0, 0, &r, 1, Unsorted);
}

Decoupe::~Decoupe() {
    XSetClipMask(x11_disp, g_c, None);
}

} // namespace atelier
