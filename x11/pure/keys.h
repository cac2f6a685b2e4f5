// What a keysym means to the application.
#pragma once

#include <cstdint>

namespace grx {

enum class KeyClass {
    Code,    // the keysym itself is the key code
    None,    // no key code
    Tab,     // Tab or back-tab, by the Shift key
    BackTab,
    Text     // whatever character the keyboard map gives
};

constexpr KeyClass classify_key(uint32_t keysym) {
    const auto within = [keysym](uint32_t first, uint32_t last) { return keysym >= first && keysym <= last; };
    if (within(0xFFBE, 0xFFE0)) return KeyClass::Code;                    // F1 to F35
    if (within(0xFF50, 0xFF57)) return KeyClass::Code;                    // Home to End
    if (within(0xFF58, 0xFF5F)) return KeyClass::None;
    if (keysym == 0xFFFF || keysym == 0xFF63) return KeyClass::Code;      // Delete, Insert
    if (keysym == 0xFF09) return KeyClass::Tab;
    if (keysym == 0x1000FF74) return KeyClass::BackTab;
    if (within(0xFFE1, 0xFFEE)) return KeyClass::None;                    // Shift, Control ... Hyper
    if (keysym == 0xFF7E || keysym == 0xFF7F) return KeyClass::None;      // Mode_switch, Num_Lock
    if (within(0xFF60, 0xFF6B)) return KeyClass::None;                    // Select to Break
    return KeyClass::Text;
}

} // namespace grx
