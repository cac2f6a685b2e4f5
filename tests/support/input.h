// A real pointer and a real keyboard: XTest on a connection of its own, heard even while somebody grabs the server.
// Every call returns when the server has taken it in; the events then wait on the connection of the code under test.
#pragma once

#include <X11/Intrinsic.h>
#include <X11/Xlib.h>
#include <X11/keysym.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace grxtest {

struct Point {
    int x = 0, y = 0;
    bool operator==(const Point&) const = default;
};

// The connection that input comes from.
class InputConnection {
  public:
    explicit InputConnection(const std::string& server_name);
    Display* display() const { return display_.get(); }
    const std::string& server_name() const { return server_name_; }
    void settle() const; // everything injected has reached the server

  private:
    std::unique_ptr<Display, int (*)(Display*)> display_;
    std::string server_name_;
};

class Pointer {
  public:
    explicit Pointer(const InputConnection& connection) : input_(connection) {}

    void move(int x, int y); // root coordinates, from the top left
    void move_in(Window window, int x, int y);
    void move_in(Widget widget, int x, int y) { move_in(XtWindow(widget), x, y); }
    Point position() const;

    void press(unsigned button = 1);
    void release(unsigned button = 1);
    void click(unsigned button = 1); // where the pointer is
    void click(int x, int y, unsigned button = 1);
    void click_in(Window window, int x, int y, unsigned button = 1);
    void click_in(Widget widget, int x, int y, unsigned button = 1) { click_in(XtWindow(widget), x, y, button); }
    void click_in(Widget widget, unsigned button = 1); // in its middle
    void double_click(unsigned button = 1);            // where the pointer is

    // Press at `from`, motion in `steps` steps, release at `to`; after each of them `between` runs, which may let the
    // application or the window manager follow.
    void drag(Point from, Point to, unsigned button = 1, int steps = 8, const std::function<void()>& between = {});
    void wheel(int notches); // up when positive

    // Drags what the window manager draws. It shows a window of its own meanwhile and holds the server: from that one's
    // coming to its going nothing is asked, only input is sent and events are read. False when neither came.
    bool drag_frame(Point from, Point to);

  private:
    bool top_window_event(int type);
    const InputConnection& input_;
};

class Keyboard {
  public:
    explicit Keyboard(const InputConnection& connection) : input_(connection) {}

    // The key that carries the symbol on the present layout; throws when none does.
    void press(KeySym symbol);
    void release(KeySym symbol);
    // Press and release, with the modifiers given (ShiftMask, ControlMask, Mod1Mask for Alt) and those that the symbol
    // needs on the present layout.
    void key(KeySym symbol, unsigned modifiers = 0);
    void type(std::string_view utf8); // letters of Latin-1; \n is Return, \t is Tab
    void caps_lock() { key(XK_Caps_Lock); }
    void num_lock() { key(XK_Num_Lock); }
    void layout(const std::string& name); // "us", "fr": what setxkbmap takes

  private:
    struct Key {
        KeyCode code = 0;
        unsigned modifiers = 0;
    };
    Key find(KeySym symbol) const;
    void send(KeyCode code, bool down);
    void hold(unsigned modifiers, bool down);

    const InputConnection& input_;
};

} // namespace grxtest
