// Menus that are open.
#pragma once

#include <X11/Intrinsic.h>

namespace grx {

/// True while a menu of a menu bar is open.
bool has_open_menu(Widget bar);

/// Closes the menus of a menu bar and gives keyboard and pointer back.
void close_menus(Widget bar);

/// False while another client holds pointer or keyboard, which an open menu needs; else a menu may be opened next.
/// `shown` is on the screen.
bool can_grab_input(Widget shown);

/// True for a popup menu that has come to the screen.
bool is_posted_popup(Widget menu);

/// Has an open menu obey the arrows: a menu whose button is held obeys the pointer alone.
void follow_keys(Widget menu);

/// Takes a popup menu off the screen, with its submenus.
void close_popup(Widget menu);

/// The context menu that is open; null when none is.
Widget open_context_menu();
void set_open_context_menu(Widget menu);

} // namespace grx
