// Windows with a backing picture, and what hides them.
#pragma once

#include "tests/display/drawing/drawing_kit.h"
#include "tests/support/window_kit.h"

#include <climits>
#include <vector>

namespace grxtest {

inline Primitive box(INT colour, INT x1, INT y1, INT x2, INT y2) {
    return filled(attributes(colour), x1, y1, x2, y2);
}

inline const std::vector<INT> unknown_windows{0, -1, 77, 100, INT_MAX, INT_MIN};
inline const std::vector<INT> unknown_buttons{-1, 77, 999, 1000, INT_MAX, INT_MIN};

// A window of somebody else's over a part of the screen.
class Cover {
  public:
    Cover(Display* display, const Area& area) : display_(display) {
        XSetWindowAttributes attributes{};
        attributes.override_redirect = True;
        window_ = XCreateWindow(display, DefaultRootWindow(display), area.x, area.y, static_cast<unsigned>(area.width),
            static_cast<unsigned>(area.height), 0, CopyFromParent, InputOutput, CopyFromParent, CWOverrideRedirect,
            &attributes);
        XSetWindowBackground(display, window_, BlackPixel(display, DefaultScreen(display)));
        XMapRaised(display, window_);
        XSync(display, False);
    }
    ~Cover() {
        XDestroyWindow(display_, window_);
        XSync(display_, False);
    }
    Cover(const Cover&) = delete;
    Cover& operator=(const Cover&) = delete;

  private:
    Display* display_;
    Window window_;
};

class BackingTest : public DrawingTest {
  protected:
    // A picture with something everywhere, in a window or the active one's backing picture.
    static void draw_picture(INT window, unsigned seed = 5) {
        RandomPrimitives random(seed, width, height);
        for (int i = 0; i < 60; ++i) draw(window, random.next());
    }

    static Pixels part_of_screen(Display* display, const Area& area) { return grab_root(display).part(area); }

    static void expect_background_context() {
        const auto values = values_of(g_c);
        EXPECT_EQ(values.function, GXcopy);
        EXPECT_EQ(values.foreground, background());
        EXPECT_EQ(values.background, background());
        EXPECT_EQ(values.line_style, LineSolid);
        EXPECT_EQ(values.line_width, 0);
    }

    static int server_backing(INT window) {
        XWindowAttributes attributes{};
        XGetWindowAttributes(x11_disp, x_window(window), &attributes);
        return attributes.backing_store;
    }
};

} // namespace grxtest
