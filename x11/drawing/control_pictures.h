// The pictures that controls and previews show, for the functions that make, change and free them.
#pragma once

#include <X11/Xlib.h>

#include "host_t.h"

namespace grx {

/// The picture of a bitmap file for a label without a number, which the caller frees. XmUNSPECIFIED_PIXMAP when the
/// file cannot be read.
Pixmap install_label_icon(char* nom_fic);

/// What another way of giving icons has done: given one to the control, or made the picture of a label without a number.
struct IconGiven {
    bool to_control = false;
    Pixmap label = None;
};

/// Asks `first` for an icon before a bitmap file is read; null for nobody. The name is that of the bitmap file.
void install_icons_by(IconGiven (*first)(const char* nom_fic, INT nobou));

/// There is no such picture from now on.
void forget_label_icon();

/// The picture of a bitmap file on the screen of `like`, which the caller frees. None when the file cannot be read.
Pixmap pixmap_of_bitmap(char* nom_fic, Drawable like);

/// Notes that labels of other controls show this control's picture: they lose it when it is freed.
void share_picture(INT nobou);

/// Gives a pixmap to the control's record, which owns it from now on. The former one is freed, and labels that showed
/// it show the new one. None takes the picture away.
void give_pixmap(INT nobou, Pixmap pixmap);

} // namespace grx
