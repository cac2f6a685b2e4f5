// Tells window managers of what kind a window is, which window it belongs to and who chose its place, and centres
// windows, for the application.
#include <X11/Intrinsic.h>
#include <X11/Xatom.h>
#include <X11/Xutil.h>

#include <algorithm>

#include "pure/axis.h"
#include "pure/placement.h"
#include "display/pixmaps.h"
#include "display/properties.h"
#include "display/screen.h"
#include "system/trace.h"
#include "toolkit/widgets.h"
#include "registry/window_table.h"
#include "windows/addressed_window.h"
#include "windows/frame.h"
#include "windows/frame_thickness.h"
#include "windows/manners.h"
#include "windows/net_atoms.h"
#include "windows/place_marks.h"
#include "windows/window_tree.h"
#include "windows/work_area.h"
#include "grx_plus_application.h"
#include "grx_plus_erreurs.h"
#include "xt_ini_t.h"

namespace {

Window master_of(Window window) {
    const grx::PropertyValues master(window, XA_WM_TRANSIENT_FOR, XA_WINDOW, 1);
    return master.values().empty() ? None : static_cast<Window>(master.values()[0]);
}

// True when a window is another, or belongs to it at whatever remove.
bool belongs_to(Window window, Window master) {
    for (INT steps = 0; window != None && steps < MAXOBJETFEN; ++steps) {
        if (window == master) return true;
        window = master_of(window);
    }
    return false;
}

grx::Box box_of(Window window) {
    Window root = None;
    int x = 0, y = 0;
    unsigned int width = 0, height = 0, border = 0, depth = 0;
    if (XGetGeometry(x11_disp, window, &root, &x, &y, &width, &height, &border, &depth) == 0) return {};
    return {x, y, static_cast<int32_t>(width), static_cast<int32_t>(height)};
}

// True for a shell that has the frame that it will have, if any.
bool settled(Widget shell) {
    XWindowAttributes attributes{};
    if (grx::in_frame(shell)) return true;
    return XGetWindowAttributes(x11_disp, grx::window_of(shell), &attributes) != 0
           && attributes.map_state != IsUnmapped;
}

// The size of a frame around a shell that has none yet: as thick as that of the other window, or as the settings say.
grx::Size future_frame(grx::Size size, Widget beside) {
    if (beside == nullptr || !settled(beside)) return grx::with_frame(size, grx::frame_with(true, true));
    const Window window = grx::window_of(beside);
    const grx::Box outer = box_of(grx::frame_of(window));
    const grx::Box inner = box_of(window);
    return {size.width + outer.width - inner.width, size.height + outer.height - inner.height};
}

grx::Box frame_box(Widget shell, Widget beside) {
    const Window window = grx::window_of(shell);
    grx::Box box = box_of(grx::frame_of(window));
    if (settled(shell)) return box;
    const grx::Size framed = future_frame({box.width, box.height}, beside);
    box.width = framed.width;
    box.height = framed.height;
    return box;
}

bool manager_moves_windows() {
    constexpr long most = 1024;
    const auto wanted = static_cast<long>(grx::net_atom(grx::NetAtom::move_resize));
    const grx::PropertyValues known(grx::root_window(), grx::net_atom(grx::NetAtom::supported), XA_ATOM, most);
    const auto all = known.values();
    return std::find(all.begin(), all.end(), wanted) != all.end();
}

// Managers disagree whether a plain request means the frame or the window in it; this one says that it means the frame.
void ask_manager_to_move(Window window, const grx::Box& place) {
    constexpr long x_given = 1 << 8, y_given = 1 << 9, by_application = 1 << 12;
    XEvent event{};
    XClientMessageEvent& message = event.xclient;
    message.type = ClientMessage;
    message.window = window;
    message.message_type = grx::net_atom(grx::NetAtom::move_resize);
    message.format = 32;
    message.data.l[0] = NorthWestGravity | x_given | y_given | by_application;
    message.data.l[1] = place.x;
    message.data.l[2] = place.y;
    XSendEvent(x11_disp, grx::root_window(), False, SubstructureRedirectMask | SubstructureNotifyMask, &event);
}

void place_frame(Widget shell, const grx::Box& place) {
    grx::move_for_certain(shell, grx::as_position(place.x), grx::as_position(place.y), 0);
    if (grx::in_frame(shell) && manager_moves_windows()) ask_manager_to_move(grx::window_of(shell), place);
}

} // namespace

extern "C" {

INT grx_affecte_genre_fenetre(INT nofen, INT genre) {
    Widget shell = nullptr;
    if (const INT refusal = grx::find_own_shell(nofen, shell); refusal != 1) return refusal;
    if (genre < GRX_GENRE_NORMALE || genre > GRX_GENRE_ACCUEIL)
        return grx::refused(GRX_ECHEC_PARAMETRE, "genre", genre);
    grx::tell_kind(grx::window_of(shell), genre);
    return 1;
}

INT grx_rattache_fenetre(INT nofen, INT maitresse) {
    Widget shell = nullptr, master = nullptr;
    if (const INT refusal = grx::find_own_shell(nofen, shell); refusal != 1) return refusal;
    if (maitresse == GRX_AUCUN) {
        XDeleteProperty(x11_disp, grx::window_of(shell), XA_WM_TRANSIENT_FOR);
        return 1;
    }
    if (const INT refusal = grx::find_own_shell(maitresse, master, "maitresse"); refusal != 1) return refusal;
    if (belongs_to(grx::window_of(master), grx::window_of(shell)))
        return grx::refused(GRX_ECHEC_PARAMETRE, "maitresse", maitresse);
    XSetTransientForHint(x11_disp, grx::window_of(shell), grx::window_of(master));
    return 1;
}

INT grx_marque_place_fenetre(INT nofen, INT marque) {
    Widget shell = nullptr;
    if (const INT refusal = grx::find_own_shell(nofen, shell); refusal != 1) return refusal;
    if (marque < GRX_PLACE_LIBRE || marque > GRX_PLACE_UTILISATEUR)
        return grx::refused(GRX_ECHEC_PARAMETRE, "marque", marque);
    grx::mark_place(shell, marque);
    return 1;
}

INT grx_centre_fenetre(INT nofen, INT sur) {
    Widget shell = nullptr, on = nullptr;
    if (const INT refusal = grx::find_own_shell(nofen, shell); refusal != 1) return refusal;
    if (sur != GRX_AUCUN)
        if (const INT refusal = grx::find_own_shell(sur, on, "sur"); refusal != 1) return refusal;
    grx::lay_out_pending();
    const grx::Box area = grx::work_area();
    const grx::Box target = on != nullptr ? frame_box(on, nullptr) : area;
    const grx::Box place = grx::kept_within(grx::centred(frame_box(shell, on), target), area);
    place_frame(shell, place);
    grx::mark_place(shell, GRX_PLACE_PROGRAMME);
    return 1;
}
}
