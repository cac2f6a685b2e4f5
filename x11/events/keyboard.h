// What a key means under the locks and the layout group that are in force.
#pragma once

#include <X11/Intrinsic.h>
#include <X11/XKBlib.h>

#include <array>

namespace grx {

/// Where a symbol is on the keyboard.
struct KeyPlace {
    KeyCode code = 0;     // 0: nowhere
    bool shifted = false; // not alone on its key: Shift may be held
};

/// One for each layout group; the first that has the symbol stands in for those that lack it.
using KeyPlaces = std::array<KeyPlace, XkbNumKbdGroups>;

constexpr unsigned int kMenuModifiers = ShiftMask | ControlMask | Mod1Mask;

/// The modifier that carries Num_Lock, 0 when none does.
unsigned int num_lock_mask();

/// The modifiers that are held: locks, layout group and pointer buttons are none of them.
unsigned int held_modifiers(unsigned int state);

unsigned int group_of(const XKeyEvent& event);

/// True when the keyboard has more than one layout group.
bool has_groups();

/// While a client has grabbed the key, or the keyboard, events come without the layout group: puts it in.
void note_group(XKeyEvent& event);

/// The symbol of a key alone, in the layout group in force.
KeySym symbol_in_force(const XKeyEvent& event);

KeyPlace place_in_group(KeySym symbol, unsigned int group);

KeyPlaces places_of(KeySym symbol);

/// A key with its modifiers, as menus know it.
struct MenuKey {
    KeySym symbol = NoSymbol;
    unsigned int modifiers = 0;
    KeyPlaces places{};
};

bool held_for(const MenuKey& key, const KeyPlace& place, const XKeyEvent& event);

/// True for the key where the layout group in force has it.
bool matches(const MenuKey& key, const XKeyEvent& event);

/// True for the key where any group has it.
bool matches_somewhere(const MenuKey& key, const XKeyEvent& event);

} // namespace grx
