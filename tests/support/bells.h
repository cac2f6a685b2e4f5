// Bells, as another program hears them.
#pragma once

#include "tests/support/display_test.h"

#include <X11/XKBlib.h>

#include <vector>

namespace grxtest {

// Bells rung on the server.
class Bells {
  public:
    explicit Bells(Display* display) : display_(display) {
        int opcode = 0, error = 0, major = XkbMajorVersion, minor = XkbMinorVersion;
        EXPECT_TRUE(XkbQueryExtension(display_, &opcode, &first_event_, &error, &major, &minor));
        XkbSelectEvents(display_, XkbUseCoreKbd, XkbBellNotifyMask, XkbBellNotifyMask);
        XSync(display_, False);
    }

    // What the server makes of a bell of so many percent.
    int volume(int percent) const {
        XKeyboardState state{};
        XGetKeyboardControl(display_, &state);
        return state.bell_percent - state.bell_percent * percent / 100 + percent;
    }

    // Their volumes since the last call.
    std::vector<int> rung() {
        std::vector<int> volumes;
        XSync(x11_disp, False);
        XSync(display_, False);
        while (XPending(display_) > 0) {
            XEvent event{};
            XNextEvent(display_, &event);
            const auto* bell = reinterpret_cast<const XkbBellNotifyEvent*>(&event);
            if (event.type == first_event_ && bell->xkb_type == XkbBellNotify) volumes.push_back(bell->percent);
        }
        return volumes;
    }

  private:
    Display* display_;
    int first_event_ = 0;
};

} // namespace grxtest
