// Tells which key an event means when locks are on or another keyboard layout is in force, for the keys of menus.
#include "events/layout_groups.h"

#include <X11/Intrinsic.h>
#include <X11/XKBlib.h>

#include "xt_ini_t.h"

namespace {

// True when the keyboard has more than one layout group.
bool has_groups() {
    int first = 0, last = 0;
    XDisplayKeycodes(x11_disp, &first, &last);
    for (int code = first; code <= last; ++code) {
        if (XkbKeycodeToKeysym(x11_disp, static_cast<KeyCode>(code), 1, 0) != NoSymbol) return true;
    }
    return false;
}

grx::KeyPlace place_in_group(KeySym symbol, unsigned int group) {
    constexpr unsigned int levels = 4;
    int first = 0, last = 0;
    XDisplayKeycodes(x11_disp, &first, &last);
    KeySym lower = NoSymbol, upper = NoSymbol;
    XtConvertCase(x11_disp, symbol, &lower, &upper);
    for (unsigned int level = 0; level < levels; ++level) {
        bool empty = true;
        for (int code = first; code <= last; ++code) {
            const KeySym found = XkbKeycodeToKeysym(x11_disp, static_cast<KeyCode>(code), group, level);
            if (found == lower || found == symbol) return {static_cast<KeyCode>(code), level > 0};
            empty = empty && found == NoSymbol;
        }
        if (empty) break; // no key has as many symbols
    }
    return {};
}

bool held_for(const grx::MenuKey& key, const grx::KeyPlace& place, const XKeyEvent& event) {
    const unsigned int held = event.state & grx::kMenuModifiers;
    const bool as_named = held == key.modifiers;
    const bool with_shift = place.shifted && held == (key.modifiers | ShiftMask);
    return place.code != 0 && event.keycode == place.code && (as_named || with_shift);
}

} // namespace

namespace grx {

unsigned int num_lock_mask() {
    return XkbKeysymToModifiers(x11_disp, XK_Num_Lock);
}

unsigned int held_modifiers(unsigned int state) {
    constexpr unsigned int modifiers = ShiftMask | ControlMask | Mod1Mask | Mod2Mask | Mod3Mask | Mod4Mask | Mod5Mask;
    return state & modifiers & ~num_lock_mask();
}

unsigned int group_of(const XKeyEvent& event) {
    return XkbGroupForCoreState(event.state);
}

void note_group(XKeyEvent& event) {
    XkbStateRec state{};
    if (group_of(event) != 0 || !has_groups()) return;
    if (XkbGetState(x11_disp, XkbUseCoreKbd, &state) == Success)
        event.state = XkbBuildCoreState(event.state, state.group);
}

KeySym symbol_in_force(const XKeyEvent& event) {
    constexpr unsigned int group_bits = 0x6000;
    unsigned int used = 0;
    KeySym symbol = NoSymbol;
    XkbLookupKeySym(x11_disp, static_cast<KeyCode>(event.keycode), event.state & group_bits, &used, &symbol);
    return symbol;
}

KeyPlaces places_of(KeySym symbol) {
    KeyPlaces places{};
    KeyPlace first{};
    for (unsigned int group = 0; group < places.size(); ++group) {
        places[group] = place_in_group(symbol, group);
        if (first.code == 0) first = places[group];
    }
    for (auto& place : places) {
        if (place.code == 0) place = first;
    }
    return places;
}

bool matches(const MenuKey& key, const XKeyEvent& event) {
    return held_for(key, key.places[group_of(event)], event);
}

bool matches_somewhere(const MenuKey& key, const XKeyEvent& event) {
    for (const auto& place : key.places) {
        if (held_for(key, place, event)) return true;
    }
    return false;
}

} // namespace grx
