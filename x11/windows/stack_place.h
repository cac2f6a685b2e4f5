// Keeps the place of a window among the others of the screen, and the focus, while the window is unmapped and mapped
// again, for changes of its title and border. A window manager takes the mapped window for a new one: it puts it on
// top, gives it the focus, and raises what gets the focus.
#pragma once

#include <X11/Xlib.h>

#include <optional>

#include "system/block.h"

namespace grx {

/// Remembers a property of a window and puts it back when it is destroyed.
class SavedProperty {
  public:
    SavedProperty(Window window, Atom name);
    ~SavedProperty();
    SavedProperty(const SavedProperty&) = delete;
    SavedProperty& operator=(const SavedProperty&) = delete;

  private:
    Window window_;
    Atom name_;
    Atom type_ = None;
    int format_ = 0;
    unsigned long count_ = 0;
    unsigned char* value_ = nullptr;
};

/// Makes a window ask for no focus when it is mapped, until it is destroyed. Some managers obey the hint, others the
/// time of the last input, so both are set.
class ModestWindow {
  public:
    explicit ModestWindow(Window window);

  private:
    static constexpr const char* kUserTime = "_NET_WM_USER_TIME";

    SavedProperty hints_, time_;
};

/// The shown windows above a window, from the lowest to the highest.
class WindowsAbove {
  public:
    explicit WindowsAbove(Window window);

    Window nearest() const { return count_ > 0 ? windows_.data()[0] : None; }
    std::span<const Window> all() const { return {windows_.data(), count_}; }

  private:
    Block<Window> windows_;
    std::size_t count_ = 0;
};

/// To be made before a window is unmapped. restore() is to be called after the window is mapped again.
class StackPlace {
  public:
    explicit StackPlace(Window window);

    void restore();

  private:
    bool framed() const;
    bool in_place() const { return WindowsAbove(window_).nearest() == above_->nearest(); }

    void go_below() const;

    Window window_;
    bool shown_ = false;
    bool framed_ = false;
    bool focused_ = false;
    std::optional<WindowsAbove> above_;
    std::optional<ModestWindow> modest_;
};

} // namespace grx
