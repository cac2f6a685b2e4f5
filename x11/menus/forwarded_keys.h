// Key presses that were sent on to the main window and have not come back yet.
#pragma once

#include <X11/Xlib.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace grx {

/// They come back in the order they were sent: one that does takes along those before it, which never will.
class ForwardedKeys {
  public:
    /// False when there is no room: what is not sent need not be told from the user's keys.
    bool add(const XKeyEvent& event) {
        if (count_ == keys_.size()) return false;
        keys_[count_++] = {event.window, event.keycode, event.state, event.time};
        return true;
    }

    bool holds(const XKeyEvent& event) const { return place_of(event) < count_; }

    /// True for one that came back; it is forgotten.
    bool take(const XKeyEvent& event) {
        const std::size_t place = place_of(event);
        if (place == count_) return false;
        std::copy(keys_.begin() + static_cast<std::ptrdiff_t>(place) + 1,
            keys_.begin() + static_cast<std::ptrdiff_t>(count_), keys_.begin());
        count_ -= place + 1;
        return true;
    }

  private:
    struct Key {
        Window window;
        unsigned int keycode;
        unsigned int state;
        Time time;
        bool operator==(const Key&) const = default;
    };

    std::size_t place_of(const XKeyEvent& event) const {
        if (event.send_event == 0) return count_;
        const Key key{event.window, event.keycode, event.state, event.time};
        const auto end = keys_.begin() + static_cast<std::ptrdiff_t>(count_);
        return static_cast<std::size_t>(std::find(keys_.begin(), end, key) - keys_.begin());
    }

    static constexpr std::size_t kMost = 256;
    std::array<Key, kMost> keys_{};
    std::size_t count_ = 0;
};

} // namespace grx
