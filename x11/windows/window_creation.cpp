// Makes windows for the application, with their widgets, number, handlers and backing picture.
#include <X11/Intrinsic.h>
#include <Xm/Xm.h>

#include <cstdlib>

#include "display/context.h"
#include "toolkit/args.h"
#include "toolkit/late_layout.h"
#include "toolkit/widgets.h"
#include "registry/window_table.h"
#include "windows/asked_geometry.h"
#include "windows/placing.h"
#include "windows/scrolling.h"
#include "windows/shell_place.h"
#include "windows/shells.h"
#include "windows/window_build.h"
#include "windows/window_kinds.h"
#include "xt_fen_f.h"
#include "xt_gfx_f.h"
#include "xt_ini_t.h"
#include "xt_loc_f.h"
#include "xt_mot_t.h"

namespace {

constexpr INT kNotMade = -1;
constexpr INT kBaseFull = -2;
constexpr EventMask kWorkEvents = 0x2877D;  // keys, buttons, crossing, motion, exposure, structure
constexpr EventMask kShellEvents = 0x90000; // substructure and visibility

// The main window and the scrolled window must be told which of their children they arrange.
void set_work_areas(const grx::WindowBuild& b) {
    if (b.scrolled != nullptr && b.fen.type == GRX_FEN_GRAPHIQUE) grx::set_resource(b.scrolled, XmNworkWindow, b.work);
    if (b.main == nullptr) return;
    grx_cree_menu_bar(b.main);
    if (Widget bar = grx_get_Glob_menu_bar(); bar != nullptr && XtParent(bar) == b.main)
        grx::set_resource(b.main, XmNmenuBar, bar);
    grx::set_resource(b.main, XmNworkWindow, b.outer);
}

void free_number(Widget, XtPointer number, XtPointer) {
    grx_free(static_cast<char*>(number), sizeof(INT));
}

// Callbacks get the number in a block of its own, because the table's entry may be free or another window's when they
// run.
INT* make_number(const grx::WindowBuild& b) {
    auto* number = reinterpret_cast<INT*>(grx_malloc(sizeof(INT)));
    if (number != nullptr) *number = b.nofen;
    return number;
}

void install_handlers(const grx::WindowBuild& b, INT* number) {
    STRUCTURE_FENETRE* const record = grx::window_record(b.nofen);
    XtAddCallback(b.work, XmNdestroyCallback, grx_shell_est_detruit, number);
    XtAddCallback(b.work, XmNdestroyCallback, free_number, number);
    XtAddEventHandler(b.work, kWorkEvents, False, grx_gere_evenements_fenetre, record);
    if (!b.nested) {
        grx::end_with_its_window(b.shell);
        XtInsertEventHandler(b.shell, SubstructureNotifyMask, False, grx::blunt_news_of_a_child, nullptr, XtListHead);
        XtAddEventHandler(b.shell, kShellEvents, False, grx_gere_evenements_fenetre, record);
    }
    if (b.fen.type != GRX_FEN_MESSAGE) return;
    XtAddCallback(b.work, XmNokCallback, grx_reponse_a_message, number);
    XtAddCallback(b.work, XmNcancelCallback, grx_reponse_a_message, number);
}

// A window that was asked to be invisible is realised but not mapped. It is shown by its number later.
void put_on_screen(const grx::WindowBuild& b) {
    if (b.parent != nullptr && b.visible()) {
        XtPopup(b.shell, XtGrabNone);
    } else {
        XtRealizeWidget(b.shell);
    }
    if (b.parent == nullptr) grx::give_context(b.shell);
}

void give_backing_picture(INT nofen) {
    STRUCTURE_FENETRE& record = *grx::window_record(nofen);
    grx_autorise_sauvegarde_auto(nofen);
    record.image = static_cast<Pixmap*>(std::malloc(sizeof(Pixmap))); // free() releases it
    if (record.image == nullptr) return;
    *record.image = None;
    grx_cree_bitmap_backingstore(nofen);
    record.backingstorable = 1;
}

INT refuse_before_making(const grx::WindowBuild& b) {
    const bool needs_parent = b.nested || b.fen.fen_mere >= 0;
    if (needs_parent && b.parent == nullptr) return kNotMade;
    if (b.nested && !XtIsComposite(b.parent)) return kNotMade; // a text cannot hold windows
    if (!grx::is_window_kind(b.fen.type) || x11_disp == nullptr) return kNotMade;
    return 0;
}

bool make_widgets(grx::WindowBuild& b) {
    Widget container = b.parent;
    if (b.nested) {
        grx::place_nested(b);
    } else {
        grx::place_shell(b);
        grx::make_shell(b);
        container = b.shell;
    }
    if (container == nullptr) return false;
    if (b.has(GRX_FEN_ATT_PRINCIPALE)) {
        grx::make_main_window(b, container);
        container = b.main;
    }
    if (container == nullptr || !grx::make_scrolling(b, container)) return false;
    return grx::make_work_widget(b, b.scrolled != nullptr ? b.scrolled : container);
}

void show_window(grx::WindowBuild& b, INT* number) {
    set_work_areas(b);
    XtManageChild(b.work);
    grx::lay_out_pending(); // gives the new widgets of a nested window their sizes
    grx::size_nested(b);
    install_handlers(b, number);
    if (!b.nested) {
        put_on_screen(b);
        grx_affecte_curseur(b.fen.curseur, b.shell);
    }
    grx::set_known_size(b.nofen, {b.fen.droite, b.fen.haut});
    if (b.fen.type == GRX_FEN_GRAPHIQUE) give_backing_picture(b.nofen);
    grx::finish_scrolled(b, number);
}

} // namespace

extern "C" {

void grx_init_fenetre(GRX_FENETRE* fenetre) {
    if (fenetre == nullptr) return;
    const INT type = fenetre->type; // KEEP: the caller gives the kind before this call
    *fenetre = GRX_FENETRE{};
    fenetre->type = type;
    fenetre->attrib = GRX_FEN_ATT_VISIBLE;
    fenetre->nofen = fenetre->droite = fenetre->haut = GRX_AUCUN;
    fenetre->coul_fond = fenetre->coul_trace = fenetre->curseur = fenetre->fen_mere = GRX_AUCUN;
    fenetre->lar_util = fenetre->hau_util = GRX_AUCUN;
}

INT grx_cree_fenetre(GRX_FENETRE* fenetre) {
    if (fenetre == nullptr) return kNotMade;
    const GRX_FENETRE wanted = grx::as_user_wants(*fenetre);
    grx::WindowBuild b{.fen = wanted,
        .nofen = GRX_AUCUN,
        .nested = (fenetre->attrib & GRX_FEN_ATT_FILLE) != 0,
        .parent = fenetre->fen_mere != GRX_AUCUN ? grx_recup_objet_fen(fenetre->fen_mere) : nullptr};
    if (const INT refusal = refuse_before_making(b); refusal != 0) return refusal;
    b.nofen = grx_recup_indice_objet_fen_libre();
    if (b.nofen < 0) return kBaseFull;
    if (!make_widgets(b)) return kNotMade;
    fenetre->nofen = b.nofen;
    grx::occupy(b.nofen, b.fen.type, b.work, b.nested ? b.outer : nullptr);
    show_window(b, make_number(b));
    grx::note_made(*fenetre);
    return 0;
}
}
