// Makes labels and separators that have no number, because the application never changes them.
#include <X11/Intrinsic.h>
#include <Xm/Label.h>
#include <Xm/Separator.h>
#include <Xm/Xm.h>

#include "display/pixmaps.h"
#include "toolkit/args.h"
#include "toolkit/compound_string.h"
#include "toolkit/field_text.h"
#include "toolkit/look.h"
#include "drawing/control_pictures.h"
#include "controls/control_creation.h"
#include "controls/control_kinds.h"
#include "xt_bou_f.h"
#include "xt_fen_f.h"
#include "xt_ini_f.h"

namespace {

void set_bare(grx::Args& args, const GRX_BOUTON& bou) {
    args.set(XmNfontList, fontlist);
    grx::set_control_position(args, bou);
    grx::set_control_size(args, bou);
    grx::set_foreground(args, bou.coul_trace);
    if (bou.coul_fond == GRX_AUCUN) {
        if (const auto pixel = grx::application_pixel()) args.set(XmNbackground, *pixel);
        return;
    }
    args.set(XmNarmColor, bou.coul_fond); // KEEP: the index itself is used as a pixel
    args.set(XmNbackground, static_cast<Pixel>(grx_recup_couleur(bou.coul_fond)));
}

Widget make_bare_separator(Widget parent, const GRX_BOUTON& bou) {
    grx::Args args;
    set_bare(args, bou);
    const bool horizontal = (bou.attrib & GRX_BOU_ATT_SEPARATEUR_HORIZ) != 0;
    args.set(XmNorientation, horizontal ? XmHORIZONTAL : XmVERTICAL);
    return XmCreateSeparator(parent, const_cast<char*>("Gadget_Separateur"), args.list(), args.count());
}

// The picture of a label without a number is freed with the label.
void release_icon(Widget, XtPointer client, XtPointer) {
    grx::free_pixmap(reinterpret_cast<Pixmap>(client));
}

Widget make_bare_label(Widget parent, const GRX_BOUTON& bou) {
    grx::FieldText title(bou.titre);
    grx::FieldText icon(bou.icone);
    const grx::CompoundString label(title.c_str());
    grx::Args args;
    set_bare(args, bou);
    args.set(XmNlabelString, label.get()).set(XmNalignment, XmALIGNMENT_BEGINNING);
    const Pixmap picture = grx::install_label_icon(icon.data());
    const bool shown = picture != XmUNSPECIFIED_PIXMAP;
    if (shown) args.set(XmNlabelType, XmPIXMAP).set(XmNlabelPixmap, picture);
    Widget w = XmCreateLabel(parent, title.data(), args.list(), args.count());
    if (shown && w != nullptr) XtAddCallback(w, XmNdestroyCallback, release_icon, reinterpret_cast<XtPointer>(picture));
    return w;
}

} // namespace

extern "C" {

INT grx_cree_gadget(GRX_BOUTON* gadget) {
    grx::forget_label_icon();
    Widget parent = gadget != nullptr ? grx_recup_objet_fen(gadget->fen_mere) : nullptr;
    if (parent == nullptr) return grx::kNoParent;
    if (!XtIsComposite(parent)) return 0;
    Widget w = nullptr;
    if (gadget->type == GRX_BOU_SEPARATEUR) w = make_bare_separator(parent, *gadget);
    if (gadget->type == GRX_BOU_LABEL) w = make_bare_label(parent, *gadget);
    if (w != nullptr) XtManageChild(w);
    return 0;
}
}
