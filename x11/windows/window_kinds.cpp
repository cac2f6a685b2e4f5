// Makes the work widget of a window that is being made, for each kind of window.
#include "windows/window_kinds.h"

#include <X11/Intrinsic.h>
#include <X11/StringDefs.h>
#include <Xm/DrawingA.h>
#include <Xm/MessageB.h>
#include <Xm/PushB.h>
#include <Xm/Text.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <array>

#include "toolkit/args.h"
#include "toolkit/compound_string.h"
#include "toolkit/field_text.h"
#include "toolkit/late_layout.h"
#include "toolkit/look.h"
#include "windows/placing.h"
#include "windows/window_build.h"
#include "xt_fen_t.h"
#include "xt_gfx_f.h"
#include "xt_ini_f.h"

namespace {

using Maker = Widget (*)(Widget parent, grx::Args& args, const grx::WindowBuild& b);

Widget make_bulletin_board(Widget parent, grx::Args& args, const grx::WindowBuild& b) {
    if (b.sized()) args.set(XmNmarginWidth, 0).set(XmNmarginHeight, 0);
    return grx::create_bulletin_board(parent, "fenetre", args);
}

// A drawing area shows no shadows. They are given colours all the same, or the toolkit would ask the server for four.
void set_unused_shadows(grx::Args& args, const grx::WindowBuild& b) {
    const auto black = static_cast<Pixel>(grx_noir_systeme());
    args.set(XmNtopShadowColor, black).set(XmNbottomShadowColor, black).set(XmNhighlightColor, black);
    if (!b.nested || b.fen.coul_trace < 0) args.set(XmNforeground, black);
}

Widget make_drawing_area(Widget parent, grx::Args& args, const grx::WindowBuild& b) {
    args.set(XmNbackground, static_cast<Pixel>(grx_recup_couleur(grx_recup_couleur_fond())));
    set_unused_shadows(args, b);
    if (b.sized()) args.set(XmNmarginWidth, 0).set(XmNmarginHeight, 0);
    return XmCreateDrawingArea(parent, const_cast<char*>("draw"), args.list(), args.count());
}

Widget make_scrolled_text(Widget parent, grx::Args& args, const grx::WindowBuild&) {
    args.set(XmNeditMode, XmMULTI_LINE_EDIT).set(XmNeditable, True).set(XmNfontList, fontlist);
    args.set(XmNscrollBarDisplayPolicy, XmAS_NEEDED);
    return XmCreateScrolledText(parent, const_cast<char*>("texte"), args.list(), args.count());
}

Widget make_alpha(Widget parent, grx::Args& args, const grx::WindowBuild&) {
    return grx::create_form(parent, "fen_alpha", args);
}

Widget make_menu(Widget parent, grx::Args& args, const grx::WindowBuild&) {
    return grx::create_form(parent, "fen_menu", args);
}

void abandon(Widget, XtPointer box, XtPointer call) {
    XmAnyCallbackStruct answer{XmCR_CANCEL, call != nullptr ? static_cast<XmAnyCallbackStruct*>(call)->event : nullptr};
    XtCallCallbacks(static_cast<Widget>(box), XmNcancelCallback, &answer);
}

// Hides the box's own cancel and help buttons. "ABANDON" is a button of ours beside "CONFIRM" that answers as cancel.
// The cancel button is hidden and not destroyed, because the Escape key needs it.
void arrange_message_box(Widget box, XmString abandon_label) {
    for (const unsigned char child : {XmDIALOG_HELP_BUTTON, XmDIALOG_CANCEL_BUTTON})
        if (Widget button = XmMessageBoxGetChild(box, child)) XtUnmanageChild(button);
    grx::Args args;
    args.set(XmNlabelString, abandon_label).set(XmNfontList, fontlist);
    Widget button = XmCreatePushButton(box, const_cast<char*>("ABANDON"), args.list(), args.count());
    if (button == nullptr) return;
    XtAddCallback(button, XmNactivateCallback, abandon, box);
    XtManageChild(button);
}

Widget make_message_box(Widget parent, grx::Args& args, const grx::WindowBuild& b) {
    const grx::CompoundString confirm("CONFIRM");
    const grx::CompoundString abandon_label("ABANDON");
    const grx::FieldText text(b.fen.message);
    const grx::CompoundString message(text.c_str());
    args.set(XmNokLabelString, confirm.get()).set(XmNcancelLabelString, abandon_label.get());
    args.set(XmNmessageString, message.get());
    args.set(XmNbuttonFontList, fontlist).set(XmNlabelFontList, fontlist).set(XmNautoUnmanage, False);
    Widget box = XmCreateMessageBox(parent, const_cast<char*>("texte"), args.list(), args.count());
    if (box != nullptr) arrange_message_box(box, abandon_label.get());
    return box;
}

Maker maker_of(INT type) {
    struct Row {
        INT type;
        Maker maker;
    };
    static constexpr std::array<Row, 6> makers{{{GRX_FEN_BOUTONS, make_bulletin_board},
        {GRX_FEN_GRAPHIQUE, make_drawing_area}, {GRX_FEN_TEXTE, make_scrolled_text}, {GRX_FEN_ALPHA, make_alpha},
        {GRX_FEN_MESSAGE, make_message_box}, {GRX_FEN_MENU, make_menu}}};
    for (const auto& row : makers) {
        if (row.type == type) return row.maker;
    }
    return nullptr;
}

// The side of a work widget before anything is put into it. A widget that nobody sized would be a single pixel: the
// window could not be seen, and a scrolled window would not hide its bars.
int empty_side(const grx::WindowBuild& b, INT given) {
    constexpr int side = 100;                                  // that of the toolkit's scrolled windows
    const int frame = b.has(GRX_FEN_ATT_PRINCIPALE) ? 40 : 10; // what the scrolled window and the menu bar take
    return given < 0 ? side : std::max<INT>(given - frame, 1);
}

void give_empty_container_a_size(grx::Args& args, const grx::WindowBuild& b) {
    const bool in_viewport = b.scrolls() && b.fen.type != GRX_FEN_GRAPHIQUE;
    const bool full_by_itself = b.fen.type == GRX_FEN_MESSAGE || (b.fen.type == GRX_FEN_TEXTE && !in_viewport);
    if (full_by_itself) return;
    if (b.fen.droite < 0 || in_viewport) args.set(XmNwidth, empty_side(b, b.fen.droite));
    if (b.fen.haut < 0 || in_viewport) args.set(XmNheight, empty_side(b, b.fen.haut));
}

} // namespace

namespace grx {

bool make_work_widget(WindowBuild& b, Widget container) {
    Args args;
    if (b.nested) {
        if (!b.scrolls()) set_place_in_parent(args, b);
        set_foreground(args, b.fen.coul_trace);
    }
    set_background(args, b.fen.coul_fond);
    give_empty_container_a_size(args, b);
    if (b.nested && b.sized()) args.set(XmNresizePolicy, XmRESIZE_NONE); // otherwise its controls would enlarge it
    b.work = maker_of(b.fen.type)(container, args, b);
    if (b.work == nullptr) return false;
    if (b.outer == nullptr) b.outer = b.fen.type == GRX_FEN_TEXTE ? XtParent(b.work) : b.work;
    // A hidden window is hidden as a whole: its outermost widget is not mapped, its parts are.
    if (b.outer != b.work) set_resource(b.work, XmNmappedWhenManaged, True);
    return true;
}

} // namespace grx
