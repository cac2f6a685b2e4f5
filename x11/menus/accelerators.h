// Keys that stand for menu entries. The toolkit registers nothing for an accelerator text that ends in a colon, as
// these do: the library grabs the keys itself, with and without CapsLock and NumLock, wherever a layout group has
// them, and matches them.
#pragma once

#include <X11/Intrinsic.h>

#include <cstddef>
#include <string_view>

#include "system/block.h"
#include "events/layout_groups.h"

namespace grx {

struct Accelerator {
    Widget entry; // null when it was destroyed
    MenuKey key;
};

/// What an accelerator text asks for; no symbol when it names none.
Accelerator accelerator_for(Widget entry, std::string_view text);

/// The keys of one window's menu bar.
class AcceleratorTable {
  public:
    /// Grabs the key for `top`, the widget that the entries' window has for its keys.
    void add(Widget top, const Accelerator& accelerator);

    /// Forgets an entry that is destroyed: its key then does nothing.
    void forget(Widget entry);

    /// Grabs the keys anew, where a new layout of the keyboard has them.
    void follow_keyboard(Widget top);

    /// Forgets all keys; null when the grabs go with their window.
    void clear(Widget top);

    /// True for a key that is grabbed for another layout group than the one in force.
    bool is_of_another_group(const XKeyEvent& event) const;

    /// True for a key that activates an entry.
    bool has(const XKeyEvent& event) const { return entry_of(event) != nullptr; }

    /// True for a key of an entry that `wanted` says yes to, sensitive or not.
    bool is_of(const XKeyEvent& event, bool (*wanted)(Widget entry)) const;

    /// Chooses the entry of a key; false when there is none.
    bool activate(XEvent& event) const;

  private:
    const Accelerator* begin() const { return table_.data(); }
    const Accelerator* end() const { return table_.data() + count_; }

    /// The first entry of a key that is managed and sensitive.
    Widget entry_of(const XKeyEvent& event) const;
    bool has_room();
    void grab(Widget top, const Accelerator& a) const;
    void ungrab(Widget top, const Accelerator& a) const;

    Block<Accelerator> table_;
    std::size_t count_ = 0;
    unsigned int num_lock_ = 0; // of the grabs
};

} // namespace grx
