// The table of windows: widget, record and sizes of each number, for the application and for all rooms that work on
// windows. It also knows the main and the active window.
#include "registry/window_table.h"

#include <X11/Intrinsic.h>
#include <Xm/Form.h>
#include <Xm/ScrolledW.h>
#include <Xm/Xm.h>

#include <array>
#include <cstdio>
#include <cstdlib>

#include "pure/out.h"
#include "system/inventory.h"
#include "system/table.h"
#include "display/context.h"
#include "display/lost_connection.h"
#include "display/pixmaps.h"
#include "toolkit/widgets.h"
#include "registry/forget_registry.h"
#include "xt_err_f.h"
#include "xt_fen_f.h"
#include "xt_ini_t.h"
#include "xt_mot_t.h"

INT MAXOBJETFEN = 0;

namespace {

STRUCTURE_FENETRE* structure_fenetre = nullptr;
GRX_SAUVE_ZONE* sauve_zone = nullptr;
INT* old_lar = nullptr;
INT* old_hau = nullptr;
INT* largeur_fen = nullptr;
INT* hauteur_fen = nullptr;
INT p_objet = 0;
INT no_fen_principale = GRX_AUCUN;
INT nofen_active = GRX_AUCUN;

constexpr std::size_t kGeometryText = 32;

// What the library knows of a window that is not in the tables of the application.
struct WindowExtras {
    Widget outer;
    bool dead_pixmap;
    INT rank; // in the order of making
    char geometry[kGeometryText];
};
std::array<WindowExtras, GRX_NB_FENETRES> extras{};
WindowExtras no_window{};

bool base_complete() {
    return grx::Tableau_objet_fen != nullptr && structure_fenetre != nullptr && sauve_zone != nullptr;
}

bool in_base(INT nofen) {
    return nofen >= 0 && nofen < MAXOBJETFEN && base_complete();
}

WindowExtras& extras_of(INT nofen) {
    return nofen >= 0 && nofen < GRX_NB_FENETRES ? extras[grx::as_index(nofen)] : no_window;
}

template <class T>
bool allocate(T*& table) {
    return grx::allocate_table<T, GRX_NB_FENETRES>(table);
}

template <class T>
void release(T*& table) {
    grx::free_table<T, GRX_NB_FENETRES>(table);
}

// The holder comes from malloc and not from the host. The id of its pixmap is read before the holder is freed.
void release_picture(INT nofen, STRUCTURE_FENETRE& record) {
    Pixmap* const holder = record.image;
    if (record.type != GRX_FEN_GRAPHIQUE || holder == nullptr) return;
    const Pixmap pixmap = *holder;
    grx::forget_drawing_target(holder);
    std::free(holder);
    if (!grx::holds_dead_pixmap(nofen)) grx::free_pixmap(pixmap);
    record.image = nullptr;
}

// A saved picture must not appear in the next window that has the number.
void release_saved_picture(INT nofen) {
    GRX_SAUVE_ZONE& slot = sauve_zone[nofen];
    grx::free_pixmap(slot.image);
    slot = GRX_SAUVE_ZONE{};
}

// The tables stay in memory: what happens while the connection is lost may still hold them.
void hide_table() {
    for (void* table : {static_cast<void*>(grx::Tableau_objet_fen), static_cast<void*>(structure_fenetre),
             static_cast<void*>(sauve_zone), static_cast<void*>(old_lar), static_cast<void*>(old_hau),
             static_cast<void*>(largeur_fen), static_cast<void*>(hauteur_fen)})
        grx::keep_hidden(table);
    grx::Tableau_objet_fen = nullptr;
    structure_fenetre = nullptr;
    sauve_zone = nullptr;
    old_lar = old_hau = largeur_fen = hauteur_fen = nullptr;
    MAXOBJETFEN = p_objet = 0;
    no_fen_principale = nofen_active = GRX_AUCUN;
}

void give_size(Widget w, INT* largeur, INT* hauteur) {
    if (w == nullptr) return;
    const grx::Size size = grx::size_of(w);
    grx::give(largeur, size.width);
    grx::give(hauteur, size.height);
}

INT* stored_width(INT nofen) {
    return in_base(nofen) && largeur_fen != nullptr ? &largeur_fen[nofen] : nullptr;
}

INT* stored_height(INT nofen) {
    return in_base(nofen) && hauteur_fen != nullptr ? &hauteur_fen[nofen] : nullptr;
}

} // namespace

namespace grx {

Widget* Tableau_objet_fen = nullptr;

Widget window_widget_if_any(INT nofen) {
    return nofen >= 1 && in_base(nofen) ? Tableau_objet_fen[nofen] : nullptr;
}

INT window_rank(INT nofen) {
    return window_widget_if_any(nofen) != nullptr ? extras_of(nofen).rank : 0;
}

STRUCTURE_FENETRE* window_record(INT nofen) {
    return in_base(nofen) ? &structure_fenetre[nofen] : nullptr;
}

STRUCTURE_FENETRE* window_record_at(XtPointer data) {
    for (INT nofen = 1; base_complete() && nofen < MAXOBJETFEN; ++nofen) {
        if (data == &structure_fenetre[nofen])
            return structure_fenetre[nofen].nofen == nofen ? &structure_fenetre[nofen] : nullptr;
    }
    return nullptr;
}

GRX_SAUVE_ZONE* save_slot(INT nofen) {
    return in_base(nofen) ? &sauve_zone[nofen] : nullptr;
}

Size known_size(INT nofen) {
    if (!in_base(nofen) || old_lar == nullptr || old_hau == nullptr) return {};
    return {old_lar[nofen], old_hau[nofen]};
}

void set_known_size(INT nofen, Size size) {
    if (!in_base(nofen) || old_lar == nullptr || old_hau == nullptr) return;
    old_lar[nofen] = size.width;
    old_hau[nofen] = size.height;
}

bool holds_dead_pixmap(INT nofen) {
    return extras_of(nofen).dead_pixmap;
}

void occupy(INT nofen, INT kind, Widget work, Widget outer) {
    grx_affecte_objet_fen(nofen, work);
    STRUCTURE_FENETRE& record = structure_fenetre[nofen];
    record = STRUCTURE_FENETRE{};
    grx_affecte_structure_fenetre(nofen);
    record.type = kind;
    extras_of(nofen).outer = outer;
    extras_of(nofen).dead_pixmap = false;
}

std::span<char> geometry_text(INT nofen) {
    return extras_of(nofen).geometry;
}

void mark_dead_pixmap(INT nofen, bool dead) {
    extras_of(nofen).dead_pixmap = dead;
}

Widget outer_widget(INT nofen) {
    return extras_of(nofen).outer;
}

// The search ends at the window's own outermost widget. Scroll bars further up belong to the window that this one
// stands in or was opened over.
Widget own_scrolled_window(INT nofen) {
    Widget w = grx_recup_objet_fen(nofen);
    Widget outermost = outer_widget(nofen) != nullptr ? outer_widget(nofen) : nearest_shell(w);
    while (w != nullptr && w != outermost && !XmIsScrolledWindow(w)) w = XtParent(w);
    return w != nullptr && XmIsScrolledWindow(w) ? w : nullptr;
}

Widget shell_of(INT nofen) {
    return grx_recherche_shell(grx_recup_objet_fen(nofen));
}

Widget whole_of(INT nofen) {
    Widget outer = outer_widget(nofen);
    return outer != nullptr ? outer : grx_recup_objet_fen(nofen);
}

INT height_of(Widget w) {
    return size_of(w).height;
}

void forget_windows() {
    grx_desalloue_base_fenetres();
    MAXOBJETFEN = p_objet = 0;
    no_fen_principale = nofen_active = GRX_AUCUN;
    extras = {};
    no_window = {};
}

} // namespace grx

extern "C" {

INT grx_alloue_base_fenetres(void) {
    grx_desalloue_base_fenetres();
    MAXOBJETFEN = GRX_NB_FENETRES;
    p_objet = 0;
    const bool complete = allocate(grx::Tableau_objet_fen) && allocate(structure_fenetre) && allocate(sauve_zone)
                          && allocate(old_lar) && allocate(old_hau) && allocate(largeur_fen);
    if (!complete) return GRX_ERR_BASE_FENETRES;
    allocate(hauteur_fen);
    // KEEP: the last test looks at the width table again, so that a missing height table is not reported.
    if (largeur_fen == nullptr) return GRX_ERR_BASE_FENETRES;
    grx_init_objet_fen();
    grx::at_lost_connection(hide_table);
    return 0;
}

INT grx_desalloue_base_fenetres(void) {
    if (base_complete()) grx::list_before_freeing("windows");
    for (INT nofen = 1; nofen < MAXOBJETFEN && base_complete(); ++nofen) grx_libere_indice_objet_fen(nofen);
    release(grx::Tableau_objet_fen);
    release(structure_fenetre);
    release(sauve_zone);
    release(old_lar);
    release(old_hau);
    release(largeur_fen);
    release(hauteur_fen);
    return 0;
}

INT grx_init_objet_fen(void) {
    for (INT nofen = 0; in_base(nofen); ++nofen) {
        grx::Tableau_objet_fen[nofen] = nullptr;
        structure_fenetre[nofen].nofen = MAXOBJETFEN;
    }
    return 0;
}

INT grx_affecte_objet_fen(INT nofen, Widget w) {
    if (!in_base(nofen)) return 0;
    if (w != nullptr && nofen > 0 && w != grx::Tableau_objet_fen[nofen]) extras_of(nofen).rank = grx::next_rank();
    grx::Tableau_objet_fen[nofen] = w;
    return 1;
}

Widget grx_recup_objet_fen(INT nofen) {
    return grx::window_widget(nofen);
}

INT grx_recup_indice_fen(Widget w) {
    for (INT nofen = 1; w != nullptr && in_base(nofen); ++nofen) {
        Widget own = grx::Tableau_objet_fen[nofen];
        if (own != nullptr && (own == w || grx_recherche_shell(own) == w)) return nofen;
    }
    return MAXOBJETFEN;
}

INT grx_recup_indice_objet_fen_libre(void) {
    for (INT nofen = 1; in_base(nofen); ++nofen) {
        if (grx::Tableau_objet_fen[nofen] != nullptr) continue;
        if (nofen > p_objet) p_objet = nofen;
        return nofen;
    }
    char message[] = "Depassement de taille de la base des fenetres\n";
    grx_affiche_chaine(message);
    return GRX_AUCUN;
}

INT grx_affecte_structure_fenetre(INT nofen) {
    if (!in_base(nofen)) return 0;
    structure_fenetre[nofen].nofen = nofen;
    return 0;
}

INT grx_recup_structure_fenetre(INT nofen, STRUCTURE_FENETRE** s) {
    STRUCTURE_FENETRE* const record = grx::window_record(nofen);
    if (s != nullptr && record != nullptr) *s = record;
    return 0;
}

INT grx_libere_indice_objet_fen(INT nofen) {
    if (!in_base(nofen)) return 0;
    STRUCTURE_FENETRE& record = structure_fenetre[nofen];
    grx::Tableau_objet_fen[nofen] = nullptr;
    record.nofen = MAXOBJETFEN;
    release_picture(nofen, record);
    release_saved_picture(nofen);
    extras_of(nofen).outer = nullptr;
    extras_of(nofen).dead_pixmap = false;
    return 1;
}

INT grx_recup_max_objet(void) {
    return p_objet;
}

INT grx_affecte_nofen_principale(INT nofen) {
    no_fen_principale = nofen;
    return 0;
}

INT grx_recup_nofen_principale(void) {
    return no_fen_principale;
}

INT grx_affecte_nofen_active(INT nofen) {
    nofen_active = nofen;
    return 0;
}

INT grx_recup_nofen_active(void) {
    return nofen_active;
}

Widget grx_recherche_shell(Widget w) {
    return grx::nearest_shell(w);
}

Widget grx_recherche_form(Widget w) {
    return grx::nearest_of_class(w, xmFormWidgetClass);
}

INT grx_recup_taille_fenetre(INT nofen, INT* largeur, INT* hauteur) {
    give_size(grx::shell_of(nofen), largeur, hauteur);
    return 0;
}

INT grx_recup_taille_fenetre_fille(INT nofen, INT* largeur, INT* hauteur) {
    give_size(grx::whole_of(nofen), largeur, hauteur);
    return 0;
}

INT grx_affecte_largeur_fenetre(INT nofen, INT valeur) {
    grx::give(stored_width(nofen), valeur);
    return 0;
}

INT grx_affecte_hauteur_fenetre(INT nofen, INT valeur) {
    grx::give(stored_height(nofen), valeur);
    return 0;
}

INT grx_recup_largeur_fenetre(INT nofen) {
    const INT* const place = stored_width(nofen);
    return place != nullptr ? *place : 0;
}

INT grx_recup_hauteur_fenetre(INT nofen) {
    const INT* const place = stored_height(nofen);
    return place != nullptr ? *place : 0;
}

Widget grx_recup_parent(Widget fils) {
    return fils != nullptr ? XtParent(fils) : nullptr;
}
}
