// Frees the pixmaps that the toolkit keeps of a display, for the end of the library's work. The toolkit keeps shadows' patterns,
// icons of dialogs and the like by the address of the screen for good, also those that no widget uses any more; a
// later display at the same address would be given numbers that its server does not know.
#include <Xm/Xm.h>

#include "display/quiet_errors.h"
#include "toolkit/forget_toolkit.h"
#include "xt_ini_t.h"

#include <X11/Xlibint.h> // last: it has macros min and max

namespace grx {

namespace {

// How many steps from the base of the connection's numbers those go that it may have given. They may have been given a second
// time only when there were as many requests.
XID numbers_given() {
    const XID all = (x11_disp->resource_mask >> x11_disp->resource_shift) + 1;
    if (XNextRequest(x11_disp) > all) return all;
    return (XAllocID(x11_disp) & x11_disp->resource_mask) >> x11_disp->resource_shift;
}

void let_go_of(Screen* screen) {
    const XID count = numbers_given();
    for (XID i = 0; i < count; ++i) {
        const Pixmap pixmap = x11_disp->resource_base + (i << x11_disp->resource_shift);
        while (XmDestroyPixmap(screen, pixmap) != False) {
        } // each gives back one use
    }
}

} // namespace

void forget_pixmaps_in_toolkit() {
    const QuietErrors quiet;
    for (int i = 0; i < XScreenCount(x11_disp); ++i) let_go_of(XScreenOfDisplay(x11_disp, i));
}

} // namespace grx
