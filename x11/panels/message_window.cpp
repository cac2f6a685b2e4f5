// The window of a message or dialog: placed by what the window manager puts around it, and shown at once.
#include <X11/StringDefs.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <cstdio>
#include <span>

#include "pure/axis.h"
#include "display/pixmaps.h"
#include "toolkit/args.h"
#include "registry/window_table.h"
#include "windows/frame_thickness.h"
#include "windows/work_area.h"
#include "xt_ent_f.h"
#include "xt_fen_f.h"
#include "xt_ini_f.h"
#include "xt_msg_f.h"

namespace {

INT on_screen(int64_t edge) {
    return static_cast<INT>(std::clamp<int64_t>(edge, 0, INT32_MAX));
}

// KEEP: the caller's record then counts y downwards, so that a second call with it moves the window.
void turn_into_frame_place(GRX_FENETRE& fenetre) {
    const grx::FrameThickness frame = grx::frame_of_message_window(fenetre.attrib);
    const int32_t top = grx::top_of_box(grx_recup_hau_ecran(), fenetre.y, fenetre.haut);
    fenetre.x = on_screen(int64_t{fenetre.x} - frame.border);
    fenetre.y = on_screen(int64_t{top} - frame.border - frame.title);
    grx::keep_in_work_area(fenetre.x, fenetre.y, grx::with_frame({fenetre.droite, fenetre.haut}, frame));
}

void give_place(Widget shell, const GRX_FENETRE& fenetre) {
    const std::span<char> geometry = grx::geometry_text(fenetre.nofen);
    std::snprintf(geometry.data(), geometry.size(), "+%d+%d", fenetre.x, fenetre.y);
    grx::Args args;
    args.set(XmNgeometry, geometry.data());
    // A realised shell does not read its geometry text any more.
    if (XtIsRealized(shell)) args.set(XmNx, grx::as_position(fenetre.x)).set(XmNy, grx::as_position(fenetre.y));
    XtSetValues(shell, args.list(), args.count());
}

} // namespace

extern "C" {

INT grx_cree_fenetre_message_alpha(GRX_FENETRE* fenetre) {
    if (fenetre == nullptr) return 0;
    Widget shell = grx_recherche_shell(grx_recup_objet_fen(fenetre->nofen));
    if (shell == nullptr) return 0;
    turn_into_frame_place(*fenetre);
    give_place(shell, *fenetre);
    XtRealizeWidget(shell);
    grx::set_backing_store(grx::window_of(shell), WhenMapped);
    grx_attend_creation_fenetre(fenetre->nofen);
    return 0;
}
}
