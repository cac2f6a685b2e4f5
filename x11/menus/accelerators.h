// Keys that stand for menu entries. The toolkit registers nothing for an accelerator text that ends in a colon, as these
// do: the library grabs the keys itself, with and without CapsLock and NumLock, wherever a layout group has them, and
// matches them.
#pragma once

#include <X11/Intrinsic.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <cstring>
#include <string_view>

#include "system/block.h"
#include "events/keyboard.h"
#include "pure/menu_line.h"
#include "xt_ini_t.h"

namespace grx {

struct Accelerator {
    Widget entry; // null when it was destroyed
    MenuKey key;
};

inline unsigned int mask_of(const KeyModifiers& held) {
    return (held.control ? ControlMask : 0U) | (held.shift ? ShiftMask : 0U) | (held.alt ? Mod1Mask : 0U);
}

inline KeySym keysym_named(std::string_view name) {
    constexpr std::size_t longest = 40;
    if (name.empty() || name.size() >= longest) return NoSymbol;
    char text[longest] = "";
    std::memcpy(text, name.data(), name.size());
    const KeySym named = XStringToKeysym(text);
    if (named != NoSymbol || name.size() > 1) return named;
    return static_cast<unsigned char>(text[0]); // a sign is its own keysym
}

/// What an accelerator text asks for; no symbol when it names none.
inline Accelerator accelerator_for(Widget entry, std::string_view text) {
    const KeyText parts = split_accelerator(text);
    const auto modifiers = key_modifiers(parts.modifiers);
    const KeySym symbol = modifiers ? keysym_named(parts.key) : NoSymbol;
    if (symbol == NoSymbol) return {entry, {}};
    return {entry, {symbol, mask_of(*modifiers), places_of(symbol)}};
}

/// Calls `change(code, modifiers)` for each key that has the symbol in some group, in every state of the locks.
template <class Change>
void for_each_grab(const MenuKey& key, unsigned int num_lock, Change change) {
    const auto grab_with = [&](const KeyPlace& place, unsigned int locks) {
        change(place.code, key.modifiers | locks);
        if (place.shifted) change(place.code, key.modifiers | ShiftMask | locks);
    };
    for (const auto* place = key.places.begin(); place != key.places.end(); ++place) {
        const bool again =
            std::any_of(key.places.begin(), place, [place](const KeyPlace& p) { return p.code == place->code; });
        if (place->code == 0 || again) continue;
        for (const unsigned int locks : {0U, static_cast<unsigned int>(LockMask), num_lock, LockMask | num_lock})
            grab_with(*place, locks);
    }
}

/// The keys of one window's menu bar.
class AcceleratorTable {
  public:
    void add(Widget top, const Accelerator& accelerator) {
        if (accelerator.key.symbol == NoSymbol || !has_room()) return;
        if (count_ == 0) num_lock_ = num_lock_mask();
        table_[count_++] = accelerator;
        grab(top, accelerator);
    }

    /// An entry that is destroyed: its key then does nothing.
    void forget(Widget entry) {
        for (std::size_t i = 0; i < count_; ++i) {
            if (table_[i].entry == entry) table_[i].entry = nullptr;
        }
    }

    /// The keys where a new layout of the keyboard has them.
    void follow_keyboard(Widget top) {
        for (std::size_t i = 0; i < count_; ++i) ungrab(top, table_[i]); // all of them before any: places are exchanged
        num_lock_ = num_lock_mask();
        for (std::size_t i = 0; i < count_; ++i) {
            table_[i].key.places = places_of(table_[i].key.symbol);
            grab(top, table_[i]);
        }
    }

    void clear(Widget top) {
        for (std::size_t i = 0; i < count_ && top != nullptr; ++i) ungrab(top, table_[i]);
        count_ = 0;
        table_.reset();
    }

    /// True for a key that is grabbed for another layout group than the one in force.
    bool is_of_another_group(const XKeyEvent& event) const {
        const auto here = [&event](const Accelerator& a) { return matches(a.key, event); };
        const auto somewhere = [&event](const Accelerator& a) { return matches_somewhere(a.key, event); };
        return std::any_of(begin(), end(), somewhere) && std::none_of(begin(), end(), here);
    }

    /// True for a key that activates an entry.
    bool has(const XKeyEvent& event) const { return entry_of(event) != nullptr; }

    bool activate(XEvent& event) const {
        Widget entry = entry_of(event.xkey);
        if (entry == nullptr) return false;
        XmAnyCallbackStruct call{XmCR_ACTIVATE, &event};
        XtCallCallbacks(entry, const_cast<char*>(XmNactivateCallback), &call);
        return true;
    }

  private:
    const Accelerator* begin() const { return table_.data(); }
    const Accelerator* end() const { return table_.data() + count_; }

    /// The first entry of a key that is managed and sensitive.
    Widget entry_of(const XKeyEvent& event) const {
        const auto* const found = std::find_if(begin(), end(), [&event](const Accelerator& a) {
            return a.entry != nullptr && matches(a.key, event) && XtIsManaged(a.entry) && XtIsSensitive(a.entry);
        });
        return found != end() ? found->entry : nullptr;
    }

    bool has_room() {
        constexpr std::size_t first = 32;
        return count_ < table_.size() || table_.resize(table_.size() == 0 ? first : 2 * table_.size());
    }

    void grab(Widget top, const Accelerator& a) const {
        for_each_grab(a.key, num_lock_,
            [top](KeyCode code, unsigned int m) { XtGrabKey(top, code, m, False, GrabModeAsync, GrabModeAsync); });
    }

    void ungrab(Widget top, const Accelerator& a) const {
        for_each_grab(a.key, num_lock_, [top](KeyCode code, unsigned int m) { XtUngrabKey(top, code, m); });
    }

    Block<Accelerator> table_;
    std::size_t count_ = 0;
    unsigned int num_lock_ = 0; // of the grabs
};

} // namespace grx
