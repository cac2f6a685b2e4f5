// The table of controls: widget and record of each number, for the application and for all rooms that work on controls.
#include "registry/control_table.h"

#include <X11/Intrinsic.h>

#include <algorithm>
#include <array>

#include "system/inventory.h"
#include "system/table.h"
#include "system/trace.h"
#include "display/lost_connection.h"
#include "registry/forget_registry.h"
#include "xt_bou_f.h"
#include "xt_err_f.h"
#include "xt_ini_f.h"
#include "xt_mot_t.h"

namespace {

INT MAXOBJETBOUTON = 0;
Widget* Tableau_objet_bouton = nullptr;
STRUCTURE_BOUTON* structure_bouton = nullptr;
INT No_bou_actif = GRX_AUCUN;

constexpr INT kFreeWindow = 1; // KEEP: a free entry says that its window is 1

// True for a number whose widget died with its window. The number stays taken until the application frees it.
std::array<bool, GRX_NB_BOUTONS> widget_dead{};

// The rank of each control in the order of making.
std::array<INT, GRX_NB_BOUTONS> ranks{};

// True for a number that only the library knows. It is freed when its widget dies.
std::array<bool, GRX_NB_BOUTONS> goes_with_widget{};

bool in_base(INT nobou) {
    return nobou >= 0 && nobou < MAXOBJETBOUTON && Tableau_objet_bouton != nullptr && structure_bouton != nullptr;
}

void make_free(STRUCTURE_BOUTON& record) {
    record.nobou = GRX_AUCUN; // image and type are left as they were
    record.nofen = kFreeWindow;
    record.no_fo = GRX_AUCUN;
    record.valeur = 0;
}

template <class T>
bool allocate(T*& table) {
    return grx::allocate_table<T, GRX_NB_BOUTONS>(table);
}

template <class T>
void release(T*& table) {
    grx::free_table<T, GRX_NB_BOUTONS>(table);
}

// The tables stay in memory: what happens while the connection is lost may still hold them.
void hide_table() {
    grx::keep_hidden(Tableau_objet_bouton);
    grx::keep_hidden(structure_bouton);
    Tableau_objet_bouton = nullptr;
    structure_bouton = nullptr;
    MAXOBJETBOUTON = 0;
    No_bou_actif = GRX_AUCUN;
}

} // namespace

namespace grx {

bool allocate_control_table() {
    at_lost_connection(hide_table);
    release(Tableau_objet_bouton);
    MAXOBJETBOUTON = GRX_NB_BOUTONS;
    if (!allocate(Tableau_objet_bouton) || !allocate(structure_bouton)) return false;
    std::for_each_n(structure_bouton, GRX_NB_BOUTONS, make_free);
    widget_dead.fill(false);
    return true;
}

void free_control_table() {
    if (has_control_table()) list_before_freeing("buttons");
    release(Tableau_objet_bouton);
    release(structure_bouton);
}

bool has_control_table() {
    return structure_bouton != nullptr;
}

INT control_table_size() {
    return MAXOBJETBOUTON;
}

bool has_free_control() {
    for (INT nobou = 0; in_base(nobou); ++nobou) {
        if (Tableau_objet_bouton[nobou] == nullptr) return true;
    }
    return false;
}

STRUCTURE_BOUTON* control_record(INT nobou) {
    return in_base(nobou) ? &structure_bouton[nobou] : nullptr;
}

Widget control_widget_if_any(INT nobou) {
    return in_base(nobou) && !widget_dead[as_index(nobou)] ? Tableau_objet_bouton[nobou] : nullptr;
}

bool control_number_taken(INT nobou) {
    return in_base(nobou) && Tableau_objet_bouton[nobou] != nullptr;
}

INT control_rank(INT nobou) {
    return control_number_taken(nobou) ? ranks[as_index(nobou)] : 0;
}

void clear_control_entry(INT nobou) {
    Tableau_objet_bouton[nobou] = nullptr;
    widget_dead[as_index(nobou)] = false;
    make_free(structure_bouton[nobou]);
}

bool control_widget_died(INT nobou, Widget w) {
    if (!in_base(nobou) || Tableau_objet_bouton[nobou] != w) return false;
    widget_dead[as_index(nobou)] = true;
    return goes_with_widget[as_index(nobou)];
}

void free_with_widget(INT nobou) {
    if (in_base(nobou)) goes_with_widget[as_index(nobou)] = true;
}

STRUCTURE_BOUTON* control_record_at(XtPointer data) {
    const auto* const record = static_cast<STRUCTURE_BOUTON*>(data);
    for (INT nobou = 0; in_base(nobou); ++nobou) {
        if (record == &structure_bouton[nobou]) return &structure_bouton[nobou];
    }
    return nullptr;
}

void forget_controls() {
    free_control_table();
    MAXOBJETBOUTON = 0;
    No_bou_actif = GRX_AUCUN;
    widget_dead = goes_with_widget = {};
    ranks.fill(0);
}

} // namespace grx

extern "C" {

INT grx_recup_indice_objet_bout_libre(void) {
    for (INT nobou = 0; in_base(nobou); ++nobou) {
        if (Tableau_objet_bouton[nobou] == nullptr) return nobou;
    }
    char message[] = "Depassement de taille de la base des boutons\n";
    grx_affiche_chaine(message);
    return GRX_AUCUN;
}

INT grx_affecte_objet_bout(INT iden, Widget w) {
    if (!in_base(iden)) return 0;
    if (w != nullptr && w != Tableau_objet_bouton[iden]) ranks[grx::as_index(iden)] = grx::next_rank();
    Tableau_objet_bouton[iden] = w;
    widget_dead[grx::as_index(iden)] = goes_with_widget[grx::as_index(iden)] = false;
    return 1;
}

Widget grx_recup_objet_bout(INT iden) {
    Widget w = grx::control_widget_if_any(iden);
    if (w == nullptr) grx::note_unknown("button", iden);
    return w;
}

INT grx_recup_indice_bout(Widget w) {
    for (INT nobou = 0; w != nullptr && in_base(nobou); ++nobou) {
        if (Tableau_objet_bouton[nobou] == w && !widget_dead[grx::as_index(nobou)]) return nobou;
    }
    return GRX_AUCUN;
}

void grx_affecte_structure_bouton(INT indice, INT no_fo, INT valeur, INT fen_mere) {
    if (!in_base(indice)) return;
    STRUCTURE_BOUTON& record = structure_bouton[indice];
    record.nobou = indice;
    record.nofen = fen_mere;
    record.no_fo = no_fo;
    record.valeur = valeur;
}

void grx_recup_structure_bouton(INT indice, STRUCTURE_BOUTON** ptr) {
    if (ptr != nullptr && in_base(indice)) *ptr = &structure_bouton[indice];
}

void grx_affecte_nobou_actif(INT nobou) {
    No_bou_actif = nobou;
}

INT grx_recup_nobou_actif(void) {
    return No_bou_actif;
}

INT grx_is_objet_valide(Widget w) {
    return w != nullptr ? 1 : 0;
}
}
