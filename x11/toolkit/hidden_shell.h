// A window of the library's own that is never shown and never destroyed.
#pragma once

#include <X11/Intrinsic.h>
#include <X11/Shell.h>
#include <X11/StringDefs.h>

#include "toolkit/args.h"
#include "toolkit/look.h"

namespace grx {

/// A top-level one: the toolkit complains about labels in others when they go.
inline Widget hidden_shell() {
    static Widget shell = nullptr;
    if (shell != nullptr) return shell;
    Args args;
    args.set(XmNwidth, 1).set(XmNheight, 1).set(XmNmappedWhenManaged, False);
    set_screen(args);
    shell = XtAppCreateShell("hidden", "Hidden", topLevelShellWidgetClass, x11_disp, args.list(), args.count());
    XtRealizeWidget(shell);
    return shell;
}

} // namespace grx
