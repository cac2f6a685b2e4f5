// Remembers key presses that were sent on to the main window, so that the menu keys drop them when they come back.
#include "menus/forwarded_keys.h"

#include <algorithm>

namespace grx {

bool ForwardedKeys::add(const XKeyEvent& event) {
    if (count_ == keys_.size()) return false;
    keys_[count_++] = {event.window, event.keycode, event.state, event.time};
    return true;
}

bool ForwardedKeys::take(const XKeyEvent& event) {
    const std::size_t index = index_of(event);
    if (index == count_) return false;
    std::copy(keys_.begin() + static_cast<std::ptrdiff_t>(index) + 1,
        keys_.begin() + static_cast<std::ptrdiff_t>(count_), keys_.begin());
    count_ -= index + 1;
    return true;
}

std::size_t ForwardedKeys::index_of(const XKeyEvent& event) const {
    if (event.send_event == 0) return count_;
    const Key key{event.window, event.keycode, event.state, event.time};
    const auto end = keys_.begin() + static_cast<std::ptrdiff_t>(count_);
    return static_cast<std::size_t>(std::find(keys_.begin(), end, key) - keys_.begin());
}

} // namespace grx
