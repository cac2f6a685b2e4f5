// Requests put straight into the display connection's output buffer, for two cases where the client library's own
// functions cost more than the request: shapes that must not be looked up in the user's cursor theme, and runs of
// small primitives (drawing/batch.h). The connection belongs to the application's one thread.
// Xlib first: the next header defines min and max
#include "display/requests.h"

#include <X11/Xlib.h>
#include <X11/Xlibint.h>

#include "host_t.h"
#include "xt_ini_t.h"

#undef min
#undef max

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
