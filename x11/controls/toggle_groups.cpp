// Toggles and exclusive groups: their state, by the number of a toggle or of a group.
#include "controls/toggle_groups.h"

#include <Xm/Frame.h>
#include <Xm/RowColumn.h>
#include <Xm/ToggleB.h>
#include <Xm/Xm.h>

#include <algorithm>

#include "system/block.h"
#include "system/trace.h"
#include "toolkit/args.h"
#include "toolkit/compound_string.h"
#include "toolkit/widgets.h"
#include "registry/control_table.h"
#include "grx_plus_boutons.h"
#include "grx_plus_erreurs.h"
#include "xt_bou_f.h"
#include "xt_ini_t.h"

namespace {

bool is_toggle(Widget w) {
    return w != nullptr && XmIsToggleButton(w) && !grx::is_dying(w);
}

bool is_pressed(Widget toggle) {
    return XmToggleButtonGetState(toggle) != False;
}

void press(Widget toggle, bool pressed) {
    if (is_pressed(toggle) != pressed) XmToggleButtonSetState(toggle, pressed ? True : False, False);
}

template <class Function>
void for_each_toggle(Widget box, Function function) {
    INT index = 0;
    for (Widget w : grx::children_of(box)) {
        if (is_toggle(w)) function(w, index++);
    }
}

Widget toggle_at(Widget box, INT wanted) {
    Widget found = nullptr;
    for_each_toggle(box, [&](Widget w, INT index) { found = index == wanted ? w : found; });
    return found;
}

INT index_of(Widget box, Widget wanted) {
    INT found = GRX_AUCUN;
    for_each_toggle(box, [&](Widget w, INT index) { found = w == wanted ? index : found; });
    return found;
}

// A group with a number of its own tells its choice as the value of its records.
void note_choice(Widget box, INT choice) {
    for (Widget w : {box, XtParent(box)}) {
        const INT nobou = grx_recup_indice_bout(w);
        if (nobou >= 0) grx::control_record(nobou)->valeur = choice;
    }
}

// 1 for a widget that can be what `can_be` says, else why not.
INT code_for(INT nobou, Widget w, bool can_be) {
    if (x11_disp == nullptr) return grx::refused(GRX_ECHEC_AFFICHAGE, "nobou", nobou);
    if (w == nullptr || grx::is_dying(w)) return grx::refused(GRX_ECHEC_NUMERO, "nobou", nobou);
    return can_be ? 1 : grx::refused(GRX_ECHEC_GENRE, "nobou", nobou);
}

// -- toggles and groups of the application

struct Found {
    Widget widget;
    INT code; // without a widget, why there is none
};

Found checked(INT nobou, Widget numbered, Widget found) {
    const INT code = code_for(nobou, numbered, found != nullptr);
    return {code == 1 ? found : nullptr, code};
}

Found find_toggle(INT nobou) {
    Widget w = grx_recup_objet_bout(nobou);
    return checked(nobou, w, is_toggle(w) ? w : nullptr);
}

Found find_group(INT nobou) {
    Widget w = grx_recup_objet_bout(nobou);
    return checked(nobou, w, grx::radio_box_of(w));
}

INT set_toggle(Widget toggle, bool pressed) {
    Widget box = grx::radio_box_of(toggle);
    if (box != nullptr && pressed)
        grx::choose_toggle(box, index_of(box, toggle));
    else
        press(toggle, pressed);
    return 1;
}

} // namespace

namespace grx {

Widget radio_box_of(Widget w) {
    if (is_toggle(w)) w = XtParent(w);
    if (w != nullptr && XmIsFrame(w)) {
        const auto parts = children_of(w);
        const auto box = std::find_if(parts.begin(), parts.end(), [](Widget part) { return XmIsRowColumn(part); });
        w = box != parts.end() ? *box : nullptr;
    }
    const bool exclusive = w != nullptr && XmIsRowColumn(w) && resource<Boolean>(w, XmNradioBehavior) != False;
    return exclusive ? w : nullptr;
}

INT chosen_toggle(Widget box) {
    INT chosen = GRX_AUCUN;
    for_each_toggle(box, [&](Widget w, INT index) { chosen = chosen < 0 && is_pressed(w) ? index : chosen; });
    return chosen;
}

bool choose_toggle(Widget box, INT choice) {
    if (choice != GRX_AUCUN && toggle_at(box, choice) == nullptr) return false;
    for_each_toggle(box, [choice](Widget w, INT index) { press(w, index == choice); });
    note_choice(box, choice);
    return true;
}

void show_long_text(Widget toggle, const char* text) {
    const CompoundString label(text);
    Args args;
    args.set(XmNrecomputeSize, True).set(XmNlabelString, label.get());
    XtSetValues(toggle, args.list(), args.count());
    set_resource(toggle, XmNrecomputeSize, False);
}

} // namespace grx

extern "C" {

INT grx_recup_etat_bascule(INT nobou) {
    const Found toggle = find_toggle(nobou);
    if (toggle.widget == nullptr) return toggle.code;
    return is_pressed(toggle.widget) ? 1 : 0;
}

INT grx_affecte_etat_bascule(INT nobou, INT etat) {
    const Found toggle = find_toggle(nobou);
    return toggle.widget != nullptr ? set_toggle(toggle.widget, etat != 0) : toggle.code;
}

INT grx_recup_choix_groupe(INT nobou) {
    const Found box = find_group(nobou);
    if (box.widget == nullptr) return box.code;
    const INT choice = grx::chosen_toggle(box.widget);
    return choice >= 0 ? choice : GRX_ECHEC_ABSENT;
}

INT grx_affecte_choix_groupe(INT nobou, INT choix) {
    const Found box = find_group(nobou);
    if (box.widget == nullptr) return box.code;
    return grx::choose_toggle(box.widget, choix) ? 1 : grx::refused(GRX_ECHEC_PARAMETRE, "choix", choix);
}

INT grx_desactive_choix_groupe(INT nobou, INT choix, INT bloquer) {
    const Found box = find_group(nobou);
    if (box.widget == nullptr) return box.code;
    Widget toggle = toggle_at(box.widget, choix);
    if (toggle == nullptr) return grx::refused(GRX_ECHEC_PARAMETRE, "choix", choix);
    XtSetSensitive(toggle, bloquer != 0 ? False : True);
    return 1;
}
}
