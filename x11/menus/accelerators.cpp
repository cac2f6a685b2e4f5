// Which keys stand for menu entries, and the grabs that bring them here: for the menu bar and for the editor.
#include "menus/accelerators.h"

#include <Xm/Xm.h>

#include <algorithm>
#include <cstring>

#include "pure/menu_line.h"

namespace grx {

namespace {

unsigned int mask_of(const KeyModifiers& held) {
    return (held.control ? ControlMask : 0U) | (held.shift ? ShiftMask : 0U) | (held.alt ? Mod1Mask : 0U);
}

KeySym keysym_named(std::string_view name) {
    constexpr std::size_t longest = 40;
    if (name.empty() || name.size() >= longest) return NoSymbol;
    char text[longest] = "";
    std::memcpy(text, name.data(), name.size());
    const KeySym named = XStringToKeysym(text);
    if (named != NoSymbol || name.size() > 1) return named;
    return static_cast<unsigned char>(text[0]); // a sign is its own keysym
}

// Calls `change(code, modifiers)` for each key that has the symbol in some group, in every state of the locks.
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

} // namespace

Accelerator accelerator_for(Widget entry, std::string_view text) {
    const KeyText parts = split_accelerator(text);
    const auto modifiers = key_modifiers(parts.modifiers);
    const KeySym symbol = modifiers ? keysym_named(parts.key) : NoSymbol;
    if (symbol == NoSymbol) return {entry, {}};
    return {entry, {symbol, mask_of(*modifiers), places_of(symbol)}};
}

void AcceleratorTable::add(Widget top, const Accelerator& accelerator) {
    if (accelerator.key.symbol == NoSymbol || !has_room()) return;
    if (count_ == 0) num_lock_ = num_lock_mask();
    table_[count_++] = accelerator;
    grab(top, accelerator);
}

void AcceleratorTable::forget(Widget entry) {
    for (std::size_t i = 0; i < count_; ++i) {
        if (table_[i].entry == entry) table_[i].entry = nullptr;
    }
}

void AcceleratorTable::follow_keyboard(Widget top) {
    for (std::size_t i = 0; i < count_; ++i)
        ungrab(top, table_[i]); // all before the first grab: keys may have changed places
    num_lock_ = num_lock_mask();
    for (std::size_t i = 0; i < count_; ++i) {
        table_[i].key.places = places_of(table_[i].key.symbol);
        grab(top, table_[i]);
    }
}

void AcceleratorTable::clear(Widget top) {
    for (std::size_t i = 0; i < count_ && top != nullptr; ++i) ungrab(top, table_[i]);
    count_ = 0;
    table_.reset();
}

bool AcceleratorTable::is_of_another_group(const XKeyEvent& event) const {
    const auto here = [&event](const Accelerator& a) { return matches(a.key, event); };
    const auto somewhere = [&event](const Accelerator& a) { return matches_somewhere(a.key, event); };
    return std::any_of(begin(), end(), somewhere) && std::none_of(begin(), end(), here);
}

bool AcceleratorTable::is_of(const XKeyEvent& event, bool (*wanted)(Widget entry)) const {
    return std::any_of(begin(), end(), [&event, wanted](const Accelerator& a) {
        return a.entry != nullptr && matches(a.key, event) && wanted(a.entry);
    });
}

bool AcceleratorTable::activate(XEvent& event) const {
    Widget entry = entry_of(event.xkey);
    if (entry == nullptr) return false;
    XmAnyCallbackStruct call{XmCR_ACTIVATE, &event};
    XtCallCallbacks(entry, const_cast<char*>(XmNactivateCallback), &call);
    return true;
}

Widget AcceleratorTable::entry_of(const XKeyEvent& event) const {
    const auto* const found = std::find_if(begin(), end(), [&event](const Accelerator& a) {
        return a.entry != nullptr && matches(a.key, event) && XtIsManaged(a.entry) && XtIsSensitive(a.entry);
    });
    return found != end() ? found->entry : nullptr;
}

bool AcceleratorTable::has_room() {
    constexpr std::size_t first = 32;
    return count_ < table_.size() || table_.resize(table_.size() == 0 ? first : 2 * table_.size());
}

void AcceleratorTable::grab(Widget top, const Accelerator& a) const {
    for_each_grab(a.key, num_lock_,
        [top](KeyCode code, unsigned int m) { XtGrabKey(top, code, m, False, GrabModeAsync, GrabModeAsync); });
}

void AcceleratorTable::ungrab(Widget top, const Accelerator& a) const {
    for_each_grab(a.key, num_lock_, [top](KeyCode code, unsigned int m) { XtUngrabKey(top, code, m); });
}

} // namespace grx
