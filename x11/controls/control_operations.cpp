// Shows, hides, destroys, resizes and places controls for the application, by their numbers.
#include <X11/Intrinsic.h>
#include <Xm/Form.h>
#include <Xm/Xm.h>

#include "pure/axis.h"
#include "pure/size.h"
#include "system/block.h"
#include "toolkit/args.h"
#include "toolkit/control_parts.h"
#include "toolkit/late_layout.h"
#include "toolkit/widgets.h"
#include "xt_bou_f.h"
#include "xt_ent_f.h"

namespace {

void set_mapped(INT nobou, bool mapped) {
    Widget w = grx::with_scroll_bars(grx_recup_objet_bout(nobou));
    if (w == nullptr) return;
    XtSetMappedWhenManaged(w, mapped ? True : False); // the toolkit must know it, or Tab would stop at a hidden control
}

// A control in a scrolled window is managed here. The caller manages what is returned, the scrolled window.
Widget with_scrolled_window(Widget w) {
    Widget outer = grx::with_scroll_bars(w);
    if (outer != w) XtManageChild(w);
    return outer;
}

// True for a child of a form that is attached to the form's left (or upper) edge only. The form puts its children where
// their attachments want them, so that such a child is moved by its offset.
bool hangs_on(Widget w, const char* edge, const char* opposite) {
    return XmIsForm(XtParent(w)) && grx::resource<unsigned char>(w, edge) == XmATTACH_FORM
           && grx::resource<unsigned char>(w, opposite) == XmATTACH_NONE;
}

} // namespace

extern "C" {

INT grx_affiche_boutons(INT* nobou, INT nb_bout) {
    if (nobou == nullptr || nb_bout <= 0) return 0;
    grx::Block<Widget> widgets(static_cast<std::size_t>(nb_bout));
    if (!widgets) return 0;
    std::size_t count = 0;
    for (INT i = 0; i < nb_bout; ++i) {
        if (Widget w = grx_recup_objet_bout(nobou[i])) widgets[count++] = with_scrolled_window(w);
    }
    grx::by_parent(widgets.span().first(count), XtManageChildren);
    return 0;
}

INT grx_affiche_bouton(INT nobou) {
    set_mapped(nobou, true);
    return 0;
}

INT grx_cache_bouton(INT nobou) {
    set_mapped(nobou, false);
    return 0;
}

INT grx_efface_bouton(INT nobou) {
    return grx_cache_bouton(nobou);
}

INT grx_detruit_bouton(INT nobou) {
    Widget w = grx_recup_objet_bout(nobou);
    grx_libere_indice_objet_bout(nobou);
    if (w != nullptr) XtDestroyWidget(w);
    return 0;
}

INT grx_desactive_bouton(INT nobou, INT bloquer) {
    if (Widget w = grx_recup_objet_bout(nobou)) XtSetSensitive(w, bloquer > 0 ? False : True);
    return 0;
}

INT grx_force_focus_sur_bouton(INT nobou) {
    grx::lay_out_pending(); // the toolkit knows new controls only when they are laid out
    if (Widget w = grx_recup_objet_bout(nobou)) XmProcessTraversal(w, XmTRAVERSE_CURRENT);
    return 0;
}

INT grx_flush_dessin_bouton(INT) {
    grx_flush_tous_evenements();
    return 0;
}

INT grx_change_taille_bouton(INT nobou, INT largeur, INT hauteur) {
    Widget w = grx_recup_objet_bout(nobou);
    if (w == nullptr || largeur <= 0 || hauteur <= 0) return 0;
    grx::lay_out_pending();
    grx::Args args;
    args.set(XmNwidth, grx::as_size(largeur)).set(XmNheight, grx::as_size(hauteur));
    XtSetValues(w, args.list(), args.count());
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

INT grx_change_position_bouton(INT nobou, INT x, INT y) {
    Widget w = grx::with_scroll_bars(grx_recup_objet_bout(nobou));
    if (w == nullptr) return 0;
    grx::lay_out_pending();
    grx::Args args;
    args.set(XmNx, grx::as_position(x)).set(XmNy, grx::as_position(y));
    if (hangs_on(w, XmNleftAttachment, XmNrightAttachment)) args.set(XmNleftOffset, int{grx::as_position(x)});
    if (hangs_on(w, XmNtopAttachment, XmNbottomAttachment)) args.set(XmNtopOffset, int{grx::as_position(y)});
    XtSetValues(w, args.list(), args.count());
    return 0;
}

INT grx_recup_position_bouton(INT nobou, INT* x, INT* y) {
    Widget w = grx::with_scroll_bars(grx_recup_objet_bout(nobou));
    if (w == nullptr) return 0;
    const grx::Point where = grx::position_of(w);
    if (x != nullptr) *x = where.x;
    if (y != nullptr) *y = where.y;
    return 0;
}
}
