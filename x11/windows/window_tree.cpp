// Asks the server how windows stand in each other, for all that must know the frames of the window manager.
#include "windows/window_tree.h"

#include <X11/Xlib.h>

#include "xt_ini_t.h"

namespace grx {

WindowTree::WindowTree(Window window) {
    if (XQueryTree(x11_disp, window, &root_, &parent_, &children_, &count_) == 0) parent_ = None;
}

WindowTree::~WindowTree() {
    if (children_ != nullptr) XFree(children_);
}

Window frame_of(Window window) {
    for (;;) {
        const Window parent = WindowTree(window).parent();
        if (parent == None) return window;
        window = parent;
    }
}

} // namespace grx
