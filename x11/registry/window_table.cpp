// The window base, and the creation of windows.
#include "xt_prive.h"

#include <X11/Shell.h>
#include <X11/StringDefs.h>
#include <Xm/BulletinB.h>
#include <Xm/DrawingA.h>
#include <Xm/Form.h>
#include <Xm/MainW.h>
#include <Xm/MessageB.h>
#include <Xm/PushB.h>
#include <Xm/ScrollBar.h>
#include <Xm/ScrolledW.h>
#include <Xm/Text.h>
#include <Xm/Xm.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <iterator>

#include "toolkit/args.h"
#include "display/bitmaps.h"
#include "display/pixmaps.h"
#include "toolkit/field_text.h"
#include "toolkit/late_layout.h"
#include "toolkit/look.h"
#include "windows/shell_place.h"
#include "system/table.h"
#include "toolkit/compound_string.h"
#include "pure/axis.h"
#include "pure/decorations.h"
#include "pure/icon_bits.h"
#include "xt_err_f.h"
#include "xt_fen_f.h"
#include "xt_gfx_f.h"
#include "xt_ini_f.h"
#include "xt_loc_f.h"

INT MAXOBJETFEN = 0;

// ---------------------------------------------------------------------------------------------- the window base

namespace grx {

Widget* Tableau_objet_fen = nullptr;

} // namespace grx

using grx::Tableau_objet_fen;

namespace {

STRUCTURE_FENETRE* structure_fenetre = nullptr;
GRX_SAUVE_ZONE* sauve_zone = nullptr;
INT* old_lar = nullptr;
INT* old_hau = nullptr;
INT* largeur_fen = nullptr;
INT* hauteur_fen = nullptr;
INT p_objet = 0;

constexpr std::size_t kGeometryText = 32;

// Beside the base: what the library must know of a window and the application must not.
struct Beside {
    Widget outer;
    bool dead_pixmap;
    char geometry[kGeometryText]; // the toolkit keeps its address
};
std::array<Beside, GRX_NB_FENETRES> beside{};
Beside no_window{};

bool base_complete() {
    return Tableau_objet_fen != nullptr && structure_fenetre != nullptr && sauve_zone != nullptr;
}

bool in_base(INT nofen) {
    return nofen >= 0 && nofen < MAXOBJETFEN && base_complete();
}

Beside& beside_of(INT nofen) {
    return nofen >= 0 && nofen < GRX_NB_FENETRES ? beside[static_cast<std::size_t>(nofen)] : no_window;
}

template <class T>
bool allocate(T*& table) {
    return grx::allocate_table<T, GRX_NB_FENETRES>(table);
}

template <class T>
void release(T*& table) {
    grx::free_table<T, GRX_NB_FENETRES>(table);
}

// The holder comes from malloc; its pixmap id is read before it is released.
void release_picture(INT nofen, STRUCTURE_FENETRE& record) {
    Pixmap* const holder = record.image;
    if (record.type != GRX_FEN_GRAPHIQUE || holder == nullptr) return;
    const Pixmap pixmap = *holder;
    grx::forget_drawing_target(holder);
    std::free(holder);
    if (!grx::holds_dead_pixmap(nofen)) grx::free_pixmap(pixmap);
    record.image = nullptr;
}

// A picture put aside must not come back in the next window of the number.
void release_saved_picture(INT nofen) {
    GRX_SAUVE_ZONE& slot = sauve_zone[nofen];
    grx::free_pixmap(slot.image);
    slot = GRX_SAUVE_ZONE{};
}

} // namespace

namespace grx {

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
    return beside_of(nofen).dead_pixmap;
}

void mark_dead_pixmap(INT nofen, bool dead) {
    beside_of(nofen).dead_pixmap = dead;
}

Widget outer_widget(INT nofen) {
    return beside_of(nofen).outer;
}

// A window that stands in another, or was opened over it, has that one's scroll bars further up: they are not its own.
Widget own_scrolled_window(INT nofen) {
    Widget w = grx_recup_objet_fen(nofen);
    Widget outermost = outer_widget(nofen) != nullptr ? outer_widget(nofen) : nearest_shell(w);
    while (w != nullptr && w != outermost && !XmIsScrolledWindow(w)) w = XtParent(w);
    return w != nullptr && XmIsScrolledWindow(w) ? w : nullptr;
}

INT* stored_width(INT nofen) {
    return in_base(nofen) && largeur_fen != nullptr ? &largeur_fen[nofen] : nullptr;
}

INT* stored_height(INT nofen) {
    return in_base(nofen) && hauteur_fen != nullptr ? &hauteur_fen[nofen] : nullptr;
}

} // namespace grx

extern "C" {

INT grx_alloue_base_fenetres(void) {
    grx_desalloue_base_fenetres();
    MAXOBJETFEN = GRX_NB_FENETRES;
    p_objet = 0;
    const bool complete = allocate(Tableau_objet_fen) && allocate(structure_fenetre) && allocate(sauve_zone)
                          && allocate(old_lar) && allocate(old_hau) && allocate(largeur_fen);
    if (!complete) return GRX_ERR_BASE_FENETRES;
    allocate(hauteur_fen);
    // KEEP: the last test is made on the width table again; a missing height table is not reported.
    if (largeur_fen == nullptr) return GRX_ERR_BASE_FENETRES;
    grx_init_objet_fen();
    return 0;
}

INT grx_desalloue_base_fenetres(void) {
    for (INT nofen = 1; nofen < MAXOBJETFEN && base_complete(); ++nofen) grx_libere_indice_objet_fen(nofen);
    release(Tableau_objet_fen);
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
        Tableau_objet_fen[nofen] = nullptr;
        structure_fenetre[nofen].nofen = MAXOBJETFEN;
    }
    return 0;
}

INT grx_affecte_objet_fen(INT nofen, Widget w) {
    if (!in_base(nofen)) return 0;
    Tableau_objet_fen[nofen] = w;
    return 1;
}

Widget grx_recup_objet_fen(INT nofen) {
    return grx::window_widget(nofen);
}

INT grx_recup_indice_fen(Widget w) {
    for (INT nofen = 1; w != nullptr && in_base(nofen); ++nofen) {
        Widget own = Tableau_objet_fen[nofen];
        if (own != nullptr && (own == w || grx_recherche_shell(own) == w)) return nofen;
    }
    return MAXOBJETFEN;
}

INT grx_recup_indice_objet_fen_libre(void) {
    for (INT nofen = 1; in_base(nofen); ++nofen) {
        if (Tableau_objet_fen[nofen] != nullptr) continue;
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
    Tableau_objet_fen[nofen] = nullptr;
    record.nofen = MAXOBJETFEN;
    release_picture(nofen, record);
    release_saved_picture(nofen);
    beside_of(nofen).outer = nullptr;
    beside_of(nofen).dead_pixmap = false;
    return 1;
}

INT grx_recup_max_objet(void) {
    return p_objet;
}
}

// ------------------------------------------------------------------------------------------- creation of windows

namespace {

constexpr INT kNotMade = -1;
constexpr INT kBaseFull = -2;
constexpr INT kMenuScrollThickness = 44;
constexpr EventMask kWorkEvents = 0x2877D;  // keys, buttons, crossing, motion, exposure, structure
constexpr EventMask kShellEvents = 0x90000; // substructure and visibility

// What creation works on, from one step to the next.
struct Build {
    const GRX_FENETRE& fen;
    INT nofen;
    bool nested;
    Widget parent;        // widget of fen_mere, null at top level
    int32_t x = 0, y = 0; // toolkit position
    Widget shell = nullptr;
    Widget main = nullptr;
    Widget scrolled = nullptr;
    Widget outer = nullptr; // outermost widget inside shell, main window or parent
    Widget work = nullptr;

    bool has(INT bit) const { return (fen.attrib & bit) != 0; }
    bool visible() const { return has(GRX_FEN_ATT_VISIBLE); }
    // The work widget is as large as its window; else the toolkit's margins and sizes hold.
    bool sized() const { return fen.droite >= 0 && fen.haut >= 0 && !scrolls(); }
    bool scrolls() const { return has(GRX_FEN_ATT_SCROLL); }
};

constexpr bool known_kind(INT type) {
    return (type >= GRX_FEN_BOUTONS && type <= GRX_FEN_MESSAGE) || type == GRX_FEN_MENU;
}

INT border_of(const Build& b) {
    if (b.has(GRX_FEN_ATT_SANS_BORD)) return 0;
    if (b.has(GRX_FEN_ATT_SANS_RESIZE)) return grx_get_tabord_sans_resize();
    if (b.has(GRX_FEN_ATT_SANS_TITRE)) return grx_get_tabord_sans_titre();
    return grx_get_tabord();
}

// Without a height the lower edge cannot be placed: the window goes to the top.
int32_t toolkit_y(int32_t container_height, const GRX_FENETRE& fen, int64_t decorations) {
    if (fen.haut < 0) return 0;
    const int64_t top = int64_t{grx::top_of_box(container_height, fen.y, fen.haut)} - decorations;
    return static_cast<int32_t>(std::clamp<int64_t>(top, INT16_MIN, INT16_MAX));
}

void place_nested(Build& b) {
    b.x = b.fen.x;
    b.y = toolkit_y(grx::size_of(b.parent).height, b.fen, 0);
}

void place_shell(Build& b) {
    const int64_t border = border_of(b);
    const int64_t title = b.has(GRX_FEN_ATT_SANS_TITRE) ? 0 : grx_get_tatitre();
    b.x = grx::as_position(static_cast<int32_t>(std::clamp<int64_t>(b.fen.x - border, 0, INT16_MAX)));
    b.y = std::max(toolkit_y(grx_recup_hau_ecran(), b.fen, title + border), 0);
    std::snprintf(beside_of(b.nofen).geometry, kGeometryText, "+%d+%d", b.x, b.y);
}

void set_given_size(grx::Args& args, const GRX_FENETRE& fen) {
    if (fen.droite >= 0) args.set(XmNwidth, grx::as_size(fen.droite));
    if (fen.haut >= 0) args.set(XmNheight, grx::as_size(fen.haut));
}

void set_size(grx::Args& args, const GRX_FENETRE& fen) {
    set_given_size(args, fen);
    if (fen.droite < 0 && fen.haut < 0) args.set(XmNallowShellResize, True);
}

Pixmap minimised_icon() {
    static Pixmap icon = None;
    if (icon == None) {
        icon = grx::make_bitmap(grx::iconif_bits, grx::kIconSide);
    }
    return icon;
}

void set_decorations(grx::Args& args, INT attributes) {
    const auto masks = grx::decorations_for(attributes);
    args.set(XmNmwmDecorations, masks.decorations);
    args.set(XmNmwmFunctions, masks.functions);
}

void make_shell(Build& b) {
    grx::Args args;
    const grx::FieldText title(b.fen.titre);
    args.set(XmNtitle, title.c_str()).set(XmNiconName, title.c_str());
    args.set(XmNgeometry, beside_of(b.nofen).geometry);
    args.set(XmNdeleteResponse, XmDESTROY);
    set_size(args, b.fen);
    set_decorations(args, b.fen.attrib);
    grx::set_background(args, b.fen.coul_fond);
    grx::set_screen(args);
    if (!b.visible()) args.set(XmNmappedWhenManaged, False);
    if (b.parent != nullptr) {
        b.shell = XtCreatePopupShell("TransientShell", transientShellWidgetClass, b.parent, args.list(), args.count());
        return;
    }
    args.set(XmNiconPixmap, minimised_icon());
    b.shell = XtAppCreateShell(nullptr, "TopLevelShell", topLevelShellWidgetClass, x11_disp, args.list(), args.count());
}

void make_main_window(Build& b, Widget container) {
    grx::Args args;
    if (const auto pixel = grx::application_pixel()) args.set(XmNbackground, *pixel);
    b.main = XmCreateMainWindow(container, const_cast<char*>("main"), args.list(), args.count());
    if (b.main != nullptr) XtManageChild(b.main);
}

// The whole of a nested window, scroll bars included, has the place and size asked for: what was put into it meanwhile
// made it larger or smaller.
void size_nested(const Build& b) {
    if (!b.nested || b.outer == nullptr || b.outer == b.work) return;
    grx::Args args;
    if (b.x >= 0) args.set(XmNx, grx::as_position(b.x));
    if (b.y >= 0) args.set(XmNy, grx::as_position(b.y));
    set_given_size(args, b.fen);
    XtSetValues(b.outer, args.list(), args.count());
}

// Position, size and attachments of whatever stands outermost in the parent of a nested window.
void set_place_in_parent(grx::Args& args, const Build& b) {
    struct Side {
        INT bit;
        const char* resource;
    };
    static const std::array<Side, 4> sides{
        {{GRX_ATTACHE_BAS, XmNbottomAttachment}, {GRX_ATTACHE_HAUT, XmNtopAttachment},
            {GRX_ATTACHE_DROITE, XmNrightAttachment}, {GRX_ATTACHE_GAUCHE, XmNleftAttachment}}};
    if (b.x >= 0) args.set(XmNx, grx::as_position(b.x));
    if (b.y >= 0) args.set(XmNy, grx::as_position(b.y));
    set_size(args, b.fen);
    if (!b.visible()) args.set(XmNmappedWhenManaged, False);
    for (const auto& side : sides) {
        if ((b.fen.attache & side.bit) != 0) args.set(side.resource, XmATTACH_FORM);
    }
}

void attach_all_sides(grx::Args& args) {
    for (const char* const side : {XmNtopAttachment, XmNbottomAttachment, XmNleftAttachment, XmNrightAttachment})
        args.set(side, XmATTACH_FORM);
}

Widget make_scroll_bar(const Build& b, const char* name, unsigned char orientation) {
    grx::Args args;
    args.set(XmNorientation, orientation).set(XmNvalue, 0);
    if (grx_recup_hau_carac_alpha() > 0) args.set(XmNincrement, grx_recup_hau_carac_alpha());
    grx::set_background(args, b.fen.coul_fond);
    Widget bar = XmCreateScrollBar(b.scrolled, const_cast<char*>(name), args.list(), args.count());
    if (bar != nullptr) XtManageChild(bar);
    return bar;
}

void make_scrolled_alpha(Build& b, Widget container) {
    grx::Args form;
    if (b.nested) set_place_in_parent(form, b);
    grx::set_background(form, b.fen.coul_fond);
    b.outer = XmCreateForm(container, const_cast<char*>("Support"), form.list(), form.count());
    if (b.outer == nullptr) return;
    XtManageChild(b.outer);
    grx::Args args;
    args.set(XmNscrollingPolicy, XmAUTOMATIC).set(XmNautoDragModel, XmAUTO_DRAG_DISABLED);
    set_given_size(args, b.fen); // laid out at another size first, it would leave its bars behind
    attach_all_sides(args);
    grx::set_background(args, b.fen.coul_fond);
    b.scrolled = XmCreateScrolledWindow(b.outer, const_cast<char*>("Support_travail"), args.list(), args.count());
}

void make_scrolled_window(Build& b, Widget container) {
    const bool graphic = b.fen.type == GRX_FEN_GRAPHIQUE;
    grx::Args args;
    args.set(XmNscrollingPolicy, graphic ? XmAPPLICATION_DEFINED : XmAUTOMATIC);
    args.set(XmNautoDragModel, XmAUTO_DRAG_DISABLED); // drag and drop is off
    set_given_size(args, b.fen);                      // laid out at another size first, it would leave its bars behind
    if (b.nested) set_place_in_parent(args, b);
    grx::set_background(args, b.fen.coul_fond);
    b.scrolled = XmCreateScrolledWindow(container, const_cast<char*>("fenetre"), args.list(), args.count());
    b.outer = b.scrolled;
    if (b.scrolled == nullptr || !graphic) return;
    Widget vertical = make_scroll_bar(b, "vScrollBar", XmVERTICAL);
    Widget horizontal = make_scroll_bar(b, "hScrollBar", XmHORIZONTAL);
    XmScrolledWindowSetAreas(b.scrolled, horizontal, vertical, nullptr);
}

bool make_scrolling(Build& b, Widget container) {
    if (!b.scrolls()) return true;
    if (b.fen.type == GRX_FEN_ALPHA) {
        make_scrolled_alpha(b, container);
    } else {
        make_scrolled_window(b, container);
    }
    if (b.scrolled == nullptr) return false;
    XtManageChild(b.scrolled);
    return true;
}

// -- work widgets, one maker per kind

using Maker = Widget (*)(Widget parent, grx::Args& args, const Build& b);

Widget make_bulletin_board(Widget parent, grx::Args& args, const Build& b) {
    if (b.sized()) args.set(XmNmarginWidth, 0).set(XmNmarginHeight, 0);
    return grx::create_bulletin_board(parent, "fenetre", args);
}

// A drawing area shows no shadows: colours given to them spare the server four questions about colours of their own.
void set_unused_shadows(grx::Args& args, const Build& b) {
    const auto black = static_cast<Pixel>(grx_noir_systeme());
    args.set(XmNtopShadowColor, black).set(XmNbottomShadowColor, black).set(XmNhighlightColor, black);
    if (!b.nested || b.fen.coul_trace < 0) args.set(XmNforeground, black);
}

Widget make_drawing_area(Widget parent, grx::Args& args, const Build& b) {
    args.set(XmNbackground, static_cast<Pixel>(grx_recup_couleur(grx_recup_couleur_fond())));
    set_unused_shadows(args, b);
    if (b.sized()) args.set(XmNmarginWidth, 0).set(XmNmarginHeight, 0);
    return XmCreateDrawingArea(parent, const_cast<char*>("draw"), args.list(), args.count());
}

Widget make_scrolled_text(Widget parent, grx::Args& args, const Build&) {
    args.set(XmNeditMode, XmMULTI_LINE_EDIT).set(XmNeditable, True).set(XmNfontList, fontlist);
    args.set(XmNscrollBarDisplayPolicy, XmAS_NEEDED);
    return XmCreateScrolledText(parent, const_cast<char*>("texte"), args.list(), args.count());
}

Widget make_alpha(Widget parent, grx::Args& args, const Build&) {
    return grx::create_form(parent, "fen_alpha", args);
}

Widget make_menu(Widget parent, grx::Args& args, const Build&) {
    return grx::create_form(parent, "fen_menu", args);
}

void abandon(Widget, XtPointer box, XtPointer call) {
    XmAnyCallbackStruct answer{XmCR_CANCEL, call != nullptr ? static_cast<XmAnyCallbackStruct*>(call)->event : nullptr};
    XtCallCallbacks(static_cast<Widget>(box), XmNcancelCallback, &answer);
}

// The box's own cancel and help buttons go; "ABANDON" is a button of ours beside "CONFIRM" that answers as cancel.
// The cancel child stays alive, or the Escape key would answer nothing.
void arrange_message_box(Widget box, XmString abandon_label) {
    for (const unsigned char child : {XmDIALOG_HELP_BUTTON, XmDIALOG_CANCEL_BUTTON})
        if (Widget button = XmMessageBoxGetChild(box, child)) XtUnmanageChild(button);
    grx::Args args;
    args.set(XmNlabelString, abandon_label).set(XmNfontList, fontlist);
    Widget button = XmCreatePushButton(box, const_cast<char*>("ABANDON"), args.list(), args.count());
    if (button == nullptr) return;
    XtAddCallback(button, XmNactivateCallback, abandon, box);
    XtManageChild(button);
}

Widget make_message_box(Widget parent, grx::Args& args, const Build& b) {
    const grx::CompoundString confirm("CONFIRM");
    const grx::CompoundString abandon_label("ABANDON");
    const grx::FieldText text(b.fen.message);
    const grx::CompoundString message(text.c_str());
    args.set(XmNokLabelString, confirm.get()).set(XmNcancelLabelString, abandon_label.get());
    args.set(XmNmessageString, message.get());
    args.set(XmNbuttonFontList, fontlist).set(XmNlabelFontList, fontlist).set(XmNautoUnmanage, False);
    Widget box = XmCreateMessageBox(parent, const_cast<char*>("texte"), args.list(), args.count());
    if (box != nullptr) arrange_message_box(box, abandon_label.get());
    return box;
}

Maker maker_of(INT type) {
    struct Row {
        INT type;
        Maker maker;
    };
    static constexpr std::array<Row, 6> makers{{{GRX_FEN_BOUTONS, make_bulletin_board},
        {GRX_FEN_GRAPHIQUE, make_drawing_area}, {GRX_FEN_TEXTE, make_scrolled_text}, {GRX_FEN_ALPHA, make_alpha},
        {GRX_FEN_MESSAGE, make_message_box}, {GRX_FEN_MENU, make_menu}}};
    for (const auto& row : makers) {
        if (row.type == type) return row.maker;
    }
    return nullptr;
}

// Side of a work widget before anything is put into it. One that nobody sized would be a single pixel: the window
// could not be seen, and a scrolled window would not put its bars away.
int empty_side(const Build& b, INT given) {
    constexpr int side = 100;                                  // as the toolkit's scrolled windows are
    const int frame = b.has(GRX_FEN_ATT_PRINCIPALE) ? 40 : 10; // of the scrolled window, and the menu bar
    return given < 0 ? side : std::max<INT>(given - frame, 1);
}

void give_empty_container_a_size(grx::Args& args, const Build& b) {
    const bool in_viewport = b.scrolls() && b.fen.type != GRX_FEN_GRAPHIQUE;
    const bool full_by_itself = b.fen.type == GRX_FEN_MESSAGE || (b.fen.type == GRX_FEN_TEXTE && !in_viewport);
    if (full_by_itself) return;
    if (b.fen.droite < 0 || in_viewport) args.set(XmNwidth, empty_side(b, b.fen.droite));
    if (b.fen.haut < 0 || in_viewport) args.set(XmNheight, empty_side(b, b.fen.haut));
}

bool make_work_widget(Build& b, Widget container) {
    grx::Args args;
    if (b.nested) {
        if (!b.scrolls()) set_place_in_parent(args, b);
        grx::set_foreground(args, b.fen.coul_trace);
    }
    grx::set_background(args, b.fen.coul_fond);
    give_empty_container_a_size(args, b);
    if (b.nested && b.sized()) args.set(XmNresizePolicy, XmRESIZE_NONE); // else its controls would enlarge it
    b.work = maker_of(b.fen.type)(container, args, b);
    if (b.work == nullptr) return false;
    if (b.outer == nullptr) b.outer = b.fen.type == GRX_FEN_TEXTE ? XtParent(b.work) : b.work;
    if (b.outer != b.work) grx::set_resource(b.work, XmNmappedWhenManaged, True); // the whole is hidden, not its parts
    return true;
}

// Main window and scrolled window must be told which child is theirs to arrange.
void set_work_areas(const Build& b) {
    if (b.scrolled != nullptr && b.fen.type == GRX_FEN_GRAPHIQUE) grx::set_resource(b.scrolled, XmNworkWindow, b.work);
    if (b.main == nullptr) return;
    grx_cree_menu_bar(b.main);
    if (Widget bar = grx_get_Glob_menu_bar(); bar != nullptr && XtParent(bar) == b.main)
        grx::set_resource(b.main, XmNmenuBar, bar);
    grx::set_resource(b.main, XmNworkWindow, b.outer);
}

void register_window(const Build& b) {
    const INT nofen = b.nofen;
    grx_affecte_objet_fen(nofen, b.work);
    STRUCTURE_FENETRE& record = structure_fenetre[nofen];
    record = STRUCTURE_FENETRE{};
    grx_affecte_structure_fenetre(nofen);
    record.type = b.fen.type;
    beside_of(nofen).outer = b.nested ? b.outer : nullptr;
    beside_of(nofen).dead_pixmap = false;
}

void free_number(Widget, XtPointer number, XtPointer) {
    grx_free(static_cast<char*>(number), sizeof(INT));
}

// The number travels in a block of its own: the base's entry may be free, or another window's, when callbacks run.
INT* make_number(const Build& b) {
    auto* number = reinterpret_cast<INT*>(grx_malloc(sizeof(INT)));
    if (number != nullptr) *number = b.nofen;
    return number;
}

void install_handlers(const Build& b, INT* number) {
    STRUCTURE_FENETRE* const record = &structure_fenetre[b.nofen];
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

// A window made invisible is realised but not mapped, until it is shown by its number.
void put_on_screen(const Build& b) {
    if (b.parent != nullptr && b.visible()) {
        XtPopup(b.shell, XtGrabNone);
    } else {
        XtRealizeWidget(b.shell);
    }
    if (b.parent == nullptr) grx::give_context(b.shell);
}

void give_backing_picture(INT nofen) {
    STRUCTURE_FENETRE& record = structure_fenetre[nofen];
    grx_autorise_sauvegarde_auto(nofen);
    record.image = static_cast<Pixmap*>(std::malloc(sizeof(Pixmap))); // released with free
    if (record.image == nullptr) return;
    *record.image = None;
    grx_cree_bitmap_backingstore(nofen);
    record.backingstorable = 1;
}

void watch_scroll_bars(const Build& b, XtCallbackProc callback, XtPointer data) {
    for (const bool vertical : {false, true}) {
        Widget bar = grx::scroll_bar(b.scrolled, vertical);
        if (bar == nullptr) continue;
        XtAddCallback(bar, XmNvalueChangedCallback, callback, data);
        XtAddCallback(bar, XmNdragCallback, callback, data);
    }
}

void thicken_menu_scroll_bars(const Build& b) {
    if (Widget bar = grx::scroll_bar(b.scrolled, true)) grx::set_resource(bar, XmNwidth, kMenuScrollThickness);
    if (Widget bar = grx::scroll_bar(b.scrolled, false)) grx::set_resource(bar, XmNheight, kMenuScrollThickness);
}

void finish_scrolled(const Build& b, INT* number) {
    if (b.scrolled == nullptr) return;
    if (b.fen.type == GRX_FEN_GRAPHIQUE) {
        watch_scroll_bars(b, grx_scroll_change, number);
        structure_fenetre[b.nofen].attributs_fen_graph |= GRX_FENG_SCROLL;
        if (const INT width = grx_recup_taille_scrollbar(b.nofen); width > 0) grx_affecte_largeur_scrollbar(width);
        return;
    }
    if (b.fen.type == GRX_FEN_MENU) {
        thicken_menu_scroll_bars(b);
        watch_scroll_bars(b, grx_gere_evenement_scroll_menu, number);
    }
    const auto pixel = grx::application_pixel();
    Widget clip = grx::resource<Widget>(b.scrolled, XmNclipWindow);
    if (pixel && clip != nullptr) grx::set_resource(clip, XmNbackground, *pixel);
}

INT refuse_before_making(const Build& b) {
    const bool needs_parent = b.nested || b.fen.fen_mere >= 0;
    if (needs_parent && b.parent == nullptr) return kNotMade;
    if (b.nested && !XtIsComposite(b.parent)) return kNotMade; // a text holds no windows
    if (!known_kind(b.fen.type) || x11_disp == nullptr) return kNotMade;
    return 0;
}

bool make_widgets(Build& b) {
    Widget container = b.parent;
    if (b.nested) {
        place_nested(b);
    } else {
        place_shell(b);
        make_shell(b);
        container = b.shell;
    }
    if (container == nullptr) return false;
    if (b.has(GRX_FEN_ATT_PRINCIPALE)) {
        make_main_window(b, container);
        container = b.main;
    }
    if (container == nullptr || !make_scrolling(b, container)) return false;
    return make_work_widget(b, b.scrolled != nullptr ? b.scrolled : container);
}

void show_window(Build& b, INT* number) {
    set_work_areas(b);
    XtManageChild(b.work);
    grx::lay_out_pending(); // what is made for a nested window has its size
    size_nested(b);
    install_handlers(b, number);
    if (!b.nested) {
        put_on_screen(b);
        grx_affecte_curseur(b.fen.curseur, b.shell);
    }
    grx::set_known_size(b.nofen, {b.fen.droite, b.fen.haut});
    if (b.fen.type == GRX_FEN_GRAPHIQUE) give_backing_picture(b.nofen);
    finish_scrolled(b, number);
}

} // namespace

extern "C" {

void grx_init_fenetre(GRX_FENETRE* fenetre) {
    if (fenetre == nullptr) return;
    const INT type = fenetre->type; // KEEP: the kind is the caller's to give
    *fenetre = GRX_FENETRE{};
    fenetre->type = type;
    fenetre->attrib = GRX_FEN_ATT_VISIBLE;
    fenetre->nofen = fenetre->droite = fenetre->haut = GRX_AUCUN;
    fenetre->coul_fond = fenetre->coul_trace = fenetre->curseur = fenetre->fen_mere = GRX_AUCUN;
    fenetre->lar_util = fenetre->hau_util = GRX_AUCUN;
}

INT grx_cree_fenetre(GRX_FENETRE* fenetre) {
    if (fenetre == nullptr) return kNotMade;
    Build b{.fen = *fenetre,
        .nofen = GRX_AUCUN,
        .nested = (fenetre->attrib & GRX_FEN_ATT_FILLE) != 0,
        .parent = grx_recup_objet_fen(fenetre->fen_mere)};
    if (const INT refusal = refuse_before_making(b); refusal != 0) return refusal;
    b.nofen = grx_recup_indice_objet_fen_libre();
    if (b.nofen < 0) return kBaseFull;
    if (!make_widgets(b)) return kNotMade;
    fenetre->nofen = b.nofen;
    register_window(b);
    show_window(b, make_number(b));
    return 0;
}

void grx_gere_evenement_scroll_menu(Widget, XtPointer, XtPointer) {}
}
