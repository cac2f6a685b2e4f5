// The widgets of the menu bar: noted as they are built, looked through when a key comes.
#pragma once

#include <X11/Intrinsic.h>

#include <span>

namespace grx {

/// The bar of the main window; null when there is none.
Widget menu_bar();
void set_menu_bar(Widget bar);

/// The widget that the bar stands in, to which its keys come; null without a bar.
Widget top_manager();

/// Entries and separators, the oldest first; null in the place of one that was destroyed.
std::span<Widget> menu_entries();
void start_entries(); // forgets those that are noted, and makes room for as many as most menus have
bool room_for_entry();
void note_entry(Widget entry);
void forget_entry(Widget entry);
void destroy_entries();

/// The buttons that open menus, in the bar and in its menus, the oldest first.
std::span<Widget> menu_cascades();
bool note_cascade(Widget cascade); // false when there is no place left
bool room_for_pulldown();
void note_pulldown(Widget pulldown);
void destroy_menus(); // they stay noted
void forget_menus();

/// Forgets entries and menus, not the bar.
void forget_menu_widgets();

} // namespace grx
