// Places boxes: over a window of the application that can be seen, else on the part of the screen that is free.
#include "dialogs/box_place.h"

#include <X11/StringDefs.h>
#include <Xm/Xm.h>

#include "pure/placement.h"
#include "pure/text.h"
#include "system/block.h"
#include "display/pixmaps.h"
#include "toolkit/args.h"
#include "toolkit/hidden_shell.h"
#include "toolkit/widgets.h"
#include "windows/work_area.h"
#include "dialogs/box_texts.h"
#include "xt_fen_f.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

bool on_show(Widget w) {
    Widget shell = nearest_shell(w);
    XWindowAttributes attributes{};
    if (window_of(shell) == None || is_dying(shell)) return false;
    return XGetWindowAttributes(x11_disp, window_of(shell), &attributes) != 0 && attributes.map_state == IsViewable;
}

Box area_on_screen(Widget w) {
    Box area{0, 0, w->core.width, w->core.height};
    Window child = None;
    XTranslateCoordinates(x11_disp, window_of(w), DefaultRootWindow(x11_disp), 0, 0, &area.x, &area.y, &child);
    return area;
}

bool names_none(INT nofen) {
    return nofen == GRX_AUCUN || nofen == 0;
}

void place(Widget box, const Box& over) {
    const Box at = kept_within(centred({0, 0, box->core.width, box->core.height}, over), work_area());
    Args args;
    args.set(XmNx, static_cast<Position>(at.x));
    args.set(XmNy, static_cast<Position>(at.y));
    XtSetValues(box, args.list(), args.count());
}

void centre_on_parent(Widget box, XtPointer, XtPointer) {
    Widget parent = nearest_shell(XtParent(XtParent(box)));
    place(box, window_of(parent) != None ? area_on_screen(parent) : work_area());
}

void centre_on_screen(Widget box, XtPointer, XtPointer) {
    place(box, work_area());
}

} // namespace

bool can_be_parent(INT nofen) {
    return names_none(nofen) || grx_recup_objet_fen(nofen) != nullptr;
}

std::optional<BoxParent> box_parent(INT nofen) {
    if (!can_be_parent(nofen)) return std::nullopt;
    Widget given = names_none(nofen) ? nullptr : grx_recup_objet_fen(nofen);
    if (given != nullptr && on_show(given)) return BoxParent{XtIsComposite(given) ? given : XtParent(given), true};
    Widget main = grx_recup_objet_fen(grx_recup_nofen_principale());
    if (main != nullptr && XtIsComposite(main) && on_show(main)) return BoxParent{main, false};
    return BoxParent{hidden_shell(), false};
}

void centre_when_mapped(Widget box, bool on_parent) {
    XtAddCallback(box, XmNmapCallback, on_parent ? centre_on_parent : centre_on_screen, nullptr);
}

void set_box_title(Widget shell, Widget parent, const char* given) {
    const Block<char> title = shown_line(given);
    const auto* const inherited = resource<const char*>(nearest_shell(parent), XmNtitle, "");
    const bool own = title && title[0] != '\0';
    set_resource(shell, XmNtitle, own ? title.data() : inherited);
}

} // namespace grx
