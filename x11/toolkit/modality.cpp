// Reads the toolkit's list of modal dialogs.
#include "toolkit/modality.h"

#include <X11/IntrinsicP.h>
#include <Xm/DisplayP.h>
#include <Xm/Xm.h>

#include "toolkit/widgets.h"
#include "xt_ini_t.h"

namespace grx {

// The dialog that came last is the last of the list; one that is exclusive keeps from all before it.
bool is_within_reach(Widget w) {
    const auto& display = reinterpret_cast<XmDisplay>(XmGetXmDisplay(x11_disp))->display;
    for (Cardinal i = display.numModals; i > 0; --i) {
        const XmModalDataRec& modal = display.modals[i - 1];
        if (modal.wid == nearest_shell(w)) return true;
        if (modal.exclusive != False) return false;
    }
    return true;
}

} // namespace grx
