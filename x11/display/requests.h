// Requests put straight into the display connection's output buffer, for two cases where the client library's own
// functions cost more than the request: shapes that must not be looked up in the user's cursor theme, and runs of
// small primitives (drawing/batch.h). The connection belongs to the application's one thread.
#pragma once

#include <X11/Xlib.h>
// Xlib first: the next header defines min and max
#include <X11/Xlibint.h>
#undef min
#undef max

#include "host_t.h"
#include "xt_ini_t.h"

namespace grx {

/// A pixmap one plane deep.
Pixmap new_bitmap(unsigned int width, unsigned int height);

struct CursorColours {
    XColor foreground, background;
};

/// A cursor whose bitmap is both its shape and its mask.
Cursor new_bitmap_cursor(Pixmap shape, const CursorColours& colours, unsigned int hot_spot);

} // namespace grx
