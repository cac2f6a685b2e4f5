// Finds and moves windows on the screen. The place that counts is that of the frame that the window manager puts around
// a window.
#include "windows/frame.h"

#include <X11/Intrinsic.h>
#include <Xm/Xm.h>

#include "pure/axis.h"
#include "pure/out.h"
#include "display/pixmaps.h"
#include "toolkit/args.h"
#include "toolkit/widgets.h"
#include "registry/window_table.h"
#include "windows/window_tree.h"
#include "xt_fen_f.h"
#include "xt_ini_f.h"

namespace {

struct Origin {
    INT x = 0;
    INT y = 0;
};

Origin origin_of(Window window) {
    Window root = None;
    int x = 0, y = 0;
    unsigned int width = 0, height = 0, border = 0, depth = 0;
    if (XGetGeometry(x11_disp, window, &root, &x, &y, &width, &height, &border, &depth) == 0) return {};
    return {x, y};
}

} // namespace

namespace grx {

void request_geometry(Widget shell, XtGeometryMask what, Position x, Position y) {
    XtWidgetGeometry wanted{};
    wanted.request_mode = what;
    wanted.x = x;
    wanted.y = y;
    wanted.stack_mode = Above;
    // The answer is ignored: it is a refusal when the window manager is late, which moves the shell all the same.
    XtMakeGeometryRequest(shell, &wanted, nullptr);
}

void move_for_certain(Widget shell, Position x, Position y, XtGeometryMask besides) {
    const bool believed_there = resource<Position>(shell, XmNx) == x || resource<Position>(shell, XmNy) == y;
    request_geometry(shell, CWX | CWY | besides, x, y);
    if (believed_there && window_of(shell) != None) XMoveWindow(x11_disp, XtWindow(shell), x, y);
}

bool in_frame(Widget shell) {
    const Window window = window_of(shell);
    return window != None && frame_of(window) != window;
}

void frame_place(Widget shell, INT& x, INT& y) {
    const Window window = window_of(shell);
    if (window == None) return;
    const Origin origin = origin_of(frame_of(window));
    x = origin.x;
    y = origin.y;
}

void move_shell(Widget shell, INT x, INT y) {
    move_for_certain(shell, as_position(x), as_position(turn_over_y(grx_recup_hau_ecran(), y)), 0);
}

} // namespace grx

extern "C" {

INT grx_recup_position_fenetre(INT nofen, INT* x, INT* y) {
    Widget shell = grx::shell_of(nofen);
    if (grx::window_of(shell) == None) return 0;
    INT left = 0, top = 0;
    grx::frame_place(shell, left, top);
    grx::give(x, left);
    grx::give(y, grx::turn_over_y(grx_recup_hau_ecran(), top));
    return 0;
}

INT grx_recup_position_fenetre_fille(INT nofen, INT* x, INT* y) {
    grx::give(x, 0);
    grx::give(y, 0);
    Widget w = grx::whole_of(nofen);
    if (w == nullptr) return 0;
    const grx::Point where = grx::position_of(w);
    grx::give(x, INT{where.x});
    grx::give(y, INT{where.y});
    return 0;
}
}
