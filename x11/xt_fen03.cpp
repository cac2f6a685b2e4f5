// The menu bar of the main window.
#include "xt_prive.h"

#include <X11/StringDefs.h>
#include <Xm/RowColumn.h>
#include <Xm/Xm.h>

#include "kit/args.h"
#include "kit/screen.h"
#include "xt_fen_f.h"

namespace grx {

XEvent evt_menu{};

} // namespace grx

namespace {

Widget Glob_menu_bar = nullptr;

void forget_bar(Widget bar, XtPointer, XtPointer) {
    if (bar == Glob_menu_bar) Glob_menu_bar = nullptr;
}

} // namespace

namespace grx {

void make_menu_bar(Widget main_window) {
    Widget bar = grx_debut_menu_bar(main_window);
    if (bar == nullptr) return;
    Glob_menu_bar = bar;
    XtAddCallback(bar, XmNdestroyCallback, forget_bar, nullptr);
    XtManageChild(bar);
    set_resource(main_window, XmNmenuBar, bar);
}

} // namespace grx

extern "C" {

Widget grx_debut_menu_bar(Widget mere) {
    if (mere == nullptr || !XtIsComposite(mere)) return nullptr;
    grx::Args args;
    if (const auto pixel = grx::application_pixel()) args.set(XmNbackground, *pixel);
    grx::set_screen(args);
    return XmCreateMenuBar(mere, const_cast<char*>("Menu_bar"), args.list(), args.count());
}

Widget grx_get_Glob_menu_bar(void) {
    return Glob_menu_bar;
}

INT grx_recup_taille_menu_bar(INT, INT* lar, INT* hau) {
    const grx::Size size = Glob_menu_bar != nullptr ? grx::size_of(Glob_menu_bar) : grx::Size{};
    if (lar != nullptr) *lar = size.width;
    if (hau != nullptr) *hau = size.height;
    return 0;
}

INT grx_envoie_dernier_evenement_a_fenetre_menu(void) {
    const Window window = grx::window_of(grx_recup_objet_fen(grx_recup_nofen_principale()));
    if (window == None || grx::evt_menu.xkey.window == window) return 0; // never forwarded twice
    grx::evt_menu.xkey.window = window;
    XSendEvent(x11_disp, window, True, KeyPressMask, &grx::evt_menu);
    return 0;
}
}
