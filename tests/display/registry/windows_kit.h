// Shown windows, what they post, where they are.
#pragma once

#include "tests/support/window_kit.h"

#include <algorithm>

namespace grxtest {

inline constexpr INT visible_bit = GRX_FEN_ATT_VISIBLE;

class WindowsTest : public DisplayTest {
  protected:
    void before_start() override { write_menu(""); }

    // A shown window of 400 x 300 whose top left corner is at 100,120, everything it posts at first taken away.
    INT shown(INT kind = GRX_FEN_ALPHA, INT attrib = visible_bit) {
        const INT n = make(kind, attrib, 400, 300);
        EXPECT_TRUE(wait_visible(widget_of(n)));
        settle();
        return n;
    }

    INT shown_child(INT parent, INT kind = GRX_FEN_ALPHA) {
        GRX_FENETRE window = described(kind, visible_bit, 400, 300);
        window.fen_mere = parent;
        const INT n = make(window);
        EXPECT_TRUE(wait_visible(widget_of(n)));
        settle();
        return n;
    }

    std::optional<GRX_EVENEMENT> next(INT type, INT window) {
        return events.wait(
            [=](const GRX_EVENEMENT& e) { return e.type_evenement == type && e.affichage.nofen == window; });
    }

    int count(INT type, INT window) {
        return static_cast<int>(std::ranges::count_if(events.seen(),
            [=](const GRX_EVENEMENT& e) { return e.type_evenement == type && e.affichage.nofen == window; }));
    }

    Area area(INT window) {
        XSync(x11_disp, False);
        return server_area(test_display(), XtWindow(shell_of(window)));
    }

    Area own_area(INT window) {
        XSync(x11_disp, False);
        return server_area(test_display(), x_window(window));
    }

    // As the server exposes a part that was covered.
    void expose(INT window, int x = 0, int y = 0, unsigned width = 10, unsigned height = 10) {
        XSync(x11_disp, False);
        XClearArea(test_display(), x_window(window), x, y, width, height, True);
        XSync(test_display(), False);
    }

    Pixels picture(INT window) { return grab(x11_disp, x_window(window)); }
};

class WindowsWmTest : public WmTest {
  protected:
    INT framed(INT kind = GRX_FEN_ALPHA, INT x = 100) {
        grx_set_tatitre(17);
        grx_set_tabord(7);
        GRX_FENETRE window = described(kind, visible_bit, 300, 200);
        window.x = x;
        const INT n = make(window);
        EXPECT_TRUE(wait_visible(widget_of(n)));
        EXPECT_TRUE(wait_for([&] { return frame(shell_of(n)) != None; }));
        drain();
        events.clear();
        return n;
    }

    std::optional<GRX_EVENEMENT> next(INT type, INT window) {
        return events.wait(
            [=](const GRX_EVENEMENT& e) { return e.type_evenement == type && e.affichage.nofen == window; });
    }

    // Position in the stack of the screen, higher ones later.
    std::ptrdiff_t height_in_stack(INT window) {
        XSync(x11_disp, False);
        const auto stack = children_of(test_display(), DefaultRootWindow(test_display()));
        const Window top = frame(shell_of(window)) != None ? frame(shell_of(window)) : XtWindow(shell_of(window));
        return std::ranges::find(stack, top) - stack.begin();
    }
};

} // namespace grxtest
