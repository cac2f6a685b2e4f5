// The state of the one editor: its widgets, the file in its text, and how it was left.
#pragma once

#include <X11/Intrinsic.h>

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "system/block.h"
#include "toolkit/locale_text.h"
#include "menus/accelerators.h"
#include "dialogs/selection_text.h"

namespace grx::editor {

/// What the editor is made of. Each has one widget, dialogs from their first use on.
enum Component : std::size_t {
    kText = 0,
    kCutButton,
    kCopyButton,
    kPasteButton,
    kClearButton,
    kOpenDialog,
    kNewDialog,
    kCloseWarning,
    kExitWarning,
    kGeneralWarning, // tells that saving failed
    kSaveDialog,
    kPrintWarning, // nobody makes this one
    kMainWindow,
    kMenuBar,
    kShell,
    kComponents
};

/// The widget of a component; null while there is none.
Widget widget_of(Component component);
void keep_widget(Component component, Widget w);
void set_sensitive(Component component, bool sensitive);

/// True from grx_debut_editeur until the editor ends.
bool is_reserved();

/// True while the editor has a window.
bool is_on_show();

/// The file whose text the editor shows.
struct TextFile {
    Block<char> name;     // empty: there is no file
    bool on_disk = false; // it was read or written
    bool saved = true;    // the text did not change since
    TextEncoding encoding = TextEncoding::Unknown;
};
TextFile& text_file();

/// Gives the file a name under which nothing was read or written yet. False, and no name, when memory is short.
bool set_file_name(std::string_view name);

/// What grx_file_editeur_bloquant returns.
int exit_status();
void set_exit_status(int status);

/// Counts editors: the destroy callback of a former window must not end the present editor.
intptr_t generation();

/// The keys of the menu.
AcceleratorTable& keys();

/// What was asked of the clipboard.
SelectionText& clipboard_text();

/// Lets the user type, cut and copy.
void allow_typing();

/// Replaces the text; the new one counts as saved.
void show_text(char* text);

/// Takes the window and its dialogs off the screen.
void hide_editor();

/// Frees the state; the widgets are not destroyed. The editor can be reserved again.
void forget_editor();

} // namespace grx::editor
