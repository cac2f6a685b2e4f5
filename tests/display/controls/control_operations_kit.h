// One control of each kind, to operate on.
#pragma once

#include "tests/support/control_kit.h"

namespace grxtest {

class ControlOperations : public ControlsTest {
  protected:
    void SetUp() override {
        ControlsTest::SetUp();
        if (HasFatalFailure()) return;
        window = shown();
    }

    GRX_BOUTON a(INT type, INT bits = 0, const char* title = "Text") { return control_of(type, bits, window, title); }

    INT made(INT type, INT bits = 0, const char* title = "Text") { return placed(a(type, bits, title)); }

    // One of each kind, side by side so that all of them are seen.
    std::vector<INT> one_of_each() {
        std::vector<INT> numbers;
        for (const ControlKind& kind : control_kinds) {
            GRX_BOUTON description = control_of(kind, window);
            const auto i = static_cast<INT>(numbers.size());
            description.x = 5 + 95 * (i % 4);
            description.y = 5 + 70 * (i / 4);
            description.largeur = 60;
            description.hauteur = 40;
            numbers.push_back(placed(description));
        }
        return numbers;
    }

    const ControlKind& kind_of(std::size_t i) { return control_kinds[i]; }

    INT window = -1;
};

} // namespace grxtest
