// What the toolkit keeps of a display for good, and would use with the next one: for the end of the library's work. These are
// its own variables and functions, which no header declares; a toolkit without them has nothing to forget.
#include <X11/Intrinsic.h>
#include <Xm/XmP.h>
#include <Xm/ColorP.h>

#include "toolkit/forget.h"
#include "xt_ini_t.h"

extern "C" {
[[gnu::weak]] extern Display* _XmColorObjCacheDisplay; // of the first display object
[[gnu::weak]] extern Widget _XmDefaultColorObj;
[[gnu::weak]] Boolean _XmSearchColorCache(unsigned int which, XmColorData* values, XmColorData** found);
}

namespace grx {

namespace {

// The colours computed for a background, by the address of the screen. The next screen may have the same address and other
// colours.
void forget_colours_of(Screen* screen) {
    XmColorData wanted{};
    XmColorData* found = nullptr;
    wanted.screen = screen;
    while (_XmSearchColorCache(XmLOOK_AT_SCREEN, &wanted, &found) == True) found->screen = nullptr;
}

} // namespace

void forget_display_in_toolkit() {
    if (&_XmColorObjCacheDisplay != nullptr) _XmColorObjCacheDisplay = nullptr;
    if (&_XmDefaultColorObj != nullptr) _XmDefaultColorObj = nullptr;
    if (_XmSearchColorCache == nullptr) return;
    for (int i = 0; i < ScreenCount(x11_disp); ++i) forget_colours_of(ScreenOfDisplay(x11_disp, i));
}

} // namespace grx
