// Dialogs: the frames that hold their controls, toggles, drop-down choices and lists.
#include "xt_prive.h"

#include <X11/StringDefs.h>
#include <Xm/Form.h>
#include <Xm/Frame.h>
#include <Xm/List.h>
#include <Xm/RowColumn.h>
#include <Xm/ToggleB.h>
#include <Xm/ToggleBG.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <utility>

#include "toolkit/args.h"
#include "system/block.h"
#include "toolkit/field_text.h"
#include "system/kept.h"
#include "toolkit/lists.h"
#include "toolkit/option_menu.h"
#include "events/record.h"
#include "toolkit/look.h"
#include "pure/axis.h"
#include "xt_bou_f.h"
#include "xt_ent_f.h"
#include "xt_err_f.h"
#include "xt_fen_f.h"
#include "xt_ini_f.h"
#include "xt_msg_f.h"

// ------------------------------------------------------------------------------------------------------ supports

namespace {

constexpr const char* kOuterName = "Support cadre";
constexpr const char* kFrameName = "Cadre";
constexpr const char* kSupportName = "Support";

bool has(const GRX_MSG& msg, INT bit) {
    return (msg.attribut & bit) != 0;
}

Widget managed(Widget w) {
    if (w != nullptr) XtManageChild(w);
    return w;
}

Widget make_outer(Widget parent, const GRX_MSG& msg) {
    if (!grx::can_hold_children(parent)) return nullptr;
    grx::Args args;
    if (msg.x != GRX_AUCUN) args.set(XmNx, grx::as_position(msg.x));
    if (msg.y != GRX_AUCUN) args.set(XmNy, grx::as_position(msg.y));
    grx::set_background(args, GRX_AUCUN);
    return managed(XmCreateForm(parent, const_cast<char*>(kOuterName), args.list(), args.count()));
}

// An etched frame between the left and right edges of the outer form; `top` says what its upper edge hangs on.
Widget make_frame(Widget outer, unsigned char top) {
    if (outer == nullptr) return nullptr;
    grx::Args args;
    args.set(XmNshadowType, XmSHADOW_ETCHED_IN);
    args.set(XmNrightAttachment, XmATTACH_FORM).set(XmNleftAttachment, XmATTACH_FORM);
    if (top != XmATTACH_NONE) args.set(XmNtopAttachment, top);
    grx::set_background(args, GRX_AUCUN);
    return managed(XmCreateFrame(outer, const_cast<char*>(kFrameName), args.list(), args.count()));
}

Widget make_plain_support(Widget parent, const GRX_MSG& msg) {
    Widget frame = make_frame(make_outer(parent, msg), XmATTACH_NONE);
    if (frame == nullptr) return nullptr;
    grx::Args args;
    if (msg.hauteur > 0) args.set(XmNheight, grx::as_size(msg.hauteur));
    if (msg.largeur > 0) args.set(XmNwidth, grx::as_size(msg.largeur));
    if (msg.hauteur > 0 || msg.largeur > 0) args.set(XmNresizePolicy, XmRESIZE_GROW); // or its content shrinks it
    grx::set_background(args, GRX_AUCUN);
    return managed(XmCreateForm(frame, const_cast<char*>(kSupportName), args.list(), args.count()));
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
    return managed(XmCreateRadioBox(frame, const_cast<char*>(kSupportName), args.list(), args.count()));
}

Widget make_row_support(Widget parent, const GRX_MSG& msg) {
    Widget frame = make_frame(make_outer(parent, msg), XmATTACH_WIDGET);
    if (frame == nullptr) return nullptr;
    grx::Args args;
    args.set(XmNentryClass, xmToggleButtonGadgetClass);
    set_direction(args, msg);
    return managed(XmCreateRowColumn(frame, const_cast<char*>(kSupportName), args.list(), args.count()));
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
        if (grx::holds_widget(grx_recup_objet_fen(nofen), support)) return true;
    }
    return false;
}

bool is_outer(Widget w) {
    return w != nullptr && std::strcmp(XtName(w), kOuterName) == 0;
}

// -- the place of a message window

// What the window manager puts to the left of and above a window.
struct Decoration {
    INT left = 0;
    INT top = 0;
};

Decoration decoration_of(INT attributes) {
    const bool titled = (attributes & GRX_FEN_ATT_SANS_TITRE) == 0;
    const bool bordered = (attributes & GRX_FEN_ATT_SANS_BORD) == 0;
    Decoration size;
    if (titled) size.top = grx_get_tatitre();
    if (!bordered) return size;
    const INT border = titled ? grx_get_tabord() : grx_get_tabord() - 1; // KEEP: one pixel less without a title
    size.left += border;
    size.top += border;
    return size;
}

INT on_screen(int64_t edge) {
    return static_cast<INT>(std::clamp<int64_t>(edge, 0, INT32_MAX));
}

// KEEP: the caller's record then counts y downwards, so that a second call with it moves the window.
void place(GRX_FENETRE& fenetre) {
    const Decoration decoration = decoration_of(fenetre.attrib);
    const int32_t top = grx::top_of_box(grx_recup_hau_ecran(), fenetre.y, fenetre.haut);
    fenetre.x = on_screen(int64_t{fenetre.x} - decoration.left);
    fenetre.y = on_screen(int64_t{top} - decoration.top);
}

constexpr std::size_t kGeometryText = 32;
std::array<std::array<char, kGeometryText>, GRX_NB_FENETRES> geometry_texts{}; // the toolkit keeps their addresses

void give_place(Widget shell, const GRX_FENETRE& fenetre) {
    auto& geometry = geometry_texts[static_cast<std::size_t>(fenetre.nofen)];
    std::snprintf(geometry.data(), geometry.size(), "+%d+%d", fenetre.x, fenetre.y);
    grx::Args args;
    args.set(XmNgeometry, geometry.data());
    // A shell that has its window no longer looks at its geometry text.
    if (XtIsRealized(shell)) args.set(XmNx, grx::as_position(fenetre.x)).set(XmNy, grx::as_position(fenetre.y));
    XtSetValues(shell, args.list(), args.count());
}

void keep_picture_when_mapped(Widget shell) {
    const Window window = grx::window_of(shell);
    if (window == None) return;
    XSetWindowAttributes attributes{};
    attributes.backing_store = WhenMapped;
    XChangeWindowAttributes(x11_disp, window, CWBackingStore, &attributes);
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

INT grx_cree_fenetre_message_alpha(GRX_FENETRE* fenetre) {
    if (fenetre == nullptr) return 0;
    Widget shell = grx_recherche_shell(grx_recup_objet_fen(fenetre->nofen));
    if (shell == nullptr) return 0;
    place(*fenetre);
    give_place(shell, *fenetre);
    XtRealizeWidget(shell);
    keep_picture_when_mapped(shell);
    grx_attend_creation_fenetre(fenetre->nofen);
    return 0;
}
}

// ------------------------------------------------------------------------------------- toggles, drop-down choices

namespace {

Widget toggle_of(INT nobou) {
    Widget w = grx_recup_objet_bout(nobou);
    return w != nullptr && XmIsToggleButton(w) ? w : nullptr;
}

void set_toggle(INT nobou, Boolean pressed) {
    Widget w = toggle_of(nobou);
    if (w != nullptr && XmToggleButtonGetState(w) != pressed) XmToggleButtonSetState(w, pressed, False);
}

void on_title_press(Widget, XtPointer, XEvent* event, Boolean*) {
    GRX_DIGIT& record = evt_global.bouton_appui; // KEEP: the window is what the last event left
    record.type_evenement = GRX_EVT_BOUTON_APPUI;
    record.x = event->xbutton.x;
    record.y = event->xbutton.y;
    char trace[] = "Digit sur titre bascule\n";
    grx_affiche_chaine(trace);
}

} // namespace

extern "C" {

INT grx_relache_bascule(INT nobou) {
    set_toggle(nobou, False);
    return 0;
}

INT grx_enfonce_bascule(INT nobou) {
    set_toggle(nobou, True);
    return 0;
}

Widget grx_cree_support_bascule_liste(Widget pere) {
    return grx::make_pulldown(pere, "Support bascule liste");
}

Widget grx_cree_titre_bascule_liste(Widget support, Widget menu, Widget btn_def, char* titre) {
    Widget box = grx::make_option_menu(support, "Bascule liste", titre, menu, btn_def, grx::key_over_part);
    if (box != nullptr) XtAddEventHandler(box, ButtonPressMask, False, on_title_press, nullptr);
    return box;
}
}

// --------------------------------------------------------------------------------------------------------- lists

namespace {

// A list's selection outlives a click that takes it back; the entries live as long as the list.
struct Slot {
    grx::Block<INT> selection;
    grx::ItemTable items;
    Widget list = nullptr;
};
grx::Kept<std::array<Slot, GRX_NB_LISTES>> kept_slots;
std::array<Slot, GRX_NB_LISTES>& slots = kept_slots.value;
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
    const int line = fontstruct != nullptr ? fontstruct->ascent + fontstruct->descent : 1;
    return std::min<int>(count, INT16_MAX / std::max(2 * line, 1));
}

Widget make_list(Widget parent, const GRX_MSG& message, grx::ItemTable& items) {
    grx::FieldText title(message.titre);
    grx::Args args;
    grx::set_list_look(args, has(message, GRX_MSG_ATT_MULTI));
    args.set(XmNitems, items.get()).set(XmNitemCount, items.count());
    if (items.count() > 0) args.set(XmNvisibleItemCount, visible_entries(items.count()));
    if (message.x != GRX_AUCUN) args.set(XmNx, grx::as_position(message.x));
    if (message.y != GRX_AUCUN) args.set(XmNy, grx::as_position(message.y));
    return managed(XmCreateScrolledList(parent, title.data(), args.list(), args.count()));
}

void occupy(Slot& slot, INT ind, Widget list) {
    slot.list = list;
    INT* const number = &tab_ind_page[static_cast<std::size_t>(ind)];
    *number = ind;
    grx::add_list_callbacks(list, {on_single, on_chosen, on_multiple}, number);
    XtAddCallback(list, XmNdestroyCallback, on_list_death, nullptr);
}

} // namespace

extern "C" {

Widget grx_cree_liste(GRX_MSG* message) {
    if (message == nullptr) return nullptr;
    Slot* const slot = slot_of(message->nb_cara);
    Widget parent = grx_recup_objet_fen(message->fen_mere);
    const INT count = message->nb_deci;
    if (slot == nullptr || !grx::can_hold_children(parent) || count < 0) return nullptr;
    if (message->choix == nullptr && count > 0) return nullptr;
    Slot made;
    made.items = grx::ItemTable(static_cast<std::size_t>(count));
    if (!made.items) return nullptr;
    made.selection = grx::Block<INT>(grx::room_for(count));
    if (!made.selection) return nullptr;
    for (INT i = 0; i < count; ++i) made.items.set(static_cast<std::size_t>(i), message->choix[i]);
    Widget list = make_list(parent, *message, made.items);
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
