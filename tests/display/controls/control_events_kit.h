// Records of controls, compared whole.
#pragma once

#include "tests/support/control_kit.h"

#include <cstddef>

namespace grxtest {

inline constexpr INT function_number = 700;

inline GRX_EVENEMENT pointer_record(INT type, INT window, INT nobou, INT x, INT y, INT button, INT carac) {
    GRX_EVENEMENT record = old_record();
    GRX_DIGIT& digit = record.bouton_appui;
    digit.type_evenement = type;
    digit.nofen = window;
    digit.nobou = nobou;
    digit.no_fo = function_number;
    digit.x = x;
    digit.y = y;
    digit.bouton = button;
    digit.carac = carac;
    return record;
}

inline GRX_EVENEMENT plain_record(INT type, INT window, INT nobou) {
    GRX_EVENEMENT record = old_record();
    record.sortie.type_evenement = type;
    record.sortie.nofen = window;
    record.sortie.nobou = nobou;
    record.sortie.no_fo = function_number;
    return record;
}

inline GRX_EVENEMENT value_record(INT type, INT window, INT nobou, INT value) {
    GRX_EVENEMENT record = plain_record(type, window, nobou);
    record.exec_fonction.valeur = value;
    return record;
}

// The first bytes only, where an event before in the same turn left traces behind them.
inline testing::AssertionResult same_head(
    const GRX_EVENEMENT& expected, const GRX_EVENEMENT& actual, std::size_t bytes) {
    GRX_EVENEMENT cut = expected;
    std::memcpy(
        reinterpret_cast<char*>(&cut) + bytes, reinterpret_cast<const char*>(&actual) + bytes, sizeof cut - bytes);
    return same_record(cut, actual);
}

class ControlEvents : public ControlsInWindowTest {
  protected:
    GRX_BOUTON a(INT type, INT bits = 0, const char* title = "Text") { return control_of(type, bits, window, title); }

    INT made(INT type, INT bits = 0, const char* title = "Text") { return made(a(type, bits, title)); }
    INT made(const GRX_BOUTON& description) {
        const INT n = placed(description);
        settle();
        return n;
    }

    void over(INT nobou, int x, int y) {
        pointer().move_in(control(nobou), x, y);
        settle();
    }

    // What the record holds before the next event is a pattern.
    void forget() {
        settle();
        evt_global = patterned_event();
    }

    std::optional<GRX_EVENEMENT> next(INT type) { return events.wait(type); }

    void focus(INT nobou) {
        pointer().move_in(control(nobou), 5, 5);
        grx_force_focus_sur_bouton(nobou);
        ASSERT_TRUE(wait_for([&] { return XmGetFocusWidget(control(nobou)) == control(nobou); }));
        settle();
    }

    bool has_focus(INT nobou) { return XmGetFocusWidget(control(nobou)) == control(nobou); }
};

} // namespace grxtest
