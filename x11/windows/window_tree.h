// Asks the server how windows stand in each other, for all that must know the frames of the window manager.
#pragma once

#include <X11/Xlib.h>

#include <span>

namespace grx {

/// The parent and the children of a window as the server tells them at construction.
class WindowTree {
  public:
    explicit WindowTree(Window window);
    ~WindowTree();
    WindowTree(const WindowTree&) = delete;
    WindowTree& operator=(const WindowTree&) = delete;

    Window root() const { return root_; }
    Window parent() const { return parent_ != root_ ? parent_ : None; }      // None when it is the root
    std::span<const Window> children() const { return {children_, count_}; } // from the lowest to the highest

  private:
    Window root_ = None;
    Window parent_ = None;
    Window* children_ = nullptr;
    unsigned int count_ = 0;
};

/// The window manager's frame around a window, or the window itself when it has no frame.
Window frame_of(Window window);

} // namespace grx
