// The selection panel: a list to choose from, with fields and buttons, in a window of its own.
#include <X11/Intrinsic.h>

#include <algorithm>

#include "pure/axis.h"
#include "pure/out.h"
#include "pure/size.h"
#include "pure/text.h"
#include "system/shut_down.h"
#include "toolkit/field_text.h"
#include "toolkit/widgets.h"
#include "windows/frame.h"
#include "panels/item_buttons.h"
#include "panels/panel_lists.h"
#include "xt_bou_f.h"
#include "xt_fen_f.h"
#include "xt_ini_f.h"
#include "xt_msg_f.h"
#include "xt_pan_f.h"

namespace {

INT Pos_select_x = GRX_AUCUN;
INT Pos_select_y = GRX_AUCUN;
INT Taille_select_x = GRX_AUCUN;
INT Taille_select_y = GRX_AUCUN;

constexpr INT kTopLevelDialog = 2;    // kind of a panel on show in a window of its own
constexpr INT kMargin = 10;           // of the window, in pixels
constexpr INT kColumnCharacters = 20; // right of the list
constexpr INT kLinesAbove = 4, kLinesBelow = 2;

enum PanelItem : INT { kListItem = 0, kFirstItem = 1, kFieldItem = 2, kSecondFieldItem = 3, kLastItem = 6 };
constexpr INT kListKey = GRX_CLEF_LISTE_SELECT - GRX_BASE_CLEF_LISTE;

INT characters(INT count) {
    return count * grx_recup_lar_carac_alpha();
}

INT lines(INT count) {
    return count * grx_recup_hau_carac_alpha();
}

bool has_items(const PANEL& panel) {
    return panel.tab_items != nullptr && panel.nb_items > kLastItem;
}

PANEL* selection_panel() {
    if (Tab_pan == nullptr || Nb_pan <= GRX_PANNEAU_SELECTION) return nullptr;
    PANEL* const panel = &Tab_pan[GRX_PANNEAU_SELECTION];
    return has_items(*panel) ? panel : nullptr;
}

bool both_set(INT first, INT second) {
    return first != GRX_AUCUN && second != GRX_AUCUN;
}

// -- the window

void forget_place_and_size();

void choose_size(GRX_FENETRE& fenetre, const PANEL& panel) {
    const bool saved = both_set(Taille_select_x, Taille_select_y);
    fenetre.droite = saved ? Taille_select_x : panel.tx;
    fenetre.haut = saved ? Taille_select_y : panel.ty;
}

INT centred(INT origin, INT room, INT size) {
    return grx::saturated(origin + (int64_t{room} - size) / 2);
}

void choose_position(GRX_FENETRE& fenetre) {
    grx::at_shut_down(forget_place_and_size);
    if (!both_set(Pos_select_x, Pos_select_y)) {
        Pos_select_x = centred(grx_get_pos_appli_x(), grx_recup_lar_ecran(), fenetre.droite);
        Pos_select_y = centred(grx_get_pos_appli_y(), grx_recup_hau_ecran(), fenetre.haut);
    }
    fenetre.x = Pos_select_x;
    fenetre.y = Pos_select_y;
}

bool create_window(PANEL& panel) {
    GRX_FENETRE fenetre;
    grx_init_fenetre(&fenetre);
    grx::copy_text(fenetre.titre, grx::FieldText(panel.titre).c_str());
    choose_size(fenetre, panel);
    choose_position(fenetre);
    fenetre.type = GRX_FEN_ALPHA;
    fenetre.attrib = GRX_FEN_ATT_VISIBLE | GRX_FEN_ATT_SANS_BOITES;
    fenetre.fen_mere = grx_recup_nofen_principale();
    if (grx_cree_fenetre(&fenetre) < 0) return false;
    panel.nofen = fenetre.nofen;
    panel.type = kTopLevelDialog;
    return true;
}

// -- where the user leaves it

// Where the window's frame stood when it came up, and the saved place that it came up for: later places are saved by
// how far they are from there.
struct Reference {
    bool known = false;
    INT x = 0, low = 0;           // left edge, and lower edge from the bottom of the screen
    INT saved_x = 0, saved_y = 0; // the saved place that it was opened with
    grx::Size size;
    bool same_place(const Reference& other) const { return x == other.x && low == other.low && size == other.size; }
};
Reference reference, last;

// Asks the window manager's frame, which stays where it is while the window is put into it.
Reference where(Widget shell) {
    INT x = 0, y = 0;
    grx::frame_place(shell, x, y);
    const grx::Size size = grx::size_of(shell);
    return {true, x, grx::top_of_box(grx_recup_hau_ecran(), y, size.height), Pos_select_x, Pos_select_y, size};
}

void note_place(const Reference& now) {
    Pos_select_x = reference.saved_x + now.x - reference.x;
    Pos_select_y = reference.saved_y + now.low - reference.low;
    if (now.size == reference.size && !both_set(Taille_select_x, Taille_select_y)) return;
    Taille_select_x = now.size.width;
    Taille_select_y = now.size.height;
}

void on_structure(Widget shell, XtPointer, XEvent* event, Boolean*) {
    // At the first map the window may not be in its frame yet, or halfway: its move into the frame is told after it.
    const bool shown = event->type == MapNotify && !reference.known;
    if (shown || event->type == ReparentNotify) reference = last = where(shell);
    if (event->type != ConfigureNotify || !reference.known) return;
    const Reference now = where(shell);
    if (now.same_place(last)) return; // told once more: what the application has set meanwhile holds
    last = now;
    note_place(now);
}

void follow(const PANEL& panel) {
    reference = Reference{};
    Widget shell = grx_recherche_shell(grx_recup_objet_fen(panel.nofen));
    if (shell != nullptr) XtAddEventHandler(shell, StructureNotifyMask, False, on_structure, nullptr);
}

// -- the list

void add_list(const PANEL& panel) {
    GRX_MSG list{};
    grx_init_message(&list);
    list.clef = GRX_CLEF_LISTE_SELECT;
    list.type = panel.tab_items[kListItem].type % grx::kKindsInFamily;
    list.x = -kMargin;
    list.y = -lines(kLinesAbove);
    list.hauteur = -lines(kLinesBelow);
    list.largeur = -characters(kColumnCharacters);
    list.nb_cara = grx::host_list_length(kListKey);
    list.nobou = GRX_PANNEAU_SELECTION;
    list.fen_mere = panel.nofen;
    grx_cree_item_liste(&list);
}

// -- its neighbours

GRX_BOUTON control(const PANEL& panel, INT item, INT type) {
    GRX_BOUTON bou;
    grx_init_bouton(&bou);
    bou.type = type;
    bou.attrib = GRX_BOU_ATT_ACTIF;
    bou.fen_mere = panel.nofen;
    bou.no_fo = panel.tab_items[item].indice;
    if (type != GRX_BOU_TEXTE) grx::copy_text(bou.titre, grx::view(panel.tab_items[item].message));
    return bou;
}

void add(GRX_BOUTON bou, INT item, char role) {
    if (grx_cree_bouton(&bou) != 0) return;
    if (grx_memorise_bouton_item(GRX_PANNEAU_SELECTION, item, role, bou.nobou) != 0) grx_detruit_bouton(bou.nobou);
}

// A button of the column to the right of the list; `row` counts from the list's upper edge.
void add_button(const PANEL& panel, INT item, INT row) {
    GRX_BOUTON button = control(panel, item, GRX_BOU_SIMPLE);
    button.attache = GRX_ATTACHE_DROITE | GRX_ATTACHE_HAUT;
    button.tabi[GRX_BOU_TABI_DROITE] = kMargin;
    button.tabi[GRX_BOU_TABI_HAUT] = lines(kLinesAbove) + row * (lines(1) + kMargin);
    button.largeur = characters(kColumnCharacters) - 2 * kMargin;
    button.hauteur = lines(1) + kMargin / 2;
    add(button, item, grx::kItemChoice);
}

// A label and its field on a line of their own above the list; `left` is where the fields begin.
void add_field(const PANEL& panel, INT item, INT row, INT left) {
    const INT top = kMargin + row * (lines(1) + kMargin / 2);
    GRX_BOUTON label = control(panel, item, GRX_BOU_LABEL);
    label.attache = GRX_ATTACHE_GAUCHE | GRX_ATTACHE_HAUT;
    label.tabi[GRX_BOU_TABI_GAUCHE] = kMargin;
    label.tabi[GRX_BOU_TABI_HAUT] = top;
    label.hauteur = lines(1);
    add(label, item, grx::kItemLabel);
    GRX_BOUTON field = control(panel, item, GRX_BOU_TEXTE);
    field.attache = GRX_ATTACHE_GAUCHE | GRX_ATTACHE_DROITE | GRX_ATTACHE_HAUT;
    field.tabi[GRX_BOU_TABI_COLONNES] = GRX_AUCUN;
    field.largeur = characters(kColumnCharacters);
    field.hauteur = lines(1);
    field.tabi[GRX_BOU_TABI_GAUCHE] = left;
    field.tabi[GRX_BOU_TABI_DROITE] = characters(kColumnCharacters);
    field.tabi[GRX_BOU_TABI_HAUT] = top;
    add(field, item, grx::kItemChoice);
}

INT fields_left(const PANEL& panel) {
    std::size_t longest = 0;
    for (const INT item : {kFieldItem, kSecondFieldItem})
        longest = std::max(longest, grx::view(panel.tab_items[item].message).size());
    return kMargin + characters(static_cast<INT>(std::min<std::size_t>(longest, GRX_TITRE_MAX)) + 1);
}

void add_neighbours(const PANEL& panel) {
    const INT left = fields_left(panel);
    INT row = 0;
    add_button(panel, kFirstItem, row++);
    add_field(panel, kFieldItem, 0, left);
    add_field(panel, kSecondFieldItem, 1, left);
    for (INT item = kSecondFieldItem + 1; item <= kLastItem; ++item) add_button(panel, item, row++);
}

// Closes the panel on show, of which there is one at most. Its end is not posted: the new window may take its number.
void close_former(const PANEL& panel) {
    const bool on_show = grx_recup_objet_item_liste(GRX_PANNEAU_SELECTION, kListKey) != nullptr;
    grx_supprime_items(GRX_PANNEAU_SELECTION);
    if (!on_show) return;
    const GRX_EVENEMENT pending = evt_global;
    grx_detruit_fenetre(panel.nofen);
    evt_global = pending;
}

void forget_place_and_size() {
    Pos_select_x = Pos_select_y = Taille_select_x = Taille_select_y = GRX_AUCUN;
    reference = last = Reference{};
}

} // namespace

extern "C" {

INT grx_affiche_panel_selection_g(INT, INT, INT) {
    PANEL* const panel = selection_panel();
    if (panel == nullptr) return 0;
    close_former(*panel);
    if (!create_window(*panel)) return 0;
    follow(*panel);
    add_list(*panel);
    add_neighbours(*panel);
    return 0;
}

INT grx_affiche_panel_selection(void) {
    return grx_affiche_panel_selection_g(GRX_AUCUN, GRX_AUCUN, GRX_AUCUN);
}

INT grx_affecte_position_taille_panel_selection(INT x, INT y, INT lar, INT hau) {
    grx::at_shut_down(forget_place_and_size);
    Pos_select_x = x;
    Pos_select_y = y;
    Taille_select_x = lar;
    Taille_select_y = hau;
    return 0;
}

INT grx_recup_position_taille_panel_selection(INT* x, INT* y, INT* lar, INT* hau) {
    grx::give(x, Pos_select_x);
    grx::give(y, Pos_select_y);
    grx::give(lar, Taille_select_x);
    grx::give(hau, Taille_select_y);
    return 0;
}
}
