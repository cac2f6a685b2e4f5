// The file in the editor: read, saved, closed.
#pragma once

namespace grx::editor {

/// Shows the file that was named. False when it could not be read, or is no text: the text on show stays.
bool show_file();

/// Why a text was not saved, in ISO 8859-1; null when it was.
using Reason = const char*;

/// Saves the text under the file's name.
Reason save_text();

/// Leaves an empty text that cannot be typed in. What was not saved is lost.
void close_file();

} // namespace grx::editor
