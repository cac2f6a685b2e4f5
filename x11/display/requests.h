// Requests that the client library has a function for, made past it: shapes that must not be looked up in the user's
// cursor theme.
#pragma once

#include <X11/Xlib.h>

namespace grx {

/// A pixmap one plane deep.
Pixmap new_bitmap(unsigned int width, unsigned int height);

struct CursorColours {
    XColor foreground, background;
};

/// A cursor whose bitmap is both its shape and its mask.
Cursor new_bitmap_cursor(Pixmap shape, const CursorColours& colours, unsigned int hot_spot);

} // namespace grx
