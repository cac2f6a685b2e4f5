// A window that has the keyboard, and the codes of its keys.
#pragma once

#include "tests/support/window_kit.h"

namespace grxtest {

class Keys : public DisplayTest {
  protected:
    void before_start() override { write_menu(""); }

    void SetUp() override {
        DisplayTest::SetUp();
        window_ = make(GRX_FEN_ALPHA);
        ASSERT_TRUE(wait_visible(widget_of(window_)));
        pointer().move_in(widget_of(window_), 30, 40);
        drain();
        events.clear();
    }

    // The code of the last record that pressing a key causes, 0 when there is none.
    INT code(KeySym symbol, unsigned modifiers = 0) {
        drain();
        events.clear();
        keyboard().key(symbol, modifiers);
        drain();
        INT result = 0;
        for (const GRX_EVENEMENT& e : events.seen())
            if (e.type_evenement == GRX_EVT_CARAC_APPUI) result = e.carac_appui.carac;
        EXPECT_LE(events.count(GRX_EVT_CARAC_APPUI), 1) << events.describe();
        return result;
    }

    // Pressed without the modifiers that the symbol needs.
    INT bare_code(KeySym symbol) {
        drain();
        events.clear();
        keyboard().press(symbol);
        keyboard().release(symbol);
        drain();
        return events.seen().empty() ? 0 : events.seen().back().carac_appui.carac;
    }

    INT window_ = 0;
};

} // namespace grxtest
