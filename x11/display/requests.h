// Makes bitmaps and cursors without the functions of the client library, which would look for each shape in the files
// of the user's cursor theme.
#pragma once

#include <X11/Xlib.h>

namespace grx {

/// A pixmap one plane deep, which the caller frees.
Pixmap new_bitmap(unsigned int width, unsigned int height);

struct CursorColours {
    XColor foreground, background;
};

/// A cursor whose bitmap is both its shape and its mask. The hot spot lies `hot_spot` pixels from the left and the top.
Cursor new_bitmap_cursor(Pixmap shape, const CursorColours& colours, unsigned int hot_spot);

} // namespace grx
