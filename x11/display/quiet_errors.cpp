// Drops errors where Xlib looks first, in its list of handlers of replies, and asks the server for its time.
#include "display/quiet_errors.h"

#include <X11/Xatom.h>
#include <X11/Xlibint.h>
#undef min
#undef max

#include <new>

#include "xt_ini_t.h"

namespace grx {

namespace {

struct Handler {
    _XAsyncHandler handler;
    _XAsyncErrorState state;
};

Bool is_of_window(Display*, XEvent* event, XPointer window) {
    const bool asked = event->type == PropertyNotify && event->xproperty.window == *reinterpret_cast<Window*>(window);
    return asked ? True : False;
}

} // namespace

QuietErrors::QuietErrors() {
    static_assert(sizeof(Handler) <= sizeof room_.bytes);
    auto* const own = new (room_.bytes) Handler{};
    LockDisplay(x11_disp);
    own->state.min_sequence_number = NextRequest(x11_disp);
    own->handler.next = x11_disp->async_handlers;
    own->handler.handler = _XAsyncErrorHandler;
    own->handler.data = reinterpret_cast<XPointer>(&own->state);
    x11_disp->async_handlers = &own->handler;
    UnlockDisplay(x11_disp);
}

QuietErrors::~QuietErrors() {
    auto* const own = std::launder(reinterpret_cast<Handler*>(room_.bytes));
    XSync(x11_disp, False);
    LockDisplay(x11_disp);
    DeqAsyncHandler(x11_disp, &own->handler);
    UnlockDisplay(x11_disp);
}

Time server_time() {
    XSetWindowAttributes attributes{};
    attributes.event_mask = PropertyChangeMask;
    Window window = XCreateWindow(
        x11_disp, DefaultRootWindow(x11_disp), 0, 0, 1, 1, 0, 0, InputOnly, CopyFromParent, CWEventMask, &attributes);
    XChangeProperty(x11_disp, window, XA_WM_NAME, XA_STRING, 8, PropModeAppend, nullptr, 0);
    XEvent event{};
    XIfEvent(x11_disp, &event, is_of_window, reinterpret_cast<XPointer>(&window));
    XDestroyWindow(x11_disp, window);
    return event.xproperty.time;
}

} // namespace grx
