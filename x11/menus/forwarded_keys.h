// Key presses that were sent on to the main window and have not come back yet.
#pragma once

#include <X11/Xlib.h>

#include <array>
#include <cstddef>

namespace grx {

/// Keys come back in the order in which they were sent: when one does, those before it are lost, and forgotten with it.
class ForwardedKeys {
  public:
    /// False when there is no room. The key must then not be sent: it could not be told from the user's.
    bool add(const XKeyEvent& event);

    bool holds(const XKeyEvent& event) const { return index_of(event) < count_; }

    /// True for one that came back; it is forgotten.
    bool take(const XKeyEvent& event);

  private:
    struct Key {
        Window window;
        unsigned int keycode;
        unsigned int state;
        Time time;
        bool operator==(const Key&) const = default;
    };

    std::size_t index_of(const XKeyEvent& event) const;

    static constexpr std::size_t kMost = 256;
    std::array<Key, kMost> keys_{};
    std::size_t count_ = 0;
};

} // namespace grx
