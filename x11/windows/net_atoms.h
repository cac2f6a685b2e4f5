// The names of properties and kinds that window managers of desktops know, for the files that talk with them.
#pragma once

#include <X11/Xlib.h>

namespace grx {

enum class NetAtom {
    name,
    icon_name,
    pid,
    ping,
    icon,
    utf8,
    compound_text,
    work_area,
    current_desktop,
    supported,
    move_resize,
    window_type,
    type_normal, // the kinds in the order of GRX_GENRE_...
    type_dialog,
    type_utility,
    type_toolbar,
    type_menu,
    type_splash,
    count
};

/// The atom of a name. The first call asks the server for all of them, in one round trip.
Atom net_atom(NetAtom which);

} // namespace grx
