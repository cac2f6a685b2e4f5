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

/// Places of the editor's widgets.
enum Place : std::size_t {
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
    kPrin,
    kMenuBar,
    kShell,
    kPlaces
};

/// The widget at a place; null while there is none.
Widget at(Place place);
void put(Place place, Widget w);

/// False when the one editor was not reserved, or was given back.
bool is_open();

/// The editor has a window.
bool is_on_show();

/// The file whose text the editor shows.
struct TextFile {
    Block<char> name;     // empty: there is none
    bool on_disk = false; // there is such a file: it was read, or written
    bool saved = true;
    TextEncoding encoding = TextEncoding::Unknown;
};

TextFile& text_file();
bool set_filename(std::string_view name);

int exit_status();
void set_exit_status(int status);

/// Which editor a destroy callback is of.
intptr_t generation();

/// The keys of the menu.
AcceleratorTable& keys();

/// What was asked of the clipboard.
SelectionText& asked_text();

/// Forgets widgets, file and keys: the editor can be reserved again.
void forget_places();

void set_sensitive(Place place, bool sensitive);
void open_for_typing();
void show_text(char* text);

/// The window and its dialogs.
void take_off_screen();

} // namespace grx::editor
