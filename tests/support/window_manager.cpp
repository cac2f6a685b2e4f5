#include "tests/support/window_manager.h"

#include "tests/support/wait.h"

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace grxtest {
namespace {

constexpr Milliseconds start_deadline{20000};

using Connection = std::unique_ptr<Display, decltype(&XCloseDisplay)>;

bool has_property(Display* display, Window window, Atom property) {
    Atom type = None;
    int format = 0;
    unsigned long items = 0, left = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(display, window, property, 0, 1, False, AnyPropertyType, &type, &format, &items, &left, &data);
    if (data) XFree(data);
    return type != None;
}

// Lets the server speak, at most for a moment.
void wait_for_change(Display* display) {
    if (XPending(display) == 0) wait_readable(ConnectionNumber(display), Milliseconds{50});
    XEvent event;
    while (XPending(display) > 0) XNextEvent(display, &event);
}

// openbox and fvwm announce themselves before they look at windows, and can miss one that is mapped in between: one is ready when it
// has taken a window into its care.
bool takes_windows(Display* display) {
    const Window root = DefaultRootWindow(display);
    const Window probe = XCreateSimpleWindow(display, root, 0, 0, 10, 10, 0, 0, 0);
    const Atom state = XInternAtom(display, "WM_STATE", False);
    XSelectInput(display, probe, PropertyChangeMask);
    const auto taken = [&] { return has_property(display, probe, state); };
    XMapWindow(display, probe);
    const bool result = wait_until(
        taken, [&] { wait_for_change(display); }, Milliseconds{200});
    XUnmapWindow(display, probe);
    if (result) wait_until([&] { return !taken(); }, [&] { wait_for_change(display); }, Milliseconds{1000});
    XDestroyWindow(display, probe);
    XSync(display, False);
    return result;
}

std::vector<std::string> command(WindowManager::Kind kind) {
    if (kind == WindowManager::Kind::mwm) return {"mwm"};
    if (kind == WindowManager::Kind::openbox) return {"openbox"};
    return {"fvwm", "-f", "/dev/null"}; // the user's own configuration stays out of it
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
    child_ = Child(command(kind), options);
    const auto started = [&] { return has_property(display, DefaultRootWindow(display), ready); };
    const auto ended_or = [&](const auto& condition) { return !child_.running() || condition(); };
    const auto step = [&] { wait_for_change(display); };
    wait_until([&] { return ended_or(started); }, step, start_deadline);
    if (!mwm) wait_until([&] { return ended_or([&] { return takes_windows(display); }); }, step, start_deadline);
    if (!child_.running() || !started()) throw std::runtime_error(command(kind).front() + " does not start");
}

} // namespace grxtest
