#include "tests/support/input.h"

#include "tests/support/wait.h"

#include "tests/support/child.h"
#include "tests/support/xserver.h"

#include <X11/StringDefs.h>

#include <X11/extensions/XTest.h>

#include <array>
#include <stdexcept>

namespace grxtest {
namespace {

constexpr unsigned wheel_up = 4, wheel_down = 5;

struct Modifier {
    unsigned mask;
    KeySym symbol;
};
constexpr std::array modifiers_by_key{Modifier{ShiftMask, XK_Shift_L}, Modifier{ControlMask, XK_Control_L},
    Modifier{Mod1Mask, XK_Alt_L}, Modifier{Mod5Mask, XK_ISO_Level3_Shift}};

// Where the symbols of the first layout group stand in the core keyboard mapping, and what reaches them.
struct Level {
    int index;
    unsigned modifiers;
};
constexpr std::array levels{Level{0, 0}, Level{1, ShiftMask}, Level{4, Mod5Mask}, Level{5, ShiftMask | Mod5Mask}};

KeySym symbol_of(unsigned code_point) {
    if (code_point == '\n') return XK_Return;
    if (code_point == '\t') return XK_Tab;
    return code_point; // Latin-1 keysyms are the code points
}

} // namespace

InputConnection::InputConnection(const std::string& server_name)
    : display_(open_connection(server_name), XCloseDisplay), server_name_(server_name) {
    XTestGrabControl(display(), True);
    settle();
}

void InputConnection::settle() const {
    XSync(display(), False);
}

void Pointer::move(int x, int y) {
    XTestFakeMotionEvent(input_.display(), -1, x, y, CurrentTime);
    input_.settle();
}

void Pointer::move_in(Window window, int x, int y) {
    int root_x = 0, root_y = 0;
    Window child = None;
    Display* display = input_.display();
    if (!XTranslateCoordinates(display, window, DefaultRootWindow(display), x, y, &root_x, &root_y, &child))
        throw std::runtime_error("no such window for the pointer");
    move(root_x, root_y);
}

Point Pointer::position() const {
    Window root = None, child = None;
    Point at;
    int x = 0, y = 0;
    unsigned state = 0;
    Display* display = input_.display();
    XQueryPointer(display, DefaultRootWindow(display), &root, &child, &at.x, &at.y, &x, &y, &state);
    return at;
}

void Pointer::press(unsigned button) {
    XTestFakeButtonEvent(input_.display(), button, True, CurrentTime);
    input_.settle();
}

void Pointer::release(unsigned button) {
    XTestFakeButtonEvent(input_.display(), button, False, CurrentTime);
    input_.settle();
}

void Pointer::click(unsigned button) {
    press(button);
    release(button);
}

void Pointer::click(int x, int y, unsigned button) {
    move(x, y);
    click(button);
}

void Pointer::click_in(Window window, int x, int y, unsigned button) {
    move_in(window, x, y);
    click(button);
}

void Pointer::click_in(Widget widget, unsigned button) {
    Dimension width = 0, height = 0;
    XtVaGetValues(widget, XtNwidth, &width, XtNheight, &height, nullptr);
    click_in(widget, width / 2, height / 2, button);
}

void Pointer::double_click(unsigned button) {
    click(button);
    click(button);
}

void Pointer::drag(Point from, Point to, unsigned button, int steps, const std::function<void()>& between) {
    const auto follow = [&between] {
        if (between) between();
    };
    move(from.x, from.y);
    follow();
    press(button);
    follow();
    for (int i = 1; i <= steps; ++i) {
        move(from.x + (to.x - from.x) * i / steps, from.y + (to.y - from.y) * i / steps);
        follow();
    }
    release(button);
    follow();
}

bool Pointer::top_window_event(int type) {
    Display* const display = input_.display();
    const auto came = [=] {
        while (XPending(display) > 0) {
            XEvent event{};
            XNextEvent(display, &event);
            if (event.type == type) return true;
        }
        return false;
    };
    return wait_until(came, [=] { wait_readable(ConnectionNumber(display), Milliseconds{20}); });
}

bool Pointer::drag_frame(Point from, Point to) {
    Display* const display = input_.display();
    XSelectInput(display, DefaultRootWindow(display), SubstructureNotifyMask);
    move(from.x, from.y);
    XEvent old{};
    while (XPending(display) > 0) XNextEvent(display, &old);
    press();
    move((from.x + to.x) / 2, (from.y + to.y) / 2);
    const bool begun = top_window_event(MapNotify);
    move(to.x, to.y);
    release();
    const bool ended = top_window_event(UnmapNotify);
    XSelectInput(display, DefaultRootWindow(display), NoEventMask);
    return begun && ended;
}

void Pointer::wheel(int notches) {
    for (; notches > 0; --notches) click(wheel_up);
    for (; notches < 0; ++notches) click(wheel_down);
}

Keyboard::Key Keyboard::find(KeySym symbol) const {
    int first = 0, last = 0, width = 0;
    XDisplayKeycodes(input_.display(), &first, &last);
    const std::unique_ptr<KeySym, int (*)(void*)> table(
        XGetKeyboardMapping(input_.display(), static_cast<KeyCode>(first), last - first + 1, &width), XFree);
    for (const Level& level : levels)
        for (int code = first; code <= last && level.index < width; ++code)
            if (table.get()[(code - first) * width + level.index] == symbol)
                return {static_cast<KeyCode>(code), level.modifiers};
    throw std::runtime_error("no key gives keysym " + std::to_string(symbol));
}

void Keyboard::send(KeyCode code, bool down) {
    XTestFakeKeyEvent(input_.display(), code, down, CurrentTime);
    input_.settle();
}

void Keyboard::hold(unsigned modifiers, bool down) {
    for (const Modifier& modifier : modifiers_by_key)
        if (modifiers & modifier.mask) send(find(modifier.symbol).code, down);
}

void Keyboard::press(KeySym symbol) {
    send(find(symbol).code, true);
}
void Keyboard::release(KeySym symbol) {
    send(find(symbol).code, false);
}

void Keyboard::key(KeySym symbol, unsigned modifiers) {
    const Key found = find(symbol);
    const unsigned held = modifiers | found.modifiers;
    hold(held, true);
    send(found.code, true);
    send(found.code, false);
    hold(held, false);
}

void Keyboard::type(std::string_view utf8) {
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        unsigned code_point = static_cast<unsigned char>(utf8[i]);
        if (code_point >= 0xC0 && i + 1 < utf8.size())
            code_point = (code_point & 0x1FU) << 6 | (static_cast<unsigned char>(utf8[++i]) & 0x3FU);
        key(symbol_of(code_point));
    }
}

void Keyboard::layout(const std::string& name) {
    Child setter({"setxkbmap", "-display", input_.server_name(), "-layout", name});
    if (setter.wait_exit() != 0) throw std::runtime_error("setxkbmap refuses layout " + name);
    input_.settle();
}

} // namespace grxtest
