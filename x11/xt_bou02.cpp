// Operations on controls by their number.
#include "xt_prive.h"

#include <Xm/Xm.h>

#include "kit/widgets.h"
#include "xt_bou_f.h"

extern "C" {

INT grx_detruit_bouton(INT nobou) {
    Widget w = grx_recup_objet_bout(nobou);
    grx_libere_indice_objet_bout(nobou);
    if (w != nullptr) XtDestroyWidget(w);
    return 0;
}

INT grx_force_focus_sur_bouton(INT nobou) {
    if (Widget w = grx_recup_objet_bout(nobou)) XmProcessTraversal(w, XmTRAVERSE_CURRENT);
    return 0;
}

INT grx_recup_taille_bouton(INT nobou, INT* largeur, INT* hauteur) {
    Widget w = grx_recup_objet_bout(nobou);
    if (w == nullptr) return 0;
    const grx::Size size = grx::size_of(w);
    if (largeur != nullptr) *largeur = size.width;
    if (hauteur != nullptr) *hauteur = size.height;
    return 0;
}
}
