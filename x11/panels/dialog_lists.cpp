// The lists of dialogs: ten slots, each with its entries and what is selected.
#include "panels/dialog_lists.h"

#include <Xm/List.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <array>
#include <utility>

#include "pure/axis.h"
#include "system/block.h"
#include "system/inventory.h"
#include "system/never_destroyed.h"
#include "display/lost_connection.h"
#include "fonts/interface_font.h"
#include "toolkit/args.h"
#include "toolkit/field_text.h"
#include "toolkit/lists.h"
#include "toolkit/option_menu.h"
#include "toolkit/widgets.h"
#include "events/record.h"
#include "xt_fen_f.h"
#include "xt_ini_t.h"
#include "xt_msg_f.h"

namespace {

// A list with its entries, which live as long as it does, and what was selected last: also when a click took that back.
struct Slot {
    grx::Block<INT> selection;
    grx::EntryTable entries;
    Widget list = nullptr;
};
grx::NeverDestroyed<std::array<Slot, GRX_NB_LISTES>> lasting_slots;
std::array<Slot, GRX_NB_LISTES>& slots = lasting_slots.value;
std::array<INT, GRX_NB_LISTES> tab_ind_page{};

Slot* slot_of(INT ind) {
    return ind >= 0 && ind < GRX_NB_LISTES ? &slots[static_cast<std::size_t>(ind)] : nullptr;
}

bool is_live(Widget list) {
    return list != nullptr
           && std::any_of(slots.begin(), slots.end(), [list](const Slot& slot) { return slot.list == list; });
}

// The slot behind a callback of a list, null once another list has taken it.
Slot* slot_behind(Widget list, XtPointer client) {
    Slot* const slot = slot_of(*static_cast<INT*>(client));
    return slot != nullptr && slot->list == list ? slot : nullptr;
}

void post_choice(INT slot, INT position, INT double_click) {
    GRX_ELEMENT_CLIQUE& record = grx::post(evt_global.element_clique, GRX_EVT_ELEMENT_CLIQUE, ~slot);
    record.nobou = position;
    record.double_click = double_click;
}

void note_selection(Slot& slot, const int* positions, int count) {
    const auto most = std::min(static_cast<std::size_t>(std::max(count, 0)), slot.selection.size());
    if (positions != nullptr) std::copy_n(positions, most, slot.selection.data());
}

void on_single(Widget list, XtPointer client, XtPointer call) {
    const auto* const choice = static_cast<XmListCallbackStruct*>(call);
    Slot* const slot = slot_behind(list, client);
    if (slot == nullptr || choice == nullptr) return;
    note_selection(*slot, &choice->item_position, 1); // KEEP: also when the click took it back
    post_choice(*static_cast<INT*>(client), choice->item_position, 0);
}

void on_chosen(Widget list, XtPointer client, XtPointer call) {
    if (slot_behind(list, client) == nullptr || call == nullptr) return;
    post_choice(*static_cast<INT*>(client), static_cast<XmListCallbackStruct*>(call)->item_position, 1);
}

void on_multiple(Widget list, XtPointer client, XtPointer call) {
    const auto* const choice = static_cast<XmListCallbackStruct*>(call);
    Slot* const slot = slot_behind(list, client);
    if (slot == nullptr || choice == nullptr) return;
    note_selection(*slot, choice->selected_item_positions, choice->selected_item_count);
    post_choice(*static_cast<INT*>(client), choice->item_position, 0);
}

void on_list_death(Widget list, XtPointer, XtPointer) {
    const auto slot = std::find_if(slots.begin(), slots.end(), [list](const Slot& s) { return s.list == list; });
    if (slot != slots.end()) *slot = Slot{};
}

// As many entries as a window can be high.
int visible_entries(INT count) {
    const int line = std::max(grx::interface_line_height(), 1);
    return std::min<int>(count, INT16_MAX / (2 * line));
}

Widget make_list(Widget parent, const GRX_MSG& message, grx::EntryTable& entries) {
    grx::FieldText title(message.titre);
    grx::Args args;
    grx::set_list_look(args, (message.attribut & GRX_MSG_ATT_MULTI) != 0);
    args.set(XmNitems, entries.get()).set(XmNitemCount, entries.count());
    if (entries.count() > 0) args.set(XmNvisibleItemCount, visible_entries(entries.count()));
    if (message.x != GRX_AUCUN) args.set(XmNx, grx::as_position(message.x));
    if (message.y != GRX_AUCUN) args.set(XmNy, grx::as_position(message.y));
    return grx::managed(XmCreateScrolledList(parent, title.data(), args.list(), args.count()));
}

void count_lists(GRX_INVENTAIRE& into) {
    for (const Slot& slot : slots) into.nb_listes += slot.list != nullptr ? 1 : 0;
}

void list_lists(grx::InventoryList& into) {
    INT number = 0;
    for (const Slot& slot : slots) {
        if (slot.list != nullptr) into.line(0, "dialog list %d: %d entries", number, slot.entries.count());
        ++number;
    }
}

constexpr grx::AliveKind kDialogLists{"dialog lists", count_lists, list_lists};

void hide_lists() {
    for (Slot& slot : slots) slot.list = nullptr;
}

void occupy(Slot& slot, INT ind, Widget list) {
    grx::tell_of(&kDialogLists);
    grx::at_lost_connection(hide_lists);
    slot.list = list;
    INT* const number = &tab_ind_page[static_cast<std::size_t>(ind)];
    *number = ind;
    grx::add_list_callbacks(list, {on_single, on_chosen, on_multiple}, number);
    XtAddCallback(list, XmNdestroyCallback, on_list_death, nullptr);
}

} // namespace

namespace grx {

Widget dialog_list(INT ind) {
    const Slot* const slot = slot_of(ind);
    return slot != nullptr ? slot->list : nullptr;
}

bool make_room_in_dialog_list(INT ind, int count) {
    Block<INT>& selection = slot_of(ind)->selection;
    const std::size_t wanted = room_for(count);
    return !selection || selection.size() >= wanted || selection.resize(wanted);
}

void note_dialog_list(INT ind) {
    Slot& slot = *slot_of(ind);
    const int count = selected_count(slot.list);
    note_selection(slot, count > 0 ? resource<int*>(slot.list, XmNselectedPositions) : nullptr, count);
}

} // namespace grx

extern "C" {

Widget grx_cree_liste(GRX_MSG* message) {
    if (message == nullptr) return nullptr;
    Slot* const slot = slot_of(message->nb_cara);
    Widget parent = grx_recup_objet_fen(message->fen_mere);
    const INT count = message->nb_deci;
    if (slot == nullptr || !grx::can_hold_children(parent) || count < 0) return nullptr;
    if (message->choix == nullptr && count > 0) return nullptr;
    Slot made;
    made.entries = grx::EntryTable(static_cast<std::size_t>(count));
    if (!made.entries) return nullptr;
    made.selection = grx::Block<INT>(grx::room_for(count));
    if (!made.selection) return nullptr;
    for (INT i = 0; i < count; ++i) made.entries.set(static_cast<std::size_t>(i), message->choix[i]);
    Widget list = make_list(parent, *message, made.entries);
    if (list == nullptr) return nullptr;
    *slot = std::move(made);
    occupy(*slot, message->nb_cara, list);
    return list;
}

INT grx_lit_liste(INT ind, Widget liste, INT* nb, INT* tab) {
    if (nb == nullptr) return 0;
    const Slot* const slot = slot_of(ind);
    *nb = is_live(liste) ? grx::selected_count(liste) : 0;
    if (slot == nullptr || tab == nullptr) return 0;
    const auto known = std::min(static_cast<std::size_t>(*nb), slot->selection.size());
    std::copy_n(slot->selection.data(), known, tab);
    return 0;
}

INT grx_detruit_liste(INT ind, Widget) {
    if (Slot* const slot = slot_of(ind)) slot->selection.reset();
    return 0;
}
}
