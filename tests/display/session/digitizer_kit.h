// A window whose events the digitizing loop takes.
#pragma once

#include "tests/support/window_kit.h"

namespace grxtest {

class Digitizer : public DisplayTest {
  protected:
    void SetUp() override {
        DisplayTest::SetUp();
        window_ = shown();
    }

    INT shown(INT kind = GRX_FEN_ALPHA, INT x = 100) {
        GRX_FENETRE window = described(kind, GRX_FEN_ATT_VISIBLE, 400, 300);
        window.x = x;
        const INT n = make(window);
        EXPECT_TRUE(wait_visible(widget_of(n)));
        pointer().move_in(widget_of(n), 100, 100);
        settle();
        return n;
    }

    // The server has sent all that was injected.
    void arrive() { XSync(x11_disp, False); }

    INT window_ = 0;
};

} // namespace grxtest
