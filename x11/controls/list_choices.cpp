// Choices in list controls of which several entries can be selected: told as in a list of one.
#include "controls/list_choices.h"

#include <Xm/List.h>
#include <Xm/Xm.h>

#include "registry/control_table.h"
#include "xt_bou_f.h"

namespace {

void on_several(Widget list, XtPointer client, XtPointer call) {
    if (call == nullptr) return;
    XmListCallbackStruct choice = *static_cast<XmListCallbackStruct*>(call);
    choice.reason = XmCR_BROWSE_SELECT;
    grx_element_liste_clique(list, client, &choice);
}

} // namespace

namespace grx {

void tell_several_choices(INT nobou) {
    Widget list = grx_recup_objet_bout(nobou);
    STRUCTURE_BOUTON* const record = control_record(nobou);
    XtRemoveCallback(list, XmNmultipleSelectionCallback, on_several, record);
    XtAddCallback(list, XmNmultipleSelectionCallback, on_several, record);
}

} // namespace grx
