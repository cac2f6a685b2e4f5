// The font of the interface: an outline font where one is wanted and the server can blend, else a font of the server. How
// large its texts are, for all who place them.
#pragma once

#include <X11/Xlib.h>

#include <string_view>

#include "system/block.h"

using XftFont = struct _XftFont;

namespace grx {

/// What became of the wish for an outline font.
enum class Outline { opened, too_plain_a_server, not_there };

/// Opens the font of a pattern. Its height in pixels is told for a server that cannot blend, too.
Outline open_outline_font(std::string_view pattern, int& height);

/// The one that is open, else null.
XftFont* outline_font();

/// The same for somebody who will close it once more than it was opened, as the toolkit does with each record of it.
XftFont* shared_outline_font();

/// Closes it, while there is a display.
void close_outline_font();

/// The name of the server's font that is nearest in height; "fixed" when the server tells of none.
Block<char> server_font_of_height(int height);

/// False when there is no font at all.
bool has_interface_font();

int interface_ascent();
int interface_descent();

inline int interface_line_height() {
    return interface_ascent() + interface_descent();
}

/// The width of a text of the application in pixels; 0 without a font.
int interface_text_width(std::string_view text);

/// Writes a text of ASCII as the interface does, in the pixel given and within a part of the window.
void draw_interface_text(
    Window window, GC context, unsigned long pixel, XRectangle part, XPoint at, std::string_view text);

} // namespace grx
