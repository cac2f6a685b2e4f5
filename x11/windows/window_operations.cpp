// What happens to windows becomes event records; what the application asks of a window by its number.
#include "xt_prive.h"

#include <X11/Shell.h>
#include <X11/StringDefs.h>
#include <Xm/Command.h>
#include <Xm/ScrollBar.h>
#include <Xm/Text.h>
#include <Xm/Xm.h>

#include <cstdio>
#include <cstring>

#include "toolkit/args.h"
#include "toolkit/control_parts.h"
#include "display/pixmaps.h"
#include "windows/window_tree.h"
#include "toolkit/locale_text.h"
#include "events/record.h"
#include "toolkit/look.h"
#include "windows/shell_place.h"
#include "toolkit/compound_string.h"
#include "pure/axis.h"
#include "pure/out.h"
#include "xt_ent_f.h"
#include "xt_fen_f.h"
#include "xt_gfx_f.h"
#include "xt_ini_f.h"
#include "xt_uti_f.h"

namespace {

INT no_fen_principale = GRX_AUCUN;
INT nofen_active = GRX_AUCUN;
INT memo_bouton = 0; // mouse button held down, 0 = none

Widget shell_of(INT nofen) {
    return grx_recherche_shell(grx_recup_objet_fen(nofen));
}

// A nested window with its scroll bars; the work widget of any other.
Widget whole_of(INT nofen) {
    Widget outer = grx::outer_widget(nofen);
    return outer != nullptr ? outer : grx_recup_objet_fen(nofen);
}

struct Origin {
    INT x = 0;
    INT y = 0;
};

// ------------------------------------------------------------------------------------------------ window events

INT height_of(Widget w) {
    return grx::size_of(w).height;
}

INT height_of_work(const STRUCTURE_FENETRE& window) {
    return height_of(grx_recup_objet_fen(window.nofen));
}

template <class Record>
void fill_size(Record& record) {
    grx_recup_taille_fenetre(record.nofen, &record.largeur, &record.hauteur);
}

// Exposure, move and resize records are laid out alike: position and size.
template <class Record>
void post_placed(Record& member, INT type, INT nofen) {
    Record& record = grx::post(member, type, nofen);
    grx_recup_position_fenetre(nofen, &record.x, &record.y);
    fill_size(record);
}

void post_crossing(INT type, INT nofen) {
    GRX_SORTIE& record = grx::post(evt_global.sortie, type, nofen);
    record.nobou = record.no_fo = GRX_AUCUN;
}

GRX_DIGIT& post_pointer(INT type, INT nofen, INT x, INT y) {
    GRX_DIGIT& record = grx::post(evt_global.souris_bouge, type, nofen);
    record.nobou = record.no_fo = record.carac = GRX_AUCUN;
    record.x = x;
    record.y = y;
    return record;
}

void on_expose(STRUCTURE_FENETRE& window) {
    const INT nofen = window.nofen;
    grx_supprime_tous_evenement_pour_fenetre(GRX_EVT_AFFICHAGE, nofen);
    const bool first = window.affiche == 0;
    window.affiche = 1;
    const bool host_draws = first || window.type != GRX_FEN_GRAPHIQUE || grx_affiche_bitmap_backingstore(nofen) != 0;
    if (host_draws) post_placed(evt_global.affichage, GRX_EVT_AFFICHAGE, nofen);
}

// A nested window has a size of its own; any other is as large as its shell.
grx::Size current_size(INT nofen) {
    Widget outer = grx::outer_widget(nofen);
    return grx::size_of(outer != nullptr ? outer : shell_of(nofen));
}

void on_configure(STRUCTURE_FENETRE& window) {
    const INT nofen = window.nofen;
    const grx::Size size = current_size(nofen);
    if (size == grx::known_size(nofen)) {
        post_placed(evt_global.deplacement, GRX_EVT_DEPLACEMENT, nofen);
        return;
    }
    grx::set_known_size(nofen, size);
    grx_supprime_tous_evenement_pour_fenetre(GRX_EVT_AFFICHAGE, nofen);
    if (window.type == GRX_FEN_GRAPHIQUE) grx_recree_bitmap_backingstore(nofen);
    post_placed(evt_global.chgt_taille, GRX_EVT_CHGT_TAILLE, nofen);
}

void on_button(const STRUCTURE_FENETRE& window, const XButtonEvent& event, INT type) {
    const INT y = grx::turn_over_y(height_of_work(window), event.y);
    GRX_DIGIT& record = post_pointer(type, window.nofen, event.x, y);
    record.bouton = static_cast<INT>(event.button);
    record.etat = grx::modifier_bits(event.state);
    memo_bouton = type == GRX_EVT_BOUTON_APPUI ? record.bouton : 0;
}

void on_motion(const STRUCTURE_FENETRE& window, const XMotionEvent& event) {
    const INT y = grx::turn_over_y(height_of_work(window), event.y);
    post_pointer(GRX_EVT_SOURIS_BOUGE, window.nofen, event.x, y).bouton = memo_bouton;
}

void on_key(const STRUCTURE_FENETRE& window, const XEvent& event, Boolean* go_on) {
    const INT key = grx::key_for_application(event, go_on);
    if (key == 0) return;
    // KEEP: keys count y from the top, the pointer from the bottom.
    GRX_DIGIT& record = post_pointer(GRX_EVT_CARAC_APPUI, window.nofen, event.xkey.x, event.xkey.y);
    record.bouton = 0;
    record.carac = key;
}

// Another client destroyed the window: what is left of it goes, and tells so as it does.
void on_destroy(const STRUCTURE_FENETRE& window, const XDestroyWindowEvent& event) {
    Widget outer = whole_of(window.nofen);
    Widget doomed = grx::outer_widget(window.nofen) != nullptr ? outer : shell_of(window.nofen);
    const bool own = event.window == grx::window_of(grx_recup_objet_fen(window.nofen));
    if (own && doomed != nullptr && !grx::is_dying(doomed)) XtDestroyWidget(doomed);
}

void dispatch(STRUCTURE_FENETRE& window, XEvent& event, Boolean* go_on) {
    switch (event.type) {
    case Expose: on_expose(window); break;
    case ConfigureNotify: on_configure(window); break;
    case UnmapNotify: grx::post(evt_global.iconification, GRX_EVT_ICONIFICATION, window.nofen); break;
    case MapNotify: grx::post(evt_global.desiconification, GRX_EVT_DESICONIF, window.nofen); break;
    case DestroyNotify: on_destroy(window, event.xdestroywindow); break;
    case EnterNotify: post_crossing(GRX_EVT_ENTREE, window.nofen); break;
    case LeaveNotify: post_crossing(GRX_EVT_SORTIE, window.nofen); break;
    case ButtonPress: on_button(window, event.xbutton, GRX_EVT_BOUTON_APPUI); break;
    case ButtonRelease: on_button(window, event.xbutton, GRX_EVT_BOUTON_RELACHE); break;
    case MotionNotify: on_motion(window, event.xmotion); break;
    case KeyPress: on_key(window, event, go_on); break;
    default: break;
    }
}

// A handler may run for a widget whose number is free again, or another window's.
STRUCTURE_FENETRE* live_window(Widget w, XtPointer client) {
    STRUCTURE_FENETRE* const window = grx::window_record_at(client);
    if (window == nullptr) return nullptr;
    Widget own = grx_recup_objet_fen(window->nofen);
    return own != nullptr && (own == w || grx_recherche_shell(own) == w) ? window : nullptr;
}

// The window whose widget holds another one; GRX_AUCUN when that stands in a dialog of the library.
INT window_around(Widget part) {
    for (Widget w = XtParent(part); w != nullptr && !XtIsShell(w); w = XtParent(w)) {
        const INT nofen = grx_recup_indice_fen(w);
        if (nofen != MAXOBJETFEN) return nofen;
    }
    return GRX_AUCUN;
}

} // namespace

namespace grx {

void key_over_part(Widget part, XtPointer, XEvent* event, Boolean* go_on) {
    const INT nofen = window_around(part);
    if (nofen == GRX_AUCUN) return;
    Widget work = grx_recup_objet_fen(nofen);
    Widget under = XtWindowToWidget(x11_disp, event->xkey.window); // the keyboard's widget need not be the pointer's
    Position x = 0, y = 0, work_x = 0, work_y = 0;
    XtTranslateCoords(under != nullptr ? under : part, 0, 0, &x, &y);
    XtTranslateCoords(work, 0, 0, &work_x, &work_y);
    XEvent key = *event;
    key.xkey.window = window_of(work);
    key.xkey.x += x - work_x;
    key.xkey.y += y - work_y;
    on_key(*window_record(nofen), key, go_on);
}

} // namespace grx

extern "C" {

void grx_gere_evenements_fenetre(Widget w, XtPointer client, XEvent* ev, Boolean* cont) {
    if (w != nullptr && ev != nullptr && grx::is_news_of_a_child(*ev)) grx::forget_place(w);
    STRUCTURE_FENETRE* const window = live_window(w, client);
    if (window != nullptr && ev != nullptr) dispatch(*window, *ev, cont);
}

void grx_scroll_change(Widget w, XtPointer client, XtPointer call) {
    if (w == nullptr || client == nullptr || call == nullptr) return;
    const INT nofen = *static_cast<INT*>(client);
    GRX_EXEC_FONCTION& record = grx::post(evt_global.exec_fonction, GRX_EVT_ECHELLE, nofen);
    record.valeur = static_cast<XmScrollBarCallbackStruct*>(call)->value;
    const auto orientation = grx::resource<unsigned char>(w, XmNorientation, XmVERTICAL);
    record.nobou = orientation == XmHORIZONTAL ? GRX_SCROLL_HORIZONTAL : GRX_SCROLL_VERTICAL;
}

void grx_shell_est_detruit(Widget w, XtPointer client, XtPointer) {
    if (w == nullptr || client == nullptr) return;
    const INT nofen = *static_cast<INT*>(client);
    grx::post(evt_global.destruction, GRX_EVT_DESTRUCTION, nofen);
    if (grx_recup_objet_fen(nofen) == w) grx_libere_indice_objet_fen(nofen); // else the number is another's by now
}

void grx_reponse_a_message(Widget, XtPointer client, XtPointer call) {
    if (client == nullptr || call == nullptr) return;
    GRX_REPONSE_QUESTION& record = grx::post(evt_global.reponse_question, GRX_EVT_REPONSE, *static_cast<INT*>(client));
    const int reason = static_cast<XmAnyCallbackStruct*>(call)->reason;
    if (reason == XmCR_OK) record.reponse = 1;
    if (reason == XmCR_CANCEL) record.reponse = 2;
}

void grx_commande_entree(Widget, XtPointer client, XtPointer call) {
    if (client == nullptr || call == nullptr) return;
    const grx::PlainText text(static_cast<XmCommandCallbackStruct*>(call)->value);
    GRX_COMMANDE_ENTREE& record = grx::post(evt_global.commande_entree, GRX_EVT_COMMANDE, *static_cast<INT*>(client));
    grx::copy_text(record.chaine, text.c_str());
}

INT supprime_gestion_expose_pour_fenetre(INT nofen) {
    Widget w = grx_recup_objet_fen(nofen);
    if (w == nullptr) return 0;
    XtRemoveEventHandler(w, ExposureMask, False, grx_gere_evenements_fenetre, grx::window_record(nofen));
    return 0;
}

INT ajoute_gestion_expose_pour_fenetre(INT nofen) {
    Widget w = grx_recup_objet_fen(nofen);
    if (w == nullptr) return 0;
    XtAddEventHandler(w, ExposureMask, False, grx_gere_evenements_fenetre, grx::window_record(nofen));
    return 0;
}
}

// --------------------------------------------------------------------------------------------- window operations

namespace {

void map_shell(Widget shell) {
    if (XtIsTransientShell(shell)) {
        XtPopup(shell, XtGrabNone);
    } else if (const Window window = grx::window_of(shell)) {
        XMapWindow(x11_disp, window);
    }
}

void unmap_shell(Widget shell) {
    if (XtIsTransientShell(shell)) {
        XtPopdown(shell);
    } else if (const Window window = grx::window_of(shell)) {
        XUnmapWindow(x11_disp, window);
    }
}

void request_geometry(Widget shell, XtGeometryMask what, Position x, Position y) {
    XtWidgetGeometry wanted{};
    wanted.request_mode = what;
    wanted.x = x;
    wanted.y = y;
    wanted.stack_mode = Above;
    XtMakeGeometryRequest(shell, &wanted, nullptr); // a window manager's late answer reads as a refusal: no matter
}

// The toolkit's idea of a shell's place can be wrong, and it asks for no move to where it believes the shell to be.
void move_for_certain(Widget shell, Position x, Position y, XtGeometryMask besides) {
    const bool believed_there = grx::resource<Position>(shell, XmNx) == x || grx::resource<Position>(shell, XmNy) == y;
    request_geometry(shell, CWX | CWY | besides, x, y);
    if (believed_there && grx::window_of(shell) != None) XMoveWindow(x11_disp, XtWindow(shell), x, y);
}

bool usable_size(INT nofen, INT largeur, INT hauteur) {
    return nofen >= 0 && largeur > 0 && hauteur > 0;
}

void set_widget_size(Widget w, INT largeur, INT hauteur) {
    grx::lay_out_pending();
    grx::Args args;
    args.set(XmNwidth, grx::as_size(largeur)).set(XmNheight, grx::as_size(hauteur));
    XtSetValues(w, args.list(), args.count());
}

void give_size(Widget w, INT* largeur, INT* hauteur) {
    if (w == nullptr) return;
    const grx::Size size = grx::size_of(w);
    grx::give(largeur, size.width);
    grx::give(hauteur, size.height);
}

Origin origin_of(Window window) {
    Window root = None;
    int x = 0, y = 0;
    unsigned int width = 0, height = 0, border = 0, depth = 0;
    if (XGetGeometry(x11_disp, window, &root, &x, &y, &width, &height, &border, &depth) == 0) return {};
    return {x, y};
}

Widget scroll_bar_of(INT nofen, bool vertical) {
    return grx::scroll_bar(grx::own_scrolled_window(nofen), vertical);
}

void set_backing_store(INT nofen, int mode) {
    const Window window = grx::window_of(grx_recup_objet_fen(nofen));
    if (window == None) return;
    XSetWindowAttributes attributes{};
    attributes.backing_store = mode;
    XChangeWindowAttributes(x11_disp, window, CWBackingStore, &attributes);
}

Widget text_of(INT nofen) {
    Widget w = grx_recup_objet_fen(nofen);
    return w != nullptr && XmIsText(w) ? w : nullptr;
}

void set_increments(Widget bar, INT valeur) {
    if (bar == nullptr || valeur <= 0) return; // the toolkit takes positive steps only
    grx::Args args;
    args.set(XmNincrement, valeur).set(XmNpageIncrement, valeur);
    XtSetValues(bar, args.list(), args.count());
}

} // namespace

namespace grx {

bool in_frame(Widget shell) {
    const Window window = window_of(shell);
    return window != None && frame_of(window) != window;
}

void frame_place(Widget shell, INT& x, INT& y) {
    const Window window = window_of(shell);
    if (window == None) return;
    const Origin origin = origin_of(frame_of(window));
    x = origin.x;
    y = origin.y;
}

void move_shell(Widget shell, INT x, INT y) {
    move_for_certain(shell, as_position(x), as_position(turn_over_y(grx_recup_hau_ecran(), y)), 0);
}

} // namespace grx

extern "C" {

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

INT grx_affiche_fenetre(INT nofen) {
    if (Widget shell = shell_of(nofen)) map_shell(shell);
    return 0;
}

INT grx_cache_fenetre(INT nofen) {
    if (Widget shell = shell_of(nofen)) unmap_shell(shell);
    return 0;
}

INT grx_affiche_fenetre_fille(INT nofen) {
    if (const Window window = grx::window_of(whole_of(nofen))) XMapWindow(x11_disp, window);
    return 0;
}

INT grx_cache_fenetre_fille(INT nofen) {
    if (const Window window = grx::window_of(whole_of(nofen))) XUnmapWindow(x11_disp, window);
    return 0;
}

INT grx_detruit_fenetre(INT nofen) {
    Widget shell = shell_of(nofen);
    if (shell == nullptr) return 0;
    XtDestroyWidget(shell);
    grx_libere_indice_objet_fen(nofen);
    return 0;
}

INT grx_detruit_fenetre_fille(INT nofen) {
    Widget w = whole_of(nofen);
    if (w == nullptr) return 0;
    XtDestroyWidget(w);
    grx_libere_indice_objet_fen(nofen);
    return 0;
}

INT grx_reaffiche_fenetre(INT nofen) {
    if (Widget shell = shell_of(nofen)) request_geometry(shell, CWStackMode, 0, 0);
    return 0;
}

INT grx_deplace_fenetre(INT nofen, INT x, INT y) {
    Widget shell = shell_of(nofen);
    if (shell == nullptr) return 0;
    const INT top = grx::turn_over_y(grx_recup_hau_ecran(), y);
    move_for_certain(shell, grx::as_position(x), grx::as_position(top), CWStackMode);
    return 0;
}

INT grx_change_taille_fenetre(INT nofen, INT largeur, INT hauteur) {
    Widget shell = shell_of(nofen);
    if (shell == nullptr || !usable_size(nofen, largeur, hauteur)) return 0;
    set_widget_size(shell, largeur, hauteur);
    if (grx::window_record(nofen)->type != GRX_FEN_GRAPHIQUE) return 0;
    grx_sync_server();
    grx_recree_bitmap_backingstore(nofen);
    return 0;
}

INT grx_change_taille_fenetre_fille(INT nofen, INT largeur, INT hauteur) {
    Widget w = whole_of(nofen);
    if (w != nullptr && usable_size(nofen, largeur, hauteur)) set_widget_size(w, largeur, hauteur);
    return 0;
}

INT grx_recup_taille_fenetre(INT nofen, INT* largeur, INT* hauteur) {
    give_size(shell_of(nofen), largeur, hauteur);
    return 0;
}

INT grx_recup_taille_fenetre_fille(INT nofen, INT* largeur, INT* hauteur) {
    give_size(whole_of(nofen), largeur, hauteur);
    return 0;
}

INT grx_recup_position_fenetre(INT nofen, INT* x, INT* y) {
    Widget shell = shell_of(nofen);
    if (grx::window_of(shell) == None) return 0;
    INT left = 0, top = 0;
    grx::frame_place(shell, left, top);
    grx::give(x, left);
    grx::give(y, grx::turn_over_y(grx_recup_hau_ecran(), top));
    return 0;
}

INT grx_recup_position_fenetre_fille(INT nofen, INT* x, INT* y) {
    grx::give(x, 0);
    grx::give(y, 0);
    Widget w = whole_of(nofen);
    if (w == nullptr) return 0;
    const grx::Place where = grx::place_of(w);
    grx::give(x, INT{where.x});
    grx::give(y, INT{where.y});
    return 0;
}

INT grx_iconifie_fenetre(INT nofen) {
    if (const Window window = grx::window_of(shell_of(nofen))) XIconifyWindow(x11_disp, window, x11_screen);
    return 0;
}

INT grx_desiconifie_fenetre(INT nofen) {
    if (const Window window = grx::window_of(shell_of(nofen))) XMapWindow(x11_disp, window);
    return 0;
}

INT grx_restack_fenetre(INT nofen1, INT nofen2) {
    const Window first = grx::window_of(shell_of(nofen1));
    const Window second = grx::window_of(shell_of(nofen2));
    if (first == None || second == None || first == second) return 0;
    XWindowChanges changes{};
    changes.sibling = second;
    changes.stack_mode = Above;
    XReconfigureWMWindow(x11_disp, first, x11_screen, CWSibling | CWStackMode, &changes);
    return 0;
}

INT grx_change_titre_fenetre(INT nofen, char* titre) {
    Widget shell = shell_of(nofen);
    if (shell != nullptr && titre != nullptr) grx::set_resource(shell, XmNtitle, titre);
    return 0;
}

INT grx_recup_titre_fenetre(INT nofen, char* titre) {
    if (titre == nullptr) return 0;
    titre[0] = '\0';
    Widget shell = shell_of(nofen);
    const char* const own = shell != nullptr ? grx::resource<char*>(shell, XmNtitle) : nullptr;
    if (own != nullptr) std::snprintf(titre, GRX_TITRE_MAX, "%s", own);
    return 0;
}

INT grx_coord_relative_to_absolues(INT nofen, INT x1, INT y1, INT* x2, INT* y2) {
    grx::give(x2, x1);
    grx::give(y2, y1);
    Widget w = grx_recup_objet_fen(nofen);
    const Window window = grx::window_of(w);
    if (window == None) return 0;
    int root_x = 0, root_y = 0;
    Window child = None;
    const INT from_top = grx::turn_over_y(height_of(w), y1);
    XTranslateCoordinates(x11_disp, window, grx::root_window(), x1, from_top, &root_x, &root_y, &child);
    grx::give(x2, root_x);
    grx::give(y2, grx::turn_over_y(grx_recup_hau_ecran(), root_y));
    return 0;
}

INT grx_affecte_increment_scrollbar(INT nofen, INT valeur) {
    Widget scrolled = grx::nearest_scrolled_window(grx_recup_objet_fen(nofen)); // also that of a window around it
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
    grx::Args args; // KEEP: the slider size is never set here
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

INT grx_autorise_sauvegarde_auto(INT nofen) {
    set_backing_store(nofen, WhenMapped);
    return 0;
}

INT grx_supprime_sauvegarde_auto(INT nofen) {
    set_backing_store(nofen, NotUseful);
    return 0;
}

INT grx_affecte_largeur_fenetre(INT nofen, INT valeur) {
    grx::give(grx::stored_width(nofen), valeur);
    return 0;
}

INT grx_affecte_hauteur_fenetre(INT nofen, INT valeur) {
    grx::give(grx::stored_height(nofen), valeur);
    return 0;
}

INT grx_recup_largeur_fenetre(INT nofen) {
    const INT* const place = grx::stored_width(nofen);
    return place != nullptr ? *place : 0;
}

INT grx_recup_hauteur_fenetre(INT nofen) {
    const INT* const place = grx::stored_height(nofen);
    return place != nullptr ? *place : 0;
}

INT grx_affiche_texte_dans_fenetre(INT nofen, char* texte) {
    Widget w = text_of(nofen);
    if (w == nullptr) return 0;
    grx::LocaleText text(texte);
    XmTextSetString(w, text.data());
    return 0;
}

INT grx_ajoute_texte_dans_fenetre(INT nofen, char* texte) {
    if (Widget w = text_of(nofen)) grx::insert_text(w, texte);
    return 0;
}

INT grx_recup_tamenubar(void) {
    INT width = 0, height = 0;
    grx_recup_taille_menu_bar(grx_recup_nofen_principale(), &width, &height);
    return height;
}

Widget grx_recup_parent(Widget fils) {
    return fils != nullptr ? XtParent(fils) : nullptr;
}

INT grx_change_visual_fenetre(INT nofen, Visual* visual) {
    Widget shell = shell_of(nofen);
    if (shell != nullptr && visual != nullptr) grx::set_resource(shell, XmNvisual, visual);
    return 0;
}

// Entry points that other platforms need and this one does not.

INT grx_reactive_topmost(void) {
    return 0;
}

INT grx_desactive_topmost(void) {
    return 0;
}

INT grx_flush_fenetres_graphiques(void) {
    return 0;
}

INT grx_ote_mire_si_necessaire(...) {
    return 0;
}

INT grx_met_mire_si_necessaire(...) {
    return 0;
}

INT test_client_fenetre_graphique(...) {
    return 1;
}

INT test_fenetre_principale(INT) {
    return 0;
}

void grx_iconifie_application(INT) {}
}
