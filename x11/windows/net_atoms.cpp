// Keeps the atoms of what window managers of desktops know.
#include "windows/net_atoms.h"

#include <array>

#include "system/shut_down.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

constexpr std::size_t kCount = static_cast<std::size_t>(NetAtom::count);

constexpr std::array<const char*, kCount> kNames{"_NET_WM_NAME", "_NET_WM_ICON_NAME", "_NET_WM_PID", "_NET_WM_PING",
    "_NET_WM_ICON", "UTF8_STRING", "COMPOUND_TEXT", "_NET_WORKAREA", "_NET_CURRENT_DESKTOP", "_NET_SUPPORTED",
    "_NET_MOVERESIZE_WINDOW", "_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_NORMAL", "_NET_WM_WINDOW_TYPE_DIALOG",
    "_NET_WM_WINDOW_TYPE_UTILITY", "_NET_WM_WINDOW_TYPE_TOOLBAR", "_NET_WM_WINDOW_TYPE_MENU",
    "_NET_WM_WINDOW_TYPE_SPLASH"};
static_assert(kNames.back() != nullptr);

std::array<Atom, kCount> atoms{}; // None until they are asked for

void forget_atoms() {
    atoms = {}; // another server has others
}

} // namespace

Atom net_atom(NetAtom which) {
    if (atoms[0] == None) {
        at_shut_down(forget_atoms);
        XInternAtoms(x11_disp, const_cast<char**>(kNames.data()), kCount, False, atoms.data());
    }
    return atoms[static_cast<std::size_t>(which)];
}

} // namespace grx
