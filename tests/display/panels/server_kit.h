// What the server holds for a control or a dialog: its visual, and how much there is of each thing.
#pragma once

#include "tests/support/control_kit.h"

#include <map>
#include <string>

namespace grxtest {

// The window of a widget has the depth, visual and colour map that the library chose.
inline void expect_chosen_visual(Display* asker, Widget widget) {
    XWindowAttributes attributes{};
    ASSERT_NE(XtWindow(widget), None) << XtName(widget);
    ASSERT_TRUE(XGetWindowAttributes(asker, XtWindow(widget), &attributes));
    EXPECT_EQ(attributes.depth, vtemp.depth) << XtName(widget);
    EXPECT_EQ(XVisualIDFromVisual(attributes.visual), vtemp.visualid) << XtName(widget);
    EXPECT_EQ(attributes.colormap, x11_cmap) << XtName(widget);
}

// The library's own, by kind; replaced drawing contexts are not freed, on purpose, and do not count.
inline std::map<std::string, unsigned> resources_of_the_library(Display* asker) {
    auto counted = server_resources(asker, XtWindow(XmGetXmDisplay(x11_disp)));
    counted.erase("GC");
    return counted;
}

} // namespace grxtest
