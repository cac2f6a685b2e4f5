// Keeps the place of a window among the others of the screen, and the focus, while the window is unmapped and mapped
// again, for changes of its title and border.
#include "windows/stack_place.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <algorithm>
#include <chrono>

#include "system/block.h"
#include "events/queue.h"
#include "windows/window_tree.h"
#include "xt_ini_t.h"

namespace {

// While it exists no other client can change anything. Otherwise the window manager might destroy a frame just when it
// is asked about.
class ServerGrab {
  public:
    ServerGrab() { XGrabServer(x11_disp); }
    ~ServerGrab() {
        XUngrabServer(x11_disp);
        XFlush(x11_disp);
    }
    ServerGrab(const ServerGrab&) = delete;
    ServerGrab& operator=(const ServerGrab&) = delete;
};

} // namespace

namespace grx {

SavedProperty::SavedProperty(Window window, Atom name) : window_(window), name_(name) {
    constexpr long most = 64; // units of 4 bytes
    unsigned long left = 0;
    XGetWindowProperty(
        x11_disp, window, name, 0, most, False, AnyPropertyType, &type_, &format_, &count_, &left, &value_);
}

SavedProperty::~SavedProperty() {
    if (type_ == None) {
        XDeleteProperty(x11_disp, window_, name_);
    } else {
        XChangeProperty(x11_disp, window_, name_, type_, format_, PropModeReplace, value_, static_cast<int>(count_));
    }
    if (value_ != nullptr) XFree(value_);
}

ModestWindow::ModestWindow(Window window)
    : hints_(window, XA_WM_HINTS), time_(window, XInternAtom(x11_disp, kUserTime, False)) {
    const unsigned long never = 0;
    XChangeProperty(x11_disp, window, XInternAtom(x11_disp, kUserTime, False), XA_CARDINAL, 32, PropModeReplace,
        reinterpret_cast<const unsigned char*>(&never), 1);
    XWMHints none{};
    XWMHints* const own = XGetWMHints(x11_disp, window);
    XWMHints& hints = own != nullptr ? *own : none;
    hints.flags |= InputHint;
    hints.input = False;
    XSetWMHints(x11_disp, window, &hints);
    if (own != nullptr) XFree(own);
}

} // namespace grx

namespace {

bool viewable(Window window) {
    XWindowAttributes attributes{};
    return XGetWindowAttributes(x11_disp, window, &attributes) != 0 && attributes.map_state == IsViewable;
}

bool is_managed(Window window) {
    Atom type = None;
    int format = 0;
    unsigned long count = 0, left = 0;
    unsigned char* value = nullptr;
    const Atom state = XInternAtom(x11_disp, "WM_STATE", False);
    XGetWindowProperty(x11_disp, window, state, 0, 0, False, AnyPropertyType, &type, &format, &count, &left, &value);
    if (value != nullptr) XFree(value);
    return type != None;
}

// The window of an application inside a frame, None when the window holds none.
Window managed_window_in(Window frame, int depth = 4) {
    if (is_managed(frame)) return frame;
    if (depth == 0) return None;
    const grx::WindowTree tree(frame);
    for (const Window child : tree.children())
        if (const Window found = managed_window_in(child, depth - 1)) return found;
    return None;
}

} // namespace

namespace grx {

WindowsAbove::WindowsAbove(Window window) {
    const ServerGrab grab;
    const Window frame = frame_of(window);
    const WindowTree tree(WindowTree(frame).root());
    const auto all = tree.children();
    const auto own = std::find(all.begin(), all.end(), frame);
    if (own == all.end()) return;
    windows_ = Block<Window>(static_cast<std::size_t>(all.end() - own));
    if (!windows_) return;
    for (const Window above : std::span(own + 1, all.end()))
        if (const Window found = viewable(above) ? managed_window_in(above) : None) windows_.data()[count_++] = found;
}

} // namespace grx

namespace {

// Asks the window manager, as the conventions want it of clients whose windows have frames. If the window is gone by
// now this causes no error.
void ask_to_raise(Window window) {
    XEvent event{};
    XConfigureRequestEvent& request = event.xconfigurerequest;
    request.type = ConfigureRequest;
    request.parent = DefaultRootWindow(x11_disp);
    request.window = window;
    request.detail = Above;
    request.value_mask = CWStackMode;
    XSendEvent(x11_disp, request.parent, False, SubstructureRedirectMask | SubstructureNotifyMask, &event);
}

constexpr int kPatience = 500; // milliseconds to wait for a manager that does not answer
constexpr int kStep = 5;

template <class Condition>
bool wait_until(const Condition& condition) {
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::milliseconds(kPatience);
    while (!condition()) {
        if (Clock::now() >= end) return false;
        grx::rest_until_input(kStep);
    }
    return true;
}

bool has_focus(Window window) {
    const ServerGrab grab;
    Window focus = None;
    int revert = 0;
    XGetInputFocus(x11_disp, &focus, &revert);
    while (focus != window && focus != None && focus != PointerRoot) focus = grx::WindowTree(focus).parent();
    return focus == window;
}

} // namespace

namespace grx {

StackPlace::StackPlace(Window window) : window_(window) {
    shown_ = window != None && viewable(window);
    if (!shown_) return;
    focused_ = has_focus(window);
    framed_ = framed();
    if (!framed_) return; // without a window manager the window keeps its place
    above_.emplace(window);
    modest_.emplace(window);
    // Otherwise the manager would give the focus to another window and raise that one.
    if (focused_) XSetInputFocus(x11_disp, PointerRoot, RevertToPointerRoot, CurrentTime);
}

void StackPlace::restore() {
    if (!shown_) return;
    const bool shown = wait_until([this] { return viewable(window_) && framed() == framed_; });
    modest_.reset();
    if (!shown) return;
    // The focus is set first, so that what the manager then does is done before it is asked for the order of windows.
    if (focused_) XSetInputFocus(x11_disp, window_, RevertToParent, CurrentTime);
    if (framed_ && above_->nearest() != None) go_below();
}

bool StackPlace::framed() const {
    const ServerGrab grab;
    return frame_of(window_) != window_;
}

// Raises this window and then, in turn, each that belongs above it. Not all managers can put a window below another
// one.
void StackPlace::go_below() const {
    ask_to_raise(window_);
    for (const Window above : above_->all()) ask_to_raise(above);
    wait_until([this] { return in_place(); });
}

} // namespace grx
