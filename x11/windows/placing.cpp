// Works out place and size of a window that is being made.
#include "windows/placing.h"

#include <X11/Intrinsic.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <array>
#include <cstdio>

#include "pure/axis.h"
#include "toolkit/args.h"
#include "toolkit/widgets.h"
#include "registry/window_table.h"
#include "windows/asked_geometry.h"
#include "windows/frame_thickness.h"
#include "windows/work_area.h"
#include "windows/window_build.h"
#include "xt_fen_t.h"
#include "xt_ini_f.h"

namespace {

// Without a height nobody knows where the lower edge is, so that the window goes to the top.
int32_t toolkit_y(int32_t container_height, const GRX_FENETRE& fen, int64_t decorations) {
    if (fen.haut < 0) return 0;
    const int64_t top = int64_t{grx::top_of_box(container_height, fen.y, fen.haut)} - decorations;
    return grx::as_position(top);
}

} // namespace

namespace grx {

void place_nested(WindowBuild& b) {
    b.x = b.fen.x;
    b.y = toolkit_y(size_of(b.parent).height, b.fen, 0);
}

void place_shell(WindowBuild& b) {
    const FrameThickness frame = frame_of_new_window(b.fen.attrib);
    b.x = std::max<int32_t>(as_position(int64_t{b.fen.x} - frame.border), 0);
    b.y = std::max(toolkit_y(grx_recup_hau_ecran(), b.fen, int64_t{frame.title} + frame.border), 0);
    if (take_users_place(b)) return;
    keep_in_work_area(b.x, b.y, with_frame({b.fen.droite, b.fen.haut}, frame));
    const std::span<char> text = geometry_text(b.nofen);
    std::snprintf(text.data(), text.size(), "+%d+%d", b.x, b.y);
}

void set_given_size(Args& args, const GRX_FENETRE& fen) {
    if (fen.droite >= 0) args.set(XmNwidth, as_size(fen.droite));
    if (fen.haut >= 0) args.set(XmNheight, as_size(fen.haut));
}

void set_wanted_size(Args& args, const GRX_FENETRE& fen) {
    set_given_size(args, fen);
    if (fen.droite < 0 && fen.haut < 0) args.set(XmNallowShellResize, True);
}

void size_nested(const WindowBuild& b) {
    if (!b.nested || b.outer == nullptr || b.outer == b.work) return;
    Args args;
    if (b.x >= 0) args.set(XmNx, as_position(b.x));
    if (b.y >= 0) args.set(XmNy, as_position(b.y));
    set_given_size(args, b.fen);
    XtSetValues(b.outer, args.list(), args.count());
}

void set_place_in_parent(Args& args, const WindowBuild& b) {
    struct Side {
        INT bit;
        const char* resource;
    };
    static const std::array<Side, 4> sides{
        {{GRX_ATTACHE_BAS, XmNbottomAttachment}, {GRX_ATTACHE_HAUT, XmNtopAttachment},
            {GRX_ATTACHE_DROITE, XmNrightAttachment}, {GRX_ATTACHE_GAUCHE, XmNleftAttachment}}};
    if (b.x >= 0) args.set(XmNx, as_position(b.x));
    if (b.y >= 0) args.set(XmNy, as_position(b.y));
    set_wanted_size(args, b.fen);
    if (!b.visible()) args.set(XmNmappedWhenManaged, False);
    for (const auto& side : sides) {
        if ((b.fen.attache & side.bit) != 0) args.set(side.resource, XmATTACH_FORM);
    }
}

} // namespace grx
