// The dialogs of the editor: file names, what becomes of a text that is not saved, and that saving failed.
#pragma once

#include "dialogs/editor_state.h"

namespace grx::editor {

/// Shows a dialog, which is made when it is first needed.
void show_dialog(Component component);

/// True when the text was saved; when it could not be, a message says why.
bool save_or_tell();

/// The dialog proposes the present name.
void show_save_dialog();

/// Leaves the editor, or asks what becomes of a text that is not saved.
void exit_or_warn();

/// Closes the file, or asks the same.
void close_or_warn();

} // namespace grx::editor
