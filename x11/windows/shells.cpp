// Makes the shell and the main window of a window that is being made.
#include "windows/shells.h"

#include <X11/Intrinsic.h>
#include <X11/Shell.h>
#include <X11/StringDefs.h>
#include <Xm/MainW.h>
#include <Xm/Xm.h>

#include "pure/decorations.h"
#include "pure/icon_bits.h"
#include "display/bitmaps.h"
#include "toolkit/args.h"
#include "toolkit/field_text.h"
#include "toolkit/look.h"
#include "registry/window_table.h"
#include "windows/placing.h"
#include "windows/window_build.h"
#include "windows/forget_windows.h"
#include "xt_ini_t.h"

namespace {

static_assert(grx::without::title == GRX_FEN_ATT_SANS_TITRE && grx::without::border == GRX_FEN_ATT_SANS_BORD
              && grx::without::boxes == GRX_FEN_ATT_SANS_BOITES && grx::without::resizing == GRX_FEN_ATT_SANS_RESIZE
              && grx::without::maximising == GRX_FEN_ATT_SANS_MAXI
              && grx::without::minimising == GRX_FEN_ATT_SANS_MINI);

Pixmap icon = None; // of minimised windows

void set_decorations(grx::Args& args, INT attributes) {
    const auto masks = grx::decorations_for(attributes);
    args.set(XmNmwmDecorations, masks.decorations);
    args.set(XmNmwmFunctions, masks.functions);
}

} // namespace

namespace grx {

Pixmap minimised_icon() {
    if (icon == None) icon = make_bitmap(iconif_bits, kIconSide);
    return icon;
}

void make_shell(WindowBuild& b) {
    Args args;
    const FieldText title(b.fen.titre);
    args.set(XmNtitle, title.c_str()).set(XmNiconName, title.c_str());
    args.set(XmNgeometry, geometry_text(b.nofen).data());
    args.set(XmNdeleteResponse, XmDESTROY);
    set_wanted_size(args, b.fen);
    set_decorations(args, b.fen.attrib);
    set_background(args, b.fen.coul_fond);
    set_screen(args);
    if (!b.visible()) args.set(XmNmappedWhenManaged, False);
    if (b.parent != nullptr) {
        b.shell = XtCreatePopupShell("TransientShell", transientShellWidgetClass, b.parent, args.list(), args.count());
        return;
    }
    args.set(XmNiconPixmap, minimised_icon());
    b.shell = XtAppCreateShell(nullptr, "TopLevelShell", topLevelShellWidgetClass, x11_disp, args.list(), args.count());
}

void forget_minimised_icon() {
    icon = None; // the server frees it with the connection
}

void make_main_window(WindowBuild& b, Widget container) {
    Args args;
    if (const auto pixel = application_pixel()) args.set(XmNbackground, *pixel);
    b.main = XmCreateMainWindow(container, const_cast<char*>("main"), args.list(), args.count());
    if (b.main != nullptr) XtManageChild(b.main);
}

} // namespace grx
