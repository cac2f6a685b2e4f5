// The window that is never shown: what has to live as long as the display stands in it.
#include "toolkit/hidden_shell.h"

#include <X11/Shell.h>
#include <Xm/Xm.h>

#include "toolkit/args.h"
#include "toolkit/forget_toolkit.h"
#include "toolkit/look.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

Widget shell = nullptr;

} // namespace

Widget hidden_shell() {
    if (shell != nullptr) return shell;
    Args args;
    args.set(XmNwidth, 1).set(XmNheight, 1).set(XmNmappedWhenManaged, False);
    set_screen(args);
    shell = XtAppCreateShell("hidden", "Hidden", topLevelShellWidgetClass, x11_disp, args.list(), args.count());
    XtRealizeWidget(shell);
    return shell;
}

void forget_hidden_shell() {
    shell = nullptr; // destroyed with all others
}

} // namespace grx
