// Keys that stand for menu entries. The toolkit registers nothing for an accelerator text that ends in a colon, as these
// do: the library grabs the keys itself, with and without CapsLock and NumLock, and matches them.
#pragma once

#include <X11/Intrinsic.h>
#include <X11/XKBlib.h>
#include <Xm/Xm.h>

#include <array>
#include <cstring>
#include <string_view>

#include "kit/block.h"
#include "pure/menu_line.h"
#include "xt_ini_t.h"

namespace grx {

struct Accelerator {
    Widget entry;
    KeyCode key;
    unsigned int modifiers;
    bool shifted; // the key's symbol is on its second level: Shift may be held
};

constexpr unsigned int kAcceleratorModifiers = ShiftMask | ControlMask | Mod1Mask;
constexpr unsigned int kNumLock = Mod2Mask;

inline unsigned int modifier_named(std::string_view name) {
    struct Named {
        std::string_view name;
        unsigned int mask;
    };
    static constexpr std::array<Named, 6> known{{{"Ctrl", ControlMask}, {"Control", ControlMask}, {"Shift", ShiftMask},
        {"Alt", Mod1Mask}, {"Meta", Mod1Mask}, {"Mod1", Mod1Mask}}};
    for (const auto& row : known) {
        if (row.name.size() == name.size() && strncasecmp(row.name.data(), name.data(), name.size()) == 0)
            return row.mask;
    }
    return 0;
}

inline unsigned int modifiers_named(std::string_view names) {
    unsigned int mask = 0;
    while (!names.empty()) {
        const auto end = names.find_first_of("+ ");
        mask |= modifier_named(trimmed(names.substr(0, end)));
        names = end == std::string_view::npos ? std::string_view{} : names.substr(end + 1);
    }
    return mask;
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

/// What an accelerator text asks for; a key of 0 when it names none of this keyboard.
inline Accelerator accelerator_for(Widget entry, std::string_view text) {
    const KeyText parts = split_accelerator(text);
    const KeySym symbol = keysym_named(parts.key);
    Accelerator result{entry, 0, modifiers_named(parts.modifiers), false};
    if (symbol == NoSymbol) return result;
    result.key = XKeysymToKeycode(x11_disp, symbol);
    KeySym lower = NoSymbol, upper = NoSymbol;
    XtConvertCase(x11_disp, symbol, &lower, &upper);
    if (result.key != 0) result.shifted = XkbKeycodeToKeysym(x11_disp, result.key, 0, 0) != lower;
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
    with_locks(a, [&](unsigned int m) { XtGrabKey(top, a.key, m, False, GrabModeAsync, GrabModeAsync); });
}

inline void ungrab(Widget top, const Accelerator& a) {
    with_locks(a, [&](unsigned int m) { XtUngrabKey(top, a.key, m); });
}

/// The keys of one window's menu bar.
class AcceleratorTable {
  public:
    void add(Widget top, const Accelerator& accelerator) {
        if (accelerator.key == 0 || !has_room()) return;
        table_[count_++] = accelerator;
        grab(top, accelerator);
    }

    void clear(Widget top) {
        for (std::size_t i = 0; i < count_ && top != nullptr; ++i) ungrab(top, table_[i]);
        count_ = 0;
        table_.reset();
    }

    /// Activates the first entry of a key that is managed and sensitive.
    bool activate(XEvent& event) const {
        for (std::size_t i = 0; i < count_; ++i) {
            const Accelerator& a = table_[i];
            if (!matches(a, event.xkey) || !XtIsManaged(a.entry) || !XtIsSensitive(a.entry)) continue;
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
