// What files of this room keep beyond the life of a window, brought back to what it is in a fresh process: for the end of
// the library's work.
#pragma once

namespace grx {

void forget_display_in_toolkit(); // before it is closed
void forget_pixmaps_in_toolkit(); // before it is closed, when nothing of the library uses them
void note_display_in_toolkit();   // while its display object lives
void renew_display_in_toolkit();  // for a display that has just been opened
void forget_encoding();
void forget_hidden_shell();
void forget_layouts();

} // namespace grx
