// Lists in panels: filled from the application's tables, and the choices that the user makes in them.
#include "panels/panel_lists.h"

#include <X11/StringDefs.h>
#include <Xm/List.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <cstdlib>
#include <span>

#include "pure/axis.h"
#include "system/block.h"
#include "system/inventory.h"
#include "display/lost_connection.h"
#include "toolkit/args.h"
#include "toolkit/field_text.h"
#include "toolkit/late_layout.h"
#include "toolkit/lists.h"
#include "toolkit/option_menu.h"
#include "host_g.h"
#include "xt_ent_t.h"
#include "xt_fen_f.h"
#include "xt_ini_t.h"
#include "xt_pan_f.h"

LISTE_PANEL* Tab_liste = nullptr;

namespace {

constexpr INT kNoMemory = 1;

INT Nb_max_liste = 0;     // size of the table
INT Nb_liste = GRX_AUCUN; // highest slot given out so far

constexpr LISTE_PANEL kFree{GRX_AUCUN, GRX_AUCUN, GRX_AUCUN, GRX_AUCUN, 0, 0, nullptr, nullptr};

// -- the application's tables

bool known_key(INT clef) {
    return clef >= 0 && clef < HOST_NB_LISTES;
}

template <class T>
T of_host(const T* table, INT clef) {
    return table != nullptr && known_key(clef) ? table[clef] : T{};
}

INT item_key(INT cle) {
    return cle >= GRX_BASE_CLEF_LISTE ? cle - GRX_BASE_CLEF_LISTE : GRX_AUCUN;
}

// The index in the record is the application's: a list is known by its key.
INT item_key(const LISTE_PANEL& slot) {
    return item_key(slot.ietat);
}

// The first `count` texts of a list; fewer when the application has no more.
grx::EntryTable entries_of(INT clef, INT count) {
    const CH80* const texts = of_host(lsstate, clef);
    const INT known = texts != nullptr ? std::clamp<INT>(count, 0, grx::host_list_length(clef)) : 0;
    grx::EntryTable entries(static_cast<std::size_t>(known));
    for (INT i = 0; entries && i < known; ++i)
        entries.set(static_cast<std::size_t>(i), grx::FieldText(texts[i]).c_str());
    return entries;
}

// The positions selected at first, as the application has them.
std::span<const INT> first_positions(INT clef) {
    const INT* const positions = of_host(lcstate, clef);
    return {positions, static_cast<std::size_t>(positions != nullptr ? std::max<INT>(of_host(listate, clef), 0) : 0)};
}

void select_at_first(Widget list, INT clef) {
    const auto wanted = first_positions(clef);
    if (grx::resource<unsigned char>(list, XmNselectionPolicy) == XmMULTIPLE_SELECT) {
        grx::select_several(list, wanted);
        return;
    }
    const int entries = grx::resource<int>(list, XmNitemCount);
    const auto last = std::find_if(wanted.rbegin(), wanted.rend(), [=](INT p) { return p >= 0 && p < entries; });
    if (last != wanted.rend()) XmListSelectPos(list, *last + 1, False);
}

// -- the table

bool is_used(const LISTE_PANEL& slot) {
    return slot.isys != GRX_AUCUN;
}

std::span<LISTE_PANEL> all_slots() {
    return {Tab_liste, static_cast<std::size_t>(Tab_liste != nullptr ? Nb_max_liste : 0)};
}

// tab_choix has exactly nb_choix entries, and is null when there is none.
bool resize_choices(LISTE_PANEL& slot, INT count) {
    auto choices = grx::Block<INT>::adopt(slot.tab_choix, static_cast<std::size_t>(slot.nb_choix));
    const bool enough = count == 0 || choices.resize(static_cast<std::size_t>(count));
    if (count == 0) choices.reset();
    if (enough) slot.nb_choix = count;
    slot.tab_choix = choices.release();
    return enough;
}

// Positions as the toolkit counts them, from 1.
void note_choices(LISTE_PANEL& slot, const int* positions, int count) {
    const bool readable = count == 0 || (count > 0 && positions != nullptr);
    if (!readable || !resize_choices(slot, count)) return;
    std::transform(positions, positions + count, slot.tab_choix, [](int position) { return position - 1; });
}

void note_selection(LISTE_PANEL& slot) {
    const int count = grx::selected_count(slot.obj);
    note_choices(slot, count > 0 ? grx::resource<int*>(slot.obj, XmNselectedPositions) : nullptr, count);
}

// A slot by its key; the panel GRX_AUCUN stands for every panel.
LISTE_PANEL* find_slot(INT ipan, INT cle) {
    const auto slots = all_slots();
    const auto found = std::find_if(slots.begin(), slots.end(),
        [=](const LISTE_PANEL& slot) { return is_used(slot) && slot.ietat == cle && slot.ipan == ipan; });
    return found != slots.end() ? &*found : nullptr;
}

// -- events

// The slot behind a callback; null for client data that is no used slot.
LISTE_PANEL* slot_behind(Widget list, XtPointer client) {
    const auto slots = all_slots();
    const auto found = std::find_if(slots.begin(), slots.end(),
        [=](const LISTE_PANEL& slot) { return &slot == client && is_used(slot) && slot.obj == list; });
    return found != slots.end() ? &*found : nullptr;
}

void post_choice(const LISTE_PANEL& slot, int position, INT double_click) {
    GRX_ELEMENT_CLIQUE& record = evt_global.element_clique; // KEEP: the window is what the last event left
    record.type_evenement = GRX_EVT_ELEMENT_CLIQUE;
    record.no_fo = slot.isys;
    record.nobou = position - 1;
    record.double_click = double_click;
    caracs_entree[HOST_CARACS_LISTE] = 1;
    caracs_entree[HOST_CARACS_DOUBLE] = double_click;
}

void on_chosen(Widget list, XtPointer client, XtPointer call) {
    const LISTE_PANEL* const slot = slot_behind(list, client);
    if (slot != nullptr && call != nullptr)
        post_choice(*slot, static_cast<XmListCallbackStruct*>(call)->item_position, 1);
}

void on_single(Widget list, XtPointer client, XtPointer call) {
    LISTE_PANEL* const slot = slot_behind(list, client);
    const auto* const choice = static_cast<XmListCallbackStruct*>(call);
    if (slot == nullptr || choice == nullptr) return;
    note_choices(*slot, &choice->item_position, 1); // KEEP: also when the click took the selection back
    post_choice(*slot, choice->item_position, 0);
}

void on_multiple(Widget list, XtPointer client, XtPointer call) {
    LISTE_PANEL* const slot = slot_behind(list, client);
    const auto* const choice = static_cast<XmListCallbackStruct*>(call);
    if (slot == nullptr || choice == nullptr) return;
    note_choices(*slot, choice->selected_item_positions, choice->selected_item_count);
    post_choice(*slot, choice->item_position, 0);
}

constexpr grx::ListCallbacks kCallbacks{on_single, on_chosen, on_multiple};

// The list went with its window; what was chosen in it stays readable until the slot is freed.
void on_death(Widget list, XtPointer, XtPointer) {
    for (LISTE_PANEL& slot : all_slots()) {
        if (slot.obj == list) slot.obj = nullptr;
    }
}

// -- what is alive

void count_lists(GRX_INVENTAIRE& into) {
    for (const LISTE_PANEL& slot : all_slots()) into.nb_listes += is_used(slot) ? 1 : 0;
}

void list_lists(grx::InventoryList& list) {
    for (const LISTE_PANEL& slot : all_slots())
        if (is_used(slot))
            list.line(0, "panel list %d: key %d, in panel %d, %d entries%s", slot.isys, item_key(slot), slot.ipan,
                slot.nb_item, slot.obj == nullptr ? ", its window is gone" : "");
}

constexpr grx::AliveKind kPanelLists{"panel lists", count_lists, list_lists};

// The table stays in memory: what happens while the connection is lost may still hold it.
void hide_lists() {
    grx::keep_hidden(Tab_liste);
    Tab_liste = nullptr;
    Nb_max_liste = 0;
    Nb_liste = GRX_AUCUN;
}

// -- giving out and freeing

void free_slot(LISTE_PANEL& slot) {
    resize_choices(slot, 0);
    if (slot.obj != nullptr) {
        grx::remove_list_callbacks(slot.obj, kCallbacks, &slot);
        XtRemoveCallback(slot.obj, XmNdestroyCallback, on_death, nullptr);
    }
    slot = kFree;
}

// Moves the records, and tells the lists' callbacks where to.
void move_slots(LISTE_PANEL* to) {
    for (LISTE_PANEL& slot : all_slots()) {
        LISTE_PANEL* const moved = to + (&slot - Tab_liste);
        *moved = slot;
        if (slot.obj == nullptr) continue;
        grx::remove_list_callbacks(slot.obj, kCallbacks, &slot);
        grx::add_list_callbacks(slot.obj, kCallbacks, moved);
    }
}

grx::Block<LISTE_PANEL> free_slots(INT count) {
    auto slots = grx::Block<LISTE_PANEL>::raw(static_cast<std::size_t>(count));
    std::fill(slots.begin(), slots.end(), kFree);
    return slots;
}

LISTE_PANEL* take_new_slot() {
    if (Tab_liste == nullptr) return nullptr;
    ++Nb_liste;
    test_realloue_Tab_liste();
    if (Nb_liste < Nb_max_liste) return &Tab_liste[Nb_liste];
    --Nb_liste;
    return nullptr;
}

// The lowest free slot.
LISTE_PANEL* take_slot() {
    const auto given_out = all_slots().first(static_cast<std::size_t>(std::min(Nb_liste + 1, Nb_max_liste)));
    const auto found =
        std::find_if(given_out.begin(), given_out.end(), [](const LISTE_PANEL& slot) { return !is_used(slot); });
    return found != given_out.end() ? &*found : take_new_slot();
}

void occupy(LISTE_PANEL& slot, const GRX_MSG& msg, Widget list) {
    grx::tell_of(&kPanelLists);
    grx::at_lost_connection(hide_lists);
    slot = kFree;
    slot.isys = static_cast<INT>(&slot - Tab_liste);
    slot.ietat = msg.clef;
    slot.ind = item_key(msg.clef);
    slot.ipan = msg.nobou;
    slot.nb_item = grx::resource<int>(list, XmNitemCount);
    slot.obj = list;
    grx::add_list_callbacks(list, kCallbacks, &slot);
    XtAddCallback(list, XmNdestroyCallback, on_death, nullptr);
    select_at_first(list, item_key(slot));
    note_selection(slot);
}

// -- the widget

struct Axis {
    const char *before, *before_offset, *behind, *behind_offset, *position;
};
const Axis kAcross{XmNleftAttachment, XmNleftOffset, XmNrightAttachment, XmNrightOffset, XmNx};
const Axis kDown{XmNtopAttachment, XmNtopOffset, XmNbottomAttachment, XmNbottomOffset, XmNy};

// Attaches a list along one axis. A negative size is the distance of its far edge from that of the form; a positive one
// fixes its far edge from the near edge of the form, so that the list keeps its size whatever its entries ask for.
void attach(grx::Args& args, const Axis& axis, INT at, INT size) {
    const int offset = std::abs(int{grx::as_position(at)});
    args.set(axis.position, offset);
    args.set(axis.before, XmATTACH_FORM).set(axis.before_offset, offset);
    if (size < 0) args.set(axis.behind, XmATTACH_FORM).set(axis.behind_offset, -int{grx::as_position(size)});
    if (size > 0) args.set(axis.behind, XmATTACH_OPPOSITE_FORM).set(axis.behind_offset, -(offset + grx::as_size(size)));
}

Widget make_list(Widget parent, const GRX_MSG& msg, grx::EntryTable& entries) {
    grx::Args args;
    grx::set_list_look(args, msg.type == GRX_LISTE_MULTIPLE);
    args.set(XmNitems, entries.get()).set(XmNitemCount, entries.count());
    args.set(XmNlistSizePolicy, XmCONSTANT);
    if (msg.largeur > 0) args.set(XmNwidth, grx::as_size(msg.largeur));
    if (msg.hauteur > 0) args.set(XmNheight, grx::as_size(msg.hauteur));
    Widget list = XmCreateScrolledList(parent, const_cast<char*>("Liste"), args.list(), args.count());
    if (list == nullptr) return nullptr;
    grx::Args sides;
    attach(sides, kAcross, msg.x, msg.largeur);
    attach(sides, kDown, msg.y, msg.hauteur);
    Widget box = XtParent(list);
    grx::change_unasked(box, [&] {
        XtManageChild(list); // which asks for room of its own
        XtSetValues(box, sides.list(), sides.count());
    });
    return list;
}

// -- changes

void reload(LISTE_PANEL& slot) {
    const INT clef = item_key(slot);
    grx::EntryTable entries = entries_of(clef, grx::host_list_length(clef));
    if (!entries) return;
    XmListDeselectAllItems(slot.obj);
    grx::Args args;
    args.set(XmNitems, entries.get()).set(XmNitemCount, entries.count());
    XtSetValues(slot.obj, args.list(), args.count());
    slot.nb_item = entries.count();
    select_at_first(slot.obj, clef);
    note_selection(slot);
}

bool is_on_show(const LISTE_PANEL& slot, INT clef) {
    return is_used(slot) && slot.obj != nullptr && item_key(slot) == clef;
}

template <class Change>
void for_each_on_show(INT clef, Change change) {
    for (LISTE_PANEL& slot : all_slots()) {
        if (is_on_show(slot, clef)) change(slot);
    }
}

} // namespace

namespace grx {

INT host_list_length(INT clef) {
    return std::max<INT>(of_host(lnstate, clef), 0);
}

Widget panel_list(INT slot) {
    const auto slots = all_slots();
    const auto at = static_cast<std::size_t>(slot);
    return slot >= 0 && at < slots.size() && is_used(slots[at]) ? slots[at].obj : nullptr;
}

void note_panel_list(INT slot) {
    LISTE_PANEL& noted = Tab_liste[slot];
    noted.nb_item = resource<int>(noted.obj, XmNitemCount);
    note_selection(noted);
    if (noted.nb_choix != selected_count(noted.obj)) resize_choices(noted, 0);
}

} // namespace grx

extern "C" {

INT grx_alloue_base_liste_panels(void) {
    grx_desalloue_base_liste_panels();
    Tab_liste = free_slots(GRX_NB_LISTES_PANNEAUX).release();
    if (Tab_liste == nullptr) return kNoMemory;
    Nb_max_liste = GRX_NB_LISTES_PANNEAUX;
    return 0;
}

INT grx_desalloue_base_liste_panels(void) {
    for (LISTE_PANEL& slot : all_slots()) free_slot(slot);
    grx::Block<LISTE_PANEL>::adopt(Tab_liste, static_cast<std::size_t>(Nb_max_liste)).reset();
    Tab_liste = nullptr;
    Nb_max_liste = 0;
    Nb_liste = GRX_AUCUN;
    return 0;
}

INT test_realloue_Tab_liste(void) {
    if (Tab_liste == nullptr || Nb_liste != Nb_max_liste) return 0;
    auto larger = free_slots(2 * Nb_max_liste);
    if (!larger) return kNoMemory;
    move_slots(larger.data());
    grx::Block<LISTE_PANEL>::adopt(Tab_liste, static_cast<std::size_t>(Nb_max_liste)).reset();
    Nb_max_liste = static_cast<INT>(larger.size());
    Tab_liste = larger.release();
    return 0;
}

INT test_liste_deja_affichee(INT ipan, INT cle) {
    const LISTE_PANEL* const slot = find_slot(ipan, cle);
    return slot != nullptr ? slot->isys : GRX_AUCUN;
}

Widget grx_cree_item_liste(GRX_MSG* msg) {
    return grx_cree_item_liste_general(0, msg);
}

Widget grx_cree_item_liste_general(INT, GRX_MSG* msg) {
    if (msg == nullptr || Tab_liste == nullptr || !known_key(item_key(msg->clef))) return nullptr;
    Widget parent = grx_recup_objet_fen(msg->fen_mere);
    if (!grx::can_hold_children(parent)) return nullptr;
    grx::EntryTable entries = entries_of(item_key(msg->clef), msg->nb_cara);
    if (!entries) return nullptr;
    if (LISTE_PANEL* const old = find_slot(msg->nobou, msg->clef)) free_slot(*old);
    LISTE_PANEL* const slot = take_slot();
    if (slot == nullptr) return nullptr;
    Widget list = make_list(parent, *msg, entries);
    if (list != nullptr) occupy(*slot, *msg, list);
    return list;
}

Widget grx_recup_objet_item_liste(INT ipan, INT clef) {
    const LISTE_PANEL* const slot = known_key(clef) ? find_slot(ipan, clef + GRX_BASE_CLEF_LISTE) : nullptr;
    return slot != nullptr ? slot->obj : nullptr;
}

INT grx_supprime_item_liste(INT ipan, INT clef) {
    LISTE_PANEL* const slot = known_key(clef) ? find_slot(ipan, clef + GRX_BASE_CLEF_LISTE) : nullptr;
    if (slot != nullptr) free_slot(*slot);
    return 0;
}

INT grx_test_liste_ouverte(INT clef) {
    const auto slots = all_slots();
    const auto on_show = [clef](const LISTE_PANEL& slot) { return is_on_show(slot, clef); };
    return std::any_of(slots.begin(), slots.end(), on_show) ? 1 : 0;
}

INT grx_modif_items_liste(INT clef) {
    for_each_on_show(clef, reload);
    return 0;
}

INT grx_modif_un_item_liste(INT clef, INT) {
    return grx_modif_items_liste(clef); // KEEP: always the whole list
}

INT grx_change_type_liste(INT clef, INT type) {
    const auto policy = grx::selection_policy(type == GRX_LISTE_MULTIPLE);
    for_each_on_show(
        clef, [policy](const LISTE_PANEL& slot) { grx::set_resource(slot.obj, XmNselectionPolicy, policy); });
    return 0;
}
}
