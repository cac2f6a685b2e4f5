// Destroys the shells of the display when the library's work ends.
#include "toolkit/shells_of_display.h"

#include <X11/IntrinsicP.h>
#include <X11/CoreP.h>
#include <X11/StringDefs.h>
#include <Xm/ColorObjP.h>
#include <Xm/Display.h>
#include <Xm/Xm.h>
#include <Xm/XmIm.h>

#include "toolkit/args.h"
#include "toolkit/hidden_shell.h"
#include "toolkit/widgets.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

void note_end(Widget, XtPointer destroyed, XtPointer) {
    *static_cast<bool*>(destroyed) = true;
}

// Each needs those of a higher rank while it is destroyed.
int rank_of(Widget shell) {
    if (XmIsDisplay(shell)) return 3;
    if (XmIsColorObj(shell)) return 2;
    return shell == hidden_shell() ? 1 : 0;
}

// The first shell of that rank without a parent, null when there is none.
Widget shell_of_rank(int rank) {
    WidgetList shells = nullptr;
    Cardinal count = 0;
    Args args;
    args.set(XtNshells, &shells).set(XtNnumShells, &count);
    XtGetValues(XtHooksOfDisplay(x11_disp), args.list(), args.count());
    for (Cardinal i = 0; i < count; ++i) {
        if (XtParent(shells[i]) == nullptr && !is_dying(shells[i]) && rank_of(shells[i]) == rank) return shells[i];
    }
    return nullptr;
}

} // namespace

bool toolkit_is_busy() {
    Widget probe = XtCreateWidget("probe", coreWidgetClass, hidden_shell(), nullptr, 0);
    bool destroyed = false;
    XtAddCallback(probe, XtNdestroyCallback, note_end, &destroyed);
    XtDestroyWidget(probe);
    if (!destroyed) XtRemoveCallback(probe, XtNdestroyCallback, note_end, &destroyed);
    return !destroyed;
}

void destroy_shells() {
    for (int rank = 0; rank <= 3; ++rank) {
        if (rank == 3)
            XmImCloseXIM(XmGetXmDisplay(x11_disp)); // the toolkit would leave it open, with its table of keys
        while (Widget shell = shell_of_rank(rank)) XtDestroyWidget(shell);
    }
}

} // namespace grx
