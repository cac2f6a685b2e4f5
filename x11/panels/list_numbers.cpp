// What a list's number stands for: a control, a list of a panel or of a dialog.
#include "panels/list_numbers.h"

#include <Xm/List.h>
#include <Xm/Xm.h>

#include <algorithm>

#include "system/trace.h"
#include "toolkit/list_entries.h"
#include "toolkit/widgets.h"
#include "controls/list_choices.h"
#include "panels/dialog_lists.h"
#include "panels/panel_lists.h"
#include "grx_plus_erreurs.h"
#include "grx_plus_listes.h"
#include "xt_bou_f.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

ListNumber locate(INT liste) {
    if (liste >= GRX_LISTE_DIALOGUE)
        return {dialog_list(liste - GRX_LISTE_DIALOGUE), 0, ListKind::Dialog, liste - GRX_LISTE_DIALOGUE};
    if (liste >= GRX_LISTE_PANNEAU)
        return {panel_list(liste - GRX_LISTE_PANNEAU), 0, ListKind::Panel, liste - GRX_LISTE_PANNEAU};
    return {grx_recup_objet_bout(liste), 0, ListKind::Control, liste};
}

INT code_for(INT liste, Widget w) {
    if (x11_disp == nullptr) return refused(GRX_ECHEC_AFFICHAGE, "liste", liste);
    if (w == nullptr || is_dying(w)) return refused(GRX_ECHEC_NUMERO, "liste", liste);
    return XmIsList(w) ? 1 : refused(GRX_ECHEC_GENRE, "liste", liste);
}

// Where several are selected with Shift and Ctrl, that is told as where a click turns one round.
void on_extended(Widget list, XtPointer, XtPointer call) {
    if (call == nullptr) return;
    XmListCallbackStruct choice = *static_cast<XmListCallbackStruct*>(call);
    choice.reason = XmCR_MULTIPLE_SELECT;
    XtCallCallbacks(list, XmNmultipleSelectionCallback, &choice);
}

} // namespace

ListNumber find_list(INT liste) {
    ListNumber found = locate(liste);
    found.code = code_for(liste, found.list);
    if (found.code < 0) found.list = nullptr;
    return found;
}

bool are_positions(const ListNumber& found, INT nb, const INT* positions) {
    if (nb < 0 || (nb > 0 && positions == nullptr)) return false;
    const int count = entry_count(found.list);
    return std::all_of(positions, positions + nb, [count](INT position) { return position >= 1 && position <= count; });
}

bool make_room(const ListNumber& found, int count) {
    return found.kind != ListKind::Dialog || make_room_in_dialog_list(found.slot, count);
}

void note_change(const ListNumber& found) {
    if (found.kind == ListKind::Panel) note_panel_list(found.slot);
    if (found.kind == ListKind::Dialog) note_dialog_list(found.slot);
}

void tell_several(const ListNumber& found) {
    if (found.kind == ListKind::Control) tell_several_choices(found.slot);
    XtRemoveCallback(found.list, XmNextendedSelectionCallback, on_extended, nullptr);
    XtAddCallback(found.list, XmNextendedSelectionCallback, on_extended, nullptr);
}

} // namespace grx
