// The window of a message or dialog: placed by what the window manager puts around it, and shown at once.
#include <X11/StringDefs.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <array>
#include <cstdio>

#include "pure/axis.h"
#include "toolkit/args.h"
#include "toolkit/widgets.h"
#include "xt_ent_f.h"
#include "xt_fen_f.h"
#include "xt_ini_f.h"
#include "xt_msg_f.h"

namespace {

// What the window manager puts to the left of and above a window.
struct Decoration {
    INT left = 0;
    INT top = 0;
};

Decoration decoration_of(INT attributes) {
    const bool titled = (attributes & GRX_FEN_ATT_SANS_TITRE) == 0;
    const bool bordered = (attributes & GRX_FEN_ATT_SANS_BORD) == 0;
    Decoration size;
    if (titled) size.top = grx_get_tatitre();
    if (!bordered) return size;
    const INT border = titled ? grx_get_tabord() : grx_get_tabord() - 1; // KEEP: one pixel less without a title
    size.left += border;
    size.top += border;
    return size;
}

INT on_screen(int64_t edge) {
    return static_cast<INT>(std::clamp<int64_t>(edge, 0, INT32_MAX));
}

// KEEP: the caller's record then counts y downwards, so that a second call with it moves the window.
void turn_into_frame_place(GRX_FENETRE& fenetre) {
    const Decoration decoration = decoration_of(fenetre.attrib);
    const int32_t top = grx::top_of_box(grx_recup_hau_ecran(), fenetre.y, fenetre.haut);
    fenetre.x = on_screen(int64_t{fenetre.x} - decoration.left);
    fenetre.y = on_screen(int64_t{top} - decoration.top);
}

constexpr std::size_t kGeometryText = 32;
std::array<std::array<char, kGeometryText>, GRX_NB_FENETRES> geometry_texts{}; // the toolkit keeps their addresses

void give_place(Widget shell, const GRX_FENETRE& fenetre) {
    auto& geometry = geometry_texts[static_cast<std::size_t>(fenetre.nofen)];
    std::snprintf(geometry.data(), geometry.size(), "+%d+%d", fenetre.x, fenetre.y);
    grx::Args args;
    args.set(XmNgeometry, geometry.data());
    // A realised shell does not read its geometry text any more.
    if (XtIsRealized(shell)) args.set(XmNx, grx::as_position(fenetre.x)).set(XmNy, grx::as_position(fenetre.y));
    XtSetValues(shell, args.list(), args.count());
}

void keep_picture_when_mapped(Widget shell) {
    const Window window = grx::window_of(shell);
    if (window == None) return;
    XSetWindowAttributes attributes{};
    attributes.backing_store = WhenMapped;
    XChangeWindowAttributes(x11_disp, window, CWBackingStore, &attributes);
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
    keep_picture_when_mapped(shell);
    grx_attend_creation_fenetre(fenetre->nofen);
    return 0;
}
}
