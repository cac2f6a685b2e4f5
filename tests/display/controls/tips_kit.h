// Tips as users see them.
#pragma once

#include "tests/support/control_kit.h"

#include "grx_plus.h"

#include <Xm/XmAll.h>

#include <X11/Xatom.h>

#include <optional>
#include <string>
#include <vector>

namespace grxtest {

class TipsTest : public DisplayTest {
  protected:
    void SetUp() override {
        DisplayTest::SetUp();
        window_ = make(GRX_FEN_BOUTONS, GRX_FEN_ATT_VISIBLE, 500, 300);
        ASSERT_TRUE(wait_visible(widget_of(window_)));
        take_pointer_away();
        settle();
    }

    INT control(INT type, int x, INT bits = 0, bool sensitive = true) {
        GRX_BOUTON described = control_of(type, bits, window_, "Text");
        described.x = x;
        described.y = 100;
        described.largeur = 80;
        described.hauteur = 40;
        if (!sensitive) described.attrib &= ~GRX_BOU_ATT_SENSIBLE;
        const INT nobou = make(described);
        EXPECT_TRUE(wait_visible(grx_recup_objet_bout(nobou)));
        return nobou;
    }
    void point_at(INT nobou, int x = 20, int y = 15) {
        pointer().move_in(grx_recup_objet_bout(nobou), x, y);
        drain();
    }

    // The override-redirect window of a tip, None when there is none on the screen.
    Window tip() {
        const Atom type = XInternAtom(test_display(), "_NET_WM_WINDOW_TYPE", False);
        const Atom tooltip = XInternAtom(test_display(), "_NET_WM_WINDOW_TYPE_TOOLTIP", False);
        for (const Window window : children_of(test_display(), DefaultRootWindow(test_display()))) {
            XWindowAttributes attributes{};
            if (!XGetWindowAttributes(test_display(), window, &attributes)) continue;
            if (attributes.map_state != IsViewable || !attributes.override_redirect) continue;
            if (window_atom(window, type) == tooltip) return window;
        }
        return None;
    }
    std::string tip_text() {
        const Window window = tip();
        const Widget shell = window != None ? XtWindowToWidget(x11_disp, window) : nullptr;
        return shell != nullptr ? text_resource(children_of(shell).at(0), XmNlabelString) : "";
    }
    Area tip_area() { return server_area(test_display(), tip()); }
    bool comes(const std::string& text) {
        return wait_for([&] { return tip_text() == text; });
    }
    bool goes(Milliseconds deadline = default_deadline) {
        return wait_for([&] { return tip() == None; }, deadline);
    }
    // Nothing has come after the time in which one would.
    bool stays_away(int ms = 400) {
        const auto end = Clock::now() + Milliseconds{ms};
        return wait_for([&] { return tip() != None || Clock::now() > end; }) && tip() == None;
    }

    INT window_ = 0;

  private:
    Atom window_atom(Window window, Atom property) {
        Atom kind = None;
        int format = 0;
        unsigned long count = 0, left = 0;
        unsigned char* data = nullptr;
        XGetWindowProperty(
            test_display(), window, property, 0, 1, False, XA_ATOM, &kind, &format, &count, &left, &data);
        const Atom value = count == 1 ? *reinterpret_cast<Atom*>(data) : None;
        if (data != nullptr) XFree(data);
        return value;
    }
};

} // namespace grxtest
