// Windows just made, of every kind.
#pragma once

#include "tests/support/window_kit.h"

namespace grxtest {

class Creation : public DisplayTest {
  protected:
    void before_start() override { write_menu(""); }

    static Widget scrolled_window(INT nofen) {
        Widget w = widget_of(nofen);
        while (w
               && !(XmIsScrolledWindow(w) && !XmIsMainWindow(w)
                    && std::string_view(XtName(w)).find("texteSW") == std::string_view::npos))
            w = XtParent(w);
        return w;
    }

    Area area(INT nofen) {
        XSync(x11_disp, False); // what was asked for has reached the server
        return server_area(test_display(), XtWindow(shell_of(nofen)));
    }
};

} // namespace grxtest
