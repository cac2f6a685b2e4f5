// The pictures that controls show: read from files, kept with the control's number.
#pragma once

#include <X11/Xlib.h>

#include "host_t.h"

namespace grx {

extern Pixmap Mypixmap; // picture last installed without a number; XmUNSPECIFIED_PIXMAP when there was none

/// The picture of a bitmap file for a label without a number, the caller's; XmUNSPECIFIED_PIXMAP when unreadable.
Pixmap install_label_icon(char* nom_fic);

Pixmap pixmap_of_bitmap(char* nom_fic, Drawable like); // picture of a bitmap file, the caller's; None when unreadable
void share_picture(INT nobou);                         // its release takes it off every label that shows it
void give_pixmap(INT nobou, Pixmap pixmap); // to the record; labels that showed the former one show it, which is freed

} // namespace grx
