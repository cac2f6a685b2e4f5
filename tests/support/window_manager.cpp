#include "tests/support/window_manager.h"

#include "tests/support/wait.h"

#include <memory>
#include <stdexcept>

namespace grxtest {
namespace {

using Connection = std::unique_ptr<Display, decltype(&XCloseDisplay)>;

bool root_has(Display* display, Atom property) {
    Atom type = None;
    int format = 0;
    unsigned long items = 0, left = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(display, DefaultRootWindow(display), property, 0, 1, False, AnyPropertyType, &type, &format,
        &items, &left, &data);
    if (data) XFree(data);
    return type != None;
}

void wait_for_property_change(Display* display) {
    if (XPending(display) == 0) wait_readable(ConnectionNumber(display), Milliseconds{100});
    XEvent event;
    while (XPending(display) > 0) XNextEvent(display, &event);
}

} // namespace

WindowManager::WindowManager(const XServer& server, Kind kind) {
    const bool mwm = kind == Kind::mwm;
    const Connection connection(open_connection(server.name()), XCloseDisplay);
    Display* display = connection.get();
    const Atom ready = XInternAtom(display, mwm ? "_MOTIF_WM_INFO" : "_NET_SUPPORTING_WM_CHECK", False);
    XSelectInput(display, DefaultRootWindow(display), PropertyChangeMask);

    ChildOptions options;
    options.environment = {{"DISPLAY", server.name()}};
    options.end_signal = mwm ? SIGKILL : SIGTERM; // mwm ignores the gentle ones
    child_ = Child({mwm ? "mwm" : "openbox"}, options);
    const auto started = [&] { return root_has(display, ready) || !child_.running(); };
    if (!wait_until(
            started, [&] { wait_for_property_change(display); }, Milliseconds{20000})
        || !child_.running())
        throw std::runtime_error(mwm ? "mwm does not start" : "openbox does not start");
}

} // namespace grxtest
