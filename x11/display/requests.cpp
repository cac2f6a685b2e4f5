// Writes requests for bitmaps and cursors straight into the output buffer of the connection, for the cursors of
// windows.
#include "display/requests.h"

#include <X11/Xlib.h>
// Xlib first: the next header defines min and max
#include <X11/Xlibint.h>

#undef min
#undef max

#include "xt_ini_t.h"

namespace grx {

Pixmap new_bitmap(unsigned int width, unsigned int height) {
    Display* const dpy = x11_disp;
    LockDisplay(dpy);
    xCreatePixmapReq* req = nullptr;
    GetReq(CreatePixmap, req);
    req->drawable = static_cast<CARD32>(DefaultRootWindow(dpy));
    req->width = static_cast<CARD16>(width);
    req->height = static_cast<CARD16>(height);
    req->depth = 1;
    const Pixmap id = req->pid = static_cast<CARD32>(XAllocID(dpy));
    UnlockDisplay(dpy);
    SyncHandle();
    return id;
}

Cursor new_bitmap_cursor(Pixmap shape, const CursorColours& colours, unsigned int hot_spot) {
    Display* const dpy = x11_disp;
    LockDisplay(dpy);
    xCreateCursorReq* req = nullptr;
    GetReq(CreateCursor, req);
    const Cursor id = req->cid = static_cast<CARD32>(XAllocID(dpy));
    req->source = req->mask = static_cast<CARD32>(shape);
    req->foreRed = colours.foreground.red;
    req->foreGreen = colours.foreground.green;
    req->foreBlue = colours.foreground.blue;
    req->backRed = colours.background.red;
    req->backGreen = colours.background.green;
    req->backBlue = colours.background.blue;
    req->x = req->y = static_cast<CARD16>(hot_spot);
    UnlockDisplay(dpy);
    SyncHandle();
    return id;
}

} // namespace grx
