// What files of this room keep beyond the life of a window, brought back to what it is in a fresh process: for the end of
// the library's work.
#pragma once

namespace grx {

void forget_alarm();       // one of the application that has not gone off yet
void forget_directories(); // of icons
void forget_font_setting();
void forget_inventory(); // kinds and the order of making
void forget_listing();   // of a directory, and the mask of new files
void forget_settings();

} // namespace grx
