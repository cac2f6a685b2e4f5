// The table of the kinds of controls: for each, the function that makes its widget with its resources, and the callback
// that tells the application of a press.
#include "controls/control_kinds.h"

#include <X11/Intrinsic.h>
#include <Xm/ArrowB.h>
#include <Xm/DrawingA.h>
#include <Xm/DrawnB.h>
#include <Xm/Label.h>
#include <Xm/List.h>
#include <Xm/PushB.h>
#include <Xm/Scale.h>
#include <Xm/Separator.h>
#include <Xm/Text.h>
#include <Xm/TextF.h>
#include <Xm/ToggleB.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <array>

#include "pure/axis.h"
#include "pure/decorations.h"
#include "pure/double_click.h"
#include "toolkit/args.h"
#include "toolkit/compound_string.h"
#include "toolkit/field_text.h"
#include "toolkit/locale_text.h"
#include "toolkit/look.h"
#include "toolkit/widgets.h"
#include "xt_bou_t.h"
#include "xt_fen_f.h"
#include "xt_gfx_f.h"
#include "xt_ini_f.h"

namespace {

constexpr int kMargin = 2;

bool in_window(const GRX_BOUTON& bou) {
    return bou.ref_fen_mere == nullptr;
}

void set_label(grx::Args& args, XmString label) {
    args.set(XmNlabelString, label).set(XmNfillOnArm, 1).set(XmNfontList, fontlist).set(XmNrecomputeSize, False);
}

void set_colours(grx::Args& args, const GRX_BOUTON& bou) {
    grx::set_foreground(args, bou.coul_trace);
    if (bou.coul_fond == GRX_AUCUN || bou.type == GRX_BOU_COULEUR) {
        if (const auto pixel = grx::application_pixel()) args.set(XmNbackground, *pixel);
        return;
    }
    const auto pixel = static_cast<Pixel>(grx_recup_couleur(bou.coul_fond));
    args.set(XmNarmColor, pixel).set(XmNbackground, pixel);
}

void set_attachments(grx::Args& args, const GRX_BOUTON& bou) {
    struct Side {
        INT bit;
        const char* attachment;
        const char* offset;
        std::size_t tabi;
    };
    static const std::array<Side, 4> sides{{
        {GRX_ATTACHE_BAS, XmNbottomAttachment, XmNbottomOffset, GRX_BOU_TABI_BAS},
        {GRX_ATTACHE_HAUT, XmNtopAttachment, XmNtopOffset, GRX_BOU_TABI_HAUT},
        {GRX_ATTACHE_DROITE, XmNrightAttachment, XmNrightOffset, GRX_BOU_TABI_DROITE},
        {GRX_ATTACHE_GAUCHE, XmNleftAttachment, XmNleftOffset, GRX_BOU_TABI_GAUCHE},
    }};
    for (const auto& side : sides) {
        if ((bou.attache & side.bit) == 0) continue;
        args.set(side.attachment, XmATTACH_FORM).set(side.offset, bou.tabi[side.tabi]);
    }
}

void set_margins(grx::Args& args, int margin) {
    args.set(XmNmarginWidth, margin).set(XmNmarginHeight, margin).set(XmNhighlightThickness, 0);
}

void set_push_shadow(grx::Args& args) {
    args.set(XmNpushButtonEnabled, True).set(XmNshadowType, XmSHADOW_OUT);
}

Widget make_drawn(const grx::Control& c, grx::Args& args, char* name) {
    set_margins(args, kMargin);
    if (!c.has(GRX_BOU_ATT_PLAT)) set_push_shadow(args);
    return XmCreateDrawnButton(c.parent, name, args.list(), args.count());
}

Widget make_colour(const grx::Control& c, grx::Args& args, char* name) {
    set_margins(args, kMargin);
    set_push_shadow(args);
    return XmCreateDrawnButton(c.parent, name, args.list(), args.count());
}

Widget make_toggle(const grx::Control& c, grx::Args& args, char* name) {
    set_margins(args, kMargin);
    args.set(XmNselectColor, static_cast<Pixel>(grx_noir_systeme())).set(XmNindicatorOn, 1);
    return XmCreateToggleButton(c.parent, name, args.list(), args.count());
}

Widget make_push(const grx::Control& c, grx::Args& args, char* name) {
    set_margins(args, kMargin);
    set_push_shadow(args);
    if (!c.has(GRX_BOU_ATT_VRAI_POUSSOIR)) return XmCreateDrawnButton(c.parent, name, args.list(), args.count());
    args.set(XmNfillOnArm, 0);
    return XmCreatePushButton(c.parent, name, args.list(), args.count());
}

Widget make_plain_push(const grx::Control& c, grx::Args& args, char* name) {
    set_margins(args, kMargin);
    return XmCreatePushButton(c.parent, name, args.list(), args.count());
}

Widget make_arrow(const grx::Control& c, grx::Args& args, char* name) {
    struct Direction {
        INT bit;
        unsigned char direction;
    };
    static constexpr std::array<Direction, 4> directions{
        {{GRX_BOU_ATT_FLECHE_GAUCHE, XmARROW_LEFT}, {GRX_BOU_ATT_FLECHE_DROITE, XmARROW_RIGHT},
            {GRX_BOU_ATT_FLECHE_BAS, XmARROW_DOWN}, {GRX_BOU_ATT_FLECHE_HAUT, XmARROW_UP}}};
    set_margins(args, kMargin);
    const auto* const row =
        std::find_if(directions.begin(), directions.end(), [&c](const Direction& d) { return c.has(d.bit); });
    if (row != directions.end()) args.set(XmNarrowDirection, row->direction);
    return XmCreateArrowButton(c.parent, name, args.list(), args.count());
}

Widget make_label(const grx::Control& c, grx::Args& args, char* name) {
    set_margins(args, 0);
    args.set(XmNalignment, XmALIGNMENT_BEGINNING);
    return XmCreateLabel(c.parent, name, args.list(), args.count());
}

// Zero is not set: it is the toolkit's default, but the toolkit warns when it is asked for.
void set_columns(grx::Args& args, const GRX_BOUTON& bou) {
    const INT given = bou.tabi[GRX_BOU_TABI_COLONNES];
    const INT columns = given >= 0 ? given : bou.largeur / std::max<INT>(grx_recup_lar_carac_alpha(), 1);
    if (columns > 0) args.set(XmNcolumns, std::min<INT>(columns, INT16_MAX));
}

Widget make_text(const grx::Control& c, grx::Args& args, char* name) {
    const grx::FieldText title(c.bou.titre);
    grx::LocaleText value(title.c_str());
    set_margins(args, kMargin);
    set_columns(args, c.bou);
    args.set(XmNvalue, value.data());
    if (c.has(GRX_BOU_ATT_TEXTE_LECTURE)) args.set(XmNeditable, False);
    if (!c.has(GRX_BOU_ATT_TEXTE_MULTI)) return XmCreateTextField(c.parent, name, args.list(), args.count());
    args.set(XmNscrollBarDisplayPolicy, XmAS_NEEDED).set(XmNscrollHorizontal, False);
    args.set(XmNeditMode, XmMULTI_LINE_EDIT);
    return XmCreateScrolledText(c.parent, name, args.list(), args.count());
}

void set_scale_range(grx::Args& args, const GRX_BOUTON& bou) {
    const INT low = bou.tabi[GRX_BOU_TABI_MINI];
    const INT high = bou.tabi[GRX_BOU_TABI_MAXI];
    const INT value = bou.tabi[GRX_BOU_TABI_INITIAL];
    if (low < high) args.set(XmNminimum, low).set(XmNmaximum, high);
    if (low < value && value < high) args.set(XmNvalue, value); // KEEP: a value at one of the bounds is not set
}

Widget make_scale(const grx::Control& c, grx::Args& args, char* name) {
    const GRX_BOUTON& bou = c.bou;
    const grx::FieldText title(bou.titre);
    const grx::CompoundString label(title.c_str());
    set_margins(args, kMargin);
    set_scale_range(args, bou);
    if (bou.hauteur >= 0) args.set(XmNscaleHeight, grx::as_size(bou.hauteur));
    if (bou.largeur >= 0) args.set(XmNscaleWidth, grx::as_size(bou.largeur));
    if (c.has(GRX_BOU_ATT_ECHELLE_VALEUR)) args.set(XmNshowValue, True).set(XmNtitleString, label.get());
    if (c.has(GRX_BOU_ATT_ECHELLE_HORIZ)) {
        args.set(XmNorientation, XmHORIZONTAL);
    } else {
        args.set(XmNprocessingDirection, XmMAX_ON_BOTTOM).set(XmNorientation, XmVERTICAL);
    }
    return XmCreateScale(c.parent, name, args.list(), args.count());
}

Widget make_list(const grx::Control& c, grx::Args& args, char* name) {
    set_margins(args, kMargin);
    args.set(XmNlistMarginWidth, kMargin).set(XmNlistMarginHeight, kMargin);
    args.set(XmNlistSizePolicy, XmCONSTANT);
    if (c.has(GRX_BOU_ATT_LISTE_SCROLL)) {
        args.set(XmNscrollingPolicy, XmAPPLICATION_DEFINED).set(XmNscrollBarDisplayPolicy, XmSTATIC);
        args.set(XmNvisualPolicy, XmCONSTANT);
    }
    return XmCreateScrolledList(c.parent, name, args.list(), args.count());
}

// A button of a dialog's bottom row is made in the form of the dialog, which is three levels above the parent given.
Widget make_dialog_push(const grx::Control& c, grx::Args& args, char* name) {
    struct Column {
        INT number;
        int left, right;
    };
    static constexpr std::array<Column, 3> columns{
        {{GRX_BOU_PLACE_GAUCHE, 5, 31}, {GRX_BOU_PLACE_CENTRE, 36, 62}, {GRX_BOU_PLACE_DROITE, 68, 94}}};
    constexpr int top = 92, bottom = 99, levels = 3;
    Widget form = c.parent;
    for (int i = 0; i < levels && form != nullptr; ++i) form = XtParent(form);
    if (form == nullptr || !XtIsComposite(form) || XtIsShell(form)) return nullptr;
    const INT wanted = c.bou.tabi[GRX_BOU_TABI_PLACE];
    const auto* const row =
        std::find_if(columns.begin(), columns.end(), [wanted](const Column& c) { return c.number == wanted; });
    if (row != columns.end()) {
        for (const char* const side : {XmNtopAttachment, XmNbottomAttachment, XmNleftAttachment, XmNrightAttachment})
            args.set(side, XmATTACH_POSITION);
        args.set(XmNtopPosition, top).set(XmNbottomPosition, bottom);
        args.set(XmNleftPosition, row->left).set(XmNrightPosition, row->right);
    }
    return XmCreatePushButton(form, name, args.list(), args.count());
}

Widget make_separator(const grx::Control& c, grx::Args& args, char* name) {
    args.set(XmNorientation, c.has(GRX_BOU_ATT_SEPARATEUR_HORIZ) ? XmHORIZONTAL : XmVERTICAL);
    return XmCreateSeparator(c.parent, name, args.list(), args.count());
}

Widget make_drawing_area(const grx::Control& c, grx::Args& args, char* name) {
    set_margins(args, kMargin);
    return XmCreateDrawingArea(c.parent, name, args.list(), args.count());
}

constexpr EventMask kPointerEvents = ButtonPressMask | ButtonReleaseMask | EnterWindowMask | LeaveWindowMask
                                     | PointerMotionMask | Button1MotionMask | Button2MotionMask | Button3MotionMask
                                     | ButtonMotionMask;
constexpr EventMask kControlEvents = KeyPressMask | kPointerEvents | OwnerGrabButtonMask;
constexpr EventMask kTextEvents = KeyPressMask | KeyReleaseMask | kPointerEvents;
constexpr EventMask kDrawingEvents = ButtonPressMask | ButtonReleaseMask | ExposureMask;

constexpr std::array<grx::ControlClass, 13> kControlClasses{{
    {GRX_BOU_DESSINE, make_drawn, grx::Press::Activate, kControlEvents, true},
    {GRX_BOU_BASCULE, make_toggle, grx::Press::ValueChanged, kControlEvents, true},
    {GRX_BOU_POUSSOIR, make_push, grx::Press::Activate, kControlEvents, true},
    {GRX_BOU_FLECHE, make_arrow, grx::Press::Activate, kControlEvents, true},
    {GRX_BOU_LABEL, make_label, grx::Press::Silent, kControlEvents, true},
    {GRX_BOU_TEXTE, make_text, grx::Press::Activate, kTextEvents, true},
    {GRX_BOU_ECHELLE, make_scale, grx::Press::ValueChanged, kControlEvents, true},
    {GRX_BOU_LISTE, make_list, grx::Press::Silent, kControlEvents, true},
    {GRX_BOU_DIALOGUE, make_dialog_push, grx::Press::Activate, kControlEvents, false},
    {GRX_BOU_SIMPLE, make_plain_push, grx::Press::Activate, kControlEvents, true},
    {GRX_BOU_SEPARATEUR, make_separator, grx::Press::Silent, kControlEvents, false},
    {GRX_BOU_ZONE_DESSIN, make_drawing_area, grx::Press::Silent, kDrawingEvents, true},
    {GRX_BOU_COULEUR, make_colour, grx::Press::Activate, kControlEvents, true},
}};

} // namespace

namespace grx {

Control control_for(const GRX_BOUTON& bou) {
    if (!in_window(bou)) return {bou, bou.ref_fen_mere, GRX_AUCUN};
    return {bou, grx_recup_objet_fen(bou.fen_mere), bou.fen_mere};
}

void set_control_position(Args& args, const GRX_BOUTON& bou) {
    if (bou.x != GRX_AUCUN) args.set(XmNx, as_position(bou.x));
    if (bou.y != GRX_AUCUN) args.set(XmNy, as_position(bou.y));
}

void set_control_size(Args& args, const GRX_BOUTON& bou) {
    // When a scale shows its value, the given size is that of its bar alone. It is set where the scale is made.
    if (bou.type == GRX_BOU_ECHELLE && (bou.attrib & GRX_BOU_ATT_ECHELLE_VALEUR) != 0) return;
    if (bou.hauteur != GRX_AUCUN) args.set(XmNheight, as_size(bou.hauteur));
    if (bou.largeur != GRX_AUCUN) args.set(XmNwidth, as_size(bou.largeur));
}

const ControlClass* class_of_control(INT type) {
    const auto* const row = std::find_if(
        kControlClasses.begin(), kControlClasses.end(), [type](const ControlClass& c) { return c.type == type; });
    return row != kControlClasses.end() ? row : nullptr;
}

Widget make_control_widget(const Control& c, const ControlClass& control_class) {
    FieldText title(c.bou.titre);
    const CompoundString label(title.c_str());
    Args args;
    set_control_position(args, c.bou);
    if (control_class.labelled) set_label(args, label.get());
    set_screen(args);
    set_colours(args, c.bou);
    set_control_size(args, c.bou);
    set_attachments(args, c.bou);
    return control_class.make(c, args, title.data());
}

Size drawing_area_size(Widget w, const GRX_BOUTON& bou) {
    if (bou.largeur > 0 && bou.hauteur > 0) return {bou.largeur, bou.hauteur};
    const Size size = size_of(w);
    return {bou.largeur > 0 ? bou.largeur : size.width, bou.hauteur > 0 ? bou.hauteur : size.height};
}

} // namespace grx
