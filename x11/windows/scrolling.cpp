// Makes the scrolled window around the work widget of a window that is being made.
#include "windows/scrolling.h"

#include <X11/Intrinsic.h>
#include <X11/StringDefs.h>
#include <Xm/Form.h>
#include <Xm/ScrollBar.h>
#include <Xm/ScrolledW.h>
#include <Xm/Xm.h>

#include "toolkit/args.h"
#include "toolkit/look.h"
#include "toolkit/widgets.h"
#include "registry/window_table.h"
#include "windows/placing.h"
#include "windows/window_build.h"
#include "xt_fen_f.h"
#include "xt_ini_f.h"
#include "xt_mot_t.h"

namespace {

constexpr INT kMenuScrollThickness = 44;

void attach_all_sides(grx::Args& args) {
    for (const char* const side : {XmNtopAttachment, XmNbottomAttachment, XmNleftAttachment, XmNrightAttachment})
        args.set(side, XmATTACH_FORM);
}

Widget make_scroll_bar(const grx::WindowBuild& b, const char* name, unsigned char orientation) {
    grx::Args args;
    args.set(XmNorientation, orientation).set(XmNvalue, 0);
    if (grx_recup_hau_carac_alpha() > 0) args.set(XmNincrement, grx_recup_hau_carac_alpha());
    grx::set_background(args, b.fen.coul_fond);
    Widget bar = XmCreateScrollBar(b.scrolled, const_cast<char*>(name), args.list(), args.count());
    if (bar != nullptr) XtManageChild(bar);
    return bar;
}

void make_scrolled_alpha(grx::WindowBuild& b, Widget container) {
    grx::Args form;
    if (b.nested) grx::set_place_in_parent(form, b);
    grx::set_background(form, b.fen.coul_fond);
    b.outer = XmCreateForm(container, const_cast<char*>("Support"), form.list(), form.count());
    if (b.outer == nullptr) return;
    XtManageChild(b.outer);
    grx::Args args;
    args.set(XmNscrollingPolicy, XmAUTOMATIC).set(XmNautoDragModel, XmAUTO_DRAG_DISABLED);
    grx::set_given_size(args, b.fen); // at another size first, it would keep bars that it does not need
    attach_all_sides(args);
    grx::set_background(args, b.fen.coul_fond);
    b.scrolled = XmCreateScrolledWindow(b.outer, const_cast<char*>("Support_travail"), args.list(), args.count());
}

void make_scrolled_window(grx::WindowBuild& b, Widget container) {
    const bool graphic = b.fen.type == GRX_FEN_GRAPHIQUE;
    grx::Args args;
    args.set(XmNscrollingPolicy, graphic ? XmAPPLICATION_DEFINED : XmAUTOMATIC);
    args.set(XmNautoDragModel, XmAUTO_DRAG_DISABLED); // drag and drop is turned off
    grx::set_given_size(args, b.fen);                 // at another size first, it would keep bars that it does not need
    if (b.nested) grx::set_place_in_parent(args, b);
    grx::set_background(args, b.fen.coul_fond);
    b.scrolled = XmCreateScrolledWindow(container, const_cast<char*>("fenetre"), args.list(), args.count());
    b.outer = b.scrolled;
    if (b.scrolled == nullptr || !graphic) return;
    Widget vertical = make_scroll_bar(b, "vScrollBar", XmVERTICAL);
    Widget horizontal = make_scroll_bar(b, "hScrollBar", XmHORIZONTAL);
    XmScrolledWindowSetAreas(b.scrolled, horizontal, vertical, nullptr);
}

void watch_scroll_bars(const grx::WindowBuild& b, XtCallbackProc callback, XtPointer data) {
    for (const bool vertical : {false, true}) {
        Widget bar = grx::scroll_bar(b.scrolled, vertical);
        if (bar == nullptr) continue;
        XtAddCallback(bar, XmNvalueChangedCallback, callback, data);
        XtAddCallback(bar, XmNdragCallback, callback, data);
    }
}

void thicken_menu_scroll_bars(const grx::WindowBuild& b) {
    if (Widget bar = grx::scroll_bar(b.scrolled, true)) grx::set_resource(bar, XmNwidth, kMenuScrollThickness);
    if (Widget bar = grx::scroll_bar(b.scrolled, false)) grx::set_resource(bar, XmNheight, kMenuScrollThickness);
}

} // namespace

namespace grx {

bool make_scrolling(WindowBuild& b, Widget container) {
    if (!b.scrolls()) return true;
    if (b.fen.type == GRX_FEN_ALPHA) {
        make_scrolled_alpha(b, container);
    } else {
        make_scrolled_window(b, container);
    }
    if (b.scrolled == nullptr) return false;
    XtManageChild(b.scrolled);
    return true;
}

void finish_scrolled(const WindowBuild& b, INT* number) {
    if (b.scrolled == nullptr) return;
    if (b.fen.type == GRX_FEN_GRAPHIQUE) {
        watch_scroll_bars(b, grx_scroll_change, number);
        grx::window_record(b.nofen)->attributs_fen_graph |= GRX_FENG_SCROLL;
        if (const INT width = grx_recup_taille_scrollbar(b.nofen); width > 0) grx_affecte_largeur_scrollbar(width);
        return;
    }
    if (b.fen.type == GRX_FEN_MENU) {
        thicken_menu_scroll_bars(b);
        watch_scroll_bars(b, grx_gere_evenement_scroll_menu, number);
    }
    const auto pixel = application_pixel();
    Widget clip = resource<Widget>(b.scrolled, XmNclipWindow);
    if (pixel && clip != nullptr) set_resource(clip, XmNbackground, *pixel);
}

} // namespace grx
