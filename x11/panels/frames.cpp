// The frames that hold the controls of a dialog element, for applications that build dialogs of their own.
#include <Xm/Form.h>
#include <Xm/Frame.h>
#include <Xm/RowColumn.h>
#include <Xm/ToggleBG.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <array>
#include <cstring>

#include "pure/axis.h"
#include "toolkit/args.h"
#include "toolkit/look.h"
#include "toolkit/option_menu.h"
#include "toolkit/widgets.h"
#include "registry/window_table.h"
#include "xt_fen_f.h"
#include "xt_ini_t.h"
#include "xt_msg_f.h"

namespace {

constexpr const char* kOuterName = "Support cadre";
constexpr const char* kFrameName = "Cadre";
constexpr const char* kSupportName = "Support";

bool has(const GRX_MSG& msg, INT bit) {
    return (msg.attribut & bit) != 0;
}

Widget make_outer(Widget parent, const GRX_MSG& msg) {
    if (!grx::can_hold_children(parent)) return nullptr;
    grx::Args args;
    if (msg.x != GRX_AUCUN) args.set(XmNx, grx::as_position(msg.x));
    if (msg.y != GRX_AUCUN) args.set(XmNy, grx::as_position(msg.y));
    grx::set_background(args, GRX_AUCUN);
    return grx::managed(XmCreateForm(parent, const_cast<char*>(kOuterName), args.list(), args.count()));
}

// An etched frame between the left and right edges of the outer form; `top` says what its upper edge hangs on.
Widget make_frame(Widget outer, unsigned char top) {
    if (outer == nullptr) return nullptr;
    grx::Args args;
    args.set(XmNshadowType, XmSHADOW_ETCHED_IN);
    args.set(XmNrightAttachment, XmATTACH_FORM).set(XmNleftAttachment, XmATTACH_FORM);
    if (top != XmATTACH_NONE) args.set(XmNtopAttachment, top);
    grx::set_background(args, GRX_AUCUN);
    return grx::managed(XmCreateFrame(outer, const_cast<char*>(kFrameName), args.list(), args.count()));
}

Widget make_plain_support(Widget parent, const GRX_MSG& msg) {
    Widget frame = make_frame(make_outer(parent, msg), XmATTACH_NONE);
    if (frame == nullptr) return nullptr;
    grx::Args args;
    if (msg.hauteur > 0) args.set(XmNheight, grx::as_size(msg.hauteur));
    if (msg.largeur > 0) args.set(XmNwidth, grx::as_size(msg.largeur));
    if (msg.hauteur > 0 || msg.largeur > 0) args.set(XmNresizePolicy, XmRESIZE_GROW); // or its content shrinks it
    grx::set_background(args, GRX_AUCUN);
    return grx::managed(XmCreateForm(frame, const_cast<char*>(kSupportName), args.list(), args.count()));
}

void set_direction(grx::Args& args, const GRX_MSG& msg) {
    if (!has(msg, GRX_MSG_ATT_VERTICAL)) args.set(XmNorientation, XmHORIZONTAL);
    grx::set_background(args, GRX_AUCUN);
}

Widget make_bare_frame(Widget parent, const GRX_MSG& msg) {
    return make_frame(make_outer(parent, msg), XmATTACH_FORM);
}

Widget make_radio_support(Widget parent, const GRX_MSG& msg) {
    Widget frame = make_frame(make_outer(parent, msg), XmATTACH_NONE);
    if (frame == nullptr) return nullptr;
    grx::Args args;
    set_direction(args, msg);
    return grx::managed(XmCreateRadioBox(frame, const_cast<char*>(kSupportName), args.list(), args.count()));
}

Widget make_row_support(Widget parent, const GRX_MSG& msg) {
    Widget frame = make_frame(make_outer(parent, msg), XmATTACH_WIDGET);
    if (frame == nullptr) return nullptr;
    grx::Args args;
    args.set(XmNentryClass, xmToggleButtonGadgetClass);
    set_direction(args, msg);
    return grx::managed(XmCreateRowColumn(frame, const_cast<char*>(kSupportName), args.list(), args.count()));
}

// In the order in which the bits are looked at.
struct ToggleSupport {
    INT bit;
    Widget (*make)(Widget parent, const GRX_MSG& msg);
};
constexpr std::array<ToggleSupport, 3> kToggleSupports{{
    {GRX_MSG_ATT_CADRE, make_bare_frame},
    {GRX_MSG_ATT_RADIO, make_radio_support},
    {GRX_MSG_ATT_MULTI, make_row_support},
}};

// The support is compared with what the windows hold: a container already destroyed is not touched again.
bool stands_in_a_window(Widget support) {
    for (INT nofen = 1; nofen < MAXOBJETFEN; ++nofen) {
        if (grx::holds_widget(grx::window_widget_if_any(nofen), support)) return true;
    }
    return false;
}

bool is_outer(Widget w) {
    return w != nullptr && std::strcmp(XtName(w), kOuterName) == 0;
}

} // namespace

extern "C" {

INT grx_init_message(GRX_MSG* message) {
    if (message == nullptr) return 0;
    char** const rep = message->rep;
    *message = GRX_MSG{};
    message->rep = rep; // KEEP: the answers stay the caller's
    message->clef = message->x = message->y = message->largeur = message->hauteur = GRX_AUCUN;
    message->fen_mere = message->nobou = message->prebou = GRX_AUCUN;
    message->prec = message->suiv = GRX_AUCUN;
    message->type = GRX_MSG_TYPE_DEFAUT;
    message->ival = message->couleur = 1;
    return 0;
}

Widget grx_cree_support_message(INT pere, GRX_MSG msg) {
    Widget parent = grx_recup_objet_fen(pere);
    if (msg.type != GRX_MSG_TYPE_BASCULES) return make_plain_support(parent, msg);
    const auto* const row = std::find_if(
        kToggleSupports.begin(), kToggleSupports.end(), [&msg](const ToggleSupport& s) { return has(msg, s.bit); });
    return row != kToggleSupports.end() ? row->make(parent, msg) : nullptr;
}

INT grx_detruit_bascule_complexe(GRX_MSG message) {
    if (!stands_in_a_window(message.ref_fen_mere)) return 0;
    const bool bare = message.type == GRX_MSG_TYPE_BASCULES && has(message, GRX_MSG_ATT_CADRE);
    Widget outer = XtParent(message.ref_fen_mere);
    if (!bare) outer = XtParent(outer);
    if (is_outer(outer)) XtDestroyWidget(outer);
    return 0;
}
}
