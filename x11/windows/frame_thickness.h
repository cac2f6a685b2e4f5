// How much the window manager's frame takes around a window, worked out from the settings.
#pragma once

#include "host_t.h"

namespace grx {

struct FrameThickness {
    INT border; // on each of the four sides
    INT title;  // above the window, inside the upper border
};

/// Around a window that is made with these attributes.
FrameThickness frame_of_new_window(INT attributes);

/// The same of a message window.
FrameThickness frame_of_message_window(INT attributes);

/// Around a window whose title and whose resize handles are there or not.
FrameThickness frame_with(bool title, bool handles);

} // namespace grx
