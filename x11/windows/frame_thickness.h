// Works out from the settings how thick the window manager's frame around a window is, for the placing of windows. All
// is in pixels.
#pragma once

#include "pure/size.h"
#include "host_t.h"

namespace grx {

struct FrameThickness {
    INT border; // on each of the four sides
    INT title;  // above the window, inside the upper border
};

/// The frame around a window that is made with these attributes.
FrameThickness frame_of_new_window(INT attributes);

/// The frame around a message window.
FrameThickness frame_of_message_window(INT attributes);

/// The frame around a window with or without a title, with or without resize handles.
FrameThickness frame_with(bool title, bool handles);

/// The size of a frame around a window of this size; a side that is not given counts as nothing.
Size with_frame(Size client, const FrameThickness& frame);

} // namespace grx
