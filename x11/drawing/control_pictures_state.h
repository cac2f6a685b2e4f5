// What the tests look into of the pictures of controls.
#pragma once

#include <X11/Xlib.h>

namespace grx {

extern Pixmap Mypixmap; // the last picture for a label without a number, or XmUNSPECIFIED_PIXMAP

} // namespace grx
