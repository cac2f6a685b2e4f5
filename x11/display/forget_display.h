// What files of this room keep beyond the life of a window, brought back to what it is in a fresh process: for the end of
// the library's work.
#pragma once

namespace grx {

void forget_colours();
void forget_contexts();        // frees those that are left
void forget_exact_calls();     // of the connection that is closed
void forget_lost_connection(); // the application's rescue function
void forget_palettes();

} // namespace grx
