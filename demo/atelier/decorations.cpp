#include "decorations.h"

#include <Xm/MwmUtil.h>
#include <Xm/Xm.h>

#include "xt_f.h"

namespace atelier {

namespace {

// The boxes of a title: mwm keeps a title for as long as there are any. Set among all, a bit takes its box away.
void ote_boites(INT nofen, bool otees) {
    Widget const fenetre = grx_recherche_shell(grx_recup_objet_fen(nofen));
    int decorations = 0;
    if (fenetre == nullptr) return;
    XtVaGetValues(fenetre, XmNmwmDecorations, &decorations, nullptr);
    constexpr int kBoites = MWM_DECOR_MINIMIZE | MWM_DECOR_MAXIMIZE;
    XtVaSetValues(fenetre, XmNmwmDecorations, otees ? decorations | kBoites : decorations & ~kBoites, nullptr);
}

} // namespace

// Shown again by what takes it away: the library's functions toggle.
void Decorations::bascule_titre(INT nofen) {
    ote_boites(nofen, !sans_titre_);
    (sans_titre_ ? grx_affiche_titre_fenetre : grx_supprime_titre_fenetre)(nofen);
    sans_titre_ = !sans_titre_;
}

void Decorations::bascule_bord(INT nofen) {
    (sans_bord_ ? grx_affiche_bord_fenetre : grx_supprime_bord_fenetre)(nofen);
    sans_bord_ = !sans_bord_;
}

} // namespace atelier
