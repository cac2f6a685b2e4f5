// Shows, hides, destroys, resizes and moves windows and changes the text of their title, for the application, by
// number.
#include <X11/Intrinsic.h>
#include <X11/Shell.h>
#include <Xm/Text.h>
#include <Xm/Xm.h>

#include <cstdio>

#include "pure/axis.h"
#include "pure/out.h"
#include "display/pixmaps.h"
#include "display/screen.h"
#include "toolkit/args.h"
#include "toolkit/control_parts.h"
#include "toolkit/late_layout.h"
#include "toolkit/locale_text.h"
#include "registry/window_table.h"
#include "windows/frame.h"
#include "xt_fen_f.h"
#include "xt_gfx_f.h"
#include "xt_ini_f.h"
#include "xt_uti_f.h"

namespace {

void map_shell(Widget shell) {
    if (XtIsTransientShell(shell)) {
        XtPopup(shell, XtGrabNone);
    } else if (const Window window = grx::window_of(shell)) {
        XMapWindow(x11_disp, window);
    }
}

void unmap_shell(Widget shell) {
    if (XtIsTransientShell(shell)) {
        XtPopdown(shell);
    } else if (const Window window = grx::window_of(shell)) {
        XUnmapWindow(x11_disp, window);
    }
}

bool usable_size(INT nofen, INT largeur, INT hauteur) {
    return nofen >= 0 && largeur > 0 && hauteur > 0;
}

void set_widget_size(Widget w, INT largeur, INT hauteur) {
    grx::lay_out_pending();
    grx::Args args;
    args.set(XmNwidth, grx::as_size(largeur)).set(XmNheight, grx::as_size(hauteur));
    XtSetValues(w, args.list(), args.count());
}

Widget text_of(INT nofen) {
    Widget w = grx_recup_objet_fen(nofen);
    return w != nullptr && XmIsText(w) ? w : nullptr;
}

} // namespace

extern "C" {

INT grx_affiche_fenetre(INT nofen) {
    if (Widget shell = grx::shell_of(nofen)) map_shell(shell);
    return 0;
}

INT grx_cache_fenetre(INT nofen) {
    if (Widget shell = grx::shell_of(nofen)) unmap_shell(shell);
    return 0;
}

INT grx_affiche_fenetre_fille(INT nofen) {
    if (const Window window = grx::window_of(grx::whole_of(nofen))) XMapWindow(x11_disp, window);
    return 0;
}

INT grx_cache_fenetre_fille(INT nofen) {
    if (const Window window = grx::window_of(grx::whole_of(nofen))) XUnmapWindow(x11_disp, window);
    return 0;
}

INT grx_detruit_fenetre(INT nofen) {
    Widget shell = grx::shell_of(nofen);
    if (shell == nullptr) return 0;
    XtDestroyWidget(shell);
    grx_libere_indice_objet_fen(nofen);
    return 0;
}

INT grx_detruit_fenetre_fille(INT nofen) {
    Widget w = grx::whole_of(nofen);
    if (w == nullptr) return 0;
    XtDestroyWidget(w);
    grx_libere_indice_objet_fen(nofen);
    return 0;
}

INT grx_reaffiche_fenetre(INT nofen) {
    if (Widget shell = grx::shell_of(nofen)) grx::request_geometry(shell, CWStackMode, 0, 0);
    return 0;
}

INT grx_deplace_fenetre(INT nofen, INT x, INT y) {
    Widget shell = grx::shell_of(nofen);
    if (shell == nullptr) return 0;
    const INT top = grx::turn_over_y(grx_recup_hau_ecran(), y);
    grx::move_for_certain(shell, grx::as_position(x), grx::as_position(top), CWStackMode);
    return 0;
}

INT grx_change_taille_fenetre(INT nofen, INT largeur, INT hauteur) {
    Widget shell = grx::shell_of(nofen);
    if (shell == nullptr || !usable_size(nofen, largeur, hauteur)) return 0;
    set_widget_size(shell, largeur, hauteur);
    if (grx::window_record(nofen)->type != GRX_FEN_GRAPHIQUE) return 0;
    grx_sync_server();
    grx_recree_bitmap_backingstore(nofen);
    return 0;
}

INT grx_change_taille_fenetre_fille(INT nofen, INT largeur, INT hauteur) {
    Widget w = grx::whole_of(nofen);
    if (w != nullptr && usable_size(nofen, largeur, hauteur)) set_widget_size(w, largeur, hauteur);
    return 0;
}

INT grx_iconifie_fenetre(INT nofen) {
    if (const Window window = grx::window_of(grx::shell_of(nofen))) XIconifyWindow(x11_disp, window, x11_screen);
    return 0;
}

INT grx_desiconifie_fenetre(INT nofen) {
    if (const Window window = grx::window_of(grx::shell_of(nofen))) XMapWindow(x11_disp, window);
    return 0;
}

INT grx_restack_fenetre(INT nofen1, INT nofen2) {
    const Window first = grx::window_of(grx::shell_of(nofen1));
    const Window second = grx::window_of(grx::shell_of(nofen2));
    if (first == None || second == None || first == second) return 0;
    XWindowChanges changes{};
    changes.sibling = second;
    changes.stack_mode = Above;
    XReconfigureWMWindow(x11_disp, first, x11_screen, CWSibling | CWStackMode, &changes);
    return 0;
}

INT grx_change_titre_fenetre(INT nofen, char* titre) {
    Widget shell = grx::shell_of(nofen);
    if (shell != nullptr && titre != nullptr) grx::set_resource(shell, XmNtitle, titre);
    return 0;
}

INT grx_recup_titre_fenetre(INT nofen, char* titre) {
    if (titre == nullptr) return 0;
    titre[0] = '\0';
    Widget shell = grx::shell_of(nofen);
    const char* const own = shell != nullptr ? grx::resource<char*>(shell, XmNtitle) : nullptr;
    if (own != nullptr) std::snprintf(titre, GRX_TITRE_MAX, "%s", own);
    return 0;
}

INT grx_coord_relative_to_absolues(INT nofen, INT x1, INT y1, INT* x2, INT* y2) {
    grx::give(x2, x1);
    grx::give(y2, y1);
    Widget w = grx_recup_objet_fen(nofen);
    const Window window = grx::window_of(w);
    if (window == None) return 0;
    int root_x = 0, root_y = 0;
    Window child = None;
    const INT from_top = grx::turn_over_y(grx::height_of(w), y1);
    XTranslateCoordinates(x11_disp, window, grx::root_window(), x1, from_top, &root_x, &root_y, &child);
    grx::give(x2, root_x);
    grx::give(y2, grx::turn_over_y(grx_recup_hau_ecran(), root_y));
    return 0;
}

INT grx_affiche_texte_dans_fenetre(INT nofen, char* texte) {
    Widget w = text_of(nofen);
    if (w == nullptr) return 0;
    grx::LocaleText text(texte);
    XmTextSetString(w, text.data());
    return 0;
}

INT grx_ajoute_texte_dans_fenetre(INT nofen, char* texte) {
    if (Widget w = text_of(nofen)) grx::insert_text(w, texte);
    return 0;
}

INT grx_change_visual_fenetre(INT nofen, Visual* visual) {
    Widget shell = grx::shell_of(nofen);
    if (shell != nullptr && visual != nullptr) grx::set_resource(shell, XmNvisual, visual);
    return 0;
}
}
