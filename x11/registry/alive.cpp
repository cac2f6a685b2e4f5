// Windows, controls and their pictures, for the list of what is alive and for the application that counts them. It reads
// widgets only in memory, because the list may be made when their display is closed.
#include "registry/alive.h"

#include <X11/IntrinsicP.h>
#include <X11/ShellP.h>

#include <cstdio>

#include "grx_plus_diagnostic.h"
#include "grx_plus_erreurs.h"
#include "system/inventory.h"
#include "system/trace.h"
#include "toolkit/label_memory.h"
#include "toolkit/widgets.h"
#include "registry/control_table.h"
#include "registry/window_table.h"
#include "xt_bou_t.h"
#include "xt_fen_f.h"
#include "xt_fen_t.h"
#include "xt_ini_t.h"

namespace grx {

namespace {

struct KindName {
    INT kind;
    const char* name;
};

constexpr KindName kWindowKinds[] = {{GRX_FEN_BOUTONS, "board"}, {GRX_FEN_GRAPHIQUE, "graphic"},
    {GRX_FEN_TEXTE, "text"}, {GRX_FEN_ALPHA, "form"}, {GRX_FEN_MESSAGE, "message"}, {GRX_FEN_MENU, "scrolling menu"}};

constexpr KindName kControlKinds[] = {{GRX_BOU_DESSINE, "drawn button"}, {GRX_BOU_BASCULE, "toggle"},
    {GRX_BOU_POUSSOIR, "push button"}, {GRX_BOU_FLECHE, "arrow"}, {GRX_BOU_LABEL, "label"}, {GRX_BOU_TEXTE, "text"},
    {GRX_BOU_ECHELLE, "scale"}, {GRX_BOU_LISTE, "list"}, {GRX_BOU_DIALOGUE, "dialog button"},
    {GRX_BOU_SIMPLE, "plain button"}, {GRX_BOU_SEPARATEUR, "separator"}, {GRX_BOU_ZONE_DESSIN, "drawing area"},
    {GRX_BOU_COULEUR, "colour button"}};

template <std::size_t N>
const char* name_of(INT kind, const KindName (&names)[N]) {
    for (const KindName& known : names)
        if (known.kind == kind) return known.name;
    return "other kind";
}

// -- windows

template <class Act>
void for_each_window(Act act) {
    for (INT nofen = 1; nofen < MAXOBJETFEN; ++nofen)
        if (Widget w = window_widget_if_any(nofen)) act(nofen, w, *window_record(nofen));
}

bool has_picture(const STRUCTURE_FENETRE& record, INT nofen) {
    return record.type == GRX_FEN_GRAPHIQUE && record.image != nullptr && *record.image != None
           && !holds_dead_pixmap(nofen);
}

// The window that a widget stands in, 0 for none.
INT window_around(Widget inner) {
    for (Widget w = inner != nullptr ? XtParent(inner) : nullptr; w != nullptr; w = XtParent(w)) {
        const INT nofen = grx_recup_indice_fen(w);
        if (nofen < MAXOBJETFEN) return nofen;
    }
    return 0;
}

QuotedText title_of(Widget shell) {
    return quoted(shell != nullptr && XtIsWMShell(shell) ? reinterpret_cast<WMShellWidget>(shell)->wm.title : nullptr);
}

void list_window(InventoryList& list, INT nofen, Widget w, const STRUCTURE_FENETRE& record) {
    Widget outer = outer_widget(nofen);
    Widget whole = outer != nullptr ? outer : nearest_shell(w);
    const INT around = window_around(whole);
    CH40 parent = "";
    if (around > 0)
        std::snprintf(parent, sizeof parent, outer != nullptr ? ", in window %d" : ", of window %d", around);
    list.line(window_rank(nofen), "window %d: %s%s%s%s%s", nofen, name_of(record.type, kWindowKinds), parent,
        outer == nullptr ? title_of(whole).data() : "", has_picture(record, nofen) ? ", with a picture" : "",
        record.affiche != 0 ? ", shown" : "");
    const GRX_SAUVE_ZONE& saved = *save_slot(nofen);
    if (saved.image != None) list.line(0, "saved picture of window %d: %d x %d", nofen, saved.lar, saved.hau);
}

void list_windows(InventoryList& list) {
    for_each_window([&](INT nofen, Widget w, const STRUCTURE_FENETRE& record) { list_window(list, nofen, w, record); });
}

void count_windows(GRX_INVENTAIRE& into) {
    for_each_window([&](INT nofen, Widget, const STRUCTURE_FENETRE& record) {
        ++into.nb_fenetres;
        if (has_picture(record, nofen)) ++into.nb_images;
        if (save_slot(nofen)->image != None) ++into.nb_sauvegardes;
    });
}

constexpr AliveKind kWindows{"windows", count_windows, list_windows};

// -- controls

template <class Act>
void for_each_control(Act act) {
    for (INT nobou = 0; nobou < control_table_size() && has_control_table(); ++nobou)
        if (control_number_taken(nobou)) act(nobou, *control_record(nobou));
}

void list_control(InventoryList& list, INT nobou, const STRUCTURE_BOUTON& record) {
    Widget w = control_widget_if_any(nobou);
    CH40 parent = "";
    if (record.nofen > 0) std::snprintf(parent, sizeof parent, ", in window %d", record.nofen);
    list.line(control_rank(nobou), "button %d: %s%s%s, function %d%s%s", nobou, name_of(record.type, kControlKinds),
        parent, quoted_label(w).data(), record.no_fo, record.image != None ? ", with a picture" : "",
        w == nullptr ? ", its window is gone" : "");
}

void list_controls(InventoryList& list) {
    for_each_control([&](INT nobou, const STRUCTURE_BOUTON& record) { list_control(list, nobou, record); });
}

void count_controls(GRX_INVENTAIRE& into) {
    for_each_control([&](INT, const STRUCTURE_BOUTON& record) {
        ++into.nb_boutons;
        if (record.image != None) ++into.nb_images;
    });
}

constexpr AliveKind kControls{"buttons", count_controls, list_controls};

} // namespace

void tell_of_windows_and_controls() {
    tell_of(&kWindows);
    tell_of(&kControls);
}

} // namespace grx

extern "C" {

INT grx_recup_rang_fenetre(INT nofen) {
    const INT rank = grx::window_rank(nofen);
    return rank > 0 ? rank : grx::refused(GRX_ECHEC_NUMERO, "nofen", nofen);
}

INT grx_recup_rang_bouton(INT nobou) {
    const INT rank = grx::control_rank(nobou);
    return rank > 0 ? rank : grx::refused(GRX_ECHEC_NUMERO, "nobou", nobou);
}
}
