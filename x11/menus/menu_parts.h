// What menus are made of: for the menu bar and for context menus.
#pragma once

#include <X11/Intrinsic.h>

#include "xt_fen_t.h"

namespace grx {

/// A menu that is not on show; null when it cannot be made.
Widget make_menu(Widget parent);

/// The button that opens a menu; null where the toolkit would break.
Widget add_cascade(Widget support, const char* text, Widget menu);

/// The same with the text and the mnemonic of a menu line.
Widget add_cascade_of_line(Widget support, const LI_MENU& line, Widget menu);

/// To be called before menus are taken down, or while their window goes.
void keep_a_cascade();

struct EntryText {
    const char* label;
    char accelerator[GRX_MENU_ACCE_MAX]; // as shown: up to the first comma
    char mnemonic;
};

EntryText entry_text(const char* label, const char* accelerator, char mnemonic);

/// True for the text of a separator.
bool is_separator(const EntryText& text);

Widget make_separator(Widget parent);

/// An entry, not managed yet, that is noted by its number; null when it cannot be made. `chosen` gets the number as
/// client data. `translation`: of the accelerator, null when its key is not the menu's.
Widget make_entry(Widget parent, const EntryText& text, const char* translation, INT nofo, XtCallbackProc chosen);

} // namespace grx
