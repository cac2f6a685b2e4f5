// What files of this room keep beyond the life of a window, brought back to what it is in a fresh process: for the end of
// the library's work.
#pragma once

namespace grx {

void forget_digitized(); // the window chosen, the last key
void forget_double_click();
void forget_untold_ends();

} // namespace grx
