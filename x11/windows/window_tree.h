// The frames that a window manager puts windows into.
#pragma once

#include <X11/Xlib.h>

#include <span>

namespace grx {

/// What the server tells of the windows around one.
class WindowTree {
  public:
    explicit WindowTree(Window window);
    ~WindowTree();
    WindowTree(const WindowTree&) = delete;
    WindowTree& operator=(const WindowTree&) = delete;

    Window root() const { return root_; }
    Window parent() const { return parent_ != root_ ? parent_ : None; }      // None for the root itself
    std::span<const Window> children() const { return {children_, count_}; } // from the lowest to the highest

  private:
    Window root_ = None;
    Window parent_ = None;
    Window* children_ = nullptr;
    unsigned int count_ = 0;
};

/// The window manager's frame, or the window itself where there is none.
Window frame_of(Window window);

} // namespace grx
