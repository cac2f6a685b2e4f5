// Makes exclusive groups for the application: alternatives in a box, with a frame and a title if wanted, under one number.
#include <Xm/Frame.h>
#include <Xm/Label.h>
#include <Xm/RowColumn.h>
#include <Xm/ToggleB.h>
#include <Xm/Xm.h>

#include <cstring>
#include <span>

#include "pure/axis.h"
#include "pure/sized_record.h"
#include "pure/text.h"
#include "system/trace.h"
#include "toolkit/args.h"
#include "toolkit/compound_string.h"
#include "toolkit/look.h"
#include "toolkit/option_menu.h"
#include "toolkit/widgets.h"
#include "events/record.h"
#include "registry/control_table.h"
#include "controls/control_creation.h"
#include "controls/control_kinds.h"
#include "controls/toggle_groups.h"
#include "grx_plus_boutons.h"
#include "grx_plus_erreurs.h"
#include "xt_bou_f.h"
#include "xt_fen_f.h"
#include "xt_ini_t.h"

namespace {

bool has_title(const GRX_GROUPE& group) {
    return !grx::view(group.titre).empty();
}

// 1, or why the group cannot be made.
INT code_for(const GRX_GROUPE& group, Widget parent) {
    if (group.nb < 1 || group.nb > GRX_GROUPE_MAX) return grx::refused(GRX_ECHEC_PARAMETRE, "nb", group.nb);
    if (group.textes == nullptr) return grx::refused(GRX_ECHEC_PARAMETRE, "textes");
    if (group.choix < GRX_AUCUN || group.choix >= group.nb)
        return grx::refused(GRX_ECHEC_PARAMETRE, "choix", group.choix);
    if (x11_disp == nullptr) return grx::refused(GRX_ECHEC_AFFICHAGE, "groupe");
    if (parent == nullptr) return grx::refused(GRX_ECHEC_NUMERO, "nofen", group.nofen);
    if (!grx::can_hold_children(parent)) return grx::refused(GRX_ECHEC_GENRE, "nofen", group.nofen);
    return grx::has_free_control() ? 1 : grx::refused(GRX_ECHEC_PLEIN, "groupe");
}

// -- what happens to it

// The toggle that is released tells of it too: the one that is pressed speaks for the group.
void on_choice(Widget toggle, XtPointer client, XtPointer) {
    STRUCTURE_BOUTON* const group = grx::control_record_at(client);
    if (group == nullptr || XmToggleButtonGetState(toggle) == False) return;
    const INT choice = grx::chosen_toggle(XtParent(toggle));
    if (choice == group->valeur) return; // pressed once more
    group->valeur = choice;
    GRX_EXEC_FONCTION& record = grx::post(evt_global.exec_fonction, GRX_EVT_EXEC_FONCTION, group->nofen);
    record.nobou = group->nobou;
    record.no_fo = group->no_fo;
    record.valeur = choice;
}

void listen(Widget box, STRUCTURE_BOUTON* group) {
    const EventMask events = grx::class_of_control(GRX_BOU_BASCULE)->events;
    for (Widget toggle : grx::children_of(box)) {
        XtAddCallback(toggle, XmNvalueChangedCallback, on_choice, group);
        XtAddEventHandler(toggle, events, False, grx_gere_evenements_bouton, group);
    }
}

// -- the widgets

void set_place(grx::Args& args, const GRX_GROUPE& group) {
    args.set(XmNx, grx::as_position(group.x)).set(XmNy, grx::as_position(group.y));
}

Widget make_frame(Widget parent, const GRX_GROUPE& group) {
    grx::Args args;
    set_place(args, group);
    args.set(XmNshadowType, XmSHADOW_ETCHED_IN);
    grx::set_background(args, GRX_AUCUN);
    Widget frame = XmCreateFrame(parent, const_cast<char*>("Groupe"), args.list(), args.count());
    const grx::CompoundString text(group.titre);
    grx::Args label;
    label.set(XmNlabelString, text.get()).set(XmNfontList, fontlist).set(XmNframeChildType, XmFRAME_TITLE_CHILD);
    grx::set_background(label, GRX_AUCUN);
    grx::managed(XmCreateLabel(frame, const_cast<char*>("Titre"), label.list(), label.count()));
    return frame;
}

Widget make_box(Widget parent, const GRX_GROUPE& group) {
    grx::Args args;
    set_place(args, group);
    if (group.horizontal != 0) args.set(XmNorientation, XmHORIZONTAL);
    grx::set_background(args, GRX_AUCUN);
    return XmCreateRadioBox(parent, const_cast<char*>("Alternatives"), args.list(), args.count());
}

void add_toggle(Widget box, const char* text) {
    GRX_BOUTON described;
    grx_init_bouton(&described);
    described.type = GRX_BOU_BASCULE;
    described.ref_fen_mere = box;
    const bool fits = grx::copy_text(described.titre, grx::view(text));
    Widget toggle = grx::make_control_widget(grx::control_for(described), *grx::class_of_control(GRX_BOU_BASCULE));
    if (!fits) grx::show_long_text(toggle, text);
    XtManageChild(toggle);
}

void put_on_screen(Widget container) {
    grx::set_size(container, grx::wanted_size(container));
    XtManageChild(container);
}

INT make_group(const GRX_GROUPE& group, Widget parent) {
    Widget frame = has_title(group) ? make_frame(parent, group) : nullptr;
    Widget box = make_box(frame != nullptr ? frame : parent, group);
    for (const char* const text : std::span(group.textes, static_cast<std::size_t>(group.nb))) add_toggle(box, text);
    Widget outer = frame != nullptr ? frame : box;
    const INT nobou = grx::register_control_widget(outer, GRX_BOU_BASCULE, group.no_fo, group.nofen);
    listen(box, grx::control_record(nobou));
    grx::choose_toggle(box, group.choix);
    if (group.sensible == 0) XtSetSensitive(outer, False);
    put_on_screen(box);
    if (frame != nullptr) put_on_screen(frame);
    return nobou;
}

} // namespace

extern "C" {

INT grx_init_groupe(GRX_GROUPE* groupe) {
    if (groupe == nullptr) return grx::refused(GRX_ECHEC_PARAMETRE, "groupe");
    *groupe = GRX_GROUPE{};
    groupe->taille = static_cast<INT>(sizeof *groupe);
    groupe->no_fo = GRX_AUCUN;
    groupe->sensible = 1;
    return 1;
}

INT grx_cree_groupe(const GRX_GROUPE* groupe) {
    GRX_GROUPE group;
    grx_init_groupe(&group);
    if (!grx::read_sized(groupe, group)) return grx::refused(GRX_ECHEC_PARAMETRE, "groupe");
    Widget parent = grx_recup_objet_fen(group.nofen);
    const INT code = code_for(group, parent);
    return code == 1 ? make_group(group, parent) : code;
}
}
