// The scroll bars of windows: the application reads and sets their size, values and increments here.
#include <X11/Intrinsic.h>
#include <Xm/Xm.h>

#include "pure/out.h"
#include "toolkit/args.h"
#include "toolkit/widgets.h"
#include "registry/window_table.h"
#include "xt_fen_f.h"
#include "xt_ini_f.h"
#include "xt_mot_t.h"

namespace {

Widget scroll_bar_of(INT nofen, bool vertical) {
    return grx::scroll_bar(grx::own_scrolled_window(nofen), vertical);
}

void set_increments(Widget bar, INT valeur) {
    if (bar == nullptr || valeur <= 0) return; // the toolkit wants positive steps
    grx::Args args;
    args.set(XmNincrement, valeur).set(XmNpageIncrement, valeur);
    XtSetValues(bar, args.list(), args.count());
}

// The record of a window that exists. A free entry must not be changed.
STRUCTURE_FENETRE* flags_of(INT nofen) {
    return grx_recup_objet_fen(nofen) != nullptr ? grx::window_record(nofen) : nullptr;
}

bool has_flag(INT nofen, char flag) {
    const STRUCTURE_FENETRE* const record = flags_of(nofen);
    return record != nullptr && (record->attributs_fen_graph & flag) != 0;
}

void set_flag(INT nofen, char flag, bool on) {
    STRUCTURE_FENETRE* const record = flags_of(nofen);
    if (record == nullptr) return;
    const auto bits = static_cast<uchar>(record->attributs_fen_graph);
    record->attributs_fen_graph = static_cast<char>(on ? bits | flag : bits & ~flag);
}

void show_scroll_bars(INT nofen, bool shown) {
    if (has_flag(nofen, GRX_FENG_SCROLL) == shown) return;
    Widget scrolled = grx::own_scrolled_window(nofen);
    for (const bool vertical : {false, true}) {
        Widget bar = grx::scroll_bar(scrolled, vertical);
        if (bar == nullptr) continue;
        shown ? XtManageChild(bar) : XtUnmanageChild(bar);
    }
    set_flag(nofen, GRX_FENG_SCROLL, shown);
}

} // namespace

extern "C" {

INT grx_affecte_increment_scrollbar(INT nofen, INT valeur) {
    // This may be the scrolled window of a window around this one.
    Widget scrolled = grx::nearest_scrolled_window(grx_recup_objet_fen(nofen));
    for (const bool vertical : {false, true}) set_increments(grx::scroll_bar(scrolled, vertical), valeur);
    return 0;
}

INT grx_recup_carac_scroll_fenetre(INT nofen, INT orient, INT* len, INT* min, INT* max, INT* val) {
    struct Field {
        INT* place;
        const char* name;
    };
    const Field fields[] = {{len, XmNsliderSize}, {min, XmNminimum}, {max, XmNmaximum}, {val, XmNvalue}};
    Widget bar = scroll_bar_of(nofen, orient != GRX_SCROLL_HORIZONTAL);
    for (const auto& field : fields) grx::give(field.place, bar != nullptr ? grx::resource<int>(bar, field.name) : 0);
    return 0;
}

INT grx_affecte_carac_scroll_fenetre(INT nofen, INT orient, INT, INT min, INT max, INT val) {
    Widget bar = scroll_bar_of(nofen, orient != GRX_SCROLL_HORIZONTAL);
    if (bar == nullptr) return 0;
    grx::Args args; // KEEP: the size of the slider is never set
    args.set(XmNmaximum, max).set(XmNminimum, min).set(XmNvalue, val);
    XtSetValues(bar, args.list(), args.count());
    return 0;
}

INT grx_recup_taille_scrollbars_fenetre(INT nofen, INT* lar, INT* hau) {
    if (Widget bar = scroll_bar_of(nofen, false)) grx::give(lar, grx::size_of(bar).height);
    if (Widget bar = scroll_bar_of(nofen, true)) grx::give(hau, grx::size_of(bar).width);
    return 0;
}

INT grx_recup_taille_scrollbar(INT nofen) {
    Widget bar = scroll_bar_of(nofen, true);
    return bar != nullptr ? grx::size_of(bar).width : 0;
}

INT grx_is_fenetre_avec_scroll(INT nofen) {
    return has_flag(nofen, GRX_FENG_SCROLL) ? 1 : 0;
}

INT grx_affecte_fenetre_avec_scroll(INT nofen, INT etat) {
    set_flag(nofen, GRX_FENG_SCROLL, etat != 0);
    return 0;
}

INT grx_is_fenetre_avec_bgi(INT nofen) {
    return has_flag(nofen, GRX_FENG_BGI) ? 1 : 0;
}

INT grx_affecte_fenetre_avec_bgi(INT nofen, INT etat) {
    set_flag(nofen, GRX_FENG_BGI, etat != 0);
    return 0;
}

INT grx_cache_scrollbars_fenetre_graphique(INT nofen) {
    show_scroll_bars(nofen, false);
    return 0;
}

INT grx_reaffiche_scrollbars_fenetre_graphique(INT nofen) {
    show_scroll_bars(nofen, true);
    return 0;
}
}
