// Backing pictures of windows and buttons, for the functions that draw in memory and that show pictures.
#pragma once

#include <X11/Xlib.h>

#include "pure/size.h"
#include "xt_ini_t.h"
#include "xt_mot_t.h"

namespace grx {

/// A window and its backing picture. `holder` is null when the window can have none.
struct Backing {
    Window window = None;
    Pixmap* holder = nullptr;
    STRUCTURE_FENETRE* record = nullptr;
    explicit operator bool() const { return window != None && holder != nullptr && g_c != nullptr; }
};

Backing backing_of(INT nofen);

/// True for a graphic window that has its picture.
bool has_backing_picture(INT nofen);

/// grx_affiche_bitmap_backingstore for exposures: whatever is limited. Returns 0 when done, 1 when there is nothing to
/// show.
INT show_whole_backing(INT nofen);

/// The size of a window in pixels, 0 x 0 when the number has no window.
Size window_size(INT nofen);

/// A control and its backing picture, which its record holds.
struct ButtonBacking {
    Window window = None;
    STRUCTURE_BOUTON* record = nullptr;
    Size size;
    explicit operator bool() const { return window != None && record->image != None && g_c != nullptr; }
};

ButtonBacking button_backing(INT nobou);

} // namespace grx
