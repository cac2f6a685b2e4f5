// Which key code of the application a keysym becomes, for the translation of key presses.
#pragma once

#include <cstdint>

namespace grx {

enum class KeyClass {
    Itself,  // the key code is the keysym
    Untaken, // the key has no code
    Tab,     // Tab, or back-tab when Shift is held
    BackTab,
    Character // the character that the keyboard map gives
};

constexpr KeyClass classify_key(uint32_t keysym) {
    const auto within = [keysym](uint32_t first, uint32_t last) { return keysym >= first && keysym <= last; };
    if (within(0xFFBE, 0xFFE0)) return KeyClass::Itself; // F1 to F35
    if (within(0xFF50, 0xFF57)) return KeyClass::Itself; // Home to End
    if (within(0xFF58, 0xFF5F)) return KeyClass::Untaken;
    if (keysym == 0xFFFF || keysym == 0xFF63) return KeyClass::Itself; // Delete, Insert
    if (keysym == 0xFF09) return KeyClass::Tab;
    if (keysym == 0x1000FF74) return KeyClass::BackTab;
    if (within(0xFFE1, 0xFFEE)) return KeyClass::Untaken;               // Shift, Control ... Hyper
    if (keysym == 0xFF7E || keysym == 0xFF7F) return KeyClass::Untaken; // Mode_switch, Num_Lock
    if (within(0xFF60, 0xFF6B)) return KeyClass::Untaken;               // Select to Break
    return KeyClass::Character;
}

/// True for the signs and letters of Latin-1 beyond ASCII. Such a keysym is the character itself.
constexpr bool is_accented(uint32_t keysym) {
    return keysym >= 0xA0 && keysym <= 0xFF;
}

} // namespace grx
