// The keys of the menu bar, for those who build it and for those who are typed at.
#pragma once

#include <X11/Intrinsic.h>

#include "host_t.h"

namespace grx {

/// Keys that come to `top`, in which the bar stands, go to the menus first; all keys pass by the library from now on.
void watch_keys_of_bar(Widget top);

/// Keys typed into open menus are those of the layout group in force from now on.
void watch_keyboard();

/// The key of an entry, from the text that is shown of it; nothing without a bar.
void add_menu_key(Widget entry, const char* accelerator);
void forget_menu_key(Widget entry); // of an entry that is destroyed
void clear_menu_keys(
    Widget top); // all of them; null leaves the grabs: their window goes, or another bar stands in its place

/// Shows every key press to `first` before anybody has it, and whether it is an entry's key, sensitive or
/// switched off; what it returns true for is taken. Null for nobody.
void show_presses(bool (*first)(const XKeyEvent& event, bool of_entry));

/// True when it chose an entry or opened a menu.
bool forward_to_menu(const XEvent& event);
/// A key press that the library sent to the main window.
bool was_forwarded(const XKeyEvent& event);
/// The code of a key for the application; 0 when it went to the menus.
INT key_for_application(const XEvent& event, Boolean* go_on);

/// Has `keeps` asked about each key press: true for one that the widget with the focus shall have before the menus. Null
/// ends that.
void keep_from_menus(bool (*keeps)(const XKeyEvent& event));

} // namespace grx
