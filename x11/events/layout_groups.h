// Tells which key an event means when locks are on or another keyboard layout is in force, for the keys of menus. X
// calls the layouts groups.
#pragma once

#include <X11/Intrinsic.h>
#include <X11/XKBlib.h>

#include <array>

namespace grx {

/// The key that has a symbol.
struct KeyPlace {
    KeyCode code = 0;     // 0 when no key has the symbol
    bool shifted = false; // the key has other symbols too: Shift may be held
};

/// One place for each layout group. A group without the symbol has the place of the first group that has it.
using KeyPlaces = std::array<KeyPlace, XkbNumKbdGroups>;

/// The modifiers that keys of menus may have.
constexpr unsigned int kMenuModifiers = ShiftMask | ControlMask | Mod1Mask;

/// The modifier that carries Num_Lock, 0 when none does.
unsigned int num_lock_mask();

/// The modifiers of an event's state, without locks, layout group and pointer buttons.
unsigned int held_modifiers(unsigned int state);

/// The layout group of an event, from 0 on.
unsigned int group_of(const XKeyEvent& event);

/// Puts the layout group into the event. The server leaves it out while a client has grabbed the key or the keyboard.
void note_group(XKeyEvent& event);

/// The symbol of the key without modifiers, in the layout group in force.
KeySym symbol_in_force(const XKeyEvent& event);

/// Where a symbol, or its other case, is on the keyboard.
KeyPlaces places_of(KeySym symbol);

/// A key of a menu with its modifiers.
struct MenuKey {
    KeySym symbol = NoSymbol;
    unsigned int modifiers = 0;
    KeyPlaces places{};
};

/// True when the event is this key in the layout group in force.
bool matches(const MenuKey& key, const XKeyEvent& event);

/// True when the event is this key in any layout group.
bool matches_somewhere(const MenuKey& key, const XKeyEvent& event);

} // namespace grx
