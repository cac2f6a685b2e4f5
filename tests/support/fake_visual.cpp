#include "tests/support/fake_visual.h"

#include "tests/support/next_function.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace {

using Kind = grxtest::FakeVisual::Kind;

constexpr VisualID unused_visual_id = 0xfff0;

Kind in_force = Kind::none;
Visual* real_root_visual = nullptr; // set once a display was given the faked default visual

Visual* faked_visual() {
    static Visual visual = [] {
        Visual made{};
        made.visualid = unused_visual_id;
        made.c_class = PseudoColor;
        made.bits_per_rgb = 8;
        made.map_entries = 256;
        return made;
    }();
    return &visual;
}

void give_faked_default(Display* display) {
    Screen* screen = DefaultScreenOfDisplay(display);
    real_root_visual = screen->root_visual;
    screen->root_visual = faked_visual();
    screen->root_depth = 8;
}

Status match_other(Display* display, int screen, int depth, XVisualInfo* answer) {
    XVisualInfo wanted{};
    wanted.screen = screen;
    wanted.depth = depth;
    wanted.c_class = TrueColor;
    int count = 0;
    XVisualInfo* list = XGetVisualInfo(display, VisualScreenMask | VisualDepthMask | VisualClassMask, &wanted, &count);
    if (!list) return 0;
    *answer = list[count - 1];
    XFree(list);
    return 1;
}

bool faked(const Visual* visual) {
    return real_root_visual && visual == faked_visual();
}

} // namespace

// --- in front of Xlib -------------------------------------------------------------------------------
extern "C" {

Display* XOpenDisplay(const char* name) {
    static const auto next = grxtest::next_function<Display*(const char*)>("XOpenDisplay");
    Display* display = next(name);
    if (display && in_force == Kind::default8) give_faked_default(display);
    return display;
}

Status XMatchVisualInfo(Display* display, int screen, int depth, int visual_class, XVisualInfo* answer) {
    static const auto next = grxtest::next_function<decltype(XMatchVisualInfo)>("XMatchVisualInfo");
    if (in_force == Kind::no_match) return 0;
    const bool wanted = depth == 24 && visual_class == TrueColor;
    if (wanted && in_force == Kind::alt24) return match_other(display, screen, 24, answer);
    if (wanted && in_force == Kind::alt32) return match_other(display, screen, 32, answer);
    return next(display, screen, depth, visual_class, answer);
}

// What is made with the faked default visual is really made with the root's own.
Window XCreateWindow(Display* display, Window parent, int x, int y, unsigned int width, unsigned int height,
    unsigned int border, int depth, unsigned int window_class, Visual* visual, unsigned long mask,
    XSetWindowAttributes* attributes) {
    static const auto next = grxtest::next_function<decltype(XCreateWindow)>("XCreateWindow");
    if (faked(visual)) visual = CopyFromParent;
    if (real_root_visual && depth == 8) depth = CopyFromParent;
    return next(display, parent, x, y, width, height, border, depth, window_class, visual, mask, attributes);
}

Colormap XCreateColormap(Display* display, Window window, Visual* visual, int alloc) {
    static const auto next = grxtest::next_function<decltype(XCreateColormap)>("XCreateColormap");
    return next(display, window, faked(visual) ? real_root_visual : visual, alloc);
}

} // extern "C"

namespace grxtest {

FakeVisual::FakeVisual(Kind kind) {
    in_force = kind;
}
FakeVisual::~FakeVisual() {
    in_force = Kind::none;
}

FakeVisual::Pause::Pause() : before_(in_force) {
    in_force = Kind::none;
}
FakeVisual::Pause::~Pause() {
    in_force = before_;
}

} // namespace grxtest
