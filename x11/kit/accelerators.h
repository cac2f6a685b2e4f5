// Keys that stand for menu entries. The toolkit registers nothing for an accelerator text that ends in a colon, as these
// do: the library grabs the keys itself, with and without CapsLock and NumLock, and matches them.
#pragma once

#include <X11/Intrinsic.h>
#include <X11/XKBlib.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

#include "kit/block.h"
#include "pure/menu_line.h"
#include "xt_ini_t.h"

namespace grx {

struct Accelerator {
    Widget entry; // null when it was destroyed
    KeySym symbol;
    KeyCode key; // where the symbol is on this keyboard, 0 when nowhere
    unsigned int modifiers;
    bool shifted; // the key's symbol is on its second level: Shift may be held
};

constexpr unsigned int kAcceleratorModifiers = ShiftMask | ControlMask | Mod1Mask;
constexpr unsigned int kNumLock = Mod2Mask;

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

inline void find_key(Accelerator& a) {
    a.key = XKeysymToKeycode(x11_disp, a.symbol);
    KeySym lower = NoSymbol, upper = NoSymbol;
    XtConvertCase(x11_disp, a.symbol, &lower, &upper);
    a.shifted = a.key != 0 && XkbKeycodeToKeysym(x11_disp, a.key, 0, 0) != lower;
}

/// What an accelerator text asks for; no symbol when it names none.
inline Accelerator accelerator_for(Widget entry, std::string_view text) {
    const KeyText parts = split_accelerator(text);
    const auto modifiers = key_modifiers(parts.modifiers);
    Accelerator result{
        entry, modifiers ? keysym_named(parts.key) : NoSymbol, 0, mask_of(modifiers.value_or(KeyModifiers{})), false};
    if (result.symbol != NoSymbol) find_key(result);
    return result;
}

inline bool matches(const Accelerator& accelerator, const XKeyEvent& event) {
    const unsigned int held = event.state & kAcceleratorModifiers;
    const bool as_named = held == accelerator.modifiers;
    const bool with_shift = accelerator.shifted && held == (accelerator.modifiers | ShiftMask);
    return accelerator.key != 0 && event.keycode == accelerator.key && (as_named || with_shift);
}

/// Calls `change(modifiers)` for every state of the locks.
template <class Change>
void with_locks(const Accelerator& accelerator, Change change) {
    for (const unsigned int locks : {0U, static_cast<unsigned int>(LockMask), kNumLock, LockMask | kNumLock}) {
        change(accelerator.modifiers | locks);
        if (accelerator.shifted) change(accelerator.modifiers | ShiftMask | locks);
    }
}

inline void grab(Widget top, const Accelerator& a) {
    if (a.key == 0) return;
    with_locks(a, [&](unsigned int m) { XtGrabKey(top, a.key, m, False, GrabModeAsync, GrabModeAsync); });
}

inline void ungrab(Widget top, const Accelerator& a) {
    if (a.key == 0) return;
    with_locks(a, [&](unsigned int m) { XtUngrabKey(top, a.key, m); });
}

/// The keys of one window's menu bar.
class AcceleratorTable {
  public:
    void add(Widget top, const Accelerator& accelerator) {
        if (accelerator.symbol == NoSymbol || !has_room()) return;
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
        for (std::size_t i = 0; i < count_; ++i) {
            find_key(table_[i]);
            grab(top, table_[i]);
        }
    }

    void clear(Widget top) {
        for (std::size_t i = 0; i < count_ && top != nullptr; ++i) ungrab(top, table_[i]);
        count_ = 0;
        table_.reset();
    }

    bool has(const XKeyEvent& event) const {
        return std::any_of(
            table_.data(), table_.data() + count_, [&event](const Accelerator& a) { return matches(a, event); });
    }

    /// Activates the first entry of a key that is managed and sensitive.
    bool activate(XEvent& event) const {
        for (std::size_t i = 0; i < count_; ++i) {
            const Accelerator& a = table_[i];
            if (a.entry == nullptr || !matches(a, event.xkey)) continue;
            if (!XtIsManaged(a.entry) || !XtIsSensitive(a.entry)) continue;
            XmAnyCallbackStruct call{XmCR_ACTIVATE, &event};
            XtCallCallbacks(a.entry, const_cast<char*>(XmNactivateCallback), &call);
            return true;
        }
        return false;
    }

  private:
    bool has_room() {
        constexpr std::size_t first = 32;
        return count_ < table_.size() || table_.resize(table_.size() == 0 ? first : 2 * table_.size());
    }

    Block<Accelerator> table_;
    std::size_t count_ = 0;
};

} // namespace grx
